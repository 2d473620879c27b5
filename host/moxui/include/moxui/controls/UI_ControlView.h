#pragma once

#include <moxcore/string/String.h>
#include <moxui/controls/ControlListeners.h>
#include <moxui/controls/UI_ControlMessage.h>
#include <moxui/geometry/Flags.h>
#include <moxui/skins/ControlState.h>
#include <moxui/ui/UI_SubView.h>

namespace moxui::controls {

namespace ControlState = skins::ControlState;

/// A view with a value that the user changes. Listeners hear of changes by the user only: setters don't
/// notify. The value can be unknown, as of a selection of several things that differ; it is known at first,
/// and setters make it known.
class UI_ControlView : public ui::UI_SubView {
 public:
  UI_ControlView();
  ~UI_ControlView() override;

  // Listeners are held strongly and called in order; a null function is ignored.
  /// Hears UI_ControlChangedMessage once a change by the user stands.
  moxcore::messaging::Connection NotifyWhenChanged(MessageHandler function);
  /// Hears UI_HoverMessage.
  moxcore::messaging::Connection NotifyHover(MessageHandler function);
  /// Tells the listeners that the user has changed the value.
  void SendValueChangedMessage();
  /// Tells the listeners of a list of a class's own; this control lives on at least until that is done.
  void SendControlMessages(ControlListeners const& listeners, moxcore::messaging::Message& message);
  /// Tells the hover listeners the event's action.
  void SendHover(ui::PointerEvent const& event);

  // Value known or not. A change invalidates.
  /// Controls that are made of others override it: their parts become unknown too.
  virtual void SetValueUnknown();
  void SetValueKnown();
  bool IsValueUnknown() const { return mIsValueUnknown; }

  // State
  /// ControlState bits: pressed, rollover, disabled (by itself or an ancestor), focused. With descendants,
  /// rollover and focus count for all that is below this control.
  Flags<unsigned int> GetControlState(bool withDescendants) const;
  void SetDownState(bool down);
  bool IsDown() const { return mIsDown; }
  void SetDisabled(bool disabled = true) { UI_SetDisabled(disabled); }
  bool IsDisabled() const { return UI_IsDisabled(); }
  /// What the control is for, for assistive software: goes before a label's text, which goes before the tool
  /// tip.
  void SetAccessibleName(moxcore::Utf8String name);
  void SetWantsKeyboardFocus(bool wants) { mWantsKeyboardFocus = wants; }

  /// Sends hover for this control's own enter and leave.
  bool UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) override;
  bool UI_WantsKeyboardFocus() const override;
  /// Repaints, since the state has changed.
  void UI_FocusChanged(ui::FocusChangeReason reason) override;
  moxcore::Utf8String UI_GetAccessibleName() const override;
  /// The tool tip, where it isn't the name already.
  moxcore::Utf8String UI_GetAccessibleDescription() const override;
  ui::AccessibleState UI_GetAccessibleState() const override;

 protected:
  /// The name of a control that shows a text.
  moxcore::Utf8String GetAccessibleNameOr(moxcore::Utf16String const& label) const;

 private:
  ControlListeners mChangeListeners;
  ControlListeners mHoverListeners;
  moxcore::Utf8String mAccessibleName;
  bool mIsValueUnknown = false;
  bool mIsDown = false;
  bool mWantsKeyboardFocus = false;
};

}  // namespace moxui::controls
