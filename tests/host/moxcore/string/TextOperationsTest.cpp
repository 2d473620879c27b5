#include <moxcore/string/Encoding.h>
#include <moxcore/string/TextOperations.h>

#include <gtest/gtest.h>

namespace moxcore::string {
namespace {

Utf16String Upper(Utf16String text) {
  ToUpperCase(text);
  return text;
}

TEST(ToUpperCase, MapsOneCharacterToOneInEveryScript) {
  EXPECT_EQ(Upper(u"Interview, outdoor 7"), u"INTERVIEW, OUTDOOR 7");
  EXPECT_EQ(Upper(u"äöüßéñçøå"), u"ÄÖÜßÉÑÇØÅ");
  EXPECT_EQ(Upper(u"ÿµıſ"), u"ŸΜIS");
  EXPECT_EQ(Upper(u"αβγςσ"), u"ΑΒΓΣΣ");
  EXPECT_EQ(Upper(u"привет ё"), u"ПРИВЕТ Ё");
  EXPECT_EQ(Upper(u"ǆǅᾳ"), u"ǄǄᾼ");
  EXPECT_EQ(Upper(u"ﬀŉ日本"), u"ﬀŉ日本");
  EXPECT_EQ(Upper(u"\U00010428"), u"\U00010400");
}

TEST(ToUpperCase, LeavesUnpairedSurrogatesAndEmptyTexts) {
  Utf16String const broken{0xdc00, u'a', 0xd800};
  EXPECT_EQ(Upper(broken), (Utf16String{0xdc00, u'A', 0xd800}));
  EXPECT_EQ(Upper(u""), u"");
}

TEST(ToUpperCase, KeepsTheLengthOfEveryCharacterAndIsDoneAfterOnce) {
  Utf16String all;
  for (char32_t c = 1; c < 0x20000; ++c) {
    if (c < 0xd800 || c > 0xdfff) {
      AppendCharacter(all, c);
    }
  }
  auto const once = Upper(all);
  EXPECT_EQ(once.size(), all.size());
  EXPECT_TRUE(Upper(once) == once);
}

TEST(Trim, TakesUnicodeWhiteSpaceOffOneEnd) {
  Utf16String text = u" \t\n\u00a0\u2003\u3000two words\u205f\r\u1680 ";
  LeftTrim(text);
  EXPECT_EQ(text, u"two words\u205f\r\u1680 ");
  RightTrim(text);
  EXPECT_EQ(text, u"two words");
}

TEST(Trim, WorksOnUtf8AndLeavesBrokenBytes) {
  Utf8String text = "\xe3\x80\x80 a\xe3\x80 \xc2\xa0";
  LeftTrim(text);
  EXPECT_EQ(text, "a\xe3\x80 \xc2\xa0");
  RightTrim(text);
  EXPECT_EQ(text, "a\xe3\x80");
}

TEST(Trim, EmptiesWhatIsAllSpaceAndKeepsZeroWidthCharacters) {
  Utf16String spaces = u" \u3000\u2028";
  LeftTrim(spaces);
  EXPECT_EQ(spaces, u"");
  spaces = u" \u3000\u2028";
  RightTrim(spaces);
  EXPECT_EQ(spaces, u"");
  Utf16String joined = u"\u200ba\ufeff";
  LeftTrim(joined);
  RightTrim(joined);
  EXPECT_EQ(joined, u"\u200ba\ufeff");
}

TEST(ReplaceInString, FillsEveryOccurrenceAndDoesNotScanWhatItPutIn) {
  Utf8String text = "@0 and @0, not @1";
  EXPECT_EQ(ReplaceInString(text, "@0", "<@0>"), 2u);
  EXPECT_EQ(text, "<@0> and <@0>, not @1");
  Utf16String wide = u"The preset '@0' did not load correctly.";
  EXPECT_EQ(ReplaceInString(wide, u"@0", u"Mono @0"), 1u);
  EXPECT_EQ(wide, u"The preset 'Mono @0' did not load correctly.");
}

TEST(ReplaceInString, TakesOccurrencesFromLeftToRight) {
  Utf8String text = "aaa";
  EXPECT_EQ(ReplaceInString(text, "aa", "b"), 1u);
  EXPECT_EQ(text, "ba");
  EXPECT_EQ(ReplaceInString(text, "", "x"), 0u);
  EXPECT_EQ(ReplaceInString(text, "z", "x"), 0u);
  EXPECT_EQ(ReplaceInString(text, "ba", ""), 1u);
  EXPECT_EQ(text, "");
}

TEST(ConvertFullWidthAndIdeographicCharacters, GivesAscii) {
  Utf16String text = u"０１２３４５６７８９＋－：；．，　。ー−、";
  ConvertFullWidthAndIdeographicCharacters(text);
  EXPECT_EQ(text, u"0123456789+-:;., .--,");
  text = u"Ａｚ＝ ｡､ｰ";
  ConvertFullWidthAndIdeographicCharacters(text);
  EXPECT_EQ(text, u"Az= .,-");
}

TEST(ConvertFullWidthAndIdeographicCharacters, LeavesAllElse) {
  Utf16String const before = u"01:02;03 日本 é ＀～\uff5f";
  auto text = before;
  ConvertFullWidthAndIdeographicCharacters(text);
  EXPECT_EQ(text, u"01:02;03 日本 é ＀~\uff5f");
}

}  // namespace
}  // namespace moxcore::string
