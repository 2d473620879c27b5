#include "RawLayout.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace moxaudiotoolkit {
namespace {

constexpr int kMostChunks = 1000;
constexpr std::uint32_t kLengthElsewhere = 0xFFFFFFFFU;  // RF64 tells it in its ds64 chunk
constexpr std::uint16_t kPcm = 1;
constexpr std::uint16_t kFloat = 3;
constexpr std::uint16_t kExtensible = 0xFFFE;

// What the identifiers of Wave64 have after their first four letters; those of the first two differ.
constexpr std::array<std::uint8_t, 12> kRiffTail{0x2E, 0x91, 0xCF, 0x11, 0xA5, 0xD6,
                                                 0x28, 0xDB, 0x04, 0xC1, 0,    0};
constexpr std::array<std::uint8_t, 12> kWaveTail{0xF3, 0xAC, 0xD3, 0x11, 0x8C, 0xD1,
                                                 0x00, 0xC0, 0x4F, 0x8E, 0xDB, 0x8A};

class Header {
 public:
  Header(const ReadBytesAt& readBytesAt, std::int64_t offset, std::size_t size) {
    mValid = readBytesAt(offset, std::span(mBytes).first(size));
  }

  explicit operator bool() const { return mValid; }
  bool Is(std::size_t at, std::string_view letters) const {
    return std::string_view(reinterpret_cast<const char*>(mBytes.data()) + at, letters.size()) == letters;
  }
  bool HasTail(std::size_t at, const std::array<std::uint8_t, 12>& tail) const {
    return std::equal(tail.begin(), tail.end(), mBytes.begin() + static_cast<std::ptrdiff_t>(at));
  }
  std::uint64_t Get(std::size_t at, std::size_t size, bool bigEndian) const {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < size; ++i) {
      value = value << 8 | mBytes[bigEndian ? at + i : at + size - 1 - i];
    }
    return value;
  }

 private:
  std::array<std::uint8_t, 40> mBytes{};
  bool mValid;
};

bool SetEncoding(RawLayout& layout, bool isFloat, std::uint64_t bits) {
  if (isFloat ? bits != 32 : bits != 16 && bits != 24) {
    return false;
  }
  layout.encoding = isFloat ? RawEncoding::kFloat32 : bits == 16 ? RawEncoding::kInt16 : RawEncoding::kInt24;
  return true;
}

bool ReadWaveFormat(const ReadBytesAt& readBytesAt, std::int64_t offset, std::uint64_t length,
                    RawLayout& layout) {
  const Header format(readBytesAt, offset, length >= 40 ? 40 : 16);
  if (length < 16 || !format) {
    return false;
  }
  std::uint64_t tag = format.Get(0, 2, false);
  const std::uint64_t bits = format.Get(14, 2, false);
  if (tag == kExtensible && length >= 40 && format.Get(18, 2, false) == bits) {
    tag = format.Get(24, 2, false);
  }
  layout.channelCount = static_cast<int>(format.Get(2, 2, false));
  return (tag == kPcm || tag == kFloat) && SetEncoding(layout, tag == kFloat, bits) &&
         format.Get(12, 2, false) == static_cast<std::uint64_t>(layout.GetFrameSize());
}

bool ReadAiffFormat(const ReadBytesAt& readBytesAt, std::int64_t offset, std::uint64_t length,
                    bool compressed, RawLayout& layout) {
  const Header format(readBytesAt, offset, compressed ? 22 : 18);
  if (length < (compressed ? 22U : 18U) || !format) {
    return false;
  }
  layout.channelCount = static_cast<int>(format.Get(0, 2, true));
  const bool little = compressed && format.Is(18, "sowt");
  const bool isFloat = compressed && (format.Is(18, "fl32") || format.Is(18, "FL32"));
  layout.bigEndian = !little;
  return (!compressed || little || isFloat || format.Is(18, "NONE")) &&
         SetEncoding(layout, isFloat, format.Get(6, 2, true));
}

// Of the chunks, each with the offset of its contents and their length. A layout is whole once it has data.
std::optional<RawLayout> WithData(RawLayout layout, std::int64_t offset, std::uint64_t length,
                                  std::int64_t byteCount) {
  if (layout.channelCount < 1 || offset > byteCount ||
      length > static_cast<std::uint64_t>(byteCount - offset)) {
    return std::nullopt;
  }
  layout.dataOffset = offset;
  layout.frames = static_cast<std::int64_t>(length) / layout.GetFrameSize();
  return layout;
}

std::optional<RawLayout> FindInRiff(const ReadBytesAt& readBytesAt, std::int64_t byteCount) {
  RawLayout layout;
  std::uint64_t dataLength = kLengthElsewhere;
  std::int64_t offset = 12;
  for (int i = 0; i < kMostChunks; ++i) {
    const Header chunk(readBytesAt, offset, 8);
    if (!chunk) {
      return std::nullopt;
    }
    std::uint64_t length = chunk.Get(4, 4, false);
    const std::int64_t contents = offset + 8;
    if (chunk.Is(0, "ds64")) {
      const Header sizes(readBytesAt, contents, 16);
      if (length < 16 || !sizes) {
        return std::nullopt;
      }
      dataLength = sizes.Get(8, 8, false);
    } else if (chunk.Is(0, "fmt ")) {
      if (!ReadWaveFormat(readBytesAt, contents, length, layout)) {
        return std::nullopt;
      }
    } else if (chunk.Is(0, "data")) {
      return WithData(layout, contents, length == kLengthElsewhere ? dataLength : length, byteCount);
    }
    offset = contents + static_cast<std::int64_t>(length + length % 2);
  }
  return std::nullopt;
}

std::optional<RawLayout> FindInWave64(const ReadBytesAt& readBytesAt, std::int64_t byteCount) {
  constexpr std::uint64_t kChunkHeader = 24;  // is part of the length
  RawLayout layout;
  std::int64_t offset = 40;
  for (int i = 0; i < kMostChunks; ++i) {
    const Header chunk(readBytesAt, offset, kChunkHeader);
    if (!chunk) {
      return std::nullopt;
    }
    const std::uint64_t whole = chunk.Get(16, 8, false);
    if (whole < kChunkHeader || whole > static_cast<std::uint64_t>(byteCount)) {
      return std::nullopt;
    }
    const std::int64_t contents = offset + static_cast<std::int64_t>(kChunkHeader);
    if (chunk.Is(0, "fmt ") && chunk.HasTail(4, kWaveTail)) {
      if (!ReadWaveFormat(readBytesAt, contents, whole - kChunkHeader, layout)) {
        return std::nullopt;
      }
    } else if (chunk.Is(0, "data") && chunk.HasTail(4, kWaveTail)) {
      return WithData(layout, contents, whole - kChunkHeader, byteCount);
    }
    offset += static_cast<std::int64_t>((whole + 7) / 8 * 8);
  }
  return std::nullopt;
}

std::optional<RawLayout> FindInAiff(const ReadBytesAt& readBytesAt, std::int64_t byteCount, bool compressed) {
  RawLayout layout;
  std::int64_t offset = 12;
  for (int i = 0; i < kMostChunks; ++i) {
    const Header chunk(readBytesAt, offset, 8);
    if (!chunk) {
      return std::nullopt;
    }
    const std::uint64_t length = chunk.Get(4, 4, true);
    const std::int64_t contents = offset + 8;
    if (chunk.Is(0, "COMM")) {
      if (!ReadAiffFormat(readBytesAt, contents, length, compressed, layout)) {
        return std::nullopt;
      }
    } else if (chunk.Is(0, "SSND")) {
      const Header start(readBytesAt, contents, 8);
      // Samples may begin later, which no one does.
      if (length < 8 || !start || start.Get(0, 4, true) != 0) {
        return std::nullopt;
      }
      return WithData(layout, contents + 8, length - 8, byteCount);
    }
    offset = contents + static_cast<std::int64_t>(length + length % 2);
  }
  return std::nullopt;
}

}  // namespace

std::optional<RawLayout> FindRawLayout(const ReadBytesAt& readBytesAt, std::int64_t byteCount) {
  const Header start(readBytesAt, 0, 40);
  if (!start) {
    return std::nullopt;
  }
  if ((start.Is(0, "RIFF") || start.Is(0, "RF64")) && start.Is(8, "WAVE")) {
    return FindInRiff(readBytesAt, byteCount);
  }
  if (start.Is(0, "riff") && start.HasTail(4, kRiffTail) && start.Is(24, "wave") &&
      start.HasTail(28, kWaveTail)) {
    return FindInWave64(readBytesAt, byteCount);
  }
  if (start.Is(0, "FORM") && (start.Is(8, "AIFF") || start.Is(8, "AIFC"))) {
    return FindInAiff(readBytesAt, byteCount, start.Is(8, "AIFC"));
  }
  return std::nullopt;
}

}  // namespace moxaudiotoolkit
