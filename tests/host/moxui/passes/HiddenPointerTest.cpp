// A pointer that is hidden while a button is held: its motion has no end, whatever the screen.
#include "LoggingNode.h"

#include <moxui/platform/Application.h>
#include <moxui/platform/CursorControl.h>
#include <moxui/resources/ResourceManager.h>
#include <moxui/testing/Stage.h>
#include <moxui/ui/InputState.h>

#include <gmock/gmock.h>

namespace moxui {
namespace {

using ::testing::Contains;
using ::testing::Each;
using utility::OS_ResourceManager;

class HiddenPointer : public ::testing::Test {
 protected:
  HiddenPointer() {
    stage.SetOrigin({100, 50});
    stage.SetScreen(kScreen);
    node->takes = true;
    node->onMouse = [this](ui::MouseEvent const& event) {
      if (event.IsAction(ui::PointerAction::kMove)) {
        moves.push_back(event.GetPosition());
      }
    };
  }
  ~HiddenPointer() override { Show(); }

  static void Hide() { OS_ResourceManager::ShowPlatformCursor(false, true, false); }
  static void Show() { OS_ResourceManager::ShowPlatformCursor(true, true, false); }
  void PressHidden(PointT<float> point) {
    stage.Press(point);
    Hide();
    moves.clear();
  }
  /// The way from each move to the next, the press first.
  std::vector<PointT<float>> Steps(PointT<float> from) const {
    std::vector<PointT<float>> steps;
    for (PointT<float> const place : moves) {
      steps.push_back(place - from);
      from = place;
    }
    return steps;
  }

  static constexpr RectT<float> kScreen{0, 0, 800, 600};
  Log log;
  std::vector<PointT<float>> moves;
  testing::Stage stage{{400, 300}};
  LoggingNodePtr node = AddNode(stage.GetRootView(), log, "node", {0, 0, 400, 300});
};

TEST_F(HiddenPointer, MovesOnBeyondTheScreen) {
  for (PointT<float> const step :
       {PointT<float>(40, 0), PointT<float>(-40, 0), PointT<float>(0, -30), PointT<float>(37, 23)}) {
    PressHidden({50, 60});
    for (int i = 0; i < 200; ++i) {
      EXPECT_TRUE(stage.MoveBy(step));
      EXPECT_TRUE(kScreen.Contains(stage.GetPointerPosition()));
    }
    EXPECT_EQ(moves.size(), 200u);
    EXPECT_THAT(Steps({50, 60}), Each(step));
    ui::SetGlobalMousePosition(150, 110);
    stage.ReleaseHere();
    Show();
  }
}

TEST_F(HiddenPointer, TellsItsPlaceAsEventsDo) {
  PressHidden({50, 60});
  for (int i = 0; i < 30; ++i) {
    stage.MoveBy({50, 0});
    EXPECT_EQ(ui::GetGlobalMousePosition(), moves.back() + PointT<float>(100, 50));
  }
  EXPECT_EQ(ui::GetGlobalMousePosition(), PointT<float>(1650, 110));
}

TEST_F(HiddenPointer, StopsAtTheEdgeWhileItIsShown) {
  stage.Press({50, 60});
  moves.clear();
  for (int i = 0; i < 30; ++i) {
    stage.MoveBy({50, 0});
  }
  EXPECT_EQ(moves.back(), PointT<float>(699, 60));
  EXPECT_EQ(stage.GetPointerPosition(), PointT<float>(799, 110));
}

TEST_F(HiddenPointer, StopsAtTheEdgeWhileNoButtonIsHeld) {
  stage.Move({50, 60});
  Hide();
  for (int i = 0; i < 30; ++i) {
    stage.MoveBy({50, 0});
  }
  EXPECT_EQ(ui::GetGlobalMousePosition(), PointT<float>(799, 110));
}

TEST_F(HiddenPointer, StopsAtTheEdgeWithoutAJumpWhereItCannotBePutElsewhere) {
  stage.SetCanPlacePointer(false);
  PressHidden({50, 60});
  for (int i = 0; i < 30; ++i) {
    stage.MoveBy({50, 0});
  }
  EXPECT_EQ(moves.size(), 13u);
  EXPECT_EQ(moves.back(), PointT<float>(699, 60));
  stage.MoveBy({-9, 0});
  EXPECT_EQ(moves.back(), PointT<float>(690, 60));
}

TEST_F(HiddenPointer, LeavesAPenWhereItIs) {
  stage.SetPointerSubType(ui::PointerSubType::kPen);
  PressHidden({50, 60});
  stage.Move({690, 60});
  EXPECT_EQ(moves, std::vector<PointT<float>>({{690, 60}}));
  stage.Move({691, 60});
  EXPECT_EQ(moves.back(), PointT<float>(691, 60));
}

TEST_F(HiddenPointer, IsWhereItIsPutAtTheRelease) {
  node->onMouse = [](ui::MouseEvent const& event) {
    if (event.IsAction(ui::PointerAction::kRelease)) {
      ui::SetGlobalMousePosition(150, 110);
      Show();
    }
  };
  PressHidden({50, 60});
  for (int i = 0; i < 30; ++i) {
    stage.MoveBy({50, 0});
  }
  stage.ReleaseHere();

  EXPECT_EQ(stage.GetPointerPosition(), PointT<float>(150, 110));
  EXPECT_EQ(ui::GetGlobalMousePosition(), PointT<float>(150, 110));
  EXPECT_TRUE(stage.GetTree().IsHovered(node.Get(), true));
  node->onMouse = {};
  stage.MoveBy({5, 5});
  EXPECT_EQ(ui::GetGlobalMousePosition(), PointT<float>(155, 115));
  EXPECT_EQ(node->lastPosition, PointT<float>(55, 65));
}

TEST_F(HiddenPointer, ComesBackWhereItWasPressedWhenItIsOnlyShown) {
  PressHidden({50, 60});
  for (int i = 0; i < 30; ++i) {
    stage.MoveBy({50, 0});
  }
  EXPECT_NE(stage.GetPointerPosition(), PointT<float>(150, 110));
  Show();
  EXPECT_EQ(stage.GetPointerPosition(), PointT<float>(150, 110));
  EXPECT_EQ(ui::GetGlobalMousePosition(), PointT<float>(150, 110));
}

TEST_F(HiddenPointer, StaysWhereItIsWhenItIsShownAfterAShortWay) {
  PressHidden({300, 250});
  stage.MoveBy({20, 0});
  Show();
  EXPECT_EQ(stage.GetPointerPosition(), PointT<float>(420, 300));
}

TEST_F(HiddenPointer, ComesBackWhenTheWindowLosesADragMidway) {
  node->UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  node->onFocus = [](ui::FocusChangeReason reason) {
    if (reason == ui::FocusChangeReason::kDeactivated) {
      Show();
    }
  };
  stage.Press({50, 60});
  node->UI_SetCapture();
  Hide();
  for (int i = 0; i < 30; ++i) {
    stage.MoveBy({50, 0});
  }
  stage.Deactivate();

  EXPECT_TRUE(platform::Application::Get()->GetCursor().IsCursorShown());
  EXPECT_EQ(stage.GetPointerPosition(), PointT<float>(150, 110));
  EXPECT_THAT(log, Contains("node focus5"));
}

}  // namespace
}  // namespace moxui
