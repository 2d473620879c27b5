#include "curve/ToneCurve.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace playground {
namespace {

// Points that rise, stay, fall steeply and rise again.
std::vector<CurvePoint> const kHills{{10, 20}, {40, 200}, {90, 200}, {91, 0}, {200, 30}, {255, 255}};

TEST(ToneCurve, LeavesEveryLevelAsItIsAtFirst) {
  ToneCurve const curve;
  ASSERT_EQ(curve.PointCount(), 2u);
  for (double x = 0.0; x <= ToneCurve::kMost; x += 0.5) {
    EXPECT_NEAR(curve.At(x), x, 1e-9);
  }
}

TEST(ToneCurve, GoesThroughItsPoints) {
  ToneCurve const curve(kHills);
  ASSERT_EQ(curve.Points(), kHills);
  for (CurvePoint const& point : kHills) {
    EXPECT_NEAR(curve.At(point.x), point.y, 1e-9);
  }
}

TEST(ToneCurve, IsMonotoneBetweenNeighbours) {
  ToneCurve const curve(kHills);
  for (std::size_t i = 0; i + 1 < kHills.size(); ++i) {
    double const direction = kHills[i + 1].y - kHills[i].y;
    double before = kHills[i].y;
    for (int step = 1; step <= 200; ++step) {
      double const x = kHills[i].x + (kHills[i + 1].x - kHills[i].x) * step / 200.0;
      double const y = curve.At(x);
      EXPECT_GE((y - before) * (direction < 0 ? -1.0 : 1.0), -1e-9) << "at " << x;
      EXPECT_TRUE(direction != 0.0 || y == kHills[i].y) << "level between points of one level, at " << x;
      before = y;
    }
  }
}

TEST(ToneCurve, IsSmoothWhereItGoesOnInOneDirection) {
  ToneCurve const curve({{0, 0}, {64, 40}, {192, 216}, {255, 255}});
  for (double const x : {64.0, 192.0}) {
    double const left = (curve.At(x) - curve.At(x - 1e-4)) / 1e-4;
    double const right = (curve.At(x + 1e-4) - curve.At(x)) / 1e-4;
    EXPECT_NEAR(left, right, 1e-2);
    EXPECT_GT(left, 0.5);
  }
  // The weighted harmonic mean of 40/64 and 176/128, by hand.
  double const slope = 576.0 / (320.0 / 0.625 + 256.0 / 1.375);
  EXPECT_NEAR((curve.At(64.0 + 1e-5) - curve.At(64.0)) / 1e-5, slope, 1e-3);
}

TEST(ToneCurve, IsLevelWhereItTurns) {
  ToneCurve const curve({{0, 0}, {100, 200}, {255, 50}});
  EXPECT_NEAR((curve.At(100.0) - curve.At(99.999)) / 0.001, 0.0, 0.01);
  EXPECT_NEAR((curve.At(100.001) - curve.At(100.0)) / 0.001, 0.0, 0.01);
}

TEST(ToneCurve, IsLevelBeyondItsEnds) {
  ToneCurve const curve(kHills);
  EXPECT_EQ(curve.At(0.0), 20.0);
  EXPECT_EQ(curve.At(-1000.0), 20.0);
  EXPECT_EQ(curve.At(1000.0), 255.0);
  EXPECT_EQ(curve.At(std::numeric_limits<double>::quiet_NaN()), 20.0);
}

TEST(ToneCurve, InsertsPointsInTheirOrder) {
  ToneCurve curve;
  EXPECT_EQ(curve.Insert({128, 10}), 1u);
  EXPECT_EQ(curve.Insert({64, 20}), 1u);
  EXPECT_EQ(curve.Insert({200, 300}), 3u);
  EXPECT_EQ(curve.Points(), (std::vector<CurvePoint>{{0, 0}, {64, 20}, {128, 10}, {200, 255}, {255, 255}}));
}

TEST(ToneCurve, InsertsNothingWithoutRoom) {
  ToneCurve curve;
  EXPECT_FALSE(curve.Insert({0.5, 100}));
  EXPECT_FALSE(curve.Insert({255, 100}));
  EXPECT_FALSE(curve.Insert({-20, 100})) << "brought to 0, where a point is";
  EXPECT_EQ(curve, ToneCurve());
  EXPECT_TRUE(curve.Insert({1, 100}));
}

TEST(ToneCurve, HasABoundedNumberOfPoints) {
  ToneCurve curve;
  for (int x = 2; x < 250; x += 2) {
    curve.Insert({static_cast<double>(x), 0.0});
  }
  EXPECT_EQ(curve.PointCount(), ToneCurve::kMostPoints);
}

TEST(ToneCurve, MovesPointsNoFurtherThanTheirNeighbours) {
  ToneCurve curve(kHills);
  curve.Move(1, {300, -50});
  EXPECT_EQ(curve.Points()[1], (CurvePoint{89, 0}));
  curve.Move(1, {-300, 500});
  EXPECT_EQ(curve.Points()[1], (CurvePoint{11, 255}));
  curve.Move(0, {-5, 5});
  EXPECT_EQ(curve.Points()[0], (CurvePoint{0, 5}));
  curve.Move(5, {1000, 5});
  EXPECT_EQ(curve.Points()[5], (CurvePoint{255, 5}));
  EXPECT_EQ(curve.At(255), 5.0) << "slopes follow";
}

TEST(ToneCurve, KeepsItsFirstAndLastPoint) {
  ToneCurve curve(kHills);
  curve.Remove(0);
  curve.Remove(5);
  curve.Remove(99);
  EXPECT_EQ(curve.Points(), kHills);
  curve.Remove(2);
  EXPECT_EQ(curve.Points()[2], (CurvePoint{91, 0}));
  EXPECT_EQ(curve.PointCount(), 5u);
}

TEST(ToneCurve, IsMadeOfPointsInAnyOrderThatHaveRoom) {
  ToneCurve const curve({{200, 300}, {10, -4}, {200.5, 7}, {100, 50}});
  EXPECT_EQ(curve.Points(), (std::vector<CurvePoint>{{10, 0}, {100, 50}, {200, 255}}));
  EXPECT_EQ(ToneCurve({{5, 5}}), ToneCurve());
  EXPECT_EQ(ToneCurve(std::vector<CurvePoint>()), ToneCurve());
  double const nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(ToneCurve({{nan, nan}, {9, 9}}).Points(), (std::vector<CurvePoint>{{0, 0}, {9, 9}}));
}

}  // namespace
}  // namespace playground
