#pragma once

#include <moxui/geometry/PointT.h>
#include <moxui/geometry/RectT.h>
#include <moxui/ui/UI_Container.h>

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace moxui::ui {

/// Finds the children of a container that meet a rectangle without asking each: a grid over their bounds,
/// about one child to a cell. Children that cover many cells, or have moved off the grid, are kept in a list
/// aside; once that grows long the grid is laid anew.
class ChildIndex {
 public:
  explicit ChildIndex(UI_Container::Children const& children);

  void Add(UI_Node& child);
  void Remove(UI_Node& child);
  /// The child's bounds have changed.
  void Update(UI_Node& child);
  /// The children whose bounds meet `area` (in the container's coordinates), in child order.
  std::vector<UI_Node*> Find(RectT<float> const& area) const;
  /// The children whose bounds hold a point, in child order.
  std::vector<UI_Node*> FindAt(PointT<float> point) const;

  /// Whether too many children stand aside for the grid to be of use.
  bool IsWorn() const;

 private:
  struct Cells {
    int left = 0;
    int top = 0;
    int right = -1;  ///< inclusive; -1: the child stands aside
    int bottom = -1;
    friend bool operator==(Cells const&, Cells const&) = default;
  };

  Cells CellsOf(RectT<float> const& bounds) const;
  void Insert(UI_Node& child, Cells const& cells);
  void Take(UI_Node& child, Cells const& cells);
  std::size_t CellIndex(int column, int row) const;

  RectT<float> mArea;
  float mCellWidth = 1;
  float mCellHeight = 1;
  int mColumns = 1;
  int mRows = 1;
  std::size_t mAsideAtBuild = 0;
  std::vector<std::vector<UI_Node*>> mGrid;
  std::vector<UI_Node*> mAside;
  std::unordered_map<UI_Node*, Cells> mPlaces;
};

}  // namespace moxui::ui
