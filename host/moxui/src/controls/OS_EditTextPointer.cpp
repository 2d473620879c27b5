// How edited text is worked by the pointer: caret, selection, scrolling.
#include "OS_EditTextLayout.h"
#include "PressCapture.h"

#include <moxui/ui/MouseEvent.h>

#include <algorithm>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;

constexpr float kDragPeriod = 50.0f;  // milliseconds from step to step of a drag that rests outside
constexpr float kDragReach = 12.0f;   // how far outside such a drag counts at least

/// Outside of a stretch from 0 to `length`, a place is moved further away.
float Reached(float place, float length) {
  return place < 0.0f ? place - kDragReach : place > length ? place + kDragReach : place;
}

}  // namespace

bool OS_EditText::UI_DoPointerEvent(ui::UI_Node* node, ui::PointerEvent const& event) {
  auto const* const wheel = ui::WheelEvent::GetWheelEventForPointerEvent(event);
  if (wheel != nullptr && mIsMultiLine) {
    float const before = mScroll.y;
    SetScrollOffset(before - wheel->GetDistance().y);
    if (mScroll.y != before) {
      return true;
    }
  }
  return UI_Node::UI_DoPointerEvent(node, event);
}

bool OS_EditText::UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) {
  if (node != this || UI_IsDisabled() || !event.IsAction(ui::PointerAction::kPress)) {
    return UI_Node::UI_DoMouseEvent(node, event);
  }
  IntrusivePtr<OS_EditText> const self(this);
  if (!UI_HasKeyboardFocus()) {
    // What lies under the pointer stays there, though the text is no longer shown from its begin.
    Laid const* const laid = Layout();
    mScroll.x = laid != nullptr ? SidewaysScroll(*laid) : 0.0f;
    UI_GainKeyboardFocus(ui::FocusChangeReason::kPointer);
  }
  if (!PressCapture::CanStart(*this)) {
    return true;
  }
  FinishComposition();
  if (event.IsRightButtonSingleDown()) {
    std::size_t const position = GetPositionAt(event.GetPosition());
    platform::TextSelection const selection = GetSelection();
    if (position < selection.Begin() || position > selection.End()) {
      SetSelection({.anchor = position, .caret = position});
    }
    ShowEditMenu(event.GetPosition());
    return true;
  }
  if (!event.IsButton(ui::MouseButton::kLeft)) {
    return UI_Node::UI_DoMouseEvent(node, event);
  }
  Press(event);
  return true;
}

// What one click, two or three choose: a place, a word, a paragraph.
platform::TextSelection OS_EditText::StretchAt(std::size_t position) const {
  switch (mGrain) {
    case Grain::kWord:
      return mEditor->GetWordAt(position);
    case Grain::kParagraph: {
      std::size_t const before = position > 0 ? mText.rfind(u'\n', position - 1) : moxcore::Utf16String::npos;
      std::size_t const begin = before == moxcore::Utf16String::npos ? 0 : before + 1;
      return {.anchor = begin, .caret = std::min(mText.find(u'\n', position), mText.size())};
    }
    case Grain::kCharacter:
      break;
  }
  return {.anchor = position, .caret = position};
}

// A press places the caret, with Shift it moves the selection's end; a drag selects by what was pressed.
void OS_EditText::Press(ui::MouseEvent const& event) {
  if (Editor() == nullptr) {
    return;
  }
  int const clicks = event.GetClickCount();
  mGrain = clicks >= 3 ? Grain::kParagraph : clicks == 2 ? Grain::kWord : Grain::kCharacter;
  mPressed = StretchAt(GetPositionAt(event.GetPosition()));
  if (mGrain == Grain::kCharacter && event.GetModKey().Has(ui::ModKey::kShift)) {
    std::size_t const anchor = GetSelection().anchor;
    SetSelection({.anchor = anchor, .caret = mPressed.caret});
    mPressed = {.anchor = anchor, .caret = anchor};
  } else {
    SetSelection(mPressed);
  }
  RestartBlinking();
  PressCapture::Start(
      this, event, [this](ui::MouseEvent const& next) { ContinuePress(next); }, [this] { EndPress(); });
}

void OS_EditText::ContinuePress(ui::MouseEvent const& event) {
  if (!event.IsAction(ui::PointerAction::kMove)) {
    EndPress();
    return;
  }
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  mDragPoint = event.GetPosition();
  ExtendTo(mDragPoint);
  // Outside the text goes on coming in while the pointer rests.
  PointT<float> const reached(Reached(mDragPoint.x, rect.width),
                              mIsMultiLine ? Reached(mDragPoint.y, rect.height) : mDragPoint.y);
  if (reached == mDragPoint) {
    UI_RemoveTimer(mDragTimer);
  } else {
    mDragPoint = reached;
    UI_InstallTimer(kDragPeriod, mDragTimer);
  }
}

void OS_EditText::EndPress() {
  UI_RemoveTimer(mDragTimer);
}

void OS_EditText::ExtendTo(PointT<float> point) {
  platform::TextSelection const reached = StretchAt(GetPositionAt(point));
  if (reached.Begin() < mPressed.Begin()) {
    SetSelection({.anchor = mPressed.End(), .caret = reached.Begin()});
  } else {
    SetSelection({.anchor = mPressed.Begin(), .caret = std::max(reached.End(), mPressed.End())});
  }
}

}  // namespace moxui::controls
