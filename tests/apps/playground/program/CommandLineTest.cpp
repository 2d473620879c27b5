#include "program/CommandLine.h"

#include <gtest/gtest.h>

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
  for (std::string const name : {"--page", "--render", "--list", "--theme", "--look", "--scale", "--language",
                                 "--right-to-left", "--autoquit", "--help", "--version"}) {
    EXPECT_NE(HelpText().find(name), std::string::npos) << name;
  }
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
