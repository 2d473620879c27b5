#include "audio/ChannelGutter.h"
#include "audio/LevelOverlay.h"
#include "audio/WaveformView.h"
#include "playground/StagedProgram.h"

#include <moxaudiotoolkit/DecodedAudio.h>
#include <moxaudiotoolkit/peaks/PeakBuilder.h>
#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace playground {
namespace {

using moxui::platform::Pixels;

constexpr int kRate = 8000;
constexpr int kSeconds = 10;

// A tone at half of full scale that clips for a tenth of its length in the middle.
AudioDocument Tone() {
  std::vector<float> samples(std::size_t{kRate} * kSeconds);
  for (std::size_t i = 0; i < samples.size(); ++i) {
    samples[i] = 0.5f * static_cast<float>(std::sin(static_cast<double>(i) * 0.7));
    double const share = static_cast<double>(i) / static_cast<double>(samples.size());
    if (share >= 0.45 && share < 0.55) {
      samples[i] = samples[i] < 0.0f ? -1.0f : 1.0f;
    }
  }
  auto const audio = std::make_shared<moxaudiotoolkit::DecodedAudio>(
      kRate, std::vector<std::vector<float>>{std::move(samples)});
  auto const source = moxaudiotoolkit::MakeSampleSource(audio);
  moxaudiotoolkit::PeakBuilder builder(source);
  builder.Wait();
  return {"tone", source, builder.GetPyramid()};
}

class LevelOverlay : public testing::Test {
 protected:
  LevelOverlay() {
    program.Session().AddDocument(Tone());
    Change([](WaveformSettings& settings) {
      settings.rms = false;
      settings.clipMarks = false;
      settings.amplitudeDivisions = 0;
      settings.timeGrid = false;
    });
  }

  void Change(std::function<void(WaveformSettings&)> const& change) {
    program.Session().ChangeSettings(change);
  }
  WaveformView& Waveform() { return program.Audio().Waveform(); }
  // Shares of the height at which the pixels of a column, told by its share of the width, are others.
  std::pair<double, double> ChangedRows(Pixels const& a, Pixels const& b, double column) {
    moxui::RectT<int> const rect(Waveform().UI_ConvertRectTo(nullptr, Waveform().UI_GetLocalRectF(false)));
    int first = rect.height;
    int last = -1;
    int const x = rect.left + static_cast<int>(column * rect.width);
    for (int y = 0; y < rect.height; ++y) {
      auto const at = (static_cast<std::ptrdiff_t>(rect.top + y) * a.width + x) * 4;
      if (!std::equal(a.bytes.begin() + at, a.bytes.begin() + at + 4, b.bytes.begin() + at)) {
        first = std::min(first, y);
        last = y;
      }
    }
    return {static_cast<double>(first) / rect.height, static_cast<double>(last) / rect.height};
  }

  StagedProgram program;
};

TEST_F(LevelOverlay, RmsReachesAsFarAsItIsLarge) {
  auto const plain = program.Picture();
  Change([](WaveformSettings& settings) { settings.rms = true; });
  auto const [top, bottom] = ChangedRows(plain, program.Picture(), 0.2);
  // 0.5 / sqrt(2) on either side of the middle.
  EXPECT_NEAR(top, 0.5 - 0.3536 / 2.0, 0.01);
  EXPECT_NEAR(bottom, 0.5 + 0.3536 / 2.0, 0.01);
  EXPECT_NEAR(Waveform().RmsAt(0, Waveform().UI_GetLocalRect(false).width / 5), 0.3536f, 0.01f);
}

TEST_F(LevelOverlay, RmsFollowsZoomAndGain) {
  Change([](WaveformSettings& settings) { settings.gainDecibel = -6.0206; });
  auto const plain = program.Picture();
  Change([](WaveformSettings& settings) { settings.rms = true; });
  auto const [top, bottom] = ChangedRows(plain, program.Picture(), 0.2);
  EXPECT_NEAR(bottom - top, 0.3536 / 2.0, 0.01);
}

TEST_F(LevelOverlay, MarksStandWhereItClipsAndNowhereElse) {
  auto const plain = program.Picture();
  Change([](WaveformSettings& settings) { settings.clipMarks = true; });
  auto const marked = program.Picture();
  auto const [top, bottom] = ChangedRows(plain, marked, 0.5);
  EXPECT_EQ(top, 0.0);
  EXPECT_LT(bottom, 0.02);
  EXPECT_LT(ChangedRows(plain, marked, 0.44).second, 0.0);
  EXPECT_LT(ChangedRows(plain, marked, 0.56).second, 0.0);
}

TEST_F(LevelOverlay, MarksStandAtSingleSamplesToo) {
  double const clipped = kRate * kSeconds * 0.5;
  program.Session().ChangeView([=](Viewport& view) { view.Show(clipped, clipped + 40.0); });
  auto const plain = program.Picture();
  Change([](WaveformSettings& settings) { settings.clipMarks = true; });
  EXPECT_EQ(ChangedRows(plain, program.Picture(), 0.5).first, 0.0);
}

TEST_F(LevelOverlay, LabelsOfTheGridStandBesideIt) {
  auto const plain = program.Picture();
  Change([](WaveformSettings& settings) { settings.amplitudeDivisions = kDecibelGrid; });
  auto const labelled = program.Picture();
  ChannelGutter const& gutter = program.Audio().Gutter();
  moxui::RectT<int> const rect(gutter.UI_ConvertRectTo(nullptr, gutter.UI_GetLocalRectF(false)));
  int changed = 0;
  for (int y = rect.top; y < rect.Bottom(); ++y) {
    auto const at = (static_cast<std::ptrdiff_t>(y) * plain.width + rect.left) * 4;
    changed += std::equal(plain.bytes.begin() + at, plain.bytes.begin() + at + std::ptrdiff_t{4} * rect.width,
                          labelled.bytes.begin() + at)
                   ? 0
                   : 1;
  }
  EXPECT_GT(changed, 30);
}

TEST(LevelColors, StandOutInEachTheme) {
  for (ThemeChoice const theme : {ThemeChoice::kDark, ThemeChoice::kLight, ThemeChoice::kHighContrast}) {
    WaveformPalette const palette = PaletteOf(theme);
    moxui::ColorRGBA const ground = palette.Color(WaveformColor::kBackground);
    EXPECT_GE(ContrastOf(ClipColorOn(ground), ground), 4.5);
    for (moxui::ColorRGBA const& wave : palette.channels) {
      moxui::ColorRGBA const rms = RmsColor(wave, ground);
      EXPECT_GE(ContrastOf(rms, wave), 1.7);
      EXPECT_GE(ContrastOf(rms, ground), 2.0);
    }
  }
}

}  // namespace
}  // namespace playground
