#include "../skins/SliderPainting.h"
#include "ControlPainting.h"
#include "PressCapture.h"
#include "ScrollLayout.h"

#include <moxui/controls/UI_ScrollBar.h>
#include <moxui/ui/MouseEvent.h>
#include <moxui/ui/UI_NodeManager.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;

constexpr float kLeastThumb = 20.0f;
constexpr float kFirstRepeat = 350.0f;  // milliseconds
constexpr float kNextRepeat = 60.0f;
constexpr double kAccessibleStep = 20.0;  // a line

}  // namespace

UI_ScrollBar::UI_ScrollBar(Orientation orientation)
    : mOrientation(orientation), mRepeatTimer(ui::UI_NodeManager::GetUniqueTimerID()) {}

UI_ScrollBar::~UI_ScrollBar() = default;

float UI_ScrollBar::GetThickness() {
  return skins::SkinSet::Get().GetNumber(skins::SkinNumber::kScrollBarThickness);
}

void UI_ScrollBar::SetLengths(float content, float viewed) {
  // Written so that what isn't a number is 0.
  float const heldContent = content > 0.0f ? content : 0.0f;
  float const heldViewed = viewed > 0.0f ? viewed : 0.0f;
  if (heldContent == mContent && heldViewed == mViewed) {
    return;
  }
  mContent = heldContent;
  mViewed = heldViewed;
  SetOffset(mOffset);
  UI_Invalidate();
}

void UI_ScrollBar::SetOffset(float offset) {
  float const held = HoldOffset(offset, GetMaximumOffset());
  if (held != mOffset) {
    mOffset = held;
    UI_Invalidate();
    UI_TellAccessibleChange(ui::AccessibleChange::kValue);
  }
}

float UI_ScrollBar::GetMaximumOffset() const {
  return std::max(mContent - mViewed, 0.0f);
}

float UI_ScrollBar::Length() const {
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  return std::max(mOrientation == Orientation::kVertical ? rect.height : rect.width, 0.0f);
}

float UI_ScrollBar::Along(PointT<float> point) const {
  return mOrientation == Orientation::kVertical ? point.y : point.x;
}

float UI_ScrollBar::ThumbLength() const {
  float const length = Length();
  float const share = mContent > 0.0f ? length * mViewed / mContent : length;
  return std::min(std::max(std::round(share), kLeastThumb), length);
}

RectT<float> UI_ScrollBar::GetThumbRect() const {
  if (!IsNeeded()) {
    return {};
  }
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  float const thumb = ThumbLength();
  float const begin = std::round((Length() - thumb) * mOffset / GetMaximumOffset());
  return mOrientation == Orientation::kVertical ? RectT<float>(0.0f, begin, rect.width, thumb)
                                                : RectT<float>(begin, 0.0f, thumb, rect.height);
}

void UI_ScrollBar::UI_Draw(scriber::Scriber* scriber) const {
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  if (!rect.IsEmpty()) {
    skins::PaintScrollBar(scriber, rect, GetThumbRect(), GetControlLook(*this));
  }
  UI_InteractiveControlView::UI_Draw(scriber);
}

ExtentT<float> UI_ScrollBar::UI_GetRecommendedSize(scriber::Scriber*) const {
  float const thickness = GetThickness();
  float const length = 3.0f * kLeastThumb;
  return mOrientation == Orientation::kVertical ? ExtentT<float>(thickness, length)
                                                : ExtentT<float>(length, thickness);
}

bool UI_ScrollBar::UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) {
  if (UI_InteractiveControlView::UI_DoMouseEvent(node, event)) {
    return true;
  }
  if (!event.IsAction(ui::PointerAction::kPress) || !event.IsButton(ui::MouseButton::kLeft)) {
    return false;
  }
  if (!IsDisabled() && IsNeeded()) {
    Press(event);
  }
  return true;
}

void UI_ScrollBar::Press(ui::MouseEvent const& event) {
  IntrusivePtr<UI_ScrollBar> const self(this);
  RectT<float> const thumb = GetThumbRect();
  mPointer = Along(event.GetPosition());
  mOffsetAtPress = mOffset;
  mDragsThumb = thumb.Contains(event.GetPosition());
  mGrab = mPointer - Along(thumb.TopLeft());
  SetDownState(true);
  if (!PressCapture::Start(
          this, event, [this](ui::MouseEvent const& next) { PointerMoved(next); },
          [this] { PressEnded(true); })) {
    return;
  }
  BeginInteractiveChange(nullptr);
  if (!mDragsThumb) {
    PageTowardsPointer();
    mIsRepeating = false;
    UI_InstallTimer(kFirstRepeat, mRepeatTimer);
  }
}

void UI_ScrollBar::PointerMoved(ui::MouseEvent const& event) {
  if (event.IsAction(ui::PointerAction::kRelease)) {
    PressEnded(false);
    return;
  }
  mPointer = Along(event.GetPosition());
  float const room = Length() - ThumbLength();
  if (mDragsThumb && room > 0.0f) {
    StoreByUser((mPointer - mGrab) / room * GetMaximumOffset());
  }
}

void UI_ScrollBar::PressEnded(bool cancelled) {
  IntrusivePtr<UI_ScrollBar> const self(this);
  UI_RemoveTimer(mRepeatTimer);
  SetDownState(false);
  if (cancelled) {
    SetOffset(mOffsetAtPress);
    CancelInteractiveChange(nullptr);
  } else {
    FinishInteractiveChange(nullptr);
  }
}

void UI_ScrollBar::StoreByUser(float offset) {
  float const before = mOffset;
  SetOffset(offset);
  if (mOffset != before) {
    ContinueInteractiveChange(nullptr);
  }
}

void UI_ScrollBar::PageTowardsPointer() {
  RectT<float> const thumb = GetThumbRect();
  float const begin = Along(thumb.TopLeft());
  if (mPointer < begin) {
    StoreByUser(mOffset - mViewed);
  } else if (mPointer >= begin + ThumbLength()) {
    StoreByUser(mOffset + mViewed);
  }
}

bool UI_ScrollBar::UI_DoTimerNotify(int id) {
  if (id != mRepeatTimer) {
    return UI_InteractiveControlView::UI_DoTimerNotify(id);
  }
  if (!mIsRepeating) {
    mIsRepeating = true;
    UI_InstallTimer(kNextRepeat, mRepeatTimer);
  }
  PageTowardsPointer();
  return true;
}

bool UI_ScrollBar::UI_InvalidateOnMouseOverChange(bool) {
  return !IsDisabled();
}

ui::AccessibleRole UI_ScrollBar::UI_GetAccessibleRole() const {
  return ui::AccessibleRole::kScrollBar;
}

moxcore::Utf8String UI_ScrollBar::UI_GetAccessibleValue() const {
  char digits[64];
  auto const end = std::to_chars(digits, digits + sizeof digits, mOffset).ptr;
  return {digits, end};
}

std::optional<ui::AccessibleRange> UI_ScrollBar::UI_GetAccessibleRange() const {
  return ui::AccessibleRange{
      .minimum = 0.0, .maximum = GetMaximumOffset(), .value = mOffset, .step = kAccessibleStep};
}

bool UI_ScrollBar::UI_SetAccessibleValue(double value) {
  if (IsDisabled() || IsChangingInteractively() || std::isnan(value)) {
    return false;
  }
  IntrusivePtr<UI_ScrollBar> const self(this);
  auto const offset = static_cast<float>(std::clamp(value, 0.0, static_cast<double>(GetMaximumOffset())));
  if (offset != mOffset) {
    BeginInteractiveChange(nullptr);
    StoreByUser(offset);
    FinishInteractiveChange(nullptr);
  }
  return true;
}

}  // namespace moxui::controls
