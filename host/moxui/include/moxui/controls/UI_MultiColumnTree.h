#pragma once

#include <moxui/controls/FocusVisibility.h>
#include <moxui/controls/TreeScrollView.h>
#include <moxui/controls/TypeAhead.h>
#include <moxui/controls/UI_MultiColumnTreeRow.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace moxui::controls {

class TreeRows;
class UI_MultiColumnTreeHeaderRow;

/// Numbers of the constructor, of SetUp, LayoutAfterAppendRow and ScrollToTop.
namespace TreeOption {
inline constexpr int kWithoutScrollView = 0;
inline constexpr int kWithScrollView = 1;
inline constexpr int kNoHeaderRow = 0;
inline constexpr int kHeaderRow = 1;
inline constexpr bool kRepaint = true;
}  // namespace TreeOption

/// A list or tree of rows in columns. Rows are all of one height and any number: only those that are seen
/// cost anything per frame. A cell draws a text, or whatever a callback draws, and may hold nodes. A row
/// takes GetRowHeight() + 1 and a column GetColumnWidth() + 1, the line after it included.
///
/// Rows count from 0 in the order in which they stand, those below closed ones left out. Columns keep their
/// numbers when the user moves them. From right to left, column 0 is the rightmost.
///
/// Keys: arrows, Home, End, Page Up and Down move the selection, with Shift extend it; Left and Right close
/// and open a row or go to its parent and first child, or choose the cell; letters choose the next row that
/// begins so; the command key with A selects all; Enter and a double click activate.
class UI_MultiColumnTree : public ui::UI_SubView {
 public:
  using Row = UI_MultiColumnTreeRow;
  using RowPtr = moxcore::utility::IntrusivePtr<Row>;
  using RowList = std::vector<RowPtr>;
  using DrawCellFunction = std::function<void(scriber::Scriber*, Row*, int column, RectT<float> const&)>;
  using CellTextFunction = std::function<moxcore::Utf16String(Row*, int column)>;
  using RowFunction = std::function<void(Row*)>;

  /// A row height of 0 is that of the look, as long as none is set.
  explicit UI_MultiColumnTree(float defaultRowHeight = 0.0f, int scrolling = TreeOption::kWithScrollView);
  ~UI_MultiColumnTree() override;
  /// Makes a header row if it is asked for.
  void SetUp(int headerRow);

  // Behaviour
  void SetAllowChildren(bool allow);
  void SetSupportUserSelectableRows(bool support);           ///< on at first
  void SetSupportUserSelectableCells(bool support);          ///< off at first
  void SetSupportMultipleSelections(bool support);           ///< off at first
  void SetSupportNoneSelected(bool support);                 ///< on at first; off, one row stays selected
  void SetSupportDeselectAllOnEmptyTreeClick(bool support);  ///< on at first
  void SetSupportNonArrowKeysToSelectRow(bool support);      ///< on at first; off, they scroll
  /// Whether the row that keys move from shows a focus ring; on at first.
  void SetIndicateFocus(bool indicate);
  void SetDrawGridLines(bool columnLines, bool rowLines);  ///< row lines alone at first
  bool AllowsChildren() const { return mAllowChildren; }
  bool SupportsUserSelectableRows() const { return mSelectableRows; }

  // Columns
  void SetNumberOfColumns(int count);
  int GetNumberOfColumns() const { return static_cast<int>(mColumns.size()); }
  void SetColumnWidth(int column, float width);
  float GetColumnWidth(int column) const;
  void SetColumnName(int column, moxcore::Utf16String name);
  moxcore::Utf16String const& GetColumnName(int column) const;
  /// Which column stands at a place, from the leading side.
  int GetColumnAt(int place) const;
  int GetPlaceOfColumn(int column) const;
  void MoveColumn(int column, int toPlace);
  /// From the leading side, without the line after it.
  float GetColumnOffset(int column) const;
  /// With the lines after them.
  float GetColumnsWidth() const;

  // Rows
  /// At the end, or below a parent where children are allowed. It shows with the next layout.
  RowPtr CreateAndAppendRow(Row* parent = nullptr);
  void RemoveRow(Row* row);
  /// Tells of each visible row that it is gone before it goes.
  virtual void ClearRows();
  /// Places rows that were appended or removed, at once.
  void LayoutAfterAppendRow(bool repaint = TreeOption::kRepaint);
  std::size_t CountRows() const;
  /// Null past the end.
  RowPtr GetRow(std::int64_t index) const;
  /// -1 for a row that is not in the tree or stands below a closed one.
  std::int64_t GetRowIndex(Row const* row) const;
  /// Whether a part of it is in the viewed area.
  bool IsRowVisible(Row const* row) const;
  void SetRowHeight(float height);
  float GetRowHeight() const;

  // Selection. What code selects is told of only with `notify`; it is brought into sight.
  void SelectRow(Row* row, bool selected, bool extend, bool notify);
  void SelectAllRows(bool notify);
  bool IsRowSelected(Row const* row) const;
  /// In the order in which they stand.
  RowList GetSelectedRows() const;
  /// Of the (first) selected row: the cell that holds the focus, else the one last clicked, else the last
  /// that holds a node, else cell 0. Null without a selected row that has cells.
  moxcore::utility::IntrusivePtr<CellView> GetSelectedCellOfSelectedRow();
  int GetSelectedColumn() const { return mSelectedColumn; }

  // Scrolling
  /// Null without.
  TreeScrollView* GetScrollView() const { return mScrollView.Get(); }
  void ScrollToTop(bool repaint = TreeOption::kRepaint);
  /// No further than needed, so that the row is seen with so much above and below it.
  void ScrollRowIntoView(Row* row, float marginAbove, float marginBelow, bool repaint);
  /// The part of the rows that is seen.
  RectT<float> GetViewedRect() const;

  // Header row
  UI_MultiColumnTreeHeaderRow* GetHeaderRow() const { return mHeaderRow.Get(); }

  // Callbacks; an empty function takes one back.
  /// Draws a cell in place of its text. The rectangle is in the scriber's coordinates.
  void SetDrawCellOfRowCallback(DrawCellFunction function);
  /// What a cell shows, what letters find and what assistive software reads.
  void SetCellTextCallback(CellTextFunction function);
  /// A row has come into the viewed area or left it (IsRowVisible), once its cells can be had.
  void SetRowVisibilityChangedCallback(RowFunction function);
  void SetRowsSelectionChangedCallback(std::function<void(RowList const&)> function);
  /// Another cell, or another row where cells can't be selected.
  void SetCellSelectionChangedCallback(std::function<void()> function);
  /// A user has opened or closed a row.
  void SetRowOpenedChangedCallback(RowFunction function);
  void SetRowActivatedCallback(RowFunction function);

  // Sizes and drawing of cells, by the look
  static float GetCellTextLeftInset();
  static float GetCellTextFontSize();
  /// 0 in the classic look.
  static PaddingT<float> GetDefaultCellPadding();
  /// One line in the middle of a cell's height, from its leading side, cut at its end. The padding comes off
  /// the cell before the inset.
  static void DrawCellString(scriber::Scriber* scriber, moxcore::Utf16String const& text,
                             RectT<float> const& cell, ColorRGBA const& colour,
                             moxcore::Utf8String const& fontName, float fontSize, float leftInset,
                             PaddingT<float> const& padding = {});

  // Geometry
  /// Places header row and scroll view in a rectangle of own coordinates.
  virtual void UpdateSize(RectT<float> const& rect);
  virtual void SetSize(float width, float height);
  /// Of all rows that stand open, the header row and, while it shows, the horizontal bar.
  virtual float GetFullOpenedRowsHeight() const;
  /// In row coordinates; column 0 begins behind what nesting takes.
  RectT<float> GetCellRect(Row const& row, int column) const;

  void SetAccessibleName(moxcore::Utf8String name);
  void SetWantsKeyboardFocus(bool wants) { mWantsKeyboardFocus = wants; }

  void UI_Draw(scriber::Scriber* scriber) const override;
  void UI_SizeChanged(RectT<float> const& rect) override;
  void UI_LayoutChildren() override;
  void UI_SkinSetUpdated() override;
  ExtentT<float> UI_GetRecommendedSize(scriber::Scriber* scriber) const override;
  bool UI_DoPrePointerEvent(ui::UI_Node* node, ui::PointerEvent const& event) override;
  bool UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) override;
  bool UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) override;
  bool UI_WantsKeyboardFocus() const override;
  void UI_FocusChanged(ui::FocusChangeReason reason) override;
  ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;
  moxcore::Utf8String UI_GetAccessibleValue() const override;

 private:
  friend class TreeRows;
  friend class TreeRowView;
  friend class TreeScrollView;
  friend class UI_MultiColumnTreeHeaderRow;
  friend class UI_MultiColumnTreeRow;

  struct Column {
    float width = 100.0f;
    moxcore::Utf16String name{};
  };
  struct CellPlace {
    Row* row = nullptr;
    int column = -1;
  };

  void SetHeaderRow(moxcore::utility::IntrusivePtr<UI_MultiColumnTreeHeaderRow> header);
  void RowsChanged();
  /// Content extent, header and what is seen, anew.
  void LayoutRows();
  void ColumnsChanged();
  void PlaceHeader();
  void ShowRows();
  void Scrolled();
  void ForgetRemovedRows();
  float GetPitch() const { return GetRowHeight() + 1.0f; }
  void OpenByUser(Row& row, bool opened);
  void InvalidateRow(Row const* row);

  // Selection by a user
  void StoreSelection(RowList rows, bool notify);
  void SelectOnly(Row& row);
  void SelectRange(Row& row);
  void Toggle(Row& row);
  void SelectColumn(int column);
  void KeepOneSelected(std::int64_t near);
  void TellSelection(bool rowsChanged);
  void PressRow(TreeRowView& view, ui::UI_Node& node, ui::MouseEvent const& event);
  CellPlace FindCell(ui::UI_Node* node, PointT<float> point) const;
  TreeRowView* FindRowView(ui::UI_Node* node) const;

  // Keys
  bool MoveTo(std::int64_t index, bool extend);
  bool MoveByKey(ui::KeyboardEvent const& event);
  bool MoveSideways(bool forward);
  bool ChooseTyped(ui::KeyboardEvent const& event);
  bool ScrollByKey(ui::UI_Node* node, ui::KeyboardEvent const& event);
  Row* GetLead() const;
  bool ShowsFocusOn(Row const& row) const;

  // Cells
  void DrawCell(scriber::Scriber* scriber, Row& row, int column) const;
  moxcore::Utf16String GetCellText(Row& row, int column) const;
  moxcore::Utf16String GetRowText(Row& row) const;

  std::unique_ptr<TreeRows> mRows;
  std::vector<Column> mColumns;
  std::vector<int> mOrder;
  moxcore::utility::IntrusivePtr<ui::UI_SubView> mRowsView;
  moxcore::utility::IntrusivePtr<TreeScrollView> mScrollView;
  moxcore::utility::IntrusivePtr<UI_MultiColumnTreeHeaderRow> mHeaderRow;
  RowList mSelection;
  Row* mLead = nullptr;
  Row* mAnchor = nullptr;
  CellPlace mClicked;
  int mSelectedColumn = 0;
  float mRowHeight;
  DrawCellFunction mDrawCell;
  CellTextFunction mCellText;
  RowFunction mVisibilityChanged;
  RowFunction mOpenedChanged;
  RowFunction mActivated;
  std::function<void(RowList const&)> mSelectionChanged;
  std::function<void()> mCellSelectionChanged;
  TypeAhead mTypeAhead;
  FocusVisibility mFocusVisibility;
  moxcore::Utf8String mAccessibleName;
  bool mIsLayingOut = false;
  bool mRowsAreUnplaced = false;
  bool mAllowChildren = true;
  bool mSelectableRows = true;
  bool mSelectableCells = false;
  bool mMultipleSelections = false;
  bool mNoneSelected = true;
  bool mDeselectOnEmptyClick = true;
  bool mNonArrowKeysSelect = true;
  bool mIndicateFocus = true;
  bool mColumnLines = false;
  bool mRowLines = true;
  bool mWantsKeyboardFocus = true;
};

}  // namespace moxui::controls
