#pragma once

#include <moxcore/string/String.h>
#include <moxui/controls/UI_Button.h>
#include <moxui/dialogs/DialogButton.h>
#include <moxui/ui/UI_SubView.h>

#include <cstdint>
#include <functional>

namespace moxui::dialogs {

/// The root of all that a dialog's window shows: a ground with the content view on it, as large as the
/// window. Enter presses the OK button, or without one the button with the default appearance; Escape presses
/// the cancel button, or without one ends the dialog; each after the control with the focus has had the key.
class UI_DialogViewContainer : public ui::UI_SubView {
 public:
  /// How a dialog ended. The numbers are those of the buttons of boxes; a dialog may give others.
  enum class Response : std::int32_t { kNone = 0, kOk = DialogButton::kOk, kCancel = DialogButton::kCancel };

  explicit UI_DialogViewContainer(moxcore::Utf16String title);
  ~UI_DialogViewContainer() override;

  /// Its children follow its size by their bindings.
  moxcore::utility::IntrusivePtr<ui::UI_SubView> const& GetContentView() const { return mContentView; }

  /// A button that closes with kOk, or with kCancel. Null for none; the one before stays bound.
  void SetOkButton(moxcore::utility::IntrusivePtr<controls::UI_Button> button);
  void SetCancelButton(moxcore::utility::IntrusivePtr<controls::UI_Button> button);

  /// The answer of the last run; kNone before it ends.
  Response GetResponse() const { return mResponse; }
  /// Ends the run with an answer. The first one of a run stands.
  void Close(Response response);
  /// A run begins: no answer has been given, and `closed` hears the one that will be.
  void Open(std::function<void(Response)> closed);
  /// Gives the focus to the first control that wants it, unless one has it.
  void FocusFirstControl();

  void UI_Draw(scriber::Scriber* scriber) const override;
  void UI_SizeChanged(RectT<float> const& rect) override;
  bool UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) override;
  ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;

 private:
  void OkPressed(controls::UI_ControlChangedMessage& message);
  void CancelPressed(controls::UI_ControlChangedMessage& message);

  moxcore::Utf16String mTitle;
  moxcore::utility::IntrusivePtr<ui::UI_SubView> mContentView;
  moxcore::utility::IntrusivePtr<controls::UI_Button> mOkButton;
  moxcore::utility::IntrusivePtr<controls::UI_Button> mCancelButton;
  std::function<void(Response)> mClosed;
  Response mResponse = Response::kNone;
};

}  // namespace moxui::dialogs
