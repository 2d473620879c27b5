#include "PosixFiles.h"

#include <moxcore/filesupport/File.h>
#include <moxcore/filesupport/FileUtils.h>

#include <exception>
#include <vector>

namespace moxcore::filesupport::FileUtils {

namespace {

constexpr unsigned kForTheUserAlone = 0700;

void MakeWithParents(Dir const& dir) {
  std::vector<Utf8String> missing;
  for (auto path = dir.FullPath(); posix::TargetOf(path) == posix::Target::kNothing;
       path = File(path).GetParent().FullPath()) {
    missing.push_back(path);
    if (path == "/" || path == ".") {
      break;
    }
  }
  for (auto path = missing.rbegin(); path != missing.rend(); ++path) {
    if (posix::MakeDirectory(*path, kForTheUserAlone)) {
      // Else a power cut could take the directory with everything that was saved in it.
      posix::SyncDirectory(File(*path).GetParent().FullPath());
    }
  }
}

}  // namespace

bool EnsureDirectoryExists(Utf8String const& path) noexcept {
  try {
    Dir const dir(path);
    MakeWithParents(dir);
    return dir.Exists();
  } catch (std::exception const&) {
    return false;
  }
}

void SimpleWriteStringToFile(Utf8String const& path, std::string_view text) {
  posix::Write(path, text);
}

Dir GetHomeDirectory() {
  return Dir(posix::HomeDirectory());
}

}  // namespace moxcore::filesupport::FileUtils
