// What assistive software reads of edited text, and how it changes it.
#include <moxcore/string/Encoding.h>
#include <moxui/controls/OS_EditText.h>
#include <moxui/controls/UI_ControlView.h>

namespace moxui::controls {

ui::AccessibleRole OS_EditText::UI_GetAccessibleRole() const {
  return ui::AccessibleRole::kTextField;
}

moxcore::Utf8String OS_EditText::UI_GetAccessibleName() const {
  ui::UI_Node const* const parent = UI_GetParentNode();
  return parent != nullptr ? parent->UI_GetAccessibleName() : UI_Node::UI_GetAccessibleName();
}

moxcore::Utf8String OS_EditText::UI_GetAccessibleDescription() const {
  ui::UI_Node const* const parent = UI_GetParentNode();
  return parent != nullptr ? parent->UI_GetAccessibleDescription() : UI_Node::UI_GetAccessibleDescription();
}

moxcore::Utf8String OS_EditText::UI_GetAccessibleValue() const {
  auto const* const control = dynamic_cast<UI_ControlView const*>(UI_GetParentNode());
  bool const isUnknown = control != nullptr && control->IsValueUnknown();
  return isUnknown ? moxcore::Utf8String() : moxcore::string::UTF16to8(mText);
}

ui::AccessibleState OS_EditText::UI_GetAccessibleState() const {
  ui::AccessibleState state = UI_Node::UI_GetAccessibleState();
  state.isEditable = !mIsReadOnly;
  state.isReadOnly = mIsReadOnly;
  state.isMultiLine = mIsMultiLine;
  return state;
}

bool OS_EditText::ReplaceText(platform::TextSelection stretch, moxcore::Utf16String const& text) {
  moxcore::utility::IntrusivePtr<OS_EditText> const self(this);
  platform::TextEditor* const editor = Editor();
  if (editor == nullptr || mIsReadOnly || UI_IsDisabled()) {
    return false;
  }
  SetSelection(stretch);
  if (!text.empty()) {
    editor->InsertText(text);
  } else if (!GetSelection().IsEmpty()) {
    editor->Perform(platform::EditCommand::kDelete);
  }
  return true;
}

}  // namespace moxui::controls
