#pragma once

#include <memory>

namespace moxui::platform {
class Window;
}
namespace moxui::ui {
class UI_Node;
}

namespace moxui::dialogs {

/// Over which window a dialog opens: a window, or the one that a node is shown in. Empty, or once the window
/// has ended: over none.
class WindowVariant {
 public:
  WindowVariant() = default;
  WindowVariant(platform::Window* window);  // NOLINT(google-explicit-constructor)
  WindowVariant(ui::UI_Node* node);         // NOLINT(google-explicit-constructor)

  /// Null when there is none.
  platform::Window* GetWindow() const { return mWindow ? *mWindow : nullptr; }

 private:
  std::shared_ptr<platform::Window* const> mWindow;
};

}  // namespace moxui::dialogs
