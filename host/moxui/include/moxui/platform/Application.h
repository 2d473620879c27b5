#pragma once

#include <moxui/platform/Window.h>

#include <functional>
#include <memory>

namespace moxui::scriber {
class SupplierInterface;
}

namespace moxui::platform {

class Clipboard;
class CursorControl;
class DragSource;
class FileDialogs;
class MenuPresenter;
class TextEditor;

/// The program's one connection to the desktop: event loop, windows and the platform's services. Main thread
/// only, except PostToMainThread. There is at most one; it sets the default draw supplier of UI_NodeManager
/// and the poster through which other threads reach the main thread.
class Application {
 public:
  /// Takes the platform's own arguments out of `argv`. The arguments must live as long as the application.
  static std::unique_ptr<Application> Create(int& argc, char** argv);
  /// The one that exists, or null.
  static Application* Get();
  virtual ~Application();

  virtual std::unique_ptr<Window> CreateWindow(WindowOptions const& options) = 0;
  /// Handles events until Quit; gives its code.
  virtual int Run() = 0;
  virtual void Quit(int code) = 0;
  /// Handles what waits, and comes back.
  virtual void ProcessEvents() = 0;
  virtual void PostToMainThread(std::function<void()> function) = 0;
  /// Runs a function once, after so many milliseconds.
  virtual void PostDelayed(int milliseconds, std::function<void()> function) = 0;

  virtual scriber::SupplierInterface const* GetDrawSupplier() = 0;
  virtual Clipboard& GetClipboard() = 0;
  virtual CursorControl& GetCursor() = 0;
  virtual MenuPresenter& GetMenus() = 0;
  virtual DragSource& GetDragSource() = 0;
  virtual FileDialogs& GetFileDialogs() = 0;
  virtual std::unique_ptr<TextEditor> NewTextEditor(bool multiLine) = 0;
};

}  // namespace moxui::platform
