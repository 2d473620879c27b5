#include "Hash.h"
#include "PlainFile.h"

#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/peaks/PeakCache.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <vector>

namespace moxaudiotoolkit {
namespace {

constexpr std::int64_t kBlockCount = 16;
constexpr std::int64_t kBlockBytes = 4096;
constexpr std::size_t kHashedAtOnce = 1 << 20;

// As many bytes as there are, at most those asked for.
std::size_t ReadAt(const PlainFile& file, std::int64_t offset, std::vector<std::uint8_t>& bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t got = pread(file.GetDescriptor(), bytes.data() + done, bytes.size() - done,
                              offset + static_cast<std::int64_t>(done));
    if (got <= 0 && !(got < 0 && errno == EINTR)) {
      break;
    }
    done += got > 0 ? static_cast<std::size_t>(got) : 0;
  }
  return done;
}

}  // namespace

PeakCacheKey MakePeakCacheKey(const std::string& path) {
  const PlainFile file(path);
  struct stat status {};
  fstat(file.GetDescriptor(), &status);
  PeakCacheKey key{.size = status.st_size,
                   .modified = status.st_mtim.tv_sec * std::int64_t{1'000'000'000} + status.st_mtim.tv_nsec,
                   .blockHash = 0};
  std::vector<std::uint8_t> block(kBlockBytes);
  const std::int64_t last = std::max<std::int64_t>(key.size - kBlockBytes, 0);
  for (std::int64_t i = 0; i < kBlockCount; ++i) {
    const std::int64_t offset =
        last / (kBlockCount - 1) * i + last % (kBlockCount - 1) * i / (kBlockCount - 1);
    const std::size_t size = ReadAt(file, offset, block);
    key.blockHash = HashBytes(std::span(block).first(size), key.blockHash);
  }
  return key;
}

std::optional<std::uint64_t> HashFile(const std::string& path, const std::atomic<bool>& cancelled) {
  const PlainFile file(path);
  std::vector<std::uint8_t> block(kHashedAtOnce);
  std::uint64_t hash = 0;
  std::int64_t offset = 0;
  while (!cancelled.load(std::memory_order_relaxed)) {
    const std::size_t size = ReadAt(file, offset, block);
    hash = HashBytes(std::span(block).first(size), hash);
    if (size < block.size()) {
      return hash;
    }
    offset += static_cast<std::int64_t>(size);
  }
  return std::nullopt;
}

}  // namespace moxaudiotoolkit
