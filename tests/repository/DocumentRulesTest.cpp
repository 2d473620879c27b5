#include "DocumentRules.h"
#include "MadeUpTree.h"
#include "support/Folders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace repository {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(DocumentRules, LinksAndPicturesAreThere) {
  const SourceTree tree = ReadSourceTree(tests::SourceFolder());
  ASSERT_TRUE(tree.Has("README.md"));
  EXPECT_THAT(BrokenLinks(tree), IsEmpty());
}

TEST(DocumentRules, ABrokenLinkOrPictureIsFound) {
  MadeUpTree made;
  made.With("README.md",
            "[using](docs/using.md#start) ![a](docs/a.png \"A\")\n[b](docs/b.md)\n"
            "<img src=\"c.png\" width=\"9\">\n[d]: d.md\n[e](/docs/e.md)\n")
      .With("docs/using.md",
            "[up](../README.md) [here](#start) [far](https://example.org/x.md) [no](README.md)\n"
            "```\n[code](nothing.md)\n```\n");
  EXPECT_THAT(BrokenLinks(made.Read()),
              ElementsAre("README.md:1: docs/a.png", "README.md:2: docs/b.md", "README.md:3: c.png",
                          "README.md:4: d.md", "README.md:5: /docs/e.md", "docs/using.md:1: README.md"));
}

}  // namespace
}  // namespace repository
