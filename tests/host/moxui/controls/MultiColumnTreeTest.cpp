#include "TreeFixture.h"

#include <moxui/controls/UI_TextButton.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/ui/UI_SubView.h>

#include <algorithm>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Tree : public testing::TreeTest {};

// Geometry

TEST_F(Tree, ARowTakesOneMoreThanItsHeightAndAColumnThanItsWidth) {
  FillAndShow(100);
  mTree->SetColumnWidth(0, 80.0f);
  mTree->SetColumnWidth(1, 194.0f);
  EXPECT_FLOAT_EQ(mTree->GetColumnsWidth(), 276.0f);
  EXPECT_EQ(mTree->GetCellRect(*At(0), 1), RectT<float>(81, 0, 194, 19));
  EXPECT_FLOAT_EQ(mTree->GetFullOpenedRowsHeight(), 2000.0f + UI_ScrollBar::GetThickness());
  mTree->SetColumnWidth(1, 100.0f);
  EXPECT_FLOAT_EQ(mTree->GetFullOpenedRowsHeight(), 2000.0f);
}

TEST_F(Tree, HasTheSizesOfItsLook) {
  auto const tree = MakeIntrusive<UI_MultiColumnTree>();
  EXPECT_FLOAT_EQ(tree->GetRowHeight(), 28.0f);
  EXPECT_FLOAT_EQ(UI_MultiColumnTree::GetCellTextLeftInset(), 8.0f);
  EXPECT_FLOAT_EQ(UI_MultiColumnTree::GetCellTextFontSize(), 12.0f);
  EXPECT_EQ(UI_MultiColumnTree::GetDefaultCellPadding(), (PaddingT<float>{8, 0, 8, 0}));
  testing::RunningLook const classic(false);
  EXPECT_FLOAT_EQ(tree->GetRowHeight(), 20.0f);
  EXPECT_FLOAT_EQ(UI_MultiColumnTree::GetCellTextLeftInset(), 6.0f);
  EXPECT_FLOAT_EQ(UI_MultiColumnTree::GetCellTextFontSize(), 11.0f);
  EXPECT_EQ(UI_MultiColumnTree::GetDefaultCellPadding(), PaddingT<float>());
  tree->SetRowHeight(33.0f);
  EXPECT_FLOAT_EQ(tree->GetRowHeight(), 33.0f);
}

TEST_F(Tree, WithoutAScrollViewShowsWhatFits) {
  auto const tree = MakeIntrusive<UI_MultiColumnTree>(19.0f, TreeOption::kWithoutScrollView);
  tree->SetNumberOfColumns(1);
  for (int row = 0; row < 10; ++row) {
    tree->CreateAndAppendRow();
  }
  tree->UI_SetLocalRectF({0, 0, 100, 50});
  mStage.GetRootView().ChildPushBack(tree);
  mStage.PaintFrame();
  EXPECT_EQ(tree->GetScrollView(), nullptr);
  EXPECT_TRUE(tree->IsRowVisible(tree->GetRow(2).Get()));
  EXPECT_FALSE(tree->IsRowVisible(tree->GetRow(3).Get()));
}

TEST_F(Tree, MirrorsItsColumnsFromRightToLeft) {
  skins::SetRightToLeft(true);
  FillAndShow(3);
  EXPECT_EQ(mTree->GetCellRect(*At(0), 0), RectT<float>(120, 0, 100, 19));
  EXPECT_EQ(mTree->GetCellRect(*At(0), 1), RectT<float>(19, 0, 100, 19));
  mTree->SetColumnWidth(0, 300.0f);
  // What is seen stays where lines begin.
  EXPECT_FLOAT_EQ(mTree->GetViewedRect().left + mTree->GetViewedRect().width, mTree->GetColumnsWidth());
  skins::SetRightToLeft(false);
}

// Rows

TEST_F(Tree, CountsItsRowsInOrder) {
  Fill(3);
  EXPECT_EQ(mTree->CountRows(), 3u);
  EXPECT_EQ(mTree->GetRowIndex(At(2)), 2);
  EXPECT_EQ(mTree->GetRow(3), nullptr);
  EXPECT_EQ(mTree->GetRow(-1), nullptr);
  EXPECT_EQ(mTree->GetRowIndex(nullptr), -1);
  auto const second = mTree->GetRow(1);
  mTree->RemoveRow(second.Get());
  EXPECT_EQ(mTree->CountRows(), 2u);
  EXPECT_EQ(mTree->GetRowIndex(second.Get()), -1);
  EXPECT_EQ(second->GetTree(), nullptr);
}

TEST_F(Tree, TellsWhichRowsComeIntoSightAndGo) {
  FillAndShow(100);
  EXPECT_THAT(mCome, ElementsAre(0, 1, 2, 3, 4));
  mCome.clear();
  mTree->GetScrollView()->ScrollTo({0, 30});
  EXPECT_THAT(mCome, ElementsAre(5, 6));
  EXPECT_THAT(mGone, ElementsAre(0));
  EXPECT_TRUE(mTree->IsRowVisible(At(1)));
  EXPECT_FALSE(mTree->IsRowVisible(At(0)));
  mGone.clear();
  mTree->UI_SetLocalRectF({10, 10, 220, 60});
  EXPECT_THAT(mGone, ElementsAre(5, 6));
}

TEST_F(Tree, TellsOfRowsOnceTheirCellsCanBeHad) {
  bool hadCells = true;
  mTree->SetRowVisibilityChangedCallback(
      [&](Row* row) { hadCells = hadCells && row->HasCellViews() && row->GetCellView(1) != nullptr; });
  FillAndShow(100);
  EXPECT_TRUE(hadCells);
  EXPECT_FALSE(At(50)->HasCellViews());
  EXPECT_EQ(At(50)->GetCellView(0), nullptr);
}

TEST_F(Tree, TellsThatVisibleRowsAreGoneBeforeItClearsThem) {
  FillAndShow(100);
  bool stillThere = true;
  mTree->SetRowVisibilityChangedCallback([&](Row* row) {
    stillThere = stillThere && row->GetTree() == mTree.Get() && row->GetCellView(0) != nullptr;
    EXPECT_FALSE(mTree->IsRowVisible(row));
    mGone.push_back(mTree->GetRowIndex(row));
  });
  mTree->ClearRows();
  EXPECT_THAT(mGone, ElementsAre(0, 1, 2, 3, 4));
  EXPECT_TRUE(stillThere);
  EXPECT_EQ(mTree->CountRows(), 0u);
}

TEST_F(Tree, AppendedRowsShowWithTheNextFrameAtTheLatest) {
  FillAndShow(1);
  mTree->CreateAndAppendRow();
  EXPECT_FALSE(mTree->IsRowVisible(At(1)));
  mStage.PaintFrame();
  EXPECT_TRUE(mTree->IsRowVisible(At(1)));
}

TEST_F(Tree, RowsOutliveItAsMereObjects) {
  Fill(2);
  auto const row = mTree->GetRow(0);
  mTree = nullptr;
  EXPECT_EQ(row->GetTree(), nullptr);
  EXPECT_EQ(row->GetCellView(0), nullptr);
  row->SetOpened(true);
  row->SetBackgroundColor({1, 0, 0, 1});
}

TEST_F(Tree, MayBeClearedAndFilledByItsOwnCallbacks) {
  FillAndShow(100);
  bool refilled = false;
  mTree->SetRowVisibilityChangedCallback([&](Row*) {
    if (!std::exchange(refilled, true)) {
      mTree->ClearRows();
      Fill(7);
    }
  });
  mTree->GetScrollView()->ScrollTo({0, 400});
  mStage.PaintFrame();
  EXPECT_EQ(mTree->CountRows(), 7u);
  EXPECT_TRUE(mTree->IsRowVisible(At(4)));
}

// Cells

TEST_F(Tree, CellsHoldNodesThatScrollWithTheRow) {
  FillAndShow(100);
  auto const button = MakeIntrusive<UI_TextButton>(u"x");
  button->UI_SetLocalRectF({0, 0, 40, 19});
  At(2)->GetCellView(1)->ChildPushBack(button);
  EXPECT_EQ(At(2)->GetCellView(1)->GetTreeRow(), At(2));
  EXPECT_EQ(At(2)->GetCellView(1)->GetColumn(), 1);
  EXPECT_EQ(mStage.GetTree().FindNode({115, 55}), button.Get());
  mTree->GetScrollView()->ScrollTo({0, 20});
  EXPECT_EQ(mStage.GetTree().FindNode({115, 35}), button.Get());
}

TEST_F(Tree, ARowOutOfSightKeepsTheNodesItHolds) {
  FillAndShow(100);
  auto const button = MakeIntrusive<UI_TextButton>(u"x");
  At(0)->GetCellView(1)->ChildPushBack(button);
  mTree->GetScrollView()->ScrollTo({0, 1000});
  EXPECT_EQ(button->UI_GetTree(), nullptr);
  EXPECT_TRUE(At(0)->HasCellViews());
  EXPECT_FALSE(At(1)->HasCellViews());
  mTree->GetScrollView()->ScrollTo({0, 0});
  EXPECT_EQ(At(0)->GetCellView(1)->ChildGet(0), button);
  EXPECT_EQ(button->UI_GetTree(), &mStage.GetTree());
}

TEST_F(Tree, ARowOutOfSightKeepsTheFocusThatIsInIt) {
  FillAndShow(100);
  auto const button = MakeIntrusive<UI_TextButton>(u"x");
  button->UI_SetLocalRectF({0, 0, 40, 19});
  At(0)->GetCellView(1)->ChildPushBack(button);
  button->UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  mTree->GetScrollView()->ScrollTo({0, 1000});
  EXPECT_TRUE(button->UI_HasKeyboardFocus(true));
  EXPECT_FALSE(mTree->IsRowVisible(At(0)));
  Focus();
  mTree->GetScrollView()->ScrollTo({0, 1020});
  EXPECT_EQ(button->UI_GetTree(), nullptr);
}

TEST_F(Tree, OnlyRowsThatAreSeenHaveNodes) {
  FillAndShow(100000);
  auto const countNodes = [](auto const& count, ui::UI_Node const& node) -> int {
    int nodes = 1;
    if (ui::UI_Container const* const container = node.UI_GetContainer()) {
      for (auto child = container->ChildBegin(); child != container->ChildEnd(); ++child) {
        nodes += count(count, **child);
      }
    }
    return nodes;
  };
  int const atTop = countNodes(countNodes, *mTree);
  for (int step = 0; step < 50; ++step) {
    mTree->GetScrollView()->ScrollTo({0, 39000.0f * static_cast<float>(step)});
    mStage.PaintFrame();
  }
  EXPECT_EQ(countNodes(countNodes, *mTree), atTop);
  EXPECT_LT(atTop, 20);
}

TEST_F(Tree, FewerColumnsTakeTheirCellsAlong) {
  FillAndShow(3);
  auto const button = MakeIntrusive<UI_TextButton>(u"x");
  At(0)->GetCellView(1)->ChildPushBack(button);
  auto const cell = At(0)->GetCellView(1);
  mTree->SetNumberOfColumns(1);
  EXPECT_EQ(cell->UI_GetParentNode(), nullptr);
  EXPECT_EQ(At(0)->GetCellView(1), nullptr);
  EXPECT_EQ(mTree->GetNumberOfColumns(), 1);
}

TEST_F(Tree, AWiderColumnMovesTheCellsBehindIt) {
  FillAndShow(3);
  auto const cell = At(1)->GetCellView(1);
  mTree->SetColumnWidth(0, 140.0f);
  EXPECT_EQ(cell->UI_GetLocalRectF(true), RectT<float>(141, 0, 100, 19));
}

TEST_F(Tree, ACallbackDrawsCellsInPlaceOfTheirText) {
  FillAndShow(3);
  std::vector<std::pair<std::int64_t, int>> drawn;
  RectT<float> rect;
  mTree->SetDrawCellOfRowCallback([&](scriber::Scriber*, Row* row, int column, RectT<float> const& cell) {
    drawn.emplace_back(mTree->GetRowIndex(row), column);
    rect = cell;
  });
  mStage.PaintFrame();
  EXPECT_EQ(drawn.size(), 6u);
  EXPECT_EQ(rect, RectT<float>(101, 0, 100, 19));
}

TEST_F(Tree, TabGoesThroughTheCellsOfRowsAsTheyStand) {
  FillAndShow(100);
  auto const put = [&](std::int64_t row, int column) {
    auto const button = MakeIntrusive<UI_TextButton>(u"x");
    button->UI_SetLocalRectF({0, 0, 40, 19});
    At(row)->GetCellView(column)->ChildPushBack(button);
    return button;
  };
  mTree->GetScrollView()->ScrollTo({0, 40});
  auto const third = put(3, 0);
  auto const second = put(2, 1);
  auto const first = put(2, 0);
  mTree->GetScrollView()->ScrollTo({0, 20});
  auto const before = put(1, 0);
  for (auto const& expected : {before, first, second, third}) {
    mStage.Tab();
    EXPECT_TRUE(expected->UI_HasKeyboardFocus(true));
  }
}

// Nesting

class NestedTree : public testing::TreeTest {
 protected:
  NestedTree() {
    mTree->SetAllowChildren(true);
    mFirst = mTree->CreateAndAppendRow();
    mChild = mTree->CreateAndAppendRow(mFirst.Get());
    mGrandchild = mTree->CreateAndAppendRow(mChild.Get());
    mSecond = mTree->CreateAndAppendRow();
    mTree->LayoutAfterAppendRow();
    Show();
  }
  IntrusivePtr<Row> mFirst;
  IntrusivePtr<Row> mChild;
  IntrusivePtr<Row> mGrandchild;
  IntrusivePtr<Row> mSecond;
};

TEST_F(NestedTree, RowsBelowAClosedOneDontCount) {
  EXPECT_EQ(mTree->CountRows(), 2u);
  EXPECT_EQ(mTree->GetRowIndex(mChild.Get()), -1);
  mFirst->SetOpened(true);
  EXPECT_EQ(mTree->CountRows(), 3u);
  EXPECT_EQ(mTree->GetRowIndex(mSecond.Get()), 2);
  mChild->SetOpened(true);
  EXPECT_EQ(mTree->GetRowIndex(mGrandchild.Get()), 2);
  mFirst->SetOpened(false);
  EXPECT_EQ(mTree->CountRows(), 2u);
  mStage.PaintFrame();
  EXPECT_FALSE(mTree->IsRowVisible(mGrandchild.Get()));
}

TEST_F(NestedTree, EachLevelIsIndented) {
  EXPECT_EQ(mGrandchild->GetLevel(), 2);
  EXPECT_EQ(mTree->GetCellRect(*mFirst, 0), RectT<float>(16, 0, 84, 19));
  EXPECT_EQ(mTree->GetCellRect(*mGrandchild, 0), RectT<float>(48, 0, 52, 19));
  EXPECT_EQ(mTree->GetCellRect(*mGrandchild, 1), RectT<float>(101, 0, 100, 19));
}

TEST_F(NestedTree, ATriangleOpensAndClosesARow) {
  std::vector<Row*> heard;
  mTree->SetRowOpenedChangedCallback([&](Row* row) { heard.push_back(row); });
  mStage.Click({18, 19});
  EXPECT_TRUE(mFirst->IsOpened());
  EXPECT_THAT(Selected(), IsEmpty());
  mStage.Click({34, 39});
  EXPECT_TRUE(mChild->IsOpened());
  mStage.Click({18, 19});
  EXPECT_FALSE(mFirst->IsOpened());
  EXPECT_THAT(heard, ElementsAre(mFirst.Get(), mChild.Get(), mFirst.Get()));
}

TEST_F(NestedTree, RemovingARowTakesAllBelowItAlong) {
  mFirst->SetOpened(true);
  mTree->RemoveRow(mFirst.Get());
  EXPECT_EQ(mTree->CountRows(), 1u);
  EXPECT_EQ(mGrandchild->GetTree(), nullptr);
  EXPECT_EQ(mChild->CountChildRows(), 0u);
}

TEST_F(NestedTree, WithoutChildrenAllowedAllRowsAreOfOneLevel) {
  mTree->SetAllowChildren(false);
  auto const row = mTree->CreateAndAppendRow(mSecond.Get());
  EXPECT_EQ(row->GetParentRow(), nullptr);
  EXPECT_EQ(row->GetLevel(), 0);
}

TEST_F(NestedTree, AHundredThousandLevelsAreBuiltAndTakenApart) {
  IntrusivePtr<Row> row = mSecond;
  for (int level = 0; level < 100000; ++level) {
    row->SetOpened(true);
    row = mTree->CreateAndAppendRow(row.Get());
  }
  EXPECT_EQ(mTree->CountRows(), 100002u);
  mTree->ClearRows();
  EXPECT_EQ(row->GetTree(), nullptr);
}

}  // namespace
}  // namespace moxui::controls
