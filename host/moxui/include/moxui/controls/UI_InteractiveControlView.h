#pragma once

#include <moxui/controls/UI_ControlView.h>

namespace moxui::controls {

/// A control whose value changes continuously under the user's hand. Interactive listeners hear every phase;
/// change listeners hear one settled change after a finish and after a cancel, even if the value came back to
/// where it was. Whoever cancels puts the value of the begin back first.
class UI_InteractiveControlView : public UI_ControlView {
 public:
  UI_InteractiveControlView();
  ~UI_InteractiveControlView() override;

  /// Hears UI_InteractiveControlChangedMessage.
  moxcore::messaging::Connection NotifyWhenChangedInteractively(MessageHandler function);

  /// `cause` is the message of another control that led to this, or null. A finish without a begin is legal.
  void BeginInteractiveChange(moxcore::messaging::Message* cause);
  void ContinueInteractiveChange(moxcore::messaging::Message* cause);
  void FinishInteractiveChange(moxcore::messaging::Message* cause);
  void CancelInteractiveChange(moxcore::messaging::Message* cause);
  /// Between a begin and its finish or cancel.
  bool IsChangingInteractively() const { return mIsChanging; }

 private:
  void SendInteractiveChange(InteractiveChange change, moxcore::messaging::Message* cause);

  ControlListeners mInteractiveListeners;
  bool mIsChanging = false;
};

}  // namespace moxui::controls
