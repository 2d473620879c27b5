#include "MadeUpTree.h"
#include "TextRules.h"
#include "support/Folders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace repository {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const SourceTree& ThisTree() {
  static const SourceTree kTree = ReadSourceTree(tests::SourceFolder());
  return kTree;
}

TEST(TextRules, NothingIsLeftUnfinished) {
  EXPECT_THAT(UnfinishedMarks(ThisTree()), IsEmpty());
}

TEST(TextRules, FilesAreShort) {
  EXPECT_THAT(OverlongFiles(ThisTree()), IsEmpty());
}

TEST(TextRules, FileNamesSayWhatIsInThem) {
  EXPECT_THAT(NamelessFiles(ThisTree()), IsEmpty());
}

TEST(TextRules, NoPathOfOneMachineIsWritten) {
  EXPECT_THAT(MachinePaths(ThisTree()), IsEmpty());
}

TEST(TextRules, HeadersHaveTheirForm) {
  EXPECT_THAT(HeaderForm(ThisTree()), IsEmpty());
}

TEST(TextRules, AnUnfinishedMarkIsFound) {
  for (const std::string mark : {"TO"
                                 "DO",
                                 "FIX"
                                 "ME",
                                 "XX"
                                 "X",
                                 "HA"
                                 "CK",
                                 "DISA"
                                 "BLED_Case",
                                 "GTEST_"
                                 "SKIP"}) {
    MadeUpTree made;
    made.With("src/audio/A.cpp", "int a;\n// " + mark + "(): later\n");
    EXPECT_EQ(UnfinishedMarks(made.Read()).size(), 1u) << mark;
  }
}

TEST(TextRules, AFileOfOneLineTooManyIsFound) {
  std::string text;
  for (int i = 0; i < 700; ++i) {
    text += "//\n";
  }
  MadeUpTree made;
  made.With("src/Long.cpp", text + "//\n").With("src/Short.cpp", text);
  EXPECT_THAT(OverlongFiles(made.Read()), ElementsAre("src/Long.cpp:0: 701 lines"));
}

TEST(TextRules, AFileNamedForNothingIsFound) {
  MadeUpTree made;
  made.With("src/Utils.cpp", "").With("include/moxmediaui/ColorDrawUtils.h", "");
  EXPECT_THAT(NamelessFiles(made.Read()), ElementsAre("src/Utils.cpp:0: the name says nothing"));
}

TEST(TextRules, APathOfOneMachineIsFound) {
  MadeUpTree made;
  made.With("src/A.cpp",
            "auto a = \"/ho"
            "me/somebody/a.wav\";\nauto b = \"data/home/x\";\n");
  EXPECT_THAT(MachinePaths(made.Read()), ElementsAre("src/A.cpp:1: \"/ho"
                                                     "me/s"));
}

TEST(TextRules, AHeaderOutOfFormIsFound) {
  MadeUpTree made;
  made.With("src/A.h", "using namespace std;\n").With("src/B.h", "#pragma once\n");
  EXPECT_THAT(HeaderForm(made.Read()),
              ElementsAre("src/A.h:0: lacks #pragma once", "src/A.h:1: using namespace std;"));
}

}  // namespace
}  // namespace repository
