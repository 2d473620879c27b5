#pragma once

namespace moxui::ui {

class NodeTree;

/// While it lives, a tree is the one whose event is being handled (UI_NodeManager::GetCurrentTree).
class DispatchScope {
 public:
  explicit DispatchScope(NodeTree& tree);
  ~DispatchScope();
  DispatchScope(DispatchScope const&) = delete;
  DispatchScope& operator=(DispatchScope const&) = delete;

 private:
  NodeTree& mTree;
};

}  // namespace moxui::ui
