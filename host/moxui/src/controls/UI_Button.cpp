#include "../skins/BoxPainting.h"
#include "../skins/ButtonPainting.h"
#include "ControlPainting.h"
#include "PressCapture.h"

#include <moxui/controls/UI_Button.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/Design.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/MouseEvent.h>

namespace moxui::controls {
namespace {

constexpr float kUnknownDashWidth = 8.0f;
constexpr float kUnknownDashInset = 4.0f;

bool IsPlainKey(ui::KeyboardEvent const& event, ui::KeyboardCode code) {
  return event.CompareShortcut(code, ui::ModKey::kNone);
}

}  // namespace

UI_Button::UI_Button() {
  SetWantsKeyboardFocus(true);
}

UI_Button::~UI_Button() = default;

void UI_Button::SetValue(bool on) {
  SetValueKnown();
  if (StoreVisual(mValue, on)) {
    UI_TellAccessibleChange(ui::AccessibleChange::kValue);
    UI_TellAccessibleChange(ui::AccessibleChange::kState);
  }
}

void UI_Button::StoreLabel(moxcore::Utf16String& field, moxcore::Utf16String const& text) {
  if (StoreVisual(field, text)) {
    UI_TellAccessibleChange(ui::AccessibleChange::kName);
  }
}

void UI_Button::PerformClick() {
  if (!IsDisabled()) {
    moxcore::utility::IntrusivePtr<UI_Button> const self(this);
    Clicked();
  }
}

DrawButtonParameters UI_Button::GetDrawParameters() const {
  skins::SkinSet const& skinSet = UI_GetCurrentSkinSet();
  Flags<unsigned int> const state = GetControlState(true);
  DrawButtonParameters parameters(mComponents, state);
  parameters.SetTheme(this);
  parameters.SetSkinSet(skinSet);
  parameters.SetRectF(UI_GetLocalRectF(ui::RectSpace::kOwn));
  parameters.SetCornerRadius(mCornerRadius.value_or(skinSet.GetNumber(skins::SkinNumber::kCornerRadius)));
  bool const isOn = mValue && !IsValueUnknown();
  parameters.SetSelectedAppearance(isOn || mIsDefault || mComponents.IsSelected());
  if ((mIsDefault || mCommits) && mComponents.GetVariant() == ButtonVariant::kPlain) {
    parameters.Components().SetVariant(mIsDefault ? ButtonVariant::kPrimary : ButtonVariant::kSecondary);
  }
  skins::Interaction const interaction = skins::GetInteraction(state);
  bool const isActive =
      interaction == skins::Interaction::kHover || interaction == skins::Interaction::kPressed;
  parameters.SetDrawContainer(mDisplayContainerAlways || isActive || isOn);
  bool const showsFrame = !mDisplayBorderNever && (mDisplayBorderAlways || isActive || isOn);
  float const stroke = mIsDefault ? mStrokeSizes.first : mStrokeSizes.second;
  parameters.SetStrokeSize(showsFrame ? stroke : 0.0f);
  parameters.SetDisplayBorderAlways(mDisplayBorderAlways);
  parameters.SetOffset(IsDown() ? mContentOffset + mDownOffset : mContentOffset);
  parameters.SetDrawFocus(ShowsFocusRing());
  return parameters;
}

void UI_Button::Draw(scriber::Scriber* scriber, DrawButtonParameters const& parameters) {
  skins::PaintButton(scriber, parameters);
}

void UI_Button::UI_Draw(scriber::Scriber* scriber) const {
  DrawButtonParameters const parameters = GetDrawParameters();
  Draw(scriber, parameters);
  DrawContent(scriber, parameters.GetRectF().Offset(parameters.GetOffset()), parameters);
  if (IsValueUnknown()) {
    RectT<float> const& rect = parameters.GetRectF();
    RectT<float> const dash(rect.Center().x - kUnknownDashWidth / 2.0f, rect.Bottom() - kUnknownDashInset,
                            kUnknownDashWidth, 2.0f);
    scriber->GetSurface()->FillRect(
        dash, skins::design::GetButtonColor(parameters, skins::design::ButtonProperty::kLabel));
  }
  UI_InteractiveControlView::UI_Draw(scriber);
}

PaddingT<float> UI_Button::UI_GetDrawOverhang() const {
  float const reach = skins::kFocusRingReach;
  return {reach, reach, reach, reach};
}

ExtentT<float> UI_Button::UI_GetRecommendedSize(scriber::Scriber*) const {
  float const height = GetControlHeight(UI_GetCurrentSkinSet(), skins::SkinNumber::kControlHeight,
                                        mComponents.GetComponentSize());
  return {height, height};
}

bool UI_Button::UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) {
  if (UI_InteractiveControlView::UI_DoMouseEvent(node, event)) {
    return true;
  }
  if (!event.IsAction(ui::PointerAction::kPress) || !event.IsButton(ui::MouseButton::kLeft) || IsDisabled()) {
    return false;
  }
  BeginPress(event);
  return true;
}

void UI_Button::TakeFocusForPress() {
  if (mChangeFocusOnClick && UI_WantsKeyboardFocus()) {
    UI_GainKeyboardFocus(ui::FocusChangeReason::kPointer);
  }
}

void UI_Button::BeginPress(ui::MouseEvent const& event) {
  moxcore::utility::IntrusivePtr<UI_Button> const self(this);
  TakeFocusForPress();
  if (!PressCapture::CanStart(*this)) {
    return;
  }
  SetDownState(true);
  auto const capture = PressCapture::Start(
      this, event, [this](ui::MouseEvent const& next) { ContinuePress(next); }, [this] { CancelPress(); });
  if (capture && mNotifiesOnMouseDown) {
    Clicked();
  }
}

void UI_Button::ContinuePress(ui::MouseEvent const& event) {
  bool const isInside = UI_ContainsPoint(event.GetPosition());
  if (!event.IsAction(ui::PointerAction::kRelease)) {
    SetDownState(isInside);
    return;
  }
  SetDownState(false);
  if (isInside && !mNotifiesOnMouseDown && !IsDisabled()) {
    Clicked();
  }
}

void UI_Button::CancelPress() {
  SetDownState(false);
}

void UI_Button::Clicked() {
  if (mStyle == ButtonStyle::kToggle && !mSpringLoaded) {
    SetValue(IsValueUnknown() || !mValue);
  }
  SendValueChangedMessage();
}

bool UI_Button::UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) {
  if (IsDisabled()) {
    return UI_InteractiveControlView::UI_DoKeyboardEvent(node, event);
  }
  bool const isDown = event.IsAction(ui::KeyAction::kKeyDown);
  bool const isSpace = IsPlainKey(event, ui::KeyboardCode::kSpace);
  bool const isReturn =
      IsPlainKey(event, ui::KeyboardCode::kReturn) || IsPlainKey(event, ui::KeyboardCode::kEnter);
  if (isDown && mFocusVisibility.KeyUsed()) {
    UI_Invalidate();
  }
  if (isDown && isSpace) {
    mSpaceIsDown = true;
    SetDownState(true);
    return true;
  }
  if (!isDown && isSpace && mSpaceIsDown) {
    mSpaceIsDown = false;
    SetDownState(false);
    PerformClick();
    return true;
  }
  if (isDown && isReturn) {
    if (!event.IsRepeat()) {
      PerformClick();
    }
    return true;
  }
  if (isDown && mSpaceIsDown && IsPlainKey(event, ui::KeyboardCode::kEscape)) {
    mSpaceIsDown = false;
    SetDownState(false);
    return true;
  }
  return UI_InteractiveControlView::UI_DoKeyboardEvent(node, event);
}

void UI_Button::UI_FocusChanged(ui::FocusChangeReason reason) {
  UI_InteractiveControlView::UI_FocusChanged(reason);
  mFocusVisibility.FocusChanged(reason);
  if (mSpaceIsDown && !UI_HasKeyboardFocus()) {
    mSpaceIsDown = false;
    SetDownState(false);
  }
}

bool UI_Button::UI_InvalidateOnMouseOverChange(bool) {
  return !IsDisabled();
}

ui::AccessibleRole UI_Button::UI_GetAccessibleRole() const {
  return ui::AccessibleRole::kButton;
}

moxcore::Utf8String UI_Button::UI_GetAccessibleValue() const {
  if (mStyle != ButtonStyle::kToggle || IsValueUnknown()) {
    return {};
  }
  return mValue ? "1" : "0";
}

ui::AccessibleState UI_Button::UI_GetAccessibleState() const {
  ui::AccessibleState state = UI_InteractiveControlView::UI_GetAccessibleState();
  state.isCheckable = mStyle == ButtonStyle::kToggle;
  state.isMixed = state.isCheckable && IsValueUnknown();
  state.isChecked = state.isCheckable && mValue && !state.isMixed;
  state.isDefault = mIsDefault;
  return state;
}

bool UI_Button::UI_DoAccessibleAction() {
  if (IsDisabled()) {
    return false;
  }
  PerformClick();
  return true;
}

void UI_Button::DrawContent(scriber::Scriber*, RectT<float> const&, DrawButtonParameters const&) const {}

bool UI_Button::ShowsFocusRing() const {
  return !mSuppressFocusDrawing && mFocusVisibility.ShowsRing() && UI_HasKeyboardFocus();
}

}  // namespace moxui::controls
