#pragma once

#include <moxui/dialogs/OS_Dialog.h>
#include <moxui/dialogs/UI_DialogViewContainer.h>
#include <moxui/scriber/ScriberTypes.h>

#include <functional>

namespace moxui::dialogs {

/// A dialog of nodes: a client puts views into its content view, names the OK and the cancel button, runs it
/// and looks at the response. Main thread only.
class UI_Dialog : public OS_Dialog {
 public:
  using Response = UI_DialogViewContainer::Response;
  /// Hears how a run ended, before its views leave their window, so that further boxes may open. True runs
  /// the dialog again.
  using PostCloseCallback = std::function<bool(Response)>;

  /// The supplier may be null.
  UI_Dialog(scriber::SupplierInterface const* supplier, moxcore::Utf16String const& title,
            WindowVariant const& parent, ExtentT<float> size);
  ~UI_Dialog() override;

  moxcore::utility::IntrusivePtr<UI_DialogViewContainer> const& GetViewContainer() const {
    return mContainer;
  }
  moxcore::utility::IntrusivePtr<ui::UI_SubView> const& GetContentView() const {
    return mContainer->GetContentView();
  }

  void SetOkButton(moxcore::utility::IntrusivePtr<controls::UI_Button> button);
  void SetCancelButton(moxcore::utility::IntrusivePtr<controls::UI_Button> button);
  void SetPostCloseCallback(PostCloseCallback callback) { mPostClose = std::move(callback); }

  /// Opens the dialog and waits until it is closed. A close by the user means kCancel. While it is open
  /// already nothing happens, and the response is kNone.
  Response RunModal();
  Response GetResponse() const { return mContainer->GetResponse(); }
  /// End the run.
  void Accept() { Close(Response::kOk); }
  void Cancel() { Close(Response::kCancel); }
  void Close(Response response) { mContainer->Close(response); }

 private:
  UI_Dialog(moxcore::Utf16String const& title, WindowVariant const& parent, ExtentT<float> size,
            moxcore::utility::IntrusivePtr<UI_DialogViewContainer> container);

  moxcore::utility::IntrusivePtr<UI_DialogViewContainer> mContainer;
  PostCloseCallback mPostClose;
};

}  // namespace moxui::dialogs
