#pragma once

namespace moxui::ui {
class NodeTree;
class UI_Node;
}  // namespace moxui::ui

namespace moxui::passes {

/// A subtree has come into a tree: its nodes learn of it and of the scale, and their resting timers start.
void AttachSubtree(ui::UI_Node& node, ui::NodeTree& tree);
/// A subtree leaves its tree; its timers rest.
void DetachSubtree(ui::UI_Node& node);
/// Tells all nodes of a subtree another scale.
void TellScale(ui::UI_Node& node, float scale);
void TellSkinSet(ui::UI_Node& node);

}  // namespace moxui::passes
