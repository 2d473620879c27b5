#include "LoggingNode.h"

#include <moxui/testing/Stage.h>
#include <moxui/ui/InputCapture.h>
#include <moxui/ui/UI_NodeManager.h>

#include <gmock/gmock.h>

namespace moxui {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

/// A capture that consumes moves and lets everything else go on.
class MoveCapture : public ui::InputCapture {
 public:
  MoveCapture(Log& log, ui::UI_Node* node)
      : InputCapture(node, ui::MouseEvent(ui::PointerAction::kPress, ui::MouseButton::kLeft, 1, {3, 4})),
        mLog(log) {}

  void Begin() override {
    mLog.emplace_back("begin");
    InputCapture::Begin();
  }
  void End() override {
    mLog.emplace_back("end");
    InputCapture::End();
  }
  void Cancel() override {
    mLog.emplace_back("cancel");
    InputCapture::Cancel();
  }
  bool HandleMouseEvent(ui::MouseEvent const& event) override {
    position = event.GetPosition();
    if (event.IsAction(ui::PointerAction::kMove)) {
      mLog.emplace_back("captured move");
      return true;
    }
    mLog.emplace_back("captured other");
    if (event.IsAction(ui::PointerAction::kRelease) && endsAtRelease) {
      ui::UI_NodeManager::Get(false)->EndInputCapture(false);
    }
    return false;
  }

  PointT<float> position;
  bool endsAtRelease = true;

 private:
  Log& mLog;
};

class Capture : public ::testing::Test {
 protected:
  Capture() {
    node->takes = true;
    node->logsMoves = true;
  }

  IntrusivePtr<MoveCapture> Begin() {
    auto capture = MakeIntrusive<MoveCapture>(log, node.Get());
    ui::UI_NodeManager::Get(false)->BeginInputCapture(capture);
    return capture;
  }

  Log log;
  testing::Stage stage;
  LoggingNodePtr parent = AddNode(stage.GetRootView(), log, "parent", {0, 0, 100, 100});
  LoggingNodePtr node = AddNode(*parent, log, "node", {10, 10, 50, 50});
  LoggingNodePtr other = AddNode(stage.GetRootView(), log, "other", {100, 0, 100, 100});
};

TEST_F(Capture, HearsEverythingFirstInItsNodesCoordinates) {
  auto const capture = Begin();

  stage.Move({150, 50});

  EXPECT_THAT(log, ElementsAre("begin", "captured move"));
  EXPECT_EQ(capture->position, PointT<float>(140, 40));
  EXPECT_EQ(capture->GetBeginPosition(), PointT<float>(3, 4));
  EXPECT_TRUE(capture->IsRunning());
}

TEST_F(Capture, CancelsTheOneThatTheCancelledBegan) {
  class Stubborn : public MoveCapture {
   public:
    using MoveCapture::MoveCapture;
    void Cancel() override {
      MoveCapture::Cancel();
      ui::UI_NodeManager::Get(false)->BeginInputCapture(second);
    }
    IntrusivePtr<MoveCapture> second;
  };
  auto const first = MakeIntrusive<Stubborn>(log, node.Get());
  auto const second = MakeIntrusive<MoveCapture>(log, node.Get());
  first->second = second;
  ui::UI_NodeManager::Get(false)->BeginInputCapture(first);

  auto const third = Begin();

  EXPECT_TRUE(second->HasBeenCancelled());
  EXPECT_FALSE(second->IsRunning());
  EXPECT_EQ(stage.GetTree().GetCapture(), third.Get());
}

TEST_F(Capture, OfANodeInAnotherTreeIsFoundThere) {
  auto const capture = Begin();
  testing::Stage current;
  ASSERT_EQ(ui::UI_NodeManager::Get(false)->GetCurrentTree(), &current.GetTree());
  EXPECT_EQ(ui::UI_NodeManager::Get(false)->GetInputCapture(), capture.Get());

  ui::UI_NodeManager::Get(false)->EndInputCapture(false);

  EXPECT_FALSE(capture->IsRunning());
  EXPECT_EQ(stage.GetTree().GetCapture(), nullptr);
}

TEST_F(Capture, LetsAnEventGoOnToItsTargetWhenItIsNotConsumed) {
  node->onMouse = [this](ui::MouseEvent const& event) {
    if (event.IsAction(ui::PointerAction::kPress)) {
      Begin();
    }
  };
  stage.Press({20, 20});
  log.clear();

  stage.Release({20, 20});

  EXPECT_EQ(log[0], "captured other");
  EXPECT_EQ(log[1], "end");
  EXPECT_EQ(log[2], "node release");
  EXPECT_EQ(ui::UI_NodeManager::Get(false)->GetInputCapture(), nullptr);
}

TEST_F(Capture, IsHeldByReferenceWhileItRuns) {
  Begin();

  EXPECT_NE(ui::UI_NodeManager::Get(false)->GetInputCapture(), nullptr);
  stage.Move({50, 50});
  EXPECT_THAT(log, Contains("captured move"));
}

TEST_F(Capture, ANewOneCancelsTheOldOne) {
  auto const old = Begin();
  auto const next = Begin();

  EXPECT_THAT(log, ElementsAre("begin", "cancel", "begin"));
  EXPECT_TRUE(old->HasBeenCancelled());
  EXPECT_FALSE(next->HasBeenCancelled());
}

TEST_F(Capture, EndsByEndOrByCancel) {
  auto const ended = Begin();
  ui::UI_NodeManager::Get(false)->EndInputCapture(false);
  EXPECT_FALSE(ended->HasBeenCancelled());
  auto const cancelled = Begin();
  ui::UI_NodeManager::Get(false)->EndInputCapture(true);
  EXPECT_TRUE(cancelled->HasBeenCancelled());

  EXPECT_THAT(log, ElementsAre("begin", "end", "begin", "cancel"));
}

TEST_F(Capture, IsLostWithTheWindowsActivation) {
  Begin();
  log.clear();

  stage.Deactivate();

  EXPECT_THAT(log, ElementsAre("cancel", "node focus5", "parent focus5"));
  EXPECT_EQ(stage.GetTree().GetCapture(), nullptr);
}

TEST_F(Capture, IsLostToAModalWindow) {
  Begin();
  log.clear();

  stage.GetTree().BlockByModal();

  EXPECT_THAT(log, ElementsAre("cancel", "node focus5", "parent focus5"));
}

TEST_F(Capture, IsLostWithItsNode) {
  for (auto const& end : std::vector<std::function<void()>>{
           [this] { node->UI_Hide(); },
           [this] { parent->UI_SetDisabled(); },
           [this] { parent->ChildRemove(node); },
       }) {
    node->UI_Show();
    parent->UI_SetEnabled();
    Begin();
    log.clear();

    end();

    EXPECT_THAT(log, ElementsAre("cancel", "node focus5", "parent focus5"));
    EXPECT_EQ(stage.GetTree().GetCapture(), nullptr);
  }
}

TEST_F(Capture, HoldsHoverUntilItEnds) {
  stage.Move({20, 20});
  Begin();
  stage.Move({150, 50});
  EXPECT_TRUE(stage.GetTree().IsHovered(node.Get(), true));
  log.clear();

  ui::UI_NodeManager::Get(false)->EndInputCapture(false);

  EXPECT_THAT(log, Contains("node leave"));
  EXPECT_TRUE(stage.GetTree().IsHovered(other.Get(), true));
}

TEST_F(Capture, OfANodeSendsItAllUntilReleased) {
  stage.Move({20, 20});
  node->UI_SetCapture();
  log.clear();

  stage.Move({150, 50});
  EXPECT_THAT(log, ElementsAre("node move"));
  node->UI_ReleaseCapture();
  log.clear();
  stage.Move({151, 50});

  EXPECT_THAT(log, Not(Contains("node move")));
}

TEST_F(Capture, ReleaseByAnotherNodeDoesNothing) {
  node->UI_SetCapture();

  other->UI_ReleaseCapture();

  EXPECT_NE(stage.GetTree().GetCapture(), nullptr);
}

TEST(NodeManager, ActsOnTheTreeWhoseEventIsBeingHandled) {
  Log log;
  testing::Stage first;
  testing::Stage second;
  auto const node = AddNode(first.GetRootView(), log, "node", {0, 0, 50, 50});
  ui::NodeTree* handled = nullptr;
  node->onMouse = [&](ui::MouseEvent const&) { handled = ui::UI_NodeManager::Get(false)->GetCurrentTree(); };

  EXPECT_EQ(ui::UI_NodeManager::Get(false)->GetCurrentTree(), &second.GetTree());
  first.Press({5, 5});

  EXPECT_EQ(handled, &first.GetTree());
  EXPECT_EQ(ui::UI_NodeManager::Get(false)->GetCurrentTree(), &second.GetTree());
}

TEST(NodeManager, NeverRepeatsATimerID) {
  int const first = ui::UI_NodeManager::GetUniqueTimerID();

  EXPECT_NE(ui::UI_NodeManager::GetUniqueTimerID(), first);
}

}  // namespace
}  // namespace moxui
