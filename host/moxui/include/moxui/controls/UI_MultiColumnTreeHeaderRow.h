#pragma once

#include <moxui/controls/FocusVisibility.h>
#include <moxui/ui/UI_SubView.h>

#include <functional>
#include <vector>

namespace moxui::ui {
class MouseEvent;
}

namespace moxui::controls {

class TreeHeaderCell;
class UI_MultiColumnTree;

/// The names of a tree's columns above its rows. A line between two names is dragged to give the column
/// before it another width; a name is dragged to another place, or clicked to sort by it, where that is
/// allowed. With the focus, Left and Right go from name to name, with Shift they change the width, with the
/// command key they move the column, and Space or Enter sorts.
class UI_MultiColumnTreeHeaderRow : public ui::UI_SubView {
 public:
  using SortFunction = std::function<void(int column, bool ascending)>;
  using ColumnFunction = std::function<void(int column)>;

  /// Becomes the header row of the tree, which holds it from then on. Null throws.
  explicit UI_MultiColumnTreeHeaderRow(UI_MultiColumnTree* tree);
  ~UI_MultiColumnTreeHeaderRow() override;

  // Columns
  int GetColumnAt(int place) const;
  void SetColumnName(int column, moxcore::Utf16String name);
  void SetColumnWidth(int column, float width);
  /// On at first, as are moves.
  void SetAllowUserColumnResize(bool allow);
  void SetAllowUserColumnMove(bool allow) { mAllowsMove = allow; }
  /// A user has given a column another width.
  void SetColumnWidthChangedCallback(ColumnFunction function);

  // Sorting. The rows are sorted by the client, whose function hears what the user wants.
  /// An arrow in the column that is sorted by; on at first.
  void ShowSortIndicator(bool show);
  /// Silent; -1 for none, as at first.
  void SetSortColumn(int column, bool ascending);
  int GetSortColumn() const { return mSortColumn; }
  bool IsSortAscending() const { return mIsAscending; }
  void SetSortChangedCallback(SortFunction function);

  float GetDesiredHeight() const;

  void UI_Draw(scriber::Scriber* scriber) const override;
  void UI_SizeChanged(RectT<float> const& rect) override;
  bool UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) override;
  bool UI_DoCursor(ui::UI_Node* node, PointT<float> point, unsigned flags) override;
  bool UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) override;
  bool UI_WantsKeyboardFocus() const override;
  void UI_FocusChanged(ui::FocusChangeReason reason) override;

 private:
  friend class TreeHeaderCell;
  friend class UI_MultiColumnTree;

  /// The names stand where the columns of rows stand that begin at `left` and are so wide.
  void PlaceCells(float left, float width);
  bool CanSort() const { return mShowsSort && static_cast<bool>(mSortChanged); }
  RectT<float> GetCellRect(int column) const;
  /// The column whose far edge is at a point; -1 for none.
  int FindEdge(float x) const;
  int FindColumn(float x) const;
  void SortBy(int column);
  void BeginResize(int column, ui::MouseEvent const& event, float x);
  void BeginMove(int column, ui::MouseEvent const& event, float x);
  void MoveTowards(int column, float x);
  void ResizeByUser(int column, float width);
  void SetCurrent(int place);
  bool ShowsFocusOn(int column) const;

  UI_MultiColumnTree* mTree;
  std::vector<moxcore::utility::IntrusivePtr<TreeHeaderCell>> mCells;
  float mLeft = 0.0f;
  float mWidth = 0.0f;
  SortFunction mSortChanged;
  ColumnFunction mWidthChanged;
  FocusVisibility mFocusVisibility;
  int mSortColumn = -1;
  int mCurrentPlace = 0;
  int mPressedColumn = -1;
  bool mIsAscending = true;
  bool mShowsSort = true;
  bool mAllowsMove = true;
  bool mAllowsResize = true;
};

}  // namespace moxui::controls
