#include "PeakPictures.h"

#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/RecordingSupplier.h>

#include <sstream>

namespace audio_tests {

using moxmediaui::WaveformData;
using moxmediaui::WaveformDataType;

std::shared_ptr<WaveformData> MakePeaks(int channels, int slots, std::vector<float> pairs) {
  return std::make_shared<WaveformData>(
      moxmediaui::WaveformDataProperties{WaveformDataType::kPeaks, static_cast<std::size_t>(slots),
                                         static_cast<std::size_t>(channels)},
      std::move(pairs));
}

std::shared_ptr<WaveformData> MakeSamples(int channels, std::vector<float> const& run) {
  std::vector<float> samples;
  for (int channel = 0; channel < channels; ++channel) {
    samples.insert(samples.end(), run.begin(), run.end());
  }
  return std::make_shared<WaveformData>(
      moxmediaui::WaveformDataProperties{WaveformDataType::kSamples, run.size(),
                                         static_cast<std::size_t>(channels)},
      std::move(samples));
}

std::vector<PeakPicture> DrawPeaks(OpenWaveformDraw const& draw, PeakView const& view) {
  moxui::testing::RecordingSupplier supplier;
  moxui::scriber::SurfaceP const surface = supplier.NewOffscreenSurface(400, 400, 1.0f);
  moxui::scriber::Scriber scriber(&supplier, surface.Get());
  draw.Draw(&scriber, MakePeaks(view.channels, view.slots, view.pairs), view.rect, view.scale);
  std::vector<PeakPicture> pictures;
  for (moxui::testing::RecordedCall const& call : supplier.GetCalls("DrawImage")) {
    pictures.push_back({static_cast<int>(call.point.x), static_cast<int>(call.point.y), call.image.width,
                        call.image.height, call.image.bytes});
  }
  return pictures;
}

std::string FindDifference(std::vector<PeakPicture> const& actual, std::vector<PeakPicture> const& expected) {
  std::ostringstream text;
  if (actual.size() != expected.size()) {
    text << actual.size() << " pictures instead of " << expected.size();
    return text.str();
  }
  for (std::size_t i = 0; i < actual.size(); ++i) {
    PeakPicture const& a = actual[i];
    PeakPicture const& e = expected[i];
    if (a.left != e.left || a.top != e.top || a.width != e.width || a.height != e.height) {
      text << "picture " << i << " is " << a.width << " x " << a.height << " at " << a.left << ", " << a.top
           << " instead of " << e.width << " x " << e.height << " at " << e.left << ", " << e.top;
      return text.str();
    }
    for (std::size_t byte = 0; byte < e.bytes.size(); ++byte) {
      if (a.bytes[byte] != e.bytes[byte]) {
        std::size_t const pixel = byte / 4;
        auto const width = static_cast<std::size_t>(e.width);
        text << "picture " << i << ", pixel " << pixel % width << ", " << pixel / width << ", byte "
             << byte % 4 << " is " << int{a.bytes[byte]} << " instead of " << int{e.bytes[byte]};
        return text.str();
      }
    }
  }
  return {};
}

}  // namespace audio_tests
