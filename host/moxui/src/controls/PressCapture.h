#pragma once

#include <moxcore/utility/RefCountedWeakPtr.h>
#include <moxui/ui/InputCapture.h>

#include <functional>

namespace moxui::controls {

/// Keeps the pointer for a stock control from a press to the release of its button: every move and the
/// release go to `onEvent` with positions in the node's coordinates, and are consumed. A capture that is
/// taken away calls `onCancel`. The functions are called only while the node lives.
class PressCapture : public ui::InputCapture {
 public:
  using EventFunction = std::function<void(ui::MouseEvent const&)>;
  using CancelFunction = std::function<void()>;

  /// Whether a press on a node goes on after its handlers: taking the focus may have taken the node out of
  /// its tree, hidden or disabled it.
  static bool CanStart(ui::UI_Node const& node);
  /// Begins a capture for the press `event` on `node`, which is in a tree. Null if what that took the pointer
  /// from has taken the node out; `onCancel` was called then.
  static moxcore::utility::IntrusivePtr<PressCapture> Start(ui::UI_Node* node, ui::MouseEvent const& event,
                                                            EventFunction onEvent, CancelFunction onCancel);

  PressCapture(ui::UI_Node* node, ui::MouseEvent const& event, EventFunction onEvent,
               CancelFunction onCancel);

  bool HandleMouseEvent(ui::MouseEvent const& event) override;
  void Cancel() override;

 private:
  ui::MouseButton mButton;
  EventFunction mOnEvent;
  CancelFunction mOnCancel;
};

}  // namespace moxui::controls
