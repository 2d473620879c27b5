#include <moxui/dialogs/UI_Dialog.h>

#include <utility>

namespace moxui::dialogs {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;

UI_Dialog::UI_Dialog(scriber::SupplierInterface const*, moxcore::Utf16String const& title,
                     WindowVariant const& parent, ExtentT<float> size)
    : UI_Dialog(title, parent, size, MakeIntrusive<UI_DialogViewContainer>(title)) {}

UI_Dialog::UI_Dialog(moxcore::Utf16String const& title, WindowVariant const& parent, ExtentT<float> size,
                     IntrusivePtr<UI_DialogViewContainer> container)
    : OS_Dialog(title, parent, container, size), mContainer(std::move(container)) {}

UI_Dialog::~UI_Dialog() = default;

void UI_Dialog::SetOkButton(IntrusivePtr<controls::UI_Button> button) {
  mContainer->SetOkButton(std::move(button));
}

void UI_Dialog::SetCancelButton(IntrusivePtr<controls::UI_Button> button) {
  mContainer->SetCancelButton(std::move(button));
}

UI_Dialog::Response UI_Dialog::RunModal() {
  IntrusivePtr<UI_Dialog> const self(this);
  if (IsRunning()) {
    return GetResponse();
  }
  bool runsAgain = false;
  do {
    mContainer->Open([this](Response response) { EndRun(static_cast<int>(response)); });
    auto const answer = static_cast<Response>(
        Run(static_cast<int>(Response::kCancel), [this] { mContainer->FocusFirstControl(); }));
    mContainer->Close(answer);
    auto const callback = mPostClose;
    runsAgain = callback && callback(answer);
    CloseWindow();
  } while (runsAgain);
  return GetResponse();
}

}  // namespace moxui::dialogs
