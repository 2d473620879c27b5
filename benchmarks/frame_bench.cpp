// A frame of the playground's waveform while it is scrolled: of a long sound against that of a short one.
#include "Figure.h"
#include "audio/AudioSession.h"
#include "audio/WaveformView.h"

#include <moxaudiotoolkit/peaks/PeakPyramid.h>
#include <moxaudiotoolkit/peaks/SampleSource.h>
#include <moxui/testing/Stage.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace {

using moxaudiotoolkit::PeakPyramid;
using moxaudiotoolkit::SampleSource;
using moxaudiotoolkit::SampleSourceProperties;

constexpr int kRate = 48000;
// Logical pixels at a scale of 2: a screen of 3840 by 1080.
constexpr float kWidth = 1920.0F;
constexpr float kHeight = 540.0F;
constexpr float kScale = 2.0F;

// Noise of 16 bits, whose samples are told by their places.
class Noise : public SampleSource {
 public:
  using SampleSource::SampleSource;

  void ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const override {
    auto number = static_cast<std::uint32_t>(firstFrame) * 40503U;
    for (float& sample : destination) {
      number = number * 1664525U + 1013904223U;
      sample = static_cast<float>(static_cast<std::int16_t>(number >> 16)) * (1.0F / 32768.0F);
    }
  }
};

// Peaks of a sound that was never read whole: some pages that take turns.
std::shared_ptr<const PeakPyramid> MakePeaks(const SampleSource& source) {
  constexpr std::size_t kPoints = PeakPyramid::kPointsPerPage;
  constexpr std::size_t kPages = 7;
  const auto channels = static_cast<std::size_t>(source.GetProperties().channelCount);
  std::vector<float> values(kPages * channels * kPoints * 3);
  std::uint32_t number = 1;
  for (std::size_t i = 0; i < values.size(); ++i) {
    number = number * 1664525U + 1013904223U;
    const float value = static_cast<float>(number >> 18) * (1.0F / 32768.0F);
    values[i] = i / kPoints % 3 == 0 ? -value : i / kPoints % 3 == 1 ? value : value * value * 16.0F;
  }
  auto pyramid = std::make_shared<PeakPyramid>(moxaudiotoolkit::GetPeakPyramidFormat(source.GetProperties()));
  std::vector<moxaudiotoolkit::PeakRun> runs(channels);
  for (std::int64_t page = 0; page < pyramid->GetPageCount(); ++page) {
    for (std::size_t channel = 0; channel < channels; ++channel) {
      float* const run =
          values.data() + (static_cast<std::size_t>(page) % kPages * channels + channel) * kPoints * 3;
      runs[channel] = {.minimum = run, .maximum = run + kPoints, .sumOfSquares = run + 2 * kPoints};
    }
    pyramid->SetPage(page, runs);
  }
  return pyramid;
}

// The waveform alone, as large as a screen.
class View {
 public:
  View(std::int64_t seconds, int channels)
      : mStage({kWidth, kHeight}),
        mView(moxcore::utility::MakeIntrusive<playground::WaveformView>(mSession)) {
    const auto source = std::make_shared<Noise>(SampleSourceProperties{
        .frames = seconds * kRate, .sampleRate = kRate, .channelCount = channels, .integerBits = 16});
    mSession.AddDocument({"noise", source, MakePeaks(*source)});
    mStage.SetScale(kScale);
    mStage.GetTree().SetRoot(mView);
    mView->UI_SetLocalRectF({0.0F, 0.0F, kWidth, kHeight});
    Show(0.9);
  }

  // A share of the sound.
  void Show(double share) {
    mSession.ChangeView(
        [share](playground::Viewport& view) { view.Show(0.0, static_cast<double>(view.Frames()) * share); });
    ScrollAndPaint();
  }

  void ScrollAndPaint() {
    const auto& before = mSession.View();
    const bool isAtTheEnd = before.Left() + before.VisibleSamples() + 4.0 * before.SamplesPerPixel() >
                            static_cast<double>(before.Frames());
    mSession.ChangeView(
        [isAtTheEnd](playground::Viewport& view) { isAtTheEnd ? view.ScrollTo(0.0) : view.ScrollBy(3.0); });
    mView->ViewChanged();
    mStage.PaintFrame();
  }

 private:
  playground::AudioSession mSession;
  moxui::testing::Stage mStage;
  moxcore::utility::IntrusivePtr<playground::WaveformView> mView;
};

void Compare(bench::Figures& figures, const std::string& name, int channels, std::int64_t seconds) {
  if (!figures.Wants(name)) {
    return;
  }
  View longSound(seconds, channels);
  View shortSound(10, channels);
  figures.Compare({.name = name,
                   .numerator = [&] { longSound.ScrollAndPaint(); },
                   .denominator = [&] { shortSound.ScrollAndPaint(); },
                   .bar = 1.3,
                   .unit = "ms"});
}

}  // namespace

int main(int argc, char** argv) {
  bench::Figures figures(argc, argv);
  const bool isQuick = std::any_of(
      argv, argv + argc, [](const char* argument) { return std::strcmp(argument, "--quick") == 0; });
  const std::int64_t hour = isQuick ? 60 : 3600;
  Compare(figures, "frame_8_channels_1_hour_over_10_seconds", 8, hour);
  Compare(figures, "frame_1_channel_24_hours_over_10_seconds", 1, 24 * hour);
  // At most 60 times a second, single samples included.
  if (figures.Wants("frame_8_channels_32_samples_a_pixel") || figures.Wants("frame_8_channels_whole")) {
    View view(60, 8);
    figures.Time({.name = "frame_8_channels_whole", .work = [&] { view.ScrollAndPaint(); }, .unit = "ms"});
    view.Show(32.0 * 3840.0 / (60.0 * kRate));
    figures.Time({.name = "frame_8_channels_32_samples_a_pixel",
                  .work = [&] { view.ScrollAndPaint(); },
                  .unit = "ms"});
  }
  if (figures.Wants("frame_8_channels_10_pixels_a_sample")) {
    View view(10, 8);
    view.Show(384.0 / (10.0 * kRate));
    figures.Time({.name = "frame_8_channels_10_pixels_a_sample",
                  .work = [&] { view.ScrollAndPaint(); },
                  .unit = "ms"});
  }
  return figures.Result();
}
