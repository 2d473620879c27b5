#include "CompileRules.h"
#include "support/Folders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace repository {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string Command(const std::string& file, const std::string& options) {
  return "{\n  \"directory\": \"/b\",\n  \"command\": \"/usr/bin/c++ " + options + " -o x.o -c " + file +
         "\",\n  \"file\": \"" + file + "\",\n  \"output\": \"x.o\"\n},\n";
}

TEST(CompileRules, TheLibrarysArithmeticRoundsAsItIsWritten) {
  std::ifstream stream(tests::BuildFolder() + "/compile_commands.json");
  const std::string commands(std::istreambuf_iterator<char>(stream), {});
  EXPECT_THAT(InexactArithmetic(commands, tests::SourceFolder() + "/src"), IsEmpty());
  // Sources that are compiled as one are included by files there.
  EXPECT_THAT(InexactArithmetic(commands, tests::BuildFolder() + "/src"), IsEmpty());
}

TEST(CompileRules, ACommandThatContractsIsFound) {
  const std::string good = Command("/a/src/Good.cpp", "-O2 -ffp-contract=off");
  EXPECT_THAT(InexactArithmetic(good + Command("/a/host/Other.cpp", "-O2"), "/a/src"), IsEmpty());
  EXPECT_THAT(InexactArithmetic(good + Command("/a/src/Bad.cpp", "-O2"), "/a/src"),
              ElementsAre("/a/src/Bad.cpp: lacks -ffp-contract=off"));
  EXPECT_THAT(InexactArithmetic(Command("/a/src/Bad.cpp", "-ffp-contract=off -ffp-contract=fast"), "/a/src"),
              ElementsAre("/a/src/Bad.cpp: lacks -ffp-contract=off"));
}

TEST(CompileRules, ACommandThatTakesLibertiesIsFound) {
  EXPECT_THAT(InexactArithmetic(Command("/a/src/Bad.cpp", "-ffp-contract=off -ffast-math"), "/a/src"),
              ElementsAre("/a/src/Bad.cpp: -ffast-math"));
  EXPECT_THAT(InexactArithmetic(Command("/a/src/Bad.cpp", "-Ofast -ffp-contract=off"), "/a/src"),
              ElementsAre("/a/src/Bad.cpp: -Ofast"));
}

TEST(CompileRules, NoCommandAtAllIsFound) {
  EXPECT_THAT(InexactArithmetic("[]", "/a/src"), ElementsAre("/a/src: nothing is compiled"));
}

}  // namespace
}  // namespace repository
