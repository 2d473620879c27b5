#include "../controls/RunningLook.h"

#include <moxcore/utility/IntrusivePtr.h>
#include <moxui/controls/UI_StaticText.h>
#include <moxui/controls/UI_TextEdit.h>
#include <moxui/skins/SkinSet.h>
#include <moxui/skins/Theme.h>
#include <moxui/skins/ThemeColors.h>
#include <moxui/testing/Stage.h>
#include <moxui/ui/UI_SubView.h>

#include <gtest/gtest.h>

#include <limits>
#include <set>

namespace moxui::ui {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using testing::RunningLook;

constexpr ColorRGBA kOrange{1.0f, 0.5f, 0.0f, 1.0f};

struct Family {
  IntrusivePtr<UI_SubView> parent = MakeIntrusive<UI_SubView>();
  IntrusivePtr<UI_SubView> child = MakeIntrusive<UI_SubView>();
  Family() { parent->ChildPushBack(child); }
};

TEST(ThemeClient, CustomColoursAreSeenByDescendants) {
  Family const family;
  family.parent->SetCustomThemeColor(ThemeColorID::kTableEdgeLine, kOrange);
  EXPECT_EQ(family.child->GetColor(ThemeColorID::kTableEdgeLine), kOrange);
  EXPECT_EQ(GetColor(family.child->UI_GetColorFromChangeMap(324)), kOrange);
  EXPECT_EQ(family.child->GetThemeColor(ThemeColorID::kTableEdgeLine), GetColor(324u));
  EXPECT_NE(family.child->GetColor(ThemeColorID::kTableText), kOrange);
}

TEST(ThemeClient, ClearedCustomColoursAreTheThemesAgain) {
  Family const family;
  family.parent->SetCustomThemeColor(ThemeColorID::kTableText, kOrange);
  family.parent->ClearCustomThemeColor(ThemeColorID::kTableText);
  EXPECT_EQ(family.child->GetColor(ThemeColorID::kTableText), GetColor(253u));
}

// The number that a node's own colour goes by at the moment.
unsigned NumberOf(UI_SubView const& view) {
  return view.UI_GetColorFromChangeMap(static_cast<unsigned>(ThemeColorID::kTableText));
}

TEST(ThemeClient, NumbersOfColoursThatNobodyHasAreUsedAgain) {
  std::set<unsigned> numbers;
  Family const family;
  for (int i = 0; i < 1000; ++i) {
    ColorRGBA const colour{static_cast<float>(i) / 1000.0f, 0.25f, 0.5f, 1.0f};
    family.parent->SetCustomThemeColor(ThemeColorID::kTableText, colour);
    EXPECT_EQ(family.child->GetColor(ThemeColorID::kTableText), colour);
    numbers.insert(NumberOf(*family.parent));
  }
  for (int i = 0; i < 1000; ++i) {
    auto const passing = MakeIntrusive<UI_SubView>();
    passing->SetCustomThemeColor(ThemeColorID::kTableText, {0.25f, static_cast<float>(i), 0.5f, 1.0f});
    numbers.insert(NumberOf(*passing));
    passing->SetCustomThemeColor(ThemeColorID::kTableText, kOrange);
    passing->ClearCustomThemeColor(ThemeColorID::kTableText);
  }
  EXPECT_LE(numbers.size(), 4u);
}

TEST(ThemeClient, AColourStaysAsLongAsANodeHasIt) {
  Family const first;
  Family const second;
  first.parent->SetCustomThemeColor(ThemeColorID::kTableText, kOrange);
  // By its number, as a client hands a colour on.
  second.parent->SetCustomThemeColor(ThemeColorID::kTableText,
                                     static_cast<ThemeColorID>(NumberOf(*first.parent)));
  first.parent->SetCustomThemeColor(ThemeColorID::kTableText, {0.0f, 0.0f, 1.0f, 1.0f});
  Family const third;
  third.parent->SetCustomThemeColor(ThemeColorID::kTableText, {0.0f, 1.0f, 0.0f, 1.0f});
  EXPECT_EQ(second.child->GetColor(ThemeColorID::kTableText), kOrange);
  unsigned const number = NumberOf(*second.parent);
  second.parent->UI_SetColorChange(static_cast<unsigned>(ThemeColorID::kTableText), number);
  EXPECT_EQ(second.child->GetColor(ThemeColorID::kTableText), kOrange);
  second.parent->ClearCustomThemeColor(ThemeColorID::kTableText);
  EXPECT_EQ(GetColor(number), ColorRGBAFixed::Black);
}

TEST(ThemeClient, ANumberOfNoColourTakesNoneAway) {
  Family const family;
  family.parent->SetCustomThemeColor(ThemeColorID::kTableText, kOrange);
  unsigned const next = NumberOf(*family.parent) + 1;
  auto const other = MakeIntrusive<UI_SubView>();
  for (unsigned number = next; number < next + 8; ++number) {
    other->UI_SetColorChange(number, number);
  }
  Family const later[2];
  later[0].parent->SetCustomThemeColor(ThemeColorID::kTableText, {0.0f, 0.0f, 1.0f, 1.0f});
  later[1].parent->SetCustomThemeColor(ThemeColorID::kTableText, {0.0f, 1.0f, 0.0f, 1.0f});
  for (unsigned number = next; number < next + 8; ++number) {
    other->UI_ClearColorChange(number);
  }
  EXPECT_EQ(later[0].child->GetColor(ThemeColorID::kTableText), (ColorRGBA{0.0f, 0.0f, 1.0f, 1.0f}));
  EXPECT_EQ(later[1].child->GetColor(ThemeColorID::kTableText), (ColorRGBA{0.0f, 1.0f, 0.0f, 1.0f}));
}

TEST(ThemeClient, AColourWithoutNumbersIsOneToo) {
  float const none = std::numeric_limits<float>::quiet_NaN();
  Family const family;
  std::set<unsigned> numbers;
  for (int i = 0; i < 100; ++i) {
    family.parent->SetCustomThemeColor(ThemeColorID::kTableText, {none, 0.5f, none, 1.0f});
    numbers.insert(NumberOf(*family.parent));
  }
  EXPECT_EQ(numbers.size(), 1u);
  EXPECT_EQ(family.child->GetColor(ThemeColorID::kTableText), (ColorRGBA{0.0f, 0.5f, 0.0f, 1.0f}));
}

TEST(ThemeClient, MappingsToOtherRolesFollowTheTheme) {
  Family const family;
  family.child->SetCustomThemeColor(ThemeColorID::kTableText, ThemeColorID::kInteractive);
  for (ThemeID const id : {ThemeID::kDark, ThemeID::kLight}) {
    RunningLook const look(true, id);
    EXPECT_EQ(family.child->GetColor(ThemeColorID::kTableText), GetColor(ThemeColorID::kInteractive));
  }
}

TEST(ThemeClient, MappingsOfAncestorsApplyToTheResultOfNearerOnes) {
  Family const family;
  family.child->SetCustomThemeColor(ThemeColorID::kTableText, ThemeColorID::kInteractive);
  family.parent->SetCustomThemeColor(ThemeColorID::kInteractive, kOrange);
  EXPECT_EQ(family.child->GetColor(ThemeColorID::kTableText), kOrange);
}

TEST(ThemeClient, IsAProviderThatSeesItsCustomColours) {
  Family const family;
  family.parent->SetCustomThemeColor(ThemeColorID::kDefaultText, kOrange);
  EXPECT_EQ(skins::utilities::GetDefaultTextColor(family.child.Get()), kOrange);
  EXPECT_NE(skins::utilities::GetDefaultTextColor(nullptr), kOrange);
}

TEST(ThemeClient, CustomFontSizesAreSeenByDescendants) {
  Family const family;
  EXPECT_FLOAT_EQ(family.child->GetThemeFontSize(FontIndex::kSmall), 11.0f);
  family.parent->SetCustomFontSize(15.0f);
  EXPECT_FLOAT_EQ(family.child->GetThemeFontSize(FontIndex::kSmall), 15.0f);
  family.child->SetCustomFontSize(9.0f);
  EXPECT_FLOAT_EQ(family.child->GetThemeFontSize(FontIndex::kText), 9.0f);
  family.child->ClearCustomFontSize();
  EXPECT_FLOAT_EQ(family.child->GetThemeFontSize(FontIndex::kText), 15.0f);
  family.parent->ClearCustomFontSize();
  EXPECT_FLOAT_EQ(family.child->GetThemeFontSize(FontIndex::kText), 12.0f);
}

TEST(ThemeClient, AnswersWithTheRunningTheme) {
  Family const family;
  for (ThemeID const id : {ThemeID::kDark, ThemeID::kLight, ThemeID::kHighContrast}) {
    RunningLook const look(true, id);
    EXPECT_EQ(family.child->UI_GetCurrentTheme().GetID(), id);
  }
}

TEST(ThemeClient, NamesTheFontsOfTheTheme) {
  Family const family;
  for (FontIndex const index : {FontIndex::kText, FontIndex::kSmall, FontIndex::kTitle}) {
    EXPECT_EQ(family.child->GetThemeFontName(index), GetFontName(index));
    EXPECT_EQ(family.child->GetThemeFontName(index), "Open Sans");
  }
}

TEST(ThemeClient, StringsNameThemeAndFonts) {
  RunningLook const look(true, ThemeID::kLight);
  Family const family;
  EXPECT_EQ(family.child->GetString(ThemeStringID::kThemeName), "Light");
  EXPECT_EQ(family.child->GetString(ThemeStringID::kTextFontName), "Open Sans");
}

TEST(SkinSetClient, CustomSetsAreSeenByDescendants) {
  RunningLook const look(true);
  Family const family;
  EXPECT_TRUE(family.child->UI_GetCurrentSkinSet().IsV7OrBeyond());
  family.parent->SetCustomSkin(skins::SkinSet::Get(false));
  EXPECT_FALSE(family.child->UI_GetCurrentSkinSet().IsV7OrBeyond());
  family.child->SetCustomSkin(skins::SkinSet::Get(true));
  EXPECT_TRUE(family.child->UI_GetCurrentSkinSet().IsV7OrBeyond());
  family.child->ClearCustomSkin();
  family.parent->ClearCustomSkin();
  EXPECT_TRUE(family.child->UI_GetCurrentSkinSet().IsV7OrBeyond());
}

TEST(SkinSetClient, ASwitchOfThemeOrLookReachesTheNodesOfATreeAndRepaintsIt) {
  class Watcher : public UI_SubView {
   public:
    void UI_SkinSetUpdated() override { ++updates; }
    int updates = 0;
  };
  RunningLook const look(true, ThemeID::kDark);
  testing::Stage stage(ExtentT<float>(40, 40));
  auto const watcher = MakeIntrusive<Watcher>();
  stage.GetRootView().ChildPushBack(watcher);
  stage.PaintFrame();
  int const updates = watcher->updates;
  SetCurrentTheme(ThemeID::kLight);
  EXPECT_EQ(watcher->updates, updates + 1);
  EXPECT_TRUE(stage.GetTree().NeedsFrame());
}

TEST(SkinSetClient, ACustomSetReachesWhoIsPlacedByItsSizes) {
  RunningLook const look(true);
  testing::Stage stage(ExtentT<float>(200, 40));
  auto const edit = MakeIntrusive<controls::UI_TextEdit>();
  edit->UI_SetLocalRectF({0, 0, 120, 24});
  stage.GetRootView().ChildPushBack(edit);
  auto const inset = [&] { return edit->GetTextEdit()->UI_GetLocalRectF(true).left; };
  EXPECT_FLOAT_EQ(inset(), skins::SkinSet::Get(true).GetNumber(skins::SkinNumber::kTextInset));
  stage.GetRootView().SetCustomSkin(skins::SkinSet::Get(false));
  EXPECT_FLOAT_EQ(inset(), skins::SkinSet::Get(false).GetNumber(skins::SkinNumber::kTextInset));
  stage.GetRootView().ClearCustomSkin();
  EXPECT_FLOAT_EQ(inset(), skins::SkinSet::Get(true).GetNumber(skins::SkinNumber::kTextInset));
}

// A view of no size whose child is seen all the same.
class ThemeClientDamage : public ::testing::Test {
 protected:
  ThemeClientDamage() {
    view->ChildPushBack(child);
    child->UI_SetLocalRectF({5, 5, 10, 10});
    stage.GetRootView().ChildPushBack(view);
    stage.PaintFrame();
  }
  bool DamagesTheChild() {
    bool damages = false;
    for (RectT<float> const& rect : stage.GetTree().GetDamage()) {
      damages = damages || rect.Contains(RectT<float>(5, 5, 10, 10));
    }
    stage.PaintFrame();
    return damages;
  }
  testing::Stage stage{ExtentT<float>(40, 40)};
  IntrusivePtr<UI_SubView> view = MakeIntrusive<UI_SubView>();
  IntrusivePtr<UI_SubView> child = MakeIntrusive<UI_SubView>();
};

TEST_F(ThemeClientDamage, ReachesDescendantsWhereverTheyLie) {
  view->SetCustomThemeColor(ThemeColorID::kDefaultText, kOrange);
  EXPECT_TRUE(DamagesTheChild());
  view->ClearCustomThemeColor(ThemeColorID::kDefaultText);
  EXPECT_TRUE(DamagesTheChild());
  view->SetCustomFontSize(20.0f);
  EXPECT_TRUE(DamagesTheChild());
  view->SetCustomSkin(skins::SkinSet::Get(false));
  EXPECT_TRUE(DamagesTheChild());
  view->ClearCustomSkin();
  EXPECT_TRUE(DamagesTheChild());
}

TEST_F(ThemeClientDamage, AnEqualColourAsksForNoFrame) {
  view->SetCustomThemeColor(ThemeColorID::kDefaultText, kOrange);
  stage.PaintFrame();
  view->SetCustomThemeColor(ThemeColorID::kDefaultText, kOrange);
  EXPECT_FALSE(stage.GetTree().NeedsFrame());
  view->SetCustomThemeColor(ThemeColorID::kDefaultText, ThemeColorID::kInteractive);
  EXPECT_TRUE(stage.GetTree().NeedsFrame());
}

TEST(ThemeClient, ACustomColourInvalidatesWhatSeesIt) {
  testing::Stage stage(ExtentT<float>(40, 40));
  stage.PaintFrame();
  stage.GetRootView().SetCustomThemeColor(ThemeColorID::kDefaultText, kOrange);
  EXPECT_TRUE(stage.GetTree().NeedsFrame());
}

}  // namespace
}  // namespace moxui::ui
