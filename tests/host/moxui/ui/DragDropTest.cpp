#include "LoggingNode.h"

#include <moxui/testing/ModalAnswers.h>
#include <moxui/testing/Stage.h>
#include <moxui/ui/DragData.h>
#include <moxui/ui/InputState.h>
#include <moxui/ui/OS_Menu.h>

#include <gmock/gmock.h>

namespace moxui {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ui::DropEffect::kCopy;
using ui::DropEffect::kLink;
using ui::DropEffect::kMove;
using ui::DropEffect::kNone;

class DragAndDrop : public ::testing::Test {
 protected:
  DragAndDrop() {
    target->UI_InstallHandleDragEnterFunction([this](PointT<float> point, ui::OS_ReceiveData&, int& effect) {
      log.emplace_back("enter");
      place = point;
      if (written >= 0) {
        effect = written;
      }
      return accepts;
    });
    target->UI_InstallHandleDragOverFunction([this](PointT<float>, ui::OS_ReceiveData&, int& effect) {
      log.emplace_back("over");
      if (written >= 0) {
        effect = written;
      }
      return accepts;
    });
    target->UI_InstallHandleDropFunction([this](PointT<float> point, ui::OS_ReceiveData& dropped, int&) {
      log.emplace_back("drop");
      place = point;
      files = dropped.GetFiles();
      return accepts;
    });
    target->UI_InstallHandleDragLeaveFunction([this](ui::OS_ReceiveData&) { log.emplace_back("leave"); });
  }

  Log log;
  testing::Stage stage;
  LoggingNodePtr target = AddNode(stage.GetRootView(), log, "target", {10, 20, 100, 100});
  LoggingNodePtr inner = AddNode(*target, log, "inner", {10, 10, 20, 20});
  ui::TransferData data{.files = {"/clips/a.mov"}};
  PointT<float> place;
  std::vector<moxcore::Utf8String> files;
  bool accepts = true;
  int written = -1;
};

TEST_F(DragAndDrop, EntersWithAPointInTheViewsCoordinates) {
  EXPECT_EQ(stage.DragOver({25, 35}, data, kCopy), kCopy);

  EXPECT_THAT(log, ElementsAre("enter"));
  EXPECT_EQ(place, PointT<float>(15, 15));
}

TEST_F(DragAndDrop, GoesOnWithOver) {
  stage.DragOver({15, 25}, data, kCopy);
  stage.DragOver({16, 25}, data, kCopy);

  EXPECT_THAT(log, ElementsAre("enter", "over"));
}

TEST_F(DragAndDrop, LetsTheViewWriteTheEffect) {
  written = kLink;

  EXPECT_EQ(stage.DragOver({15, 25}, data, kMove), kLink);
}

TEST_F(DragAndDrop, IsRefusedByFalse) {
  accepts = false;

  EXPECT_EQ(stage.DragOver({15, 25}, data, kCopy), kNone);
  EXPECT_EQ(stage.Drop({15, 25}, data, kCopy), kNone);
}

TEST_F(DragAndDrop, GivesNothingToAViewThatRefusesIt) {
  accepts = false;

  EXPECT_EQ(stage.Drop({15, 25}, data, kCopy), kNone);

  EXPECT_THAT(files, IsEmpty());
  EXPECT_EQ(log.back(), "leave");
  EXPECT_THAT(log, ::testing::Not(::testing::Contains("drop")));
}

TEST_F(DragAndDrop, DropsWithoutALeave) {
  EXPECT_EQ(stage.Drop({15, 25}, data, kCopy), kCopy);

  EXPECT_THAT(log, ElementsAre("enter", "drop"));
  EXPECT_THAT(files, ElementsAre("/clips/a.mov"));
  log.clear();
  stage.DragAway(data);
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(DragAndDrop, LeavesWhenItGoesElsewhereOrIsGivenUp) {
  stage.DragOver({15, 25}, data, kCopy);
  EXPECT_EQ(stage.DragOver({250, 250}, data, kCopy), kNone);
  EXPECT_THAT(log, ElementsAre("enter", "leave"));
  log.clear();

  stage.DragOver({15, 25}, data, kCopy);
  stage.DragAway(data);
  EXPECT_THAT(log, ElementsAre("enter", "leave"));
}

TEST_F(DragAndDrop, AsksWhetherItIsWantedFirst) {
  target->UI_InstallWantsDragDropEventsFunction([this] {
    log.emplace_back("wants");
    return false;
  });

  EXPECT_EQ(stage.DragOver({15, 25}, data, kCopy), kNone);

  EXPECT_THAT(log, ElementsAre("wants"));
}

TEST_F(DragAndDrop, SurvivesTheLossOfTheView) {
  stage.DragOver({15, 25}, data, kCopy);
  stage.GetRootView().DeleteChildren();
  target.Reset();
  inner.Reset();
  log.clear();

  EXPECT_EQ(stage.Drop({15, 25}, data, kCopy), kNone);
  EXPECT_THAT(log, IsEmpty());
}

TEST(TransferData, IsReadByFormat) {
  ui::OS_SendData sent{ui::OS_Event()};
  sent.SetText(u"clip");
  sent.SetData("application/x-clip", {std::byte{1}, std::byte{2}});

  ui::OS_ReceiveData const received(sent.GetData());

  EXPECT_TRUE(received.HasText());
  EXPECT_EQ(received.GetText(), u"clip");
  EXPECT_TRUE(received.HasFormat("application/x-clip"));
  EXPECT_EQ(received.GetData("application/x-clip")->size(), 2u);
  EXPECT_FALSE(received.HasFormat("application/x-other"));
}

TEST(Menu, GivesTheChosenItemsId) {
  testing::Stage stage;
  testing::ModalAnswers answers;
  answers.Expect(2);
  auto const menu = ui::CreateOSMenu();
  menu->AddItem(1, u"Timecode");
  menu->AddSeparator();
  menu->AddItem(2, u"Frames");
  menu->CheckItem(2, true);
  menu->EnableItem(1, false);

  EXPECT_EQ(stage.GetRoot()->UI_DoContextMenu(menu.Get(), stage.GetRoot(), {5, 5}), 2);

  ASSERT_EQ(answers.GetRecords().size(), 1u);
  auto const& items = answers.GetRecords()[0].menuItems;
  ASSERT_EQ(items.size(), 3u);
  EXPECT_FALSE(items[0].isEnabled);
  EXPECT_EQ(items[1].id, 0);
  EXPECT_TRUE(items[2].isChecked);
}

class OpenedMenu : public ::testing::Test {
 protected:
  OpenedMenu() {
    menu->AddItem(1, u"Drop-Frame");
    menu->AddItem(2, u"Non-Drop-Frame");
    menu->EnableItem(1, false);
  }
  int Open() { return stage.GetRoot()->UI_DoContextMenu(menu.Get(), stage.GetRoot(), {5, 6}); }

  Log log;
  testing::Stage stage;
  testing::ModalAnswers answers;
  moxcore::utility::IntrusivePtr<ui::OS_Menu> menu = ui::CreateOSMenu();
};

TEST_F(OpenedMenu, IsAnsweredByTheTextOfAnItem) {
  answers.ExpectItem(u"Non-Drop-Frame");
  answers.ExpectItem(u"Frames");
  EXPECT_EQ(Open(), 2);
  EXPECT_EQ(Open(), 0);
}

TEST_F(OpenedMenu, ChoosesNothingThatIsDisabledOrNotThere) {
  answers.Expect(1);
  answers.Expect(7);
  EXPECT_EQ(Open(), 0);
  EXPECT_EQ(Open(), 0);
}

TEST_F(OpenedMenu, OpensAtItsPointOnTheDesktop) {
  stage.SetOrigin({100, 50});
  Open();
  EXPECT_EQ(answers.GetRecords().at(0).position, PointT<float>(105, 56));
}

TEST_F(OpenedMenu, LeavesItsWindowActive) {
  auto const node = AddNode(stage.GetRootView(), log, "node", {0, 0, 50, 50});
  node->UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  node->UI_SetCapture();
  log.clear();
  Open();
  EXPECT_THAT(log, IsEmpty());
  EXPECT_NE(stage.GetTree().GetCapture(), nullptr);
}

TEST(Menu, AnEmptyOneChoosesNothingAtOnce) {
  testing::Stage stage;
  testing::ModalAnswers answers;
  auto const menu = ui::CreateOSMenu();
  menu->AddSeparator();

  EXPECT_EQ(stage.GetRoot()->UI_DoContextMenu(menu.Get(), stage.GetRoot(), {5, 5}), 0);
  EXPECT_THAT(answers.GetRecords(), IsEmpty());
}

TEST(InputState, TellsPointerKeysAndButtons) {
  testing::Stage stage;
  stage.SetOrigin({100, 100});
  stage.SetModKeys(ui::ModKey::kShift);

  stage.Press({5, 6});

  EXPECT_EQ(ui::GetGlobalMousePosition(), PointT<float>(105, 106));
  EXPECT_EQ(ui::GetCurrentModKeys(), ui::ModKeys(ui::ModKey::kShift));
  EXPECT_EQ(ui::GetCurrentMouseButtonState(), ui::MouseButtons(1));
  stage.Release({5, 6});
  EXPECT_TRUE(ui::GetCurrentMouseButtonState().IsEmpty());
}

TEST(InputState, TellsOfAPenThatIsDown) {
  testing::Stage stage;
  stage.SetPointerSubType(ui::PointerSubType::kPen);

  stage.Press({5, 6});
  stage.ForgetButtons();

  EXPECT_EQ(ui::GetCurrentMouseButtonState(), ui::MouseButtons(1));
}

TEST(InputState, PutsThePointerElsewhereWithAMove) {
  Log log;
  testing::Stage stage;
  stage.SetOrigin({100, 100});
  auto const node = AddNode(stage.GetRootView(), log, "node", {50, 50, 50, 50});

  ui::SetGlobalMousePosition(160, 160);

  EXPECT_EQ(ui::GetGlobalMousePosition(), PointT<float>(160, 160));
  EXPECT_TRUE(stage.GetTree().IsHovered(node.Get(), true));
}

class FakeDial : public ui::RadialDevice {
 public:
  void SetRotationFunction(std::function<void(long long)> function) override { rotate = std::move(function); }
  std::function<void(long long)> rotate;
};

TEST(InputState, KnowsTheRadialDeviceThatHasCome) {
  EXPECT_EQ(ui::GetRadialDevice(), nullptr);
  FakeDial dial;
  ui::SetRadialDevice(&dial);
  long long turned = 0;
  ui::GetRadialDevice()->SetRotationFunction([&](long long delta) { turned += delta; });

  dial.rotate(-3);

  EXPECT_EQ(turned, -3);
  ui::SetRadialDevice(nullptr);
}

}  // namespace
}  // namespace moxui
