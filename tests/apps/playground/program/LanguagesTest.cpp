#include "program/Appearance.h"
#include "program/CommandLine.h"
#include "support/Folders.h"

#include <moxcore/config/Catalogue.h>
#include <moxcore/config/Localizer.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace playground {
namespace {

using ::testing::Contains;

// What the program ends with when it is to list its pages in a language.
int Lists(const std::string& language) {
  return std::system(
      ("'" + tests::ProgramPath("playground") + "' --list --language " + language + " >/dev/null 2>&1")
          .c_str());
}

TEST(Languages, AreEnglishThePseudoLanguageAndThoseOfTheCatalogues) {
  EXPECT_FALSE(LanguageByName("xo"));
  moxcore::config::Localizer::Get().AddCatalogue(
      {.language = "xo", .texts = {{"$$$/t/A", "a"}}, .problems = {}});
  auto const languages = OfferedLanguages();
  EXPECT_EQ(languages[0], LanguageChoice::kEnglish);
  EXPECT_EQ(languages[1], LanguageChoice::kPseudo);
  EXPECT_THAT(languages, Contains(LanguageChoice{"xo"}));
  for (LanguageChoice const& language : languages) {
    EXPECT_EQ(LanguageByName(LanguageName(language)), language);
  }
  EXPECT_EQ(ParseCommandLine({"--language", "xo"}).commandLine.language, LanguageChoice{"xo"});
}

TEST(Languages, OfTheProgramAreKnownToItsCommandLine) {
  EXPECT_EQ(Lists("de"), 0);
  EXPECT_NE(Lists("xx"), 0);
}

}  // namespace
}  // namespace playground
