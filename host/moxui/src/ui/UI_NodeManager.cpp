#include "../passes/Attach.h"
#include "DispatchScope.h"
#include "TreeState.h"

#include <moxui/ui/NodeTree.h>
#include <moxui/ui/UI_NodeManager.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <utility>

namespace moxui::ui {

UI_NodeManager* UI_NodeManager::Get(bool create) {
  // Never destroyed: nodes that static objects hold may ask for it at the very end.
  static UI_NodeManager* manager = nullptr;
  if (manager == nullptr && create) {
    manager = new UI_NodeManager;
  }
  return manager;
}

int UI_NodeManager::GetUniqueTimerID() {
  static std::atomic<int> lastID{0};
  return ++lastID;
}

void UI_NodeManager::BeginInputCapture(moxcore::utility::IntrusivePtr<InputCapture> capture) {
  NodeTree* tree = GetCurrentTree();
  // A capture for a node elsewhere belongs to that node's tree.
  if (auto const node = capture->GetNode(); node && node->UI_GetTree() != nullptr) {
    tree = node->UI_GetTree();
  }
  if (tree != nullptr) {
    mCapturing = tree;
    tree->BeginCapture(std::move(capture));
  }
}

void UI_NodeManager::EndInputCapture(bool cancelled) {
  if (NodeTree* const tree = GetCapturingTree()) {
    tree->EndCapture(cancelled);
  }
}

InputCapture* UI_NodeManager::GetInputCapture() const {
  NodeTree const* const tree = GetCapturingTree();
  return tree != nullptr ? tree->GetCapture() : nullptr;
}

NodeTree* UI_NodeManager::GetCapturingTree() const {
  NodeTree* const current = GetCurrentTree();
  bool const isElsewhere = mCapturing != nullptr && mCapturing->GetCapture() != nullptr &&
                           (current == nullptr || current->GetCapture() == nullptr);
  return isElsewhere ? mCapturing : current;
}

NodeTree* UI_NodeManager::GetCurrentTree() const {
  if (!mHandling.empty()) {
    return mHandling.back();
  }
  if (mActive != nullptr) {
    return mActive;
  }
  return mTrees.empty() ? nullptr : mTrees.back();
}

void UI_NodeManager::SkinSetUpdated() {
  auto const trees = mTrees;
  for (NodeTree* const tree : trees) {
    if (std::ranges::find(mTrees, tree) == mTrees.end() || tree->GetRoot() == nullptr) {
      continue;
    }
    DispatchScope const scope(tree->State());
    passes::TellSkinSet(*tree->GetRoot());
    if (std::ranges::find(mTrees, tree) != mTrees.end()) {
      tree->AddDamage({0, 0, tree->GetSize().width, tree->GetSize().height});
    }
  }
}

void UI_NodeManager::TreeBecameActive(NodeTree& tree, bool active) {
  if (active) {
    mActive = &tree;
  } else if (mActive == &tree) {
    mActive = nullptr;
  }
}

void UI_NodeManager::AddTree(NodeTree& tree) {
  mTrees.push_back(&tree);
}

void UI_NodeManager::RemoveTree(NodeTree& tree) {
  std::erase(mTrees, &tree);
  std::erase(mHandling, &tree);
  std::erase(mModal, &tree);
  TreeBecameActive(tree, false);
  if (mCapturing == &tree) {
    mCapturing = nullptr;
  }
}

DispatchScope::DispatchScope(TreeState& state) : mState(state.shared_from_this()), mTree(state.tree) {
  UI_NodeManager::Get(true)->mHandling.push_back(mTree);
}

DispatchScope::~DispatchScope() {
  auto& handling = UI_NodeManager::Get(true)->mHandling;
  // The tree itself may have ended meanwhile, and taken all its entries along.
  auto const last = std::find(handling.rbegin(), handling.rend(), mTree);
  if (last != handling.rend()) {
    handling.erase(std::next(last).base());
  }
}

}  // namespace moxui::ui
