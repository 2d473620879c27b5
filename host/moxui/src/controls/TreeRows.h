#pragma once

#include <moxui/controls/UI_MultiColumnTree.h>

#include <cstdint>
#include <vector>

namespace moxui::controls {

/// The rows of a tree: what stands below what, in which order they stand, and which of them are shown by
/// nodes.
class TreeRows {
 public:
  using Row = UI_MultiColumnTreeRow;
  using RowPtr = moxcore::utility::IntrusivePtr<Row>;
  using RowList = std::vector<RowPtr>;

  explicit TreeRows(UI_MultiColumnTree& tree);
  ~TreeRows();

  RowPtr Append(Row* parent);
  /// Takes a row and all below it out; gives them, so that they live until they are forgotten elsewhere.
  RowList Remove(Row& row);
  /// The same with all rows.
  RowList RemoveAll();
  /// Something has been opened or closed.
  void OrderChanged() { mIsStale = true; }

  std::int64_t Count() const;
  Row* Get(std::int64_t index) const;
  std::int64_t IndexOf(Row const& row) const;
  /// All of them, closed ones' children too.
  RowList All() const;

  // Those that are seen
  /// Makes the rows from `first` up to `end` the visible ones, with views in `container` in their order;
  /// gives those that have come and gone. A row that holds the focus or the pointer keeps its view meanwhile.
  RowList Show(std::int64_t first, std::int64_t end, ui::UI_SubView& container);
  RowList const& GetVisible() const { return mVisible; }
  void PlaceViews(float pitch, float width) const;

 private:
  void Flatten() const;
  void TakeApart(RowList const& rows);
  void Attach(Row& row, ui::UI_SubView& container);
  void Detach(Row& row);
  static bool IsInUse(Row const& row);

  UI_MultiColumnTree& mTree;
  RowList mRoots;
  mutable RowList mOpen;
  mutable bool mIsStale = false;
  RowList mVisible;
  RowList mKept;
  std::vector<moxcore::utility::IntrusivePtr<TreeRowView>> mSpareViews;
};

}  // namespace moxui::controls
