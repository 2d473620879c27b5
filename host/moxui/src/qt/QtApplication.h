#pragma once

#include "QtServices.h"

#include <moxui/platform/Application.h>
#include <moxui/resources/ImageProvider.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <exception>
#include <memory>
#include <vector>

namespace moxui::qt {

/// The application over QApplication.
class QtApplication final : public platform::Application {
 public:
  QtApplication(int& argc, char** argv);
  ~QtApplication() override;

  /// Keeps an exception of a handler until no event is being handled, and ends all loops.
  void CatchException(std::exception_ptr exception);
  bool HasCaught() const { return mCaught != nullptr; }
  /// Throws on what was caught.
  void ThrowCaught();
  /// Milliseconds since the start.
  double GetTime() const { return static_cast<double>(mClock.nsecsElapsed()) / 1e6; }

  /// A loop that runs, to be ended by an exception too.
  class LoopScope {
   public:
    LoopScope(QtApplication& application, QEventLoop& loop);
    ~LoopScope();
    LoopScope(LoopScope const&) = delete;
    LoopScope& operator=(LoopScope const&) = delete;

   private:
    QtApplication& mApplication;
  };

  // platform::Application
  std::unique_ptr<platform::Window> CreateWindow(platform::WindowOptions const& options) override;
  int Run() override;
  void Quit(int code) override;
  void ProcessEvents() override;
  void PostToMainThread(std::function<void()> function) override;
  void PostDelayed(int milliseconds, std::function<void()> function) override;
  scriber::SupplierInterface const* GetDrawSupplier() override;
  platform::Clipboard& GetClipboard() override { return mClipboard; }
  platform::CursorControl& GetCursor() override { return mCursor; }
  platform::MenuPresenter& GetMenus() override { return mMenus; }
  platform::DragSource& GetDragSource() override { return mDragSource; }
  platform::FileDialogs& GetFileDialogs() override { return mFileDialogs; }
  std::unique_ptr<platform::TextEditor> NewTextEditor(bool multiLine) override;

 private:
  void RunGuarded(std::function<void()> const& function);

  QApplication mApplication;
  QElapsedTimer mClock;
  std::vector<QEventLoop*> mLoops;
  std::exception_ptr mCaught;
  bool mIsRunning = false;
  QtClipboard mClipboard;
  QtCursor mCursor;
  QtMenus mMenus;
  QtDragSource mDragSource;
  QtFileDialogs mFileDialogs;
  utility::ImageProvider mImages;  // of the host's icons
};

}  // namespace moxui::qt
