#include <moxcore/string/Encoding.h>

#include <gtest/gtest.h>

namespace moxcore::string {
namespace {

TEST(Encoding, ConvertsEveryCharacterBothWays) {
  Utf8String utf8;
  Utf16String utf16;
  for (char32_t c = 0; c <= 0x10ffff; ++c) {
    if (c < 0xd800 || c > 0xdfff) {
      AppendCharacter(utf8, c);
      AppendCharacter(utf16, c);
    }
  }
  EXPECT_TRUE(UTF8to16(utf8) == utf16);
  EXPECT_TRUE(UTF16to8(utf16) == utf8);
}

TEST(Encoding, KeepsEmptyTextsAndNulCharacters) {
  EXPECT_TRUE(UTF8to16("").empty());
  EXPECT_TRUE(UTF16to8(u"").empty());
  EXPECT_EQ(UTF8to16(std::string_view("a\0b", 3)), Utf16String(u"a\0b", 3));
}

TEST(Encoding, ReplacesEachMaximalPartOfABrokenSequence) {
  // The example of the Unicode standard, section 3.9.
  EXPECT_EQ(UTF8to16("a\xf1\x80\x80\xe1\x80\xc2"
                     "b\x80"
                     "c\x80\xbf"
                     "d"),
            u"a\ufffd\ufffd\ufffd"
            u"b\ufffd"
            u"c\ufffd\ufffd"
            u"d");
}

TEST(Encoding, RefusesOverlongFormsSurrogatesAndWhatIsBeyondTheLastCharacter) {
  EXPECT_EQ(UTF8to16("\xc0\xaf"), u"\ufffd\ufffd");
  EXPECT_EQ(UTF8to16("\xe0\x80\x80"), u"\ufffd\ufffd\ufffd");
  EXPECT_EQ(UTF8to16("\xed\xa0\x80"), u"\ufffd\ufffd\ufffd");
  EXPECT_EQ(UTF8to16("\xf0\x80\x80\x80"), u"\ufffd\ufffd\ufffd\ufffd");
  EXPECT_EQ(UTF8to16("\xf4\x90\x80\x80"), u"\ufffd\ufffd\ufffd\ufffd");
  EXPECT_EQ(UTF8to16("\xff"), u"\ufffd");
  EXPECT_EQ(UTF8to16("\xe2\x82"), u"\ufffd");
}

TEST(Encoding, ReplacesUnpairedSurrogates) {
  char16_t const text[] = {0xd800, u'a', 0xdc00, 0xd801, 0xdc37, 0xdbff};
  EXPECT_EQ(UTF16to8({text, 6}),
            "\xef\xbf\xbd"
            "a\xef\xbf\xbd\xf0\x90\x90\xb7\xef\xbf\xbd");
}

TEST(Encoding, ReplacesWhatIsNotAscii) {
  EXPECT_EQ(AsciiToUTF16("Az~\x7f"), u"Az~\u007f");
  EXPECT_EQ(AsciiToUTF16("a\xc3\xa4"), u"a\ufffd\ufffd");
}

TEST(Encoding, AppendsTheReplacementForWhatIsNoCharacter) {
  Utf8String text;
  AppendCharacter(text, 0xd800);
  AppendCharacter(text, 0x110000);
  EXPECT_EQ(text, "\xef\xbf\xbd\xef\xbf\xbd");
}

}  // namespace
}  // namespace moxcore::string
