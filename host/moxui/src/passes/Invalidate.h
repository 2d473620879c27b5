#pragma once

#include <moxui/geometry/RectT.h>

namespace moxui::ui {
class UI_Node;
struct TreeState;
}  // namespace moxui::ui

namespace moxui::passes {

/// Adds to the damage of a node's tree: a rectangle in the node's coordinates, as far as it can be seen.
void DamageNode(ui::UI_Node const& node, RectT<float> const& rect);
/// Everything that the node and its descendants may paint.
void DamageSubtree(ui::UI_Node const& node);
/// Adds a rectangle to a tree's damage. At most eight rectangles are kept: those that meet are joined, and so
/// are the two that waste least when there are too many.
void AddDamage(ui::TreeState& state, RectT<float> const& rect);

/// What a node may paint has changed: works its bounds and those of the nodes above out anew.
void UpdateBounds(ui::UI_Node& node);
/// A child has another place or other bounds.
void ChildBoundsChanged(ui::UI_Node& child);

}  // namespace moxui::passes
