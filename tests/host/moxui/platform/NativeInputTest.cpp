#include "LoggingNode.h"

#include <moxui/platform/Application.h>
#include <moxui/platform/Clipboard.h>
#include <moxui/platform/FileDialogs.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/testing/DragHand.h>
#include <moxui/testing/ModalAnswers.h>
#include <moxui/testing/Stage.h>
#include <moxui/ui/DragData.h>
#include <moxui/ui/OS_Menu.h>

#include <gmock/gmock.h>

#include <QApplication>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPointingDevice>
#include <QScreen>
#include <QTabletEvent>
#include <QTouchEvent>
#include <QWidget>
#include <algorithm>
#include <iterator>
#include <memory>
#include <stdexcept>

namespace moxui {
namespace {

using moxcore::utility::MakeIntrusive;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ui::KeyboardCode;

platform::Application& App() {
  return *platform::Application::Get();
}

class KeyNode : public ui::UI_SubView {
 public:
  bool UI_DoKeyboardEvent(ui::UI_Node*, ui::KeyboardEvent const& event) override {
    keys.push_back(event);
    return true;
  }
  std::vector<ui::KeyboardEvent> keys;
};

class NativeKeys : public ::testing::Test {
 protected:
  NativeKeys() { window->GetTree().SetRoot(node); }
  QWidget& Widget() { return *static_cast<QWidget*>(window->GetNativeHandle()); }

  ui::KeyboardEvent Send(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, QString const& text = {},
                         QEvent::Type type = QEvent::KeyPress) {
    QKeyEvent event(type, key, modifiers, text);
    QApplication::sendEvent(&Widget(), &event);
    return node->keys.back();
  }

  std::unique_ptr<platform::Window> window = App().CreateWindow({.size = {80, 60}});
  moxcore::utility::IntrusivePtr<KeyNode> node = MakeIntrusive<KeyNode>();
};

TEST_F(NativeKeys, AreToldByTheirCodes) {
  EXPECT_EQ(Send(Qt::Key_A).GetCode(), KeyboardCode::kA);
  EXPECT_EQ(Send(Qt::Key_Z).GetCode(), KeyboardCode::kZ);
  EXPECT_EQ(Send(Qt::Key_0).GetCode(), KeyboardCode::k0);
  EXPECT_EQ(Send(Qt::Key_9).GetCode(), KeyboardCode::k9);
  EXPECT_EQ(Send(Qt::Key_F12).GetCode(), KeyboardCode::kF12);
  EXPECT_EQ(Send(Qt::Key_Space).GetCode(), KeyboardCode::kSpace);
  EXPECT_EQ(Send(Qt::Key_Backtab, Qt::ShiftModifier).GetCode(), KeyboardCode::kTab);
  EXPECT_EQ(Send(Qt::Key_Return, Qt::KeypadModifier).GetCode(), KeyboardCode::kEnter);
  EXPECT_EQ(Send(Qt::Key_PageDown).GetCode(), KeyboardCode::kPageDown);
  EXPECT_EQ(Send(Qt::Key_MediaPlay).GetCode(), KeyboardCode::kNone);
}

TEST_F(NativeKeys, CarryModifiersAndTextAndDirection) {
  auto const pressed = Send(Qt::Key_E, Qt::ControlModifier | Qt::AltModifier, "e");
  EXPECT_EQ(pressed.GetModKey(), ui::ModKeys(ui::ModKey::kCommand | ui::ModKey::kOption));
  EXPECT_EQ(pressed.GetText(), u"e");
  EXPECT_TRUE(pressed.IsAction(ui::KeyAction::kKeyDown));

  EXPECT_TRUE(Send(Qt::Key_E, Qt::MetaModifier, {}, QEvent::KeyRelease).IsAction(ui::KeyAction::kKeyUp));
  EXPECT_EQ(node->keys.back().GetModKey(), ui::ModKeys(ui::ModKey::kControl));
}

TEST_F(NativeKeys, TakeTextOfAnInputMethod) {
  QInputMethodEvent event;
  event.setCommitString(QString::fromUtf8("字"));

  QApplication::sendEvent(&Widget(), &event);

  ASSERT_EQ(node->keys.size(), 1u);
  EXPECT_EQ(node->keys[0].GetCode(), KeyboardCode::kNone);
  EXPECT_EQ(node->keys[0].GetText(), u"字");
}

TEST(NativePen, IsAPointerOfItsOwnKind) {
  Log log;
  auto const window = App().CreateWindow({.size = {80, 60}});
  auto const root = MakeIntrusive<LoggingNode>(log, "root");
  root->takes = true;
  window->GetTree().SetRoot(root);
  auto& widget = *static_cast<QWidget*>(window->GetNativeHandle());
  QTabletEvent press(QEvent::TabletPress, QPointingDevice::primaryPointingDevice(), {10, 20},
                     widget.mapToGlobal(QPointF(10, 20)), 0.5, 0, 0, 0, 0, 0, Qt::ShiftModifier,
                     Qt::LeftButton, Qt::LeftButton);

  QApplication::sendEvent(&widget, &press);

  EXPECT_EQ(log.back(), "root press");
  EXPECT_EQ(root->lastSubType, ui::PointerSubType::kPen);
  EXPECT_EQ(root->lastModKeys, ui::ModKeys(ui::ModKey::kShift));
  EXPECT_EQ(root->lastClickCount, 1);
  EXPECT_TRUE(press.isAccepted());
}

class NativeTouch : public ::testing::Test {
 protected:
  NativeTouch() {
    root->takes = true;
    root->logsMoves = true;
    window->GetTree().SetRoot(root);
  }
  struct Finger {
    int id;
    QEventPoint::State state;
    QPointF place;
  };
  void Send(QEvent::Type type, std::vector<Finger> const& fingers) {
    auto& widget = *static_cast<QWidget*>(window->GetNativeHandle());
    QList<QEventPoint> points;
    for (Finger const& finger : fingers) {
      points.push_back(QEventPoint(finger.id, finger.state, finger.place, widget.mapToGlobal(finger.place)));
    }
    QTouchEvent event(type, QPointingDevice::primaryPointingDevice(), Qt::NoModifier, points);
    QApplication::sendEvent(&widget, &event);
    EXPECT_TRUE(event.isAccepted());
  }

  Log log;
  std::unique_ptr<platform::Window> window = App().CreateWindow({.size = {80, 60}});
  moxcore::utility::IntrusivePtr<LoggingNode> root = MakeIntrusive<LoggingNode>(log, "root");
};

TEST_F(NativeTouch, IsThatOfTheFingerThatCameFirst) {
  Send(QEvent::TouchBegin, {{7, QEventPoint::Pressed, {10, 10}}});
  EXPECT_EQ(root->lastSubType, ui::PointerSubType::kTouch);
  // The platform may tell of the fingers in any order.
  Send(QEvent::TouchUpdate, {{8, QEventPoint::Pressed, {50, 50}}, {7, QEventPoint::Stationary, {10, 10}}});
  Send(QEvent::TouchUpdate, {{8, QEventPoint::Updated, {55, 50}}, {7, QEventPoint::Updated, {12, 10}}});
  EXPECT_EQ(root->lastPosition, PointT<float>(12, 10));
  Send(QEvent::TouchUpdate, {{7, QEventPoint::Released, {12, 10}}, {8, QEventPoint::Stationary, {55, 50}}});
  Send(QEvent::TouchUpdate, {{8, QEventPoint::Updated, {60, 50}}});
  Send(QEvent::TouchEnd, {{8, QEventPoint::Released, {60, 50}}});

  Log heard;
  std::ranges::copy_if(log, std::back_inserter(heard), [](std::string const& line) {
    return line == "root press" || line == "root release";
  });
  EXPECT_THAT(heard, ElementsAre("root press", "root release"));
  EXPECT_EQ(root->lastPosition, PointT<float>(12, 10));
}

TEST_F(NativeTouch, BeginsAnewWithTheNextFinger) {
  Send(QEvent::TouchBegin, {{7, QEventPoint::Pressed, {10, 10}}});
  Send(QEvent::TouchEnd, {{7, QEventPoint::Released, {10, 10}}});
  log.clear();

  Send(QEvent::TouchBegin, {{9, QEventPoint::Pressed, {20, 20}}});

  EXPECT_EQ(log.back(), "root press");
  EXPECT_EQ(root->lastPosition, PointT<float>(20, 20));
}

// Counts how often its bytes are asked for.
class CountedData : public QMimeData {
 public:
  QStringList formats() const override { return {"application/x-keywords"}; }
  mutable int fetches = 0;

 protected:
  QVariant retrieveData(QString const&, QMetaType) const override {
    ++fetches;
    return QByteArray("abc");
  }
};

TEST(NativeDrag, FetchesItsDataOnce) {
  auto const window = App().CreateWindow({.size = {80, 60}});
  auto const root = MakeIntrusive<ui::UI_SubView>();
  window->GetTree().SetRoot(root);
  std::size_t bytes = 0;
  root->UI_InstallHandleDropFunction([&](PointT<float>, ui::OS_ReceiveData& dropped, int&) {
    bytes = dropped.GetData("application/x-keywords")->size();
    return true;
  });
  auto& widget = *static_cast<QWidget*>(window->GetNativeHandle());
  CountedData data;
  QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&widget, &enter);
  int const fetches = data.fetches;
  EXPECT_GT(fetches, 0);

  for (int x = 11; x < 15; ++x) {
    QDragMoveEvent move({x, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &move);
  }
  QDropEvent drop({15, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&widget, &drop);

  EXPECT_EQ(data.fetches, fetches);
  EXPECT_EQ(bytes, 3u);
}

TEST(NativeClipboard, CarriesKindsOfTextBesidesThePlainOne) {
  std::vector<std::byte> const html(4, std::byte{'x'});
  App().GetClipboard().SetData({.text = u"plain", .formats = {{"text/html", html}}});

  ui::TransferData const data = App().GetClipboard().GetData();

  EXPECT_EQ(data.text, u"plain");
  EXPECT_THAT(data.formats, ::testing::Contains(::testing::Pair("text/html", html)));
}

class NativeMenu : public ::testing::Test {
 protected:
  NativeMenu() {
    window->Show();
    App().ProcessEvents();
    menu->AddItem(1, u"Bars & beats");
    menu->AddSeparator();
    menu->AddItem(2, u"Frames");
    menu->CheckItem(2, true);
  }

  std::unique_ptr<platform::Window> window = App().CreateWindow({.size = {80, 60}});
  moxcore::utility::IntrusivePtr<ui::OS_Menu> menu = ui::CreateOSMenu();
};

TEST_F(NativeMenu, GivesTheIdOfTheItemThatTheUserChose) {
  QStringList texts;
  bool isChecked = false;
  App().PostDelayed(0, [&] {
    auto* const open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(open, nullptr);
    for (QAction const* const action : open->actions()) {
      texts.push_back(action->text());
    }
    isChecked = open->actions().last()->isChecked();
    open->setActiveAction(open->actions().last());
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(open, &enter);
  });

  EXPECT_EQ(menu->Popup({20, 20}), 2);

  EXPECT_EQ(texts, QStringList({"Bars && beats", "", "Frames"}));
  EXPECT_TRUE(isChecked);
}

TEST_F(NativeMenu, GivesNoneWhenItIsClosed) {
  App().PostDelayed(0, [] { QApplication::activePopupWidget()->close(); });

  EXPECT_EQ(menu->Popup({20, 20}), 0);
}

/// Where a menu stands while it is open.
QRect PlaceOfOpenMenu(ui::OS_Menu& menu, PointT<float> point) {
  QRect place;
  App().PostDelayed(0, [&] {
    place = QApplication::activePopupWidget()->geometry();
    QApplication::activePopupWidget()->close();
  });
  EXPECT_EQ(menu.Popup(point), 0);
  return place;
}

TEST_F(NativeMenu, OpensWithItsLeadingEdgeAtThePoint) {
  EXPECT_EQ(PlaceOfOpenMenu(*menu, {300, 100}).topLeft(), QPoint(300, 100));
  skins::SetRightToLeft(true);
  QRect const mirrored = PlaceOfOpenMenu(*menu, {300, 100});
  skins::SetRightToLeft(false);
  EXPECT_EQ(mirrored.x() + mirrored.width(), 300);
  EXPECT_EQ(mirrored.y(), 100);
}

TEST_F(NativeMenu, IsAsWideAsItsBoxAtLeast) {
  int const natural = PlaceOfOpenMenu(*menu, {300, 100}).width();
  menu->SetMinimumWidth(20);
  EXPECT_EQ(PlaceOfOpenMenu(*menu, {300, 100}).width(), natural);
  menu->SetMinimumWidth(260);
  EXPECT_EQ(PlaceOfOpenMenu(*menu, {300, 100}).width(), 260);
  skins::SetRightToLeft(true);
  QRect const mirrored = PlaceOfOpenMenu(*menu, {300, 100});
  skins::SetRightToLeft(false);
  EXPECT_EQ(mirrored.x(), 40);
}

TEST_F(NativeMenu, StaysOnTheScreen) {
  for (int item = 3; item < 30; ++item) {
    menu->AddItem(item, u"Item");
  }
  QRect const screen = QGuiApplication::primaryScreen()->availableGeometry();
  for (PointT<float> const corner :
       {PointT<float>(0, 0), PointT<float>(static_cast<float>(screen.right()), 0),
        PointT<float>(0, static_cast<float>(screen.bottom())),
        PointT<float>(static_cast<float>(screen.right()), static_cast<float>(screen.bottom()))}) {
    for (bool const rightToLeft : {false, true}) {
      skins::SetRightToLeft(rightToLeft);
      EXPECT_TRUE(screen.contains(PlaceOfOpenMenu(*menu, corner))) << corner.x << ", " << corner.y;
      skins::SetRightToLeft(false);
    }
  }
}

TEST(FileDialogs, AreAnsweredForATest) {
  testing::ModalAnswers answers;
  answers.Expect([](platform::ModalRequest& request) {
    EXPECT_EQ(request.kind, platform::ModalKind::kFileDialog);
    EXPECT_EQ(request.title, u"Open sound");
    request.files->push_back("/clips/a.wav");
    return 1;
  });

  EXPECT_THAT(App().GetFileDialogs().AskForFilesToOpen({.title = u"Open sound"}),
              ElementsAre("/clips/a.wav"));
  EXPECT_THAT(App().GetFileDialogs().AskForFilesToOpen({.title = u"Again"}), IsEmpty());
  EXPECT_EQ(App().GetFileDialogs().AskForFileToSave({}), "");
  EXPECT_EQ(App().GetFileDialogs().AskForDirectory({}), "");
  EXPECT_EQ(answers.GetRecords().size(), 4u);
}

TEST(ModalAnswers, GiveTheOneBeforeBackAtTheirEnd) {
  auto* const before = platform::GetModalResponder();
  {
    testing::ModalAnswers outer;
    {
      testing::ModalAnswers inner;
      EXPECT_EQ(platform::GetModalResponder(), &inner);
    }
    EXPECT_EQ(platform::GetModalResponder(), &outer);
  }

  EXPECT_EQ(platform::GetModalResponder(), before);
}

TEST(ModalAnswers, MayEndInAnyOrder) {
  auto* const before = platform::GetModalResponder();
  auto first = std::make_unique<testing::ModalAnswers>();
  auto second = std::make_unique<testing::ModalAnswers>();

  first.reset();
  EXPECT_EQ(platform::GetModalResponder(), second.get());
  second.reset();

  EXPECT_EQ(platform::GetModalResponder(), before);
}

TEST(ModalAnswers, ThatThrowLeaveTheTreesAsTheyWere) {
  testing::Stage stage;
  testing::ModalAnswers answers;
  answers.Expect([&](platform::ModalRequest&) -> int {
    EXPECT_FALSE(stage.GetTree().IsActive());
    throw std::runtime_error("responder");
  });
  platform::ModalRequest request;

  EXPECT_THROW(platform::AskModalResponder(request), std::runtime_error);

  EXPECT_TRUE(stage.GetTree().IsActive());
}

TEST(DragHands, MayEndInAnyOrder) {
  testing::Stage stage;
  auto* const before = platform::GetDragSource();
  auto first = std::make_unique<testing::DragHand>(stage);
  auto second = std::make_unique<testing::DragHand>(stage);

  first.reset();
  EXPECT_EQ(platform::GetDragSource(), second.get());
  second.reset();

  EXPECT_EQ(platform::GetDragSource(), before);
}

TEST(ModalAnswers, ThrowWhenABoxIsNotTheMenuThatWasExpected) {
  testing::ModalAnswers answers;
  answers.ExpectItem(u"Cut");
  platform::ModalRequest request;

  EXPECT_THROW(answers.Answer(request), std::logic_error);
}

TEST(ModalAnswers, AreGivenInOrderAndThenTheDefault) {
  testing::ModalAnswers answers;
  answers.Expect(16);
  answers.SetDefault(64);
  platform::ModalRequest request;

  EXPECT_EQ(answers.Answer(request), 16);
  EXPECT_TRUE(answers.AllUsed());
  EXPECT_EQ(answers.Answer(request), 64);
}

}  // namespace
}  // namespace moxui
