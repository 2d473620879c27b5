#include "audio/WaveformView.h"
#include "playground/MadeUpSound.h"
#include "playground/SoundFiles.h"
#include "playground/StagedProgram.h"
#include "playground/TemporaryFolder.h"
#include "program/Localized.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace playground {
namespace {

struct Length {
  char const* name;
  std::int64_t seconds;
  int rate;
  std::int64_t spare;  // frames beyond the last whole second
  char const* lastTime;
};

void PrintTo(Length const& length, std::ostream* stream) {
  *stream << length.name;
}

// A sound beyond what 32 bits count, with a click near its start, in its middle and at its very end.
class LongSounds : public testing::TestWithParam<Length> {
 protected:
  LongSounds() {
    auto const sound = std::make_shared<MadeUpSound>(
        moxaudiotoolkit::SampleSourceProperties{
            .frames = Frames(), .sampleRate = GetParam().rate, .channelCount = 1, .integerBits = 16},
        MadeUpSound::Clicks{{Places()[0], 0.5f}, {Places()[1], 0.5f}, {Places()[2], 0.5f}});
    moxaudiotoolkit::FilePeaksOptions options;
    options.open = [sound](std::string const&) { return sound; };
    Session().SetPeaksOptions(options);
    Session().OpenFiles({WriteBytes(folder.Path(), "long.wav", "x").string()});
    Session().WaitForPeaks();
    Session().ChangeSettings([](WaveformSettings& settings) { settings.detail = DetailChoice::kPeaks; });
  }

  static std::int64_t Frames() { return GetParam().seconds * GetParam().rate + GetParam().spare; }
  static std::vector<std::int64_t> Places() { return {3, Frames() / 2 + 12345, Frames() - 1}; }
  AudioSession& Session() { return program.Session(); }
  Viewport const& View() { return Session().View(); }
  WaveformView& Waveform() { return program.Audio().Waveform(); }

  // Columns of the view that show something.
  std::vector<int> LoudColumns() {
    std::vector<int> columns;
    for (int x = 0; x < View().Width(); ++x) {
      if (Waveform().AmplitudeAt(0, x) > 0.0f) {
        columns.push_back(x);
      }
    }
    return columns;
  }

  TemporaryFolder folder;
  StagedProgram program;
};

TEST_P(LongSounds, AreShownInTheirColumnAtEachZoomInAndOutAgain) {
  std::vector<double> zooms;
  for (double zoom = View().SamplesPerPixel() / 3.0; zoom > 1.0 / 32.0; zoom /= 5.0) {
    zooms.push_back(zoom);
  }
  std::vector<double> const out(zooms.rbegin(), zooms.rend());
  zooms.insert(zooms.end(), out.begin(), out.end());
  Viewport const whole = View();
  for (std::int64_t const place : Places()) {
    for (double const zoom : zooms) {
      SCOPED_TRACE(testing::Message() << place << " at " << zoom);
      double const half = zoom * View().Width() / 2.0;
      Session().ChangeView([&](Viewport& view) {
        view.Show(static_cast<double>(place) - half, static_cast<double>(place) + half);
      });
      double const spp = View().SamplesPerPixel();
      auto const column =
          static_cast<int>(std::trunc(static_cast<double>(place) / spp) - std::trunc(View().Left() / spp));
      std::vector<int> const loud = LoudColumns();
      EXPECT_THAT(loud, testing::Contains(column));
      // A column takes in the first sample of the next, and a peak point may lie in two of them. A sample
      // that covers columns covers them all.
      int const reach = 2 + static_cast<int>(std::ceil(1.0 / spp));
      EXPECT_THAT(loud,
                  testing::Each(testing::AllOf(testing::Ge(column - reach), testing::Le(column + reach))));
    }
    Session().ChangeView([](Viewport& view) { view.ShowAll(); });
    EXPECT_EQ(View(), whole);
    EXPECT_EQ(LoudColumns().size() >= 3u, true);
  }
}

TEST_P(LongSounds, LastSampleIsReadOutUnderThePointer) {
  double const frames = static_cast<double>(Frames());
  Session().ChangeView([frames](Viewport& view) { view.Show(frames - 100.0, frames); });
  EXPECT_EQ(View().Left(), frames - 100.0);
  EXPECT_EQ(Waveform().RmsAt(0, View().Width() - 1), 0.5f);
  program.stage.Move(StagedProgram::PointIn(Waveform(), 0.999f));
  std::string const text = To8(program.Audio().ReadOut());
  EXPECT_THAT(text, testing::HasSubstr("sample " + std::to_string(Frames() - 1)));
  EXPECT_THAT(text, testing::HasSubstr(GetParam().lastTime));
  EXPECT_THAT(text, testing::HasSubstr("| -6.0"));
}

INSTANTIATE_TEST_SUITE_P(OfHours, LongSounds,
                         testing::Values(Length{"TwelveAndAHalf", 45000, 48000, 17, "12:30:00.00033"},
                                         Length{"ADayAt192", 86400, 192000, 1, "24:00:00.00000"}),
                         [](auto const& length) { return std::string(length.param.name); });

}  // namespace
}  // namespace playground
