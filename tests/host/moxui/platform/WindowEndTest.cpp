// Windows that end while they handle something.
#include "LoggingNode.h"

#include <moxui/dialogs/WindowVariant.h>
#include <moxui/platform/Application.h>
#include <moxui/platform/Window.h>

#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>
#include <stdexcept>

namespace moxui {
namespace {

using moxcore::utility::MakeIntrusive;

platform::Application& App() {
  return *platform::Application::Get();
}

QWidget* WidgetOf(platform::Window& window) {
  return static_cast<QWidget*>(window.GetNativeHandle());
}

class WindowEnd : public ::testing::Test {
 protected:
  WindowEnd() {
    window->GetTree().SetRoot(root);
    window->Show();
    App().ProcessEvents();
    widget = WidgetOf(*window);
  }

  void Press() {
    QMouseEvent event(QEvent::MouseButtonPress, {10, 10}, widget->mapToGlobal(QPointF(10, 10)),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
  }
  void ExpectEnded() {
    EXPECT_EQ(window, nullptr);
    EXPECT_EQ(root->UI_GetTree(), nullptr);
    App().ProcessEvents();
    EXPECT_TRUE(widget.isNull());
  }

  Log log;
  std::unique_ptr<platform::Window> window = App().CreateWindow({.size = {80, 60}});
  LoggingNodePtr root = MakeIntrusive<LoggingNode>(log, "root");
  QPointer<QWidget> widget;
};

TEST_F(WindowEnd, MayComeFromAPress) {
  root->onMouse = [this](ui::MouseEvent const&) { window.reset(); };

  Press();

  // The widget is on the stack until the event is done.
  EXPECT_FALSE(widget.isNull());
  ExpectEnded();
}

TEST_F(WindowEnd, MayComeFromAPressInALoopWithinAPress) {
  root->onMouse = [this](ui::MouseEvent const&) {
    root->onMouse = [this](ui::MouseEvent const&) { window.reset(); };
    Press();
    App().ProcessEvents();
    EXPECT_FALSE(widget.isNull());
  };

  Press();

  ExpectEnded();
}

TEST_F(WindowEnd, MayComeBeforeAnException) {
  root->onMouse = [this](ui::MouseEvent const&) {
    window.reset();
    throw std::runtime_error("handler");
  };

  Press();

  EXPECT_EQ(window, nullptr);
  EXPECT_THROW(App().ProcessEvents(), std::runtime_error);
}

TEST_F(WindowEnd, MayComeFromItsCloseFunction) {
  window->SetCloseFunction([this] {
    window.reset();
    return true;
  });

  widget->close();

  ExpectEnded();
}

TEST_F(WindowEnd, MayComeFromWhatItPaints) {
  root->onDraw = [this](scriber::Scriber*) { window.reset(); };
  root->UI_Invalidate();

  App().ProcessEvents();

  ExpectEnded();
}

TEST_F(WindowEnd, MayComeFromATimer) {
  root->onTimer = [this](int) { window.reset(); };
  root->UI_InstallTimer(10, 1);

  while (window != nullptr) {
    App().ProcessEvents();
  }

  ExpectEnded();
}

TEST_F(WindowEnd, MayComeFromAnActionOfAssistiveSoftware) {
  class Button : public LoggingNode {
   public:
    using LoggingNode::LoggingNode;
    ui::AccessibleRole UI_GetAccessibleRole() const override { return ui::AccessibleRole::kButton; }
  };
  auto const button = MakeIntrusive<Button>(log, "button");
  button->UI_SetLocalRectF({0, 0, 40, 40});
  root->ChildPushBack(button);
  button->onMouse = [this](ui::MouseEvent const& event) {
    if (event.IsAction(ui::PointerAction::kPress)) {
      window.reset();
    }
  };
  QAccessibleInterface* const found = QAccessible::queryAccessibleInterface(widget)->child(0);

  found->actionInterface()->doAction(QAccessibleActionInterface::pressAction());

  ExpectEnded();
}

TEST_F(WindowEnd, WhileItRunsModallyGivesTheCloseAnswer) {
  App().PostDelayed(0, [this] { window.reset(); });

  EXPECT_EQ(window->RunModal(64), 64);

  ExpectEnded();
}

TEST_F(WindowEnd, AfterItsModalAnswerGivesThatAnswer) {
  App().PostDelayed(0, [this] {
    window->EndModal(16);
    window.reset();
  });

  EXPECT_EQ(window->RunModal(64), 16);
}

TEST_F(WindowEnd, LeavesTheWindowsAboveIt) {
  auto const dialog = App().CreateWindow({.size = {40, 40}, .parent = window.get(), .isDialog = true});
  dialog->Show();
  App().ProcessEvents();
  ASSERT_EQ(WidgetOf(*dialog)->parentWidget(), widget);
  QPointer<QWidget> const dialogWidget = WidgetOf(*dialog);

  window.reset();

  ASSERT_FALSE(dialogWidget.isNull());
  EXPECT_EQ(dialogWidget->parentWidget(), nullptr);
  EXPECT_TRUE(dialog->IsShown());
}

TEST_F(WindowEnd, IsSeenByWhoKeepsItAsAParent) {
  dialogs::WindowVariant const asWindow(window.get());
  dialogs::WindowVariant const asNode(root.Get());
  EXPECT_EQ(asWindow.GetWindow(), window.get());
  EXPECT_EQ(asNode.GetWindow(), window.get());

  window.reset();

  EXPECT_EQ(asWindow.GetWindow(), nullptr);
  EXPECT_EQ(asNode.GetWindow(), nullptr);
}

}  // namespace
}  // namespace moxui
