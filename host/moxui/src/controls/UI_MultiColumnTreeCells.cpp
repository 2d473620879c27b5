// What the cells of a tree show, and what assistive software is told.
#include "../skins/BoxPainting.h"
#include "../skins/TextPainting.h"
#include "TreeRows.h"

#include <moxcore/string/Encoding.h>
#include <moxui/controls/UI_MultiColumnTree.h>
#include <moxui/scriber/Drawing.h>
#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/FontNames.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/skins/Design.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/skins/SkinSet.h>
#include <moxui/skins/ThemeColors.h>

#include <algorithm>
#include <utility>

namespace moxui::controls {

using skins::SkinNumber;
using ui::ThemeColorID;

void UI_MultiColumnTree::SetDrawCellOfRowCallback(DrawCellFunction function) {
  mDrawCell = std::move(function);
  UI_Invalidate();
}

void UI_MultiColumnTree::SetCellTextCallback(CellTextFunction function) {
  mCellText = std::move(function);
  UI_Invalidate();
}

void UI_MultiColumnTree::SetRowVisibilityChangedCallback(RowFunction function) {
  mVisibilityChanged = std::move(function);
}

void UI_MultiColumnTree::SetRowsSelectionChangedCallback(std::function<void(RowList const&)> function) {
  mSelectionChanged = std::move(function);
}

void UI_MultiColumnTree::SetCellSelectionChangedCallback(std::function<void()> function) {
  mCellSelectionChanged = std::move(function);
}

void UI_MultiColumnTree::SetRowOpenedChangedCallback(RowFunction function) {
  mOpenedChanged = std::move(function);
}

void UI_MultiColumnTree::SetRowActivatedCallback(RowFunction function) {
  mActivated = std::move(function);
}

float UI_MultiColumnTree::GetCellTextLeftInset() {
  return skins::SkinSet::Get().GetNumber(SkinNumber::kCellTextLeftInset);
}

float UI_MultiColumnTree::GetCellTextFontSize() {
  return skins::SkinSet::Get().GetNumber(SkinNumber::kCellTextFontSize);
}

PaddingT<float> UI_MultiColumnTree::GetDefaultCellPadding() {
  float const side = skins::SkinSet::Get().GetNumber(SkinNumber::kCellPadding);
  return {side, 0.0f, side, 0.0f};
}

void UI_MultiColumnTree::DrawCellString(scriber::Scriber* scriber, moxcore::Utf16String const& text,
                                        RectT<float> const& cell, ColorRGBA const& colour,
                                        moxcore::Utf8String const& fontName, float fontSize, float leftInset,
                                        PaddingT<float> const& padding) {
  scriber::FontP const font =
      scriber->GetSupplier()->NewFont(utils::ValidateFontName(fontName), "", fontSize);
  if (!font) {
    return;
  }
  bool const isMirrored = skins::IsRightToLeft();
  RectT<float> box = cell.Grown({-padding.left, -padding.top, -padding.right, -padding.bottom});
  box.width -= leftInset;
  box.left += isMirrored ? 0.0f : leftInset;
  skins::DrawTextLine(scriber, text, box, skins::GetLeadingAlignment(), skins::TextTruncation::kEnd, *font,
                      colour);
}

void UI_MultiColumnTree::DrawCell(scriber::Scriber* scriber, Row& row, int column) const {
  RectT<float> const cell = GetCellRect(row, column);
  if (mSelectableCells && row.mIsSelected && column == mSelectedColumn) {
    utils::DrawOutline(scriber, cell.Inset(0.5f), GetColor(ThemeColorID::kInteractive), 1.0f);
  }
  if (mDrawCell) {
    mDrawCell(scriber, &row, column, cell);
    return;
  }
  if (!mCellText) {
    return;
  }
  ColorRGBA colour = UI_GetCurrentSkinSet().IsV7OrBeyond()
                         ? skins::design::GetTableColor(this, skins::design::TableProperty::kText, 0)
                         : skins::utilities::GetDefaultTextColor(this);
  if (UI_IsDisabled()) {
    colour = skins::utilities::GetDefaultTextDisabledColor(this);
  } else if (row.mIsSelected) {
    colour = GetColor(ThemeColorID::kStrongText);
  }
  DrawCellString(scriber, mCellText(&row, column), cell, colour, GetThemeFontName(ui::FontIndex::kText),
                 GetCellTextFontSize(), GetCellTextLeftInset());
}

moxcore::Utf16String UI_MultiColumnTree::GetCellText(Row& row, int column) const {
  return mCellText ? mCellText(&row, column) : moxcore::Utf16String();
}

moxcore::Utf16String UI_MultiColumnTree::GetRowText(Row& row) const {
  moxcore::Utf16String text;
  for (int const column : mOrder) {
    moxcore::Utf16String const cell = GetCellText(row, column);
    if (!cell.empty()) {
      text += (text.empty() ? u"" : u", ") + cell;
    }
  }
  return text;
}

void UI_MultiColumnTree::UI_Draw(scriber::Scriber* scriber) const {
  UI_SubView::UI_Draw(scriber);
  if (mRows->Count() == 0 && mIndicateFocus && mFocusVisibility.ShowsRing() && UI_HasKeyboardFocus(true)) {
    // Without a row that could show it.
    RectT<float> const ring = UI_GetLocalRectF(ui::RectSpace::kOwn).Inset(skins::kFocusRingReach);
    skins::DrawFocusRing(scriber, ring, 0.0f, GetColor(ThemeColorID::kFocus));
  }
}

// Assistive software

void UI_MultiColumnTree::SetAccessibleName(moxcore::Utf8String name) {
  if (name != mAccessibleName) {
    mAccessibleName = std::move(name);
    UI_TellAccessibleChange(ui::AccessibleChange::kName);
  }
}

ui::AccessibleRole UI_MultiColumnTree::UI_GetAccessibleRole() const {
  return ui::AccessibleRole::kTable;
}

moxcore::Utf8String UI_MultiColumnTree::UI_GetAccessibleName() const {
  return mAccessibleName.empty() ? UI_GetToolTip() : mAccessibleName;
}

moxcore::Utf8String UI_MultiColumnTree::UI_GetAccessibleValue() const {
  return mSelection.empty() ? moxcore::Utf8String()
                            : moxcore::string::UTF16to8(GetRowText(*GetSelectedRows().front()));
}

}  // namespace moxui::controls
