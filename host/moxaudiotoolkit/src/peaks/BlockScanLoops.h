// The loops behind BlockScan.h, compiled once for each set of instructions: every function here is local to
// the source that includes this, so that none compiled for a newer processor runs on an older one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace moxaudiotoolkit {
namespace {

using Shorts = std::int16_t __attribute__((vector_size(32)));
using Ints = std::int32_t __attribute__((vector_size(32)));
using Floats = float __attribute__((vector_size(32)));

constexpr std::size_t kBlockFrames = 64;
constexpr std::size_t kShortLanes = 16;
constexpr std::size_t kFloatLanes = 8;
constexpr float kShortScale = 1.0F / 32768.0F;

#define MOX_INLINE [[gnu::always_inline]] inline

template <class Vector, class Value>
MOX_INLINE void LoadVector(Vector& vector, const Value* source) {
  std::memcpy(&vector, source, sizeof vector);
}

// Halves as long as lanes of the same channel stand side by side; the first `Channels` lanes hold the
// result then.
template <std::size_t Channels>
MOX_INLINE void FoldShorts(Shorts& low, Shorts& high) {
  if constexpr (Channels <= 8) {
    const Shorts l = __builtin_shufflevector(low, low, 8, 9, 10, 11, 12, 13, 14, 15, 0, 1, 2, 3, 4, 5, 6, 7);
    const Shorts h =
        __builtin_shufflevector(high, high, 8, 9, 10, 11, 12, 13, 14, 15, 0, 1, 2, 3, 4, 5, 6, 7);
    low = l < low ? l : low;
    high = h > high ? h : high;
  }
  if constexpr (Channels <= 4) {
    const Shorts l = __builtin_shufflevector(low, low, 4, 5, 6, 7, 0, 1, 2, 3, 8, 9, 10, 11, 12, 13, 14, 15);
    const Shorts h =
        __builtin_shufflevector(high, high, 4, 5, 6, 7, 0, 1, 2, 3, 8, 9, 10, 11, 12, 13, 14, 15);
    low = l < low ? l : low;
    high = h > high ? h : high;
  }
  if constexpr (Channels <= 2) {
    const Shorts l = __builtin_shufflevector(low, low, 2, 3, 0, 1, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
    const Shorts h =
        __builtin_shufflevector(high, high, 2, 3, 0, 1, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
    low = l < low ? l : low;
    high = h > high ? h : high;
  }
  if constexpr (Channels <= 1) {
    const Shorts l = __builtin_shufflevector(low, low, 1, 0, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
    const Shorts h =
        __builtin_shufflevector(high, high, 1, 0, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
    low = l < low ? l : low;
    high = h > high ? h : high;
  }
}

template <std::size_t Lanes>
MOX_INLINE void FoldSum(Floats& sum) {
  if constexpr (Lanes <= 4) {
    sum += __builtin_shufflevector(sum, sum, 4, 5, 6, 7, 0, 1, 2, 3);
  }
  if constexpr (Lanes <= 2) {
    sum += __builtin_shufflevector(sum, sum, 2, 3, 0, 1, 6, 7, 4, 5);
  }
  if constexpr (Lanes <= 1) {
    sum += __builtin_shufflevector(sum, sum, 1, 0, 3, 2, 5, 4, 7, 6);
  }
}

template <std::size_t Lanes>
MOX_INLINE void FoldFloats(Floats& low, Floats& high) {
  if constexpr (Lanes <= 4) {
    const Floats l = __builtin_shufflevector(low, low, 4, 5, 6, 7, 0, 1, 2, 3);
    const Floats h = __builtin_shufflevector(high, high, 4, 5, 6, 7, 0, 1, 2, 3);
    low = l < low ? l : low;
    high = h > high ? h : high;
  }
  if constexpr (Lanes <= 2) {
    const Floats l = __builtin_shufflevector(low, low, 2, 3, 0, 1, 6, 7, 4, 5);
    const Floats h = __builtin_shufflevector(high, high, 2, 3, 0, 1, 6, 7, 4, 5);
    low = l < low ? l : low;
    high = h > high ? h : high;
  }
  if constexpr (Lanes <= 1) {
    const Floats l = __builtin_shufflevector(low, low, 1, 0, 3, 2, 5, 4, 7, 6);
    const Floats h = __builtin_shufflevector(high, high, 1, 0, 3, 2, 5, 4, 7, 6);
    low = l < low ? l : low;
    high = h > high ? h : high;
  }
}

// A whole block of 1, 2, 4 or 8 channels, which repeat every so many lanes.
template <std::size_t Channels>
MOX_INLINE void ScanShortBlock(const std::int16_t* samples, const PeakRun* runs, std::size_t point) {
  Shorts low;
  LoadVector(low, samples);
  Shorts high = low;
  Floats even{};
  Floats odd{};
  for (std::size_t i = 0; i < kBlockFrames * Channels; i += kShortLanes) {
    Shorts values;
    LoadVector(values, samples + i);
    low = values < low ? values : low;
    high = values > high ? values : high;
    const Ints pairs = reinterpret_cast<Ints>(values);
    const Floats first = __builtin_convertvector((pairs << 16) >> 16, Floats);
    const Floats second = __builtin_convertvector(pairs >> 16, Floats);
    even += first * first;
    odd += second * second;
  }
  FoldShorts<Channels>(low, high);
  if constexpr (Channels == 1) {
    even += odd;
  }
  constexpr std::size_t kSumLanes = Channels == 1 ? 1 : Channels / 2;
  FoldSum<kSumLanes>(even);
  FoldSum<kSumLanes>(odd);
  for (std::size_t c = 0; c < Channels; ++c) {
    runs[c].minimum[point] = static_cast<float>(low[c]) * kShortScale;
    runs[c].maximum[point] = static_cast<float>(high[c]) * kShortScale;
    runs[c].sumOfSquares[point] = (c % 2 == 0 ? even[c / 2] : odd[c / 2]) * (kShortScale * kShortScale);
  }
}

template <std::size_t Channels>
MOX_INLINE void ScanFloatBlock(const float* samples, const PeakRun* runs, std::size_t point) {
  Floats low;
  LoadVector(low, samples);
  Floats high = low;
  Floats sum{};
  for (std::size_t i = 0; i < kBlockFrames * Channels; i += kFloatLanes) {
    Floats values;
    LoadVector(values, samples + i);
    low = values < low ? values : low;
    high = values > high ? values : high;
    sum += values * values;
  }
  FoldFloats<Channels>(low, high);
  FoldSum<Channels>(sum);
  for (std::size_t c = 0; c < Channels; ++c) {
    runs[c].minimum[point] = low[c];
    runs[c].maximum[point] = high[c];
    runs[c].sumOfSquares[point] = sum[c];
  }
}

// Any number of channels and of frames, from 1 on.
template <class Value>
MOX_INLINE void ScanAnyBlock(const Value* samples, std::size_t frames, const PeakRun* runs,
                             std::size_t channelCount, std::size_t point, float scale) {
  for (std::size_t c = 0; c < channelCount; ++c) {
    Value low = samples[c];
    Value high = low;
    float sum = 0.0F;
    for (std::size_t i = c; i < frames * channelCount; i += channelCount) {
      const Value value = samples[i];
      low = value < low ? value : low;
      high = value > high ? value : high;
      sum += static_cast<float>(value) * static_cast<float>(value);
    }
    runs[c].minimum[point] = static_cast<float>(low) * scale;
    runs[c].maximum[point] = static_cast<float>(high) * scale;
    runs[c].sumOfSquares[point] = sum * (scale * scale);
  }
}

template <std::size_t Channels>
MOX_INLINE void ScanBlock(const std::int16_t* samples, const PeakRun* runs, std::size_t point) {
  ScanShortBlock<Channels>(samples, runs, point);
}

template <std::size_t Channels>
MOX_INLINE void ScanBlock(const float* samples, const PeakRun* runs, std::size_t point) {
  ScanFloatBlock<Channels>(samples, runs, point);
}

template <std::size_t Channels, class Value>
MOX_INLINE std::size_t ScanWholeBlocks(const Value* samples, std::size_t blocks, const PeakRun* runs,
                                       std::size_t point) {
  PeakRun local[Channels];
  for (std::size_t c = 0; c < Channels; ++c) {
    local[c] = runs[c];
  }
  for (std::size_t block = 0; block < blocks; ++block) {
    ScanBlock<Channels>(samples + block * kBlockFrames * Channels, local, point + block);
  }
  return blocks;
}

template <class Value>
MOX_INLINE void ScanSamples(const Value* samples, std::size_t sampleCount, const PeakRun* runs,
                            std::size_t channelCount, std::size_t point, float scale) {
  const std::size_t frames = sampleCount / channelCount;
  const std::size_t whole = frames / kBlockFrames;
  std::size_t block = 0;
  switch (channelCount) {
    case 1:
      block = ScanWholeBlocks<1>(samples, whole, runs, point);
      break;
    case 2:
      block = ScanWholeBlocks<2>(samples, whole, runs, point);
      break;
    case 4:
      block = ScanWholeBlocks<4>(samples, whole, runs, point);
      break;
    case 8:
      block = ScanWholeBlocks<8>(samples, whole, runs, point);
      break;
    default:
      break;
  }
  for (; block * kBlockFrames < frames; ++block) {
    const std::size_t first = block * kBlockFrames;
    const std::size_t count = frames - first < kBlockFrames ? frames - first : kBlockFrames;
    ScanAnyBlock(samples + first * channelCount, count, runs, channelCount, point + block, scale);
  }
}

#undef MOX_INLINE

}  // namespace
}  // namespace moxaudiotoolkit
