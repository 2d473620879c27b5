#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace moxaudiotoolkit {

class PeakPyramid;
struct PeakPyramidFormat;

// By what a sound file is known again, wherever it lies: its length in bytes, the time of its last change in
// nanoseconds and a hash of blocks spread over it.
struct PeakCacheKey {
  std::int64_t size = 0;
  std::int64_t modified = 0;
  std::uint64_t blockHash = 0;

  bool operator==(const PeakCacheKey&) const = default;
};

// Throws AudioFileError when the file can't be read.
PeakCacheKey MakePeakCacheKey(const std::string& path);
// A hash of all bytes of a file; nothing when `cancelled` becomes true meanwhile. Throws AudioFileError.
std::optional<std::uint64_t> HashFile(const std::string& path, const std::atomic<bool>& cancelled);

// Peak pyramids kept on disk, a file for each, so that a sound file's second opening is immediate. An entry
// that is damaged, foreign, from another version or of another sound is not an error but no entry, and
// deleted. So is a folder that can't be made, read or written: nothing is kept then, with the reason given.
// Entries come to their names whole, so that several processes may share a folder. Threads may share a cache.
class PeakCache {
 public:
  static constexpr std::uint64_t kUsualByteLimit = std::uint64_t{4} << 30;

  // $XDG_CACHE_HOME/moxmediaui/peaks, by default in ~/.cache; empty when there is neither.
  static std::string GetDefaultDirectory();

  // Keeps entries of at most `byteLimit` bytes in all; the least recently used leave first.
  explicit PeakCache(std::string directory, std::uint64_t byteLimit = kUsualByteLimit);

  const std::string& GetDirectory() const { return mDirectory; }

  struct Entry {
    std::shared_ptr<const PeakPyramid> pyramid = nullptr;  // complete; null when there is none
    std::uint64_t fileHash = 0;                            // of the sound file whose peaks these are
    std::string problem = {};  // why there is none, localised; empty when none was kept
  };
  // `format` is what the pyramid of this sound has to be; memory is taken for no other.
  Entry Load(const PeakCacheKey& key, const PeakPyramidFormat& format) const;

  // Returns an empty text, or why the pyramid couldn't be kept, localised. It must be complete.
  std::string Store(const PeakCacheKey& key, std::uint64_t fileHash, const PeakPyramid& pyramid) const;
  void Remove(const PeakCacheKey& key) const;

  // The file of an entry, whether it is there or not.
  std::string GetEntryPath(const PeakCacheKey& key) const;

 private:
  void Trim(const std::string& newest) const;

  std::string mDirectory;
  std::uint64_t mByteLimit;
};

}  // namespace moxaudiotoolkit
