#include "PressCapture.h"
#include "TreeHeaderCell.h"

#include <moxui/controls/UI_MultiColumnTree.h>
#include <moxui/controls/UI_MultiColumnTreeHeaderRow.h>
#include <moxui/platform/Application.h>
#include <moxui/platform/CursorControl.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/Design.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/skins/SkinSet.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/MouseEvent.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;
using ui::KeyboardCode;

constexpr float kEdgeReach = 4.0f;          // to either side of a line that is dragged
constexpr float kLeastColumnWidth = 24.0f;  // that a user can give
constexpr float kResizeStep = 8.0f;         // of a key
constexpr float kMoveThreshold = 4.0f;      // before a press on a name drags it

}  // namespace

UI_MultiColumnTreeHeaderRow::UI_MultiColumnTreeHeaderRow(UI_MultiColumnTree* tree) : mTree(tree) {
  UI_SetClipsChildren(true);
  IntrusivePtr<UI_MultiColumnTree>(tree)->SetHeaderRow(IntrusivePtr<UI_MultiColumnTreeHeaderRow>(this));
}

UI_MultiColumnTreeHeaderRow::~UI_MultiColumnTreeHeaderRow() {
  for (auto const& cell : mCells) {
    cell->Leave();
  }
}

int UI_MultiColumnTreeHeaderRow::GetColumnAt(int place) const {
  return mTree != nullptr ? mTree->GetColumnAt(place) : -1;
}

void UI_MultiColumnTreeHeaderRow::SetColumnName(int column, moxcore::Utf16String name) {
  if (mTree != nullptr) {
    mTree->SetColumnName(column, std::move(name));
  }
}

void UI_MultiColumnTreeHeaderRow::SetColumnWidth(int column, float width) {
  if (mTree != nullptr) {
    mTree->SetColumnWidth(column, width);
  }
}

void UI_MultiColumnTreeHeaderRow::SetAllowUserColumnResize(bool allow) {
  mAllowsResize = allow;
}

void UI_MultiColumnTreeHeaderRow::SetColumnWidthChangedCallback(ColumnFunction function) {
  mWidthChanged = std::move(function);
}

void UI_MultiColumnTreeHeaderRow::ShowSortIndicator(bool show) {
  mShowsSort = show;
  UI_Invalidate();
}

void UI_MultiColumnTreeHeaderRow::SetSortColumn(int column, bool ascending) {
  mSortColumn = column;
  mIsAscending = ascending;
  UI_Invalidate();
  for (auto const& cell : mCells) {
    cell->UI_TellAccessibleChange(ui::AccessibleChange::kValue);
  }
}

void UI_MultiColumnTreeHeaderRow::SetSortChangedCallback(SortFunction function) {
  mSortChanged = std::move(function);
}

void UI_MultiColumnTreeHeaderRow::SortBy(int column) {
  if (column < 0 || !CanSort()) {
    return;
  }
  IntrusivePtr<UI_MultiColumnTreeHeaderRow> const self(this);
  SetSortColumn(column, mSortColumn != column || !mIsAscending);
  auto const tell = mSortChanged;
  tell(mSortColumn, mIsAscending);
}

float UI_MultiColumnTreeHeaderRow::GetDesiredHeight() const {
  return UI_GetCurrentSkinSet().GetNumber(skins::SkinNumber::kTreeHeaderHeight);
}

// Layout

void UI_MultiColumnTreeHeaderRow::PlaceCells(float left, float width) {
  mLeft = left;
  mWidth = width;
  auto const count = static_cast<std::size_t>(mTree != nullptr ? mTree->GetNumberOfColumns() : 0);
  while (mCells.size() > count) {
    mCells.back()->Leave();
    ChildRemove(mCells.back().Get());
    mCells.pop_back();
  }
  while (mCells.size() < count) {
    mCells.push_back(moxcore::utility::MakeIntrusive<TreeHeaderCell>(*this, static_cast<int>(mCells.size())));
    ChildPushBack(mCells.back());
  }
  for (std::size_t column = 0; column < count; ++column) {
    mCells[column]->UI_SetLocalRectF(GetCellRect(static_cast<int>(column)));
  }
  UI_Invalidate();
}

RectT<float> UI_MultiColumnTreeHeaderRow::GetCellRect(int column) const {
  float const offset = mTree->GetColumnOffset(column);
  float const width = mTree->GetColumnWidth(column) + 1.0f;
  float const left = skins::IsRightToLeft() ? mWidth - offset - width : offset;
  return {mLeft + left, 0.0f, width, UI_GetLocalRectF(ui::RectSpace::kOwn).height};
}

void UI_MultiColumnTreeHeaderRow::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  PlaceCells(mLeft, mWidth);
}

void UI_MultiColumnTreeHeaderRow::UI_Draw(scriber::Scriber* scriber) const {
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  scriber->GetSurface()->FillRect(rect, GetColor(ui::ThemeColorID::kTabBackground));
  scriber->GetSurface()->FillRect(
      {0.0f, rect.height - 1.0f, rect.width, 1.0f},
      skins::design::GetTableColor(this, skins::design::TableProperty::kEdgeLine, 0));
  UI_SubView::UI_Draw(scriber);
}

// The pointer

int UI_MultiColumnTreeHeaderRow::FindEdge(float x) const {
  if (!mAllowsResize || mTree == nullptr) {
    return -1;
  }
  // The last first: a column that has no width left is still found.
  for (int place = mTree->GetNumberOfColumns() - 1; place >= 0; --place) {
    int const column = mTree->GetColumnAt(place);
    RectT<float> const cell = GetCellRect(column);
    float const edge = skins::IsRightToLeft() ? cell.left : cell.Right() - 1.0f;
    if (std::abs(x - edge) <= kEdgeReach) {
      return column;
    }
  }
  return -1;
}

int UI_MultiColumnTreeHeaderRow::FindColumn(float x) const {
  for (int column = 0; mTree != nullptr && column < mTree->GetNumberOfColumns(); ++column) {
    RectT<float> const cell = GetCellRect(column);
    if (x >= cell.left && x < cell.Right()) {
      return column;
    }
  }
  return -1;
}

bool UI_MultiColumnTreeHeaderRow::UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) {
  bool const isPress = event.IsAction(ui::PointerAction::kPress) && event.IsButton(ui::MouseButton::kLeft);
  if (!isPress || UI_IsDisabled() || mTree == nullptr) {
    return UI_SubView::UI_DoMouseEvent(node, event);
  }
  IntrusivePtr<UI_MultiColumnTreeHeaderRow> const self(this);
  float const x = node->UI_ConvertRectTo(this, {event.GetPosition().x, 0.0f, 0.0f, 0.0f}).left;
  if (int const edge = FindEdge(x); edge >= 0) {
    BeginResize(edge, event, x);
    return true;
  }
  int const column = FindColumn(x);
  if (column >= 0 && (mAllowsMove || CanSort())) {
    SetCurrent(mTree->GetPlaceOfColumn(column));
    BeginMove(column, event, x);
    return true;
  }
  return false;
}

void UI_MultiColumnTreeHeaderRow::BeginResize(int column, ui::MouseEvent const& event, float x) {
  float const before = mTree->GetColumnWidth(column);
  float const forward = skins::IsRightToLeft() ? -1.0f : 1.0f;
  auto const resize = [this, column, before, forward, x](ui::MouseEvent const& next) {
    ResizeByUser(column, std::round(before + forward * (next.GetPosition().x - x)));
  };
  PressCapture::Start(this, event, resize, [this, column, before] { ResizeByUser(column, before); });
}

void UI_MultiColumnTreeHeaderRow::ResizeByUser(int column, float width) {
  float const held = std::max(width, kLeastColumnWidth);
  if (mTree == nullptr || mTree->GetColumnWidth(column) == held) {
    return;
  }
  IntrusivePtr<UI_MultiColumnTreeHeaderRow> const self(this);
  mTree->SetColumnWidth(column, held);
  if (mWidthChanged) {
    auto const tell = mWidthChanged;
    tell(column);
  }
}

void UI_MultiColumnTreeHeaderRow::BeginMove(int column, ui::MouseEvent const& event, float x) {
  int const placeBefore = mTree->GetPlaceOfColumn(column);
  mPressedColumn = column;
  UI_Invalidate();
  auto const isDragging = std::make_shared<bool>(false);
  auto const drag = [this, column, x, isDragging](ui::MouseEvent const& next) {
    float const at = next.GetPosition().x;
    *isDragging = *isDragging || std::abs(at - x) > kMoveThreshold;
    if (*isDragging && mAllowsMove) {
      MoveTowards(column, at);
    }
    if (next.IsAction(ui::PointerAction::kRelease)) {
      mPressedColumn = -1;
      UI_Invalidate();
      if (!*isDragging && FindColumn(at) == column) {
        SortBy(column);
      }
    }
  };
  PressCapture::Start(this, event, drag, [this, column, placeBefore] {
    mPressedColumn = -1;
    UI_Invalidate();
    if (mTree != nullptr) {
      mTree->MoveColumn(column, placeBefore);
    }
  });
}

// A column goes over a neighbour once the pointer is past where the neighbour's middle would come to lie.
void UI_MultiColumnTreeHeaderRow::MoveTowards(int column, float x) {
  if (mTree == nullptr) {
    return;
  }
  int const place = mTree->GetPlaceOfColumn(column);
  for (int const toward : {-1, 1}) {
    int const neighbour = mTree->GetColumnAt(place + toward);
    if (neighbour < 0) {
      continue;
    }
    RectT<float> const cell = GetCellRect(neighbour);
    bool const isToTheRight = (toward > 0) != skins::IsRightToLeft();
    if (isToTheRight ? x > cell.Center().x : x < cell.Center().x) {
      mTree->MoveColumn(column, place + toward);
      SetCurrent(place + toward);
      return;
    }
  }
}

bool UI_MultiColumnTreeHeaderRow::UI_DoCursor(ui::UI_Node* node, PointT<float> point, unsigned flags) {
  float const x = node->UI_ConvertRectTo(this, {point.x, 0.0f, 0.0f, 0.0f}).left;
  auto* const application = platform::Application::Get();
  if (application != nullptr && !UI_IsDisabled() && FindEdge(x) >= 0) {
    application->GetCursor().DisplayCursor(platform::CursorID::kResizeHorizontal,
                                           platform::CursorMode::kUntilNext);
    return true;
  }
  return UI_SubView::UI_DoCursor(node, point, flags);
}

// Keys

bool UI_MultiColumnTreeHeaderRow::UI_WantsKeyboardFocus() const {
  return mTree != nullptr && mTree->GetNumberOfColumns() > 0 && (mAllowsResize || mAllowsMove || CanSort());
}

void UI_MultiColumnTreeHeaderRow::UI_FocusChanged(ui::FocusChangeReason reason) {
  UI_SubView::UI_FocusChanged(reason);
  mFocusVisibility.FocusChanged(reason);
  UI_Invalidate();
}

bool UI_MultiColumnTreeHeaderRow::ShowsFocusOn(int column) const {
  return mFocusVisibility.ShowsRing() && UI_HasKeyboardFocus(true) && GetColumnAt(mCurrentPlace) == column;
}

void UI_MultiColumnTreeHeaderRow::SetCurrent(int place) {
  mCurrentPlace = std::clamp(place, 0, std::max(mTree->GetNumberOfColumns() - 1, 0));
  UI_Invalidate();
}

bool UI_MultiColumnTreeHeaderRow::UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) {
  if (UI_IsDisabled() || mTree == nullptr || !event.IsAction(ui::KeyAction::kKeyDown)) {
    return UI_SubView::UI_DoKeyboardEvent(node, event);
  }
  if (mFocusVisibility.KeyUsed()) {
    UI_Invalidate();
  }
  mCurrentPlace = std::min(mCurrentPlace, std::max(mTree->GetNumberOfColumns() - 1, 0));
  int const column = GetColumnAt(mCurrentPlace);
  bool const isLeft = event.GetCode() == KeyboardCode::kLeft;
  if (isLeft || event.GetCode() == KeyboardCode::kRight) {
    int const step = isLeft == skins::IsRightToLeft() ? 1 : -1;
    if (event.GetModKey().IsEmpty()) {
      SetCurrent(mCurrentPlace + step);
      return true;
    }
    if (event.GetModKey() == ui::ModKeys(ui::ModKey::kShift) && mAllowsResize) {
      ResizeByUser(column, mTree->GetColumnWidth(column) + static_cast<float>(step) * kResizeStep);
      return true;
    }
    if (event.GetModKey() == ui::ModKeys(ui::ModKey::kCommand) && mAllowsMove) {
      mTree->MoveColumn(column, mCurrentPlace + step);
      SetCurrent(mCurrentPlace + step);
      return true;
    }
  }
  bool const isChosen = event.CompareShortcut(KeyboardCode::kSpace, ui::ModKey::kNone) ||
                        event.CompareShortcut(KeyboardCode::kReturn, ui::ModKey::kNone) ||
                        event.CompareShortcut(KeyboardCode::kEnter, ui::ModKey::kNone);
  if (isChosen && CanSort()) {
    SortBy(column);
    return true;
  }
  // Keys that move through rows mean the rows, not the names above them.
  return UI_SubView::UI_DoKeyboardEvent(node, event);
}

}  // namespace moxui::controls
