#pragma once

#include <moxui/ui/NodeTree.h>

#include <QWidget>
#include <memory>
#include <optional>

class QTabletEvent;
class QTouchEvent;

namespace moxui::ui {
class OS_ReceiveData;
}

namespace moxui::qt {

class QtApplication;
class QtWindow;

/// Turns the platform's events into those of the window's tree.
class WindowWidget final : public QWidget {
 public:
  WindowWidget(QtWindow& window, QWidget* parent, Qt::WindowFlags flags);

  /// Null once it has ended.
  QtWindow* GetWindow() const { return mWindow; }
  /// Takes all windows that have this one as their parent from it, so that they don't end with it: each has
  /// an owner of its own.
  void ReleaseWindows();
  /// Ends a widget; one that is handling an event, once it is done.
  static void End(std::unique_ptr<WindowWidget> widget);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

 private:
  bool HandleEvent(QEvent& event);
  bool HandleMouse(QEvent& event, ui::PointerAction action);
  bool HandleWheel(QEvent& event);
  bool HandleTablet(QTabletEvent& event);
  bool HandleTouch(QTouchEvent& event);
  bool CancelTouch();
  bool HandleKey(QEvent& event);
  bool HandleInputMethod(QEvent& event);
  bool HandleDrag(QEvent& event, ui::DragPhase phase);
  bool HandleDragLeave();

  QtApplication& mApplication;
  QtWindow* mWindow;
  int mDepth = 0;  ///< of events being handled
  std::optional<int> mFinger;
  std::shared_ptr<ui::OS_ReceiveData> mDragged;
};

}  // namespace moxui::qt
