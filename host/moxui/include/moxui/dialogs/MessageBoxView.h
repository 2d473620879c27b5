#pragma once

#include <moxui/controls/UI_StaticText.h>
#include <moxui/dialogs/ButtonRow.h>
#include <moxui/dialogs/MessageBox.h>
#include <moxui/ui/UI_SubView.h>

#include <functional>

namespace moxui::dialogs {

/// What a message box says.
struct MessageBoxContent {
  moxcore::Utf16String title;
  moxcore::Utf16String text;
  unsigned buttons = DialogButton::kOk;
  unsigned defaultButton = DialogButton::kOk;
  unsigned cancelButton = DialogButton::kOk;  ///< what Escape means
  messagebox::MessageIcon icon = messagebox::MessageIcon::kNone;
  float textWidth = 0.0f;  ///< 0 for the usual width
};

/// The inside of a message box: icon, wrapped text, a row of buttons at the right; mirrored where the
/// interface is laid out from right to left. Calls `answered`, which is not empty, once a button was pressed,
/// or a key that means one.
class MessageBoxView : public ui::UI_SubView {
 public:
  MessageBoxView(MessageBoxContent content, std::function<void(unsigned answer)> answered);
  ~MessageBoxView() override;

  /// The size that the content wants; the view is laid out for it.
  ExtentT<float> GetPreferredExtent() const { return mExtent; }
  void FocusDefaultButton();

  void UI_Draw(scriber::Scriber* scriber) const override;
  ui::AccessibleRole UI_GetAccessibleRole() const override { return ui::AccessibleRole::kDialog; }
  /// The title; what the box says is its description.
  moxcore::Utf8String UI_GetAccessibleName() const override;
  moxcore::Utf8String UI_GetAccessibleDescription() const override;
  bool UI_DoPreKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) override;

 private:
  void Arrange();

  MessageBoxContent mContent;
  std::function<void(unsigned)> mAnswered;
  moxcore::utility::IntrusivePtr<controls::UI_StaticText> mText;
  ButtonRow mButtons;
  ExtentT<float> mExtent;
};

}  // namespace moxui::dialogs
