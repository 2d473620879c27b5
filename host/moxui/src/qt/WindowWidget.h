#pragma once

#include <moxui/ui/NodeTree.h>

#include <QWidget>

class QTabletEvent;
class QTouchEvent;

namespace moxui::qt {

class QtWindow;

/// Turns the platform's events into those of the window's tree.
class WindowWidget final : public QWidget {
 public:
  WindowWidget(QtWindow& window, QWidget* parent, Qt::WindowFlags flags);

  QtWindow& GetWindow() const { return mWindow; }

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
  bool HandleKey(QEvent& event);
  bool HandleInputMethod(QEvent& event);
  bool HandleDrag(QEvent& event, ui::DragPhase phase);
  bool HandleDragLeave();

  QtWindow& mWindow;
};

}  // namespace moxui::qt
