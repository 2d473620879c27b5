// Handlers that end the tree which is calling them.
#include "LoggingNode.h"

#include <moxui/testing/Stage.h>
#include <moxui/ui/DragData.h>
#include <moxui/ui/InputCapture.h>
#include <moxui/ui/UI_NodeManager.h>
#include <moxui/ui/UI_TimerManager.h>

#include <gmock/gmock.h>

#include <memory>

namespace moxui {
namespace {

using moxcore::utility::MakeIntrusive;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

// A parent and a child that both outlive their tree.
class EndedTree : public ::testing::Test {
 protected:
  EndedTree() {
    parent->wantsFocus = true;
    child->wantsFocus = true;
  }

  // The stage ends with its tree: only the tree is called, which may.
  ui::NodeTree& Tree() { return stage->GetTree(); }
  void EndAt(ui::PointerAction action) {
    child->onMouse = [this, action](ui::MouseEvent const& event) {
      if (event.IsAction(action)) {
        stage.reset();
      }
    };
  }
  static ui::PointerInput At(PointT<float> point, ui::PointerAction action) {
    return {.action = action,
            .position = point,
            .button = action == ui::PointerAction::kMove ? ui::MouseButton::kNone : ui::MouseButton::kLeft};
  }

  Log log;
  std::unique_ptr<testing::Stage> stage = std::make_unique<testing::Stage>();
  LoggingNodePtr parent = AddNode(stage->GetRootView(), log, "parent", {0, 0, 100, 100});
  LoggingNodePtr child = AddNode(*parent, log, "child", {0, 0, 50, 50});
};

TEST_F(EndedTree, ByAPress) {
  EndAt(ui::PointerAction::kPress);

  EXPECT_FALSE(Tree().HandlePointer(At({5, 5}, ui::PointerAction::kPress)));

  EXPECT_EQ(stage, nullptr);
  EXPECT_EQ(child->UI_GetTree(), nullptr);
  EXPECT_THAT(log, Not(Contains("parent press of child")));
}

TEST_F(EndedTree, ByTheReleaseOfAPressThatWasTaken) {
  child->takes = true;
  Tree().HandlePointer(At({5, 5}, ui::PointerAction::kPress));
  EndAt(ui::PointerAction::kRelease);

  Tree().HandlePointer(At({5, 5}, ui::PointerAction::kRelease));

  EXPECT_EQ(stage, nullptr);
  EXPECT_THAT(log, Not(Contains("parent release of child")));
}

TEST_F(EndedTree, WhileItLeavesNodes) {
  Tree().HandlePointer(At({5, 5}, ui::PointerAction::kMove));
  EndAt(ui::PointerAction::kLeave);

  Tree().HandlePointerLeft();

  EXPECT_EQ(stage, nullptr);
}

TEST_F(EndedTree, ByTheFocus) {
  Tree().SetFocus(parent.Get(), ui::FocusChangeReason::kByCode);
  parent->onFocus = [this](ui::FocusChangeReason) { stage.reset(); };

  EXPECT_FALSE(Tree().SetFocus(AddNode(stage->GetRootView(), log, "other", {200, 0, 9, 9}).Get(),
                               ui::FocusChangeReason::kByCode));

  EXPECT_EQ(stage, nullptr);
}

TEST_F(EndedTree, WhenItsWindowIsLeft) {
  Tree().SetFocus(parent.Get(), ui::FocusChangeReason::kByCode);
  parent->onFocus = [this](ui::FocusChangeReason) { stage.reset(); };

  Tree().SetActive(false);

  EXPECT_EQ(stage, nullptr);
}

TEST_F(EndedTree, ByATimerBeforeOthersThatAreDue) {
  child->onTimer = [this](int) { stage.reset(); };
  child->UI_InstallTimer(20, 1);
  parent->UI_InstallTimer(20, 2);

  Tree().GetTimers().FireDueTimers(stage->GetTime() + 20);

  EXPECT_EQ(stage, nullptr);
  EXPECT_THAT(log, ElementsAre("child timer1"));
}

TEST_F(EndedTree, ByAKey) {
  class KeyNode : public ui::UI_SubView {
   public:
    bool UI_DoKeyboardEvent(ui::UI_Node*, ui::KeyboardEvent const&) override {
      onKey();
      return false;
    }
    std::function<void()> onKey;
  };
  auto const node = MakeIntrusive<KeyNode>();
  node->onKey = [this] { stage.reset(); };
  parent->ChildPushBack(node);
  Tree().SetFocus(node.Get(), ui::FocusChangeReason::kByCode);

  EXPECT_FALSE(Tree().HandleKey({ui::KeyAction::kKeyDown, ui::KeyboardCode::kTab}));

  EXPECT_EQ(stage, nullptr);
  EXPECT_THAT(log, Not(Contains("parent key")));
}

TEST_F(EndedTree, ByADrop) {
  child->UI_InstallHandleDragEnterFunction([](PointT<float>, ui::OS_ReceiveData&, int&) { return true; });
  child->UI_InstallHandleDropFunction([this](PointT<float>, ui::OS_ReceiveData&, int&) {
    stage.reset();
    return true;
  });
  ui::OS_ReceiveData data{ui::TransferData{.text = u"text"}};
  Tree().HandleDrag(ui::DragPhase::kEnter, {5, 5}, data, ui::DropEffect::kCopy);

  EXPECT_EQ(Tree().HandleDrag(ui::DragPhase::kDrop, {5, 5}, data, ui::DropEffect::kCopy),
            ui::DropEffect::kCopy);

  EXPECT_EQ(stage, nullptr);
}

TEST_F(EndedTree, ByACaptureThatAnotherReplaces) {
  class EndingCapture : public ui::InputCapture {
   public:
    using InputCapture::InputCapture;
    void Cancel() override {
      InputCapture::Cancel();
      onCancel();
    }
    std::function<void()> onCancel = [] {};
  };
  ui::MouseEvent const press(ui::PointerAction::kPress, ui::MouseButton::kLeft, 1, {5, 5});
  auto const first = MakeIntrusive<EndingCapture>(child.Get(), press);
  first->onCancel = [this] { stage.reset(); };
  auto const second = MakeIntrusive<EndingCapture>(parent.Get(), press);
  Tree().BeginCapture(first);

  Tree().BeginCapture(second);

  EXPECT_EQ(stage, nullptr);
  EXPECT_FALSE(second->IsRunning());
  EXPECT_TRUE(second->HasBeenCancelled());
}

TEST_F(EndedTree, ByANodeThatIsPainted) {
  auto const target = platform::NewPaintTarget(100, 100, 1);
  child->onDraw = [this](scriber::Scriber*) { stage.reset(); };
  parent->UI_Invalidate();
  Tree().PrepareFrame();

  Tree().PaintDamage(target->BeginPaint(), {});
  target->EndPaint();

  EXPECT_EQ(stage, nullptr);
}

TEST_F(EndedTree, IsNotTheCurrentOneAnyMore) {
  testing::Stage other;
  ui::NodeTree* current = nullptr;
  child->onMouse = [&](ui::MouseEvent const&) {
    stage.reset();
    current = ui::UI_NodeManager::Get(false)->GetCurrentTree();
  };

  Tree().HandlePointer(At({5, 5}, ui::PointerAction::kPress));

  EXPECT_EQ(current, &other.GetTree());
}

}  // namespace
}  // namespace moxui
