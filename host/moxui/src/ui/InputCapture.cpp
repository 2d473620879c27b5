#include <moxui/ui/InputCapture.h>
#include <moxui/ui/UI_Node.h>

namespace moxui::ui {

PointerCapture::PointerCapture(UI_Node* node) : mNode(node) {}

PointerCapture::~PointerCapture() = default;

moxcore::utility::IntrusivePtr<UI_Node> PointerCapture::GetNode() const {
  return mNode.Lock();
}

void PointerCapture::Begin() {
  mIsRunning = true;
  mHasBeenCancelled = false;
}

void PointerCapture::End() {
  mIsRunning = false;
}

void PointerCapture::Cancel() {
  mIsRunning = false;
  mHasBeenCancelled = true;
}

InputCapture::InputCapture(UI_Node* node, PointerEvent const& event, CaptureOptions)
    : PointerCapture(node), mBeginPosition(event.GetPosition()) {}

bool InputCapture::HandlePointerEvent(PointerEvent const& event) {
  auto const* const mouseEvent = MouseEvent::GetMouseEventForPointerEvent(event);
  return mouseEvent != nullptr && HandleMouseEvent(*mouseEvent);
}

bool InputCapture::HandleMouseEvent(MouseEvent const&) {
  return false;
}

}  // namespace moxui::ui
