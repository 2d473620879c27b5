#include "ViewMapping.h"

#include <algorithm>
#include <cmath>

namespace moxaudiotoolkit::waveform {
namespace {

constexpr double kFarthestPixel = 2305843009213693952.0;  // 2^61: differences fit 64 bits

}  // namespace

ViewMapping::ViewMapping(double viewLeft, double samplesPerPixel, std::int64_t frameCount)
    : mSamplesPerPixel(samplesPerPixel), mFrameCount(frameCount) {
  const double left = std::trunc(viewLeft / samplesPerPixel);
  if (std::fabs(left) < kFarthestPixel) {
    mLeftPixel = static_cast<std::int64_t>(left);
  }
}

std::int64_t ViewMapping::GetPixel(std::int64_t sample) const {
  return static_cast<std::int64_t>(std::min(static_cast<double>(sample) / mSamplesPerPixel, kFarthestPixel));
}

std::int64_t ViewMapping::GetFirstSample(std::int64_t pixel) const {
  const double estimate = std::ceil(static_cast<double>(pixel) * mSamplesPerPixel);
  auto sample = static_cast<std::int64_t>(std::clamp(estimate, 0.0, static_cast<double>(mFrameCount)));
  // The product is rounded in another way than the quotient that defines a pixel.
  while (sample > 0 && GetPixel(sample - 1) >= pixel) {
    --sample;
  }
  while (sample < mFrameCount && GetPixel(sample) < pixel) {
    ++sample;
  }
  return sample;
}

}  // namespace moxaudiotoolkit::waveform
