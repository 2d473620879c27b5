#include "program/Appearance.h"
#include "program/CommandLine.h"

#include <moxcore/config/Catalogue.h>
#include <moxcore/config/Localizer.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace playground {
namespace {

using ::testing::Contains;

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
  EXPECT_EQ(std::system("'" MOX_PLAYGROUND_PROGRAM "' --list --language de >/dev/null 2>&1"), 0);
  EXPECT_NE(std::system("'" MOX_PLAYGROUND_PROGRAM "' --list --language xx >/dev/null 2>&1"), 0);
}

}  // namespace
}  // namespace playground
