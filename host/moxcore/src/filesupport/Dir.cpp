#include "PosixFiles.h"

#include <moxcore/filesupport/Dir.h>
#include <moxcore/string/Encoding.h>

#include <utility>

namespace moxcore::filesupport {

Dir::Dir(Utf8String path) : mPath(std::move(path)) {
  while (mPath.size() > 1 && mPath.ends_with('/')) {
    mPath.pop_back();
  }
}

Dir::Dir(Dir const& parent, std::string_view name, bool create) : Dir(parent.mPath) {
  if (!mPath.empty() && !mPath.ends_with('/')) {
    mPath.push_back('/');
  }
  mPath.append(name);
  if (create) {
    Create();
  }
}

Dir::Dir(Dir const& parent, std::u16string_view name, bool create)
    : Dir(parent, std::string_view(string::UTF16to8(name)), create) {}

bool Dir::Exists() const {
  return posix::TargetOf(mPath) == posix::Target::kDirectory;
}

void Dir::Create() const {
  posix::MakeDirectory(mPath, 0777);
}

void Dir::Delete() const {
  posix::RemoveDirectory(mPath);
}

std::vector<DirEntry> Dir::GetEntries() const {
  return posix::ListDirectory(mPath);
}

}  // namespace moxcore::filesupport
