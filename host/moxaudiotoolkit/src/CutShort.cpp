#include "CutShort.h"

#include <array>
#include <string_view>

namespace moxaudiotoolkit {
namespace {

constexpr int kMostChunks = 1000;
constexpr std::int64_t kChunkHeaderSize = 8;

// Programs that write to a pipe put in their largest length, from 2^31 less a few pages up to 2^32 - 1.
constexpr std::uint32_t kLeastUnknownLength = 0x7FFF0000U;

// A chunk's four letters and its length, which is stored in the byte order of its container.
struct ChunkHeader {
  std::array<std::uint8_t, kChunkHeaderSize> bytes;

  bool Is(std::string_view letters) const {
    return std::string_view(reinterpret_cast<const char*>(bytes.data()), letters.size()) == letters;
  }

  std::uint32_t GetLength(bool bigEndian) const {
    std::uint32_t length = 0;
    for (std::size_t i = 0; i < 4; ++i) {
      length = length << 8 | bytes[bigEndian ? 4 + i : 7 - i];
    }
    return length;
  }
};

}  // namespace

bool IsCutShort(const ReadBytesAt& readBytesAt, std::int64_t byteCount) {
  ChunkHeader header{};
  if (!readBytesAt(0, header.bytes)) {
    return false;
  }
  const bool aiff = header.Is("FORM");
  if (!aiff && !header.Is("RIFF")) {
    return false;
  }
  std::int64_t offset = kChunkHeaderSize + 4;  // the container's kind comes before its first chunk
  for (int i = 0; i < kMostChunks && readBytesAt(offset, header.bytes); ++i) {
    const std::uint32_t length = header.GetLength(aiff);
    if (header.Is(aiff ? "SSND" : "data")) {
      return length < kLeastUnknownLength && offset + kChunkHeaderSize + length > byteCount;
    }
    offset += kChunkHeaderSize + length + length % 2;
  }
  return false;
}

}  // namespace moxaudiotoolkit
