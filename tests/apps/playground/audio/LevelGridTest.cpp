#include "audio/ChannelStrips.h"
#include "audio/LevelGrid.h"
#include "audio/WaveformSettings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace playground {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> LinesOf(WaveformSettings const& settings, int height, double scale = 1.0) {
  std::vector<std::string> lines;
  for (LevelLine const& line : LevelLines(settings, {.height = height, .stride = height + 1}, scale)) {
    lines.push_back(line.label + "@" + std::to_string(line.y));
  }
  return lines;
}

TEST(LevelGrid, HasALineEverySixDecibelsAsFarAsThereIsRoom) {
  WaveformSettings const settings;
  EXPECT_THAT(LinesOf(settings, 101), ElementsAre("0@0", "-6@25", "-12@37", "-12@63", "-6@75", "0@100"));
  EXPECT_THAT(LinesOf(settings, 41), ElementsAre("0@0", "-6@10", "-6@30", "0@40"));
  EXPECT_THAT(LinesOf(settings, 21), ElementsAre("0@0", "0@20"));
}

TEST(LevelGrid, HasAsManyLinesOnAFinerScreen) {
  EXPECT_EQ(LinesOf({}, 101).size(), LinesOf({}, 203, 2.0).size());
}

TEST(LevelGrid, ShowsLowerLevelsWhereTheyAreEnlarged) {
  WaveformSettings settings;
  settings.zoom = 2.0;
  EXPECT_THAT(LinesOf(settings, 101), ElementsAre("-12@25", "-18@37", "-18@63", "-12@75"))
      << "-6 dB lies a hair beyond the strip";
  settings.zoom = 1.0;
  settings.squareRoot = true;
  EXPECT_THAT(LinesOf(settings, 101), testing::Contains("-12@25"));
}

TEST(LevelGrid, GoesUpFromTheBottomWherePeaksDo) {
  WaveformSettings settings;
  settings.peakStyle = PeakStyle::kRectified;
  EXPECT_THAT(LinesOf(settings, 100), ElementsAre("0@0", "-6@49", "-12@74", "-18@87"));
}

TEST(LevelGrid, DividesFullScaleIntoEqualShares) {
  WaveformSettings settings;
  settings.amplitudeDivisions = 3;
  EXPECT_THAT(LinesOf(settings, 101),
              ElementsAre("0.75@12", "0.5@25", "0.25@37", "0.25@63", "0.5@75", "0.75@88"));
  settings.amplitudeDivisions = 0;
  EXPECT_THAT(LinesOf(settings, 101), IsEmpty());
}

TEST(LevelGrid, HasNoDecibelsWhereAllChannelsShareALayer) {
  WaveformSettings settings;
  settings.layered = true;
  EXPECT_THAT(LinesOf(settings, 101), IsEmpty());
  settings.amplitudeDivisions = 1;
  EXPECT_THAT(LinesOf(settings, 101), ElementsAre("0.5@25", "0.5@75"));
}

TEST(LevelGrid, LiesInTheStripOfEachChannel) {
  EXPECT_THAT(AmplitudeGrid({}, {.height = 41, .stride = 42}, 2, 1.0),
              ElementsAre(0, 10, 30, 40, 42, 52, 72, 82));
}

TEST(ChannelStrips, LieAsTheRendererLaysThemOut) {
  WaveformSettings settings;
  auto strips = LayOutStrips(settings, 2, 101, 1.0, false);
  ASSERT_TRUE(strips.has_value());
  EXPECT_EQ(strips->height, 49);
  EXPECT_EQ(strips->stride, 50);
  EXPECT_EQ(strips->top, 0);
  EXPECT_EQ(strips->Centre(), 24.5);
  settings.alignBottom = true;
  EXPECT_EQ(LayOutStrips(settings, 2, 101, 1.0, false)->top, 2);
  EXPECT_EQ(LayOutStrips(settings, 2, 101, 1.0, true)->top, 0) << "samples begin at the top";
  EXPECT_FALSE(LayOutStrips(settings, 60, 101, 1.0, false).has_value());
  EXPECT_FALSE(LayOutStrips(settings, 0, 101, 1.0, false).has_value());
}

// 42 / 1.2 is 35 in floats and a hair less in doubles, which have no float between them and 35.
TEST(ChannelStrips, AreRoundedAsTheRendererRoundsThem) {
  WaveformSettings settings;
  auto strips = LayOutStrips(settings, 2, 42, 1.2f, true);
  ASSERT_TRUE(strips.has_value());
  EXPECT_EQ(strips->height, 20);
  EXPECT_EQ(strips->stride, 21);
  // 30 / 1.2 is 25 in doubles and a hair less in floats: 24 units are two strips of 11, and a divider.
  settings.centerlines = false;
  strips = LayOutStrips(settings, 2, 30, 1.2, true);
  ASSERT_TRUE(strips.has_value());
  EXPECT_EQ(strips->height, 13);
  EXPECT_EQ(strips->stride, 14);
}

}  // namespace
}  // namespace playground
