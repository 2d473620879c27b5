#pragma once

#include <moxaudiotoolkit/peaks/PeakCache.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>

namespace moxaudiotoolkit {

// The file of a cache entry: a header of kEntryHeaderBytes with a hash of its own, then the finest points
// page by page, channel by channel, as they are in memory; all in the byte order of the machine, which the
// header tells. Nothing is taken on trust but after its hash and its bounds have been checked.
inline constexpr std::size_t kEntryHeaderBytes = 96;

// What can be wrong with an entry.
enum class EntryFault { kNone, kForeign, kOtherByteOrder, kOtherVersion, kOtherSound, kDamaged, kCutShort };

struct EntryPeaks {
  EntryFault fault = EntryFault::kNone;
  std::uint64_t fileHash = 0;
  std::shared_ptr<const PeakPyramid> pyramid = nullptr;
};

// Fills the destination with the next bytes; false when there aren't as many.
using ReadNextBytes = std::function<bool(std::span<std::uint8_t> destination)>;
EntryPeaks ReadEntry(const ReadNextBytes& readNextBytes, std::uint64_t byteCount, const PeakCacheKey& key,
                     const PeakPyramidFormat& format);

// Hands the bytes of the body of a complete pyramid on, piece by piece, and returns the header.
std::array<std::uint8_t, kEntryHeaderBytes> WriteEntry(
    const PeakPyramid& pyramid, const PeakCacheKey& key, std::uint64_t fileHash,
    const std::function<void(std::span<const std::uint8_t>)>& write);

}  // namespace moxaudiotoolkit
