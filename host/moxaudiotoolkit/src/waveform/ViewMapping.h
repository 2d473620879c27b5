#pragma once

#include <cstdint>
#include <optional>

namespace moxaudiotoolkit::waveform {

// How samples meet pixels: the pixel of sample s, counted from the sample 0, is trunc(s / samplesPerPixel).
class ViewMapping {
 public:
  ViewMapping(double viewLeft, double samplesPerPixel, std::int64_t frameCount);

  // The pixel, counted from sample 0, at the left edge of the view; nothing when it lies beyond all audio.
  std::optional<std::int64_t> GetLeftPixel() const { return mLeftPixel; }
  // The pixel of a sample of the audio or of the one after its last, counted from sample 0.
  std::int64_t GetPixel(std::int64_t sample) const;
  // The first sample of the audio whose pixel is `pixel` or a later one; the frame count when there is none.
  std::int64_t GetFirstSample(std::int64_t pixel) const;

 private:
  double mSamplesPerPixel;
  std::int64_t mFrameCount;
  std::optional<std::int64_t> mLeftPixel;
};

}  // namespace moxaudiotoolkit::waveform
