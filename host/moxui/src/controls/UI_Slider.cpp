#include "../skins/BoxPainting.h"
#include "../skins/SliderPainting.h"
#include "ControlPainting.h"
#include "PressCapture.h"
#include "SliderLayout.h"

#include <moxui/controls/UI_Slider.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/MouseEvent.h>
#include <moxui/ui/UI_NodeManager.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace moxui::controls {

using moxcore::utility::IntrusivePtr;

template <typename T>
UI_SliderT<T>::UI_SliderT(SliderStyle style, Orientation orientation)
    : mStyle(style), mOrientation(orientation) {
  SetWantsKeyboardFocus(true);
}

template <typename T>
UI_SliderT<T>::~UI_SliderT() = default;

template <typename T>
void UI_SliderT<T>::SetLimits(T minimum, T maximum) {
  if (!std::isfinite(minimum) || !std::isfinite(maximum)) {
    return;
  }
  mMinimum = minimum;
  mMaximum = std::max(minimum, maximum);
  SetValueRange(mLow, mHigh);
  // A value that stays has another place between other ends.
  LayoutChanged();
  UI_TellAccessibleChange(ui::AccessibleChange::kValue);
}

template <typename T>
void UI_SliderT<T>::SetValueRange(T low, T high) {
  if (!std::isfinite(low) || !std::isfinite(high)) {
    return;
  }
  bool const wasUnknown = IsValueUnknown();
  SetValueKnown();
  T const newLow = std::clamp(low, mMinimum, mMaximum);
  T const newHigh = std::clamp(high, newLow, mMaximum);
  bool const isOther = newLow != mLow || newHigh != mHigh;
  if (isOther) {
    mLow = newLow;
    mHigh = newHigh;
    PlaceThumb();
    UI_Invalidate();
    UI_TellAccessibleChange(ui::AccessibleChange::kValue);
  }
  if (isOther || wasUnknown) {
    ValueStored();
  }
}

template <typename T>
void UI_SliderT<T>::SetIsCustomThumb(bool isCustom) {
  mIsCustomThumb = isCustom;
  LayoutChanged();
}

template <typename T>
void UI_SliderT<T>::InstallSliderThumb(IntrusivePtr<UI_Button> thumb) {
  if (mThumb) {
    this->ChildRemove(mThumb.Get());
  }
  mThumb = std::move(thumb);
  if (mThumb) {
    mThumb->SetWantsKeyboardFocus(false);
    this->ChildPushBack(mThumb);
    mThumb->UI_Show(true);
    PlaceThumb();
  }
}

template <typename T>
void UI_SliderT<T>::SetThumbSize(float width, float height) {
  mThumbSize = {width, height};
  LayoutChanged();
}

template <typename T>
ExtentT<float> UI_SliderT<T>::GetThumbSize() const {
  if (!mThumbSize.IsEmpty()) {
    return mThumbSize;
  }
  float const size = UI_GetCurrentSkinSet().GetNumber(skins::SkinNumber::kSliderThumbSize);
  return {size, size};
}

template <typename T>
void UI_SliderT<T>::SetDrawTrackUseFullWidth(bool fullWidth) {
  mTrackUsesFullWidth = fullWidth;
  LayoutChanged();
}

template <typename T>
bool UI_SliderT<T>::IsSliderThumbCaptured(ui::InputCapture const* capture) const {
  return capture != nullptr && capture == mCapture.Get() && capture->IsRunning();
}

template <typename T>
typename UI_SliderT<T>::DrawParameters UI_SliderT<T>::GetDrawParameters() const {
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  SliderLayout const layout = GetSliderLayout({.rect = rect,
                                               .thumbSize = GetThumbSize(),
                                               .isVertical = mOrientation == Orientation::kVertical,
                                               .usesFullWidth = mTrackUsesFullWidth,
                                               .thumbIsAtBottom = mIsCustomThumb},
                                              Fraction());
  return DrawParameters(rect, layout.track, layout.thumb);
}

template <typename T>
double UI_SliderT<T>::Fraction() const {
  return FractionOf(mLow);
}

template <typename T>
double UI_SliderT<T>::FractionOf(T value) const {
  auto const span = static_cast<double>(mMaximum) - static_cast<double>(mMinimum);
  return span > 0.0 ? (static_cast<double>(value) - static_cast<double>(mMinimum)) / span : 0.0;
}

template <typename T>
T UI_SliderT<T>::ValueAt(double fraction) const {
  auto const span = static_cast<double>(mMaximum) - static_cast<double>(mMinimum);
  return static_cast<T>(static_cast<double>(mMinimum) + std::clamp(fraction, 0.0, 1.0) * span);
}

template <typename T>
void UI_SliderT<T>::PlaceThumb() {
  if (mThumb) {
    mThumb->UI_SetLocalRectF(GetDrawParameters().GetThumbRect());
  }
}

template <typename T>
void UI_SliderT<T>::LayoutChanged() {
  PlaceThumb();
  UI_Invalidate();
}

template <typename T>
void UI_SliderT<T>::UI_Draw(scriber::Scriber* scriber) const {
  DrawParameters const parameters = GetDrawParameters();
  skins::ControlLook const look = GetControlLook(*this);
  if (mStyle != SliderStyle::kBare && !parameters.GetRectF().IsEmpty()) {
    bool const isVertical = mOrientation == Orientation::kVertical;
    RectT<float> const& track = parameters.GetTrackRect();
    // A span is filled from its low to its high end, a single value from the beginning.
    double const from = mHigh > mLow ? Fraction() : 0.0;
    skins::SliderGeometry const geometry{.track = track,
                                         .filled = GetPartOfTrack(track, isVertical, from, FractionOf(mHigh)),
                                         .thumb = parameters.GetThumbRect(),
                                         .isVertical = isVertical};
    if (mStyle == SliderStyle::kTicked) {
      skins::PaintSliderTicks(scriber, geometry, look);
    }
    skins::PaintSliderTrack(scriber, geometry, look);
    if (!mIsCustomThumb && (!mThumb || mThumb->UI_IsShown())) {
      skins::PaintSliderThumb(scriber, geometry, look);
    }
  }
  if (mFocusVisibility.ShowsRing() && UI_HasKeyboardFocus()) {
    // Around the thumb where the slider draws one, else around all of it.
    bool const hasThumb = mStyle != SliderStyle::kBare && !mIsCustomThumb;
    RectT<float> const& ringed = hasThumb ? parameters.GetThumbRect() : parameters.GetRectF();
    bool const isRound = hasThumb && look.IsV7();
    float const radius = isRound ? ringed.width / 2.0f : look.Number(skins::SkinNumber::kCornerRadius);
    skins::DrawFocusRing(scriber, ringed, radius, look.Color(ui::ThemeColorID::kFocus));
  }
  UI_InteractiveControlView::UI_Draw(scriber);
}

template <typename T>
PaddingT<float> UI_SliderT<T>::UI_GetDrawOverhang() const {
  float const reach = skins::kFocusRingReach;
  return {reach, reach, reach, reach};
}

template <typename T>
ExtentT<float> UI_SliderT<T>::UI_GetRecommendedSize(scriber::Scriber*) const {
  constexpr float kLength = 120.0f;
  float const across = UI_GetCurrentSkinSet().GetNumber(skins::SkinNumber::kControlHeight);
  return mOrientation == Orientation::kVertical ? ExtentT<float>(across, kLength)
                                                : ExtentT<float>(kLength, across);
}

template <typename T>
void UI_SliderT<T>::UI_SizeChanged(RectT<float> const& rect) {
  UI_InteractiveControlView::UI_SizeChanged(rect);
  PlaceThumb();
}

template <typename T>
void UI_SliderT<T>::UI_SkinSetUpdated() {
  UI_InteractiveControlView::UI_SkinSetUpdated();
  PlaceThumb();
}

template <typename T>
bool UI_SliderT<T>::UI_InvalidateOnMouseOverChange(bool) {
  return !IsDisabled();
}

template <typename T>
void UI_SliderT<T>::UI_FocusChanged(ui::FocusChangeReason reason) {
  UI_InteractiveControlView::UI_FocusChanged(reason);
  mFocusVisibility.FocusChanged(reason);
}

template <typename T>
ui::AccessibleRole UI_SliderT<T>::UI_GetAccessibleRole() const {
  return ui::AccessibleRole::kSlider;
}

template <typename T>
moxcore::Utf8String UI_SliderT<T>::UI_GetAccessibleValue() const {
  if (IsValueUnknown()) {
    return {};
  }
  char digits[64];
  auto const end = std::to_chars(digits, digits + sizeof digits, mLow).ptr;
  return {digits, end};
}

template <typename T>
std::optional<ui::AccessibleRange> UI_SliderT<T>::UI_GetAccessibleRange() const {
  return ui::AccessibleRange{.minimum = static_cast<double>(mMinimum),
                             .maximum = static_cast<double>(mMaximum),
                             .value = static_cast<double>(mLow),
                             .step = PlainStep()};
}

template <typename T>
bool UI_SliderT<T>::UI_SetAccessibleValue(double value) {
  // A drag goes on undisturbed.
  if (IsDisabled() || mCapture || std::isnan(value)) {
    return false;
  }
  ChangeAtOnce(
      static_cast<T>(std::clamp(value, static_cast<double>(mMinimum), static_cast<double>(mMaximum))));
  return true;
}

// Input

template <typename T>
bool UI_SliderT<T>::UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) {
  if (UI_InteractiveControlView::UI_DoMouseEvent(node, event)) {
    return true;
  }
  bool const isMine = node == this || (mThumb && node == mThumb.Get());
  if (!isMine || IsDisabled() || !event.IsAction(ui::PointerAction::kPress) ||
      !event.IsButton(ui::MouseButton::kLeft)) {
    return false;
  }
  PointT<float> point = event.GetPosition();
  if (node != this) {
    point = point + node->UI_GetLocalRectF(ui::RectSpace::kParent).TopLeft();
  }
  IntrusivePtr<UI_SliderT> const self(this);
  if (UI_WantsKeyboardFocus()) {
    UI_GainKeyboardFocus(ui::FocusChangeReason::kPointer);
  }
  if (PressCapture::CanStart(*this)) {
    BeginDrag(point, event);
  }
  return true;
}

template <typename T>
void UI_SliderT<T>::BeginDrag(PointT<float> point, ui::MouseEvent const& event) {
  mValueAtPress = {mLow, mHigh};
  mWasUnknownAtPress = IsValueUnknown();
  RectT<float> const thumb = GetDrawParameters().GetThumbRect();
  bool const isVertical = mOrientation == Orientation::kVertical;
  bool const isOnThumb = thumb.Contains(point) && !IsValueUnknown();
  // A grabbed thumb stays under the pointer where it was grabbed; a press elsewhere brings its centre there.
  PointT<float> const offset = point - thumb.Center();
  mGrabOffset = isOnThumb ? (isVertical ? offset.y : offset.x) : 0.0f;
  SetDownState(true);
  mCapture = PressCapture::Start(
      this, event, [this](ui::MouseEvent const& next) { ContinueDrag(next); }, [this] { CancelDrag(); });
  if (!mCapture) {
    return;
  }
  BeginInteractiveChange(nullptr);
  if (!isOnThumb) {
    T const value = ValueAt(FractionAt(point));
    StoreByUser(value, value);
  }
}

template <typename T>
double UI_SliderT<T>::FractionAt(PointT<float> point) const {
  RectT<float> const track = GetDrawParameters().GetTrackRect();
  return GetFractionAt(track, mOrientation == Orientation::kVertical, point, mGrabOffset);
}

template <typename T>
void UI_SliderT<T>::ContinueDrag(ui::MouseEvent const& event) {
  IntrusivePtr<UI_SliderT> const self(this);
  if (event.IsAction(ui::PointerAction::kMove)) {
    T const value = ValueAt(FractionAt(event.GetPosition()));
    StoreByUser(value, value);
    return;
  }
  mCapture.Reset();
  SetDownState(false);
  FinishInteractiveChange(nullptr);
}

template <typename T>
void UI_SliderT<T>::CancelDrag() {
  IntrusivePtr<UI_SliderT> const self(this);
  mCapture.Reset();
  SetDownState(false);
  SetValueRange(mValueAtPress.first, mValueAtPress.second);
  if (mWasUnknownAtPress) {
    SetValueUnknown();
  }
  CancelInteractiveChange(nullptr);
}

template <typename T>
void UI_SliderT<T>::StoreByUser(T low, T high) {
  if (IsValueUnknown() || low != mLow || high != mHigh) {
    SetValueRange(low, high);
    ContinueInteractiveChange(nullptr);
  }
}

template <typename T>
double UI_SliderT<T>::PlainStep() const {
  auto const span = static_cast<double>(mMaximum) - static_cast<double>(mMinimum);
  return mStep != T() ? static_cast<double>(mStep) : span / 100.0;
}

template <typename T>
T UI_SliderT<T>::StepOf(ui::KeyboardEvent const& event) const {
  double step = PlainStep();
  if (event.GetModKey().Has(ui::ModKey::kShift)) {
    step *= 10.0;
  } else if (event.GetModKey().Has(ui::ModKey::kCommand)) {
    step /= 10.0;
  }
  return static_cast<T>(step);
}

template <typename T>
bool UI_SliderT<T>::UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) {
  using ui::KeyboardCode;
  if (IsDisabled() || !event.IsAction(ui::KeyAction::kKeyDown)) {
    return UI_InteractiveControlView::UI_DoKeyboardEvent(node, event);
  }
  if (mCapture) {
    // Keys wait until the drag is over; Escape ends it.
    if (event.GetCode() == KeyboardCode::kEscape) {
      if (auto* const manager = ui::UI_NodeManager::Get(false)) {
        manager->EndInputCapture(true);
      }
    }
    return true;
  }
  auto const span = mMaximum - mMinimum;
  T const page = mPage != T() ? mPage : static_cast<T>(span / 10);
  auto const changeByKey = [this](T value) {
    if (mFocusVisibility.KeyUsed()) {
      UI_Invalidate();
    }
    ChangeAtOnce(value);
  };
  switch (event.GetCode()) {
    case KeyboardCode::kLeft:
    case KeyboardCode::kDown:
      changeByKey(mLow - StepOf(event));
      return true;
    case KeyboardCode::kRight:
    case KeyboardCode::kUp:
      changeByKey(mLow + StepOf(event));
      return true;
    case KeyboardCode::kPageDown:
      changeByKey(mLow - page);
      return true;
    case KeyboardCode::kPageUp:
      changeByKey(mLow + page);
      return true;
    case KeyboardCode::kHome:
      changeByKey(mMinimum);
      return true;
    case KeyboardCode::kEnd:
      changeByKey(mMaximum);
      return true;
    default:
      return UI_InteractiveControlView::UI_DoKeyboardEvent(node, event);
  }
}

template <typename T>
void UI_SliderT<T>::ChangeAtOnce(T value) {
  IntrusivePtr<UI_SliderT> const self(this);
  T const held = std::clamp(value, mMinimum, mMaximum);
  if (held == mLow && held == mHigh && !IsValueUnknown()) {
    return;
  }
  BeginInteractiveChange(nullptr);
  StoreByUser(held, held);
  FinishInteractiveChange(nullptr);
}

template class UI_SliderT<double>;

}  // namespace moxui::controls
