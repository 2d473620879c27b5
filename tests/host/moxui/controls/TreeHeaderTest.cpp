#include "TreeFixture.h"

#include <moxcore/config/Errors.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/ui/UI_SubView.h>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ui::KeyboardCode;
namespace ModKey = ui::ModKey;

/// Columns of 80 and 100 under a header row of 24.
class TreeHeader : public testing::TreeTest {
 protected:
  TreeHeader() {
    mTree->SetColumnWidth(0, 80.0f);
    mHeader->SetColumnName(0, u"Number");
    mHeader->SetColumnName(1, u"Channel Label");
    FillAndShow(10);
  }
  /// At a distance from the header's left edge.
  static PointT<float> Over(float x) { return {10.0f + x, 20.0f}; }

  IntrusivePtr<UI_MultiColumnTreeHeaderRow> mHeader = MakeIntrusive<UI_MultiColumnTreeHeaderRow>(mTree.Get());
};

TEST_F(TreeHeader, BelongsToItsTreeFromTheBeginning) {
  EXPECT_EQ(mTree->GetHeaderRow(), mHeader.Get());
  EXPECT_EQ(mHeader->UI_GetParentNode(), mTree.Get());
  EXPECT_THROW(UI_MultiColumnTreeHeaderRow(nullptr), moxcore::config::mox_exception);
  auto const tree = MakeIntrusive<UI_MultiColumnTree>();
  tree->SetUp(TreeOption::kNoHeaderRow);
  EXPECT_EQ(tree->GetHeaderRow(), nullptr);
  tree->SetUp(TreeOption::kHeaderRow);
  EXPECT_NE(tree->GetHeaderRow(), nullptr);
}

TEST_F(TreeHeader, TakesTheHeightOfItsLookFromTheRows) {
  EXPECT_FLOAT_EQ(mHeader->GetDesiredHeight(), 24.0f);
  EXPECT_EQ(mHeader->UI_GetLocalRectF(true), RectT<float>(0, 0, 220, 24));
  EXPECT_EQ(mTree->GetScrollView()->UI_GetLocalRectF(true), RectT<float>(0, 24, 220, 76));
  EXPECT_FLOAT_EQ(mTree->GetFullOpenedRowsHeight(), 224.0f);
  testing::RunningLook const classic(false);
  EXPECT_FLOAT_EQ(mHeader->GetDesiredHeight(), 20.0f);
  EXPECT_EQ(mTree->GetScrollView()->UI_GetLocalRectF(true), RectT<float>(0, 20, 220, 80));
}

TEST_F(TreeHeader, GoesAwayWithItsTreeOrOutlivesIt) {
  mStage.GetRootView().DeleteChildren();
  mTree = nullptr;
  EXPECT_EQ(mHeader->GetColumnAt(0), -1);
  mHeader->SetColumnWidth(0, 10.0f);
  mHeader->SetColumnName(0, u"x");
  EXPECT_FALSE(mHeader->UI_WantsKeyboardFocus());
}

TEST_F(TreeHeader, DraggingALineGivesTheColumnBeforeItAnotherWidth) {
  std::vector<int> heard;
  mHeader->SetColumnWidthChangedCallback([&](int column) { heard.push_back(column); });
  mStage.Drag(Over(80), Over(120), 1);
  EXPECT_FLOAT_EQ(mTree->GetColumnWidth(0), 120.0f);
  EXPECT_THAT(heard, ElementsAre(0));
  mStage.Drag(Over(120), Over(-100), 1);
  EXPECT_FLOAT_EQ(mTree->GetColumnWidth(0), 24.0f);
  mHeader->SetAllowUserColumnResize(false);
  mHeader->SetAllowUserColumnMove(false);
  mStage.Drag(Over(24), Over(100), 1);
  EXPECT_FLOAT_EQ(mTree->GetColumnWidth(0), 24.0f);
}

TEST_F(TreeHeader, ALostDragGivesTheWidthBack) {
  mStage.Press(Over(80));
  mStage.Move(Over(140));
  EXPECT_FLOAT_EQ(mTree->GetColumnWidth(0), 140.0f);
  mStage.Deactivate();
  EXPECT_FLOAT_EQ(mTree->GetColumnWidth(0), 80.0f);
}

TEST_F(TreeHeader, FromRightToLeftALineIsDraggedToTheLeft) {
  skins::SetRightToLeft(true);
  mStage.PaintFrame();
  // Of what is seen, 12 pixels are the bar's, at the left: the column ends 81 before the right edge.
  mStage.Drag(Over(220 - 81), Over(220 - 121), 1);
  EXPECT_FLOAT_EQ(mTree->GetColumnWidth(0), 120.0f);
  skins::SetRightToLeft(false);
}

TEST_F(TreeHeader, ANameIsDraggedToAnotherPlace) {
  mStage.Drag(Over(40), Over(160), 4);
  EXPECT_EQ(mHeader->GetColumnAt(0), 1);
  EXPECT_EQ(mHeader->GetColumnAt(1), 0);
  EXPECT_EQ(mTree->GetCellRect(*At(0), 0), RectT<float>(101, 0, 80, 19));
  mHeader->SetAllowUserColumnMove(false);
  mStage.Drag(Over(40), Over(160), 4);
  EXPECT_EQ(mHeader->GetColumnAt(0), 1);
}

TEST_F(TreeHeader, SortsByTheNameThatIsClickedWhereSomebodyListens) {
  mStage.Click(Over(40));
  EXPECT_EQ(mHeader->GetSortColumn(), -1);
  std::vector<std::pair<int, bool>> heard;
  mHeader->SetSortChangedCallback([&](int column, bool ascending) { heard.emplace_back(column, ascending); });
  mStage.Click(Over(40));
  mStage.Click(Over(40));
  mStage.Click(Over(120));
  EXPECT_THAT(heard, ElementsAre(std::pair(0, true), std::pair(0, false), std::pair(1, true)));
  mHeader->ShowSortIndicator(false);
  mStage.Click(Over(40));
  EXPECT_EQ(heard.size(), 3u);
}

TEST_F(TreeHeader, DoesntDeselectRows) {
  mTree->SelectRow(At(1), true, false, false);
  mStage.Click(Over(40));
  mStage.Click(Over(210));
  EXPECT_THAT(Selected(), ElementsAre(1));
}

TEST_F(TreeHeader, ScrollsSidewaysWithItsColumns) {
  mTree->SetColumnWidth(0, 300.0f);
  mStage.PaintFrame();
  mTree->GetScrollView()->ScrollTo({150, 0});
  mStage.Drag(Over(150), Over(170), 1);
  EXPECT_FLOAT_EQ(mTree->GetColumnWidth(0), 320.0f);
}

TEST_F(TreeHeader, IsWorkedByKeys) {
  mHeader->UI_GainKeyboardFocus(ui::FocusChangeReason::kTraversal);
  mStage.Key(KeyboardCode::kRight, ModKey::kShift);
  EXPECT_FLOAT_EQ(mTree->GetColumnWidth(0), 88.0f);
  mStage.Key(KeyboardCode::kRight);
  mStage.Key(KeyboardCode::kLeft, ModKey::kShift);
  EXPECT_FLOAT_EQ(mTree->GetColumnWidth(1), 92.0f);
  mStage.Key(KeyboardCode::kLeft, ModKey::kCommand);
  EXPECT_EQ(mHeader->GetColumnAt(0), 1);
  int sorted = -1;
  mHeader->SetSortChangedCallback([&](int column, bool) { sorted = column; });
  mStage.Key(KeyboardCode::kSpace);
  EXPECT_EQ(sorted, 1);
  mStage.Key(KeyboardCode::kDown);
  EXPECT_THAT(Selected(), ElementsAre(0));
}

TEST_F(TreeHeader, IsAStopOfTraversalBeforeTheRows) {
  mStage.Tab();
  EXPECT_TRUE(mHeader->UI_HasKeyboardFocus(true));
  mHeader->SetAllowUserColumnMove(false);
  mHeader->SetAllowUserColumnResize(false);
  EXPECT_FALSE(mHeader->UI_WantsKeyboardFocus());
}

TEST_F(TreeHeader, TellsTheNamesOfItsColumns) {
  mHeader->SetSortColumn(1, false);
  auto const name = mHeader->ChildGet(1);
  EXPECT_EQ(name->UI_GetAccessibleRole(), ui::AccessibleRole::kColumnHeader);
  EXPECT_EQ(name->UI_GetAccessibleName(), "Channel Label");
  EXPECT_EQ(name->UI_GetAccessibleValue(), "Sorted, descending");
  EXPECT_EQ(mHeader->ChildGet(0)->UI_GetAccessibleValue(), "");
}

}  // namespace
}  // namespace moxui::controls
