// Strokes beside those of QPainter, which works them out in another way: outlines of the whole line, filled
// by scanlines.
#include "Canvas.h"

#include <gtest/gtest.h>

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <vector>

namespace moxui::scriber {
namespace {

constexpr int kWidth = 300;
constexpr int kHeight = 160;

QImage PaintedByQt(std::vector<PointT<float>> const& points, double width) {
  QImage image(kWidth, kHeight, QImage::Format_RGB32);
  image.fill(Qt::black);
  QPainterPath path(QPointF(points[0].x, points[0].y));
  for (std::size_t i = 1; i < points.size(); ++i) {
    path.lineTo(points[i].x, points[i].y);
  }
  // By way of the outline, since thin pens take a short cut that looks otherwise.
  QPainterPathStroker stroker;
  stroker.setWidth(width);
  stroker.setCapStyle(Qt::FlatCap);
  stroker.setJoinStyle(Qt::SvgMiterJoin);
  stroker.setMiterLimit(4.0);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillPath(stroker.createStroke(path), Qt::white);
  return image;
}

struct Difference {
  double mean = 0;  // over pixels that either has painted
  int largest = 0;
};

Difference Compare(std::vector<PointT<float>> const& points, float ourWidth, double peerWidth) {
  Canvas canvas(kWidth, kHeight);
  canvas->StrokePath(*Line(points), *WhitePen(ourWidth));
  PixelGrid const ours = canvas.Pixels();
  QImage const peer = PaintedByQt(points, peerWidth);
  Difference difference;
  double painted = 0;
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      int const a = ours.At(x, y).red;
      int const b = qRed(peer.pixel(x, y));
      if (a != 0 || b != 0) {
        difference.mean += std::abs(a - b);
        difference.largest = std::max(difference.largest, std::abs(a - b));
        painted += 1;
      }
    }
  }
  difference.mean /= std::max(painted, 1.0);
  return difference;
}

std::vector<PointT<float>> Noise(unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<float> any(5.0f, 155.0f);
  std::vector<PointT<float>> points;
  for (int i = 0; i < 280; ++i) {
    points.push_back({10.0f + static_cast<float>(i), any(random)});
  }
  return points;
}

std::vector<PointT<float>> Spiral() {
  std::vector<PointT<float>> points;
  for (int i = 0; i < 500; ++i) {
    float const turn = static_cast<float>(i) * 0.06f;
    points.push_back(
        {150.0f + (5.0f + turn * 2.2f) * std::cos(turn), 80.0f + (5.0f + turn * 2.2f) * std::sin(turn)});
  }
  return points;
}

std::vector<PointT<float>> Star() {
  std::vector<PointT<float>> points;
  for (int i = 0; i < 12; ++i) {
    float const turn = static_cast<float>(i) * 2.4f;
    points.push_back({150.0f + 70.0f * std::cos(turn), 80.0f + 70.0f * std::sin(turn)});
  }
  return points;
}

class StrokePicture : public ::testing::TestWithParam<float> {};

TEST_P(StrokePicture, OfNoiseIsThatOfQPainter) {
  for (unsigned const seed : {1u, 2u, 3u}) {
    Difference const difference = Compare(Noise(seed), GetParam(), static_cast<double>(GetParam()));
    EXPECT_LT(difference.mean, 2.5) << seed;
  }
}

TEST_P(StrokePicture, OfASpiralIsThatOfQPainter) {
  Difference const difference = Compare(Spiral(), GetParam(), static_cast<double>(GetParam()));
  EXPECT_LT(difference.mean, 2.5);
  // QPainter counts the inside of a bend twice, where ours is exact: single pixels differ by more.
}

TEST_P(StrokePicture, OfAStarIsThatOfQPainter) {
  Difference const difference = Compare(Star(), GetParam(), static_cast<double>(GetParam()));
  EXPECT_LT(difference.mean, 2.5);
  EXPECT_LE(difference.largest, 48);
}

INSTANTIATE_TEST_SUITE_P(Widths, StrokePicture, ::testing::Values(1.0f, 2.0f, 3.5f, 8.0f));

TEST(StrokePicture, ComparisonFailsForAPenALittleWider) {
  EXPECT_GT(Compare(Noise(1), 2.0f, 2.3).mean, 2.5);
  EXPECT_GT(Compare(Spiral(), 2.0f, 2.3).mean, 2.5);
  EXPECT_GT(Compare(Star(), 2.0f, 2.3).mean, 2.5);
}

}  // namespace
}  // namespace moxui::scriber
