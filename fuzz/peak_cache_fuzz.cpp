// Reads bytes as a cache entry of peaks. What they claim of the sound is taken for what is asked for, and the
// header's hash is put right, so that all that comes after it is reached.
#include <moxaudiotoolkit/peaks/PeakPyramid.h>

#include <peaks/Hash.h>
#include <peaks/PeakEntry.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <span>
#include <stdexcept>
#include <vector>

namespace {

using namespace moxaudiotoolkit;

constexpr std::int64_t kMostFrames = 2'000'000;
constexpr std::int32_t kMostChannelsHere = 8;

void Require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

template <class Value>
Value Get(const std::vector<std::uint8_t>& bytes, std::size_t at) {
  Value value;
  std::memcpy(&value, bytes.data() + at, sizeof value);
  return value;
}

template <class Value>
void Put(std::vector<std::uint8_t>& bytes, std::size_t at, Value value) {
  std::memcpy(bytes.data() + at, &value, sizeof value);
}

EntryPeaks Read(const std::vector<std::uint8_t>& bytes, const PeakCacheKey& key,
                const PeakPyramidFormat& format) {
  std::size_t done = 0;
  return ReadEntry(
      [&](std::span<std::uint8_t> destination) {
        Require(destination.size() <= bytes.size() * 2 + (std::size_t{1} << 16));
        if (destination.size() > bytes.size() - done) {
          return false;
        }
        std::copy_n(bytes.data() + done, destination.size(), destination.data());
        done += destination.size();
        return true;
      },
      bytes.size(), key, format);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<std::uint8_t> bytes(data, data + size);
  PeakCacheKey key;
  PeakPyramidFormat format{.frames = 1000, .sampleRate = 48000, .channelCount = 1};
  if (size >= kEntryHeaderBytes) {
    key = {Get<std::int64_t>(bytes, 16), Get<std::int64_t>(bytes, 24), Get<std::uint64_t>(bytes, 32)};
    const auto flags = Get<std::uint32_t>(bytes, 12);
    format = {.frames = Get<std::int64_t>(bytes, 48),
              .sampleRate = Get<std::int32_t>(bytes, 56),
              .channelCount = Get<std::int32_t>(bytes, 60),
              .samplesPerPoint = Get<std::int32_t>(bytes, 64),
              .has16Bits = (flags & 1) != 0,
              .hasRms = (flags & 2) != 0,
              .clipLevel = Get<float>(bytes, 68)};
    if (format.frames > kMostFrames || format.channelCount > kMostChannelsHere) {
      return 0;
    }
    Put(bytes, 72, static_cast<std::uint64_t>(size - kEntryHeaderBytes));
    Put(bytes, 88, HashBytes(std::span(bytes).first(88), Get<std::uint64_t>(bytes, 0)));
  }
  EntryPeaks entry;
  try {
    entry = Read(bytes, key, format);
  } catch (const std::invalid_argument&) {
    return 0;  // what no caller would ask for
  }
  Require((entry.fault == EntryFault::kNone) == (entry.pyramid != nullptr));
  if (entry.pyramid != nullptr) {
    Require(entry.pyramid->IsComplete());
    for (std::size_t channel = 0; channel < entry.pyramid->GetChannelCount(); ++channel) {
      const PeakPoint whole = entry.pyramid->GetRange(channel, 0, format.frames);
      Require(whole.known && whole.minimum <= whole.maximum);
    }
    std::vector<std::uint8_t> body;
    WriteEntry(*entry.pyramid, key, entry.fileHash, [&](std::span<const std::uint8_t> piece) {
      body.insert(body.end(), piece.begin(), piece.end());
    });
    Require(!body.empty() || format.frames == 0);
  }
  return 0;
}
