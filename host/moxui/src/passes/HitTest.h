#pragma once

#include <moxui/geometry/PointT.h>

namespace moxui::ui {
class UI_Node;
struct TreeState;
}  // namespace moxui::ui

namespace moxui::passes {

/// The node that a point in `node`'s coordinates hits, in it or below it: the last child first, those that
/// reach out of their parents too, hidden ones never. Null for none.
ui::UI_Node* FindNode(ui::UI_Node& node, PointT<float> point);

/// The node that a point of the tree hits, null for none.
ui::UI_Node* FindNodeAt(ui::TreeState const& state, PointT<float> treePoint);

/// From the tree's coordinates to the node's, and back.
PointT<float> ToNode(ui::UI_Node const& node, PointT<float> treePoint);
PointT<float> ToTree(ui::UI_Node const& node, PointT<float> nodePoint);

}  // namespace moxui::passes
