#pragma once

#include <moxcore/utility/IntrusivePtr.h>
#include <moxui/dialogs/WindowVariant.h>
#include <moxui/geometry/ExtentT.h>
#include <moxui/platform/ModalResponder.h>
#include <moxui/platform/Window.h>
#include <moxui/ui/UI_Node.h>

#include <memory>
#include <optional>

namespace moxui::dialogs {

/// What a modal window looks like from outside, besides its title and content.
struct ModalWindow {
  WindowVariant parent{};
  ExtentT<float> size{};
  ExtentT<float> minimumSize{};
  bool isResizable = false;
};

/// Shows a tree of nodes in a window and waits until it is answered; in place of the window a modal responder
/// may drive the tree, or answer for it.
class ModalRun {
 public:
  explicit ModalRun(moxcore::utility::IntrusivePtr<ui::UI_Node> root);
  ~ModalRun();

  /// `request` says what a responder is told; its content is the tree. Gives `closeAnswer` when the window is
  /// closed otherwise or there is no desktop, and at once while it is running. The window stays, hidden,
  /// until CloseWindow.
  int Run(platform::ModalRequest request, ModalWindow const& modalWindow, int closeAnswer);
  bool IsRunning() const { return *mIsRunning; }
  void CloseWindow();
  /// The first answer of a run stands.
  void End(int answer);
  /// Whether the last run was ended by End.
  bool WasEnded() const { return mAnswer.has_value(); }

  platform::Window* GetWindow() const { return mWindow.get(); }

 private:
  moxcore::utility::IntrusivePtr<ui::UI_Node> mRoot;
  std::unique_ptr<platform::Window> mWindow;
  std::optional<int> mAnswer;
  /// Shared with the run, in which a handler may end this.
  std::shared_ptr<bool> mIsRunning = std::make_shared<bool>(false);
};

}  // namespace moxui::dialogs
