#include <moxui/testing/Stage.h>
#include <moxworkspace/TabPanel.h>
#include <moxworkspace/TopLevelWindow.h>
#include <moxworkspace/Workspace.h>
#include <moxworkspace/WorkspaceUtils.h>

#include <gtest/gtest.h>

#include <memory>

namespace moxworkspace {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using moxui::RectT;
using moxui::ui::FocusChangeReason;
using moxui::ui::UI_SubView;

// Two panels side by side in a workspace, each with a field that takes the keyboard focus, and a bar below.
class TwoPanels : public ::testing::Test {
 protected:
  class Field : public UI_SubView {
   public:
    bool UI_WantsKeyboardFocus() const override { return true; }
  };

  TwoPanels() {
    stage.GetRootView().ChildPushBack(workspace);
    workspace->UI_SetLocalRectF({0, 0, 200, 120});
    Add(*workspace, left, {0, 0, 100, 100});
    Add(*workspace, right, {100, 0, 100, 100});
    Add(*workspace, bar, {0, 100, 200, 20});
    Add(*left, leftField, {10, 10, 50, 20});
    Add(*right, rightField, {10, 10, 50, 20});
  }

  static void Add(UI_SubView& parent, IntrusivePtr<UI_SubView> const& child, RectT<float> const& rect) {
    child->UI_SetLocalRectF(rect);
    parent.ChildPushBack(child);
  }

  moxui::testing::Stage stage{{200, 150}};
  IntrusivePtr<Workspace> workspace = MakeIntrusive<Workspace>();
  IntrusivePtr<TabPanel> left = MakeIntrusive<TabPanel>(u"Source");
  IntrusivePtr<TabPanel> right = MakeIntrusive<TabPanel>(u"Program");
  IntrusivePtr<UI_SubView> bar = MakeIntrusive<UI_SubView>();
  IntrusivePtr<UI_SubView> leftField = MakeIntrusive<Field>();
  IntrusivePtr<UI_SubView> rightField = MakeIntrusive<Field>();
};

TEST_F(TwoPanels, HaveTitles) {
  EXPECT_EQ(left->GetTitle(), u"Source");
  left->SetTitle(u"Mixer");
  EXPECT_EQ(left->GetTitle(), u"Mixer");
}

TEST_F(TwoPanels, HaveNoFocusAtFirst) {
  EXPECT_EQ(workspace->GetFocusedTabPanel(), nullptr);
}

TEST_F(TwoPanels, AreFocusedByAPressAnywhereInThem) {
  stage.Click({90, 90});
  EXPECT_EQ(workspace->GetFocusedTabPanel(), left.Get());
  stage.Click({120, 20}, moxui::ui::MouseButton::kRight);
  EXPECT_EQ(workspace->GetFocusedTabPanel(), right.Get());
  stage.Move({20, 20});
  EXPECT_EQ(workspace->GetFocusedTabPanel(), right.Get());
}

TEST_F(TwoPanels, KeepTheFocusWhenThePressIsOutsideOfBoth) {
  stage.Click({90, 90});
  stage.Click({50, 110});
  stage.Click({50, 140});
  EXPECT_EQ(workspace->GetFocusedTabPanel(), left.Get());
}

TEST_F(TwoPanels, AreFocusedWithAControlInThem) {
  rightField->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
  EXPECT_EQ(workspace->GetFocusedTabPanel(), right.Get());
  stage.Tab();
  EXPECT_EQ(workspace->GetFocusedTabPanel(), left.Get());
  leftField->UI_LoseKeyboardFocus();
  EXPECT_EQ(workspace->GetFocusedTabPanel(), left.Get());
}

TEST_F(TwoPanels, KeepTheFocusWhileTheWindowIsNotActive) {
  leftField->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
  stage.Deactivate();
  EXPECT_EQ(workspace->GetFocusedTabPanel(), left.Get());
}

TEST_F(TwoPanels, TakeTheKeyboardFocusFromAnother) {
  leftField->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
  workspace->SetFocusedTabPanel(right.Get());
  EXPECT_FALSE(leftField->UI_HasKeyboardFocus());
  EXPECT_EQ(workspace->GetFocusedTabPanel(), right.Get());
  workspace->SetFocusedTabPanel(nullptr);
  EXPECT_EQ(workspace->GetFocusedTabPanel(), nullptr);
}

TEST_F(TwoPanels, LeaveTheKeyboardFocusToAControlOfTheirOwn) {
  leftField->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
  workspace->SetFocusedTabPanel(left.Get());
  EXPECT_TRUE(leftField->UI_HasKeyboardFocus());
}

TEST_F(TwoPanels, AreNotFocusedWhileTheyAreHiddenOrElsewhere) {
  workspace->SetFocusedTabPanel(left.Get());
  left->UI_Hide();
  EXPECT_EQ(workspace->GetFocusedTabPanel(), nullptr);
  left->UI_Show();
  EXPECT_EQ(workspace->GetFocusedTabPanel(), left.Get());
  workspace->ChildRemove(left);
  EXPECT_EQ(workspace->GetFocusedTabPanel(), nullptr);
  left.Reset();
  EXPECT_EQ(workspace->GetFocusedTabPanel(), nullptr);
}

TEST_F(TwoPanels, AreFocusedByWhatIsInnermost) {
  auto const inner = MakeIntrusive<TabPanel>(u"Inner");
  auto const innerField = MakeIntrusive<Field>();
  Add(*left, inner, {0, 50, 100, 50});
  Add(*inner, innerField, {0, 0, 20, 20});
  innerField->UI_GainKeyboardFocus(FocusChangeReason::kByCode);
  EXPECT_EQ(workspace->GetFocusedTabPanel(), inner.Get());
  EXPECT_TRUE(innerField->UI_HasKeyboardFocus());
  EXPECT_EQ(TabPanel::FindPanelOf(innerField.Get()), inner.Get());
  EXPECT_EQ(TabPanel::FindPanelOf(left.Get()), left.Get());
  EXPECT_EQ(TabPanel::FindPanelOf(bar.Get()), nullptr);
  stage.Click({90, 10});
  EXPECT_EQ(workspace->GetFocusedTabPanel(), left.Get());
}

TEST_F(TwoPanels, AreFoundThroughTheMainWindow) {
  EXPECT_EQ(WorkspaceUtils::FindMainTopLevelWindow(), nullptr);
  {
    moxui::testing::Stage otherStage;
    TopLevelWindow const other(otherStage.GetTree(), WindowKind::kOther);
    EXPECT_EQ(WorkspaceUtils::FindMainTopLevelWindow(), nullptr);
    TopLevelWindow main(stage.GetTree());
    TopLevelWindow const second(otherStage.GetTree());
    ASSERT_EQ(WorkspaceUtils::FindMainTopLevelWindow(), &main);
    EXPECT_EQ(main.GetWorkspace(), nullptr);
    main.SetWorkspace(workspace.Get());
    stage.Click({90, 90});
    EXPECT_EQ(WorkspaceUtils::FindMainTopLevelWindow()->GetWorkspace()->GetFocusedTabPanel(), left.Get());
  }
  EXPECT_EQ(WorkspaceUtils::FindMainTopLevelWindow(), nullptr);
}

TEST_F(TwoPanels, AreHeldByTheirWindowWeakly) {
  TopLevelWindow main(stage.GetTree());
  main.SetWorkspace(workspace.Get());
  stage.GetRootView().ChildRemove(workspace);
  workspace.Reset();
  EXPECT_EQ(main.GetWorkspace(), nullptr);
}

TEST(ModalDialogParent, IsTheMainWindowsRoot) {
  EXPECT_EQ(WorkspaceUtils::GetModalDialogParentNode(), nullptr);
  moxui::testing::Stage stage;
  TopLevelWindow const main(stage.GetTree());
  EXPECT_EQ(WorkspaceUtils::GetModalDialogParentNode(), stage.GetRoot());
}

}  // namespace
}  // namespace moxworkspace
