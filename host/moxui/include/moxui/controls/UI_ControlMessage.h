#pragma once

#include <moxcore/messaging/Message.h>
#include <moxui/ui/PointerEvent.h>

namespace moxui::controls {

class UI_ControlView;

/// What a control sends to its listeners; it lives for the time of the call.
class UI_ControlMessage : public moxcore::messaging::Message {
 public:
  explicit UI_ControlMessage(UI_ControlView& control,
                             moxcore::messaging::MessageID id = moxcore::messaging::kNoMessageID)
      : Message(id), mControl(control) {}

  /// The control that sends it.
  UI_ControlView& GetControl() const { return mControl; }

 private:
  UI_ControlView& mControl;
};

/// The same about a control that must not be changed by the answer.
class UI_ConstControlMessage : public moxcore::messaging::ConstMessage {
 public:
  explicit UI_ConstControlMessage(UI_ControlView const& control) : mControl(control) {}

  UI_ControlView const& GetControl() const { return mControl; }

 private:
  UI_ControlView const& mControl;
};

/// The user has changed a control's value.
class UI_ControlChangedMessage : public UI_ControlMessage {
 public:
  explicit UI_ControlChangedMessage(UI_ControlView& control, bool isInteractive = false)
      : UI_ControlMessage(control), mIsInteractive(isInteractive) {}

  /// Whether the change is still going on, under the user's hand.
  bool IsInteractive() const { return mIsInteractive; }

 private:
  bool mIsInteractive;
};

enum class InteractiveChange : int { kBegin = 0, kContinue = 1, kFinish = 2, kCancel = 3 };

/// A phase of a change under the user's hand: a begin, any number of continues, one finish or cancel.
class UI_InteractiveControlChangedMessage : public UI_ControlChangedMessage {
 public:
  UI_InteractiveControlChangedMessage(UI_ControlView& control, InteractiveChange change,
                                      moxcore::messaging::Message* cause)
      : UI_ControlChangedMessage(control, true), mChange(change), mCause(cause) {}

  InteractiveChange GetChangeMessage() const { return mChange; }
  /// The message of an inner control that led to this one, or null.
  moxcore::messaging::Message* GetCause() const { return mCause; }

 private:
  InteractiveChange mChange;
  moxcore::messaging::Message* mCause;
};

/// The pointer is over a control (kMove, on entering and maybe again) or has left it (kLeave).
class UI_HoverMessage : public UI_ControlMessage {
 public:
  UI_HoverMessage(UI_ControlView& control, ui::PointerAction action)
      : UI_ControlMessage(control), mAction(action) {}

  ui::PointerAction GetAction() const { return mAction; }
  bool IsAction(ui::PointerAction action) const { return mAction == action; }

 private:
  ui::PointerAction mAction;
};

}  // namespace moxui::controls
