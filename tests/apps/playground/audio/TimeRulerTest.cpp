#include "audio/TimeRuler.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

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
  auto const ticks = RulerTicks(view, 48000);
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
  for (auto const& tick : RulerTicks(view, 48000)) {
    if (tick.label == "0:01.5") {
      EXPECT_NEAR(tick.column, 500.0, 1e-6);
      return;
    }
  }
  FAIL() << "no tick at one and a half seconds";
}

TEST(RulerTicks, StayFewAtEveryZoom) {
  for (double span : {10.0, 1000.0, 1e5, 1e7, 1e9, 1e11}) {
    auto const ticks = RulerTicks(Showing(0.0, span, 1000, 200'000'000'000), 48000);
    EXPECT_GE(ticks.size(), 2u) << span;
    EXPECT_LE(ticks.size(), 80u) << span;
  }
}

double DistanceOfLabels(std::vector<RulerTick> const& ticks) {
  std::vector<double> columns;
  for (auto const& tick : ticks) {
    if (!tick.label.empty()) {
      columns.push_back(tick.column);
    }
  }
  return columns.size() < 2 ? std::numeric_limits<double>::infinity() : columns[1] - columns[0];
}

TEST(RulerTicks, CountSamplesOneByOneAtTheClosestZoom) {
  auto const ticks = RulerTicks(Showing(1000.0, 1010.0, 640, 48000), 48000, {RulerUnit::kSamples});
  ASSERT_EQ(ticks.size(), 11u);
  for (std::size_t i = 0; i < ticks.size(); ++i) {
    EXPECT_EQ(ticks[i].column, 64.0 * static_cast<double>(i));
    EXPECT_EQ(ticks[i].label, i % 2 == 0 ? SampleText(1000 + static_cast<std::int64_t>(i)) : "");
  }
}

TEST(RulerTicks, AreExactAtTheEndOfADayAt192Kilohertz) {
  constexpr std::int64_t kDay = std::int64_t{24} * 3600 * 192000;
  Viewport const view = Showing(static_cast<double>(kDay - 20), static_cast<double>(kDay), 1280, kDay);
  auto const samples = RulerTicks(view, 192000, {RulerUnit::kSamples});
  ASSERT_EQ(samples.size(), 21u);
  EXPECT_EQ(samples.front().column, 0.0);
  EXPECT_EQ(samples.back().column, 1280.0);
  EXPECT_EQ(samples.back().label, "16\u00A0588\u00A0800\u00A0000");
  auto const times = RulerTicks(view, 192000);
  EXPECT_EQ(times.back().label, "24:00:00.00000");
  EXPECT_EQ(times.back().column, 1280.0);
  // Small ticks every 2 microseconds: 0.384 samples of 64 columns.
  for (std::size_t i = 0; i < times.size(); ++i) {
    EXPECT_NEAR(times[times.size() - 1 - i].column, 1280.0 - 64.0 * 0.384 * static_cast<double>(i), 1e-9);
  }
}

TEST(RulerTicks, LabelsTellTheirPlaces) {
  auto const labels = [](double begin, double end, int rate) {
    std::vector<std::string> texts;
    for (auto const& tick : RulerTicks(Showing(begin, end, 400, 48000LL * 7200), rate)) {
      if (!tick.label.empty()) {
        texts.push_back(tick.label);
      }
    }
    return texts;
  };
  using Texts = std::vector<std::string>;
  EXPECT_EQ(labels(0.0, 4.0, 48000), (Texts{"0:00.00000", "0:00.00005", "0:00.00010"}));
  EXPECT_EQ(labels(48000.0, 48400.0, 48000),
            (Texts{"0:01.000", "0:01.002", "0:01.004", "0:01.006", "0:01.008"}));
  EXPECT_EQ(labels(44100.0 * 59.9, 44100.0 * 60.1, 44100),
            (Texts{"0:59.90", "0:59.95", "1:00.00", "1:00.05", "1:00.10"}));
  EXPECT_EQ(labels(48000.0 * 3540, 48000.0 * 3660, 48000),
            (Texts{"59:00", "59:30", "1:00:00", "1:00:30", "1:01:00"}));
}

TEST(RulerTicks, KeepLabelsClearOfEachOtherAtEveryZoomLengthAndRate) {
  for (std::int64_t const frames : {48000LL * 12, 48000LL * 3600 * 13, 192000LL * 3600 * 24, 1LL << 48}) {
    for (int const rate : {1, 8000, 44100, 192000, 10'000'000}) {
      for (double zoom = 1.0; zoom < 1e15; zoom *= 2.7) {
        for (double const scale : {1.0, 2.0}) {
          Viewport view;
          view.SetWidth(1100);
          view.SetFrames(frames);
          view.ZoomAt(1099.0, zoom);
          for (RulerUnit const unit : {RulerUnit::kTime, RulerUnit::kSamples}) {
            auto const ticks = RulerTicks(view, rate, {unit, scale});
            double free = -1.0;
            for (auto const& tick : ticks) {
              if (!tick.label.empty()) {
                ASSERT_GE(tick.column, free) << frames << " " << rate << " " << zoom << " " << tick.label;
                free = tick.column + (RulerLabelWidth(tick.label) + 8.0) * scale;
              }
            }
            ASSERT_LE(ticks.size(), 200u);
            ASSERT_GE(DistanceOfLabels(ticks), 88.0 * scale * (1.0 - 1e-9));
          }
        }
      }
    }
  }
}

TEST(RulerTicks, StayAtTheirSamplesWhileTheViewScrollsByParts) {
  Viewport view = Showing(1'000'000.0, 1'000'100.0, 1000, 48000LL * 3600);
  for (int i = 0; i < 50; ++i) {
    view.ScrollBy(0.37);
    auto const ticks = RulerTicks(view, 48000, {RulerUnit::kSamples});
    ASSERT_FALSE(ticks.empty());
    for (auto const& tick : ticks) {
      double const sample = view.SampleAt(tick.column);
      EXPECT_NEAR(sample, std::round(sample), 1e-6);
    }
  }
}

TEST(SampleText, StandsInGroupsOfThree) {
  EXPECT_EQ(SampleText(0), "0");
  EXPECT_EQ(SampleText(999), "999");
  EXPECT_EQ(SampleText(1000), "1\u00A0000");
  EXPECT_EQ(SampleText(-123456), "-123\u00A0456");
  EXPECT_EQ(SampleText(1234567), "1\u00A0234\u00A0567");
}

TEST(RulerTicks, AreNoneWithoutASound) {
  EXPECT_TRUE(RulerTicks(Showing(0, 1, 100, 0), 48000).empty());
  EXPECT_TRUE(RulerTicks(Showing(0, 1, 100, 10), 0).empty());
}

}  // namespace
}  // namespace playground
