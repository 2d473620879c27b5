#pragma once

#include <moxui/ui/PointerEvent.h>

namespace moxui::ui {

/// Buttons are bits, so that a state of several is their sum.
enum class MouseButton : unsigned char { kNone = 0, kLeft = 1, kMiddle = 2, kRight = 4 };
using MouseButtons = Flags<unsigned char>;

/// A pointer event with a button. Of a press or release it is the button that changed, of a move the one that
/// is held (left before right before middle), none if none is.
///
/// Click count: 1, 2, ... for a press; a release has the count of its press, or 0 once the pointer has left
/// the press's surroundings in between; moves, enter and leave have 0.
class MouseEvent : public PointerEvent {
 public:
  MouseEvent(PointerAction action, MouseButton button, int clickCount, PointT<float> position,
             ModKeys modKeys = {}, PointerSubType subType = PointerSubType::kMouse, OS_Event osEvent = {})
      : PointerEvent(action, position, modKeys, subType, osEvent), mButton(button), mClickCount(clickCount) {}
  MouseEvent(MouseEvent const&) = default;
  MouseEvent& operator=(MouseEvent const&) = default;

  MouseButton GetButton() const { return mButton; }
  bool IsButton(MouseButton button) const { return mButton == button; }
  int GetClickCount() const { return mClickCount; }
  bool IsLeftButtonDoubleClick() const {
    return IsAction(PointerAction::kPress) && IsButton(MouseButton::kLeft) && mClickCount == 2;
  }
  bool IsRightButtonSingleDown() const {
    return IsAction(PointerAction::kPress) && IsButton(MouseButton::kRight) && mClickCount == 1;
  }

  /// The mouse event that a pointer event is; null for others.
  static MouseEvent const* GetMouseEventForPointerEvent(PointerEvent const& event);

 private:
  MouseButton mButton;
  int mClickCount;
};

}  // namespace moxui::ui
