#include "program/CommandLine.h"
#include "support/Folders.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace playground {
namespace {

TEST(CommandLine, OpensTheWindowWithoutArguments) {
  auto const result = ParseCommandLine({});
  ASSERT_TRUE(result.IsOk());
  EXPECT_EQ(result.commandLine.task, ProgramTask::kOpenWindow);
  EXPECT_TRUE(result.commandLine.files.empty());
  EXPECT_FALSE(result.commandLine.quitAfterFirstPaint);
}

TEST(CommandLine, TakesFilesBeforeBetweenAndBehindOptions) {
  auto const result = ParseCommandLine({"a.wav", "--theme", "light", "b.flac", "--autoquit", "-"});
  ASSERT_TRUE(result.IsOk());
  EXPECT_EQ(result.commandLine.files, (std::vector<std::string>{"a.wav", "b.flac", "-"}));
  EXPECT_EQ(result.commandLine.theme, ThemeChoice::kLight);
  EXPECT_TRUE(result.commandLine.quitAfterFirstPaint);
}

TEST(CommandLine, TakesEverythingBehindTwoDashesAsFiles) {
  auto const result = ParseCommandLine({"--", "--help", "-x"});
  ASSERT_TRUE(result.IsOk());
  EXPECT_EQ(result.commandLine.files, (std::vector<std::string>{"--help", "-x"}));
}

TEST(CommandLine, AcceptsValuesAfterAnEqualsSign) {
  auto const result = ParseCommandLine(
      {"--render=/tmp/a=b", "--page=audio", "--look=classic", "--scale=1.5", "--language=pseudo"});
  ASSERT_TRUE(result.IsOk());
  EXPECT_EQ(result.commandLine.task, ProgramTask::kRender);
  EXPECT_EQ(result.commandLine.renderDirectory, "/tmp/a=b");
  EXPECT_EQ(result.commandLine.page, "audio");
  EXPECT_EQ(result.commandLine.look, LookChoice::kClassic);
  EXPECT_EQ(result.commandLine.scale, 1.5);
  EXPECT_EQ(result.commandLine.language, LanguageChoice::kPseudo);
}

TEST(CommandLine, OpensTheWindowIfItCanWhereItNeedNotRender) {
  auto const result = ParseCommandLine({"--or-render", "pictures"});
  ASSERT_TRUE(result.IsOk());
  EXPECT_EQ(result.commandLine.task, ProgramTask::kOpenWindow);
  EXPECT_EQ(result.commandLine.directoryWithoutDisplay, "pictures");
  EXPECT_FALSE(ParseCommandLine({"--or-render="}).IsOk());
}

TEST(CommandLine, AcceptsThePercentageOfAScale) {
  EXPECT_EQ(ParseCommandLine({"--scale", "125%"}).commandLine.scale, 1.25);
}

TEST(CommandLine, NamesTheUnknownOption) {
  auto const result = ParseCommandLine({"--colour", "red"});
  EXPECT_FALSE(result.IsOk());
  EXPECT_NE(result.error.find("--colour"), std::string::npos);
}

class CommandLineRefuses : public testing::TestWithParam<std::vector<std::string>> {};

TEST_P(CommandLineRefuses, WhatMeansNothing) {
  EXPECT_FALSE(ParseCommandLine(GetParam()).IsOk());
}

INSTANTIATE_TEST_SUITE_P(
    Arguments, CommandLineRefuses,
    testing::Values(std::vector<std::string>{"-z"}, std::vector<std::string>{"--render"},
                    std::vector<std::string>{"--render="}, std::vector<std::string>{"--page", ""},
                    std::vector<std::string>{"--theme", "sepia"}, std::vector<std::string>{"--look", "V8"},
                    std::vector<std::string>{"--scale", "0"}, std::vector<std::string>{"--scale", "-1"},
                    std::vector<std::string>{"--scale", "nan"}, std::vector<std::string>{"--scale", "1e999"},
                    std::vector<std::string>{"--scale", "9"}, std::vector<std::string>{"--scale", "1x"},
                    std::vector<std::string>{"--list=all"}, std::vector<std::string>{""},
                    std::vector<std::string>{"--language", "xx"}));

TEST(CommandLine, GivesHelpWhateverFollows) {
  auto const result = ParseCommandLine({"--help", "--nonsense"});
  ASSERT_TRUE(result.IsOk());
  EXPECT_EQ(result.commandLine.task, ProgramTask::kHelp);
}

TEST(CommandLine, HelpNamesEveryOption) {
  for (std::string const name :
       {"--page", "--render", "--or-render", "--list", "--theme", "--look", "--scale", "--language",
        "--right-to-left", "--autoquit", "--help", "--version"}) {
    EXPECT_NE(HelpText().find(name), std::string::npos) << name;
  }
}

// What the script that builds and opens the program prints of itself.
std::string HelpOfTheScript() {
  std::string text;
  FILE* const pipe = popen(("'" + tests::SourceFolder() + "/run' --help").c_str(), "r");
  for (int unit = std::fgetc(pipe); unit != EOF; unit = std::fgetc(pipe)) {
    text.push_back(static_cast<char>(unit));
  }
  pclose(pipe);
  return text;
}

// The lines of a help that tell of options.
std::string OptionsIn(std::string const& help) {
  std::size_t const begin = help.find("\n  --page");
  std::size_t const end = help.find("\n\n", begin);
  return begin == std::string::npos ? std::string() : help.substr(begin, end - begin);
}

TEST(CommandLine, HelpOfTheScriptTellsTheSameOptions) {
  EXPECT_FALSE(OptionsIn(HelpText()).empty());
  EXPECT_EQ(OptionsIn(HelpOfTheScript()), OptionsIn(HelpText()));
}

TEST(CommandLine, HelpNamesTheLanguagesThatThereAre) {
  for (std::string const& help : {HelpText(), HelpOfTheScript()}) {
    EXPECT_NE(help.find("--language NAME     en, de, or pseudo"), std::string::npos);
    EXPECT_NE(help.find("peaks: .dat"), std::string::npos);
  }
}

TEST(CommandLine, KeepsTheLanguageThatWasReadBeforeAFault) {
  auto const result = ParseCommandLine({"--language", "pseudo", "--sideways"});
  EXPECT_FALSE(result.IsOk());
  EXPECT_EQ(result.commandLine.language, LanguageChoice::kPseudo);
}

TEST(CommandLine, StandsOverWhatWasRemembered) {
  Appearance remembered;
  remembered.theme = ThemeChoice::kLight;
  remembered.scale = 2.0;
  auto const result = ParseCommandLine({"--theme", "high-contrast", "--right-to-left"});
  Appearance const appearance = result.commandLine.Over(remembered);
  EXPECT_EQ(appearance.theme, ThemeChoice::kHighContrast);
  EXPECT_EQ(appearance.scale, 2.0);
  EXPECT_TRUE(appearance.rightToLeft);
}

}  // namespace
}  // namespace playground
