#include "LoggingNode.h"

#include <moxcore/threads/MainThread.h>
#include <moxui/platform/Application.h>
#include <moxui/platform/CursorControl.h>
#include <moxui/platform/Fonts.h>
#include <moxui/ui/DragData.h>
#include <moxui/ui/NodeTreeHost.h>
#include <moxui/ui/UI_NodeManager.h>

#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QTextDocument>
#include <QToolTip>
#include <QUrl>
#include <QWheelEvent>
#include <QWidget>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <stdexcept>
#include <string>

namespace moxui {
namespace {

using moxcore::utility::MakeIntrusive;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

platform::Application& App() {
  return *platform::Application::Get();
}

class Window : public ::testing::Test {
 protected:
  Window() {
    root = MakeIntrusive<LoggingNode>(log, "root");
    root->takes = true;
    window->GetTree().SetRoot(root);
    window->Show();
    App().ProcessEvents();
    log.clear();
  }

  QWidget& Widget() { return *static_cast<QWidget*>(window->GetNativeHandle()); }
  void Mouse(QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons buttons,
             Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QMouseEvent event(type, at, Widget().mapToGlobal(at), button, buttons, modifiers);
    QApplication::sendEvent(&Widget(), &event);
  }
  void Key(int key, Qt::KeyboardModifiers modifiers, QString const& text = {}) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(&Widget(), &event);
  }

  Log log;
  std::unique_ptr<platform::Window> window = App().CreateWindow({.title = u"Test", .size = {80, 60}});
  LoggingNodePtr root;
};

TEST_F(Window, PaintsItsTreeWhenItIsShown) {
  EXPECT_EQ(root->drawCount, 1);
  EXPECT_EQ(root->UI_GetLocalRectF(ui::RectSpace::kParent), RectT<float>(0, 0, 80, 60));
  EXPECT_THAT(window->GetTree().GetDamage(), IsEmpty());
}

TEST_F(Window, ShowsWhatItsNodesPaint) {
  root->colour = {1, 0, 0, 1};
  root->UI_Invalidate();
  App().ProcessEvents();

  EXPECT_EQ(Widget().grab().toImage().pixel(40, 30), qRgb(255, 0, 0));
}

TEST_F(Window, PaintsOnlyWhatIsDamaged) {
  root->UI_Invalidate({10, 10, 5, 5});
  App().ProcessEvents();

  EXPECT_EQ(root->drawCount, 2);
  EXPECT_EQ(root->clip, RectT<float>(10, 10, 5, 5));
}

TEST_F(Window, LaysItsRootOutWhenItIsResized) {
  window->SetSize({120, 90});
  App().ProcessEvents();

  EXPECT_EQ(root->UI_GetLocalRectF(ui::RectSpace::kOwn), RectT<float>(0, 0, 120, 90));
}

TEST_F(Window, HandsPressesOn) {
  Mouse(QEvent::MouseButtonPress, {10, 12}, Qt::RightButton, Qt::RightButton, Qt::ControlModifier);

  EXPECT_THAT(log, Contains("root press"));
  EXPECT_EQ(root->lastPosition, PointT<float>(10, 12));
  EXPECT_EQ(root->lastButton, ui::MouseButton::kRight);
  EXPECT_EQ(root->lastModKeys, ui::ModKeys(ui::ModKey::kCommand));
  Mouse(QEvent::MouseButtonRelease, {10, 12}, Qt::RightButton, Qt::NoButton);
  EXPECT_EQ(log.back(), "root release");
}

TEST_F(Window, TakesThePlatformsDoubleClickAsAPress) {
  Mouse(QEvent::MouseButtonPress, {10, 12}, Qt::LeftButton, Qt::LeftButton);
  Mouse(QEvent::MouseButtonRelease, {10, 12}, Qt::LeftButton, Qt::NoButton);
  Mouse(QEvent::MouseButtonDblClick, {10, 12}, Qt::LeftButton, Qt::LeftButton);

  EXPECT_EQ(root->lastClickCount, 2);
}

TEST_F(Window, HandsTheWheelOn) {
  QWheelEvent event({10, 10}, Widget().mapToGlobal(QPointF(10, 10)), {}, {0, -120}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&Widget(), &event);

  EXPECT_THAT(log, Contains("root wheel"));
}

TEST_F(Window, LeavesItsNodesWithThePointer) {
  Mouse(QEvent::MouseMove, {10, 10}, Qt::NoButton, Qt::NoButton);
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&Widget(), &leave);

  EXPECT_EQ(log.back(), "root leave");
}

TEST_F(Window, HandsKeysOnAndKeepsTabForItself) {
  root->wantsFocus = true;
  window->GetTree().SetActive(true);
  Key(Qt::Key_Tab, Qt::NoModifier);
  EXPECT_EQ(window->GetTree().GetFocusLeaf(), root.Get());

  Key(Qt::Key_Space, Qt::NoModifier, " ");

  EXPECT_THAT(log, Contains("root key"));
}

TEST_F(Window, TellsTheLossOfItsActivation) {
  window->GetTree().SetActive(true);
  root->UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  log.clear();
  QEvent event(QEvent::WindowDeactivate);
  QApplication::sendEvent(&Widget(), &event);

  EXPECT_THAT(log, ElementsAre("root focus5"));
}

TEST_F(Window, AsksBeforeItCloses) {
  int asked = 0;
  window->SetCloseFunction([&] { return ++asked > 1; });

  Widget().close();
  EXPECT_TRUE(window->IsShown());
  Widget().close();

  EXPECT_FALSE(window->IsShown());
  EXPECT_EQ(asked, 2);
}

TEST_F(Window, RunsModallyUntilItIsAnswered) {
  auto const dialog =
      App().CreateWindow({.title = u"Dialog", .size = {40, 40}, .parent = window.get(), .isDialog = true});
  bool wasShown = false;
  App().PostDelayed(0, [&] {
    wasShown = dialog->IsShown();
    dialog->EndModal(16);
  });

  EXPECT_EQ(dialog->RunModal(64), 16);

  EXPECT_TRUE(wasShown);
  EXPECT_FALSE(dialog->IsShown());
}

TEST_F(Window, ClosedWhileModalGivesTheCloseAnswer) {
  auto const dialog =
      App().CreateWindow({.title = u"Dialog", .size = {40, 40}, .parent = window.get(), .isDialog = true});
  App().PostDelayed(0, [&] { static_cast<QWidget*>(dialog->GetNativeHandle())->close(); });

  EXPECT_EQ(dialog->RunModal(64), 64);
}

TEST_F(Window, ThrowsAHandlersExceptionOnFromTheLoop) {
  root->onMouse = [](ui::MouseEvent const&) { throw std::runtime_error("handler"); };
  Mouse(QEvent::MouseButtonPress, {10, 12}, Qt::LeftButton, Qt::LeftButton);

  EXPECT_THROW(App().ProcessEvents(), std::runtime_error);
  root->onMouse = {};
  EXPECT_NO_THROW(App().ProcessEvents());
}

TEST_F(Window, FiresTimersOfItsTree) {
  root->UI_InstallTimer(10, 3);
  QElapsedTimer const start = [] {
    QElapsedTimer timer;
    timer.start();
    return timer;
  }();
  while (log.empty() && start.elapsed() < 5000) {
    App().ProcessEvents();
  }

  EXPECT_THAT(log, Contains("root timer3"));
}

TEST_F(Window, TakesDroppedFiles) {
  std::vector<moxcore::Utf8String> files;
  root->UI_InstallHandleDropFunction([&](PointT<float>, ui::OS_ReceiveData& data, int&) {
    files = data.GetFiles();
    return true;
  });
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile("/clips/a b.wav")});
  QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&Widget(), &enter);
  QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&Widget(), &drop);

  EXPECT_THAT(files, ElementsAre("/clips/a b.wav"));
  EXPECT_TRUE(drop.isAccepted());
  EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
}

class Speaker : public ui::UI_SubView {
 public:
  ui::AccessibleRole UI_GetAccessibleRole() const override { return ui::AccessibleRole::kButton; }
  moxcore::Utf8String UI_GetAccessibleName() const override { return "Mute"; }
  moxcore::Utf8String UI_GetAccessibleValue() const override { return "on"; }
  bool UI_DoMouseEvent(ui::UI_Node*, ui::MouseEvent const& event) override {
    presses += event.IsAction(ui::PointerAction::kPress) ? 1 : 0;
    return true;
  }
  int presses = 0;
};

TEST_F(Window, TellsAssistiveSoftwareOfNodesWithARole) {
  auto const group = AddNode(*root, log, "group", {5, 5, 50, 50});
  auto const button = MakeIntrusive<Speaker>();
  button->UI_SetLocalRectF({10, 10, 20, 20});
  button->UI_SetToolTip("Mutes the channel", 200);
  group->ChildPushBack(button);

  QAccessibleInterface* const windowInterface = QAccessible::queryAccessibleInterface(&Widget());
  ASSERT_EQ(windowInterface->childCount(), 1);
  QAccessibleInterface* const found = windowInterface->child(0);
  EXPECT_EQ(found->role(), QAccessible::Button);
  EXPECT_EQ(found->text(QAccessible::Name), "Mute");
  EXPECT_EQ(found->text(QAccessible::Value), "on");
  EXPECT_EQ(found->text(QAccessible::Description), "Mutes the channel");
  EXPECT_EQ(found->rect().topLeft(), Widget().mapToGlobal(QPoint(15, 15)));
  EXPECT_EQ(found->rect().size(), QSize(20, 20));
  EXPECT_EQ(found->parent(), windowInterface);

  found->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(button->presses, 1);
  button->UI_SetDisabled();
  EXPECT_TRUE(found->state().disabled);
  group->DeleteChildren();
  EXPECT_FALSE(found->isValid());
  EXPECT_EQ(windowInterface->childCount(), 0);
}

TEST_F(Window, ShowsToolTipsAsTheyAreWritten) {
  ui::NodeTreeHost& host = window->GetTree().GetHost();
  host.ShowToolTip("plain & <short>", {10, 10});
  EXPECT_EQ(QToolTip::text(), "plain & <short>");
  // What the tip says once its marks are read.
  auto const read = [](std::string_view text) {
    QTextDocument document;
    document.setHtml(QToolTip::text());
    EXPECT_EQ(document.toPlainText().toStdString(), text);
  };
  for (std::string_view const text :
       {"take<b>1.wav", "<img src='/a.png'> & more", "<p>two  words\nand a line</p>"}) {
    host.ShowToolTip(text, {10, 10});
    ASSERT_TRUE(Qt::mightBeRichText(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))));
    EXPECT_TRUE(Qt::mightBeRichText(QToolTip::text()));
    read(text);
  }
  host.ShowToolTip("", {10, 10});
}

TEST_F(Window, TakesNoSizeThatItCannotHave) {
  constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
  constexpr float kEndless = std::numeric_limits<float>::infinity();
  for (float const odd : {kNone, -kEndless, -5.0f, 0.0f}) {
    window->SetSize({odd, 40});
    EXPECT_EQ(Widget().size(), QSize(1, 40));
  }
  for (float const huge : {1e30f, kEndless}) {
    window->SetSize({huge, 2});
    EXPECT_EQ(Widget().height(), 2);
    EXPECT_GE(Widget().width(), 4096);
    EXPECT_LE(Widget().width(), 1 << 20);
  }
  window->SetSize({80, 60});
  window->SetMinimumSize({kNone, -kEndless});
  window->SetPosition({kNone, 1e30f});
  window->SetZoom(kEndless);
  window->SetZoom(kNone);
  App().ProcessEvents();
  EXPECT_EQ(window->GetTree().GetSize(), ExtentT<float>(80, 60));

  auto const other = App().CreateWindow({.title = u"Other", .size = {kNone, kNone}});
  EXPECT_EQ(static_cast<QWidget*>(other->GetNativeHandle())->size(), QSize(1, 1));
}

// What a program like this one writes in an environment that names no directory for what it keeps while it
// runs.
TEST(ApplicationServices, StartQuietlyInABareEnvironment) {
  std::string const program = std::filesystem::read_symlink("/proc/self/exe").string();
  std::string const command =
      "env -i QT_QPA_PLATFORM=offscreen '" + program + "' --gtest_filter=ApplicationServices.ExistOnce 2>&1";
  FILE* const output = popen(command.c_str(), "r");
  ASSERT_NE(output, nullptr);
  std::string text;
  for (int c = std::fgetc(output); c != EOF; c = std::fgetc(output)) {
    text.push_back(static_cast<char>(c));
  }
  EXPECT_EQ(pclose(output), 0) << text;
  EXPECT_EQ(text.find("XDG_RUNTIME_DIR"), std::string::npos) << text;
}

TEST(ApplicationServices, FindTheHouseFont) {
  EXPECT_TRUE(platform::FontsAvailable());
  EXPECT_EQ(platform::GetHouseFontName(), "Open Sans");
  EXPECT_THAT(platform::GetFontFamilies(), Contains("Open Sans"));
}

TEST(ApplicationServices, RunPostedFunctionsOnTheMainThread) {
  std::vector<int> ran;
  moxcore::threads::PostToMainThread([&] { ran.push_back(1); });
  moxcore::threads::PostToMainThread([&] { ran.push_back(2); });
  EXPECT_THAT(ran, IsEmpty());

  App().ProcessEvents();

  EXPECT_THAT(ran, ElementsAre(1, 2));
}

TEST(ApplicationServices, QuitTheLoopWithACode) {
  App().PostDelayed(0, [] { App().Quit(3); });

  EXPECT_EQ(App().Run(), 3);
}

TEST(ApplicationServices, SupplyTheManagersDrawing) {
  EXPECT_EQ(ui::UI_NodeManager::Get(false)->GetDefaultDrawSupplier(), App().GetDrawSupplier());
}

TEST(ApplicationServices, ExistOnce) {
  int count = 0;
  EXPECT_EQ(platform::Application::Create(count, nullptr), nullptr);
}

TEST(CursorControl, HidesUncountedOrCounted) {
  auto& cursor = App().GetCursor();
  cursor.ShowPlatformCursor(false, true, false);
  cursor.ShowPlatformCursor(false, true, false);
  EXPECT_FALSE(cursor.IsCursorShown());
  cursor.ShowPlatformCursor(true, true, false);
  cursor.ShowPlatformCursor(true, true, false);
  EXPECT_TRUE(cursor.IsCursorShown());

  cursor.ShowPlatformCursor(false, true, true);
  cursor.ShowPlatformCursor(false, true, true);
  cursor.ShowPlatformCursor(true, true, true);
  EXPECT_FALSE(cursor.IsCursorShown());
  cursor.ShowPlatformCursor(true, true, true);
  EXPECT_TRUE(cursor.IsCursorShown());
}

TEST(CursorControl, ShowsTheCursorOfANumber) {
  auto& cursor = App().GetCursor();

  cursor.DisplayCursor(platform::CursorID::kHotText, platform::CursorMode::kUntilNext);
  EXPECT_EQ(static_cast<int>(cursor.GetCursor()), 18);
  std::byte const noPicture[] = {std::byte{1}};
  EXPECT_EQ(cursor.MakeCursorFromPNG(noPicture, {0, 0}, 1), platform::CursorID::kArrow);
}

TEST(CursorControl, MovesThePointer) {
  EXPECT_TRUE(App().GetCursor().SetPosition({20, 30}));
  EXPECT_EQ(App().GetCursor().GetPosition(), PointT<float>(20, 30));
}

}  // namespace
}  // namespace moxui
