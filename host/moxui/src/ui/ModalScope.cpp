#include "ModalScope.h"

#include <moxui/ui/NodeTree.h>
#include <moxui/ui/UI_NodeManager.h>

#include <algorithm>

namespace moxui::ui {

namespace {

bool IsThere(NodeTree const* tree) {
  auto const& trees = UI_NodeManager::Get(true)->GetTrees();
  return std::ranges::find(trees, tree) != trees.end();
}

}  // namespace

ModalScope::ModalScope(NodeTree& tree) : mTree(tree) {
  UI_NodeManager::Get(true)->mModal.push_back(&mTree);
}

ModalScope::~ModalScope() {
  // The tree itself may have ended meanwhile, and taken its entry along.
  auto& modal = UI_NodeManager::Get(true)->mModal;
  auto const last = std::find(modal.rbegin(), modal.rend(), &mTree);
  if (last != modal.rend()) {
    modal.erase(std::next(last).base());
  }
}

PausedTrees PauseTrees() {
  auto const* const manager = UI_NodeManager::Get(true);
  NodeTree const* const active = manager->GetActiveTree();
  PausedTrees paused;
  paused.all = manager->GetTrees();
  for (NodeTree* const tree : paused.all) {
    if (!IsThere(tree)) {
      continue;
    }
    if (tree->IsActive()) {
      paused.active.insert(tree == active ? paused.active.end() : paused.active.begin(), tree);
      tree->SetActive(false);
    } else {
      tree->BlockByModal();
    }
  }
  return paused;
}

void ResumeTrees(PausedTrees const& paused) {
  for (NodeTree* const tree : paused.active) {
    if (IsThere(tree)) {
      tree->SetActive(true);
    }
  }
  for (NodeTree* const tree : paused.all) {
    if (IsThere(tree)) {
      tree->CheckSwallowedRelease();
    }
  }
}

}  // namespace moxui::ui
