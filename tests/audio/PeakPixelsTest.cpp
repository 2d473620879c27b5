// Pixels worked out by hand. They anchor both the fast renderer and the plain one that it is compared with.
#include "PeakPictures.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>

namespace {

using audio_tests::OpenWaveformDraw;
using audio_tests::PeakPicture;
using audio_tests::PeakSettings;
using audio_tests::PeakView;
using moxmediaui::ColorRGBA;
using moxmediaui::LayeredChannelDrawingStyle;
using moxmediaui::PeakDataDrawStyle;
using moxmediaui::WaveformScalingStyle;

using Pixel = std::array<int, 4>;  // blue, green, red, alpha

constexpr Pixel kBlack{0, 0, 0, 255};
constexpr Pixel kWhite{255, 255, 255, 255};

Pixel Grey(int value) {
  return {value, value, value, 255};
}

using Renderer =
    std::function<std::vector<PeakPicture>(OpenWaveformDraw const&, PeakSettings const&, PeakView const&)>;

struct NamedRenderer {
  char const* name;
  Renderer render;
};

class PeakPixels : public ::testing::TestWithParam<NamedRenderer> {
 protected:
  PeakPixels() {
    mDraw.SetDrawCenterlines(false);
    mView.rect = {0, 0, 1, 101};
    mView.channels = 1;
    mView.slots = 1;
  }

  void Render(std::vector<float> pairs) {
    mView.pairs = std::move(pairs);
    mView.slots = mView.rect.width;
    mPictures = GetParam().render(mDraw, mSettings, mView);
  }

  Pixel At(int x, int y, std::size_t picture = 0) const {
    PeakPicture const& p = mPictures.at(picture);
    std::size_t const first =
        (static_cast<std::size_t>(y) * static_cast<std::size_t>(p.width) + static_cast<std::size_t>(x)) * 4;
    return {p.bytes.at(first), p.bytes.at(first + 1), p.bytes.at(first + 2), p.bytes.at(first + 3)};
  }

  void SetLayeredStyle(LayeredChannelDrawingStyle style) {
    mDraw.SetLayeredChannelDrawingStyle(style);
    mSettings.layeredStyle = style;
  }
  void SetGainWholeRange(bool wholeRange) {
    mDraw.SetGainWholeRange(wholeRange);
    mSettings.gainWholeRange = wholeRange;
  }
  void Select(std::int64_t left, std::int64_t width) {
    moxmediaui::RectT<int> ignored;
    mDraw.SetSelection(mView.rect, left, width, ignored);
  }

  OpenWaveformDraw mDraw;
  PeakSettings mSettings;
  PeakView mView;
  std::vector<PeakPicture> mPictures;
};

// top 50.125, bottom 50.875: row 50 is blended twice at int(0.875 * 255) = 223. First 223 over 0; then
// round(223 * 32 / 255) = 28 and 223 more.
TEST_P(PeakPixels, SilenceIsAHairlineOfOneRowBlendedTwice) {
  Render({0.0f, 0.0f});
  EXPECT_EQ(At(0, 49), kBlack);
  EXPECT_EQ(At(0, 50), Grey(251));
  EXPECT_EQ(At(0, 51), kBlack);
}

// A quarter draws at a half: top 50.5 - 25.25 = 25.25, bottom 75.75.
TEST_P(PeakPixels, SquareRootsKeepTheSign) {
  mDraw.SetWaveformScalingStyle(WaveformScalingStyle::kSquareRoot);
  Render({0.25f, -0.25f});
  EXPECT_EQ(At(0, 24), kBlack);
  EXPECT_EQ(At(0, 25), Grey(191));  // int(0.75 * 255)
  EXPECT_EQ(At(0, 26), kWhite);
  EXPECT_EQ(At(0, 74), kWhite);
  EXPECT_EQ(At(0, 75), Grey(191));
  EXPECT_EQ(At(0, 76), kBlack);
}

TEST_P(PeakPixels, AFullScaleWaveHasNoEdgeInTheFirstRow) {
  Render({1.0f, -1.0f});
  EXPECT_EQ(At(0, 0), kWhite);
  EXPECT_EQ(At(0, 100), kWhite);
  // 1.001 reaches -0.0505 above the strip: nothing is blended there, the body goes on.
  Render({1.001f, -1.001f});
  EXPECT_EQ(At(0, 0), kWhite);
  // top = 0.0505, y0 = 1: the edge falls into row 0 at int(0.9495 * 255) = 242.
  Render({0.999f, 0.0f});
  EXPECT_EQ(At(0, 0), Grey(242));
  EXPECT_EQ(At(0, 1), kWhite);
}

TEST_P(PeakPixels, RectifiedSilenceKeepsOneRow) {
  mDraw.SetPeakDataDrawStyle(PeakDataDrawStyle::kRectified);
  Render({0.0f, 0.0f});
  EXPECT_EQ(At(0, 99), kBlack);
  EXPECT_EQ(At(0, 100), kWhite);
}

TEST_P(PeakPixels, RectifiedFromZeroShowsNothingOfSilence) {
  mDraw.SetPeakDataDrawStyle(PeakDataDrawStyle::kRectifiedFromZero);
  Render({0.0f, 0.0f});
  EXPECT_EQ(At(0, 100), kBlack);
}

// The larger magnitude is 0.5: top = 101 - 50.5 = 50.5.
TEST_P(PeakPixels, RectifiedPeaksGrowFromTheBottom) {
  mDraw.SetPeakDataDrawStyle(PeakDataDrawStyle::kRectified);
  Render({0.25f, -0.5f});
  EXPECT_EQ(At(0, 49), kBlack);
  EXPECT_EQ(At(0, 50), Grey(127));  // int(0.5 * 255)
  EXPECT_EQ(At(0, 51), kWhite);
  EXPECT_EQ(At(0, 100), kWhite);
}

TEST_P(PeakPixels, GainLeavesADisabledChannelAloneAndZoomDoesnt) {
  mDraw.EnableChannel(0, false);
  mView.gain = 2.0f;
  mDraw.SetGain(2.0f);
  Render({0.5f, -0.5f});
  EXPECT_EQ(At(0, 25), Grey(96));   // grey 128 at int(0.75 * 255) = 191
  EXPECT_EQ(At(0, 26), Grey(128));  // disabled channels are grey
  EXPECT_EQ(At(0, 24), kBlack);
  mDraw.SetZoom(2.0f);
  Render({0.5f, -0.5f});
  EXPECT_EQ(At(0, 0), Grey(128));
  mDraw.EnableChannel(0, true);
  mDraw.SetZoom(1.0f);
  Render({0.5f, -0.5f});
  EXPECT_EQ(At(0, 0), kWhite);
}

// With a grid the wave lets it through: opacity 0.9, alpha int(229.5) = 229.
TEST_P(PeakPixels, AGridShinesThroughTheWave) {
  mView.rect.width = 2;
  mDraw.SetGridlineColor({1.0f, 0.0f, 0.0f, 0.5f});
  mDraw.SetVerticalGridlinePositions({1, 2, -1});
  Render({0.5f, -0.5f, 0.5f, -0.5f});
  EXPECT_EQ(At(0, 50), Grey(229));
  EXPECT_EQ(At(1, 50), (Pixel{229, 229, 255, 255}));  // 26 of red beneath
  EXPECT_EQ(At(1, 0), (Pixel{0, 0, 255, 128}));       // the grid's own alpha
  EXPECT_EQ(At(0, 0), kBlack);
}

TEST_P(PeakPixels, HorizontalGridLinesBelongToChannelsInTurn) {
  mView.rect = {0, 0, 1, 41};
  mView.channels = 2;
  mDraw.SetGridlineColor({0.0f, 1.0f, 0.0f, 1.0f});
  mDraw.SetHorizontalGridlinePositions({2, 25, 40});  // one per channel; the third is left over
  Render({0.0f, 0.0f, 0.0f, 0.0f});
  EXPECT_EQ(At(0, 2), (Pixel{0, 255, 0, 255}));
  EXPECT_EQ(At(0, 25), (Pixel{0, 255, 0, 255}));
  EXPECT_EQ(At(0, 40), kBlack);
}

TEST_P(PeakPixels, TheCentreLineLiesBeneathTheWave) {
  mDraw.SetDrawCenterlines(true);
  mView.rect.width = 2;
  Render({0.5f, -0.5f, 1.0f, 0.9f});
  EXPECT_EQ(At(0, 50), kWhite);
  EXPECT_EQ(At(1, 50), (Pixel{4, 4, 169, 255}));
}

// All alike: two channels at int(0.7 * 255) = 178; 178 over 0, then round(178 * 77 / 255) = 54 and 178.
TEST_P(PeakPixels, LayeredChannelsAreSeenThroughOneAnother) {
  mDraw.SetLayeredChannels(true);
  mView.channels = 2;
  Render({0.5f, -0.5f, 0.25f, -0.25f});
  EXPECT_EQ(At(0, 50), Grey(54 + 178));
  EXPECT_EQ(At(0, 30), Grey(178));
  EXPECT_EQ(mPictures.at(0).height, 101);
}

TEST_P(PeakPixels, SelectedColumnsComeLastInTheirOwnColours) {
  mView.rect = {0, 0, 5, 41};
  mView.channels = 1;
  mDraw.SetEnabledChannels({true});
  moxmediaui::RectT<int> ignored;
  mDraw.SetSelection(mView.rect, 1, 2, ignored);
  mDraw.SetSelectionBackgroundColor({0.0f, 0.0f, 1.0f, 0.25f});
  Render(std::vector<float>(10, 0.9f));
  ASSERT_EQ(mPictures.size(), 3u);
  EXPECT_EQ(mPictures[0].left, 0);
  EXPECT_EQ(mPictures[0].width, 1);
  EXPECT_EQ(mPictures[1].left, 3);
  EXPECT_EQ(mPictures[1].width, 2);
  EXPECT_EQ(mPictures[2].left, 1);
  EXPECT_EQ(mPictures[2].width, 2);
  EXPECT_EQ(At(0, 40, 2), (Pixel{255, 0, 0, 255}));
  EXPECT_EQ(At(0, 40, 1), kBlack);
}

// Strips of 19 rows, 20 apart; blocks begin (20 - 19) >> 1 = 0 rows higher, so the divider's row goes with
// the channel above it.
TEST_P(PeakPixels, ADisabledChannelShowsNoSelection) {
  mView.rect = {0, 0, 1, 39};
  mView.channels = 2;
  mDraw.SetEnabledChannels({true, false});
  mDraw.SetSelectionBackgroundColor({1.0f, 1.0f, 0.0f, 1.0f});
  moxmediaui::RectT<int> ignored;
  mDraw.SetSelection(mView.rect, 0, 1, ignored);
  Render({0.0f, 0.0f, 0.0f, 0.0f});
  EXPECT_EQ(At(0, 0), (Pixel{0, 255, 255, 255}));
  EXPECT_EQ(At(0, 19), (Pixel{0, 255, 255, 255}));
  EXPECT_EQ(At(0, 20), kBlack);
  EXPECT_EQ(At(0, 38), kBlack);
}

// The first strong: the second channel at int(0.6 * 255) = 153, the first one upon it in full. Its edge at
// 37.875 has int(0.125 * 255) = 31: round(153 * 224 / 255) = 134 and 31.
TEST_P(PeakPixels, AStrongFirstChannelHidesTheOthers) {
  mDraw.SetLayeredChannels(true);
  SetLayeredStyle(LayeredChannelDrawingStyle::kFirstStrong);
  mView.channels = 2;
  Render({0.25f, -0.25f, 0.5f, -0.5f});
  EXPECT_EQ(At(0, 30), Grey(153));
  EXPECT_EQ(At(0, 37), Grey(165));
  EXPECT_EQ(At(0, 50), kWhite);
  // Grid or not decides for all: then the first is at 153 too, over 153 * 102 / 255 = 61 of the second.
  mDraw.SetHorizontalGridlinePositions({0});
  Render({0.25f, -0.25f, 0.5f, -0.5f});
  EXPECT_EQ(At(0, 30), Grey(153));
  EXPECT_EQ(At(0, 50), Grey(61 + 153));
}

// 0.25 reaches up to 37.875, doubled to 25.25.
TEST_P(PeakPixels, OutsideASelectionTheGainAppliesOnlyIfItIsForTheWholeRange) {
  mView.rect.width = 3;
  mView.gain = 2.0f;
  mDraw.SetGain(2.0f);
  mDraw.SetEnabledChannels({true});
  mDraw.SetSelectionBackgroundColor({0, 0, 0, 1});
  mDraw.SetSelectionChannelColors({{1, 1, 1, 1}});
  Select(1, 1);
  for (bool const wholeRange : {false, true}) {
    SetGainWholeRange(wholeRange);
    Render({0.25f, -0.25f, 0.25f, -0.25f, 0.25f, -0.25f});
    ASSERT_EQ(mPictures.size(), 3u);
    for (std::size_t const outside : {std::size_t{0}, std::size_t{1}}) {
      EXPECT_EQ(At(0, 25, outside), wholeRange ? Grey(191) : kBlack);
      EXPECT_EQ(At(0, 26, outside), wholeRange ? kWhite : kBlack);
      EXPECT_EQ(At(0, 37, outside), wholeRange ? kWhite : Grey(31));
      EXPECT_EQ(At(0, 38, outside), kWhite);
    }
    EXPECT_EQ(At(0, 25, 2), Grey(191));
    EXPECT_EQ(At(0, 26, 2), kWhite);
  }
}

// 161 rows at scale 4 are 40 units: strips of 19, 20 apart, times 4. The second block is raised by
// (80 - 76) >> 1 = 2 rows, onto the first one's last two.
TEST_P(PeakPixels, BlocksAreRaisedByHalfTheGap) {
  mView.rect = {0, 0, 1, 161};
  mView.scale = 4.0f;
  mView.channels = 2;
  mDraw.SetEnabledChannels({true, false});
  mDraw.SetSelectionBackgroundColor({1.0f, 1.0f, 0.0f, 1.0f});
  Select(0, 1);
  Render({0.0f, 0.0f, 0.0f, 0.0f});
  ASSERT_EQ(mPictures.at(0).height, 156);
  EXPECT_EQ(At(0, 0), (Pixel{0, 255, 255, 255}));
  EXPECT_EQ(At(0, 77), (Pixel{0, 255, 255, 255}));
  EXPECT_EQ(At(0, 78), kBlack);
  EXPECT_EQ(At(0, 155), kBlack);
}

// A white line on black is at half of a white selection. Strips of 20 rows, 21 apart: the first channel's
// part of the line has the gap's row too.
TEST_P(PeakPixels, AVerticalGridLineHasAPartForEachChannel) {
  mView.rect = {0, 0, 2, 41};
  mView.channels = 2;
  mDraw.SetGridlineColor({1, 1, 1, 1});
  mDraw.SetSelectionBackgroundColor({1, 1, 1, 1});
  mDraw.SetVerticalGridlinePositions({1});
  mDraw.SetEnabledChannels({true, false});
  Select(0, 2);
  Render(std::vector<float>(8, 0.0f));
  EXPECT_EQ(At(0, 0), kWhite);
  EXPECT_EQ(At(1, 0), Grey(128));
  EXPECT_EQ(At(1, 20), Grey(128));
  EXPECT_EQ(At(0, 21), kBlack);
  EXPECT_EQ(At(1, 21), kWhite);
  EXPECT_EQ(At(1, 40), kWhite);
  // Layered, only the last channel has rows.
  mDraw.SetLayeredChannels(true);
  Render(std::vector<float>(8, 0.0f));
  ASSERT_EQ(mPictures.at(0).height, 41);
  EXPECT_EQ(At(1, 0), kWhite);
  EXPECT_EQ(At(1, 40), kWhite);
  mDraw.SetEnabledChannels({false, true});
  Render(std::vector<float>(8, 0.0f));
  EXPECT_EQ(At(1, 0), Grey(128));
  EXPECT_EQ(At(1, 40), Grey(128));
}

// The first column is the rectangle's left, of the data as on the surface; its top is not added.
TEST_P(PeakPixels, ARectangleNotAtTheOriginBeginsAtThatColumn) {
  mView.rect = {1, 5, 2, 41};
  mView.channels = 2;
  Render({0.0f, 0.0f, 1.0f, -1.0f, 0.0f, 0.0f, 1.0f, -1.0f});
  EXPECT_EQ(mPictures.at(0).left, 1);
  EXPECT_EQ(mPictures.at(0).top, 0);
  EXPECT_EQ(At(0, 0), kWhite);
  EXPECT_EQ(At(1, 0), kBlack);
  EXPECT_EQ(At(1, 10), Grey(251));  // silence
  EXPECT_EQ(At(0, 21), kWhite);
  EXPECT_EQ(At(1, 31), kBlack);  // beyond the data
}

// 255 * -0.1 = -25.5 is a tie and truncates to -25; 255 * -0.2 = -51 becomes int(-51.5); 255 * 2 = 510.
TEST_P(PeakPixels, ComponentsOutsideZeroToOneWrap) {
  mDraw.SetBackgroundColor({-0.1f, -0.2f, 2.0f, 0.0f});
  Render({0.0f, 0.0f});
  EXPECT_EQ(At(0, 0), (Pixel{254, 256 - 51, 256 - 25, 255}));
}

TEST_P(PeakPixels, ImagesLieAtTheBottomWhenChannelsAreAlignedThere) {
  mView.rect = {0, 0, 1, 40};
  mView.channels = 3;  // strips of 12 rows, 13 apart: 38 rows
  mDraw.SetVerticalChannelAlignment(moxmediaui::VerticalChannelAlignment::kBottom);
  Render(std::vector<float>(6, 0.0f));
  EXPECT_EQ(mPictures.at(0).height, 38);
  EXPECT_EQ(mPictures.at(0).top, 2);
}

TEST_P(PeakPixels, WhatIsNoNumberShowsNothing) {
  float const nan = std::numeric_limits<float>::quiet_NaN();
  float const infinity = std::numeric_limits<float>::infinity();
  mView.rect.width = 4;
  Render({nan, 0.0f, 0.5f, nan, infinity, -infinity, 1e30f, 0.0f});
  for (int row = 0; row < 101; ++row) {
    EXPECT_EQ(At(0, row), kBlack);
    EXPECT_EQ(At(1, row), kBlack);
    EXPECT_EQ(At(2, row), kWhite);  // beyond all bounds on both sides
  }
  EXPECT_EQ(At(3, 0), kWhite);
  EXPECT_EQ(At(3, 49), kWhite);
  EXPECT_EQ(At(3, 51), kBlack);
}

INSTANTIATE_TEST_SUITE_P(
    Renderers, PeakPixels,
    ::testing::Values(
        NamedRenderer{"Fast", [](OpenWaveformDraw const& draw, PeakSettings const&,
                                 PeakView const& view) { return audio_tests::DrawPeaks(draw, view); }},
        NamedRenderer{"Plain",
                      [](OpenWaveformDraw const& draw, PeakSettings const& settings, PeakView const& view) {
                        return audio_tests::DrawPeaksPlainly(draw, settings, view);
                      }}),
    [](auto const& test) { return std::string(test.param.name); });

}  // namespace
