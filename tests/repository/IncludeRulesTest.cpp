#include "IncludeRules.h"
#include "MadeUpTree.h"
#include "support/Folders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace repository {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

const SourceTree& ThisTree() {
  static const SourceTree kTree = ReadSourceTree(tests::SourceFolder());
  return kTree;
}

TEST(IncludeRules, TheTreeIsReadWhole) {
  EXPECT_TRUE(ThisTree().Has("CMakeLists.txt"));
  EXPECT_TRUE(ThisTree().Has("tests/repository/IncludeRulesTest.cpp"));
}

TEST(IncludeRules, ArrowsPointDown) {
  EXPECT_THAT(UpwardIncludes(ThisTree()), IsEmpty());
}

TEST(IncludeRules, QtStaysBelowThePlatformSeam) {
  EXPECT_THAT(QtOutsideThePlatformSeam(ThisTree()), IsEmpty());
}

TEST(IncludeRules, PublicHeadersShowNothingOfPackagedLibraries) {
  EXPECT_THAT(ThirdPartyInPublicHeaders(ThisTree()), IsEmpty());
}

TEST(IncludeRules, HeadersAreFreeOfCycles) {
  EXPECT_THAT(CyclicIncludes(ThisTree()), IsEmpty());
}

TEST(IncludeRules, AnUpwardIncludeIsFound) {
  MadeUpTree made;
  made.With("host/moxcore/src/A.cpp", "#include <moxcore/A.h>\n#include <moxui/ui/Node.h>\n");
  made.With("host/moxcore/include/moxcore/A.h", "");
  EXPECT_THAT(UpwardIncludes(made.Read()), ElementsAre("host/moxcore/src/A.cpp:2: moxui stands above"));
}

TEST(IncludeRules, EachFolderMayIncludeThoseBelowOnly) {
  const std::vector<std::string> folders = {"host/moxaccelerate/src", "host/moxcore/src",
                                            "host/moxmediatypes/src", "host/moxaudiotoolkit/src",
                                            "host/moxui/src",         "host/moxappsupport/src",
                                            "host/moxworkspace/src",  "src/audio"};
  const std::vector<std::string> prefixes = {"moxaccelerate",   "moxcore",   "moxmediatypes",
                                             "moxaudiotoolkit", "moxui",     "moxappsupport",
                                             "moxworkspace",    "moxmediaui"};
  for (std::size_t from = 0; from < folders.size(); ++from) {
    for (std::size_t to = 0; to < prefixes.size(); ++to) {
      MadeUpTree made;
      made.With(folders[from] + "/A.cpp", "#include <" + prefixes[to] + "/B.h>\n");
      EXPECT_EQ(UpwardIncludes(made.Read()).size(), to > from ? 1u : 0u)
          << folders[from] << " to " << prefixes[to];
    }
  }
}

TEST(IncludeRules, APublicHeaderOfTheProductMayNotIncludeThePlayground) {
  MadeUpTree made;
  made.With("include/moxmediaui/A.h", "#include \"playground/Page.h\"\n");
  EXPECT_THAT(UpwardIncludes(made.Read()), ElementsAre("include/moxmediaui/A.h:1: playground stands above"));
}

TEST(IncludeRules, TheToolkitDoesWithoutItsTestingLibrary) {
  MadeUpTree made;
  made.With("host/moxui/src/ui/A.cpp", "#include <moxui/testing/Tree.h>\n");
  made.With("host/moxui/testing/include/moxui/testing/Tree.h", "#include <moxui/ui/A.h>\n");
  made.With("host/moxui/testing/src/Tree.cpp", "#include \"../../src/ui/Secret.h\"\n");
  made.With("host/moxui/src/ui/Secret.h", "");
  EXPECT_THAT(UpwardIncludes(made.Read()),
              ElementsAre("host/moxui/src/ui/A.cpp:1: moxui/testing stands above"));
}

TEST(IncludeRules, APrivateHeaderOfAnotherFolderIsFound) {
  MadeUpTree made;
  made.With("host/moxui/src/A.cpp", "#include \"../../moxcore/src/Secret.h\"\n");
  made.With("host/moxcore/src/Secret.h", "");
  EXPECT_THAT(UpwardIncludes(made.Read()),
              ElementsAre("host/moxui/src/A.cpp:1: host/moxcore/src/Secret.h is private to another folder"));
}

TEST(IncludeRules, AFileOfTheTestsIncludedByASourceIsFound) {
  MadeUpTree made;
  made.With("src/audio/A.cpp", "#include \"../../tests/audio/Fixture.h\"\n")
      .With("tests/audio/Fixture.h", "");
  EXPECT_THAT(UpwardIncludes(made.Read()),
              ElementsAre("src/audio/A.cpp:1: tests/audio/Fixture.h stands outside of the order"));
}

TEST(IncludeRules, HeadersOfTheSameFolderAreFree) {
  MadeUpTree made;
  made.With("src/audio/A.cpp",
            "#include \"../frame/B.h\"\n#include \"frame/B.h\"\n#include <moxmediaui/C.h>\n");
  made.With("src/frame/B.h", "").With("include/moxmediaui/C.h", "");
  EXPECT_THAT(UpwardIncludes(made.Read()), IsEmpty());
}

TEST(IncludeRules, AQtHeaderOutsideTheSeamIsFound) {
  for (const std::string header : {"QWidget", "QtCore/QString", "qglobal.h"}) {
    MadeUpTree made;
    made.With("host/moxui/src/controls/A.cpp", "#include <" + header + ">\n");
    made.With("host/moxui/src/qt/B.cpp", "#include <" + header + ">\n");
    made.With("tests/host/moxui/C.cpp", "#include <" + header + ">\n");
    made.With("host/moxworkspace/src/MainWindow.cpp", "#include <" + header + ">\n");
    EXPECT_THAT(QtOutsideThePlatformSeam(made.Read()),
                ElementsAre("host/moxui/src/controls/A.cpp:1: " + header + " is a Qt header"));
  }
}

TEST(IncludeRules, AQtHeaderInAnotherFileOfTheWorkspaceIsFound) {
  MadeUpTree made;
  made.With("host/moxworkspace/src/TabPanels.cpp", "#include <QTabBar>\n");
  EXPECT_THAT(QtOutsideThePlatformSeam(made.Read()),
              ElementsAre("host/moxworkspace/src/TabPanels.cpp:1: QTabBar is a Qt header"));
}

TEST(IncludeRules, AThirdPartyHeaderInAPublicHeaderIsFound) {
  for (const std::string header :
       {"fmt/core.h", "tbb/task_arena.h", "sndfile.h", "expat.h", "QString", "boost/algorithm/string.hpp",
        "nlohmann/json.hpp", "cairo.h", "unistd.h"}) {
    MadeUpTree made;
    made.With("host/moxcore/include/moxcore/A.h", "#include <string>\n#include <" + header + ">\n");
    made.With("host/moxcore/src/A.cpp", "#include <" + header + ">\n");
    EXPECT_THAT(
        ThirdPartyInPublicHeaders(made.Read()),
        ElementsAre("host/moxcore/include/moxcore/A.h:2: " + header + " is no header that clients have"));
  }
}

TEST(IncludeRules, APrivateHeaderInAPublicHeaderIsFound) {
  MadeUpTree made;
  made.With("include/moxmediaui/A.h", "#include \"audio/B.h\"\n").With("src/audio/B.h", "");
  EXPECT_THAT(ThirdPartyInPublicHeaders(made.Read()), ElementsAre(StartsWith("include/moxmediaui/A.h:1: ")));
}

TEST(IncludeRules, AThirdPartyTypeInAPublicHeaderIsFound) {
  MadeUpTree made;
  made.With("include/moxmediaui/A.h",
            "// A QWidget isn't needed.\nclass QWidget;\nvoid F(const fmt::memory_buffer&);\n");
  EXPECT_THAT(ThirdPartyInPublicHeaders(made.Read()),
              ElementsAre(StartsWith("include/moxmediaui/A.h:2: class QWidget"),
                          StartsWith("include/moxmediaui/A.h:3: fmt::")));
}

TEST(IncludeRules, ACycleOfHeadersIsFound) {
  MadeUpTree made;
  made.With("src/frame/A.h", "#include \"B.h\"\n").With("src/frame/B.h", "#include \"frame/C.h\"\n");
  made.With("src/frame/C.h", "#include \"A.h\"\n");
  EXPECT_THAT(CyclicIncludes(made.Read()),
              ElementsAre("src/frame/C.h:0: includes src/frame/A.h, which includes it"));
}

}  // namespace
}  // namespace repository
