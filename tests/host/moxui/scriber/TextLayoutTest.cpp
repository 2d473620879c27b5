#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/FontNames.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/TextLayoutInterface.h>
#include <moxui/ui/UI_NodeManager.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string_view>

namespace moxui::scriber {
namespace {

class TextLayout : public ::testing::Test {
 protected:
  TextLayoutP LayOut(std::u16string_view text, float width = 0.0f,
                     TextAlignment alignment = TextAlignment::kLeft) const {
    return font->NewTextLayout(text, width, alignment);
  }

  FontP font = ui::UI_NodeManager::Get(true)->GetDefaultDrawSupplier()->NewFont(utils::ValidateFontName({}),
                                                                                "", 12.0f);
};

TEST_F(TextLayout, OfNothingHasOneEmptyLine) {
  TextLayoutP const layout = LayOut(u"");
  ASSERT_EQ(layout->GetLines().size(), 1u);
  EXPECT_EQ(layout->GetLines()[0].begin, 0u);
  EXPECT_EQ(layout->GetLines()[0].end, 0u);
  EXPECT_FLOAT_EQ(layout->GetCaretX(0, 0), 0.0f);
  EXPECT_EQ(layout->GetPositionAt(0, 50.0f), 0u);
}

TEST_F(TextLayout, BreaksAtLineFeeds) {
  TextLayoutP const layout = LayOut(u"ab\n\ncd\n");
  auto const lines = layout->GetLines();
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[0].end, 2u);
  EXPECT_EQ(lines[1].begin, 3u);
  EXPECT_EQ(lines[1].end, 3u);
  EXPECT_EQ(lines[2].begin, 4u);
  EXPECT_EQ(lines[3].begin, 7u);
  EXPECT_FALSE(lines[0].isWrapped);
  EXPECT_FLOAT_EQ(lines[3].top, 3.0f * lines[0].height);
}

TEST_F(TextLayout, WrapsAtWordsAndWithinLongOnes) {
  float const width = font->GetWidth(u"second wo");
  TextLayoutP const layout = LayOut(u"second word", width);
  ASSERT_EQ(layout->GetLines().size(), 2u);
  EXPECT_TRUE(layout->GetLines()[0].isWrapped);
  EXPECT_EQ(layout->GetLines()[0].end, 7u);  // the blank goes with the line
  EXPECT_EQ(layout->GetLines()[1].begin, 7u);
  EXPECT_GT(LayOut(u"incomprehensibilities", width)->GetLines().size(), 1u);
  EXPECT_EQ(LayOut(u"second word", 0.0f)->GetLines().size(), 1u);
}

TEST_F(TextLayout, CaretsStandWhereTheTextBeforeThemEnds) {
  TextLayoutP const layout = LayOut(u"abc ");
  EXPECT_NEAR(layout->GetCaretX(0, 2), font->GetWidth(u"ab"), 0.1f);
  EXPECT_NEAR(layout->GetCaretX(0, 4), font->GetWidth(u"abc "), 0.1f);
  EXPECT_NEAR(layout->GetLines()[0].width, font->GetWidth(u"abc "), 0.1f);
  EXPECT_EQ(layout->GetPositionAt(0, font->GetWidth(u"ab")), 2u);
  EXPECT_EQ(layout->GetPositionAt(0, 1000.0f), 4u);
  EXPECT_FLOAT_EQ(layout->GetCaretX(0, 99), layout->GetCaretX(0, 4));
}

TEST_F(TextLayout, AlignsEachLineInTheWidth) {
  float const width = font->GetWidth(u"ab");
  auto const leftOf = [&](TextAlignment alignment) {
    return LayOut(u"ab", 100.0f, alignment)->GetCaretX(0, 0);
  };
  EXPECT_FLOAT_EQ(leftOf(TextAlignment::kLeft), 0.0f);
  EXPECT_NEAR(leftOf(TextAlignment::kCenter), (100.0f - width) / 2.0f, 0.5f);
  EXPECT_NEAR(leftOf(TextAlignment::kRight), 100.0f - width, 0.5f);
}

TEST_F(TextLayout, CaretsOfTextFromTheRightGoToTheLeft) {
  TextLayoutP const layout = LayOut(u"\u05D0\u05D1\u05D2");
  EXPECT_TRUE(layout->GetLines()[0].isRightToLeft);
  EXPECT_GT(layout->GetCaretX(0, 0), layout->GetCaretX(0, 1));
  EXPECT_NEAR(layout->GetCaretX(0, 3), 0.0f, 0.1f);
  EXPECT_EQ(layout->GetPositionAt(0, -5.0f), 3u);
  EXPECT_EQ(layout->GetPositionAt(0, 1000.0f), 0u);
}

TEST_F(TextLayout, AStretchOfBothDirectionsLiesInPieces) {
  // Seen as "ab <CBA>": from within the letters to the last of the others it isn't one piece.
  TextLayoutP const layout = LayOut(u"ab \u05D0\u05D1\u05D2");
  auto const spans = layout->GetSpans(0, 1, 4);
  ASSERT_EQ(spans.size(), 2u);
  EXPECT_LT(spans[0].end, spans[1].begin);
  EXPECT_EQ(layout->GetSpans(0, 0, 6).size(), 1u);
  EXPECT_TRUE(layout->GetSpans(0, 3, 3).empty());
}

TEST_F(TextLayout, NeverStandsWithinACharacter) {
  TextLayoutP const layout = LayOut(u"a\U0001F3ACb");
  for (float x = 0.0f; x < layout->GetLines()[0].width; x += 0.5f) {
    EXPECT_NE(layout->GetPositionAt(0, x), 2u);
  }
}

TEST_F(TextLayout, TakesWhatNoTextShouldHave) {
  for (std::u16string_view const text :
       {std::u16string_view(u"\xD800"), std::u16string_view(u"a\xDC00z"),
        std::u16string_view(u"\u202E\u202Dx"), std::u16string_view(u"\u200F\u200E"),
        std::u16string_view(u"\u0301\u0301"), std::u16string_view(u"a\0b", 3),
        std::u16string_view(u"\u2028x\u2029")}) {
    for (float const width : {0.0f, 1.0f, 40.0f}) {
      TextLayoutP const layout = LayOut(text, width);
      for (std::size_t line = 0; line < layout->GetLines().size(); ++line) {
        for (std::size_t position = 0; position <= text.size() + 1; ++position) {
          EXPECT_TRUE(std::isfinite(layout->GetCaretX(line, position)));
          layout->GetSpans(line, position, text.size());
        }
        EXPECT_LE(layout->GetPositionAt(line, 20.0f), text.size());
      }
    }
  }
}

}  // namespace
}  // namespace moxui::scriber
