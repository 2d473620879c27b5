#pragma once

#include <moxcore/utility/Noncopyable.h>
#include <moxcore/utility/RefCountedWeakPtr.h>

namespace moxui::ui {
class NodeTree;
}

namespace moxworkspace {

class Workspace;

enum class WindowKind { kMain, kOther };

/// A window as the panels in it see it: a tree of nodes, and the workspace that is somewhere in it. Whoever
/// opens the window makes one and ends it before the tree. Main thread only.
class TopLevelWindow : moxcore::utility::noncopyable {
 public:
  explicit TopLevelWindow(moxui::ui::NodeTree& tree, WindowKind kind = WindowKind::kMain);
  ~TopLevelWindow();

  moxui::ui::NodeTree& GetTree() const { return mTree; }
  WindowKind GetKind() const { return mKind; }
  /// Null before there is one, and once it is gone: it is held weakly.
  Workspace* GetWorkspace() const;
  void SetWorkspace(Workspace* workspace);

 private:
  moxui::ui::NodeTree& mTree;
  WindowKind mKind;
  moxcore::utility::RefCountedWeakPtr<Workspace> mWorkspace;
};

}  // namespace moxworkspace
