#include "PeakPictures.h"
#include "RandomPeakViews.h"

#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/RecordingSupplier.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

namespace {

using audio_tests::PeakPicture;
using audio_tests::PeakView;
using audio_tests::RandomPeakView;
using moxmediaui::ColorRGBA;

using Words = std::vector<std::uint32_t>;

constexpr int kSpare = 3;  // columns behind those of the view, which nobody may touch

// Draws a view into pixels that hold `before`.
Words DrawInto(audio_tests::OpenWaveformDraw draw, PeakView const& view, bool onlyWholePixels,
               std::uint32_t before) {
  int const pixelsPerRow = view.rect.width + kSpare;
  Words pixels(static_cast<std::size_t>(pixelsPerRow) * static_cast<std::size_t>(view.rect.height), before);
  draw.SetPeakTarget(
      {.pixels = pixels.data(), .pixelsPerRow = pixelsPerRow, .onlyWholePixels = onlyWholePixels});
  EXPECT_TRUE(audio_tests::DrawPeaks(draw, view).empty()) << "draws images, too";
  return pixels;
}

// The images of a view on pixels that hold `before`.
Words DrawImages(audio_tests::OpenWaveformDraw const& draw, PeakView const& view, std::uint32_t before) {
  int const pixelsPerRow = view.rect.width + kSpare;
  Words pixels(static_cast<std::size_t>(pixelsPerRow) * static_cast<std::size_t>(view.rect.height), before);
  for (PeakPicture const& picture : audio_tests::DrawPeaks(draw, view)) {
    for (int row = 0; row < picture.height; ++row) {
      auto const to = static_cast<std::ptrdiff_t>(picture.top + row) * pixelsPerRow + picture.left;
      auto const from = static_cast<std::ptrdiff_t>(row) * picture.width * 4;
      std::memcpy(pixels.data() + to, picture.bytes.data() + from,
                  static_cast<std::size_t>(picture.width) * 4);
    }
  }
  return pixels;
}

RandomPeakView MakeView(std::mt19937& random) {
  RandomPeakView view = audio_tests::MakeRandomPeakView(random);
  view.view.rect.left = 0;
  view.view.rect.top = 0;
  return view;
}

TEST(PeakTarget, GetsWhatTheImagesHold) {
  constexpr std::uint32_t kBefore = 0x01020304;
  std::mt19937 random(31);
  int painted = 0;
  for (int i = 0; i < 1000; ++i) {
    RandomPeakView const view = MakeView(random);
    Words const expected = DrawImages(view.draw, view.view, kBefore);
    ASSERT_EQ(DrawInto(view.draw, view.view, false, kBefore), expected) << "view " << i;
    painted += expected.front() == kBefore ? 0 : 1;
  }
  EXPECT_GT(painted, 500);
}

// Two strips of 49 rows that stand 50 apart, below two rows that are left over.
TEST(PeakTarget, LeavesTheRowsAboveChannelsAtTheBottom) {
  audio_tests::OpenWaveformDraw draw;
  draw.SetVerticalChannelAlignment(moxmediaui::VerticalChannelAlignment::kBottom);
  draw.SetBackgroundColor({0.0f, 0.0f, 1.0f, 1.0f});
  PeakView const view{
      .rect = {0, 0, 4, 101}, .channels = 2, .slots = 4, .pairs = std::vector<float>(16, 0.0f)};
  Words const pixels = DrawInto(draw, view, false, 7);
  auto const row = [&pixels](std::size_t y) { return pixels.at(y * (4 + kSpare)); };
  EXPECT_EQ(row(0), 7u);
  EXPECT_EQ(row(1), 7u);
  EXPECT_EQ(row(2), 0xFF0000FFu);
  EXPECT_EQ(row(100), 0xFF0000FFu);
  EXPECT_NE(row(2 + 24), 0xFF0000FFu) << "silence";
  EXPECT_NE(row(52 + 24), 0xFF0000FFu) << "silence of the second channel";
}

// Images end at 32767 pixels, a client's own pixels don't.
TEST(PeakTarget, TakesSizesThatNoImageHas) {
  audio_tests::OpenWaveformDraw draw;
  draw.SetDrawCenterlines(false);
  for (moxmediaui::RectT<int> const& rect :
       {moxmediaui::RectT<int>{0, 0, 2, 32769}, moxmediaui::RectT<int>{0, 0, 32768, 2}}) {
    PeakView const view{.rect = rect,
                        .channels = 1,
                        .slots = rect.width,
                        .pairs = std::vector<float>(static_cast<std::size_t>(rect.width) * 2, 0.5f)};
    Words const pixels = DrawInto(draw, view, false, 7);
    EXPECT_NE(pixels.front(), 7u);
    EXPECT_NE(pixels.at(pixels.size() - kSpare - 1), 7u) << "the last row's last column";
  }
}

TEST(PeakTarget, GetsPaintedColumnsOnly) {
  std::mt19937 random(32);
  RandomPeakView view = MakeView(random);
  view.view.channels = 2;
  view.view.scale = 1.0f;
  view.view.rect = {0, 0, 90, 60};
  view.view.slots = 90;
  view.view.pairs.assign(360, 0.5f);
  Words const whole = DrawInto(view.draw, view.view, false, 7);
  view.draw.SetPaintedColumns(10, 20);
  Words const some = DrawInto(view.draw, view.view, false, 7);
  for (std::size_t i = 0; i < some.size(); ++i) {
    std::size_t const x = i % (90 + kSpare);
    ASSERT_EQ(some[i], x >= 10 && x < 20 ? whole[i] : 7u) << i;
  }
}

// What covers a pixel wholly looks the same on any ground.
TEST(PeakTarget, GetsNothingButWholePixelsOnDemand) {
  std::mt19937 random(33);
  std::size_t covered = 0;
  for (int i = 0; i < 300; ++i) {
    RandomPeakView view = MakeView(random);
    view.draw.SetLayeredChannels(false);
    view.draw.SetHorizontalGridlinePositions({});
    view.draw.SetVerticalGridlinePositions({});
    auto const on = [&view](ColorRGBA const& ground) {
      audio_tests::OpenWaveformDraw draw = view.draw;
      // Where none are set they depend on the ground.
      draw.SetSelectionChannelColors({{0.2f, 0.4f, 0.6f, 1.0f}});
      draw.SetBackgroundColor(ground);
      draw.SetSelectionBackgroundColor(ground);
      draw.SetCenterlineColor(ground);
      return draw;
    };
    Words const onBlack = DrawImages(on({0.0f, 0.0f, 0.0f, 1.0f}), view.view, 0);
    Words const onWhite = DrawImages(on({1.0f, 1.0f, 1.0f, 1.0f}), view.view, ~0u);
    Words const actual = DrawInto(on({0.0f, 0.0f, 0.0f, 1.0f}), view.view, true, 5);
    auto const pixelsPerRow = static_cast<std::size_t>(view.view.rect.width + kSpare);
    auto const looksTheSame = [&](std::size_t pixel) {
      return pixel < onBlack.size() && onBlack[pixel] == onWhite[pixel];
    };
    for (std::size_t pixel = 0; pixel < actual.size(); ++pixel) {
      // Both edges of a hairline may come to lie on one pixel, and leave less than a step of the ground.
      bool const isHairline =
          actual[pixel] == 5 && !looksTheSame(pixel - pixelsPerRow) && !looksTheSame(pixel + pixelsPerRow);
      bool const isWhole = looksTheSame(pixel) && !isHairline;
      ASSERT_EQ(actual[pixel], isWhole ? onBlack[pixel] : 5u) << "view " << i << ", pixel " << pixel;
      covered += isWhole ? 1 : 0;
    }
  }
  EXPECT_GT(covered, 10'000u);
}

}  // namespace
