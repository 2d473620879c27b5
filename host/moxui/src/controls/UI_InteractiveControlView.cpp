#include <moxui/controls/UI_InteractiveControlView.h>

#include <utility>

namespace moxui::controls {

UI_InteractiveControlView::UI_InteractiveControlView() = default;
UI_InteractiveControlView::~UI_InteractiveControlView() = default;

moxcore::messaging::Connection UI_InteractiveControlView::NotifyWhenChangedInteractively(
    MessageHandler function) {
  return mInteractiveListeners.Add(std::move(function));
}

void UI_InteractiveControlView::BeginInteractiveChange(moxcore::messaging::Message* cause) {
  mIsChanging = true;
  SendInteractiveChange(InteractiveChange::kBegin, cause);
}

void UI_InteractiveControlView::ContinueInteractiveChange(moxcore::messaging::Message* cause) {
  SendInteractiveChange(InteractiveChange::kContinue, cause);
}

void UI_InteractiveControlView::FinishInteractiveChange(moxcore::messaging::Message* cause) {
  moxcore::utility::IntrusivePtr<UI_ControlView> const self(this);
  mIsChanging = false;
  SendInteractiveChange(InteractiveChange::kFinish, cause);
  SendValueChangedMessage();
}

void UI_InteractiveControlView::CancelInteractiveChange(moxcore::messaging::Message* cause) {
  moxcore::utility::IntrusivePtr<UI_ControlView> const self(this);
  mIsChanging = false;
  SendInteractiveChange(InteractiveChange::kCancel, cause);
  SendValueChangedMessage();
}

void UI_InteractiveControlView::SendInteractiveChange(InteractiveChange change,
                                                      moxcore::messaging::Message* cause) {
  UI_InteractiveControlChangedMessage message(*this, change, cause);
  SendControlMessages(mInteractiveListeners, message);
}

}  // namespace moxui::controls
