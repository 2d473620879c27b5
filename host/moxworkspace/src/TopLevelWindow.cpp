#include "TopLevelWindows.h"

#include <moxworkspace/Workspace.h>

namespace moxworkspace {

std::vector<TopLevelWindow*>& TopLevelWindows() {
  static std::vector<TopLevelWindow*> sWindows;
  return sWindows;
}

TopLevelWindow::TopLevelWindow(moxui::ui::NodeTree& tree, WindowKind kind) : mTree(tree), mKind(kind) {
  TopLevelWindows().push_back(this);
}

TopLevelWindow::~TopLevelWindow() {
  std::erase(TopLevelWindows(), this);
}

Workspace* TopLevelWindow::GetWorkspace() const {
  return mWorkspace.Lock().Get();
}

void TopLevelWindow::SetWorkspace(Workspace* workspace) {
  mWorkspace = moxcore::utility::RefCountedWeakPtr<Workspace>(workspace);
}

}  // namespace moxworkspace
