#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <vector>

namespace moxui::scriber {
namespace {

constexpr int kWidth = 500;
constexpr int kHeight = 120;

using Values = std::vector<float>;

// A curve with a point to each column, stroked; behind it one far outside, if it is not to be alone.
std::vector<std::uint32_t> Stroked(Values const& values, float width, bool isAlone) {
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(kWidth) * kHeight, 0xFF000000u);
  auto const surface = NewRasterSurfaceOver(pixels.data(), kWidth, kHeight, kWidth * 4, 1.0f, true);
  auto const path = GetRasterSupplier()->NewPath();
  for (std::size_t i = 0; i < values.size(); ++i) {
    PointT<float> const point{static_cast<float>(i), values[i]};
    i == 0 ? path->MoveTo(point) : path->LineTo(point);
  }
  if (!isAlone) {
    path->MoveTo({-500.0f, -500.0f});
    path->LineTo({-490.0f, -500.0f});
  }
  surface->StrokePath(*path, *GetRasterSupplier()->NewPen({1.0f, 1.0f, 1.0f, 0.8f}, width));
  return pixels;
}

int LargestDifference(std::vector<std::uint32_t> const& a, std::vector<std::uint32_t> const& b) {
  int largest = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    largest = std::max(largest, std::abs(static_cast<int>(a[i] & 255u) - static_cast<int>(b[i] & 255u)));
  }
  return largest;
}

// However a long curve is taken to pieces, its stroke is that of a line among others, which isn't.
TEST(StrokedGraph, IsTheStrokeOfAnyLine) {
  std::mt19937 random(4);
  std::uniform_real_distribution<float> value(-20.0f, kHeight + 20.0f);
  for (float const width : {0.7f, 2.0f, 9.0f}) {
    Values noise(kWidth + 1);
    Values wave(kWidth + 1);
    for (std::size_t i = 0; i < noise.size(); ++i) {
      noise[i] = value(random);
      wave[i] = 60.0f + 70.0f * std::sin(static_cast<float>(i) * 0.3f);
    }
    for (Values const& values : {noise, wave}) {
      auto const alone = Stroked(values, width, true);
      EXPECT_LE(LargestDifference(alone, Stroked(values, width, false)), 1) << width;
      EXPECT_GT(LargestDifference(alone, Stroked(values, width + 0.3f, false)), 20) << width;
    }
  }
}

}  // namespace
}  // namespace moxui::scriber
