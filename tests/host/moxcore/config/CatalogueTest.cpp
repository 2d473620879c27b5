#include <moxcore/config/Catalogue.h>

#include <gtest/gtest.h>

#include <string>

namespace moxcore::config {
namespace {

constexpr std::string_view kHeader =
    "msgid \"\"\nmsgstr \"\"\n\"Project-Id: x\\n\"\n\"Language: fr_CA\\n\"\n\n";

Catalogue Parse(std::string_view entries) {
  return ParseCatalogue(std::string(kHeader) + std::string(entries));
}

TEST(Catalogue, ReadsTheLanguageAndTheTextsByTheirContext) {
  auto const catalogue = Parse(
      "# a translator's remark\n"
      "#: file.cpp:12\n"
      "msgctxt \"$$$/a/Save\"\n"
      "msgid \"Save\"\n"
      "msgstr \"Enregistrer\"\n"
      "\n"
      "msgctxt \"$$$/a/Delete\"\n"
      "msgid \"Delete\"\n"
      "msgstr \"Supprimer\"\n");
  EXPECT_EQ(catalogue.language, "fr_CA");
  ASSERT_EQ(catalogue.texts.size(), 2u);
  EXPECT_EQ(catalogue.texts.at("$$$/a/Save"), "Enregistrer");
  EXPECT_EQ(catalogue.texts.at("$$$/a/Delete"), "Supprimer");
  EXPECT_TRUE(catalogue.problems.empty());
}

TEST(Catalogue, TakesTheKeyFromTheIdWithoutAContext) {
  auto const catalogue = Parse("msgid \"$$$/a/Save=Save#{comment} x\"\nmsgstr \"Enregistrer\"\n");
  EXPECT_EQ(catalogue.texts.at("$$$/a/Save"), "Enregistrer");
}

TEST(Catalogue, JoinsLinesAndKnowsEscapes) {
  auto const catalogue = Parse(
      "msgctxt \"$$$/a/b\"\n"
      "msgid \"\"\n"
      "\"x\"\n"
      "msgstr \"\"\n"
      "\"one\\n\"\r\n"
      "  \"\\\"two\\\" \\\\ \\t\\r\\q\"\n");
  EXPECT_EQ(catalogue.texts.at("$$$/a/b"), "one\n\"two\" \\ \t\rq");
}

TEST(Catalogue, LeavesOutUntranslatedFuzzyAndObsoleteEntries) {
  auto const catalogue = Parse(
      "msgctxt \"$$$/a/1\"\nmsgid \"x\"\nmsgstr \"\"\n"
      "#, fuzzy, c-format\nmsgctxt \"$$$/a/2\"\nmsgid \"x\"\nmsgstr \"guess\"\n"
      "#~ msgctxt \"$$$/a/3\"\n#~ msgid \"x\"\n#~ msgstr \"old\"\n"
      "#, c-format\nmsgctxt \"$$$/a/4\"\nmsgid \"x\"\nmsgstr \"good\"\n");
  ASSERT_EQ(catalogue.texts.size(), 1u);
  EXPECT_EQ(catalogue.texts.at("$$$/a/4"), "good");
  EXPECT_TRUE(catalogue.problems.empty());
}

// As tools write it into a file that nobody has translated yet.
TEST(Catalogue, TakesTheLanguageOfAHeaderThatIsMarkedFuzzy) {
  auto const catalogue = ParseCatalogue(
      "#, fuzzy\nmsgid \"\"\nmsgstr \"Language: fr\\n\"\n\nmsgctxt \"$$$/a/1\"\nmsgid \"x\"\nmsgstr \"y\"\n");
  EXPECT_EQ(catalogue.language, "fr");
  EXPECT_EQ(catalogue.texts.size(), 1u);
}

TEST(Catalogue, TakesTheFirstFormOfAPlural) {
  auto const catalogue = Parse(
      "msgctxt \"$$$/a/b\"\nmsgid \"@0 file\"\nmsgid_plural \"@0 files\"\n"
      "msgstr[0] \"@0 fichier\"\nmsgstr[1] \"@0 fichiers\"\n");
  EXPECT_EQ(catalogue.texts.at("$$$/a/b"), "@0 fichier");
}

TEST(Catalogue, SkipsABrokenEntryAndReadsOn) {
  auto const catalogue = Parse(
      "msgctxt \"$$$/a/1\"\nmsgid \"x\"\nmsgstr \"no end\n\n"
      "msgctxt \"$$$/a/2\"\nmsgid \"x\"\nmsgstr \"good\"\n"
      "msgctxt \"$$$/a/3\"\nmsgid \"x\"\nmsgstr \"end\" behind\n"
      "msgctxt \"$$$/a/4\"\nmsgid \"x\"\nmsgstr \"good\"\n"
      "msgid \"no key\"\nmsgstr \"y\"\n");
  EXPECT_EQ(catalogue.texts.size(), 2u);
  EXPECT_TRUE(catalogue.texts.contains("$$$/a/2"));
  EXPECT_TRUE(catalogue.texts.contains("$$$/a/4"));
  ASSERT_EQ(catalogue.problems.size(), 3u);
  EXPECT_EQ(catalogue.problems[0].line, 8u);
  EXPECT_EQ(catalogue.problems[1].line, 15u);
}

TEST(Catalogue, RepairsBrokenUtf8) {
  auto const catalogue = Parse(
      "msgctxt \"$$$/a/b\"\nmsgid \"x\"\nmsgstr \"a\xff"
      "b\"\n");
  EXPECT_EQ(catalogue.texts.at("$$$/a/b"),
            "a\xef\xbf\xbd"
            "b");
}

TEST(Catalogue, AcceptsAByteOrderMarkAndAFileWithoutALastLineEnd) {
  auto const catalogue = ParseCatalogue(
      "\xef\xbb\xbf"
      "msgid \"\"\nmsgstr \"Language: nl\\n\"\n"
      "msgctxt \"$$$/a/b\"\nmsgid \"x\"\nmsgstr \"y\"");
  EXPECT_EQ(catalogue.language, "nl");
  EXPECT_EQ(catalogue.texts.at("$$$/a/b"), "y");
}

TEST(Catalogue, ReportsAMissingLanguage) {
  EXPECT_EQ(ParseCatalogue("").problems.size(), 1u);
  EXPECT_TRUE(ParseCatalogue("").texts.empty());
}

TEST(Catalogue, BoundsItsProblemsAndItsSize) {
  std::string noise;
  for (int i = 0; i < 1000; ++i) {
    noise += "noise\n\"\\";
  }
  EXPECT_EQ(ParseCatalogue(noise).problems.size(), kMaximalCatalogueProblems);
  std::string const large(kMaximalCatalogueBytes + 1, '\n');
  EXPECT_EQ(ParseCatalogue(large).problems.size(), 1u);
}

TEST(Catalogue, SurvivesEveryTruncation) {
  std::string whole(kHeader);
  whole.append("#, fuzzy\nmsgctxt \"$$$/a/1\"\nmsgid \"x\\\"\"\nmsgstr[0] \"y\"\n\"z\\n\"\n");
  whole.append("msgctxt \"$$$/a/2\"\nmsgid \"x\"\nmsgstr \"y\"\n");
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    auto const catalogue = ParseCatalogue(std::string_view(whole).substr(0, size));
    EXPECT_LE(catalogue.texts.size(), 1u);
  }
}

}  // namespace
}  // namespace moxcore::config
