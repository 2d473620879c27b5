#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

namespace moxaudiotoolkit {

// Fills a buffer with the bytes from an offset on; false when there aren't as many.
using ReadBytesAt = std::function<bool(std::int64_t offset, std::span<std::uint8_t> destination)>;

// Whether a WAV or AIFF file of `byteCount` bytes ends within the samples that its header promises, as an
// interrupted copy does. libsndfile gives such a file as a shorter one without a word. Lengths that stand for
// "not known yet" don't count, nor do other formats.
bool IsCutShort(const ReadBytesAt& readBytesAt, std::int64_t byteCount);

}  // namespace moxaudiotoolkit
