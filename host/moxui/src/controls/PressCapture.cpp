#include "PressCapture.h"

#include <moxcore/utility/IntrusivePtr.h>
#include <moxui/ui/UI_Node.h>
#include <moxui/ui/UI_NodeManager.h>

#include <utility>

namespace moxui::controls {

using moxcore::utility::IntrusivePtr;

IntrusivePtr<PressCapture> PressCapture::Start(ui::UI_Node* node, ui::MouseEvent const& event,
                                               EventFunction onEvent, CancelFunction onCancel) {
  auto capture =
      moxcore::utility::MakeIntrusive<PressCapture>(node, event, std::move(onEvent), std::move(onCancel));
  if (auto* const manager = ui::UI_NodeManager::Get(false)) {
    manager->BeginInputCapture(capture);
  }
  return capture->HasBeenCancelled() ? nullptr : capture;
}

bool PressCapture::CanStart(ui::UI_Node const& node) {
  if (node.UI_GetTree() == nullptr || node.UI_IsDisabled()) {
    return false;
  }
  for (ui::UI_Node const* up = &node; up != nullptr; up = up->UI_GetParentNode()) {
    if (!up->UI_IsShown()) {
      return false;
    }
  }
  return true;
}

PressCapture::PressCapture(ui::UI_Node* node, ui::MouseEvent const& event, EventFunction onEvent,
                           CancelFunction onCancel)
    : InputCapture(node, event),
      mButton(event.GetButton()),
      mOnEvent(std::move(onEvent)),
      mOnCancel(std::move(onCancel)) {}

bool PressCapture::HandleMouseEvent(ui::MouseEvent const& event) {
  IntrusivePtr<PressCapture> const self(this);
  IntrusivePtr<ui::UI_Node> const node = GetNode();
  if (!node) {
    return true;
  }
  bool const isRelease = event.IsAction(ui::PointerAction::kRelease) && event.IsButton(mButton);
  if (isRelease) {
    // Ended first: the handler may open a box that waits.
    if (auto* const manager = ui::UI_NodeManager::Get(false)) {
      manager->EndInputCapture(false);
    }
  }
  if (isRelease || event.IsAction(ui::PointerAction::kMove)) {
    mOnEvent(event);
  }
  return true;
}

void PressCapture::Cancel() {
  InputCapture::Cancel();
  IntrusivePtr<ui::UI_Node> const node = GetNode();
  if (node && mOnCancel) {
    mOnCancel();
  }
}

}  // namespace moxui::controls
