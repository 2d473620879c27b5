#include "LoggingNode.h"

#include <moxui/testing/Stage.h>
#include <moxui/ui/FocusChangeReason.h>

#include <gmock/gmock.h>

namespace moxui {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ui::FocusChangeReason;

class Focus : public ::testing::Test {
 protected:
  Focus() { first->wantsFocus = second->wantsFocus = third->wantsFocus = true; }

  Log log;
  testing::Stage stage;
  LoggingNodePtr group = AddNode(stage.GetRootView(), log, "group", {0, 0, 100, 100});
  LoggingNodePtr first = AddNode(*group, log, "first", {0, 0, 40, 40});
  LoggingNodePtr second = AddNode(*group, log, "second", {50, 0, 40, 40});
  LoggingNodePtr third = AddNode(stage.GetRootView(), log, "third", {100, 0, 100, 100});
};

TEST_F(Focus, IsToldToTheLeafAndItsAncestors) {
  EXPECT_TRUE(first->UI_GainKeyboardFocus(FocusChangeReason::kByCode));

  EXPECT_THAT(log, ElementsAre("first focus3", "group focus3"));
  EXPECT_EQ(stage.GetTree().GetFocusLeaf(), first.Get());
}

TEST_F(Focus, TellsTheLosingEndFirstUpToTheSharedAncestor) {
  first->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
  log.clear();

  second->UI_GainKeyboardFocus(FocusChangeReason::kPointer);
  EXPECT_THAT(log, ElementsAre("first focus4", "second focus1"));
  log.clear();

  third->UI_GainKeyboardFocus(FocusChangeReason::kTraversal);
  EXPECT_THAT(log, ElementsAre("second focus4", "group focus4", "third focus2"));
}

TEST_F(Focus, CountsTheSubtreeUnlessExactlyTheNodeIsMeant) {
  first->UI_GainKeyboardFocus(FocusChangeReason::kByCode);

  EXPECT_TRUE(group->UI_HasKeyboardFocus());
  EXPECT_FALSE(group->UI_HasKeyboardFocus(true));
  EXPECT_TRUE(first->UI_HasKeyboardFocus(true));
  EXPECT_FALSE(second->UI_HasKeyboardFocus());
  EXPECT_EQ(group->UI_GetKeyboardFocusLeafNode(), first.Get());
  EXPECT_EQ(third->UI_GetKeyboardFocusLeafNode(), nullptr);
}

TEST_F(Focus, IsGivenUpByANodeThatHoldsTheLeafOnly) {
  first->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
  log.clear();

  third->UI_LoseKeyboardFocus();
  EXPECT_THAT(log, IsEmpty());

  group->UI_LoseKeyboardFocus();
  EXPECT_THAT(log, ElementsAre("first focus4", "group focus4"));
  EXPECT_EQ(stage.GetTree().GetFocusLeaf(), nullptr);
}

TEST_F(Focus, ASecondGainTellsNothing) {
  first->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
  log.clear();

  EXPECT_TRUE(first->UI_GainKeyboardFocus(FocusChangeReason::kPointer));

  EXPECT_THAT(log, IsEmpty());
}

TEST_F(Focus, IsHeardByInstalledFunctionsForTheWholeSubtree) {
  std::vector<std::pair<ui::UI_Node*, FocusChangeReason>> heard;
  group->InstallFocusChangedFunction(
      [&](ui::UI_Node* node, FocusChangeReason reason) { heard.emplace_back(node, reason); });

  first->UI_GainKeyboardFocus(FocusChangeReason::kPointer);
  third->UI_GainKeyboardFocus(FocusChangeReason::kPointer);

  EXPECT_THAT(
      heard, ElementsAre(std::pair<ui::UI_Node*, FocusChangeReason>(group.Get(), FocusChangeReason::kPointer),
                         std::pair<ui::UI_Node*, FocusChangeReason>(group.Get(), FocusChangeReason::kLost)));
}

TEST_F(Focus, HidingTheLeafLosesItOnce) {
  first->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
  log.clear();

  first->UI_Hide();
  group->UI_Hide();

  EXPECT_THAT(log, ElementsAre("first focus4", "group focus4"));
}

TEST_F(Focus, DisablingOrRemovingAnAncestorLosesIt) {
  first->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
  log.clear();
  group->UI_SetDisabled();
  EXPECT_THAT(log, ElementsAre("first focus4", "group focus4"));

  group->UI_SetEnabled();
  first->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
  log.clear();
  stage.GetRootView().ChildRemove(group);
  EXPECT_THAT(log, ElementsAre("first focus4", "group focus4"));
}

TEST_F(Focus, HiddenDisabledAndDetachedNodesDoNotGetIt) {
  first->UI_Hide();
  EXPECT_FALSE(first->UI_GainKeyboardFocus(FocusChangeReason::kByCode));
  group->UI_SetDisabled();
  EXPECT_FALSE(second->UI_GainKeyboardFocus(FocusChangeReason::kByCode));
  stage.GetRootView().ChildRemove(third);
  EXPECT_FALSE(third->UI_GainKeyboardFocus(FocusChangeReason::kByCode));
  EXPECT_EQ(stage.GetTree().GetFocusLeaf(), nullptr);
}

TEST_F(Focus, ALeafThatHidesItselfWhenItLosesHearsOfItOnce) {
  first->onFocus = [this](FocusChangeReason reason) {
    if (reason == FocusChangeReason::kLost) {
      first->UI_Hide();
    }
  };
  first->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
  log.clear();

  third->UI_GainKeyboardFocus(FocusChangeReason::kPointer);

  EXPECT_THAT(log, ElementsAre("first focus4", "group focus4", "third focus1"));
}

TEST_F(Focus, AnAncestorMayHideTheLeafThatLost) {
  group->onFocus = [this](FocusChangeReason reason) {
    if (reason == FocusChangeReason::kLost || reason == FocusChangeReason::kDeactivated) {
      first->UI_Hide();
    }
  };
  first->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
  log.clear();

  stage.Deactivate();

  EXPECT_THAT(log, ElementsAre("first focus5", "group focus5"));
  EXPECT_EQ(stage.GetTree().GetFocusLeaf(), nullptr);
}

TEST_F(Focus, ALoserMayGiveItToAnotherOne) {
  first->onFocus = [this](FocusChangeReason reason) {
    if (reason == FocusChangeReason::kLost) {
      second->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
    }
  };
  first->UI_GainKeyboardFocus(FocusChangeReason::kByCode);

  EXPECT_FALSE(third->UI_GainKeyboardFocus(FocusChangeReason::kByCode));

  EXPECT_EQ(stage.GetTree().GetFocusLeaf(), second.Get());
}

TEST_F(Focus, ALeafDeletedByItsOwnHandlerHoldsNothing) {
  first->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
  first->onFocus = [this](FocusChangeReason) {
    group->DeleteChildren();
    first.Reset();
  };

  third->UI_GainKeyboardFocus(FocusChangeReason::kByCode);

  EXPECT_EQ(stage.GetTree().GetFocusLeaf(), third.Get());
}

TEST_F(Focus, RestsWhileTheWindowIsNotActive) {
  first->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
  log.clear();

  stage.Deactivate();
  EXPECT_THAT(log, ElementsAre("first focus5", "group focus5"));
  EXPECT_FALSE(first->UI_HasKeyboardFocus());
  EXPECT_EQ(stage.GetTree().GetFocusLeaf(), first.Get());
  log.clear();

  stage.Activate();
  EXPECT_THAT(log, ElementsAre("first focus3", "group focus3"));
  EXPECT_TRUE(first->UI_HasKeyboardFocus());
}

TEST_F(Focus, HidingARestingLeafTellsNothingMore) {
  first->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
  stage.Deactivate();
  log.clear();

  first->UI_Hide();
  stage.Activate();

  EXPECT_THAT(log, IsEmpty());
}

TEST_F(Focus, IsGivenUpByAPressWhereNothingWantsIt) {
  first->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
  log.clear();

  stage.Press({250, 250});

  EXPECT_THAT(log, ElementsAre("first focus4", "group focus4"));
}

TEST_F(Focus, StaysAtAPressOnTheLeafOrOnWhatWantsIt) {
  first->UI_GainKeyboardFocus(FocusChangeReason::kByCode);

  stage.Click({10, 10});
  stage.Click({150, 50});

  EXPECT_EQ(stage.GetTree().GetFocusLeaf(), first.Get());
}

class Keys : public Focus {};

TEST_F(Keys, GoFromThePreHandlersAtTheRootToTheLeafAndBackUp) {
  first->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
  group->logsPre = first->logsPre = true;
  log.clear();

  EXPECT_FALSE(stage.Key(ui::KeyboardCode::kA));

  EXPECT_THAT(log, ElementsAre("group prekey of first", "first prekey", "first key", "group key of first"));
}

TEST_F(Keys, EndWhereTheyAreTaken) {
  first->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
  first->takesKeys = true;
  log.clear();

  EXPECT_TRUE(stage.Key(ui::KeyboardCode::kA));
  EXPECT_THAT(log, ElementsAre("first key"));
  log.clear();

  group->takesPre = group->logsPre = true;
  EXPECT_TRUE(stage.Key(ui::KeyboardCode::kA));
  EXPECT_THAT(log, ElementsAre("group prekey of first"));
}

TEST_F(Keys, CompareShortcutsExactly) {
  ui::KeyboardEvent const space(ui::KeyAction::kKeyDown, ui::KeyboardCode::kSpace);
  ui::KeyboardEvent const shifted(ui::KeyAction::kKeyDown, ui::KeyboardCode::kSpace, ui::ModKey::kShift);

  EXPECT_EQ(static_cast<int>(ui::KeyboardCode::kSpace), 43);
  EXPECT_TRUE(space.CompareShortcut(ui::KeyboardCode::kSpace, {}));
  EXPECT_FALSE(shifted.CompareShortcut(ui::KeyboardCode::kSpace, {}));
  EXPECT_FALSE(space.CompareShortcut(ui::KeyboardCode::kReturn, {}));
}

class Traversal : public Focus {};

TEST_F(Traversal, GoesThroughWhoeverWantsTheFocusAndRoundTheEnd) {
  for (auto const& expected : {first, second, third, first}) {
    EXPECT_TRUE(stage.Tab());
    EXPECT_EQ(stage.GetTree().GetFocusLeaf(), expected.Get());
  }
  EXPECT_EQ(log.front(), "first focus2");
}

TEST_F(Traversal, GoesBackwardWithShift) {
  for (auto const& expected : {third, second, first, third}) {
    EXPECT_TRUE(stage.Tab(true));
    EXPECT_EQ(stage.GetTree().GetFocusLeaf(), expected.Get());
  }
}

TEST_F(Traversal, PassesHiddenAndDisabledOnes) {
  first->UI_Hide();
  second->UI_SetDisabled();

  stage.Tab();

  EXPECT_EQ(stage.GetTree().GetFocusLeaf(), third.Get());
}

TEST_F(Traversal, GoesToTheFirstWillingOneInsideAViewThatWantsTheFocus) {
  group->wantsFocus = true;

  stage.Tab();
  EXPECT_EQ(stage.GetTree().GetFocusLeaf(), first.Get());

  first->wantsFocus = second->wantsFocus = false;
  stage.GetTree().SetFocus(nullptr, FocusChangeReason::kByCode);
  stage.Tab();
  EXPECT_EQ(stage.GetTree().GetFocusLeaf(), group.Get());
}

TEST_F(Traversal, IsForTabsThatNobodyTook) {
  first->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
  first->takesKeys = true;

  stage.Tab();

  EXPECT_EQ(stage.GetTree().GetFocusLeaf(), first.Get());
}

TEST_F(Traversal, DoesNothingWhereNobodyWantsTheFocus) {
  first->wantsFocus = second->wantsFocus = third->wantsFocus = false;

  EXPECT_FALSE(stage.Tab());
}

}  // namespace
}  // namespace moxui
