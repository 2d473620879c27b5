#include <moxcore/messaging/BindMessageFunction.h>
#include <moxui/controls/UI_ControlView.h>
#include <moxui/controls/UI_InteractiveControlView.h>
#include <moxui/testing/Stage.h>

#include <gmock/gmock.h>

namespace moxui {
namespace {

using controls::InteractiveChange;
using controls::UI_ControlChangedMessage;
using controls::UI_ControlView;
using controls::UI_HoverMessage;
using controls::UI_InteractiveControlChangedMessage;
using controls::UI_InteractiveControlView;
using moxcore::messaging::Message;
using moxcore::messaging::MessageFunction;
using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

controls::MessageHandler Handler(std::function<void(Message*)> function) {
  return std::make_shared<MessageFunction>(std::move(function));
}

class ControlView : public ::testing::Test {
 protected:
  ControlView() {
    control->UI_SetLocalRectF({0, 0, 50, 50});
    stage.GetRootView().ChildPushBack(control);
    inner->UI_SetLocalRectF({10, 10, 20, 20});
    control->ChildPushBack(inner);
  }

  testing::Stage stage;
  IntrusivePtr<UI_ControlView> control = MakeIntrusive<UI_ControlView>();
  IntrusivePtr<UI_ControlView> inner = MakeIntrusive<UI_ControlView>();
  std::vector<int> heard;
};

TEST_F(ControlView, TellsItsListenersInOrder) {
  control->NotifyWhenChanged(Handler([this](Message*) { heard.push_back(1); }));
  control->NotifyWhenChanged(Handler([this](Message* message) {
    auto* const changed = dynamic_cast<UI_ControlChangedMessage*>(message);
    ASSERT_NE(changed, nullptr);
    EXPECT_EQ(&changed->GetControl(), control.Get());
    EXPECT_FALSE(changed->IsInteractive());
    heard.push_back(2);
  }));

  control->SendValueChangedMessage();

  EXPECT_THAT(heard, ElementsAre(1, 2));
}

TEST_F(ControlView, LetsAListenerGo) {
  auto connection = control->NotifyWhenChanged(Handler([this](Message*) { heard.push_back(1); }));
  EXPECT_TRUE(connection.IsConnected());

  connection.Disconnect();
  control->SendValueChangedMessage();

  EXPECT_THAT(heard, IsEmpty());
  EXPECT_FALSE(connection.IsConnected());
}

TEST_F(ControlView, PassesABlockedListener) {
  auto connection = control->NotifyWhenChanged(Handler([this](Message*) { heard.push_back(1); }));

  EXPECT_FALSE(connection.Block());
  control->SendValueChangedMessage();
  EXPECT_TRUE(connection.Unblock());
  control->SendValueChangedMessage();

  EXPECT_THAT(heard, ElementsAre(1));
}

TEST_F(ControlView, ListenersMayComeAndGoWhileTheyAreCalled) {
  moxcore::messaging::Connection second;
  control->NotifyWhenChanged(Handler([&](Message*) {
    heard.push_back(1);
    second.Disconnect();
    control->NotifyWhenChanged(Handler([this](Message*) { heard.push_back(3); }));
  }));
  second = control->NotifyWhenChanged(Handler([this](Message*) { heard.push_back(2); }));

  control->SendValueChangedMessage();

  EXPECT_THAT(heard, ElementsAre(1));
}

TEST_F(ControlView, MayBeDeletedByItsListener) {
  control->NotifyWhenChanged(Handler([this](Message*) {
    heard.push_back(1);
    stage.GetRootView().DeleteChildren();
    control.Reset();
  }));
  control->NotifyWhenChanged(Handler([this](Message*) { heard.push_back(2); }));

  control->SendValueChangedMessage();

  EXPECT_THAT(heard, ElementsAre(1, 2));
}

class Panel : public ui::UI_SubView {
 public:
  void OnChanged(UI_ControlChangedMessage*) { ++changes; }
  int changes = 0;
};

TEST_F(ControlView, HoldsTheOwnerOfABoundHandlerWeakly) {
  auto panel = MakeIntrusive<Panel>();
  control->NotifyWhenChanged(moxcore::messaging::BindMessageFunction(panel.Get(), &Panel::OnChanged));
  control->SendValueChangedMessage();
  EXPECT_EQ(panel->changes, 1);
  EXPECT_EQ(panel->GetRefCount(), 1);

  panel.Reset();
  control->SendValueChangedMessage();
}

TEST_F(ControlView, IgnoresNoListener) {
  EXPECT_FALSE(control->NotifyWhenChanged(nullptr).IsConnected());
  control->SendValueChangedMessage();
}

TEST_F(ControlView, IsKnownUntilSaidOtherwiseAndRepaintsOnAChange) {
  stage.PaintFrame();
  EXPECT_FALSE(control->IsValueUnknown());

  control->SetValueUnknown();
  EXPECT_TRUE(control->IsValueUnknown());
  EXPECT_FALSE(stage.GetTree().GetDamage().empty());
  stage.PaintFrame();
  control->SetValueUnknown();
  EXPECT_TRUE(stage.GetTree().GetDamage().empty());
  control->SetValueKnown();
  EXPECT_FALSE(control->IsValueUnknown());
  EXPECT_FALSE(stage.GetTree().GetDamage().empty());
}

TEST_F(ControlView, SendsHoverOnEnterAndLeave) {
  std::vector<ui::PointerAction> actions;
  control->NotifyHover(Handler(
      [&](Message* message) { actions.push_back(dynamic_cast<UI_HoverMessage*>(message)->GetAction()); }));

  stage.Move({5, 5});
  EXPECT_EQ(actions.front(), ui::PointerAction::kMove);
  actions.clear();
  stage.Move({15, 15});
  EXPECT_THAT(actions, IsEmpty());
  stage.Move({200, 200});

  EXPECT_THAT(actions, ElementsAre(ui::PointerAction::kLeave));
}

TEST_F(ControlView, CountsRolloverForDescendantsOnlyWhenAsked) {
  stage.Move({15, 15});

  EXPECT_EQ(control->GetControlState(true).Bits(), controls::ControlState::kRollover);
  EXPECT_EQ(control->GetControlState(false).Bits(), 0u);
  EXPECT_EQ(inner->GetControlState(false).Bits(), controls::ControlState::kRollover);
}

TEST_F(ControlView, CountsFocusForDescendantsOnlyWhenAsked) {
  inner->SetWantsKeyboardFocus(true);
  stage.Tab();

  EXPECT_EQ(control->GetControlState(true).Bits(), controls::ControlState::kFocused);
  EXPECT_EQ(control->GetControlState(false).Bits(), 0u);
  EXPECT_EQ(inner->GetControlState(false).Bits(), controls::ControlState::kFocused);
}

TEST_F(ControlView, TellsPressedAndDisabled) {
  stage.PaintFrame();
  inner->SetDownState(true);
  EXPECT_FALSE(stage.GetTree().GetDamage().empty());
  stage.PaintFrame();
  inner->SetDownState(true);
  EXPECT_TRUE(stage.GetTree().GetDamage().empty());
  control->SetDisabled();

  EXPECT_EQ(inner->GetControlState(true).Bits(),
            controls::ControlState::kPressed | controls::ControlState::kDisabled);
  EXPECT_TRUE(inner->IsDisabled());
}

class InteractiveControlView : public ::testing::Test {
 protected:
  InteractiveControlView() {
    control->NotifyWhenChangedInteractively(Handler([this](Message* message) {
      auto* const phase = dynamic_cast<UI_InteractiveControlChangedMessage*>(message);
      EXPECT_EQ(&phase->GetControl(), control.Get());
      EXPECT_TRUE(phase->IsInteractive());
      cause = phase->GetCause();
      heard.push_back(static_cast<int>(phase->GetChangeMessage()));
    }));
    control->NotifyWhenChanged(Handler([this](Message* message) {
      EXPECT_FALSE(dynamic_cast<UI_ControlChangedMessage*>(message)->IsInteractive());
      heard.push_back(kSettled);
    }));
  }

  static constexpr int kSettled = 10;
  IntrusivePtr<UI_InteractiveControlView> control = MakeIntrusive<UI_InteractiveControlView>();
  std::vector<int> heard;
  Message* cause = nullptr;
};

TEST_F(InteractiveControlView, TellsAllPhasesAndOneSettledChangeAfterTheFinish) {
  control->BeginInteractiveChange(nullptr);
  EXPECT_TRUE(control->IsChangingInteractively());
  control->ContinueInteractiveChange(nullptr);
  control->ContinueInteractiveChange(nullptr);
  control->FinishInteractiveChange(nullptr);

  EXPECT_THAT(heard, ElementsAre(0, 1, 1, 2, kSettled));
  EXPECT_FALSE(control->IsChangingInteractively());
}

TEST_F(InteractiveControlView, SettlesAfterACancelToo) {
  control->BeginInteractiveChange(nullptr);
  control->CancelInteractiveChange(nullptr);

  EXPECT_THAT(heard, ElementsAre(0, 3, kSettled));
}

TEST_F(InteractiveControlView, MayFinishWithoutABegin) {
  control->FinishInteractiveChange(nullptr);

  EXPECT_THAT(heard, ElementsAre(2, kSettled));
}

TEST_F(InteractiveControlView, PassesTheCausingMessageAlong) {
  auto const knob = MakeIntrusive<UI_InteractiveControlView>();
  knob->NotifyWhenChangedInteractively(
      Handler([this](Message* message) { control->ContinueInteractiveChange(message); }));

  knob->ContinueInteractiveChange(nullptr);

  EXPECT_THAT(heard, ElementsAre(1));
  EXPECT_NE(cause, nullptr);
}

}  // namespace
}  // namespace moxui
