#include "TimeCodeInputCapture.h"

#include <moxmediaui/HotTimecodeControl.h>
#include <moxui/ui/UI_NodeManager.h>

namespace moxmediaui {

using moxui::ui::MouseButton;
using moxui::ui::PointerAction;

TimeCodeInputCapture::TimeCodeInputCapture(UI_HotTimecodeControl* control,
                                           moxui::ui::PointerEvent const& event)
    : InputCapture(control, event), mControl(control) {}

bool TimeCodeInputCapture::HandleMouseEvent(moxui::ui::MouseEvent const& event) {
  // The node is the control, held weakly: the plain pointer is good as long as there is one.
  auto const node = GetNode();
  if (!node || !event.IsButton(MouseButton::kLeft)) {
    return false;
  }
  if (event.IsAction(PointerAction::kMove)) {
    mControl->MouseMoveSelf(event);
    return true;
  }
  if (event.IsAction(PointerAction::kRelease)) {
    mControl->LeftButtonUpSelf(event);
    if (auto* const manager = moxui::ui::UI_NodeManager::Get(false)) {
      manager->EndInputCapture(false);
    }
  }
  // The release goes on, so that the press ends for the field's tree too.
  return false;
}

}  // namespace moxmediaui
