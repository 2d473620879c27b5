#include <moxui/dialogs/WindowVariant.h>
#include <moxui/platform/Window.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/NodeTreeHost.h>
#include <moxui/ui/UI_Node.h>

namespace moxui::dialogs {

WindowVariant::WindowVariant(platform::Window* window) {
  if (window != nullptr) {
    mWindow = window->GetReference();
  }
}

WindowVariant::WindowVariant(ui::UI_Node* node) {
  ui::NodeTree const* const tree = node != nullptr ? node->UI_GetTree() : nullptr;
  if (tree != nullptr) {
    // A tree's host is a window, or a stage that stands in for one.
    *this = WindowVariant(dynamic_cast<platform::Window*>(&tree->GetHost()));
  }
}

}  // namespace moxui::dialogs
