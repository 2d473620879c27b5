#pragma once

#include <moxaudiotoolkit/waveform/WaveformData.h>

#include <cstddef>
#include <memory>

namespace moxaudiotoolkit {
class DecodedAudio;
}

namespace moxaudiotoolkit::waveform {

enum class WaveformDetail {
  kAutomatic,  // samples below `samplesBelow` samples per pixel, peaks from there on
  kPeaks,      // peaks at any zoom; a column too narrow to hold a sample repeats the one before it
  kSamples,    // samples at any zoom that keeps the request below kMostVisibleSamples, else peaks
};

struct WaveformQueryOptions {
  WaveformDetail detail = WaveformDetail::kAutomatic;
  // Samples per pixel at which kAutomatic goes over to peaks: at 1 every sample still has a pixel of its own.
  double samplesBelow = 1.0;
  // Peaks of a column take in the first sample of the next column as well, so that a steep wave is drawn as
  // one connected shape. Off, a column holds the samples of its own pixel and no other.
  bool joinColumns = true;
};

// Wider than an image can be (32767 pixels): not all who ask for peaks draw them column by column.
inline constexpr int kWidestView = 1 << 18;                   // pixels
inline constexpr std::size_t kMostVisibleSamples = 1u << 22;  // samples per channel

// What a view of `pixelWidth` pixels shows of `audio`, with the sample position `viewLeft` at its left edge
// and `samplesPerPixel` samples to the pixel. All channels of the audio are given.
//
// Peaks: `pixelWidth` slots. The pixel of sample s is trunc(s / samplesPerPixel) - trunc(viewLeft /
// samplesPerPixel), so that a column keeps its samples while the view scrolls by less than a pixel. Results
// are exact at any zoom and cost little even where a pixel covers minutes. Outside the audio: silence, (0,
// 0).
//
// Samples: the layout of WaveformData with enough visible samples for `pixelWidth` + 1 points of a curve and
// for the dots upon them; zeros outside the audio.
//
// A view that means nothing (an unknown audio, not-a-number or infinity, samplesPerPixel of 0 or less, a
// width below 1 or above kWidestView) gives data of type kNone. The result is never null.
std::shared_ptr<WaveformData> QueryWaveform(const std::shared_ptr<const DecodedAudio>& audio, double viewLeft,
                                            double samplesPerPixel, int pixelWidth,
                                            const WaveformQueryOptions& options = {});
std::shared_ptr<WaveformData> QueryWaveform(const DecodedAudio& audio, double viewLeft,
                                            double samplesPerPixel, int pixelWidth,
                                            const WaveformQueryOptions& options = {});

}  // namespace moxaudiotoolkit::waveform
