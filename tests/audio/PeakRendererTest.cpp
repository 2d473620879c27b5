#include "PeakPictures.h"
#include "RandomPeakViews.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace {

using audio_tests::FindDifference;
using audio_tests::PeakPicture;
using audio_tests::RandomPeakView;

TEST(PeakRenderer, PaintsWhatThePlainRendererPaintsForAnySettings) {
  constexpr int kViews = 4000;
  std::mt19937 random(20240611);
  int painted = 0;
  int several = 0;
  for (int i = 0; i < kViews; ++i) {
    RandomPeakView const view = audio_tests::MakeRandomPeakView(random);
    auto const expected = audio_tests::DrawPeaksPlainly(view.draw, view.settings, view.view);
    auto const actual = audio_tests::DrawPeaks(view.draw, view.view);
    ASSERT_EQ(FindDifference(actual, expected), "") << "view " << i;
    painted += expected.empty() ? 0 : 1;
    several += expected.size() > 1 ? 1 : 0;
  }
  // The views are worth comparing.
  EXPECT_GT(painted, kViews / 2);
  EXPECT_GT(several, kViews / 10);
}

TEST(PeakRenderer, TheComparisonNoticesOnePixelOfOneStep) {
  std::mt19937 random(7);
  RandomPeakView view = audio_tests::MakeRandomPeakView(random);
  auto expected = audio_tests::DrawPeaksPlainly(view.draw, view.settings, view.view);
  while (expected.empty()) {
    view = audio_tests::MakeRandomPeakView(random);
    expected = audio_tests::DrawPeaksPlainly(view.draw, view.settings, view.view);
  }
  ASSERT_EQ(FindDifference(audio_tests::DrawPeaks(view.draw, view.view), expected), "");
  expected.back().bytes.back() ^= 1;
  EXPECT_NE(FindDifference(audio_tests::DrawPeaks(view.draw, view.view), expected), "");
}

// Wider than any block that columns are worked out in, and no multiple of one; or so tall that a block is
// narrower.
TEST(PeakRenderer, LargeViewsAreTheSameAsTheirPieces) {
  std::mt19937 random(3);
  RandomPeakView view = audio_tests::MakeRandomPeakView(random);
  view.view.scale = 1.0f;
  for (moxmediaui::RectT<int> const& rect :
       {moxmediaui::RectT<int>{0, 0, 1337, 64}, moxmediaui::RectT<int>{0, 0, 300, 1500},
        moxmediaui::RectT<int>{0, 0, 150, 5000}}) {
    view.view.rect = rect;
    view.view.slots = rect.width;
    for (int channels : {1, 3}) {
      view.view.channels = channels;
      std::uniform_real_distribution<float> value(-1.0f, 1.0f);
      view.view.pairs.resize(static_cast<std::size_t>(channels * rect.width) * 2);
      for (float& v : view.view.pairs) {
        v = value(random);
      }
      for (bool layered : {false, true}) {
        view.draw.SetLayeredChannels(layered);
        auto const expected = audio_tests::DrawPeaksPlainly(view.draw, view.settings, view.view);
        ASSERT_FALSE(expected.empty());
        EXPECT_EQ(FindDifference(audio_tests::DrawPeaks(view.draw, view.view), expected), "") << rect.height;
      }
    }
  }
}

// Column by column and in wider pieces, what is painted of a view is the same as when all of it is.
TEST(PeakRenderer, SomeColumnsAreTheSameAsInTheWhole) {
  constexpr int kWidth = 700;
  constexpr int kHeight = 120;
  std::mt19937 random(9);
  for (int i = 0; i < 40; ++i) {
    RandomPeakView view = audio_tests::MakeRandomPeakView(random);
    view.view.rect = {0, 0, kWidth, kHeight};
    view.view.slots = kWidth;
    view.view.channels = 1 + i % 3;
    view.view.scale = 1.0f;
    view.view.pairs.resize(static_cast<std::size_t>(view.view.channels * kWidth) * 2, 0.3f);
    view.draw.SetPaintedColumns(0, kWidth);
    auto const whole = audio_tests::DrawPeaks(view.draw, view.view);
    for (auto const& [first, end] :
         {std::pair{0, 1}, {3, 4}, {64, 640}, {100, 103}, {650, 700}, {690, 900}}) {
      SCOPED_TRACE(testing::Message() << "view " << i << ", columns " << first << " to " << end);
      view.draw.SetPaintedColumns(first, end);
      auto const some = audio_tests::DrawPeaks(view.draw, view.view);
      std::size_t at = 0;
      for (PeakPicture const& picture : whole) {
        int const left = std::max(first, picture.left);
        int const right = std::min(end, picture.left + picture.width);
        if (left >= right) {
          continue;
        }
        ASSERT_LT(at, some.size());
        PeakPicture const& piece = some[at++];
        ASSERT_EQ(piece.left, left);
        ASSERT_EQ(piece.width, right - left);
        ASSERT_EQ(piece.height, picture.height);
        for (int row = 0; row < picture.height; ++row) {
          auto const from = (static_cast<std::ptrdiff_t>(row) * picture.width + left - picture.left) * 4;
          auto const to = static_cast<std::ptrdiff_t>(row) * piece.width * 4;
          ASSERT_TRUE(std::equal(piece.bytes.begin() + to, piece.bytes.begin() + to + piece.width * 4,
                                 picture.bytes.begin() + from));
        }
      }
      EXPECT_EQ(at, some.size());
    }
  }
}

}  // namespace
