#include <moxcore/config/ApplicationName.h>
#include <moxcore/config/Catalogue.h>
#include <moxcore/config/Errors.h>
#include <moxcore/config/Localizer.h>
#include <moxcore/string/Encoding.h>
#include <moxcore/string/TextOperations.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <thread>
#include <utility>

namespace moxcore::config {
namespace {

Catalogue MadeOf(std::string_view language, std::map<Utf8String, Utf8String, std::less<>> texts) {
  Catalogue catalogue;
  catalogue.language = language;
  catalogue.texts = std::move(texts);
  return catalogue;
}

class LocalizerTest : public testing::Test {
 protected:
  ~LocalizerTest() override { localizer.SetLanguage(""); }
  Utf8String Text(std::string_view literal) { return localizer.GetUTF8String(literal); }

  Localizer& localizer = Localizer::Get();
};

TEST_F(LocalizerTest, GivesTheDefaultText) {
  EXPECT_EQ(Text("$$$/aui/ChannelsPopup/Custom=Custom..."), "Custom...");
  EXPECT_EQ(localizer.GetUTF16String("$$$/aui/ChannelsPopup/Custom=Custom..."), u"Custom...");
}

TEST_F(LocalizerTest, GivesATextWithoutAHeadAsItStands) {
  for (auto const* text : {"", "My preset", "a=b", "$$$", "$$/a=b", " $$$/a=b", "x#{comment}y",
                           "#{U+2022}\\n", "$$$/no/default"}) {
    EXPECT_EQ(Text(text), text);
  }
}

TEST_F(LocalizerTest, SplitsAtTheFirstEqualsSign) {
  EXPECT_EQ(Text("$$$/a/b=1 = 1"), "1 = 1");
  EXPECT_EQ(Text("$$$/a/b="), "");
  EXPECT_EQ(Text("$$$/moxmediatypes/AudioChannelLayout/5.1=5.1"), "5.1");
}

TEST_F(LocalizerTest, DropsTheRemark) {
  EXPECT_EQ(Text("$$$/a/b=Number#{comment} of a channel"), "Number");
  EXPECT_EQ(Text("$$$/a/b=#{comment}"), "");
  EXPECT_EQ(Text("$$$/a/b=Copy #{comment}#{U+2022}"), "Copy ");
}

TEST_F(LocalizerTest, DecodesCharactersByTheirNumber) {
  EXPECT_EQ(Text("$$$/Stagecut/Graphics/CapsuleKeywordsView/Separator=#{U+2022}"), "\xe2\x80\xa2");
  EXPECT_EQ(Text("$$$/a/b=x#{U+1f600}y#{U+e4}"), "x\xf0\x9f\x98\x80y\xc3\xa4");
  EXPECT_EQ(localizer.GetUTF16String("$$$/a/b=#{U+2022}"), u"\u2022");
}

TEST_F(LocalizerTest, KeepsWhatOnlyLooksLikeANumberedCharacter) {
  for (auto const* text : {"#{U+}", "#{U+20", "#{U+20xx}", "#{U+-20}", "#{", "#", "#{u+2022}"}) {
    EXPECT_EQ(Text(Utf8String("$$$/a/b=") + text), text);
  }
  EXPECT_EQ(Text("$$$/a/b=#{U+D800}#{U+110000}#{U+fffffffff}"), "\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd");
}

TEST_F(LocalizerTest, KnowsLineBreaksAsCharactersAndAsEscapes) {
  EXPECT_EQ(Text("$$$/a/b=Temperature (Vertical)\nTint (Horizontal)"),
            "Temperature (Vertical)\nTint (Horizontal)");
  EXPECT_EQ(Text("$$$/a/b=Temperature (Vertical)\\nTint (Horizontal)"),
            "Temperature (Vertical)\nTint (Horizontal)");
}

TEST_F(LocalizerTest, TranslatesByTheKeyAlone) {
  localizer.AddCatalogue(MadeOf("xa", {{"$$$/t/Copied", "Kopie von @0"}, {"$$$/t/Dot", "<#{U+2022}>"}}));
  localizer.SetLanguage("xa");
  EXPECT_EQ(localizer.GetLanguage(), "xa");
  auto text = Text("$$$/t/Copied=@0 copy#{comment} name of a copy");
  string::ReplaceInString(text, "@0", "Mono");
  EXPECT_EQ(text, "Kopie von Mono");
  EXPECT_EQ(Text("$$$/t/Copied=changed default"), "Kopie von @0");
  EXPECT_EQ(Text("$$$/t/Dot=x"), "<\xe2\x80\xa2>");
  EXPECT_EQ(Text("$$$/t/Other=Other"), "Other");
  localizer.SetLanguage("");
  EXPECT_EQ(Text("$$$/t/Copied=@0 copy"), "@0 copy");
}

TEST_F(LocalizerTest, SeeksATextInTheWiderLanguageToo) {
  localizer.AddCatalogue(MadeOf("xb", {{"$$$/t/A", "wide A"}, {"$$$/t/B", "wide B"}}));
  localizer.AddCatalogue(MadeOf("xb_BR", {{"$$$/t/A", "narrow A"}}));
  localizer.SetLanguage("xb-BR");
  EXPECT_EQ(Text("$$$/t/A=a"), "narrow A");
  EXPECT_EQ(Text("$$$/t/B=b"), "wide B");
  localizer.SetLanguage("xb");
  EXPECT_EQ(Text("$$$/t/A=a"), "wide A");
}

TEST_F(LocalizerTest, LetsLaterCataloguesOfALanguageWin) {
  localizer.AddCatalogue(MadeOf("xc", {{"$$$/t/A", "first"}, {"$$$/t/B", "first"}}));
  localizer.AddCatalogue(MadeOf("xc", {{"$$$/t/A", "second"}}));
  localizer.SetLanguage("xc");
  EXPECT_EQ(Text("$$$/t/A=a") + "/" + Text("$$$/t/B=b"), "second/first");
}

TEST_F(LocalizerTest, ListsItsLanguages) {
  localizer.AddCatalogue(MadeOf("xd", {}));
  localizer.AddCatalogue(MadeOf("", {{"$$$/t/A", "lost"}}));
  auto const languages = localizer.GetLanguages();
  EXPECT_THAT(languages, testing::Contains("xd"));
  EXPECT_THAT(languages, testing::Not(testing::Contains("")));
  EXPECT_EQ(languages.back(), Localizer::kPseudoLanguage);
}

TEST_F(LocalizerTest, TellsWhenTheLanguageOrItsTextsChange) {
  int changes = 0;
  messaging::ScopedConnection const connection = localizer.ConnectLanguageChanged([&] { ++changes; });
  localizer.SetLanguage("xe");
  EXPECT_EQ(changes, 1);
  localizer.SetLanguage("xe");
  EXPECT_EQ(changes, 1);
  localizer.AddCatalogue(MadeOf("xe", {{"$$$/t/A", "new"}}));
  EXPECT_EQ(changes, 2);
}

TEST_F(LocalizerTest, LocalizesErrors) {
  localizer.AddCatalogue(MadeOf("xf", {{"$$$/t/Error", "Zeile @1 von @0"}}));
  localizer.SetLanguage("xf");
  try {
    ThrowError(ErrorLevel::kError, __FILE__, __LINE__, "$$$/t/Error=@0, line @1", false, "a.txt", 3);
    FAIL();
  } catch (mox_exception const& error) {
    EXPECT_STREQ(error.what(), "Zeile 3 von a.txt");
  }
}

TEST_F(LocalizerTest, MayBeAskedWhileAnotherThreadChangesTheLanguage) {
  localizer.AddCatalogue(MadeOf("xg", {{"$$$/t/A", "translated"}}));
  std::thread changing([this] {
    for (int i = 0; i < 300; ++i) {
      localizer.SetLanguage(i % 2 == 0 ? "xg" : "");
      localizer.AddCatalogue(MadeOf("xg", {{"$$$/t/A", "translated"}}));
    }
  });
  for (int i = 0; i < 300; ++i) {
    auto const text = Text("$$$/t/A=default");
    EXPECT_TRUE(text == "translated" || text == "default") << text;
  }
  changing.join();
}

class PseudoLanguageTest : public LocalizerTest {
 protected:
  PseudoLanguageTest() { localizer.SetLanguage(Localizer::kPseudoLanguage); }
};

TEST_F(PseudoLanguageTest, AccentsEveryLetter) {
  EXPECT_EQ(localizer.GetUTF16String("$$$/a/b=Frames").substr(0, 6), u"Ƒŕåɱéš");
  EXPECT_EQ(localizer.GetUTF16String("$$$/a/b=The quick brown fox jumps over a lazy dog")
                .find_first_of(u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"),
            Utf16String::npos);
}

TEST_F(PseudoLanguageTest, StretchesByThirtyToFortyPercent) {
  for (std::size_t size = 10; size < 200; ++size) {
    auto const length = localizer.GetUTF16String(Utf8String("$$$/a/b=") + Utf8String(size, 'n')).size();
    EXPECT_GE(length * 10, size * 13) << size;
    EXPECT_LE(length * 10, size * 14) << size;
  }
  EXPECT_EQ(localizer.GetUTF16String("$$$/a/b=+"), u"+~");
  EXPECT_EQ(localizer.GetUTF16String("$$$/a/b="), u"");
}

TEST_F(PseudoLanguageTest, KeepsPlaceholdersAndLineBreaks) {
  auto const text = Text("$$$/a/b=The preset '@0' of @1\nhas no name");
  EXPECT_THAT(text, testing::HasSubstr("'@0'"));
  EXPECT_THAT(text, testing::HasSubstr("@1"));
  EXPECT_EQ(std::ranges::count(text, '\n'), 1);
  EXPECT_GT(text.size() - text.find('\n'), 11u);
}

TEST_F(PseudoLanguageTest, LeavesTextsWithoutAHead) {
  EXPECT_EQ(Text("My preset"), "My preset");
}

TEST(ApplicationName, IsTheProgramsUntilOneIsSet) {
  auto const before = GetApplicationName();
  EXPECT_EQ(before, "moxcore_tests");
  SetApplicationName("Film Desk");
  EXPECT_EQ(GetApplicationName(), "Film Desk");
  SetApplicationName(before);
}

}  // namespace
}  // namespace moxcore::config
