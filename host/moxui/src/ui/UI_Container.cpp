#include "../passes/Attach.h"
#include "../passes/Capture.h"
#include "../passes/Invalidate.h"
#include "NodeAccess.h"
#include "TreeState.h"

#include <moxui/ui/UI_Container.h>

#include <algorithm>
#include <utility>

namespace moxui::ui {

UI_Container::UI_Container(UI_Node& owner) : mOwner(owner) {
  NodeAccess::SetContainer(owner, this);
}

UI_Container::~UI_Container() {
  NodeAccess::SetContainer(mOwner, nullptr);
  for (auto const& child : mChildren) {
    NodeAccess::SetParent(*child, nullptr);
  }
}

void UI_Container::ChildPushBack(moxcore::utility::IntrusivePtr<UI_Node> child) {
  ChildInsert(mChildren.size(), std::move(child));
}

void UI_Container::ChildInsert(std::size_t index, moxcore::utility::IntrusivePtr<UI_Node> child) {
  UI_Node& node = *child;
  if (mOwner.UI_IsSelfOrDescendantOf(&node)) {
    return;  // nothing can be below itself
  }
  if (UI_Node* const parent = node.UI_GetParentNode()) {
    NodePtr const self(&mOwner);
    parent->UI_GetContainer()->ChildRemove(&node);
    // Whoever heard of a lost focus or capture may have given it another parent, which counts.
    if (node.UI_GetParentNode() != nullptr || mOwner.UI_IsSelfOrDescendantOf(&node)) {
      return;
    }
  }
  bool const isLast = index >= mChildren.size();
  mChildren.insert(isLast ? mChildren.end() : mChildren.begin() + static_cast<std::ptrdiff_t>(index), child);
  NodeAccess::SetParent(node, &mOwner);
  if (isLast) {
    NodeAccess::Order(node) = mNextOrder++;
    if (mIndex) {
      mIndex->Add(node);
    }
  } else {
    mIndex.reset();
    mNextOrder = 1;
    for (auto const& one : mChildren) {
      NodeAccess::Order(*one) = mNextOrder++;
    }
  }
  passes::UpdateBounds(node);
  passes::ChildBoundsChanged(node);
  if (NodeTree* const tree = mOwner.UI_GetTree()) {
    // Handlers may end the tree.
    auto const state = tree->State().shared_from_this();
    passes::AttachSubtree(node, *tree);
    passes::DamageSubtree(node);
    state->hover.isStale = true;
  }
}

void UI_Container::ChildRemove(UI_Node* child) {
  auto const isChild = [child](auto const& one) { return one.Get() == child; };
  if (child == nullptr || child->UI_GetParentNode() != &mOwner) {
    return;
  }
  NodePtr const kept(child);
  NodePtr const self(&mOwner);
  NodeTree* const tree = mOwner.UI_GetTree();
  if (tree != nullptr) {
    auto const state = tree->State().shared_from_this();
    passes::DamageSubtree(*child);
    passes::EndInputIn(*state, *child);
    state->hover.isStale = true;
  }
  // Whoever heard of a lost focus or capture may have taken the child out by now.
  if (child->UI_GetParentNode() != &mOwner) {
    return;
  }
  if (mIndex) {
    mIndex->Remove(*child);
  }
  // The last are the likeliest to go: DeleteChildren takes them from the end.
  auto const place = std::find_if(mChildren.rbegin(), mChildren.rend(), isChild);
  mChildren.erase(std::next(place).base());
  ++mLooseBounds;
  NodeAccess::SetParent(*child, nullptr);
  if (child->UI_GetTree() != nullptr) {
    passes::DetachSubtree(*child);
  }
}

void UI_Container::DeleteChildren() {
  NodePtr const self(&mOwner);
  auto const children = mChildren;
  for (auto child = children.rbegin(); child != children.rend(); ++child) {
    ChildRemove(child->Get());
  }
}

moxcore::utility::IntrusivePtr<UI_Node> UI_Container::ChildGet(std::size_t index) const {
  return index < mChildren.size() ? mChildren[index] : nullptr;
}

}  // namespace moxui::ui
