// Which rows and which cell of a tree are selected.
#include "TreeRowView.h"
#include "TreeRows.h"

#include <moxui/controls/UI_MultiColumnTree.h>

#include <algorithm>
#include <utility>

namespace moxui::controls {

using moxcore::utility::IntrusivePtr;

bool UI_MultiColumnTree::IsRowSelected(Row const* row) const {
  return row != nullptr && row->mTree == this && row->mIsSelected;
}

UI_MultiColumnTree::RowList UI_MultiColumnTree::GetSelectedRows() const {
  RowList rows = mSelection;
  mRows->Count();  // indexes are those of the moment
  std::ranges::stable_sort(rows, {}, [](RowPtr const& row) { return row->mIndex; });
  return rows;
}

void UI_MultiColumnTree::StoreSelection(RowList rows, bool notify) {
  if (rows == mSelection) {
    return;
  }
  IntrusivePtr<UI_MultiColumnTree> const self(this);
  RowList const before = std::exchange(mSelection, std::move(rows));
  for (RowPtr const& row : before) {
    row->mIsSelected = false;
  }
  for (RowPtr const& row : mSelection) {
    row->mIsSelected = true;
  }
  for (RowList const& changed : {before, mSelection}) {
    for (RowPtr const& row : changed) {
      InvalidateRow(row.Get());
      if (row->mView) {
        row->mView->UI_TellAccessibleChange(ui::AccessibleChange::kState);
      }
    }
  }
  UI_TellAccessibleChange(ui::AccessibleChange::kValue);
  if (notify) {
    TellSelection(true);
  }
}

void UI_MultiColumnTree::TellSelection(bool rowsChanged) {
  IntrusivePtr<UI_MultiColumnTree> const self(this);
  if (rowsChanged && mSelectionChanged) {
    auto const tell = mSelectionChanged;
    tell(GetSelectedRows());
  }
  if (mCellSelectionChanged) {
    auto const tell = mCellSelectionChanged;
    tell();
  }
}

void UI_MultiColumnTree::SelectRow(Row* row, bool selected, bool extend, bool notify) {
  if (row == nullptr || row->mTree != this) {
    return;
  }
  RowPtr const kept(row);
  IntrusivePtr<UI_MultiColumnTree> const self(this);
  RowList rows;
  if ((extend && mMultipleSelections) || !selected) {
    rows = mSelection;
    std::erase(rows, kept);
  }
  if (selected) {
    rows.push_back(kept);
    InvalidateRow(std::exchange(mLead, row));
    mAnchor = row;
  } else if (rows.empty() && !mNoneSelected) {
    return;
  }
  // Sets of the same rows are equal, whichever came last.
  bool const isSame = selected && row->mIsSelected && rows.size() == mSelection.size();
  if (selected) {
    ScrollRowIntoView(row, 0.0f, 0.0f, false);
  }
  if (!isSame) {
    StoreSelection(std::move(rows), notify);
  }
}

void UI_MultiColumnTree::SelectAllRows(bool notify) {
  if (!mMultipleSelections) {
    return;
  }
  RowList rows;
  rows.reserve(CountRows());
  for (std::int64_t index = 0; index < mRows->Count(); ++index) {
    rows.emplace_back(mRows->Get(index));
  }
  StoreSelection(std::move(rows), notify);
}

void UI_MultiColumnTree::SelectOnly(Row& row) {
  SelectRow(&row, true, false, true);
}

void UI_MultiColumnTree::SelectRange(Row& row) {
  std::int64_t const to = mRows->IndexOf(row);
  std::int64_t const from = mAnchor != nullptr ? mRows->IndexOf(*mAnchor) : to;
  if (from < 0) {
    SelectOnly(row);
    return;
  }
  RowList rows;
  for (std::int64_t index = std::min(from, to); index <= std::max(from, to); ++index) {
    rows.emplace_back(mRows->Get(index));
  }
  RowPtr const kept(&row);
  IntrusivePtr<UI_MultiColumnTree> const self(this);
  InvalidateRow(std::exchange(mLead, &row));
  InvalidateRow(mLead);
  ScrollRowIntoView(&row, 0.0f, 0.0f, false);
  StoreSelection(std::move(rows), true);
}

void UI_MultiColumnTree::Toggle(Row& row) {
  if (mMultipleSelections) {
    SelectRow(&row, !row.mIsSelected, true, true);
  } else if (row.mIsSelected) {
    SelectRow(&row, false, false, true);
  } else {
    SelectOnly(row);
  }
}

void UI_MultiColumnTree::SelectColumn(int column) {
  if (column < 0 || std::exchange(mSelectedColumn, column) == column || !mSelectableCells) {
    return;
  }
  for (RowPtr const& row : mSelection) {
    InvalidateRow(row.Get());
  }
  TellSelection(false);
}

void UI_MultiColumnTree::KeepOneSelected(std::int64_t near) {
  std::int64_t const count = mRows->Count();
  if (!mNoneSelected && mSelection.empty() && count > 0) {
    SelectRow(mRows->Get(std::clamp<std::int64_t>(near, 0, count - 1)), true, false, true);
  }
}

IntrusivePtr<CellView> UI_MultiColumnTree::GetSelectedCellOfSelectedRow() {
  RowList const rows = GetSelectedRows();
  if (rows.empty()) {
    return nullptr;
  }
  Row& row = *rows.front();
  if (mSelectableCells) {
    return row.GetCellView(mSelectedColumn);
  }
  for (IntrusivePtr<CellView> const& cell : row.mCells) {
    if (cell && cell->UI_HasKeyboardFocus()) {
      return cell;
    }
  }
  if (mClicked.row == &row) {
    return row.GetCellView(mClicked.column);
  }
  for (auto cell = row.mCells.rbegin(); cell != row.mCells.rend(); ++cell) {
    if (*cell && (*cell)->ChildSize() > 0) {
      return *cell;
    }
  }
  return row.GetCellView(0);
}

void UI_MultiColumnTree::ScrollToTop(bool repaint) {
  if (mRowsAreUnplaced) {
    LayoutRows();
  }
  if (mScrollView) {
    mScrollView->ScrollTo({mScrollView->GetViewedRect().left, 0.0f});
  }
  if (repaint) {
    UI_Invalidate();
  }
}

void UI_MultiColumnTree::ScrollRowIntoView(Row* row, float marginAbove, float marginBelow, bool repaint) {
  if (mRowsAreUnplaced) {
    LayoutRows();
  }
  std::int64_t const index = GetRowIndex(row);
  if (index < 0 || !mScrollView) {
    return;
  }
  RectT<float> const viewed = mScrollView->GetViewedRect();
  if (viewed.height > 0.0f) {
    float const top = static_cast<float>(index) * GetPitch() - marginAbove;
    mScrollView->ScrollIntoView({viewed.left, top, 0.0f, GetPitch() + marginAbove + marginBelow}, false);
  }
  if (repaint) {
    UI_Invalidate();
  }
}

}  // namespace moxui::controls
