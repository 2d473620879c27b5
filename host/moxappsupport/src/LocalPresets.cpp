#include "FileNames.h"

#include <moxappsupport/LocalPresets.h>
#include <moxcore/config/Errors.h>
#include <moxcore/filesupport/FileUtils.h>
#include <moxcore/string/Encoding.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace moxappsupport::presets {

namespace {

using moxcore::Utf16String;
using moxcore::Utf8String;
using moxcore::filesupport::Dir;
using moxcore::filesupport::DirEntryKind;
using moxcore::filesupport::File;

std::mutex sMutex;
std::optional<Dir>& Override() {
  static std::optional<Dir> sOverride;
  return sOverride;
}

// The directory that an environment variable names; relative paths don't count.
std::optional<Dir> DirOfVariable(char const* variable) {
  auto const* const path = std::getenv(variable);
  return path != nullptr && path[0] == '/' ? std::optional(Dir(Utf8String(path))) : std::nullopt;
}

Dir UserDataDir() {
  if (auto const dir = DirOfVariable("XDG_DATA_HOME")) {
    return *dir;
  }
  auto home = moxcore::filesupport::FileUtils::GetHomeDirectory();
  if (home.FullPath().empty()) {
    // An account without a home: its presets last as long as they can.
    home = Dir(Utf8String(std::filesystem::temp_directory_path().string()));
  }
  return Dir(home, ".local/share", false);
}

Utf8String Number(std::size_t number) {
  auto const digits = std::to_string(number);
  return " (" + Utf8String(digits) + ")";
}

}  // namespace

Dir GetLocalPresetsBaseDir() {
  {
    std::lock_guard const lock(sMutex);
    if (Override().has_value()) {
      return *Override();
    }
  }
  if (auto const dir = DirOfVariable("MOX_PRESETS_DIR")) {
    return *dir;
  }
  return Dir(UserDataDir(), "moxmediaui/Presets", false);
}

void SetLocalPresetsBaseDir(std::optional<Dir> dir) {
  std::lock_guard const lock(sMutex);
  Override() = std::move(dir);
}

bool CollectFiles(Dir const& dir, Utf16String const& extension, std::vector<File>& files) {
  files.clear();
  auto const ending = moxcore::string::UTF16to8(extension);
  std::vector<Utf8String> names;
  try {
    for (auto& entry : dir.GetEntries()) {
      if (entry.kind == DirEntryKind::kFile && entry.name.ends_with(ending)) {
        names.push_back(std::move(entry.name));
      }
    }
  } catch (moxcore::config::mox_exception const&) {
    return false;
  }
  std::ranges::sort(names);
  files.reserve(names.size());
  for (auto const& name : names) {
    files.emplace_back(dir, name);
  }
  return true;
}

File GetFileWithUniqueName(Dir const& dir, Utf16String const& name, Utf16String const& extension) {
  auto const ending = moxcore::string::UTF16to8(extension);
  std::set<Utf8String> taken;
  for (auto const& entry : dir.GetEntries()) {
    taken.insert(FoldedName(entry.name));
  }
  auto const safe = SafeStem(name);
  Utf8String number;
  // One more attempt than there are names must find a free one.
  for (std::size_t attempt = 1;; number = Number(++attempt)) {
    auto const room = kLongestFileName - std::min(kLongestFileName, number.size() + ending.size());
    auto const stem = ShortenedStem(safe, room);
    if (stem.empty()) {
      throw std::invalid_argument("the extension leaves no room for a name");
    }
    auto const candidate = stem + number + ending;
    if (!taken.contains(FoldedName(candidate))) {
      return File(dir, candidate);
    }
  }
}

}  // namespace moxappsupport::presets
