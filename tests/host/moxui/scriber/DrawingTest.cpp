#include "Canvas.h"

#include <moxui/scriber/Drawing.h>
#include <moxui/scriber/RoundedRect.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace moxui::utils {
namespace {

using scriber::Canvas;
using scriber::kBlackPixel;
using scriber::kWhitePixel;
using scriber::PathP;
using scriber::PixelGrid;
using scriber::Supplier;
using scriber::TextAlignment;

TEST(Drawing, DrawRectFills) {
  Canvas canvas(20, 20);
  DrawRect(&canvas.GetScriber(), {2, 3, 4, 5}, ColorRGBAFixed::White);
  EXPECT_EQ(canvas.Coverage(2, 3), 255);
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 20);
}

TEST(Drawing, OutlineIsCentredOnTheEdge) {
  Canvas canvas(30, 30);
  DrawOutline(&canvas.GetScriber(), {5, 5, 20, 20}, ColorRGBAFixed::White, 2);
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 22 * 22 - 18 * 18);
  EXPECT_EQ(canvas.Coverage(4, 4), 255) << "square corners";
  EXPECT_EQ(canvas.Coverage(5, 15), 255);
  EXPECT_EQ(canvas.Coverage(6, 15), 0);
}

TEST(Drawing, OutlineOfThickness2AndAHalfReachesOneAndAQuarterOut) {
  Canvas canvas(30, 30);
  DrawOutline(&canvas.GetScriber(), {5, 5, 20, 20}, ColorRGBAFixed::White, 2.5f);
  EXPECT_EQ(canvas.Coverage(4, 15), 255);
  EXPECT_NEAR(canvas.Coverage(3, 15), 64, 2);
  EXPECT_NEAR(canvas.Coverage(6, 15), 64, 2);
}

TEST(Drawing, OutlineDrawsTheEdgesAskedFor) {
  for (int bits = 0; bits < 16; ++bits) {
    FourEdgeTupleT<bool> const edges{(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0, (bits & 8) != 0};
    for (float const radius : {0.0f, 4.0f}) {
      Canvas canvas(30, 30);
      DrawOutline(&canvas.GetScriber(), {5, 5, 20, 20}, ColorRGBAFixed::White, 2, edges, radius);
      EXPECT_EQ(canvas.Coverage(5, 15), edges.left ? 255 : 0) << bits;
      EXPECT_EQ(canvas.Coverage(15, 5), edges.top ? 255 : 0) << bits;
      EXPECT_EQ(canvas.Coverage(24, 15), edges.right ? 255 : 0) << bits;
      EXPECT_EQ(canvas.Coverage(15, 24), edges.bottom ? 255 : 0) << bits;
    }
  }
}

TEST(Drawing, OutlineRoundsTheCornersAskedFor) {
  Canvas canvas(40, 40);
  DrawOutline(&canvas.GetScriber(), {5, 5, 30, 30}, ColorRGBAFixed::White, 2, kAllEdges, 8,
              {.left = false, .top = true, .right = false, .bottom = true});
  EXPECT_EQ(canvas.Coverage(5, 5), 0) << "top left is rounded";
  EXPECT_EQ(canvas.Coverage(34, 5), 255) << "top right is square";
  EXPECT_EQ(canvas.Coverage(34, 34), 0) << "bottom right is rounded";
  EXPECT_EQ(canvas.Coverage(5, 34), 255) << "bottom left is square";
}

TEST(Drawing, OutlineOfNothingShowsNothing) {
  Canvas canvas(30, 30);
  DrawOutline(&canvas.GetScriber(), {5, 5, 0, 20}, ColorRGBAFixed::White, 2);
  DrawOutline(&canvas.GetScriber(), {5, 5, 20, 20}, ColorRGBAFixed::White, 0);
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 0);
}

PixelGrid Filled(PathP const& path) {
  Canvas canvas(30, 30);
  canvas->FillPath(*path, *scriber::WhiteBrush(), scriber::FillRule::kWinding);
  return canvas.Pixels();
}

TEST(RoundedRect, OfRadius0IsTheRectangle) {
  PathP path = Supplier().NewPath();
  FormRoundedRect(path, {5, 5, 20, 10}, 0);
  EXPECT_EQ(Filled(path).CountOther(kBlackPixel), 200);
  PathP const other = Supplier().NewPath();
  GetRoundedRectPath(other, {5, 5, 20, 10}, 0.0f);
  EXPECT_EQ(Filled(other).CountOther(kBlackPixel), 200);
}

TEST(RoundedRect, LosesItsCornersOnly) {
  PathP path = Supplier().NewPath();
  FormRoundedRect(path, {5, 5, 20, 20}, 6);
  PixelGrid const pixels = Filled(path);
  EXPECT_EQ(pixels.At(5, 5), kBlackPixel);
  EXPECT_EQ(pixels.At(24, 5), kBlackPixel);
  EXPECT_EQ(pixels.At(5, 24), kBlackPixel);
  EXPECT_EQ(pixels.At(24, 24), kBlackPixel);
  EXPECT_EQ(pixels.At(15, 5), kWhitePixel);
  EXPECT_EQ(pixels.At(5, 15), kWhitePixel);
  EXPECT_EQ(pixels.At(24, 15), kWhitePixel);
  EXPECT_EQ(pixels.At(7, 7), kWhitePixel);
}

TEST(RoundedRect, RadiusIsAtMostHalfOfTheSmallerExtent) {
  PathP path = Supplier().NewPath();
  FormRoundedRect(path, {5, 5, 20, 10}, 100);
  PixelGrid const pixels = Filled(path);
  EXPECT_EQ(pixels.At(15, 5), kWhitePixel);
  EXPECT_EQ(pixels.At(5, 5), kBlackPixel);
  EXPECT_GT(pixels.At(5, 10).red, 200);
}

TEST(RoundedRect, IsAppended) {
  PathP path = Supplier().NewPath();
  path->AddRect({1, 1, 2, 2});
  FormRoundedRect(path, {5, 5, 20, 10}, 0);
  FormRoundedRect(path, {5, 5, -20, 10}, 3);
  EXPECT_EQ(Filled(path).CountOther(kBlackPixel), 204);
}

TEST(RoundedRect, EachCornerCanBeSquare) {
  PathP path = Supplier().NewPath();
  FormRoundedRect(path, {5, 5, 20, 20}, 6, {.left = true, .top = false, .right = true, .bottom = false});
  PixelGrid const pixels = Filled(path);
  EXPECT_EQ(pixels.At(5, 5), kWhitePixel);
  EXPECT_EQ(pixels.At(24, 5), kBlackPixel);
  EXPECT_EQ(pixels.At(24, 24), kWhitePixel);
  EXPECT_EQ(pixels.At(5, 24), kBlackPixel);
}

// Left and right ends of what is drawn into a box.
struct Ends {
  int left = 1000;
  int right = 0;
  int top = 1000;
  int bottom = 0;
};

Ends DrawnEnds(std::u16string const& text, RectT<float> const& box, TextAlignment alignment) {
  Canvas canvas(200, 60);
  DrawString(&canvas.GetScriber(), text, box, alignment, "", 12.0f, ColorRGBAFixed::White);
  PixelGrid const pixels = canvas.Pixels();
  Ends ends;
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 200; ++x) {
      if (!(pixels.At(x, y) == kBlackPixel)) {
        ends.left = std::min(ends.left, x);
        ends.right = std::max(ends.right, x + 1);
        ends.top = std::min(ends.top, y);
        ends.bottom = std::max(ends.bottom, y + 1);
      }
    }
  }
  return ends;
}

TEST(DrawString, AlignsInTheBox) {
  RectT<float> const box{20, 10, 160, 30};
  EXPECT_NEAR(DrawnEnds(u"HIH", box, TextAlignment::kLeft).left, 21, 1.5);
  EXPECT_NEAR(DrawnEnds(u"HIH", box, TextAlignment::kRight).right, 179, 1.5);
  Ends const centred = DrawnEnds(u"HIH", box, TextAlignment::kCenter);
  EXPECT_NEAR((centred.left + centred.right) / 2.0, 100, 1.0);
}

TEST(DrawString, StandsInTheMiddleOfTheHeight) {
  Ends const ends = DrawnEnds(u"HIH", {20, 10, 160, 30}, TextAlignment::kLeft);
  EXPECT_NEAR((ends.top + ends.bottom) / 2.0, 25, 2.0);
}

TEST(DrawString, TooLongIsCutAtItsEndWithAnEllipsis) {
  RectT<float> const box{20, 10, 60, 30};
  for (TextAlignment const alignment :
       {TextAlignment::kLeft, TextAlignment::kCenter, TextAlignment::kRight}) {
    Ends const ends = DrawnEnds(u"A name much too long for it", box, alignment);
    EXPECT_GE(ends.left, 19);
    EXPECT_LE(ends.right, 81);
    EXPECT_GT(ends.right - ends.left, 40);
  }
  scriber::FontP const font = Supplier().NewFont("", "", 12);
  Canvas cut(200, 60);
  DrawString(&cut.GetScriber(), u"MMMMMMMMMM", {0, 0, font->GetWidth(u"MM\u2026") + 1, 20},
             TextAlignment::kLeft, *font, ColorRGBAFixed::White);
  Canvas expected(200, 60);
  DrawString(&expected.GetScriber(), u"MM\u2026", {0, 0, 100, 20}, TextAlignment::kLeft, *font,
             ColorRGBAFixed::White);
  EXPECT_EQ(cut.Pixels().CountOther(kBlackPixel), expected.Pixels().CountOther(kBlackPixel));
}

TEST(DrawString, NothingGoesIntoAnEmptyBox) {
  EXPECT_EQ(DrawnEnds(u"text", {20, 10, 0, 30}, TextAlignment::kLeft).right, 0);
  EXPECT_EQ(DrawnEnds(u"", {20, 10, 50, 30}, TextAlignment::kLeft).right, 0);
}

TEST(DrawString, SurrogatesAreNotCutApart) {
  Ends const ends = DrawnEnds(u"\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600",
                              {20, 10, 40, 30}, TextAlignment::kLeft);
  EXPECT_LE(ends.right, 61);
}

}  // namespace
}  // namespace moxui::utils
