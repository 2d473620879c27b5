// Rows, columns and where they lie; UI_MultiColumnTreeSelection.cpp, ...Input.cpp and ...Cells.cpp have the
// rest.
#include "TreeRowView.h"
#include "TreeRows.h"

#include <moxui/controls/UI_MultiColumnTree.h>
#include <moxui/controls/UI_MultiColumnTreeHeaderRow.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/skins/SkinSet.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;

constexpr float kLine = 1.0f;
constexpr float kLeastColumnWidth = 0.0f;

}  // namespace

UI_MultiColumnTree::UI_MultiColumnTree(float defaultRowHeight, int scrolling)
    : mRows(std::make_unique<TreeRows>(*this)),
      mRowsView(MakeIntrusive<ui::UI_SubView>()),
      mRowHeight(defaultRowHeight) {
  if (scrolling == TreeOption::kWithScrollView) {
    mScrollView = MakeIntrusive<TreeScrollView>(*this, mRowsView);
    ChildPushBack(mScrollView);
  } else {
    UI_SetClipsChildren(true);
    ChildPushBack(mRowsView);
  }
}

UI_MultiColumnTree::~UI_MultiColumnTree() {
  if (mHeaderRow) {
    mHeaderRow->mTree = nullptr;
  }
}

void UI_MultiColumnTree::SetUp(int headerRow) {
  if (headerRow == TreeOption::kHeaderRow && !mHeaderRow) {
    auto const header = MakeIntrusive<UI_MultiColumnTreeHeaderRow>(this);
  }
  LayoutRows();
}

void UI_MultiColumnTree::SetHeaderRow(IntrusivePtr<UI_MultiColumnTreeHeaderRow> header) {
  if (mHeaderRow) {
    mHeaderRow->mTree = nullptr;
    ChildRemove(mHeaderRow.Get());
  }
  mHeaderRow = std::move(header);
  // Traversal comes to the names of the columns before the rows.
  ChildInsert(0, mHeaderRow);
  UpdateSize(UI_GetLocalRectF(ui::RectSpace::kOwn));
}

// Behaviour

void UI_MultiColumnTree::SetAllowChildren(bool allow) {
  if (std::exchange(mAllowChildren, allow) != allow) {
    ColumnsChanged();
  }
}

void UI_MultiColumnTree::SetSupportUserSelectableRows(bool support) {
  mSelectableRows = support;
}

void UI_MultiColumnTree::SetSupportUserSelectableCells(bool support) {
  mSelectableCells = support;
  UI_Invalidate();
}

void UI_MultiColumnTree::SetSupportMultipleSelections(bool support) {
  mMultipleSelections = support;
}

void UI_MultiColumnTree::SetSupportNoneSelected(bool support) {
  mNoneSelected = support;
}

void UI_MultiColumnTree::SetSupportDeselectAllOnEmptyTreeClick(bool support) {
  mDeselectOnEmptyClick = support;
}

void UI_MultiColumnTree::SetSupportNonArrowKeysToSelectRow(bool support) {
  mNonArrowKeysSelect = support;
}

void UI_MultiColumnTree::SetIndicateFocus(bool indicate) {
  mIndicateFocus = indicate;
  UI_Invalidate();
}

void UI_MultiColumnTree::SetDrawGridLines(bool columnLines, bool rowLines) {
  mColumnLines = columnLines;
  mRowLines = rowLines;
  UI_Invalidate();
}

// Columns

void UI_MultiColumnTree::SetNumberOfColumns(int count) {
  auto const number = static_cast<std::size_t>(std::max(count, 0));
  if (number == mColumns.size()) {
    return;
  }
  mColumns.resize(number);
  std::erase_if(mOrder, [count](int column) { return column >= count; });
  for (int column = static_cast<int>(mOrder.size()); column < count; ++column) {
    mOrder.push_back(column);
  }
  for (RowPtr const& row : mRows->All()) {
    for (std::size_t column = number; column < row->mCells.size(); ++column) {
      if (auto const& cell = row->mCells[column]; cell && row->mView) {
        row->mView->ChildRemove(cell.Get());
      }
    }
    if (row->mCells.size() > number) {
      row->mCells.resize(number);
    }
  }
  ColumnsChanged();
}

void UI_MultiColumnTree::SetColumnWidth(int column, float width) {
  if (column < 0 || column >= GetNumberOfColumns()) {
    return;
  }
  float const held = std::max(width, kLeastColumnWidth);
  if (std::exchange(mColumns[static_cast<std::size_t>(column)].width, held) != held) {
    ColumnsChanged();
  }
}

float UI_MultiColumnTree::GetColumnWidth(int column) const {
  return column >= 0 && column < GetNumberOfColumns() ? mColumns[static_cast<std::size_t>(column)].width
                                                      : 0.0f;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): callers hand their text over
void UI_MultiColumnTree::SetColumnName(int column, moxcore::Utf16String name) {
  if (column >= 0 && column < GetNumberOfColumns() &&
      mColumns[static_cast<std::size_t>(column)].name != name) {
    mColumns[static_cast<std::size_t>(column)].name = std::move(name);
    ColumnsChanged();
  }
}

moxcore::Utf16String const& UI_MultiColumnTree::GetColumnName(int column) const {
  static moxcore::Utf16String const none;
  return column >= 0 && column < GetNumberOfColumns() ? mColumns[static_cast<std::size_t>(column)].name
                                                      : none;
}

int UI_MultiColumnTree::GetColumnAt(int place) const {
  return place >= 0 && place < GetNumberOfColumns() ? mOrder[static_cast<std::size_t>(place)] : -1;
}

int UI_MultiColumnTree::GetPlaceOfColumn(int column) const {
  auto const found = std::ranges::find(mOrder, column);
  return found != mOrder.end() ? static_cast<int>(found - mOrder.begin()) : -1;
}

void UI_MultiColumnTree::MoveColumn(int column, int toPlace) {
  int const from = GetPlaceOfColumn(column);
  int const to = std::clamp(toPlace, 0, std::max(GetNumberOfColumns() - 1, 0));
  if (from < 0 || from == to) {
    return;
  }
  mOrder.erase(mOrder.begin() + from);
  mOrder.insert(mOrder.begin() + to, column);
  ColumnsChanged();
}

float UI_MultiColumnTree::GetColumnOffset(int column) const {
  float offset = 0.0f;
  for (int const before : mOrder) {
    if (before == column) {
      break;
    }
    offset += GetColumnWidth(before) + kLine;
  }
  return offset;
}

float UI_MultiColumnTree::GetColumnsWidth() const {
  return std::accumulate(mColumns.begin(), mColumns.end(), 0.0f,
                         [](float sum, Column const& column) { return sum + column.width + kLine; });
}

void UI_MultiColumnTree::ColumnsChanged() {
  LayoutRows();
  for (RowPtr const& row : mRows->GetVisible()) {
    row->mView->PlaceCells();
  }
  UI_Invalidate();
}

// Rows

UI_MultiColumnTree::RowPtr UI_MultiColumnTree::CreateAndAppendRow(Row* parent) {
  bool const nests = mAllowChildren && parent != nullptr && parent->mTree == this;
  RowPtr row = mRows->Append(nests ? parent : nullptr);
  if (nests) {
    parent->Invalidate();  // it may have become one that opens
  }
  RowsChanged();
  return row;
}

void UI_MultiColumnTree::RemoveRow(Row* row) {
  if (row == nullptr || row->mTree != this) {
    return;
  }
  IntrusivePtr<UI_MultiColumnTree> const self(this);
  RowPtr const kept(row);
  std::int64_t const index = mRows->IndexOf(*row);
  if (std::exchange(row->mIsVisible, false) && mVisibilityChanged) {
    auto const tell = mVisibilityChanged;
    tell(row);
  }
  TreeRows::RowList const removed = mRows->Remove(*row);
  ForgetRemovedRows();
  KeepOneSelected(index);
  LayoutRows();
}

void UI_MultiColumnTree::ClearRows() {
  IntrusivePtr<UI_MultiColumnTree> const self(this);
  TreeRows::RowList const visible = mRows->GetVisible();
  for (RowPtr const& row : visible) {
    row->mIsVisible = false;
  }
  for (RowPtr const& row : visible) {
    if (mVisibilityChanged && row->mTree == this) {
      auto const tell = mVisibilityChanged;
      tell(row.Get());
    }
  }
  TreeRows::RowList const removed = mRows->RemoveAll();
  ForgetRemovedRows();
  LayoutRows();
}

void UI_MultiColumnTree::ForgetRemovedRows() {
  auto const isGone = [this](Row const* row) { return row != nullptr && row->mTree != this; };
  std::erase_if(mSelection, [&](RowPtr const& row) { return isGone(row.Get()); });
  for (Row** const row : {&mLead, &mAnchor, &mClicked.row}) {
    if (isGone(*row)) {
      *row = nullptr;
    }
  }
}

void UI_MultiColumnTree::RowsChanged() {
  mRowsAreUnplaced = true;
  UI_InvalidateLayout();
}

void UI_MultiColumnTree::LayoutAfterAppendRow(bool repaint) {
  LayoutRows();
  if (repaint) {
    UI_Invalidate();
  }
}

std::size_t UI_MultiColumnTree::CountRows() const {
  return static_cast<std::size_t>(mRows->Count());
}

UI_MultiColumnTree::RowPtr UI_MultiColumnTree::GetRow(std::int64_t index) const {
  return mRows->Get(index);
}

std::int64_t UI_MultiColumnTree::GetRowIndex(Row const* row) const {
  return row != nullptr ? mRows->IndexOf(*row) : -1;
}

bool UI_MultiColumnTree::IsRowVisible(Row const* row) const {
  return row != nullptr && row->mTree == this && row->mIsVisible;
}

void UI_MultiColumnTree::SetRowHeight(float height) {
  if (std::exchange(mRowHeight, height) != height) {
    LayoutRows();
    UI_Invalidate();
  }
}

float UI_MultiColumnTree::GetRowHeight() const {
  return mRowHeight > 0.0f ? mRowHeight : UI_GetCurrentSkinSet().GetNumber(skins::SkinNumber::kTreeRowHeight);
}

void UI_MultiColumnTree::InvalidateRow(Row const* row) {
  if (row != nullptr && row->mView) {
    row->mView->UI_Invalidate();
  }
}

// Layout

RectT<float> UI_MultiColumnTree::GetViewedRect() const {
  if (mScrollView) {
    return mScrollView->GetViewedRect();
  }
  RectT<float> const own = UI_GetLocalRectF(ui::RectSpace::kOwn);
  float const header = mHeaderRow ? mHeaderRow->GetDesiredHeight() : 0.0f;
  return {0.0f, 0.0f, std::max(own.width, 0.0f), std::max(own.height - header, 0.0f)};
}

void UI_MultiColumnTree::LayoutRows() {
  if (mIsLayingOut) {
    UI_InvalidateLayout();
    return;
  }
  IntrusivePtr<UI_MultiColumnTree> const self(this);
  mIsLayingOut = true;
  mRowsAreUnplaced = false;
  float const pitch = GetPitch();
  ExtentT<float> const extent(GetColumnsWidth(), static_cast<float>(mRows->Count()) * pitch);
  float const trailing =
      mRowsView->UI_GetLocalRectF(ui::RectSpace::kOwn).width - GetViewedRect().left - GetViewedRect().width;
  if (mScrollView) {
    mScrollView->SetContentRect({0.0f, 0.0f, extent.width, extent.height});
  }
  RectT<float> const viewed = GetViewedRect();
  float const width = std::max(extent.width, viewed.width);
  float const top = mScrollView || !mHeaderRow ? 0.0f : mHeaderRow->GetDesiredHeight();
  mRowsView->UI_SetLocalRectF({0.0f, top, width, extent.height});
  if (mScrollView && skins::IsRightToLeft()) {
    // What is seen stays where lines begin.
    mScrollView->ScrollTo({width - viewed.width - std::max(trailing, 0.0f), viewed.top});
  }
  PlaceHeader();
  mIsLayingOut = false;
  ShowRows();
}

void UI_MultiColumnTree::PlaceHeader() {
  if (mHeaderRow) {
    RectT<float> const viewed = GetViewedRect();
    ui::UI_Node const& frame = mScrollView ? static_cast<ui::UI_Node const&>(*mScrollView) : *this;
    float const left = mRowsView->UI_ConvertRectTo(&frame, {viewed.left, 0.0f, 1.0f, 1.0f}).left;
    mHeaderRow->PlaceCells(left - viewed.left, mRowsView->UI_GetLocalRectF(ui::RectSpace::kOwn).width);
  }
}

void UI_MultiColumnTree::Scrolled() {
  if (!mIsLayingOut) {
    PlaceHeader();
    ShowRows();
  }
}

void UI_MultiColumnTree::ShowRows() {
  IntrusivePtr<UI_MultiColumnTree> const self(this);
  RectT<float> const viewed = GetViewedRect();
  float const pitch = GetPitch();
  auto const at = [&](float y) {
    return std::clamp<std::int64_t>(static_cast<std::int64_t>(y), 0, mRows->Count());
  };
  std::int64_t const first = at(std::floor(viewed.top / pitch));
  std::int64_t const end = viewed.height > 0.0f ? at(std::ceil((viewed.top + viewed.height) / pitch)) : first;
  mIsLayingOut = true;
  TreeRows::RowList const changed = mRows->Show(first, end, *mRowsView);
  mRows->PlaceViews(pitch, mRowsView->UI_GetLocalRectF(ui::RectSpace::kOwn).width);
  mIsLayingOut = false;
  for (RowPtr const& row : changed) {
    if (mVisibilityChanged && row->mTree == this) {
      auto const tell = mVisibilityChanged;
      tell(row.Get());
    }
  }
}

void UI_MultiColumnTree::UpdateSize(RectT<float> const& rect) {
  RectT<float> rows = rect;
  if (mHeaderRow) {
    float const height = mHeaderRow->GetDesiredHeight();
    mHeaderRow->UI_SetLocalRectF({rect.left, rect.top, rect.width, height});
    rows = RectT<float>::FromEdges(rect.left, rect.top + height, rect.Right(), rect.Bottom());
  }
  if (mScrollView) {
    mScrollView->SetViewRect({rows.left, rows.top, std::max(rows.width, 0.0f), std::max(rows.height, 0.0f)});
  }
  LayoutRows();
}

void UI_MultiColumnTree::SetSize(float width, float height) {
  UpdateSize({0.0f, 0.0f, width, height});
}

float UI_MultiColumnTree::GetFullOpenedRowsHeight() const {
  float height = static_cast<float>(mRows->Count()) * GetPitch();
  if (mHeaderRow) {
    height += mHeaderRow->GetDesiredHeight();
  }
  UI_ScrollBar const* const bar = mScrollView ? mScrollView->GetScrollBarX() : nullptr;
  if (bar != nullptr && bar->UI_IsShown()) {
    height += bar->UI_GetLocalRectF(ui::RectSpace::kOwn).height;
  }
  return height;
}

RectT<float> UI_MultiColumnTree::GetCellRect(Row const& row, int column) const {
  float left = GetColumnOffset(column);
  float width = GetColumnWidth(column);
  if (column == 0 && mAllowChildren) {
    float const indent = kTreeIndent * static_cast<float>(row.GetLevel() + 1);
    left += indent;
    width = std::max(width - indent, 0.0f);
  }
  if (skins::IsRightToLeft()) {
    left = mRowsView->UI_GetLocalRectF(ui::RectSpace::kOwn).width - left - width;
  }
  return {left, 0.0f, width, GetRowHeight()};
}

void UI_MultiColumnTree::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  SetSize(rect.width, rect.height);
}

void UI_MultiColumnTree::UI_LayoutChildren() {
  UI_SubView::UI_LayoutChildren();
  LayoutRows();
}

void UI_MultiColumnTree::UI_SkinSetUpdated() {
  UI_SubView::UI_SkinSetUpdated();
  UpdateSize(UI_GetLocalRectF(ui::RectSpace::kOwn));
  ColumnsChanged();
}

ExtentT<float> UI_MultiColumnTree::UI_GetRecommendedSize(scriber::Scriber*) const {
  return {GetColumnsWidth(), GetFullOpenedRowsHeight()};
}

}  // namespace moxui::controls
