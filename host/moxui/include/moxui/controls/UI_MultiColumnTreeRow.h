#pragma once

#include <moxcore/utility/IntrusivePtr.h>
#include <moxcore/utility/RefCountedObjectWithWeakPtr.h>
#include <moxui/geometry/ColorRGBA.h>
#include <moxui/ui/UI_SubView.h>

#include <any>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace moxui::controls {

class TreeRowView;
class UI_MultiColumnTree;
class UI_MultiColumnTreeRow;

/// The place of nodes in one cell of a row: the tree lays it out, clients put children into it. It draws
/// nothing itself.
class CellView : public ui::UI_SubView {
 public:
  CellView(UI_MultiColumnTreeRow& row, int column);
  ~CellView() override;

  /// Null once the row has been taken out of its tree.
  UI_MultiColumnTreeRow* GetTreeRow() const { return mRow; }
  int GetColumn() const { return mColumn; }

 private:
  friend class UI_MultiColumnTreeRow;
  UI_MultiColumnTreeRow* mRow;
  int mColumn;
};

/// One row of a tree. It is no node, so that a tree can have any number of them: only rows that are seen are
/// shown by nodes.
class UI_MultiColumnTreeRow : public moxcore::utility::RefCountedObjectWithWeakPtr {
 public:
  ~UI_MultiColumnTreeRow() override;
  bool DestructOnMainThread() const noexcept override { return true; }

  /// Null once the row has been taken out.
  UI_MultiColumnTree* GetTree() const { return mTree; }

  // Cells
  /// True from when the row has first been visible, as long as its cells hold something.
  bool HasCellViews() const;
  /// The place for nodes in a cell, made when it is first asked for; null for a row that has never been
  /// visible. It stays with the row while it holds a child.
  moxcore::utility::IntrusivePtr<CellView> GetCellView(int column);

  // Appearance
  /// In place of the tree's ground.
  void SetBackgroundColor(ColorRGBA const& colour);
  void ClearBackgroundColor();
  std::optional<ColorRGBA> const& GetBackgroundColor() const { return mBackground; }
  /// Draws the row anew, after what its cells tell has changed.
  void Invalidate();

  // Nesting
  UI_MultiColumnTreeRow* GetParentRow() const { return mParent; }
  std::size_t CountChildRows() const { return mChildren.size(); }
  moxcore::utility::IntrusivePtr<UI_MultiColumnTreeRow> GetChildRow(std::size_t index) const;
  /// 0 for a row without a parent.
  int GetLevel() const { return mLevel; }
  /// Whether its children stand below it; closed at first. The tree tells its callback when a user does it.
  void SetOpened(bool opened);
  bool IsOpened() const { return mIsOpened; }

  void SetUserData(std::any data) { mUserData = std::move(data); }
  std::any const& GetUserData() const { return mUserData; }

 private:
  friend class CellView;
  friend class TreeRows;
  friend class TreeRowView;
  friend class UI_MultiColumnTree;

  UI_MultiColumnTreeRow(UI_MultiColumnTree& tree, UI_MultiColumnTreeRow* parent);
  void DropCells();
  bool HoldsNodes() const;

  UI_MultiColumnTree* mTree;
  UI_MultiColumnTreeRow* mParent;
  std::vector<moxcore::utility::IntrusivePtr<UI_MultiColumnTreeRow>> mChildren;
  std::vector<moxcore::utility::IntrusivePtr<CellView>> mCells;
  moxcore::utility::IntrusivePtr<TreeRowView> mView;
  std::optional<ColorRGBA> mBackground;
  std::any mUserData;
  std::int64_t mIndex = -1;  ///< among those that stand open
  int mLevel = 0;
  bool mIsOpened = false;
  bool mIsVisible = false;
  bool mIsSelected = false;
};

}  // namespace moxui::controls
