#include "shell/Page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <string>

namespace playground {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Pages, AreFoundByTheirNames) {
  EXPECT_EQ(AllPages()[FindPage("slider")].name, "slider");
  EXPECT_EQ(FindPage("nowhere"), AllPages().size());
}

TEST(Pages, BeginWithTheFirstWhereNoneIsRemembered) {
  EXPECT_EQ(FindPageOrFirst(""), 0u);
  EXPECT_EQ(FindPageOrFirst("gone"), 0u);
  EXPECT_EQ(FindPageOrFirst("popup"), FindPage("popup"));
}

TEST(Pages, HaveNamesOfTheirOwnThatAreFitForFiles) {
  std::set<std::string_view> names;
  for (PageDescriptor const& page : AllPages()) {
    EXPECT_TRUE(names.insert(page.name).second) << page.name;
    EXPECT_EQ(page.name.find_first_not_of("abcdefghijklmnopqrstuvwxyz-"), std::string_view::npos);
    EXPECT_THAT(page.states, testing::Not(IsEmpty()));
  }
}

TEST(Pages, AreFoundByPartsOfTitlesAndGroupsWhateverTheCase) {
  EXPECT_THAT(PagesMatching(u"  sliDER "), ElementsAre(FindPage("slider")));
  EXPECT_EQ(PagesMatching(u"").size(), AllPages().size());
  auto const media = [](PageDescriptor const& page) { return page.group == AllPages().front().group; };
  auto const others = std::count_if(AllPages().begin(), AllPages().end(), std::not_fn(media));
  EXPECT_EQ(PagesMatching(u"stock").size(), static_cast<std::size_t>(others));
  EXPECT_THAT(PagesMatching(u"no such page"), IsEmpty());
}

}  // namespace
}  // namespace playground
