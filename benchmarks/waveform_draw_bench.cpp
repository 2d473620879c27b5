// Peaks of eight channels on a large surface, against copying a picture of that size.
#include "Figure.h"

#include <moxaudiotoolkit/DemoSound.h>
#include <moxaudiotoolkit/waveform/QueryWaveform.h>
#include <moxmediaui/WaveformDraw.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <cstring>

namespace {

using moxmediaui::RectT;
using moxmediaui::WaveformData;
using moxmediaui::WaveformDraw;

constexpr int kHeight = 1080;
constexpr int kChannels = 8;

/// The demo's six channels, the first two twice.
std::shared_ptr<WaveformData> MakePeaks(int width) {
  namespace waveform = moxaudiotoolkit::waveform;
  auto const sound = moxaudiotoolkit::SynthesiseDemoSound();
  double const samplesPerPixel = 570000.0 / width;
  auto const peaks = waveform::QueryWaveform(sound, 0.0, samplesPerPixel, width,
                                             {.detail = waveform::WaveformDetail::kPeaks});
  std::vector<float> buffer = peaks->GetWaveformBuffer();
  auto const run = static_cast<std::ptrdiff_t>(width) * 2;
  std::vector<float> const front(buffer.begin(), buffer.begin() + 2 * run);
  buffer.insert(buffer.end(), front.begin(), front.end());
  return std::make_shared<WaveformData>(
      waveform::WaveformDataProperties{waveform::WaveformDataType::kPeaks, static_cast<std::size_t>(width),
                                       kChannels},
      std::move(buffer));
}

/// A surface and what is drawn on it.
class Scene {
 public:
  explicit Scene(int width)
      : mWidth(width),
        mPixels(static_cast<std::size_t>(width) * kHeight),
        mSurface(moxui::scriber::NewRasterSurfaceOver(mPixels.data(), width, kHeight, width * 4, 1.0f, true)),
        mPeaks(MakePeaks(width)) {
    std::vector<std::int32_t> horizontal;
    for (int channel = 0; channel < kChannels; ++channel) {
      for (int line = 0; line < 5; ++line) {
        horizontal.push_back(channel * 135 + 13 + line * 27);
      }
    }
    std::vector<std::int32_t> vertical;
    for (int x = 48; x < width; x += 96) {
      vertical.push_back(x);
    }
    draw.SetHorizontalGridlinePositions(horizontal);
    draw.SetVerticalGridlinePositions(vertical);
    draw.SetEnabledChannels(std::vector<bool>(kChannels, true));
    draw.SetViewRange(0.0, 1.0);
    RectT<int> ignored;
    draw.SetSelection(Rect(), width / 3, width / 4, ignored);
  }

  RectT<int> Rect() const { return {0, 0, mWidth, kHeight}; }
  double PixelCount() const { return static_cast<double>(mPixels.size()); }

  void Draw() {
    moxui::scriber::Scriber scriber(moxui::scriber::GetRasterSupplier(), mSurface.Get());
    draw.Draw(&scriber, mPeaks, Rect(), 1.0f);
    bench::ClobberMemory();
  }

  void Copy() {
    mCopy.resize(mPixels.size());
    std::memcpy(mCopy.data(), mPixels.data(), mPixels.size() * sizeof(std::uint32_t));
    bench::ClobberMemory();
  }

  WaveformDraw draw;

 private:
  int mWidth;
  std::vector<std::uint32_t> mPixels;
  std::vector<std::uint32_t> mCopy;
  moxui::scriber::SurfaceP mSurface;
  std::shared_ptr<WaveformData> mPeaks;
};

}  // namespace

int main(int argc, char** argv) {
  bench::Figures figures(argc, argv);
  Scene scene(3840);
  auto const compare = [&](char const* name, double bar) {
    figures.Compare({.name = name,
                     .numerator = [&] { scene.Draw(); },
                     .denominator = [&] { scene.Copy(); },
                     .bar = bar,
                     .unit = "ms"});
  };
  constexpr double kBar = 4.0;
  constexpr double kStyleBar = 8.0;
  compare("waveform_draw", kBar);
  scene.draw.SetPeakDataDrawStyle(moxmediaui::PeakDataDrawStyle::kRectified);
  compare("waveform_draw_rectified", kStyleBar);
  scene.draw.SetPeakDataDrawStyle(moxmediaui::PeakDataDrawStyle::kBipolar);
  scene.draw.SetWaveformScalingStyle(moxmediaui::WaveformScalingStyle::kSquareRoot);
  compare("waveform_draw_square_root", kStyleBar);
  scene.draw.SetWaveformScalingStyle(moxmediaui::WaveformScalingStyle::kLinear);
  scene.draw.SetLayeredChannels(true);
  compare("waveform_draw_layered", kStyleBar);
  scene.draw.SetLayeredChannelDrawingStyle(moxmediaui::LayeredChannelDrawingStyle::kFirstStrong);
  compare("waveform_draw_layered_first_strong", kStyleBar);
  scene.draw.SetLayeredChannels(false);

  // Widths whose rows fall on the same sets of a cache cost no more than others.
  Scene otherWidth(3856);
  auto const compareWidths = [&](char const* name, Scene& one, Scene& other) {
    figures.Compare({.name = name,
                     .numerator = [&] { one.Draw(); },
                     .denominator = [&] { other.Draw(); },
                     .bar = 1.2,
                     .unit = "ms",
                     .numeratorRuns = one.PixelCount() / 1e6,
                     .denominatorRuns = other.PixelCount() / 1e6});
  };
  compareWidths("waveform_draw_width_3840_by_3856", scene, otherWidth);
  compareWidths("waveform_draw_width_3856_by_3840", otherWidth, scene);
  return figures.Result();
}
