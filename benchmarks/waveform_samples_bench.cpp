// Samples as curves: eight channels of a view, against what can't be saved of it (as many sines and cosines
// as the curves need) with the strokes of the same curves by Cairo.
#include "Figure.h"

#include <moxaudiotoolkit/DemoSound.h>
#include <moxaudiotoolkit/waveform/QueryWaveform.h>
#include <moxmediaui/WaveformDraw.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/RecordingSupplier.h>

#include <cairo.h>

#include <cmath>
#include <random>

namespace {

using moxmediaui::RectT;
using moxmediaui::WaveformData;

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
constexpr int kChannels = 8;
constexpr RectT<int> kRect{0, 0, kWidth, kHeight};
constexpr int kTaps = 44;

using Curve = std::vector<moxmediaui::PointT<float>>;

std::shared_ptr<WaveformData> MakeData(std::vector<float> samples) {
  namespace waveform = moxaudiotoolkit::waveform;
  return std::make_shared<WaveformData>(
      waveform::WaveformDataProperties{waveform::WaveformDataType::kSamples, samples.size() / kChannels,
                                       kChannels},
      std::move(samples));
}

/// From where the demo has all instruments sounding; six channels, the first two twice.
std::shared_ptr<WaveformData> MakeMusic(double left, double samplesPerPixel) {
  namespace waveform = moxaudiotoolkit::waveform;
  auto const data = waveform::QueryWaveform(moxaudiotoolkit::SynthesiseDemoSound(), left, samplesPerPixel,
                                            kWidth, {.detail = waveform::WaveformDetail::kSamples});
  std::vector<float> samples = data->GetWaveformBuffer();
  auto const run = static_cast<std::ptrdiff_t>(data->GetDataSlots());
  std::vector<float> const front(samples.begin(), samples.begin() + 2 * run);
  samples.insert(samples.end(), front.begin(), front.end());
  return MakeData(std::move(samples));
}

std::shared_ptr<WaveformData> MakeNoise(double samplesPerPixel) {
  auto const run = static_cast<std::size_t>(kWidth * samplesPerPixel) + 46;
  std::vector<float> samples(run * kChannels);
  std::mt19937 random(5);
  std::uniform_real_distribution<float> value(-1.0f, 1.0f);
  for (float& sample : samples) {
    sample = value(random);
  }
  return MakeData(std::move(samples));
}

/// A view of samples, drawn by us and by the peer.
class View {
 public:
  View(std::shared_ptr<WaveformData> data, double left, double samplesPerPixel)
      : mData(std::move(data)),
        mPixels(static_cast<std::size_t>(kWidth) * kHeight),
        mSurface(
            moxui::scriber::NewRasterSurfaceOver(mPixels.data(), kWidth, kHeight, kWidth * 4, 1.0f, true)) {
    mDraw.SetViewRange(left, samplesPerPixel);
    mDraw.SetChannelColors({{0.29f, 0.95f, 0.65f, 1.0f}});
    FindCurves();
    mCairoSurface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kWidth, kHeight / kChannels);
    mCairo = cairo_create(mCairoSurface);
  }
  ~View() {
    cairo_destroy(mCairo);
    cairo_surface_destroy(mCairoSurface);
  }
  View(View const&) = delete;
  View& operator=(View const&) = delete;

  void Draw() {
    moxui::scriber::Scriber scriber(moxui::scriber::GetRasterSupplier(), mSurface.Get());
    mDraw.Draw(&scriber, mData, kRect, 1.0f);
    bench::ClobberMemory();
  }

  void DrawWithPeer() {
    for (Curve const& curve : mCurves) {
      float argument = -69.0f;
      float sum = 0.0f;
      for (std::size_t i = 0; i < curve.size() * kTaps; ++i) {
        sum += std::sin(argument) + std::cos(argument);
        argument += argument > 69.0f ? -138.0f : 3.1415927f;
      }
      bench::DoNotOptimize(sum);
      cairo_set_operator(mCairo, CAIRO_OPERATOR_CLEAR);
      cairo_paint(mCairo);
      cairo_set_operator(mCairo, CAIRO_OPERATOR_OVER);
      cairo_set_source_rgba(mCairo, 0.29, 0.95, 0.65, 0.8);
      cairo_set_line_width(mCairo, 2.0);
      cairo_new_path(mCairo);
      for (moxmediaui::PointT<float> const point : curve) {
        cairo_line_to(mCairo, point.x, point.y);
      }
      cairo_stroke(mCairo);
    }
    bench::ClobberMemory();
  }

 private:
  void FindCurves() {
    moxui::testing::RecordingSupplier recording;
    moxui::scriber::SurfaceP const surface = recording.NewOffscreenSurface(kWidth, kHeight, 1.0f);
    moxui::scriber::Scriber scriber(&recording, surface.Get());
    mDraw.SetDrawCenterlines(false);
    mDraw.SetDrawDividers(false);
    mDraw.Draw(&scriber, mData, kRect, 1.0f);
    for (moxui::testing::RecordedCall const& call : recording.GetCalls("StrokePath")) {
      Curve curve;
      for (moxui::testing::RecordedSegment const& segment : call.path) {
        curve.push_back(segment.points.front());
      }
      mCurves.push_back(std::move(curve));
    }
    mDraw.SetDrawCenterlines(true);
    mDraw.SetDrawDividers(true);
  }

  moxmediaui::WaveformDraw mDraw;
  std::shared_ptr<WaveformData> mData;
  std::vector<std::uint32_t> mPixels;
  moxui::scriber::SurfaceP mSurface;
  std::vector<Curve> mCurves;
  cairo_surface_t* mCairoSurface = nullptr;
  cairo_t* mCairo = nullptr;
};

}  // namespace

int main(int argc, char** argv) {
  bench::Figures figures(argc, argv);
  auto const compare = [&](char const* name, View& view, double bar) {
    figures.Compare({.name = name,
                     .numerator = [&] { view.Draw(); },
                     .denominator = [&] { view.DrawWithPeer(); },
                     .bar = bar,
                     .unit = "ms"});
  };
  constexpr double kMusicStart = 96000.0;
  View music(MakeMusic(kMusicStart, 0.25), kMusicStart, 0.25);
  compare("waveform_samples_music", music, 1.5);
  View noise(MakeNoise(1.0 / 3.0), 0.0, 1.0 / 3.0);
  compare("waveform_samples_noise", noise, 0.5);
  return figures.Result();
}
