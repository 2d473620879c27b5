#include <moxui/ui/MouseEvent.h>
#include <moxui/ui/PointerEvent.h>

namespace moxui::ui {

PointerEvent::~PointerEvent() = default;

MouseEvent const* MouseEvent::GetMouseEventForPointerEvent(PointerEvent const& event) {
  return dynamic_cast<MouseEvent const*>(&event);
}

WheelEvent const* WheelEvent::GetWheelEventForPointerEvent(PointerEvent const& event) {
  return dynamic_cast<WheelEvent const*>(&event);
}

}  // namespace moxui::ui
