#pragma once

#include <memory>

namespace moxui::ui {

class NodeTree;
struct TreeState;

/// While it lives, a tree is the one whose event is being handled (UI_NodeManager::GetCurrentTree), and its
/// state is kept: a handler may end the tree, and the passes go on with what is left then.
class DispatchScope {
 public:
  explicit DispatchScope(TreeState& state);
  ~DispatchScope();
  DispatchScope(DispatchScope const&) = delete;
  DispatchScope& operator=(DispatchScope const&) = delete;

 private:
  std::shared_ptr<TreeState> mState;
  NodeTree* mTree;
};

}  // namespace moxui::ui
