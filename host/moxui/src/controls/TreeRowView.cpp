#include "TreeRowView.h"

#include "../skins/BoxPainting.h"
#include "../skins/ControlLook.h"
#include "../skins/MarkPainting.h"

#include <moxcore/string/Encoding.h>
#include <moxui/controls/UI_MultiColumnTree.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/Design.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/ui/NodeTree.h>

#include <cmath>

namespace moxui::controls {

using ui::ThemeColorID;

TreeRowView::TreeRowView() = default;
TreeRowView::~TreeRowView() = default;

UI_MultiColumnTree* TreeRowView::FindTree() const {
  return mRow != nullptr ? mRow->GetTree() : nullptr;
}

RectT<float> TreeRowView::GetDisclosureRect() const {
  UI_MultiColumnTree const* const tree = FindTree();
  if (tree == nullptr || mRow->CountChildRows() == 0) {
    return {};
  }
  RectT<float> const cell = tree->GetCellRect(*mRow, 0);
  float const left = skins::IsRightToLeft() ? cell.Right() : cell.left - kTreeIndent;
  return {left, std::floor((tree->GetRowHeight() - kTreeIndent) / 2.0f), kTreeIndent, kTreeIndent};
}

void TreeRowView::PlaceCells() {
  UI_MultiColumnTree const* const tree = FindTree();
  if (tree == nullptr) {
    return;
  }
  for (auto const& cell : mRow->mCells) {
    if (cell) {
      cell->UI_SetLocalRectF(tree->GetCellRect(*mRow, cell->GetColumn()));
    }
  }
}

void TreeRowView::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  PlaceCells();
}

void TreeRowView::DrawGround(scriber::Scriber* scriber, UI_MultiColumnTree const& tree) const {
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  if (mRow->GetBackgroundColor()) {
    scriber->GetSurface()->FillRect(rect, *mRow->GetBackgroundColor());
  }
  RectT<float> const body(0.0f, 0.0f, rect.width, tree.GetRowHeight());
  bool const isDisabled = UI_IsDisabled();
  if (tree.IsRowSelected(mRow)) {
    scriber->GetSurface()->FillRect(
        body, GetColor(isDisabled ? ThemeColorID::kGray3 : ThemeColorID::kSelectionFill));
  } else if (!isDisabled && tree.SupportsUserSelectableRows() && UI_GetTree() != nullptr &&
             UI_GetTree()->IsHovered(this, false)) {
    scriber->GetSurface()->FillRect(body, GetColor(ThemeColorID::kGray3));
  }
}

void TreeRowView::DrawLines(scriber::Scriber* scriber, UI_MultiColumnTree const& tree) const {
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  ColorRGBA const colour = skins::design::GetTableColor(this, skins::design::TableProperty::kGridLine, 0);
  if (tree.mRowLines) {
    scriber->GetSurface()->FillRect({0.0f, tree.GetRowHeight(), rect.width, 1.0f}, colour);
  }
  for (int column = 0; tree.mColumnLines && column < tree.GetNumberOfColumns(); ++column) {
    float const end = tree.GetColumnOffset(column) + tree.GetColumnWidth(column);
    float const left = skins::IsRightToLeft() ? rect.width - end - 1.0f : end;
    scriber->GetSurface()->FillRect({left, 0.0f, 1.0f, rect.height}, colour);
  }
}

void TreeRowView::UI_Draw(scriber::Scriber* scriber) const {
  UI_MultiColumnTree const* const tree = FindTree();
  if (tree == nullptr) {
    return;
  }
  DrawGround(scriber, *tree);
  DrawLines(scriber, *tree);
  RectT<float> const triangle = GetDisclosureRect();
  if (!triangle.IsEmpty()) {
    skins::ControlLook look{.theme = this, .skinSet = &UI_GetCurrentSkinSet(), .state = {}};
    look.state.Set(skins::ControlState::kDisabled, UI_IsDisabled());
    skins::PaintDisclosureTriangle(scriber, triangle, mRow->IsOpened(), look);
  }
  RectT<float> const clip = scriber->GetSurface()->GetClipBounds();
  for (int column = 0; column < tree->GetNumberOfColumns(); ++column) {
    if (tree->GetCellRect(*mRow, column).Intersects(clip)) {
      tree->DrawCell(scriber, *mRow, column);
    }
  }
  UI_SubView::UI_Draw(scriber);
  if (tree->ShowsFocusOn(*mRow)) {
    RectT<float> const seen = tree->GetViewedRect();
    RectT<float> const ring(seen.left, 0.0f, seen.width, tree->GetRowHeight());
    skins::DrawFocusRing(scriber, ring.Inset(skins::kFocusRingReach), 0.0f, GetColor(ThemeColorID::kFocus));
  }
}

bool TreeRowView::UI_InvalidateOnMouseOverChange(bool) {
  UI_MultiColumnTree const* const tree = FindTree();
  return tree != nullptr && tree->SupportsUserSelectableRows() && !UI_IsDisabled();
}

ui::AccessibleRole TreeRowView::UI_GetAccessibleRole() const {
  return mRow != nullptr ? ui::AccessibleRole::kRow : ui::AccessibleRole::kNone;
}

moxcore::Utf8String TreeRowView::UI_GetAccessibleName() const {
  UI_MultiColumnTree const* const tree = FindTree();
  return tree != nullptr ? moxcore::string::UTF16to8(tree->GetRowText(*mRow)) : moxcore::Utf8String();
}

ui::AccessibleState TreeRowView::UI_GetAccessibleState() const {
  ui::AccessibleState state = UI_SubView::UI_GetAccessibleState();
  UI_MultiColumnTree const* const tree = FindTree();
  if (tree != nullptr) {
    state.isSelectable = tree->SupportsUserSelectableRows();
    state.isSelected = tree->IsRowSelected(mRow);
    state.isExpandable = mRow->CountChildRows() > 0;
    state.isExpanded = state.isExpandable && mRow->IsOpened();
  }
  return state;
}

bool TreeRowView::UI_DoAccessibleAction() {
  UI_MultiColumnTree* const tree = FindTree();
  if (tree == nullptr || UI_IsDisabled() || !tree->SupportsUserSelectableRows()) {
    return false;
  }
  moxcore::utility::IntrusivePtr<UI_MultiColumnTree> const kept(tree);
  tree->SelectOnly(*mRow);
  return true;
}

}  // namespace moxui::controls
