#include "audio/TimeRuler.h"

#include <gtest/gtest.h>

namespace playground {
namespace {

Viewport Showing(double begin, double end, int width, std::int64_t frames) {
  Viewport view;
  view.SetWidth(width);
  view.SetFrames(frames);
  view.Show(begin, end);
  return view;
}

TEST(TimeText, HasAsManyPlacesAsTheResolutionAsksFor) {
  EXPECT_EQ(TimeText(62.5, 1.0), "1:03");
  EXPECT_EQ(TimeText(62.5, 0.5), "1:02.5");
  EXPECT_EQ(TimeText(62.5, 0.001), "1:02.500");
  EXPECT_EQ(TimeText(3600.0 * 2 + 61.0, 1.0), "2:01:01");
  EXPECT_EQ(TimeText(-1.5, 0.1), "-0:01.5");
  EXPECT_EQ(TimeText(59.9996, 0.001), "1:00.000");
}

TEST(RulerTicks, LabelRoundTimesWithRoomBetweenThem) {
  Viewport const view = Showing(0.0, 48000.0 * 12, 1200, 48000 * 12);
  auto const ticks = RulerTicks(view, 48000, 88.0);
  std::vector<std::string> labels;
  double last = -1000.0;
  for (auto const& tick : ticks) {
    if (!tick.label.empty()) {
      labels.push_back(tick.label);
      EXPECT_GE(tick.column - last, 88.0);
      last = tick.column;
    }
  }
  ASSERT_EQ(labels.size(), 13u);
  EXPECT_EQ(labels[0], "0:00");
  EXPECT_EQ(labels[12], "0:12");
}

TEST(RulerTicks, StandOverTheSamplesOfTheirTimes) {
  Viewport const view = Showing(48000.0, 96000.0, 1000, 48000 * 12);
  for (auto const& tick : RulerTicks(view, 48000, 88.0)) {
    if (tick.label == "0:01.5") {
      EXPECT_NEAR(tick.column, 500.0, 1e-6);
      return;
    }
  }
  FAIL() << "no tick at one and a half seconds";
}

TEST(RulerTicks, StayFewAtEveryZoom) {
  for (double span : {10.0, 1000.0, 1e5, 1e7, 1e9, 1e11}) {
    auto const ticks = RulerTicks(Showing(0.0, span, 1000, 200'000'000'000), 48000, 88.0);
    EXPECT_GE(ticks.size(), 2u) << span;
    EXPECT_LE(ticks.size(), 80u) << span;
  }
}

TEST(RulerTicks, AreNoneWithoutASound) {
  EXPECT_TRUE(RulerTicks(Showing(0, 1, 100, 0), 48000, 88.0).empty());
  EXPECT_TRUE(RulerTicks(Showing(0, 1, 100, 10), 0, 88.0).empty());
}

}  // namespace
}  // namespace playground
