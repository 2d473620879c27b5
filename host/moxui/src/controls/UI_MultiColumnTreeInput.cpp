// How a tree is worked: pointer and keys.
#include "PressCapture.h"
#include "TreeRowView.h"
#include "TreeRows.h"

#include <moxui/controls/UI_MultiColumnTree.h>
#include <moxui/controls/UI_MultiColumnTreeHeaderRow.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/MouseEvent.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/NodeTreeHost.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace moxui::controls {

using moxcore::utility::IntrusivePtr;
using ui::KeyboardCode;

// The pointer

TreeRowView* UI_MultiColumnTree::FindRowView(ui::UI_Node* node) const {
  for (; node != nullptr && node != this; node = node->UI_GetParentNode()) {
    if (auto* const view = dynamic_cast<TreeRowView*>(node);
        view != nullptr && view->UI_GetParentNode() == mRowsView.Get()) {
      return view;
    }
  }
  return nullptr;
}

UI_MultiColumnTree::CellPlace UI_MultiColumnTree::FindCell(ui::UI_Node* node, PointT<float> point) const {
  TreeRowView* const view = FindRowView(node);
  if (view == nullptr || view->GetRow() == nullptr) {
    return {};
  }
  float const x = node->UI_ConvertRectTo(view, {point.x, point.y, 0.0f, 0.0f}).left;
  for (int column = 0; column < GetNumberOfColumns(); ++column) {
    RectT<float> const cell = GetCellRect(*view->GetRow(), column);
    if (x >= cell.left && x < cell.Right() + 1.0f) {
      return {.row = view->GetRow(), .column = column};
    }
  }
  return {.row = view->GetRow(), .column = -1};
}

bool UI_MultiColumnTree::UI_DoPrePointerEvent(ui::UI_Node* node, ui::PointerEvent const& event) {
  if (event.IsAction(ui::PointerAction::kPress)) {
    // Also where a node in the cell takes the press.
    CellPlace const cell = FindCell(node, event.GetPosition());
    if (cell.row != nullptr && cell.column >= 0) {
      mClicked = cell;
    }
  }
  return UI_SubView::UI_DoPrePointerEvent(node, event);
}

bool UI_MultiColumnTree::UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) {
  bool const isPress = event.IsAction(ui::PointerAction::kPress) && event.IsButton(ui::MouseButton::kLeft);
  if (!isPress || UI_IsDisabled()) {
    return UI_SubView::UI_DoMouseEvent(node, event);
  }
  IntrusivePtr<UI_MultiColumnTree> const self(this);
  bool const isRow = FindRowView(node) != nullptr;
  if (UI_WantsKeyboardFocus()) {
    UI_GainKeyboardFocus(ui::FocusChangeReason::kPointer);
  }
  // What hears of the focus may have taken the tree away, or the row that was pressed.
  TreeRowView* const view = FindRowView(node);
  bool const isStillRow = view != nullptr && view->GetRow() != nullptr;
  if (!PressCapture::CanStart(*this) || isRow != isStillRow) {
    return true;
  }
  if (isStillRow) {
    PressRow(*view, *node, event);
    return true;
  }
  bool const isHeader = mHeaderRow && node->UI_IsSelfOrDescendantOf(mHeaderRow.Get());
  if (!isHeader && mSelectableRows && mNoneSelected && mDeselectOnEmptyClick) {
    StoreSelection({}, true);
  }
  return mSelectableRows;
}

void UI_MultiColumnTree::PressRow(TreeRowView& view, ui::UI_Node& node, ui::MouseEvent const& event) {
  RowPtr const row(view.GetRow());
  PointT<float> const position = event.GetPosition();
  PointT<float> const inRow = node.UI_ConvertRectTo(&view, {position.x, position.y, 0.0f, 0.0f}).TopLeft();
  if (view.GetDisclosureRect().Contains(inRow)) {
    OpenByUser(*row, !row->IsOpened());
    return;
  }
  if (!mSelectableRows) {
    return;
  }
  int const column = FindCell(&node, position).column;
  ui::ModKeys const keys = event.GetModKey();
  if (keys.Has(ui::ModKey::kShift) && mMultipleSelections) {
    SelectRange(*row);
  } else if (keys.Has(ui::ModKey::kCommand) && (mMultipleSelections || mNoneSelected)) {
    Toggle(*row);
  } else {
    SelectOnly(*row);
  }
  SelectColumn(column);
  if (event.IsLeftButtonDoubleClick() && mActivated && row->mTree == this) {
    auto const tell = mActivated;
    tell(row.Get());
  }
}

void UI_MultiColumnTree::OpenByUser(Row& row, bool opened) {
  if (row.CountChildRows() == 0 || row.IsOpened() == opened) {
    return;
  }
  RowPtr const kept(&row);
  IntrusivePtr<UI_MultiColumnTree> const self(this);
  row.SetOpened(opened);
  LayoutRows();
  // A selection that has gone out of sight goes to the row that closed over it.
  Row* lead = mLead;
  while (lead != nullptr && lead != &row) {
    lead = lead->GetParentRow();
  }
  if (!opened && lead == &row && mLead != &row && mSelectableRows) {
    SelectOnly(row);
  }
  if (mOpenedChanged) {
    auto const tell = mOpenedChanged;
    tell(&row);
  }
}

// Keys

bool UI_MultiColumnTree::UI_WantsKeyboardFocus() const {
  return mWantsKeyboardFocus;
}

UI_MultiColumnTree::Row* UI_MultiColumnTree::GetLead() const {
  if (mLead != nullptr && mRows->IndexOf(*mLead) >= 0) {
    return mLead;
  }
  return mSelection.empty() ? nullptr : mSelection.front().Get();
}

bool UI_MultiColumnTree::ShowsFocusOn(Row const& row) const {
  if (!mIndicateFocus || !mFocusVisibility.ShowsRing() || !UI_HasKeyboardFocus(true)) {
    return false;
  }
  Row const* const lead = GetLead();
  return lead != nullptr ? lead == &row : row.mIndex == std::floor(GetViewedRect().top / GetPitch());
}

void UI_MultiColumnTree::UI_FocusChanged(ui::FocusChangeReason reason) {
  UI_SubView::UI_FocusChanged(reason);
  mFocusVisibility.FocusChanged(reason);
  UI_Invalidate();
}

bool UI_MultiColumnTree::MoveTo(std::int64_t index, bool extend) {
  std::int64_t const count = mRows->Count();
  if (count == 0) {
    return false;
  }
  Row& row = *mRows->Get(std::clamp<std::int64_t>(index, 0, count - 1));
  if (extend && mMultipleSelections) {
    SelectRange(row);
  } else {
    SelectOnly(row);
  }
  return true;
}

bool UI_MultiColumnTree::MoveByKey(ui::KeyboardEvent const& event) {
  Row const* const lead = GetLead();
  std::int64_t const last = mRows->Count() - 1;
  std::int64_t const from = lead != nullptr ? mRows->IndexOf(*lead) : -1;
  auto const page = std::max<std::int64_t>(
      static_cast<std::int64_t>(std::floor(GetViewedRect().height / GetPitch())) - 1, 1);
  bool const extend = event.GetModKey().Has(ui::ModKey::kShift);
  switch (event.GetCode()) {
    case KeyboardCode::kUp:
      return MoveTo(from < 0 ? last : from - 1, extend);
    case KeyboardCode::kDown:
      return MoveTo(from + 1, extend);
    case KeyboardCode::kHome:
      return mNonArrowKeysSelect && MoveTo(0, extend);
    case KeyboardCode::kEnd:
      return mNonArrowKeysSelect && MoveTo(last, extend);
    case KeyboardCode::kPageUp:
      return mNonArrowKeysSelect && MoveTo(std::max<std::int64_t>(from, 0) - page, extend);
    case KeyboardCode::kPageDown:
      return mNonArrowKeysSelect && MoveTo(std::max<std::int64_t>(from, 0) + page, extend);
    default:
      return false;
  }
}

bool UI_MultiColumnTree::MoveSideways(bool forward) {
  Row* const lead = GetLead();
  if (lead == nullptr) {
    return false;
  }
  if (mSelectableCells) {
    int const column = GetColumnAt(GetPlaceOfColumn(mSelectedColumn) + (forward ? 1 : -1));
    SelectColumn(column);
    return column >= 0;
  }
  if (!mAllowChildren) {
    return false;
  }
  bool const hasChildren = lead->CountChildRows() > 0;
  if (forward && hasChildren) {
    if (lead->IsOpened()) {
      SelectOnly(*lead->GetChildRow(0));
    } else {
      OpenByUser(*lead, true);
    }
    return true;
  }
  if (!forward && hasChildren && lead->IsOpened()) {
    OpenByUser(*lead, false);
    return true;
  }
  if (!forward && lead->GetParentRow() != nullptr) {
    SelectOnly(*lead->GetParentRow());
    return true;
  }
  return false;
}

bool UI_MultiColumnTree::ChooseTyped(ui::KeyboardEvent const& event) {
  double const time = UI_GetTree() != nullptr ? UI_GetTree()->GetHost().GetTime() : 0.0;
  bool const isBlank = event.GetText() == u" " && mTypeAhead.IsTypingOn(time);
  if (!mCellText || (!TypeAhead::IsTyping(event) && !isBlank)) {
    return false;
  }
  Row const* const lead = GetLead();
  int const column = std::max(GetColumnAt(0), 0);
  auto const textOf = [this, column](std::int64_t index) {
    return std::optional(GetCellText(*mRows->Get(index), column));
  };
  auto const found = mTypeAhead.Type(event.GetText(), time, mRows->Count(),
                                     lead != nullptr ? mRows->IndexOf(*lead) : -1, textOf);
  return found && MoveTo(*found, false);
}

bool UI_MultiColumnTree::ScrollByKey(ui::UI_Node* node, ui::KeyboardEvent const& event) {
  return mScrollView && mScrollView->ScrollByKey(node, event);
}

bool UI_MultiColumnTree::UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) {
  if (UI_IsDisabled() || !event.IsAction(ui::KeyAction::kKeyDown)) {
    return UI_SubView::UI_DoKeyboardEvent(node, event);
  }
  IntrusivePtr<UI_MultiColumnTree> const self(this);
  if (node == this && mFocusVisibility.KeyUsed()) {
    UI_Invalidate();
  }
  if (!mSelectableRows) {
    return ScrollByKey(node, event) || UI_SubView::UI_DoKeyboardEvent(node, event);
  }
  ui::ModKeys const keys = event.GetModKey();
  bool const isPlain = keys.IsEmpty();
  bool const canMove = isPlain || keys == ui::ModKeys(ui::ModKey::kShift);
  if (canMove && MoveByKey(event)) {
    return true;
  }
  bool const isLeft = event.GetCode() == KeyboardCode::kLeft;
  if (isPlain && (isLeft || event.GetCode() == KeyboardCode::kRight) &&
      MoveSideways(isLeft == skins::IsRightToLeft())) {
    return true;
  }
  if (event.CompareShortcut(KeyboardCode::kA, ui::ModKey::kCommand) && mMultipleSelections) {
    SelectAllRows(true);
    return true;
  }
  Row* const lead = GetLead();
  bool const isReturn = event.GetCode() == KeyboardCode::kReturn || event.GetCode() == KeyboardCode::kEnter;
  if (isPlain && isReturn && mActivated && lead != nullptr && !event.IsRepeat()) {
    RowPtr const kept(lead);
    auto const tell = mActivated;
    tell(lead);
    return true;
  }
  if (event.CompareShortcut(KeyboardCode::kSpace, ui::ModKey::kCommand) && lead != nullptr) {
    Toggle(*lead);
    return true;
  }
  if (mNonArrowKeysSelect && ChooseTyped(event)) {
    return true;
  }
  return ScrollByKey(node, event) || UI_SubView::UI_DoKeyboardEvent(node, event);
}

}  // namespace moxui::controls
