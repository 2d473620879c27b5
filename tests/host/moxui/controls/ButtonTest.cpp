#include "ControlFixture.h"

#include <moxui/controls/UI_Button.h>
#include <moxui/controls/UI_OwnerDrawButton.h>
#include <moxui/controls/UI_PictureButton.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/ui/KeyboardEvent.h>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using testing::ChangeLog;
using ui::KeyboardCode;

constexpr RectT<float> kRect(20, 20, 80, 24);
constexpr PointT<float> kOutside(200, 200);

class Button : public testing::ControlTest<UI_TextButton> {};

TEST_F(Button, NotifiesOncePerClick) {
  UI_TextButton& button = Put(kRect, u"Go");
  ChangeLog const log(button);
  mStage.Click(Centre());
  EXPECT_EQ(log.changes, 1);
  EXPECT_FALSE(log.lastWasInteractive);
  mStage.DoubleClick(Centre());
  EXPECT_EQ(log.changes, 3);
}

TEST_F(Button, IsPressedWhileHeldAndOnlyOverItself) {
  UI_TextButton& button = Put(kRect);
  mStage.Press(Centre());
  EXPECT_TRUE(button.IsDown());
  mStage.Move(kOutside);
  EXPECT_FALSE(button.IsDown());
  mStage.Move(Centre());
  EXPECT_TRUE(button.IsDown());
  mStage.Release(Centre());
  EXPECT_FALSE(button.IsDown());
}

TEST_F(Button, APressThatEndsOutsideDoesNothing) {
  UI_TextButton& button = Put(kRect);
  ChangeLog const log(button);
  mStage.Press(Centre());
  mStage.Release(kOutside);
  EXPECT_EQ(log.changes, 0);
  EXPECT_FALSE(button.IsDown());
}

TEST_F(Button, AnswersOnlyTheLeftButton) {
  UI_TextButton& button = Put(kRect);
  ChangeLog const log(button);
  mStage.Click(Centre(), ui::MouseButton::kRight);
  EXPECT_EQ(log.changes, 0);
}

TEST_F(Button, IsNotPressedOnceTakingTheFocusHasDisabledOrRemovedIt) {
  UI_TextButton& button = Put(kRect);
  button.SetNotifiesOnMouseDown(true);
  ChangeLog const log(button);
  button.InstallFocusChangedFunction(
      [](ui::UI_Node* node, ui::FocusChangeReason) { node->UI_SetDisabled(); });
  mStage.Click(Centre());
  EXPECT_FALSE(button.IsDown());
  EXPECT_EQ(log.changes, 0);
  EXPECT_EQ(mStage.GetTree().GetCapture(), nullptr);
}

TEST_F(Button, IgnoresEverythingWhileDisabled) {
  UI_TextButton& button = Put(kRect);
  ChangeLog const log(button);
  button.SetDisabled(true);
  mStage.Click(Centre());
  button.PerformClick();
  EXPECT_EQ(log.changes, 0);
  EXPECT_FALSE(button.IsDown());
}

TEST_F(Button, SpaceAndEnterNotify) {
  UI_TextButton& button = Put(kRect);
  ChangeLog const log(button);
  button.UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  EXPECT_TRUE(mStage.Key(KeyboardCode::kSpace));
  EXPECT_EQ(log.changes, 1);
  EXPECT_TRUE(mStage.Key(KeyboardCode::kReturn));
  EXPECT_TRUE(mStage.Key(KeyboardCode::kEnter));
  EXPECT_EQ(log.changes, 3);
  EXPECT_FALSE(mStage.Key(KeyboardCode::kSpace, ui::ModKey::kCommand));
  EXPECT_EQ(log.changes, 3);
}

TEST_F(Button, SpaceIsGivenUpByEscape) {
  UI_TextButton& button = Put(kRect);
  ChangeLog const log(button);
  button.UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  auto& tree = mStage.GetTree();
  tree.HandleKey(ui::KeyboardEvent(ui::KeyAction::kKeyDown, KeyboardCode::kSpace));
  EXPECT_TRUE(button.IsDown());
  mStage.Key(KeyboardCode::kEscape);
  EXPECT_FALSE(button.IsDown());
  tree.HandleKey(ui::KeyboardEvent(ui::KeyAction::kKeyUp, KeyboardCode::kSpace));
  EXPECT_EQ(log.changes, 0);
}

TEST_F(Button, AHeldEnterNotifiesOnce) {
  UI_TextButton& button = Put(kRect);
  ChangeLog const log(button);
  button.UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  auto& tree = mStage.GetTree();
  tree.HandleKey(ui::KeyboardEvent(ui::KeyAction::kKeyDown, KeyboardCode::kReturn));
  tree.HandleKey(ui::KeyboardEvent(ui::KeyAction::kKeyDown, KeyboardCode::kReturn, {}, {}, true));
  EXPECT_EQ(log.changes, 1);
}

TEST_F(Button, AClickTakesTheFocusWithoutARing) {
  UI_TextButton& button = Put(kRect);
  platform::Pixels const before = mStage.TakePicture();
  mStage.Click(Centre());
  mStage.Leave();
  EXPECT_TRUE(button.UI_HasKeyboardFocus());
  EXPECT_EQ(mStage.TakePicture(), before);
  mStage.Key(KeyboardCode::kSpace);
  EXPECT_NE(mStage.TakePicture(), before);
}

TEST_F(Button, AClickLeavesTheFocusAloneWhenTold) {
  UI_TextButton& button = Put(kRect);
  button.SetChangeFocusOnClick(false);
  mStage.Click(Centre());
  EXPECT_FALSE(button.UI_HasKeyboardFocus());
}

TEST_F(Button, PlainButtonsKeepTheirValue) {
  UI_TextButton& button = Put(kRect);
  mStage.Click(Centre());
  EXPECT_FALSE(button.GetValue());
  button.SetValue(true);
  mStage.Click(Centre());
  EXPECT_TRUE(button.GetValue());
}

TEST_F(Button, TogglesTurnBeforeTheyNotify) {
  UI_TextButton& button = Put(kRect);
  button.SetButtonStyle(ButtonStyle::kToggle);
  std::vector<bool> heard;
  button.NotifyWhenChanged(ChangeLog::Listener([&](auto&) { heard.push_back(button.GetValue()); }));
  mStage.Click(Centre());
  mStage.Click(Centre());
  EXPECT_EQ(heard, (std::vector{true, false}));
}

TEST_F(Button, OfTheButtonsThatEndADialogTheDefaultOneIsThePrimaryOne) {
  UI_TextButton& button = Put({0, 0, 80, 24}, u"OK");
  EXPECT_EQ(button.GetDrawParameters().Components().GetVariant(), ButtonVariant::kPlain);
  button.SetCommitAppearance(true);
  EXPECT_EQ(button.GetDrawParameters().Components().GetVariant(), ButtonVariant::kSecondary);
  EXPECT_FALSE(button.GetDrawParameters().HasSelectedAppearance());
  button.SetDefaultAppearance(true);
  EXPECT_EQ(button.GetDrawParameters().Components().GetVariant(), ButtonVariant::kPrimary);
}

TEST_F(Button, SpringLoadedOnesNeverStayOn) {
  UI_TextButton& button = Put(kRect);
  button.SetButtonStyle(ButtonStyle::kToggle);
  button.SetSpringLoaded(true);
  mStage.Click(Centre());
  EXPECT_FALSE(button.GetValue());
}

TEST_F(Button, SetValueIsSilentAndMakesKnown) {
  UI_TextButton& button = Put(kRect);
  ChangeLog const log(button);
  button.SetValueUnknown();
  button.SetValue(true);
  EXPECT_FALSE(button.IsValueUnknown());
  EXPECT_TRUE(button.GetValue());
  EXPECT_EQ(log.changes, 0);
}

TEST_F(Button, AnUnknownToggleTurnsOn) {
  UI_TextButton& button = Put(kRect);
  button.SetButtonStyle(ButtonStyle::kToggle);
  button.SetValue(true);
  button.SetValueUnknown();
  mStage.Click(Centre());
  EXPECT_TRUE(button.GetValue());
  EXPECT_FALSE(button.IsValueUnknown());
}

TEST_F(Button, NotifiesAtThePressWhenTold) {
  UI_TextButton& button = Put(kRect);
  ChangeLog const log(button);
  button.SetNotifiesOnMouseDown(true);
  mStage.Press(Centre());
  EXPECT_EQ(log.changes, 1);
  mStage.Release(Centre());
  EXPECT_EQ(log.changes, 1);
}

TEST_F(Button, MayBeDeletedByItsListener) {
  UI_TextButton& button = Put(kRect);
  int calls = 0;
  button.NotifyWhenChanged(ChangeLog::Listener([&](auto&) {
    ++calls;
    mControl.Reset();
    mStage.GetRootView().DeleteChildren();
  }));
  mStage.Click({60, 32});
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(mStage.GetRootView().ChildSize(), 0u);
}

TEST_F(Button, ALostCaptureEndsThePressSilently) {
  UI_TextButton& button = Put(kRect);
  ChangeLog const log(button);
  mStage.Press(Centre());
  mStage.Deactivate();
  EXPECT_FALSE(button.IsDown());
  mStage.Activate();
  mStage.Release(Centre());
  EXPECT_EQ(log.changes, 0);
}

TEST_F(Button, VisualSettersAskForAFrameOnAChangeOnly) {
  UI_TextButton& button = Put(kRect);
  auto const asksForFrame = [&](auto const& set) {
    mStage.PaintFrame();
    set();
    return mStage.GetTree().NeedsFrame();
  };
  EXPECT_TRUE(asksForFrame([&] { button.SetValue(true); }));
  EXPECT_FALSE(asksForFrame([&] { button.SetValue(true); }));
  EXPECT_TRUE(asksForFrame([&] { button.SetDefaultAppearance(true); }));
  EXPECT_FALSE(asksForFrame([&] { button.SetDefaultAppearance(true); }));
  EXPECT_TRUE(asksForFrame([&] { button.SetDisplayBorderAlways(false); }));
  EXPECT_FALSE(asksForFrame([&] { button.SetDisplayBorderAlways(false); }));
  EXPECT_TRUE(asksForFrame([&] { button.SetDisplayContainerAlways(false); }));
  EXPECT_TRUE(asksForFrame([&] { button.SetTextLabel(u"New"); }));
  EXPECT_FALSE(asksForFrame([&] { button.SetTextLabel(u"New"); }));
}

TEST_F(Button, StrokeIsTheFirstSizeWithTheDefaultAppearance) {
  UI_TextButton& button = Put(kRect);
  EXPECT_EQ(button.GetStrokeSizes(), std::pair(2.0f, 1.0f));
  EXPECT_FLOAT_EQ(button.GetDrawParameters().GetStrokeSize(), 1.0f);
  button.SetDefaultAppearance(true);
  EXPECT_FLOAT_EQ(button.GetDrawParameters().GetStrokeSize(), 2.0f);
  EXPECT_TRUE(button.GetDrawParameters().HasSelectedAppearance());
}

TEST_F(Button, ContentMovesByTheDownOffsetOnly) {
  UI_TextButton& button = Put(kRect);
  EXPECT_EQ(button.GetDrawParameters().GetOffset(), PointT<float>());
  button.SetContentOffset({0, -1});
  mStage.Press(Centre());
  EXPECT_EQ(button.GetDrawParameters().GetOffset(), PointT<float>(0, -1));
  button.SetDownOffset({1, 1});
  EXPECT_EQ(button.GetDrawParameters().GetOffset(), PointT<float>(1, 0));
}

TEST_F(Button, TakesTheHeightOfTheRunningLook) {
  UI_TextButton& button = Put(kRect, u"Render");
  EXPECT_FLOAT_EQ(button.UI_GetRecommendedSizeFromDefaultSupplier().height, 24.0f);
  testing::RunningLook const classic(false);
  EXPECT_FLOAT_EQ(button.UI_GetRecommendedSizeFromDefaultSupplier().height, 20.0f);
  EXPECT_GT(button.UI_GetRecommendedSizeFromDefaultSupplier().width, 24.0f);
}

TEST_F(Button, TellsAssistiveSoftwareWhatItIs) {
  UI_TextButton& button = Put(kRect, u"Render");
  EXPECT_EQ(button.UI_GetAccessibleRole(), ui::AccessibleRole::kButton);
  EXPECT_EQ(button.UI_GetAccessibleName(), "Render");
  EXPECT_EQ(button.UI_GetAccessibleValue(), "");
  button.SetButtonStyle(ButtonStyle::kToggle);
  EXPECT_EQ(button.UI_GetAccessibleValue(), "0");
}

TEST_F(Button, IsReachedByTab) {
  UI_TextButton& first = Put(kRect);
  auto const second = MakeIntrusive<UI_TextButton>(u"B");
  second->UI_SetLocalRectF({20, 60, 80, 24});
  mStage.GetRootView().ChildPushBack(second);
  mStage.Tab();
  EXPECT_TRUE(first.UI_HasKeyboardFocus());
  mStage.Tab();
  EXPECT_TRUE(second->UI_HasKeyboardFocus());
}

TEST(PictureButton, HasNoGroundOfItsOwn) {
  auto const button = MakeIntrusive<UI_PictureButton>();
  EXPECT_FALSE(button->ShouldDisplayBorderAlways());
  EXPECT_FALSE(button->ShouldDisplayContainerAlways());
}

TEST(PictureButton, IsNamedByItsToolTip) {
  auto const button = MakeIntrusive<UI_PictureButton>();
  button->UI_SetToolTip("Delete preset", 200);
  EXPECT_EQ(button->UI_GetAccessibleName(), "Delete preset");
}

class OwnerDrawButton : public testing::ControlTest<UI_OwnerDrawButton> {};

TEST_F(OwnerDrawButton, IsDrawnByItsOwnerInPlaceOfItsOwnDrawing) {
  UI_OwnerDrawButton& button = Put(kRect);
  platform::Pixels const own = mStage.TakePicture();
  UI_OwnerDrawButton* drawn = nullptr;
  button.SetOwnerDrawFunction([&](UI_OwnerDrawButton* asked, scriber::Scriber*) { drawn = asked; });
  EXPECT_NE(mStage.TakePicture(), own);
  EXPECT_EQ(drawn, &button);
  button.SetOwnerDrawFunction({});
  EXPECT_EQ(mStage.TakePicture(), own);
}

TEST_F(OwnerDrawButton, MayGetAnotherFunctionWhileItIsDrawn) {
  UI_OwnerDrawButton& button = Put(kRect);
  auto held = std::make_shared<int>(1);
  std::weak_ptr<int> const watch = held;
  bool wasKept = false;
  button.SetOwnerDrawFunction([held, &watch, &wasKept](UI_OwnerDrawButton* asked, scriber::Scriber*) {
    auto const& myWatch = watch;
    bool& kept = wasKept;
    asked->SetOwnerDrawFunction({});
    kept = !myWatch.expired();
  });
  held.reset();
  mStage.PaintFrame();
  EXPECT_TRUE(wasKept);
  EXPECT_TRUE(watch.expired());
}

TEST_F(OwnerDrawButton, DrawsAFaceInsteadOfTheContainer) {
  class Face : public DrawButtonFace {
   public:
    Face(bool border, RectT<float>& seen) : DrawButtonFace(border), mSeen(seen) {}
    void Draw(scriber::Scriber*, RectT<float> const& rect) const override { mSeen = rect; }

   private:
    RectT<float>& mSeen;
  };
  UI_OwnerDrawButton& button = Put(kRect);
  mStage.TakePicture();
  RectT<float> seen;
  button.SetOwnerDrawFunction([&](UI_OwnerDrawButton* asked, scriber::Scriber* scriber) {
    DrawButtonParameters parameters;
    parameters.SetDefaults();
    parameters.SetControlState(asked->GetControlState(true));
    parameters.SetDrawContainer(false);
    parameters.SetSelectedAppearance(asked->GetDefaultAppearance());
    parameters.SetRotatedGradient(false);
    parameters.SetCornerRadius(0);
    parameters.SetRectF(asked->UI_GetLocalRectF(false));
    parameters.SetOffset({2, 3});
    parameters.SetDrawButtonFace(MakeIntrusive<Face>(asked->ShouldDisplayBorderAlways(), seen));
    UI_Button::Draw(scriber, parameters);
  });
  mStage.TakePicture();
  EXPECT_EQ(seen, RectT<float>(2, 3, 80, 24));
}

}  // namespace
}  // namespace moxui::controls
