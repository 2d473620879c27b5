#include "LoggingNode.h"

#include <moxcore/config/Errors.h>
#include <moxcore/utility/RefCountedWeakPtr.h>
#include <moxui/testing/Stage.h>

#include <gmock/gmock.h>

namespace moxui {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using moxcore::utility::RefCountedWeakPtr;
using ::testing::ElementsAre;

TEST(Container, HoldsChildrenInOrder) {
  auto const parent = MakeIntrusive<ui::UI_SubView>();
  auto const first = MakeIntrusive<ui::UI_Node>();
  auto const second = MakeIntrusive<ui::UI_Node>();

  parent->ChildPushBack(first);
  parent->ChildPushBack(second);

  EXPECT_EQ(parent->ChildSize(), 2u);
  EXPECT_EQ(parent->ChildGet(0), first);
  EXPECT_EQ(parent->ChildGet(1), second);
  EXPECT_EQ(parent->ChildGet(2), nullptr);
  EXPECT_EQ(std::vector(parent->ChildBegin(), parent->ChildEnd()), (std::vector{first, second}));
  EXPECT_EQ(first->UI_GetParentNode(), parent.Get());
  EXPECT_EQ(parent->UI_GetParentNode(), nullptr);
}

TEST(Container, ThrowsForNoChild) {
  auto const parent = MakeIntrusive<ui::UI_SubView>();

  EXPECT_THROW(parent->ChildPushBack(nullptr), moxcore::config::mox_exception);
  EXPECT_EQ(parent->ChildSize(), 0u);
}

TEST(Container, MovesAChildOfAnotherParent) {
  auto const from = MakeIntrusive<ui::UI_SubView>();
  auto const to = MakeIntrusive<ui::UI_SubView>();
  auto const child = MakeIntrusive<ui::UI_Node>();
  from->ChildPushBack(child);

  to->ChildPushBack(child);

  EXPECT_EQ(from->ChildSize(), 0u);
  EXPECT_EQ(to->ChildSize(), 1u);
  EXPECT_EQ(child->UI_GetParentNode(), to.Get());
}

TEST(Container, DoesNotTakeANodeBelowItself) {
  auto const parent = MakeIntrusive<ui::UI_SubView>();
  auto const child = MakeIntrusive<ui::UI_SubView>();
  parent->ChildPushBack(child);

  child->ChildPushBack(parent);
  parent->ChildPushBack(parent);

  EXPECT_EQ(child->ChildSize(), 0u);
  EXPECT_EQ(parent->ChildSize(), 1u);
}

TEST(Container, RemovesItsOwnChildrenOnly) {
  auto const parent = MakeIntrusive<ui::UI_SubView>();
  auto const child = MakeIntrusive<ui::UI_Node>();
  auto const stranger = MakeIntrusive<ui::UI_Node>();
  parent->ChildPushBack(child);

  parent->ChildRemove(stranger);
  EXPECT_EQ(parent->ChildSize(), 1u);
  parent->ChildRemove(child);

  EXPECT_EQ(parent->ChildSize(), 0u);
  EXPECT_EQ(child->UI_GetParentNode(), nullptr);
}

TEST(Container, DeletesAllItsChildren) {
  auto const parent = MakeIntrusive<ui::UI_SubView>();
  RefCountedWeakPtr<ui::UI_Node> weak;
  {
    auto const child = MakeIntrusive<ui::UI_Node>();
    weak = RefCountedWeakPtr<ui::UI_Node>(child);
    parent->ChildPushBack(child);
    parent->ChildPushBack(MakeIntrusive<ui::UI_Node>());
  }
  EXPECT_TRUE(weak.Lock());

  parent->DeleteChildren();

  EXPECT_EQ(parent->ChildSize(), 0u);
  EXPECT_FALSE(weak.Lock());
}

TEST(Container, LeavesAChildThatIsHeldElsewhereWithoutAParent) {
  auto const child = MakeIntrusive<ui::UI_Node>();
  {
    auto const parent = MakeIntrusive<ui::UI_SubView>();
    parent->ChildPushBack(child);
  }

  EXPECT_EQ(child->UI_GetParentNode(), nullptr);
}

TEST(Container, InsertsAtAPlace) {
  Log log;
  testing::Stage stage;
  auto const above = AddNode(stage.GetRootView(), log, "above", {0, 0, 10, 10});
  auto const below = MakeIntrusive<LoggingNode>(log, "below");
  below->UI_SetLocalRectF({0, 0, 10, 10});

  stage.GetRootView().ChildInsert(0, below);

  EXPECT_EQ(stage.GetRootView().ChildGet(0).Get(), below.Get());
  EXPECT_EQ(stage.GetTree().FindNode({5, 5}), above.Get());
}

TEST(Container, LeavesAChildWhereAHandlerOfItsRemovalHasPutIt) {
  Log log;
  testing::Stage stage;
  auto const from = AddNode(stage.GetRootView(), log, "from", {0, 0, 50, 50});
  auto const to = AddNode(stage.GetRootView(), log, "to", {50, 0, 50, 50});
  auto const elsewhere = AddNode(stage.GetRootView(), log, "elsewhere", {0, 50, 50, 50});
  auto const child = AddNode(*from, log, "child", {0, 0, 10, 10});
  child->UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  child->onFocus = [&](ui::FocusChangeReason) {
    child->onFocus = {};
    elsewhere->ChildPushBack(child);
  };

  to->ChildPushBack(child);

  EXPECT_EQ(child->UI_GetParentNode(), elsewhere.Get());
  EXPECT_EQ(from->ChildSize(), 0u);
  EXPECT_EQ(to->ChildSize(), 0u);
  EXPECT_EQ(elsewhere->ChildSize(), 1u);
}

class ChangeLog : public ui::UI_SubView {
 public:
  void UI_NodeChanged(ui::NodeChange change) override { changes.push_back(change); }
  std::vector<ui::NodeChange> changes;
};

TEST(Container, TellsASubtreeThatItCameIntoATreeAndLeftIt) {
  testing::Stage stage;
  auto const parent = MakeIntrusive<ui::UI_SubView>();
  auto const child = MakeIntrusive<ChangeLog>();
  parent->ChildPushBack(child);
  EXPECT_EQ(child->UI_GetTree(), nullptr);

  stage.GetRootView().ChildPushBack(parent);
  EXPECT_EQ(child->UI_GetTree(), &stage.GetTree());
  child->UI_Hide();
  child->UI_SetDisabled();
  stage.GetRootView().ChildRemove(parent);

  EXPECT_EQ(child->UI_GetTree(), nullptr);
  EXPECT_THAT(child->changes, ElementsAre(ui::NodeChange::kAttached, ui::NodeChange::kHidden,
                                          ui::NodeChange::kDisabled, ui::NodeChange::kDetached));
}

/// Weak and strong references to itself inside its constructor.
class Selfish : public ui::UI_SubView {
 public:
  Selfish() : mWeak(this) {
    IntrusivePtr<ui::UI_Node> const strong(this);
    wasLocked = mWeak.Lock() != nullptr;
    auto const child = MakeIntrusive<ui::UI_Node>();
    ChildPushBack(child);
    UI_SetLocalRectF({0, 0, 10, 10});
  }
  bool wasLocked = false;

 private:
  RefCountedWeakPtr<ui::UI_Node> mWeak;
};

TEST(Lifetime, ReferencesToANodeMayBeMadeInItsConstructor) {
  auto const node = MakeIntrusive<Selfish>();

  EXPECT_TRUE(node->wasLocked);
  EXPECT_EQ(node->GetRefCount(), 1);
}

TEST(Lifetime, ATreeLetsItsNodesGo) {
  Log log;
  RefCountedWeakPtr<LoggingNode> weak;
  {
    testing::Stage stage;
    auto node = AddNode(stage.GetRootView(), log, "node", {0, 0, 50, 50});
    node->wantsFocus = true;
    node->takes = true;
    node->UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
    node->UI_InstallTimer(10, 1);
    stage.Press({5, 5});
    weak = RefCountedWeakPtr<LoggingNode>(node);
  }

  EXPECT_FALSE(weak.Lock());
}

}  // namespace
}  // namespace moxui
