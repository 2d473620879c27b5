#include "Canvas.h"

#include <moxui/scriber/FontNames.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>

namespace moxui::scriber {
namespace {

FontP Font(float size = 12) {
  return Supplier().NewFont("", "", size);
}

// The rectangle of all that isn't black.
RectT<int> Ink(PixelGrid const& pixels) {
  int left = pixels.GetWidth();
  int top = pixels.GetHeight();
  int right = 0;
  int bottom = 0;
  for (int y = 0; y < pixels.GetHeight(); ++y) {
    for (int x = 0; x < pixels.GetWidth(); ++x) {
      if (!(pixels.At(x, y) == kBlackPixel)) {
        left = std::min(left, x);
        right = std::max(right, x + 1);
        top = std::min(top, y);
        bottom = std::max(bottom, y + 1);
      }
    }
  }
  return right > left ? RectT<int>::FromEdges(left, top, right, bottom) : RectT<int>{};
}

TEST(Font, AnswersItsMeasures) {
  FontP const font = Font(20);
  ASSERT_NE(font, nullptr);
  EXPECT_EQ(font->GetSize(), 20.0f);
  EXPECT_GT(font->GetAscent(), 14.0f);
  EXPECT_LT(font->GetAscent(), 28.0f);
  EXPECT_GT(font->GetDescent(), 2.0f);
  EXPECT_EQ(font->GetWidth(u""), 0.0f);
  EXPECT_GT(font->GetWidth(u"Wide"), font->GetWidth(u"Wid"));
  EXPECT_EQ(font->GetWidth(u"Wide"), font->GetWidth(u"Wide"));
}

TEST(Font, MeasuresGrowWithTheSizeAlsoInFractions) {
  EXPECT_NEAR(Font(24)->GetWidth(u"Channel 12"), 2 * Font(12)->GetWidth(u"Channel 12"), 0.5);
  EXPECT_GT(Font(12.5f)->GetWidth(u"Channel 12"), Font(12)->GetWidth(u"Channel 12"));
  EXPECT_NEAR(Font(24)->GetAscent(), 2 * Font(12)->GetAscent(), 0.5);
}

TEST(Font, BoldIsWider) {
  FontP const bold = Supplier().NewFont("", "Bold", 12);
  EXPECT_GT(bold->GetWidth(u"Weight of text"), Font()->GetWidth(u"Weight of text"));
  EXPECT_EQ(Supplier().NewFont("", "Regular", 12)->GetWidth(u"Weight"), Font()->GetWidth(u"Weight"));
}

TEST(Font, OfAnUnknownFamilyIsTheHouseFont) {
  FontP const unknown = Supplier().NewFont("No Such Family 4711", "", 12);
  FontP const house = Supplier().NewFont(utils::ValidateFontName(""), "", 12);
  ASSERT_NE(unknown, nullptr);
  EXPECT_EQ(unknown->GetWidth(u"The quick brown fox"), house->GetWidth(u"The quick brown fox"));
}

TEST(Font, OfAnySizeIsUsable) {
  for (float const size :
       {-5.0f, 0.0f, 1e9f, std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
    FontP const font = Supplier().NewFont("", "", size);
    ASSERT_NE(font, nullptr) << size;
    EXPECT_GT(font->GetAscent(), 0.0f);
    Canvas canvas(20, 20);
    canvas->DrawText(u"A", {0, 20}, *font, ColorRGBAFixed::White);
  }
}

TEST(FontNames, AreKeptIfTheyExistAndReplacedIfNot) {
  moxcore::Utf8String const house = utils::ValidateFontName("No Such Family 4711");
  EXPECT_FALSE(house.empty());
  EXPECT_EQ(utils::ValidateFontName(house), house);
  EXPECT_EQ(utils::ValidateFontName(""), house);
}

TEST(Text, StandsOnItsBaseline) {
  for (float const scale : {1.0f, 2.0f}) {
    Canvas canvas(60, 40, scale);
    canvas->DrawText(u"HH", {10, 30}, *Font(20), ColorRGBAFixed::White);
    RectT<int> const ink = Ink(canvas.Pixels());
    EXPECT_NEAR(static_cast<float>(ink.Bottom()), 30 * scale, 1) << scale;
    EXPECT_NEAR(static_cast<float>(ink.height), 14.3f * scale, 1.5) << "the height of capitals";
    EXPECT_NEAR(static_cast<float>(ink.left), 12 * scale, 1.5 * static_cast<double>(scale));
  }
}

TEST(Text, AlignmentMovesItByItsWidth) {
  FontP const font = Font();
  auto const width = font->GetWidth(u"Aligned");
  auto const inkOf = [&](TextAlignment alignment) {
    Canvas canvas(200, 30);
    canvas->DrawText(u"Aligned", {100, 20}, *font, ColorRGBAFixed::White, alignment);
    return Ink(canvas.Pixels());
  };
  RectT<int> const left = inkOf(TextAlignment::kLeft);
  EXPECT_NEAR(static_cast<float>(left.left - inkOf(TextAlignment::kCenter).left), width / 2, 1.0);
  EXPECT_NEAR(static_cast<float>(left.left - inkOf(TextAlignment::kRight).left), width, 1.0);
  EXPECT_GE(left.left, 100);
}

TEST(Text, OfInterfaceContentIsSnappedToPixels) {
  auto const painted = [](PointT<float> at, DrawingMode mode) {
    Canvas canvas(60, 30);
    canvas->SetDrawingMode(mode);
    canvas->DrawText(u"Snap", at, *Font(), ColorRGBAFixed::White);
    return canvas.Pixels();
  };
  auto const differ = [](PixelGrid const& a, PixelGrid const& b) {
    int count = 0;
    for (int y = 0; y < a.GetHeight(); ++y) {
      for (int x = 0; x < a.GetWidth(); ++x) {
        count += a.At(x, y) == b.At(x, y) ? 0 : 1;
      }
    }
    return count;
  };
  EXPECT_EQ(
      differ(painted({10, 20}, DrawingMode::kInterface), painted({10.4f, 19.7f}, DrawingMode::kInterface)),
      0);
  EXPECT_GT(differ(painted({10, 20}, DrawingMode::kMedia), painted({10.4f, 19.7f}, DrawingMode::kMedia)), 0);
}

TEST(Text, IsDrawnInItsColourWithGreyEdges) {
  Canvas canvas(60, 30);
  canvas->DrawText(u"Grey", {5, 20}, *Font(20), {1, 1, 1, 0.5f});
  PixelGrid const pixels = canvas.Pixels();
  int brightest = 0;
  for (int y = 0; y < 30; ++y) {
    for (int x = 0; x < 60; ++x) {
      Pixel const pixel = pixels.At(x, y);
      EXPECT_EQ(pixel.red, pixel.green) << "no coloured fringes";
      EXPECT_EQ(pixel.red, pixel.blue);
      brightest = std::max(brightest, pixel.red);
    }
  }
  EXPECT_NEAR(brightest, 128, 6);
}

TEST(Text, TheSameTwiceIsDrawnTheSameWay) {
  auto const painted = [] {
    Canvas canvas(60, 30);
    canvas->DrawText(u"Again", {5, 20}, *Font(), ColorRGBAFixed::White);
    return canvas.Pixels().CountOther(kBlackPixel);
  };
  EXPECT_EQ(painted(), painted());
}

TEST(Text, KnownAtOneScaleIsDrawnAnewAtAnother) {
  FontP const font = Font();
  auto const widthAt = [&](float scale) {
    Canvas canvas(100, 30, scale);
    canvas->DrawText(u"Two scales", {5, 20}, *font, ColorRGBAFixed::White);
    return static_cast<float>(Ink(canvas.Pixels()).width);
  };
  float const one = widthAt(1);
  EXPECT_NEAR(widthAt(2), 2 * one, 3);
  EXPECT_NEAR(widthAt(1), one, 0.1);
}

TEST(TextInBox, WrapsAtWordsFromTheTop) {
  FontP const font = Font();
  float const line = font->GetAscent() + font->GetDescent();
  Canvas canvas(100, 100);
  canvas->DrawTextInBox(u"some words some words", {10, 10, font->GetWidth(u"some words") + 2, 80}, *font,
                        ColorRGBAFixed::White, TextAlignment::kLeft);
  RectT<int> const ink = Ink(canvas.Pixels());
  EXPECT_GE(ink.top, 10);
  EXPECT_LT(static_cast<float>(ink.top), 10 + line);
  EXPECT_GT(static_cast<float>(ink.height), line);
  EXPECT_LT(static_cast<float>(ink.height), 2 * line) << "two lines";
  EXPECT_LE(static_cast<float>(ink.Right()), 10 + font->GetWidth(u"some words") + 3);
}

TEST(TextInBox, IsCutAtTheBottomAndTheSides) {
  Canvas canvas(100, 100);
  canvas->DrawTextInBox(u"many words that need far more lines than the box is high", {10, 10, 50, 20},
                        *Font(), ColorRGBAFixed::White, TextAlignment::kCenter);
  canvas->DrawTextInBox(u"Unbreakablewordlongerthanthebox", {10, 60, 20, 10}, *Font(), ColorRGBAFixed::White,
                        TextAlignment::kLeft);
  RectT<int> const ink = Ink(canvas.Pixels());
  EXPECT_GE(ink.left, 10);
  EXPECT_LE(ink.Right(), 60);
  EXPECT_LE(ink.Bottom(), 70);
}

TEST(TextInBox, IsCentredLineByLine) {
  FontP const font = Font();
  Canvas canvas(200, 60);
  canvas->DrawTextInBox(u"Centre", {20, 10, 160, 40}, *font, ColorRGBAFixed::White, TextAlignment::kCenter);
  RectT<int> const ink = Ink(canvas.Pixels());
  EXPECT_NEAR(ink.left + ink.width * 0.5, 100, 1.5);
}

TEST(TextInBox, KeepsLineBreaks) {
  FontP const font = Font();
  Canvas canvas(200, 60);
  canvas->DrawTextInBox(u"a\nb", {20, 10, 160, 50}, *font, ColorRGBAFixed::White, TextAlignment::kLeft);
  EXPECT_GT(static_cast<float>(Ink(canvas.Pixels()).height), font->GetAscent());
}

TEST(TextInBox, OfAnEmptyBoxOrTextShowsNothing) {
  Canvas canvas(60, 60);
  canvas->DrawTextInBox(u"text", {10, 10, 0, 40}, *Font(), ColorRGBAFixed::White, TextAlignment::kLeft);
  canvas->DrawTextInBox(u"text", {10, 10, 40, -1}, *Font(), ColorRGBAFixed::White, TextAlignment::kLeft);
  canvas->DrawTextInBox(u"", {10, 10, 40, 40}, *Font(), ColorRGBAFixed::White, TextAlignment::kLeft);
  canvas->DrawText(u"", {10, 10}, *Font(), ColorRGBAFixed::White);
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 0);
}

}  // namespace
}  // namespace moxui::scriber
