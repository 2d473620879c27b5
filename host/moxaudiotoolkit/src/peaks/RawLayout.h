#pragma once

#include "../CutShort.h"

#include <cstdint>
#include <optional>

namespace moxaudiotoolkit {

enum class RawEncoding { kInt16, kInt24, kFloat32 };

// Where a file holds uncompressed samples, channels interleaved without gaps.
struct RawLayout {
  RawEncoding encoding = RawEncoding::kInt16;
  bool bigEndian = false;
  int channelCount = 0;
  std::int64_t dataOffset = 0;  // bytes
  std::int64_t frames = 0;

  int GetSampleSize() const {
    return encoding == RawEncoding::kInt16 ? 2 : encoding == RawEncoding::kInt24 ? 3 : 4;
  }
  std::int64_t GetFrameSize() const { return std::int64_t{channelCount} * GetSampleSize(); }
};

// Finds the samples of a WAV, RF64, Wave64, AIFF or AIFF-C file of `byteCount` bytes. Nothing for other
// files, for other encodings and for headers that are out of the ordinary: a decoder may make sense of those.
std::optional<RawLayout> FindRawLayout(const ReadBytesAt& readBytesAt, std::int64_t byteCount);

}  // namespace moxaudiotoolkit
