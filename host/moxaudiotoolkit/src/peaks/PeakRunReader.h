#pragma once

#include "PeakPage.h"

#include <moxaudiotoolkit/peaks/PeakPyramid.h>

#include <cstdint>
#include <limits>

namespace moxaudiotoolkit {

// What is gathered of some points: starts with nothing, so that the first counts.
struct PeakSum {
  float minimum = std::numeric_limits<float>::infinity();
  float maximum = -std::numeric_limits<float>::infinity();
  double squares = 0.0;  // sum of the squares of the samples
  std::int64_t frames = 0;
  bool known = true;

  void AddPeaks(float low, float high) {
    minimum = low < minimum ? low : minimum;
    maximum = high > maximum ? high : maximum;
  }
  bool IsEmpty() const { return maximum < minimum; }
  PeakPoint GetPoint(float clipLevel) const;
};

// Reads a channel of a pyramid at one level, from left to right cheapest.
class PeakRunReader {
 public:
  PeakRunReader(const PeakPyramid& pyramid, std::size_t channel, int level)
      : mPyramid(pyramid), mChannel(channel), mLevel(level) {}

  // Adds points, all of which must be there. Minima and maxima only where `withSquares` is false.
  void Add(std::int64_t begin, std::int64_t end, bool withSquares, PeakSum& sum);

  // The stretch that a point lies in.
  const PeakStretch& GetStretch(std::int64_t point) {
    FindStretch(point);
    return mStretch;
  }

 private:
  void FindStretch(std::int64_t point);
  void AddFromBelow(std::int64_t begin, std::int64_t end, bool withSquares, PeakSum& sum) const;

  const PeakPyramid& mPyramid;
  std::size_t mChannel;
  int mLevel;
  PeakStretch mStretch;
};

}  // namespace moxaudiotoolkit
