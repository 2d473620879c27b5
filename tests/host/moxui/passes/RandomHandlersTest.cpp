#include <moxui/controls/UI_ControlView.h>
#include <moxui/testing/Stage.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/UI_NodeManager.h>
#include <moxui/ui/UI_TimerManager.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <utility>

namespace moxui {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;

class Wild;

constexpr int kDeepest = 3;

/// A tree whose nodes do anything to it at any time, and what must hold of it nevertheless.
class Wilderness {
 public:
  explicit Wilderness(unsigned seed) : mRandom(seed) {}
  ~Wilderness() { depth = kDeepest; }  // at the end nodes only listen

  int Below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(mRandom); }
  bool OneIn(int count) { return Below(count) == 0; }
  PointT<float> Point() { return {static_cast<float>(Below(320) - 10), static_cast<float>(Below(220) - 10)}; }

  IntrusivePtr<Wild> NewNode();
  IntrusivePtr<Wild> AnyNode();
  void DoAnything();
  void SendAnything();
  void ExpectSound() const;
  static void ExpectSound(ui::NodeTree const& tree);

  void SendToOther();
  void EndOther();
  ui::UI_SubView& AnyRoot() { return OneIn(4) ? other->GetRootView() : stage.GetRootView(); }

  testing::Stage stage{{300, 200}};
  /// One that handlers may end.
  std::unique_ptr<testing::Stage> other = std::make_unique<testing::Stage>(ExtentT<float>(300, 200));
  int depth = 0;

 private:
  std::mt19937 mRandom;
};

class Wild : public controls::UI_ControlView {
 public:
  explicit Wild(Wilderness& wilderness) : mWilderness(wilderness) {
    SetWantsKeyboardFocus(mWilderness.OneIn(2));
    UI_SetClipsChildren(mWilderness.OneIn(4));
    UI_SetToolTip(mWilderness.OneIn(2) ? "tip" : "", 20);
  }

  bool UI_DoPrePointerEvent(ui::UI_Node*, ui::PointerEvent const&) override { return React(20); }
  bool UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) override {
    UI_ControlView::UI_DoMouseEvent(node, event);
    return React(3);
  }
  bool UI_DoKeyboardEvent(ui::UI_Node*, ui::KeyboardEvent const&) override { return React(3); }
  bool UI_DoTimerNotify(int) override { return React(3); }
  bool UI_DoCursor(ui::UI_Node*, PointT<float>, unsigned) override { return React(10); }
  bool UI_InvalidateOnMouseOverChange(bool) override { return React(10); }
  void UI_FocusChanged(ui::FocusChangeReason reason) override {
    UI_ControlView::UI_FocusChanged(reason);
    React(3);
  }
  void UI_NodeChanged(ui::NodeChange) override { React(20); }
  void UI_SizeChanged(RectT<float> const& rect) override {
    UI_ControlView::UI_SizeChanged(rect);
    React(20);
  }

 private:
  bool React(int oneIn) {
    if (mWilderness.depth < kDeepest && mWilderness.OneIn(oneIn)) {
      ++mWilderness.depth;
      mWilderness.DoAnything();
      --mWilderness.depth;
    }
    return mWilderness.OneIn(3);
  }

  Wilderness& mWilderness;
};

IntrusivePtr<Wild> Wilderness::NewNode() {
  auto node = MakeIntrusive<Wild>(*this);
  PointT<float> const place = Point();
  node->UI_SetLocalRectF(
      {place.x / 2, place.y / 2, static_cast<float>(Below(150) - 10), static_cast<float>(Below(100))});
  return node;
}

IntrusivePtr<Wild> Wilderness::AnyNode() {
  ui::UI_Node* const root = &AnyRoot();
  ui::UI_Node* node = root;
  while (node->UI_GetContainer()->ChildSize() > 0 && (node == root || !OneIn(3))) {
    auto const count = static_cast<int>(node->UI_GetContainer()->ChildSize());
    node = node->UI_GetContainer()->ChildGet(static_cast<std::size_t>(Below(count))).Get();
  }
  return IntrusivePtr<Wild>(dynamic_cast<Wild*>(node));
}

void Wilderness::DoAnything() {
  auto const node = AnyNode();
  if (!node || OneIn(4)) {
    auto const parent = AnyNode();
    (parent && OneIn(2) ? static_cast<ui::UI_SubView&>(*parent) : AnyRoot()).ChildPushBack(NewNode());
    return;
  }
  switch (Below(15)) {
    case 0:
      node->UI_GetParentNode()->UI_GetContainer()->ChildRemove(node.Get());
      break;
    case 1:
      node->DeleteChildren();
      break;
    case 2:
      node->UI_Show(!node->UI_IsShown());
      break;
    case 3:
      node->UI_SetDisabled(OneIn(2));
      break;
    case 4:
      node->UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
      break;
    case 5:
      node->UI_LoseKeyboardFocus();
      break;
    case 6:
      node->UI_SetCapture();
      break;
    case 7:
      ui::UI_NodeManager::Get(false)->EndInputCapture(OneIn(2));
      break;
    case 8:
      node->UI_InstallTimer(15, Below(3));
      break;
    case 9:
      if (auto const newParent = AnyNode()) {
        newParent->ChildPushBack(node);
      }
      break;
    case 10:
      node->UI_SetLocalRectF({Point().x, Point().y, static_cast<float>(Below(100)), 30});
      break;
    case 11:
      stage.GetTree().CheckSwallowedRelease();
      break;
    case 12:
      node->UI_SetToolTip("other tip", 10);
      break;
    case 13:
      EndOther();
      break;
    default:
      node->UI_Invalidate();
      break;
  }
}

void Wilderness::EndOther() {
  auto const ended = std::exchange(other, std::make_unique<testing::Stage>(ExtentT<float>(300, 200)));
}

/// The tree only: a stage doesn't bear its own end.
void Wilderness::SendToOther() {
  ui::NodeTree& tree = other->GetTree();
  ui::PointerInput input;
  input.position = Point();
  switch (Below(8)) {
    case 0:
      input.action = ui::PointerAction::kPress;
      input.button = ui::MouseButton::kLeft;
      break;
    case 1:
      input.action = ui::PointerAction::kRelease;
      input.button = ui::MouseButton::kLeft;
      break;
    case 2:
      tree.HandlePointerLeft();
      return;
    case 3:
      tree.HandleKey({ui::KeyAction::kKeyDown, ui::KeyboardCode::kTab});
      return;
    case 4:
      tree.SetActive(OneIn(2));
      return;
    case 5:
      tree.PrepareFrame();
      return;
    case 6:
      tree.GetTimers().FireDueTimers(other->GetTime() + Below(50));
      return;
    default:
      break;
  }
  tree.HandlePointer(input);
}

void Wilderness::SendAnything() {
  auto const button = OneIn(3) ? ui::MouseButton::kRight : ui::MouseButton::kLeft;
  switch (Below(13)) {
    case 0:
      stage.Press(Point(), button);
      break;
    case 1:
      stage.Release(Point(), button);
      break;
    case 2:
      stage.Leave();
      break;
    case 3:
      stage.Tab(OneIn(2));
      break;
    case 4:
      stage.AdvanceTime(Below(50));
      break;
    case 5:
      OneIn(2) ? stage.Activate() : stage.Deactivate();
      break;
    case 6:
      stage.PaintFrame();
      break;
    case 7:
      stage.Type(u"a");
      break;
    case 8:
    case 9:
    case 10:
      SendToOther();
      break;
    default:
      stage.Move(Point());
      break;
  }
}

bool IsShownInTree(ui::UI_Node const* node) {
  for (; node != nullptr; node = node->UI_GetParentNode()) {
    if (!node->UI_IsShown()) {
      return false;
    }
  }
  return true;
}

void Wilderness::ExpectSound() const {
  for (ui::NodeTree const* const tree : ui::UI_NodeManager::Get(false)->GetTrees()) {
    ExpectSound(*tree);
  }
}

void Wilderness::ExpectSound(ui::NodeTree const& tree) {
  if (ui::UI_Node const* const leaf = tree.GetFocusLeaf()) {
    ASSERT_EQ(leaf->UI_GetTree(), &tree);
    ASSERT_TRUE(IsShownInTree(leaf));
    ASSERT_TRUE(leaf->UI_IsEnabled());
  }
  if (auto const hovered = tree.GetHoveredNode()) {
    ASSERT_EQ(hovered->UI_GetTree(), &tree);
    ASSERT_TRUE(IsShownInTree(hovered.Get()));
  }
  if (tree.GetCapture() != nullptr) {
    auto const captor = tree.GetCapture()->GetNode();
    ASSERT_TRUE(captor);
    ASSERT_EQ(captor->UI_GetTree(), &tree);
  }
  ASSERT_LE(tree.GetDamage().size(), 8u);
}

class RandomHandlers : public ::testing::TestWithParam<unsigned> {};

TEST_P(RandomHandlers, MayDoAnythingAtAnyTime) {
  Wilderness wilderness(GetParam());
  for (int step = 0; step < 600; ++step) {
    if (wilderness.OneIn(3)) {
      wilderness.DoAnything();
    }
    wilderness.SendAnything();
    wilderness.ExpectSound();
    if (HasFatalFailure()) {
      FAIL() << "after step " << step;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomHandlers, ::testing::Range(1U, 9U));

}  // namespace
}  // namespace moxui
