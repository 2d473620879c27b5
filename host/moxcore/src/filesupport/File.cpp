#include "PosixFiles.h"

#include <moxcore/filesupport/File.h>

#include <utility>

namespace moxcore::filesupport {

File::File(Utf8String path) : mPath(std::move(path)) {}

File::File(Dir const& parent, std::string_view name) {
  auto const& folder = parent.FullPath();
  mPath.reserve(folder.size() + 1 + name.size());
  mPath.append(folder);
  if (!folder.empty() && !folder.ends_with('/')) {
    mPath.push_back('/');
  }
  mPath.append(name);
}

Dir File::GetParent() const {
  auto const slash = mPath.rfind('/');
  if (slash == Utf8String::npos) {
    return Dir(".");
  }
  return Dir(mPath.substr(0, slash == 0 ? 1 : slash));
}

Utf8String File::GetName() const {
  return mPath.substr(mPath.rfind('/') + 1);
}

bool File::Exists() const {
  return posix::TargetOf(mPath) == posix::Target::kFile;
}

bool File::Create(bool truncate) const {
  return posix::MakeFile(mPath, truncate);
}

void File::Delete() const {
  if (posix::RemoveFile(mPath)) {
    posix::SyncDirectory(GetParent().FullPath());
  }
}

}  // namespace moxcore::filesupport
