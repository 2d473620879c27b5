// The loops behind MeasureFrames and ConvertInt16, compiled once for each set of instructions as those of
// BlockScanLoops.h.
#pragma once

#include "BlockScan.h"
#include "BlockScanLoops.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <numeric>

namespace moxaudiotoolkit {
namespace {

#define MOX_INLINE [[gnu::always_inline]] inline

constexpr float kNoMinimum = std::numeric_limits<float>::infinity();
constexpr float kNoMaximum = -std::numeric_limits<float>::infinity();

// What has been found in vectors of samples, lane by lane.
template <std::size_t Vectors, bool WithSquares>
struct LaneSums {
  Floats low[Vectors];
  Floats high[Vectors];
  Floats squares[Vectors];

  MOX_INLINE LaneSums() {
    for (std::size_t v = 0; v < Vectors; ++v) {
      low[v] = Floats{} + kNoMinimum;
      high[v] = Floats{} + kNoMaximum;
      squares[v] = Floats{};
    }
  }

  MOX_INLINE void Add(std::size_t v, const float* samples) {
    Floats values;
    LoadVector(values, samples);
    low[v] = values < low[v] ? values : low[v];
    high[v] = values > high[v] ? values : high[v];
    if constexpr (WithSquares) {
      squares[v] += values * values;
    }
  }

  MOX_INLINE void Fold(std::size_t into, std::size_t from) {
    low[into] = low[from] < low[into] ? low[from] : low[into];
    high[into] = high[from] > high[into] ? high[from] : high[into];
    squares[into] += squares[from];
  }
};

template <bool WithSquares>
MOX_INLINE void Widen(const FrameSums& sums, std::size_t channel, float low, float high, float squares) {
  float& minimum = sums.minima[channel];
  float& maximum = sums.maxima[channel];
  minimum = low < minimum ? low : minimum;
  maximum = high > maximum ? high : maximum;
  if constexpr (WithSquares) {
    sums.squares[channel] += squares;
  }
}

// Up to as many channels as lanes: so many vectors hold whole frames, and each lane of them one channel.
template <std::size_t Channels, bool WithSquares>
MOX_INLINE void MeasureFew(const float* samples, std::size_t count, const FrameSums& sums) {
  constexpr std::size_t kPeriod = Channels / std::gcd(Channels, kFloatLanes);
  // Several comparisons under way at once: each waits for the one before it.
  constexpr std::size_t kVectors = kPeriod == 1 ? 4 : kPeriod;
  for (std::size_t c = 0; c < Channels; ++c) {
    sums.minima[c] = kNoMinimum;
    sums.maxima[c] = kNoMaximum;
    if constexpr (WithSquares) {
      sums.squares[c] = 0.0F;
    }
  }
  LaneSums<kVectors, WithSquares> lanes;
  std::size_t i = 0;
  for (; i + kVectors * kFloatLanes <= count; i += kVectors * kFloatLanes) {
    for (std::size_t v = 0; v < kVectors; ++v) {
      lanes.Add(v, samples + i + v * kFloatLanes);
    }
  }
  if constexpr (kVectors > kPeriod) {
    for (; i + kFloatLanes <= count; i += kFloatLanes) {
      lanes.Add(0, samples + i);
    }
    lanes.Fold(0, 1);
    lanes.Fold(2, 3);
    lanes.Fold(0, 2);
  }
  for (std::size_t lane = 0; i > 0 && lane < kPeriod * kFloatLanes; ++lane) {
    const std::size_t v = lane / kFloatLanes;
    const std::size_t at = lane % kFloatLanes;
    Widen<WithSquares>(sums, lane % Channels, lanes.low[v][at], lanes.high[v][at], lanes.squares[v][at]);
  }
  for (; i < count; ++i) {
    Widen<WithSquares>(sums, i % Channels, samples[i], samples[i], samples[i] * samples[i]);
  }
}

// As many channels as lanes or more: a lane each, frame by frame. The last lanes share channels with those
// before them where the number doesn't divide.
template <bool WithSquares>
MOX_INLINE void MeasureMany(const float* samples, std::size_t count, std::size_t channelCount,
                            const FrameSums& sums) {
  for (std::size_t first = 0; first < channelCount; first += kFloatLanes) {
    const std::size_t channel = first + kFloatLanes <= channelCount ? first : channelCount - kFloatLanes;
    LaneSums<1, WithSquares> lanes;
    for (std::size_t i = channel; i < count; i += channelCount) {
      lanes.Add(0, samples + i);
    }
    for (std::size_t lane = 0; lane < kFloatLanes; ++lane) {
      sums.minima[channel + lane] = lanes.low[0][lane];
      sums.maxima[channel + lane] = lanes.high[0][lane];
      if constexpr (WithSquares) {
        sums.squares[channel + lane] = lanes.squares[0][lane];
      }
    }
  }
}

template <bool WithSquares>
MOX_INLINE void MeasureSamples(const float* samples, std::size_t count, std::size_t channelCount,
                               const FrameSums& sums) {
  switch (channelCount) {
    case 1:
      return MeasureFew<1, WithSquares>(samples, count, sums);
    case 2:
      return MeasureFew<2, WithSquares>(samples, count, sums);
    case 3:
      return MeasureFew<3, WithSquares>(samples, count, sums);
    case 4:
      return MeasureFew<4, WithSquares>(samples, count, sums);
    case 5:
      return MeasureFew<5, WithSquares>(samples, count, sums);
    case 6:
      return MeasureFew<6, WithSquares>(samples, count, sums);
    case 7:
      return MeasureFew<7, WithSquares>(samples, count, sums);
    case 8:
      return MeasureFew<8, WithSquares>(samples, count, sums);
    default:
      return MeasureMany<WithSquares>(samples, count, channelCount, sums);
  }
}

MOX_INLINE void MeasureSamples(const float* samples, std::size_t count, std::size_t channelCount,
                               const FrameSums& sums) {
  sums.squares != nullptr ? MeasureSamples<true>(samples, count, channelCount, sums)
                          : MeasureSamples<false>(samples, count, channelCount, sums);
}

MOX_INLINE void ConvertShorts(const std::int16_t* samples, std::size_t count, float* destination) {
  using HalfShorts = std::int16_t __attribute__((vector_size(16)));
  std::size_t i = 0;
  for (; i + kFloatLanes <= count; i += kFloatLanes) {
    HalfShorts shorts;
    LoadVector(shorts, samples + i);
    const Floats floats = __builtin_convertvector(shorts, Floats) * kShortScale;
    std::memcpy(destination + i, &floats, sizeof floats);
  }
  for (; i < count; ++i) {
    destination[i] = static_cast<float>(samples[i]) * kShortScale;
  }
}

#undef MOX_INLINE

}  // namespace
}  // namespace moxaudiotoolkit
