#include "../SystemReason.h"
#include "DurableFile.h"
#include "Hash.h"
#include "PeakEntry.h"
#include "PlainFile.h"

#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/peaks/PeakCache.h>
#include <moxcore/config/Localizer.h>
#include <moxcore/string/TextOperations.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace moxaudiotoolkit {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kEnding = ".moxpeaks";
// What a process that was killed has left behind is that old.
constexpr auto kAbandoned = std::chrono::hours(1);

std::string Localised(std::string_view literal, const std::string& value = {}) {
  moxcore::Utf8String text = moxcore::config::Localizer::Get().GetUTF8String(literal);
  moxcore::string::ReplaceInString(text, "@0", value);
  return {text.begin(), text.end()};
}

std::string ReasonOf(EntryFault fault) {
  switch (fault) {
    case EntryFault::kNone:
      return {};
    case EntryFault::kForeign:
      return Localised("$$$/moxaudiotoolkit/PeakCache/Foreign=The kept peaks are of a foreign kind.");
    case EntryFault::kOtherByteOrder:
      return Localised("$$$/moxaudiotoolkit/PeakCache/ByteOrder=The kept peaks are in the wrong byte order.");
    case EntryFault::kOtherVersion:
      return Localised("$$$/moxaudiotoolkit/PeakCache/Version=The kept peaks are of another version.");
    case EntryFault::kOtherSound:
      return Localised("$$$/moxaudiotoolkit/PeakCache/OtherSound=The kept peaks are of another sound.");
    case EntryFault::kDamaged:
      return Localised("$$$/moxaudiotoolkit/PeakCache/Damaged=The kept peaks are damaged.");
    case EntryFault::kCutShort:
      return Localised("$$$/moxaudiotoolkit/PeakCache/CutShort=The kept peaks are cut short.");
  }
  return {};
}

std::string NotKept(const std::string& reason) {
  return Localised("$$$/moxaudiotoolkit/PeakCache/NotKept=The peaks can't be kept: @0.", reason);
}

std::string Hexadecimal(std::uint64_t number) {
  std::string text;
  for (int shift = 60; shift >= 0; shift -= 4) {
    text.push_back("0123456789abcdef"[number >> shift & 15]);
  }
  return text;
}

}  // namespace

std::string PeakCache::GetDefaultDirectory() {
  const char* cache = std::getenv("XDG_CACHE_HOME");
  const char* home = std::getenv("HOME");
  fs::path base;
  // A relative path is to be ignored there.
  if (cache != nullptr && fs::path(cache).is_absolute()) {
    base = cache;
  } else if (home != nullptr && fs::path(home).is_absolute()) {
    base = fs::path(home) / ".cache";
  } else {
    return {};
  }
  return (base / "moxmediaui" / "peaks").string();
}

PeakCache::PeakCache(std::string directory, std::uint64_t byteLimit)
    : mDirectory(std::move(directory)), mByteLimit(byteLimit) {}

std::string PeakCache::GetEntryPath(const PeakCacheKey& key) const {
  const auto bytes = std::bit_cast<std::array<std::uint8_t, sizeof key>>(key);
  return mDirectory + "/" + Hexadecimal(HashBytes(bytes, 1)) + Hexadecimal(HashBytes(bytes, 2)) +
         std::string(kEnding);
}

PeakCache::Entry PeakCache::Load(const PeakCacheKey& key, const PeakPyramidFormat& format) const {
  const std::string path = GetEntryPath(key);
  try {
    PlainFile file(path);
    const auto readNextBytes = [&file](std::span<std::uint8_t> destination) {
      file.Read(destination);
      return true;
    };
    EntryPeaks entry = ReadEntry(readNextBytes, file.GetSize(), key, format);
    if (entry.fault != EntryFault::kNone) {
      Remove(key);
      return {.problem = ReasonOf(entry.fault)};
    }
    // It is the most recently used one now.
    futimens(file.GetDescriptor(), nullptr);
    return {.pyramid = std::move(entry.pyramid), .fileHash = entry.fileHash};
  } catch (const AudioFileError& error) {
    const bool none = error.GetFault() == AudioFileFault::kNotFound;
    return {.problem = none ? std::string() : error.GetReason()};
  }
}

std::string PeakCache::Store(const PeakCacheKey& key, std::uint64_t fileHash,
                             const PeakPyramid& pyramid) const {
  if (mDirectory.empty()) {
    return NotKept(Localised("$$$/moxaudiotoolkit/PeakCache/NoFolder=there is no folder for them"));
  }
  if (!pyramid.IsComplete()) {
    return NotKept(Localised("$$$/moxaudiotoolkit/PeakCache/NotComplete=they aren't complete"));
  }
  if (pyramid.GetMemorySize() > mByteLimit) {
    return NotKept(
        Localised("$$$/moxaudiotoolkit/PeakCache/TooLarge=they are larger than all that may be kept"));
  }
  try {
    fs::create_directories(mDirectory);
    const std::string path = GetEntryPath(key);
    DurableFile file(path);
    file.Write(std::array<std::uint8_t, kEntryHeaderBytes>{});
    file.WriteAtStart(WriteEntry(pyramid, key, fileHash,
                                 [&file](std::span<const std::uint8_t> bytes) { file.Write(bytes); }));
    file.Commit();
    Trim(path);
    return {};
  } catch (const std::system_error& error) {
    return NotKept(SystemReason(error.code().value()));
  }
}

void PeakCache::Remove(const PeakCacheKey& key) const {
  std::error_code ignored;
  fs::remove(GetEntryPath(key), ignored);
}

// Others may delete the same files meanwhile: nothing here is an error.
void PeakCache::Trim(const std::string& newest) const {
  struct Kept {
    fs::file_time_type used;
    std::uint64_t size;
    fs::path path;
  };
  std::vector<Kept> entries;
  std::uint64_t total = 0;
  std::error_code error;
  for (fs::directory_iterator i(mDirectory, error), end; !error && i != end; i.increment(error)) {
    std::error_code ignored;
    const fs::path path = i->path();
    const auto used = fs::last_write_time(path, ignored);
    if (ignored || !i->is_regular_file(ignored)) {
      continue;
    }
    if (path.extension() == kEnding) {
      entries.push_back({used, i->file_size(ignored), path});
      total += ignored ? 0 : entries.back().size;
    } else if (path.extension() == DurableFile::kEnding &&
               used < fs::file_time_type::clock::now() - kAbandoned) {
      fs::remove(path, ignored);
    }
  }
  std::ranges::sort(entries, {}, &Kept::used);
  for (const Kept& entry : entries) {
    if (total <= mByteLimit) {
      return;
    }
    if (entry.path != newest) {
      fs::remove(entry.path, error);
      total -= entry.size;
    }
  }
}

}  // namespace moxaudiotoolkit
