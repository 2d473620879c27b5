#include <moxui/controls/UI_HotTextNumber.h>
#include <moxui/resources/ResourceManager.h>
#include <moxui/ui/InputState.h>
#include <moxui/ui/KeyboardEvent.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;
using ui::KeyboardCode;

// As documents write the largest number, in six digits: a range up to it has no end.
constexpr double kNoEnd = 1.79769e+308;

}  // namespace

UI_HotTextNumber::UI_HotTextNumber() {
  constexpr std::size_t kLongestEntry = 400;
  SetMaxLength(kLongestEntry);
}

UI_HotTextNumber::~UI_HotTextNumber() {
  ShowPointer(true);
}

// Value

double UI_HotTextNumber::Held(double value) const {
  return std::min(std::max(value, mRange.minimum), mRange.maximum);
}

/// True if it is another value, or one where none was known.
bool UI_HotTextNumber::Store(double value) {
  double const held = Held(value);
  bool const changes = IsValueUnknown() || held != mValue;
  SetValueKnown();
  mValue = held;
  if (changes) {
    ShowTextAnew();
  }
  return changes;
}

void UI_HotTextNumber::SetValue(double value) {
  if (std::isfinite(value)) {
    Store(value);
  }
}

void UI_HotTextNumber::SetMinValue(double minimum) {
  if (std::isfinite(minimum) && minimum != mRange.minimum) {
    mRange.minimum = minimum;
    mRange.maximum = std::max(mRange.maximum, minimum);
    mValue = Held(mValue);
    ShowTextAnew();
  }
}

void UI_HotTextNumber::SetMaxValue(double maximum) {
  if (std::isfinite(maximum) && maximum != mRange.maximum) {
    mRange.maximum = maximum;
    mRange.minimum = std::min(mRange.minimum, maximum);
    mValue = Held(mValue);
    ShowTextAnew();
  }
}

namespace {

void StoreIfFinite(double& field, double value) {
  if (std::isfinite(value)) {
    field = value;
  }
}

}  // namespace

void UI_HotTextNumber::SetIncrement(double increment) {
  StoreIfFinite(mIncrement, increment);
}

void UI_HotTextNumber::SetShiftIncrement(double increment) {
  StoreIfFinite(mShiftIncrement, increment);
}

void UI_HotTextNumber::SetCmdIncrement(double increment) {
  StoreIfFinite(mCmdIncrement, increment);
}

double UI_HotTextNumber::IncrementFor(ui::ModKeys modKeys) const {
  if (modKeys.Has(ui::ModKey::kShift)) {
    return mShiftIncrement;
  }
  return modKeys.Has(ui::ModKey::kCommand) ? mCmdIncrement : mIncrement;
}

// Format

template <typename T>
void UI_HotTextNumber::StoreFormat(T NumberFormat::*field, T value) {
  if (mFormat.*field != value) {
    mFormat.*field = value;
    ShowTextAnew();
  }
}

void UI_HotTextNumber::SetDecimalPlaces(int places) {
  StoreFormat(&NumberFormat::decimalPlaces, std::clamp(places, 0, kMostDecimalPlaces));
}

void UI_HotTextNumber::SetFormatAlwaysSign(bool on) {
  StoreFormat(&NumberFormat::alwaysSign, on);
}

void UI_HotTextNumber::SetFormatLeadingSpaces(bool on) {
  StoreFormat(&NumberFormat::leadingSpaces, on);
}

void UI_HotTextNumber::SetFormatNoLocalization(bool on) {
  StoreFormat(&NumberFormat::noLocalization, on);
}

void UI_HotTextNumber::SetFormatNoTrailingZeros(bool on) {
  StoreFormat(&NumberFormat::noTrailingZeros, on);
}

void UI_HotTextNumber::SetFormatNormal(bool on) {
  StoreFormat(&NumberFormat::normal, on);
}

void UI_HotTextNumber::SetFormatPadSign(bool on) {
  StoreFormat(&NumberFormat::padSign, on);
}

void UI_HotTextNumber::SetFormatUseSeparator(bool on) {
  StoreFormat(&NumberFormat::useSeparator, on);
}

moxcore::Utf16String UI_HotTextNumber::GetText() const {
  return FormatNumber(mValue, mFormat, mRange);
}

void UI_HotTextNumber::SetText(moxcore::Utf16String const& text) {
  if (auto const value = ParseNumber(text, mFormat, GetTextLabel())) {
    Store(*value);
  }
}

// Typing

moxcore::Utf16String UI_HotTextNumber::GetTextToEdit() const {
  NumberFormat plain = mFormat;
  plain.leadingSpaces = false;
  plain.padSign = false;
  return FormatNumber(mValue, plain, mRange);
}

// An entry that is what was shown leaves the value as it is, with what the places don't show.
bool UI_HotTextNumber::TakeTypedText(moxcore::Utf16String const& text) {
  bool const isUnedited = !IsValueUnknown() && text == GetTextToEdit();
  auto const value = isUnedited ? std::nullopt : ParseNumber(text, mFormat, GetTextLabel());
  return value && Store(*value);
}

bool UI_HotTextNumber::OpensEditFor(ui::KeyboardEvent const& event) const {
  bool const isPlain = !event.GetModKey().HasAny(ui::ModKeys(ui::ModKey::kCommand | ui::ModKey::kControl));
  return isPlain && event.GetText().size() == 1 &&
         moxcore::Utf16String(u"0123456789+-.,").find(event.GetText()) != moxcore::Utf16String::npos;
}

// Dragging

void UI_HotTextNumber::ShowPointer(bool show) {
  if (std::exchange(mPointerIsHidden, !show) == show) {
    utility::GetResourceManager()->ShowPlatformCursor(show, true, false);
  }
}

void UI_HotTextNumber::BeginDrag(ui::MouseEvent const& event) {
  mMotion = {.lastPosition = event.GetPosition()};
  mValueAtPress = mValue;
  mWasUnknownAtPress = IsValueUnknown();
  mPressPlace = UI_LocalToGlobalF(event.GetPosition());
}

void UI_HotTextNumber::DragTo(ui::MouseEvent const& event) {
  bool const hadStarted = mMotion.hasStarted;
  int const steps = mMotion.MoveTo(event.GetPosition(), event.GetSubType() == ui::PointerSubType::kPen);
  if (!mMotion.hasStarted) {
    return;
  }
  if (!hadStarted) {
    ShowPointer(false);
    BeginInteractiveChange(nullptr);
  }
  // A listener may have ended the drag.
  if (steps != 0 && mMotion.hasStarted) {
    StoreByUser(AddSteps(mValue, steps, IncrementFor(event.GetModKey())));
  }
}

bool UI_HotTextNumber::EndDrag(bool cancelled) {
  if (!std::exchange(mMotion.hasStarted, false)) {
    return false;
  }
  ui::SetGlobalMousePosition(static_cast<int>(mPressPlace.x), static_cast<int>(mPressPlace.y));
  ShowPointer(true);
  if (!cancelled) {
    FinishInteractiveChange(nullptr);
    return true;
  }
  Store(mValueAtPress);
  if (mWasUnknownAtPress) {
    SetValueUnknown();
  }
  CancelInteractiveChange(nullptr);
  return true;
}

void UI_HotTextNumber::StoreByUser(double value) {
  if (Store(value)) {
    ContinueInteractiveChange(nullptr);
  }
}

// Keys

void UI_HotTextNumber::ChangeAtOnce(double value) {
  if (Held(value) == mValue && !IsValueUnknown()) {
    return;
  }
  BeginInteractiveChange(nullptr);
  StoreByUser(value);
  FinishInteractiveChange(nullptr);
}

bool UI_HotTextNumber::DoValueKey(ui::KeyboardEvent const& event) {
  double const step = IncrementFor(event.GetModKey());
  double value = 0.0;
  switch (event.GetCode()) {
    case KeyboardCode::kUp:
    case KeyboardCode::kRight:
      value = AddSteps(mValue, 1.0, step);
      break;
    case KeyboardCode::kDown:
    case KeyboardCode::kLeft:
      value = AddSteps(mValue, -1.0, step);
      break;
    case KeyboardCode::kPageUp:
      value = AddSteps(mValue, 1.0, mShiftIncrement);
      break;
    case KeyboardCode::kPageDown:
      value = AddSteps(mValue, -1.0, mShiftIncrement);
      break;
    case KeyboardCode::kHome:
      value = mRange.minimum;
      break;
    case KeyboardCode::kEnd:
      value = mRange.maximum;
      break;
    default:
      return false;
  }
  // Where the range has no end, there is none to go to.
  if (std::abs(value) < kNoEnd) {
    KeyUsed();
    ChangeAtOnce(value);
  }
  return true;
}

// For assistive software

ui::AccessibleRole UI_HotTextNumber::UI_GetAccessibleRole() const {
  return ui::AccessibleRole::kSpinBox;
}

std::optional<ui::AccessibleRange> UI_HotTextNumber::UI_GetAccessibleRange() const {
  return ui::AccessibleRange{
      .minimum = mRange.minimum, .maximum = mRange.maximum, .value = mValue, .step = mIncrement};
}

bool UI_HotTextNumber::UI_SetAccessibleValue(double value) {
  if (IsDisabled() || IsChangingInteractively() || !std::isfinite(value)) {
    return false;
  }
  IntrusivePtr<UI_HotTextNumber> const self(this);
  ChangeAtOnce(value);
  return true;
}

}  // namespace moxui::controls
