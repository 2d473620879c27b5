#include "Attach.h"

#include "../ui/NodeAccess.h"
#include "../ui/TreeState.h"
#include "Invalidate.h"
#include "Layout.h"

#include <moxui/ui/NodeTreeHost.h>

#include <utility>

namespace moxui::passes {

using ui::NodeAccess;
using ui::NodePtr;
using ui::UI_Node;

namespace {

/// All nodes of a subtree, parents first, held: what they do when they are told may change the tree.
std::vector<NodePtr> NodesOf(UI_Node& root) {
  std::vector<NodePtr> nodes{NodePtr(&root)};
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (ui::UI_Container* const container = nodes[i]->UI_GetContainer()) {
      nodes.insert(nodes.end(), container->ChildBegin(), container->ChildEnd());
    }
  }
  return nodes;
}

}  // namespace

void AttachSubtree(UI_Node& root, ui::NodeTree& tree) {
  auto const nodes = NodesOf(root);
  for (auto const& node : nodes) {
    NodeAccess::SetTree(*node, &tree);
  }
  // Bounds from the leaves up, now that overhangs are those of whole objects.
  for (auto node = nodes.rbegin(); node != nodes.rend(); ++node) {
    UpdateBounds(**node);
  }
  for (auto const& node : nodes) {
    if (node->UI_GetTree() != &tree) {
      continue;
    }
    if (NodeAccess::Extras(*node) != nullptr) {
      for (auto const& [id, period] : std::exchange(NodeAccess::MakeExtras(*node).restingTimers, {})) {
        tree.GetTimers().InstallTimer(node.Get(), period, id);
      }
    }
    if (NodeAccess::NeedsLayout(*node)) {
      QueueLayout(tree.State(), *node);
    }
    if (node->GetViewScaleFactor() != tree.GetScale()) {
      NodeAccess::ViewScale(*node) = tree.GetScale();
      node->UI_ScaleChanged(tree.GetScale());
    }
    node->UI_NodeChanged(ui::NodeChange::kAttached);
  }
}

void DetachSubtree(UI_Node& root) {
  auto const nodes = NodesOf(root);
  for (auto const& node : nodes) {
    if (ui::NodeTree* const tree = node->UI_GetTree()) {
      auto timers = tree->GetTimers().TakeTimers(node.Get());
      if (!timers.empty()) {
        NodeAccess::MakeExtras(*node).restingTimers = std::move(timers);
      }
      tree->GetHost().AccessibleChanged(*node, ui::AccessibleChange::kDetached);
    }
    NodeAccess::SetTree(*node, nullptr);
  }
  for (auto const& node : nodes) {
    node->UI_NodeChanged(ui::NodeChange::kDetached);
  }
}

void TellScale(UI_Node& root, float scale) {
  for (auto const& node : NodesOf(root)) {
    if (node->GetViewScaleFactor() != scale) {
      NodeAccess::ViewScale(*node) = scale;
      node->UI_ScaleChanged(scale);
    }
  }
}

void TellSkinSet(UI_Node& root) {
  for (auto const& node : NodesOf(root)) {
    node->UI_SkinSetUpdated();
  }
}

}  // namespace moxui::passes
