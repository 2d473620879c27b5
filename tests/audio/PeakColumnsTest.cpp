#include "../../src/audio/PeakColumns.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using moxmediaui::PeakStrip;

TEST(PeakColumns, AreTheSameOnAnyProcessor) {
  constexpr int kWidth = 777;
  constexpr int kHeight = 90;
  std::mt19937 random(11);
  std::uniform_real_distribution<float> value(-1.2f, 1.2f);
  for (int i = 0; i < 48; ++i) {
    std::vector<float> pairs(2 * kWidth);
    for (float& v : pairs) {
      v = value(random);
    }
    std::vector<std::uint32_t> best(kWidth * (kHeight + 3));
    for (std::uint32_t& pixel : best) {
      pixel = static_cast<std::uint32_t>(random());
    }
    std::vector<std::uint32_t> portable = best;
    PeakStrip strip{.pairs = pairs.data(),
                    .pixels = best.data(),
                    .columns = kWidth - i,
                    .pixelsPerRow = kWidth,
                    .top = i % 4,
                    .height = kHeight,
                    .centre = 45.5f,
                    .zoom = 1.0f + 0.01f * static_cast<float>(i),
                    .opacity = i % 2 == 0 ? 1.0f : 0.7f,
                    .pixel = 0xFF3080F0u,
                    .style = static_cast<moxmediaui::PeakDataDrawStyle>(i % 3),
                    .scaling = static_cast<moxmediaui::WaveformScalingStyle>(i / 2 % 2)};
    moxmediaui::DrawPeakStrip(strip);
    strip.pixels = portable.data();
    moxmediaui::DrawPeakStripPortably(strip);
    ASSERT_EQ(best, portable) << i;
  }
}

}  // namespace
