#pragma once

#include <vector>

namespace moxui::ui {

class NodeTree;

/// While it lives, a tree is that of the topmost modal window.
class ModalScope {
 public:
  explicit ModalScope(NodeTree& tree);
  ~ModalScope();
  ModalScope(ModalScope const&) = delete;
  ModalScope& operator=(ModalScope const&) = delete;

 private:
  NodeTree& mTree;
};

/// Trees that a box without a window stands over.
struct PausedTrees {
  std::vector<NodeTree*> all;
  std::vector<NodeTree*> active;  ///< those that were, the one that became so last at the end
};

/// Tells every tree what it would hear of a modal window: that it isn't the active one and has lost its
/// capture.
PausedTrees PauseTrees();
/// Tells those that live yet that the box has closed, and of releases that they have missed.
void ResumeTrees(PausedTrees const& paused);

}  // namespace moxui::ui
