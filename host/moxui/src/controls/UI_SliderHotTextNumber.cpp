#include <moxcore/messaging/BindMessageFunction.h>
#include <moxcore/utility/RefCountedWeakPtr.h>
#include <moxui/controls/UI_SliderHotTextNumber.h>
#include <moxui/scriber/FontInterface.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/skins/SkinSet.h>
#include <moxui/ui/UI_NodeManager.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace moxui::controls {
namespace {

using moxcore::messaging::BindMessageFunction;
using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using moxcore::utility::RefCountedWeakPtr;

constexpr float kGap = 8.0f;  // between slider and number
constexpr float kLeastNumberWidth = 32.0f;
constexpr float kTextInset = 4.0f;  // of the number's text, to either side
constexpr float kLabelHeight = 14.0f;

/// The slider's button. The slider paints it and takes its events.
class Thumb : public UI_Button {
 public:
  void UI_Draw(scriber::Scriber*) const override {}
  bool UI_DoMouseEvent(ui::UI_Node*, ui::MouseEvent const&) override { return false; }
  ui::AccessibleRole UI_GetAccessibleRole() const override { return ui::AccessibleRole::kNone; }
};

double Rounded(double value, int places) {
  double const parts = std::pow(10.0, places);
  double const rounded = std::round(value * parts) / parts;
  return std::isfinite(rounded) ? rounded : value;
}

/// The name of a part without one is that of the whole.
moxcore::Utf8String NameOf(ui::UI_Node const& part, moxcore::Utf8String const& name) {
  ui::UI_Node const* const whole = part.UI_GetParentNode();
  return name.empty() && whole != nullptr ? whole->UI_GetAccessibleName() : name;
}

}  // namespace

// Either part tells the whole of every other value, whoever has set it.
class UI_SliderHotTextNumber::SharedSlider : public UI_Slider {
 public:
  explicit SharedSlider(UI_SliderHotTextNumber& whole) : mWhole(&whole) {}
  moxcore::Utf8String UI_GetAccessibleName() const override {
    return NameOf(*this, UI_Slider::UI_GetAccessibleName());
  }

 protected:
  void ValueStored() override {
    if (auto const whole = mWhole.Lock()) {
      whole->SliderChanged();
    }
  }

 private:
  RefCountedWeakPtr<UI_SliderHotTextNumber> mWhole;
};

class UI_SliderHotTextNumber::SharedNumber : public UI_HotTextNumber {
 public:
  explicit SharedNumber(UI_SliderHotTextNumber& whole) : mWhole(&whole) {}
  moxcore::Utf8String UI_GetAccessibleName() const override {
    return NameOf(*this, UI_HotTextNumber::UI_GetAccessibleName());
  }

 protected:
  void ShowTextAnew() override {
    UI_HotTextNumber::ShowTextAnew();
    if (auto const whole = mWhole.Lock()) {
      whole->NumberChanged();
    }
  }

 private:
  RefCountedWeakPtr<UI_SliderHotTextNumber> mWhole;
};

UI_SliderHotTextNumber::UI_SliderHotTextNumber()
    : mSlider(MakeIntrusive<SharedSlider>(*this)),
      mNumber(MakeIntrusive<SharedNumber>(*this)),
      mLowLabel(MakeIntrusive<UI_StaticText>()),
      mHighLabel(MakeIntrusive<UI_StaticText>()) {
  mSlider->InstallSliderThumb(MakeIntrusive<Thumb>());
  for (IntrusivePtr<UI_StaticText> const& label : {mLowLabel, mHighLabel}) {
    label->SetFontIndex(ui::FontIndex::kSmall);
  }
  mLowLabel->SetAlignment(ControlAlignment::kLeft);
  mHighLabel->SetAlignment(ControlAlignment::kRight);
}

UI_SliderHotTextNumber::~UI_SliderHotTextNumber() = default;

void UI_SliderHotTextNumber::Init() {
  if (ChildSize() > 0) {
    return;
  }
  for (IntrusivePtr<UI_InteractiveControlView> const& part :
       {IntrusivePtr<UI_InteractiveControlView>(mSlider), IntrusivePtr<UI_InteractiveControlView>(mNumber)}) {
    part->NotifyWhenChangedInteractively(BindMessageFunction(this, &UI_SliderHotTextNumber::PartChanging));
    part->NotifyWhenChanged(BindMessageFunction(this, &UI_SliderHotTextNumber::PartChanged));
    ChildPushBack(part);
  }
  ChildPushBack(mLowLabel);
  ChildPushBack(mHighLabel);
  UpdateLabels();
  Arrange();
}

IntrusivePtr<UI_Slider> UI_SliderHotTextNumber::GetSlider() const {
  return mSlider;
}

IntrusivePtr<UI_HotTextNumber> UI_SliderHotTextNumber::GetHotTextNumber() const {
  return mNumber;
}

// The value

void UI_SliderHotTextNumber::SetValue(double value) {
  mNumber->SetValue(value);
}

double UI_SliderHotTextNumber::GetValue() const {
  return mNumber->GetValue();
}

void UI_SliderHotTextNumber::SetValueUnknown() {
  UI_InteractiveControlView::SetValueUnknown();
  mSlider->SetValueUnknown();
  mNumber->SetValueUnknown();
}

void UI_SliderHotTextNumber::SetExtent(double minimum, double maximum) {
  if (!std::isfinite(minimum) || !std::isfinite(maximum)) {
    return;
  }
  bool const wasUnknown = IsValueUnknown();
  mIsSharing = true;
  mSlider->SetLimits(minimum, maximum);
  mNumber->SetMinValue(minimum);
  mNumber->SetMaxValue(std::max(minimum, maximum));
  mIsSharing = false;
  NumberChanged();
  if (wasUnknown) {
    SetValueUnknown();
  }
}

void UI_SliderHotTextNumber::SliderChanged() {
  if (std::exchange(mIsSharing, true)) {
    return;
  }
  double const value = mSlider->GetValue();
  mNumber->SetValue(mSlider->IsChangingInteractively() ? Rounded(value, mNumber->GetDecimalPlaces()) : value);
  SetValueKnown();
  UpdateThumb();
  mIsSharing = false;
}

void UI_SliderHotTextNumber::NumberChanged() {
  if (std::exchange(mIsSharing, true)) {
    return;
  }
  if (!mNumber->IsValueUnknown()) {
    mSlider->SetValue(mNumber->GetValue());
    SetValueKnown();
  }
  UpdateThumb();
  UpdateLabels();
  Arrange();
  mIsSharing = false;
}

void UI_SliderHotTextNumber::UpdateThumb() {
  bool const isInside =
      mNumber->GetValue() >= mSlider->GetMinimum() && mNumber->GetValue() <= mSlider->GetMaximum();
  mSlider->GetSliderThumb()->UI_Show(mShowsThumbOutside || isInside);
}

// Changes by the user

void UI_SliderHotTextNumber::PartChanging(UI_InteractiveControlChangedMessage& message) {
  IntrusivePtr<UI_SliderHotTextNumber> const self(this);
  switch (message.GetChangeMessage()) {
    case InteractiveChange::kBegin:
      mValueAtBegin = GetValue();
      mWasUnknownAtBegin = IsValueUnknown();
      BeginInteractiveChange(&message);
      break;
    case InteractiveChange::kContinue:
      ContinueInteractiveChange(&message);
      break;
    case InteractiveChange::kFinish:
      mIsSettling = true;
      FinishInteractiveChange(&message);
      break;
    case InteractiveChange::kCancel:
      mIsSettling = true;
      TakeBack();
      CancelInteractiveChange(&message);
      break;
  }
}

/// The slider's own value of before may not have been the whole's, which was beyond the slider's end.
void UI_SliderHotTextNumber::TakeBack() {
  SetValue(mValueAtBegin);
  if (mWasUnknownAtBegin) {
    SetValueUnknown();
  }
}

void UI_SliderHotTextNumber::PartChanged(UI_ControlChangedMessage&) {
  if (!std::exchange(mIsSettling, false)) {
    SendValueChangedMessage();
  }
}

bool UI_SliderHotTextNumber::UI_DoPreKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) {
  mSlider->SetStepSize(mNumber->GetIncrement());
  return UI_InteractiveControlView::UI_DoPreKeyboardEvent(node, event);
}

ui::AccessibleRole UI_SliderHotTextNumber::UI_GetAccessibleRole() const {
  return ui::AccessibleRole::kGroup;
}

// Layout

void UI_SliderHotTextNumber::ShowExtentLabels(bool show) {
  mShowsLabels = show;
  Arrange();
}

void UI_SliderHotTextNumber::SetHotTextVisibility(bool visible) {
  mShowsNumber = visible;
  Arrange();
}

void UI_SliderHotTextNumber::SetAllowHotTextManualPlacement(bool allow) {
  mAllowsManualPlacement = allow;
  Arrange();
}

void UI_SliderHotTextNumber::ShowSliderThumbOutsideBounds(bool show) {
  mShowsThumbOutside = show;
  UpdateThumb();
}

void UI_SliderHotTextNumber::SetSliderLocation(PointT<float> location) {
  mSliderLocation = location;
  Arrange();
}

void UI_SliderHotTextNumber::SetSliderThickness(float thickness) {
  mSliderThickness = thickness;
  Arrange();
}

float UI_SliderHotTextNumber::GetThickness() const {
  return mSliderThickness >= 0.0f ? mSliderThickness
                                  : UI_GetCurrentSkinSet().GetNumber(skins::SkinNumber::kControlHeight);
}

float UI_SliderHotTextNumber::GetNumberWidth() const {
  auto const* const manager = ui::UI_NodeManager::Get(false);
  scriber::FontP const font =
      GetControlFont({}, *this, manager != nullptr ? manager->GetDefaultDrawSupplier() : nullptr);
  float width = kLeastNumberWidth;
  NumberRange const range{.minimum = mNumber->GetMinValue(), .maximum = mNumber->GetMaxValue()};
  for (double const end : {range.minimum, range.maximum, GetValue()}) {
    moxcore::Utf16String const text =
        FormatNumber(end, mNumber->GetFormat(), range) + mNumber->GetTextLabel();
    width = std::max(width, font ? std::ceil(font->GetWidth(text)) + 2.0f * kTextInset : 0.0f);
  }
  // A range without ends has numbers of any length.
  return std::min(width, std::floor(UI_GetLocalRectF(ui::RectSpace::kOwn).width / 2.0f));
}

void UI_SliderHotTextNumber::UpdateLabels() {
  auto const textOf = [this](double end) { return FormatNumber(end, mNumber->GetFormat(), {}); };
  mLowLabel->SetValue(textOf(mSlider->GetMinimum()));
  mHighLabel->SetValue(textOf(mSlider->GetMaximum()));
}

/// Where a rectangle of a layout from left to right lies in the running one.
RectT<float> UI_SliderHotTextNumber::Mirrored(RectT<float> rect) const {
  if (skins::IsRightToLeft()) {
    rect.left = UI_GetLocalRectF(ui::RectSpace::kOwn).width - rect.Right();
  }
  return rect;
}

void UI_SliderHotTextNumber::Arrange() {
  float const width = UI_GetLocalRectF(ui::RectSpace::kOwn).width;
  float const thickness = GetThickness();
  float right = width;
  if (mShowsNumber && !mAllowsManualPlacement) {
    float const numberWidth = GetNumberWidth();
    float const height = UI_GetCurrentSkinSet().GetNumber(skins::SkinNumber::kTextEditHeight);
    float const top = mSliderLocation.y + std::floor((thickness - height) / 2.0f);
    mNumber->UI_SetLocalRectF(Mirrored({width - numberWidth, top, numberWidth, height}));
    right = width - numberWidth - kGap;
  }
  RectT<float> const slider =
      Mirrored({mSliderLocation.x, mSliderLocation.y, std::max(right - mSliderLocation.x, 0.0f), thickness});
  mSlider->UI_SetLocalRectF(slider);
  // Values run to the right whichever way lines run, and so do the labels of their ends.
  float const half = slider.width / 2.0f;
  mLowLabel->UI_SetLocalRectF({slider.left, slider.Bottom(), half, kLabelHeight});
  mHighLabel->UI_SetLocalRectF({slider.left + half, slider.Bottom(), half, kLabelHeight});
  mNumber->UI_Show(mShowsNumber);
  mLowLabel->UI_Show(mShowsLabels);
  mHighLabel->UI_Show(mShowsLabels);
}

ExtentT<float> UI_SliderHotTextNumber::UI_GetRecommendedSize(scriber::Scriber* scriber) const {
  float const slider = mSlider->UI_GetRecommendedSize(scriber).width;
  float const number = mShowsNumber && !mAllowsManualPlacement ? kGap + GetNumberWidth() : 0.0f;
  float const bottom = mSliderLocation.y + GetThickness() + (mShowsLabels ? kLabelHeight : 0.0f);
  return {mSliderLocation.x + slider + number, bottom};
}

void UI_SliderHotTextNumber::UI_SizeChanged(RectT<float> const& rect) {
  UI_InteractiveControlView::UI_SizeChanged(rect);
  Arrange();
}

void UI_SliderHotTextNumber::UI_SkinSetUpdated() {
  UI_InteractiveControlView::UI_SkinSetUpdated();
  Arrange();
}

void UI_SliderHotTextNumber::UI_LayoutChildren() {
  UI_InteractiveControlView::UI_LayoutChildren();
  Arrange();
}

}  // namespace moxui::controls
