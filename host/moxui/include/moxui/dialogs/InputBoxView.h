#pragma once

#include <moxui/controls/UI_StaticText.h>
#include <moxui/controls/UI_TextEdit.h>
#include <moxui/dialogs/ButtonRow.h>
#include <moxui/dialogs/DialogButton.h>
#include <moxui/ui/UI_SubView.h>

#include <cstddef>
#include <functional>

namespace moxui::dialogs {

/// What an input box asks for.
struct InputBoxContent {
  moxcore::Utf16String title;
  moxcore::Utf16String prompt;
  moxcore::Utf16String text;
  bool selectsText = true;
  bool readOnly = false;
  std::size_t minLength = 0;  ///< in UTF-16 units; 0 for no bound
  std::size_t maxLength = 0;
  unsigned acceptButton = DialogButton::kOk;
  unsigned cancelButton = DialogButton::kCancel;
};

/// The inside of an input box: a prompt, a field, a row of two buttons at the right. Calls `answered`, which
/// is not empty, once a button was pressed, or a key that means one. A text that is too short can't be
/// accepted.
class InputBoxView : public ui::UI_SubView {
 public:
  InputBoxView(InputBoxContent content, std::function<void(unsigned answer)> answered);
  ~InputBoxView() override;

  /// The size that the content wants; the view is laid out for it.
  ExtentT<float> GetPreferredExtent() const { return mExtent; }
  moxcore::Utf16String GetText() const { return mEdit->GetValue(); }
  void FocusText();

  void UI_Draw(scriber::Scriber* scriber) const override;
  ui::AccessibleRole UI_GetAccessibleRole() const override { return ui::AccessibleRole::kDialog; }
  moxcore::Utf8String UI_GetAccessibleName() const override;
  bool UI_DoPreKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) override;

 private:
  void Arrange();
  bool CanBeAccepted() const { return GetText().size() >= mContent.minLength; }
  void TextEdited(controls::UI_ControlChangedMessage& message);

  InputBoxContent mContent;
  std::function<void(unsigned)> mAnswered;
  moxcore::utility::IntrusivePtr<controls::UI_StaticText> mPrompt;
  moxcore::utility::IntrusivePtr<controls::UI_TextEdit> mEdit;
  ButtonRow mButtons;
  ExtentT<float> mExtent;
};

}  // namespace moxui::dialogs
