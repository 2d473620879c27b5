#pragma once

#include "ChildIndex.h"
#include "NodeExtras.h"

#include <moxui/ui/UI_Container.h>
#include <moxui/ui/UI_Node.h>

#include <algorithm>

namespace moxui::ui {

/// Opens the state of nodes to the passes, and to nobody else.
class NodeAccess {
 public:
  static RectT<float>& LocalRect(UI_Node& node) { return node.mLocalRect; }
  static RectT<float> const& LocalRect(UI_Node const& node) { return node.mLocalRect; }
  /// What the node and its descendants may paint, in own coordinates; never too small for a node in a tree.
  static RectT<float>& Bounds(UI_Node& node) { return node.mBounds; }
  static RectT<float> const& Bounds(UI_Node const& node) { return node.mBounds; }
  static RectT<float> BoundsInParent(UI_Node const& node) {
    return node.mBounds.Offset(node.mLocalRect.TopLeft());
  }
  /// The node's rectangle in own coordinates, negative extents as 0.
  static RectT<float> OwnRect(UI_Node const& node) {
    return {0, 0, std::max(node.mLocalRect.width, 0.0F), std::max(node.mLocalRect.height, 0.0F)};
  }
  static void SetParent(UI_Node& node, UI_Node* parent) { node.mParent = parent; }
  static void SetTree(UI_Node& node, NodeTree* tree) { node.mTree = tree; }
  static void SetContainer(UI_Node& node, UI_Container* container) { node.mContainer = container; }
  static std::uint64_t& Order(UI_Node& node) { return node.mOrder; }
  static std::uint64_t Order(UI_Node const& node) { return node.mOrder; }
  static bool& NeedsLayout(UI_Node& node) { return node.mNeedsLayout; }
  static float& ViewScale(UI_Node& node) { return node.mViewScale; }
  static NodeExtras const* Extras(UI_Node const& node) { return node.mExtras.get(); }
  static NodeExtras& MakeExtras(UI_Node& node) { return node.Extras(); }

  static UI_Container::Children const& Children(UI_Container const& container) { return container.mChildren; }
  static RectT<float>& ChildrenBounds(UI_Container& container) { return container.mChildrenBounds; }
  static std::uint32_t& LooseBounds(UI_Container& container) { return container.mLooseBounds; }
  static ChildIndex* Index(UI_Container const& container) { return container.mIndex.get(); }
  static ChildIndex* MakeIndex(UI_Container& container);
};

}  // namespace moxui::ui
