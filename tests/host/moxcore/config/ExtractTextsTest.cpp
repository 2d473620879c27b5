#include "support/Folders.h"

#include <moxcore/config/Catalogue.h>
#include <moxcore/config/Localizer.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace moxcore::config {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

// What scripts/extract_texts prints for a folder with one source, and its exit code.
class ExtractTexts : public ::testing::Test {
 protected:
  ExtractTexts() {
    std::string pattern = (fs::temp_directory_path() / "textsXXXXXX").string();
    mFolder = ::mkdtemp(pattern.data());
  }
  ~ExtractTexts() override { fs::remove_all(mFolder); }

  void Extract(std::string const& source) {
    std::ofstream(mFolder / "panel.cpp") << source;
    Run("'" + mFolder.string() + "'");
  }
  void Run(std::string const& arguments) {
    std::string const command = "python3 '" + tests::SourceFolder() + "/scripts/extract_texts' " + arguments +
                                " 2>'" + Faults() + "'";
    mTemplate.clear();
    std::FILE* const pipe = ::popen(command.c_str(), "r");
    ASSERT_NE(pipe, nullptr);
    char buffer[4096];
    while (auto const count = std::fread(buffer, 1, sizeof(buffer), pipe)) {
      mTemplate.append(buffer, count);
    }
    mExitCode = WEXITSTATUS(::pclose(pipe));
    std::ifstream faults(Faults());
    mFaults.assign(std::istreambuf_iterator<char>(faults), {});
  }

  // The template as a translator would send it back, with every text in capital "T"s.
  Catalogue Translated(std::string const& tag) const {
    std::string text = mTemplate;
    auto const replace = [&text](std::string const& from, std::string const& to, std::size_t begin) {
      for (auto at = text.find(from, begin); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
      }
    };
    replace("\"Language: \\n\"", "\"Language: " + tag + "\\n\"", 0);
    replace("msgstr \"\"", "msgstr \"TTT\"", text.find("msgctxt"));
    return ParseCatalogue(text);
  }

  // What a translation has of each text, in two lines: its key and the text.
  std::vector<std::string> Entries() const {
    std::vector<std::string> entries;
    for (auto at = mTemplate.find("msgctxt"); at != std::string::npos;
         at = mTemplate.find("msgctxt", at + 1)) {
      entries.push_back(mTemplate.substr(at, mTemplate.find("msgstr", at) - at));
    }
    return entries;
  }

  std::string Faults() const { return (mFolder / "faults").string(); }

  fs::path mFolder;
  std::string mTemplate;
  std::string mFaults;
  int mExitCode = -1;
};

TEST_F(ExtractTexts, FindsLiteralsWithTheirKeysTextsPlacesAndRemarks) {
  Extract(
      "\n// Say(\"$$$/t/Comment=No\"); /* \"\nSay(\"$$$/t/Save=Save \\\"@0\\\"#{comment} on a button\");\n"
      "Say(\"$$$/t/Long=First half, \"  // in two\n    \"second half.\", \"other\");\n"
      "Say(\"untouched\", '\"', R\"x($$$/t/Raw=A \"raw\" one)x\");\n");
  EXPECT_EQ(mExitCode, 0) << mFaults;
  EXPECT_THAT(mTemplate, HasSubstr("\n#. on a button\n#: panel.cpp:3\nmsgctxt \"$$$/t/Save\"\n"
                                   "msgid \"Save \\\"@0\\\"\"\nmsgstr \"\"\n"));
  EXPECT_THAT(mTemplate, HasSubstr("#: panel.cpp:4\nmsgctxt \"$$$/t/Long\"\n"
                                   "msgid \"First half, second half.\"\n"));
  EXPECT_THAT(mTemplate, HasSubstr("msgctxt \"$$$/t/Raw\"\nmsgid \"A \\\"raw\\\" one\"\n"));
  EXPECT_THAT(mTemplate, Not(HasSubstr("Comment")));
  EXPECT_THAT(mTemplate, Not(HasSubstr("untouched")));
}

TEST_F(ExtractTexts, FindsThoseOfViewArchivesInRoundBrackets) {
  std::ofstream(mFolder / "VIEW.xml")
      << "<prop.pair><key>text</key>\n"
         "<ustring>($$$/t/Amount=Cut &amp; Paste#{comment} a button)</ustring>\n"
         "<ustring>(Custom)</ustring><string>$$$/t/None=None</string>";
  Extract("Say(\"$$$/t/Save=Save\");");
  EXPECT_EQ(mExitCode, 0) << mFaults;
  EXPECT_THAT(mTemplate, HasSubstr("\n#. a button\n#: VIEW.xml:2\nmsgctxt \"$$$/t/Amount\"\n"
                                   "msgid \"Cut & Paste\"\nmsgstr \"\"\n"));
  EXPECT_THAT(mTemplate, HasSubstr("$$$/t/Save"));
  EXPECT_THAT(mTemplate, Not(HasSubstr("None")));
}

TEST_F(ExtractTexts, WritesATemplateThatLoadsOnceItIsTranslated) {
  Extract("Say(\"$$$/t/A=One\\\\nTwo\"); Say(\"$$$/t/B=\\\"B\\\"\"); Again(\"$$$/t/A=One\\\\nTwo\");");
  EXPECT_EQ(mExitCode, 0) << mFaults;
  Catalogue const catalogue = Translated("xt");
  EXPECT_THAT(catalogue.problems, IsEmpty());
  EXPECT_EQ(catalogue.language, "xt");
  EXPECT_EQ(catalogue.texts.size(), 2u);
  Localizer::Get().AddCatalogue(catalogue);
  Localizer::Get().SetLanguage("xt");
  EXPECT_EQ(Localizer::Get().GetUTF8String("$$$/t/B=\"B\""), "TTT");
  Localizer::Get().SetLanguage("");
}

TEST_F(ExtractTexts, FailsForAKeyWithTwoTextsAndForOneWithNone) {
  Extract("Say(\"$$$/t/A=One\");\nSay(\"$$$/t/A=Two\");\n");
  EXPECT_EQ(mExitCode, 1);
  EXPECT_THAT(mFaults, HasSubstr("panel.cpp:2: $$$/t/A has another default text at panel.cpp:1"));
  Extract("Say(\"$$$/t/A=\");");
  EXPECT_EQ(mExitCode, 1);
  EXPECT_THAT(mFaults, HasSubstr("$$$/t/A has no default text"));
}

TEST_F(ExtractTexts, FindsThoseOfTheHostAndOfTheProgram) {
  Run("");
  EXPECT_EQ(mExitCode, 0) << mFaults;
  EXPECT_THAT(mTemplate, HasSubstr("msgctxt \"$$$/moxui/MessageBox/Cancel\"\nmsgid \"Cancel\"\n"));
  EXPECT_THAT(Translated("xu").problems, IsEmpty());
  Run("'" + tests::SourceFolder() + "/apps'");
  EXPECT_EQ(mExitCode, 0) << mFaults;
  EXPECT_THAT(mTemplate, HasSubstr("msgctxt \"$$$/playground/language\"\nmsgid \"Language\"\n"));
  EXPECT_THAT(Translated("xu").problems, IsEmpty());
}

// A text that the translator never saw stands in English among German ones, and nothing else tells of it.
// Those that are the same in German stand in the file without a translation. Behind an English text that has
// changed since, the German one may say something else.
TEST_F(ExtractTexts, GermanHasEveryTextOfTheHostAndOfTheProgram) {
  std::string const apps = "'" + tests::SourceFolder() + "/apps'";
  for (auto const& [folders, file] : {std::pair<std::string, std::string>{"", "/resources/PO/de.po"},
                                      {apps, "/apps/playground/resources/PO/de.po"}}) {
    Run(folders);
    ASSERT_EQ(mExitCode, 0) << mFaults;
    std::ifstream stream(tests::SourceFolder() + file);
    std::string const german(std::istreambuf_iterator<char>(stream), {});
    Catalogue const all = Translated("xu");
    ASSERT_GT(all.texts.size(), 20u);
    for (std::string const& entry : Entries()) {
      EXPECT_NE(german.find(entry), std::string::npos) << file << " has not, or with another text:\n"
                                                       << entry;
    }
    for (auto const& [key, text] : ParseCatalogue(german).texts) {
      EXPECT_TRUE(all.texts.contains(key)) << key << " in " << file << " is used nowhere";
    }
  }
}

}  // namespace
}  // namespace moxcore::config
