#include "TreeHeaderCell.h"

#include "../skins/BoxPainting.h"
#include "../skins/TextPainting.h"

#include <moxcore/config/Localizer.h>
#include <moxcore/string/Encoding.h>
#include <moxui/controls/UI_MultiColumnTree.h>
#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/FontNames.h>
#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/Design.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/ui/NodeTree.h>

#include <cmath>

namespace moxui::controls {
namespace {

using ui::ThemeColorID;

constexpr float kSortArrowWidth = 16.0f;

void PaintSortArrow(scriber::Scriber* scriber, RectT<float> const& area, bool ascending,
                    ColorRGBA const& colour) {
  PointT<float> const centre = area.Center();
  float const tip = ascending ? -2.0f : 2.0f;
  scriber::PathP const path = scriber->GetSupplier()->NewPath();
  path->MoveTo({centre.x - 4.0f, centre.y - tip});
  path->LineTo({centre.x, centre.y + tip});
  path->LineTo({centre.x + 4.0f, centre.y - tip});
  path->Close();
  scriber::BrushP const brush = scriber->GetSupplier()->NewBrush(colour);
  scriber->GetSurface()->FillPath(*path, *brush, scriber::FillRule::kWinding);
}

}  // namespace

TreeHeaderCell::~TreeHeaderCell() = default;

UI_MultiColumnTree const* TreeHeaderCell::FindTree() const {
  return mHeader != nullptr ? mHeader->mTree : nullptr;
}

void TreeHeaderCell::UI_Draw(scriber::Scriber* scriber) const {
  UI_MultiColumnTree const* const tree = FindTree();
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  if (tree == nullptr || rect.IsEmpty()) {
    return;
  }
  bool const isHovered = UI_GetTree() != nullptr && UI_GetTree()->IsHovered(this, false);
  bool const isPressed = mHeader->mPressedColumn == mColumn;
  bool const canUse = !UI_IsDisabled() && (mHeader->CanSort() || mHeader->mAllowsMove);
  if (canUse && (isHovered || isPressed)) {
    scriber->GetSurface()->FillRect(rect, GetColor(isPressed ? ThemeColorID::kGray4 : ThemeColorID::kGray3));
  }
  bool const isMirrored = skins::IsRightToLeft();
  float const separator = isMirrored ? 0.0f : rect.width - 1.0f;
  scriber->GetSurface()->FillRect(
      {separator, 3.0f, 1.0f, rect.height - 7.0f},
      skins::design::GetTableColor(this, skins::design::TableProperty::kEdgeLine, 0));
  ColorRGBA const colour =
      GetColor(UI_IsDisabled() ? ThemeColorID::kDefaultTextDisabled : ThemeColorID::kDefaultText);
  RectT<float> cell = rect;
  if (mHeader->mShowsSort && mHeader->mSortColumn == mColumn && cell.width > 2.0f * kSortArrowWidth) {
    cell.width -= kSortArrowWidth;
    float const arrow = isMirrored ? 0.0f : cell.width - 4.0f;
    cell.left += isMirrored ? kSortArrowWidth : 0.0f;
    PaintSortArrow(scriber, {arrow + (isMirrored ? 4.0f : 0.0f), 0.0f, kSortArrowWidth, rect.height},
                   mHeader->mIsAscending, colour);
  }
  UI_MultiColumnTree::DrawCellString(
      scriber, tree->GetColumnName(mColumn), cell, colour, GetThemeFontName(ui::FontIndex::kSmall),
      GetThemeFontSize(ui::FontIndex::kSmall), UI_MultiColumnTree::GetCellTextLeftInset());
  UI_SubView::UI_Draw(scriber);
  if (mHeader->ShowsFocusOn(mColumn)) {
    skins::DrawFocusRing(scriber, rect.Inset(skins::kFocusRingReach), 0.0f, GetColor(ThemeColorID::kFocus));
  }
}

bool TreeHeaderCell::UI_InvalidateOnMouseOverChange(bool) {
  return !UI_IsDisabled();
}

ui::AccessibleRole TreeHeaderCell::UI_GetAccessibleRole() const {
  return ui::AccessibleRole::kColumnHeader;
}

moxcore::Utf8String TreeHeaderCell::UI_GetAccessibleName() const {
  UI_MultiColumnTree const* const tree = FindTree();
  return tree != nullptr ? moxcore::string::UTF16to8(tree->GetColumnName(mColumn)) : moxcore::Utf8String();
}

moxcore::Utf8String TreeHeaderCell::UI_GetAccessibleValue() const {
  if (mHeader == nullptr || !mHeader->mShowsSort || mHeader->mSortColumn != mColumn) {
    return {};
  }
  return moxcore::string::UTF16to8(moxcore::config::Localizer::Get().GetUTF16String(
      mHeader->mIsAscending ? "$$$/moxui/Tree/SortedUp=Sorted, ascending"
                            : "$$$/moxui/Tree/SortedDown=Sorted, descending"));
}

bool TreeHeaderCell::UI_DoAccessibleAction() {
  if (mHeader == nullptr || !mHeader->CanSort() || UI_IsDisabled()) {
    return false;
  }
  mHeader->SortBy(mColumn);
  return true;
}

}  // namespace moxui::controls
