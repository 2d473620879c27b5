#include "TreeRowView.h"
#include "TreeRows.h"

#include <moxui/controls/UI_MultiColumnTree.h>
#include <moxui/controls/UI_MultiColumnTreeRow.h>

#include <algorithm>
#include <utility>

namespace moxui::controls {

using moxcore::utility::IntrusivePtr;

CellView::CellView(UI_MultiColumnTreeRow& row, int column) : mRow(&row), mColumn(column) {}

CellView::~CellView() = default;

UI_MultiColumnTreeRow::UI_MultiColumnTreeRow(UI_MultiColumnTree& tree, UI_MultiColumnTreeRow* parent)
    : mTree(&tree), mParent(parent), mLevel(parent != nullptr ? parent->mLevel + 1 : 0) {}

UI_MultiColumnTreeRow::~UI_MultiColumnTreeRow() {
  DropCells();
}

void UI_MultiColumnTreeRow::DropCells() {
  if (mCells.empty()) {
    return;
  }
  for (IntrusivePtr<CellView> const& cell : std::exchange(mCells, {})) {
    if (cell) {
      cell->mRow = nullptr;
      if (mView) {
        mView->ChildRemove(cell.Get());
      }
    }
  }
}

bool UI_MultiColumnTreeRow::HoldsNodes() const {
  return std::ranges::any_of(
      mCells, [](IntrusivePtr<CellView> const& cell) { return cell && cell->ChildSize() > 0; });
}

bool UI_MultiColumnTreeRow::HasCellViews() const {
  return mView != nullptr;
}

IntrusivePtr<CellView> UI_MultiColumnTreeRow::GetCellView(int column) {
  if (mTree == nullptr || !mView || column < 0 || column >= mTree->GetNumberOfColumns()) {
    return nullptr;
  }
  mCells.resize(std::max(mCells.size(), static_cast<std::size_t>(mTree->GetNumberOfColumns())));
  IntrusivePtr<CellView>& cell = mCells[static_cast<std::size_t>(column)];
  if (!cell) {
    cell = moxcore::utility::MakeIntrusive<CellView>(*this, column);
    cell->UI_SetLocalRectF(mTree->GetCellRect(*this, column));
    // Traversal goes through the cells as they stand.
    auto const place = std::ranges::count_if(mCells, [&](IntrusivePtr<CellView> const& other) {
      return other && mTree->GetPlaceOfColumn(other->GetColumn()) < mTree->GetPlaceOfColumn(column);
    });
    mView->ChildInsert(static_cast<std::size_t>(place), cell);
  }
  return cell;
}

void UI_MultiColumnTreeRow::SetBackgroundColor(ColorRGBA const& colour) {
  if (mBackground != colour) {
    mBackground = colour;
    Invalidate();
  }
}

void UI_MultiColumnTreeRow::ClearBackgroundColor() {
  if (mBackground) {
    mBackground.reset();
    Invalidate();
  }
}

void UI_MultiColumnTreeRow::Invalidate() {
  if (mView) {
    mView->UI_Invalidate();
  }
}

IntrusivePtr<UI_MultiColumnTreeRow> UI_MultiColumnTreeRow::GetChildRow(std::size_t index) const {
  return index < mChildren.size() ? mChildren[index] : nullptr;
}

void UI_MultiColumnTreeRow::SetOpened(bool opened) {
  if (opened == mIsOpened) {
    return;
  }
  mIsOpened = opened;
  Invalidate();
  if (mTree != nullptr) {
    mTree->mRows->OrderChanged();
    mTree->RowsChanged();
  }
  if (mView) {
    mView->UI_TellAccessibleChange(ui::AccessibleChange::kState);
  }
}

}  // namespace moxui::controls
