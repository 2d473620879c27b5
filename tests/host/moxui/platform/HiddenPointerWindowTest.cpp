#include "LoggingNode.h"

#include <moxui/platform/Application.h>
#include <moxui/resources/ResourceManager.h>
#include <moxui/ui/InputState.h>

#include <gtest/gtest.h>

#include <QApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QScreen>
#include <QWidget>

namespace moxui {
namespace {

using moxcore::utility::MakeIntrusive;
using utility::OS_ResourceManager;

platform::Application& App() {
  return *platform::Application::Get();
}

PointT<float> ToPoint(QPointF point) {
  return {static_cast<float>(point.x()), static_cast<float>(point.y())};
}

class HiddenPointerInAWindow : public ::testing::Test {
 protected:
  HiddenPointerInAWindow() {
    root->takes = true;
    window->GetTree().SetRoot(root);
    window->Show();
    App().ProcessEvents();
  }
  ~HiddenPointerInAWindow() override { OS_ResourceManager::ShowPlatformCursor(true, true, false); }

  QWidget& Widget() const { return *static_cast<QWidget*>(window->GetNativeHandle()); }
  /// As the platform tells of a pointer at a place of the desktop.
  void Mouse(QEvent::Type type, QPointF global, Qt::MouseButton button, Qt::MouseButtons buttons) {
    QMouseEvent event(type, Widget().mapFromGlobal(global), global, button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&Widget(), &event);
  }
  void Press(QPointF global) { Mouse(QEvent::MouseButtonPress, global, Qt::LeftButton, Qt::LeftButton); }
  void Move(QPointF global) { Mouse(QEvent::MouseMove, global, Qt::NoButton, Qt::LeftButton); }

  Log log;
  std::unique_ptr<platform::Window> window = App().CreateWindow({.title = u"Test", .size = {80, 60}});
  LoggingNodePtr root = MakeIntrusive<LoggingNode>(log, "root");
};

TEST_F(HiddenPointerInAWindow, GoesOnWhenItIsPutBackToTheMiddleOfTheScreen) {
  QRect const screen = QGuiApplication::primaryScreen()->geometry();
  QPoint const press = Widget().mapToGlobal(QPoint(10, 12));
  QPoint const edge(screen.right() - 2, press.y());
  QCursor::setPos(press);
  App().ProcessEvents();
  Press(press);
  OS_ResourceManager::ShowPlatformCursor(false, true, false);
  QCursor::setPos(edge);
  App().ProcessEvents();
  Move(edge);
  PointT<float> const atTheEdge = root->lastPosition;
  EXPECT_EQ(atTheEdge, ToPoint(Widget().mapFromGlobal(edge)));

  QPoint const middle = QCursor::pos();
  EXPECT_LE(std::abs(middle.x() - screen.center().x()), 1);
  EXPECT_LE(std::abs(middle.y() - screen.center().y()), 1);
  App().ProcessEvents();
  Move(middle + QPoint(7, -3));
  EXPECT_EQ(root->lastPosition, atTheEdge + PointT<float>(7, -3));
  EXPECT_EQ(QCursor::pos(), middle);

  ui::SetGlobalMousePosition(press.x(), press.y());
  Mouse(QEvent::MouseButtonRelease, press, Qt::LeftButton, Qt::NoButton);
  EXPECT_EQ(QCursor::pos(), press);
  EXPECT_EQ(root->lastPosition, (PointT<float>(10, 12)));
}

}  // namespace
}  // namespace moxui
