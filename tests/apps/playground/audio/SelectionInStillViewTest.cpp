// A selection that changes in a view that stays: what is painted again, and what is shown again.
#include "audio/AudioSession.h"
#include "audio/WaveformPainter.h"
#include "audio/WaveformView.h"
#include "playground/audio/PaintedWaveforms.h"

#include <moxui/testing/Stage.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <ostream>
#include <random>
#include <string>
#include <vector>

namespace playground {
namespace {

constexpr int kColumns = 200;
constexpr int kRows = 61;

struct StillView {
  char const* name;
  double samplesPerPixel;
  std::function<void(WaveformSettings&)> change;
};

void PrintTo(StillView const& view, std::ostream* stream) {
  *stream << view.name;
}

// Shows some columns of a sound; selections are told in columns, too.
class SelectionIn : public testing::TestWithParam<StillView> {
 protected:
  explicit SelectionIn(float scale = 1.0f) {
    session.AddDocument(Noise(2, 80'000));
    session.ChangeSettings(GetParam().change);
    session.ChangeView([scale](Viewport& view) {
      view.SetWidth(static_cast<int>(kColumns * scale));
      view.Show(4700.3, 4700.3 + GetParam().samplesPerPixel * view.Width());
    });
  }

  void Select(double first, double last) {
    auto const begin = static_cast<std::int64_t>(session.View().SampleAt(first));
    auto const end = static_cast<std::int64_t>(session.View().SampleAt(last));
    session.ChangeSelection([=](SampleSelection& selection) { selection.Select(begin, end); });
  }

  static std::vector<std::uint32_t> PictureBy(WaveformPainter& painter) {
    Canvas canvas(kColumns, kRows);
    painter.Draw(canvas.Draw(), {0.0f, 0.0f, kColumns, kRows});
    return canvas.Pixels();
  }
  std::vector<std::uint32_t> WholePicture() const {
    WaveformPainter painter(session, [] {});
    return PictureBy(painter);
  }

  AudioSession session;
};

TEST_P(SelectionIn, AViewThatStaysIsPaintedLikeANewOne) {
  WaveformPainter kept(session, [] {});
  PictureBy(kept);
  std::mt19937 random(7);
  auto const roll = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
  double first = 60.0;
  double last = 120.0;
  for (int i = 0; i < 120; ++i) {
    SCOPED_TRACE(testing::Message() << "step " << i);
    switch (i % 8) {
      case 3:  // out of sight
        Select(-60.0, -20.0);
        break;
      case 4:
        session.ChangeSelection([](SampleSelection& selection) { selection.PlaceAt(0); });
        break;
      case 6:
        Select(first = roll(0, 90), last = roll(100, kColumns));
        break;
      default:
        (i % 2 == 0 ? first : last) += roll(-7, 7);
        Select(first, last);
    }
    ASSERT_EQ(DifferenceOf(PictureBy(kept), WholePicture(), kColumns), "");
  }
}

// Of samples a selection takes away the gain wherever it is, of peaks where it is in the view.
TEST_P(SelectionIn, TheGainComesBackWithoutASelectionOutOfSight) {
  WaveformPainter kept(session, [] {});
  Select(-60.0, -20.0);
  auto const before = PictureBy(kept);
  session.ChangeSelection([](SampleSelection& selection) { selection.PlaceAt(0); });
  auto const after = PictureBy(kept);
  EXPECT_EQ(DifferenceOf(after, WholePicture(), kColumns), "");
  bool const losesGain = session.DrawsSamples() && session.Settings().gainDecibel != 0.0;
  EXPECT_EQ(after != before, losesGain);
  Select(-60.0, -20.0);
  EXPECT_EQ(PictureBy(kept), before);
}

// The last column but a part lies behind those that are drawn.
TEST_P(SelectionIn, NothingIsSelectedInTheViewBehindItsLastColumn) {
  session.ChangeView(
      [](Viewport& view) { view.ScrollBy(0.6 - view.Left() / view.SamplesPerPixel() + 100.0); });
  WaveformPainter kept(session, [] {});
  Select(kColumns - 0.3, kColumns + 20.0);
  EXPECT_EQ(DifferenceOf(PictureBy(kept), WholePicture(), kColumns), "");
  Select(kColumns - 9.0, kColumns + 20.0);
  EXPECT_EQ(DifferenceOf(PictureBy(kept), WholePicture(), kColumns), "");
}

class ShownSelectionIn : public SelectionIn {
 protected:
  static constexpr float kScale = 1.5f;

  ShownSelectionIn() : SelectionIn(kScale), view(moxcore::utility::MakeIntrusive<WaveformView>(session)) {
    stage.SetScale(kScale);
    stage.GetTree().SetRoot(view);
    view->UI_SetLocalRectF({0.0f, 0.0f, kColumns, kRows});
    stage.PaintFrame();
  }

  void ExpectTheFrameIsWhole(int step) {
    view->SelectionChanged();
    stage.PaintFrame();
    auto const frame = stage.GetFramePixels();
    EXPECT_EQ(frame, stage.TakePicture(kScale)) << step;
  }

  moxui::testing::Stage stage{{kColumns, kRows}};
  moxcore::utility::IntrusivePtr<WaveformView> view;
};

TEST_P(ShownSelectionIn, AViewThatStaysIsShownWhole) {
  std::mt19937 random(3);
  double first = 60.0;
  double last = 150.0;
  for (int i = 0; i < 40; ++i) {
    (i % 2 == 0 ? first : last) += std::uniform_int_distribution<int>(-9, 9)(random);
    Select(first, last);
    ExpectTheFrameIsWhole(i);
  }
  Select(-60.0, -20.0);
  ExpectTheFrameIsWhole(100);
  session.ChangeSelection([](SampleSelection& selection) { selection.PlaceAt(0); });
  ExpectTheFrameIsWhole(101);
  Select(-60.0, -20.0);
  ExpectTheFrameIsWhole(102);
}

void AddGain(WaveformSettings& settings) {
  settings.gainDecibel = 6.0;
}

auto const kStillViews = testing::Values(
    StillView{"Samples", 0.3, [](WaveformSettings&) {}}, StillView{"SamplesWithGain", 0.1, AddGain},
    StillView{"DenseSamples", 0.9, AddGain},
    StillView{"LayeredSamples", 0.3, [](WaveformSettings& settings) { settings.layered = true; }},
    // Where the next point's window may begin at the end of the last one's.
    StillView{"SamplesAWindowApart", 43.7,
              [](WaveformSettings& settings) { settings.detail = DetailChoice::kSamples; }},
    StillView{"Peaks", 17.0, AddGain},
    StillView{"PeaksWithGainEverywhere", 17.0, [](WaveformSettings& settings) {
                settings.gainDecibel = 6.0;
                settings.gainWholeRange = true;
              }});
auto const kNameOfView = [](auto const& view) { return std::string(view.param.name); };

INSTANTIATE_TEST_SUITE_P(Views, SelectionIn, kStillViews, kNameOfView);
INSTANTIATE_TEST_SUITE_P(Views, ShownSelectionIn, kStillViews, kNameOfView);

}  // namespace
}  // namespace playground
