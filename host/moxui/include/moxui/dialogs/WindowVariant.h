#pragma once

namespace moxui::platform {
class Window;
}
namespace moxui::ui {
class UI_Node;
}

namespace moxui::dialogs {

/// Over which window a dialog opens: a window, or the one that a node is shown in. Empty: over none.
class WindowVariant {
 public:
  WindowVariant() = default;
  WindowVariant(platform::Window* window) : mWindow(window) {}  // NOLINT(google-explicit-constructor)
  WindowVariant(ui::UI_Node* node);                             // NOLINT(google-explicit-constructor)

  /// Null when there is none.
  platform::Window* GetWindow() const { return mWindow; }

 private:
  platform::Window* mWindow = nullptr;
};

}  // namespace moxui::dialogs
