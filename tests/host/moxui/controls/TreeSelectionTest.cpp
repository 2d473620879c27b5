// How rows and cells of a tree are selected: by code, pointer and keys.
#include "TreeFixture.h"

#include <moxui/controls/UI_Popup.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/skins/LayoutDirection.h>

#include <functional>
#include <memory>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ui::KeyboardCode;
namespace ModKey = ui::ModKey;

class TreeSelection : public testing::TreeTest {};

// By code

TEST_F(TreeSelection, IsSilentUnlessToldToNotify) {
  FillAndShow(10);
  mTree->SelectRow(At(2), true, false, false);
  EXPECT_THAT(Selected(), ElementsAre(2));
  EXPECT_EQ(mSelections, 0);
  mTree->SelectRow(At(3), true, false, true);
  EXPECT_THAT(mHeard, ElementsAre(3));
  EXPECT_EQ(mSelections, 1);
  EXPECT_EQ(mCellSelections, 1);
  mTree->SelectRow(At(3), true, false, true);
  EXPECT_EQ(mSelections, 1);
}

TEST_F(TreeSelection, OfOneRowAloneIgnoresExtending) {
  FillAndShow(10);
  mTree->SelectRow(At(2), true, true, true);
  mTree->SelectRow(At(5), true, true, true);
  EXPECT_THAT(Selected(), ElementsAre(5));
  mTree->SetSupportMultipleSelections(true);
  mTree->SelectRow(At(1), true, true, true);
  EXPECT_THAT(Selected(), ElementsAre(1, 5));
  mTree->SelectRow(At(5), false, true, true);
  EXPECT_THAT(Selected(), ElementsAre(1));
}

TEST_F(TreeSelection, StaysWhereNoneIsNotAllowed) {
  FillAndShow(10);
  mTree->SetSupportNoneSelected(false);
  mTree->SelectRow(At(2), true, false, false);
  mTree->SelectRow(At(2), false, false, true);
  EXPECT_THAT(Selected(), ElementsAre(2));
  mTree->RemoveRow(At(2));
  EXPECT_THAT(Selected(), ElementsAre(2));
  mTree->SelectRow(At(8), true, false, false);
  mTree->RemoveRow(At(8));
  EXPECT_THAT(Selected(), ElementsAre(7));
  mTree->ClearRows();
  EXPECT_THAT(Selected(), IsEmpty());
}

TEST_F(TreeSelection, IsBroughtIntoSight) {
  FillAndShow(100);
  mTree->SelectRow(At(50), true, false, false);
  EXPECT_FLOAT_EQ(Top(), 51 * 20.0f - 100.0f);
  mTree->SelectRow(At(49), true, false, false);
  EXPECT_FLOAT_EQ(Top(), 51 * 20.0f - 100.0f);
  mTree->SelectRow(At(3), true, false, false);
  EXPECT_FLOAT_EQ(Top(), 60.0f);
  mTree->ScrollRowIntoView(At(20), 10.0f, 30.0f, true);
  EXPECT_FLOAT_EQ(Top(), 21 * 20.0f + 30.0f - 100.0f);
  mTree->ScrollToTop();
  EXPECT_FLOAT_EQ(Top(), 0.0f);
}

TEST_F(TreeSelection, OfARowThatIsNotYetPlacedIsBroughtIntoSightToo) {
  FillAndShow(3);
  for (int row = 0; row < 20; ++row) {
    mTree->CreateAndAppendRow();
  }
  mTree->SelectRow(At(22), true, false, false);
  EXPECT_FLOAT_EQ(Top(), 23 * 20.0f - 100.0f);
}

// By the pointer

TEST_F(TreeSelection, GoesToTheRowThatIsPressed) {
  FillAndShow(10);
  mStage.Click(Point(3));
  EXPECT_THAT(mHeard, ElementsAre(3));
  EXPECT_TRUE(mTree->UI_HasKeyboardFocus(true));
  mStage.Click(Point(1, 1));
  EXPECT_THAT(mHeard, ElementsAre(1));
  EXPECT_EQ(mSelections, 2);
}

TEST_F(TreeSelection, StaysOnceTakingTheFocusHasDisabledTheTreeOrTakenItsRows) {
  FillAndShow(10);
  mTree->SelectRow(At(0), true, false, false);
  auto const onFocus = std::make_shared<std::function<void()>>([&] { mTree->UI_SetDisabled(); });
  mTree->InstallFocusChangedFunction([onFocus](ui::UI_Node*, ui::FocusChangeReason) { (*onFocus)(); });
  mStage.Click(Point(2));
  EXPECT_THAT(Selected(), ElementsAre(0));
  *onFocus = [] {};
  mTree->UI_SetEnabled();
  mStage.GetTree().SetFocus(nullptr, ui::FocusChangeReason::kNone);
  *onFocus = [&] {
    while (mTree->CountRows() > 1) {
      mTree->RemoveRow(At(static_cast<std::int64_t>(mTree->CountRows()) - 1));
    }
  };
  mStage.Click(Point(2));
  EXPECT_EQ(mTree->CountRows(), 1u);
  EXPECT_THAT(Selected(), ElementsAre(0));  // a press on a row that has gone is none below the rows
  *onFocus = [] {};
}

TEST_F(TreeSelection, ByTheUserCanBeSwitchedOff) {
  FillAndShow(10);
  mTree->SetSupportUserSelectableRows(false);
  mStage.Click(Point(3));
  mTree->SetSupportUserSelectableRows(true);
  mTree->UI_SetDisabled(true);
  mStage.Click(Point(3));
  EXPECT_THAT(Selected(), IsEmpty());
}

TEST_F(TreeSelection, IsGivenUpByAPressBelowTheRowsWhereThatIsAllowed) {
  FillAndShow(3);
  mStage.Click(Point(1));
  mTree->SetSupportDeselectAllOnEmptyTreeClick(false);
  mStage.Click(Point(4));
  EXPECT_THAT(Selected(), ElementsAre(1));
  mTree->SetSupportDeselectAllOnEmptyTreeClick(true);
  mTree->SetSupportNoneSelected(false);
  mStage.Click(Point(4));
  EXPECT_THAT(Selected(), ElementsAre(1));
  mTree->SetSupportNoneSelected(true);
  mStage.Click(Point(4));
  EXPECT_THAT(mHeard, IsEmpty());
  EXPECT_THAT(Selected(), IsEmpty());
}

TEST_F(TreeSelection, OfManyIsToggledAndExtended) {
  FillAndShow(10);
  mTree->SetSupportMultipleSelections(true);
  mStage.Click(Point(1));
  ClickWith(Point(3), ModKey::kCommand);
  EXPECT_THAT(Selected(), ElementsAre(1, 3));
  ClickWith(Point(1), ModKey::kCommand);
  EXPECT_THAT(Selected(), ElementsAre(3));
  mStage.Click(Point(1));
  ClickWith(Point(4), ModKey::kShift);
  EXPECT_THAT(Selected(), ElementsAre(1, 2, 3, 4));
  ClickWith(Point(0), ModKey::kShift);
  EXPECT_THAT(Selected(), ElementsAre(0, 1));
  mStage.Click(Point(2));
  EXPECT_THAT(Selected(), ElementsAre(2));
}

TEST_F(TreeSelection, OfOneIsToggledWhereNoneIsAllowed) {
  FillAndShow(10);
  mStage.Click(Point(1));
  ClickWith(Point(1), ModKey::kCommand);
  EXPECT_THAT(Selected(), IsEmpty());
}

TEST_F(TreeSelection, LeavesPressesToTheNodesOfCells) {
  FillAndShow(10);
  auto const button = MakeIntrusive<UI_TextButton>(u"x");
  button->UI_SetLocalRectF({0, 0, 100, 19});
  At(2)->GetCellView(1)->ChildPushBack(button);
  mStage.Click(Point(2, 1));
  EXPECT_THAT(Selected(), IsEmpty());
}

TEST_F(TreeSelection, ADoubleClickAndEnterActivate) {
  FillAndShow(10);
  std::vector<std::int64_t> activated;
  mTree->SetRowActivatedCallback([&](Row* row) { activated.push_back(mTree->GetRowIndex(row)); });
  mStage.DoubleClick(Point(2));
  mStage.Key(KeyboardCode::kDown);
  EXPECT_TRUE(mStage.Key(KeyboardCode::kReturn));
  EXPECT_THAT(activated, ElementsAre(2, 3));
  mTree->SetRowActivatedCallback({});
  EXPECT_FALSE(mStage.Key(KeyboardCode::kReturn));
}

// Cells

TEST_F(TreeSelection, OfCellsIsToldOfWithoutARowsChange) {
  FillAndShow(10);
  mTree->SetSupportUserSelectableCells(true);
  mStage.Click(Point(2, 0));
  EXPECT_EQ(mCellSelections, 1);
  mStage.Click(Point(2, 1));
  EXPECT_EQ(mTree->GetSelectedColumn(), 1);
  EXPECT_EQ(mCellSelections, 2);
  EXPECT_EQ(mSelections, 1);
  EXPECT_EQ(mTree->GetSelectedCellOfSelectedRow()->GetColumn(), 1);
  mStage.Key(KeyboardCode::kLeft);
  EXPECT_EQ(mTree->GetSelectedColumn(), 0);
}

TEST_F(TreeSelection, TheSelectedCellIsTheOneWithTheFocusThenTheClickedOneThenTheLastWithANode) {
  FillAndShow(10);
  EXPECT_EQ(mTree->GetSelectedCellOfSelectedRow(), nullptr);
  mTree->SelectRow(At(2), true, false, false);
  EXPECT_EQ(mTree->GetSelectedCellOfSelectedRow()->GetColumn(), 0);
  auto const popup = MakeIntrusive<UI_Popup>();
  popup->UI_SetLocalRectF({0, 0, 100, 19});
  At(2)->GetCellView(1)->ChildPushBack(popup);
  EXPECT_EQ(mTree->GetSelectedCellOfSelectedRow()->GetColumn(), 1);
  mStage.Click(Point(2, 0));
  EXPECT_EQ(mTree->GetSelectedCellOfSelectedRow()->GetColumn(), 0);
  popup->UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  EXPECT_EQ(mTree->GetSelectedCellOfSelectedRow()->GetColumn(), 1);
}

TEST_F(TreeSelection, TheClickedCellIsKnownThoughANodeTookThePress) {
  FillAndShow(10);
  auto const button = MakeIntrusive<UI_TextButton>(u"x");
  button->SetWantsKeyboardFocus(false);
  button->UI_SetLocalRectF({0, 0, 100, 19});
  At(2)->GetCellView(0)->ChildPushBack(button);
  At(2)->GetCellView(1)->ChildPushBack(MakeIntrusive<UI_TextButton>(u"y"));
  mTree->SelectRow(At(2), true, false, false);
  mStage.Click(Point(2, 0));
  EXPECT_EQ(mTree->GetSelectedCellOfSelectedRow()->GetColumn(), 0);
}

// By keys

TEST_F(TreeSelection, MovesByArrowsHomeEndAndPages) {
  FillAndShow(100);
  Focus();
  mStage.Key(KeyboardCode::kDown);
  EXPECT_THAT(Selected(), ElementsAre(0));
  mStage.Key(KeyboardCode::kDown);
  EXPECT_THAT(Selected(), ElementsAre(1));
  mStage.Key(KeyboardCode::kUp);
  mStage.Key(KeyboardCode::kUp);
  EXPECT_THAT(Selected(), ElementsAre(0));
  mStage.Key(KeyboardCode::kPageDown);
  EXPECT_THAT(Selected(), ElementsAre(4));
  mStage.Key(KeyboardCode::kPageDown);
  EXPECT_THAT(Selected(), ElementsAre(8));
  EXPECT_FLOAT_EQ(Top(), 80.0f);
  mStage.Key(KeyboardCode::kPageUp);
  EXPECT_THAT(Selected(), ElementsAre(4));
  mStage.Key(KeyboardCode::kEnd);
  EXPECT_THAT(Selected(), ElementsAre(99));
  EXPECT_TRUE(mStage.Key(KeyboardCode::kDown));
  EXPECT_THAT(Selected(), ElementsAre(99));
  mStage.Key(KeyboardCode::kHome);
  EXPECT_THAT(Selected(), ElementsAre(0));
  EXPECT_FLOAT_EQ(Top(), 0.0f);
}

TEST_F(TreeSelection, IsExtendedWithShiftAndTakesAllWithCommandA) {
  FillAndShow(10);
  Focus();
  mStage.Key(KeyboardCode::kDown, ModKey::kShift);
  mStage.Key(KeyboardCode::kDown, ModKey::kShift);
  EXPECT_THAT(Selected(), ElementsAre(1));
  mTree->SetSupportMultipleSelections(true);
  mStage.Key(KeyboardCode::kDown, ModKey::kShift);
  mStage.Key(KeyboardCode::kDown, ModKey::kShift);
  EXPECT_THAT(Selected(), ElementsAre(1, 2, 3));
  mStage.Key(KeyboardCode::kUp, ModKey::kShift);
  EXPECT_THAT(Selected(), ElementsAre(1, 2));
  mStage.Key(KeyboardCode::kA, ModKey::kCommand);
  EXPECT_EQ(Selected().size(), 10u);
  mStage.Key(KeyboardCode::kSpace, ModKey::kCommand);
  EXPECT_EQ(Selected().size(), 9u);
}

TEST_F(TreeSelection, FollowsWhatIsTyped) {
  FillAndShow(30);
  mTree->SetCellTextCallback([&](Row* row, int) -> moxcore::Utf16String {
    constexpr char16_t const* kNames[] = {u"Centre", u"Left", u"Left surround", u"Right"};
    return kNames[mTree->GetRowIndex(row) % 4];
  });
  Focus();
  mStage.Type(u"l");
  EXPECT_THAT(Selected(), ElementsAre(1));
  mStage.Type(u"eft");
  EXPECT_THAT(Selected(), ElementsAre(1));
  mStage.Type(u" s");
  EXPECT_THAT(Selected(), ElementsAre(2));
  mStage.AdvanceTime(1500);
  mStage.Type(u"r");
  EXPECT_THAT(Selected(), ElementsAre(3));
  EXPECT_FALSE(mStage.Key(KeyboardCode::kSpace));
}

TEST_F(TreeSelection, IsLeftAloneByOtherKeysWhereOnlyArrowsSelect) {
  FillAndShow(100);
  mTree->SetSupportNonArrowKeysToSelectRow(false);
  Focus();
  mStage.Key(KeyboardCode::kEnd);
  EXPECT_THAT(Selected(), IsEmpty());
  EXPECT_FLOAT_EQ(Top(), 1900.0f);
  mStage.Type(u"r");
  EXPECT_THAT(Selected(), IsEmpty());
  mStage.Key(KeyboardCode::kDown);
  EXPECT_THAT(Selected(), ElementsAre(0));
}

TEST_F(TreeSelection, KeysScrollWhereRowsCannotBeSelected) {
  FillAndShow(100);
  mTree->SetSupportUserSelectableRows(false);
  Focus();
  mStage.Key(KeyboardCode::kDown);
  EXPECT_FLOAT_EQ(Top(), 20.0f);
  mStage.Key(KeyboardCode::kEnd);
  EXPECT_FLOAT_EQ(Top(), 1900.0f);
  EXPECT_THAT(Selected(), IsEmpty());
}

TEST_F(TreeSelection, LeftAndRightGoThroughLevels) {
  mTree->SetAllowChildren(true);
  auto const first = mTree->CreateAndAppendRow();
  mTree->CreateAndAppendRow(first.Get());
  mTree->CreateAndAppendRow();
  Show();
  Focus();
  mStage.Key(KeyboardCode::kDown);
  mStage.Key(KeyboardCode::kRight);
  EXPECT_TRUE(first->IsOpened());
  mStage.Key(KeyboardCode::kRight);
  EXPECT_THAT(Selected(), ElementsAre(1));
  mStage.Key(KeyboardCode::kLeft);
  EXPECT_THAT(Selected(), ElementsAre(0));
  mStage.Key(KeyboardCode::kLeft);
  EXPECT_FALSE(first->IsOpened());
  skins::SetRightToLeft(true);
  mStage.Key(KeyboardCode::kLeft);
  EXPECT_TRUE(first->IsOpened());
  skins::SetRightToLeft(false);
}

TEST_F(TreeSelection, GoesToTheRowThatClosesOverIt) {
  mTree->SetAllowChildren(true);
  auto const first = mTree->CreateAndAppendRow();
  auto const child = mTree->CreateAndAppendRow(first.Get());
  first->SetOpened(true);
  Show();
  mTree->SelectRow(child.Get(), true, false, false);
  mStage.Click({18, 19});
  EXPECT_THAT(mHeard, ElementsAre(0));
}

// What is told and shown

TEST_F(TreeSelection, ShowsWhereKeysStartFromOnceTheyAreUsed) {
  FillAndShow(10);
  auto const picture = [this] {
    mStage.Leave();
    return mStage.TakePicture();
  };
  mStage.Click(Point(2));
  auto const withoutRing = picture();
  mStage.Key(KeyboardCode::kShift);
  EXPECT_FALSE(picture() == withoutRing);
  mTree->SetIndicateFocus(false);
  EXPECT_TRUE(picture() == withoutRing);
}

TEST_F(TreeSelection, IsToldToAssistiveSoftware) {
  FillAndShow(10);
  mTree->SetAccessibleName("Channels");
  EXPECT_EQ(mTree->UI_GetAccessibleRole(), ui::AccessibleRole::kTable);
  EXPECT_EQ(mTree->UI_GetAccessibleName(), "Channels");
  EXPECT_EQ(mTree->UI_GetAccessibleValue(), "");
  mTree->SelectRow(At(2), true, false, false);
  EXPECT_EQ(mTree->UI_GetAccessibleValue(), "Row 2, x2");
  ui::UI_Node const& row = *At(2)->GetCellView(0)->UI_GetParentNode();
  EXPECT_EQ(row.UI_GetAccessibleRole(), ui::AccessibleRole::kRow);
  EXPECT_EQ(row.UI_GetAccessibleName(), "Row 2, x2");
  EXPECT_TRUE(row.UI_GetAccessibleState().isSelected);
  EXPECT_TRUE(row.UI_GetAccessibleState().isSelectable);
  EXPECT_TRUE(At(4)->GetCellView(0)->UI_GetParentNode()->UI_DoAccessibleAction());
  EXPECT_THAT(mHeard, ElementsAre(4));
}

}  // namespace
}  // namespace moxui::controls
