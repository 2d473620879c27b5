#include "PeakPictures.h"
#include "RandomPeakViews.h"

#include <gtest/gtest.h>

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

}  // namespace
