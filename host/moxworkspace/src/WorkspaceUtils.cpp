#include "TopLevelWindows.h"

#include <moxui/ui/NodeTree.h>
#include <moxui/ui/UI_NodeManager.h>
#include <moxworkspace/WorkspaceUtils.h>

#include <algorithm>

namespace moxworkspace::WorkspaceUtils {

TopLevelWindow* FindMainTopLevelWindow() {
  auto const& windows = TopLevelWindows();
  auto const main = std::ranges::find(windows, WindowKind::kMain, &TopLevelWindow::GetKind);
  return main != windows.end() ? *main : nullptr;
}

moxui::ui::UI_Node* GetModalDialogParentNode() {
  auto const* const manager = moxui::ui::UI_NodeManager::Get(false);
  if (auto const* const modal = manager != nullptr ? manager->GetModalTree() : nullptr) {
    return modal->GetRoot();
  }
  TopLevelWindow const* const window = FindMainTopLevelWindow();
  return window != nullptr ? window->GetTree().GetRoot() : nullptr;
}

}  // namespace moxworkspace::WorkspaceUtils
