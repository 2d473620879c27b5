#pragma once

#include <moxui/geometry/RectT.h>

#include <functional>

namespace moxui::scriber {
class Scriber;
}
namespace moxui::ui {
class UI_Node;
struct TreeState;
}  // namespace moxui::ui

namespace moxui::passes {

/// Draws the children of a node that meet the surface's clip, in child order.
void PaintChildren(ui::UI_Node const& node, scriber::Scriber* scriber);
/// Draws a node at its place in its parent's coordinates, in force on the surface, if it is shown.
void PaintChild(ui::UI_Node const& child, scriber::Scriber* scriber);
/// Draws a node at the origin of the coordinates in force, shown or not.
void PaintAtOrigin(ui::UI_Node const& node, scriber::Scriber* scriber);
/// Paints and forgets a tree's damage.
void PaintDamage(ui::TreeState& state, scriber::Scriber* scriber,
                 std::function<void(RectT<float> const&)> const& clear);

/// Paints all of a tree, damaged or not, and leaves the damage as it is.
void PaintAll(ui::TreeState& state, scriber::Scriber* scriber);

}  // namespace moxui::passes
