#include "HitTest.h"

#include "../ui/NodeAccess.h"
#include "../ui/TreeState.h"

namespace moxui::passes {

using ui::NodeAccess;
using ui::UI_Node;

namespace {

constexpr std::size_t kManyChildren = 48;

UI_Node* FindInChild(UI_Node& child, PointT<float> point) {
  if (!child.UI_IsShown() || !NodeAccess::BoundsInParent(child).Contains(point)) {
    return nullptr;
  }
  return FindNode(child, point - NodeAccess::LocalRect(child).TopLeft());
}

}  // namespace

UI_Node* FindNode(UI_Node& node, PointT<float> point) {
  if (!node.UI_IsShown() || (node.UI_ClipsChildren() && !NodeAccess::OwnRect(node).Contains(point))) {
    return nullptr;
  }
  if (ui::UI_Container* const container = node.UI_GetContainer()) {
    if (container->ChildSize() > kManyChildren) {
      auto const found = NodeAccess::MakeIndex(*container)->FindAt(point);
      for (auto child = found.rbegin(); child != found.rend(); ++child) {
        if (UI_Node* const hit = FindInChild(**child, point)) {
          return hit;
        }
      }
    } else {
      auto const& children = NodeAccess::Children(*container);
      for (auto child = children.rbegin(); child != children.rend(); ++child) {
        if (UI_Node* const hit = FindInChild(**child, point)) {
          return hit;
        }
      }
    }
  }
  return node.UI_ContainsPoint(point) ? &node : nullptr;
}

UI_Node* FindNodeAt(ui::TreeState const& state, PointT<float> treePoint) {
  UI_Node* const root = state.root.Get();
  return root != nullptr ? FindNode(*root, ToNode(*root, treePoint)) : nullptr;
}

PointT<float> ToTree(UI_Node const& node, PointT<float> nodePoint) {
  for (UI_Node const* up = &node; up != nullptr; up = up->UI_GetParentNode()) {
    nodePoint = nodePoint + NodeAccess::LocalRect(*up).TopLeft();
  }
  return nodePoint;
}

PointT<float> ToNode(UI_Node const& node, PointT<float> treePoint) {
  return treePoint - ToTree(node, PointT<float>{});
}

}  // namespace moxui::passes
