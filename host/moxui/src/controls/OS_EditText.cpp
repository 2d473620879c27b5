#include "OS_EditTextLayout.h"

#include <moxui/platform/Application.h>
#include <moxui/skins/ThemeFont.h>
#include <moxui/ui/UI_NodeManager.h>

#include <algorithm>
#include <utility>

namespace moxui::controls {

OS_EditText::OS_EditText()
    : mBlinkTimer(ui::UI_NodeManager::GetUniqueTimerID()),
      mDragTimer(ui::UI_NodeManager::GetUniqueTimerID()) {
  UI_SetClipsChildren(true);
}

OS_EditText::~OS_EditText() = default;

moxcore::Utf8String OS_EditText::GetDefaultFontName() {
  return ui::GetFontName(ui::FontIndex::kText);
}

// The editor is made when it is first needed: a text that is only shown needs none.
platform::TextEditor* OS_EditText::Editor() {
  platform::Application* const application = platform::Application::Get();
  if (!mEditor && application != nullptr) {
    mEditor = application->NewTextEditor(mIsMultiLine);
    mEditor->SetMaxLength(mMaxLength);
    mEditor->SetText(mText);
    mEditor->SetReadOnly(mIsReadOnly);
    mEditor->SetChangedFunction([this] { EditorChanged(); });
  }
  return mEditor.get();
}

void OS_EditText::SetText(moxcore::Utf16String const& text) {
  mText = platform::FitText(text, mIsMultiLine, mMaxLength);
  if (mEditor) {
    mEditor->SetText(mText);
  }
  mGoal.reset();
  if (UI_HasKeyboardFocus()) {
    KeepCaretInSight();
  } else {
    mScroll = {};
    TellScrolled();
  }
  UI_Invalidate();
  UI_TellAccessibleChange(ui::AccessibleChange::kText);
}

moxcore::Utf16String OS_EditText::GetText() const {
  return mText;
}

platform::TextSelection OS_EditText::GetSelection() const {
  return mEditor ? mEditor->GetSelection()
                 : platform::TextSelection{.anchor = mText.size(), .caret = mText.size()};
}

void OS_EditText::SetSelection(platform::TextSelection selection) {
  if (auto* const editor = Editor()) {
    editor->SetSelection({.anchor = std::min(selection.anchor, mText.size()),
                          .caret = std::min(selection.caret, mText.size())});
    mGoal.reset();
    KeepCaretInSight();
    UI_Invalidate();
    UI_TellAccessibleChange(ui::AccessibleChange::kCaret);
  }
}

void OS_EditText::SelectAll() {
  SetSelection({.anchor = 0, .caret = mText.size()});
}

bool OS_EditText::Perform(platform::EditCommand command) {
  auto* const editor = Editor();
  return editor != nullptr && editor->Perform(command);
}

void OS_EditText::EditorChanged() {
  moxcore::utility::IntrusivePtr<OS_EditText> const self(this);
  moxcore::Utf16String text = mEditor->GetText();
  bool const isEdit = text != mText;
  mText = std::move(text);
  mGoal.reset();
  KeepCaretInSight();
  RestartBlinking();
  UI_Invalidate();
  UI_TellAccessibleChange(isEdit ? ui::AccessibleChange::kText : ui::AccessibleChange::kCaret);
  if (isEdit && mEdited) {
    mEdited();
  }
}

void OS_EditText::SetMultiLine(bool multiLine) {
  if (std::exchange(mIsMultiLine, multiLine) == multiLine) {
    return;
  }
  mEditor.reset();  // it is made for the one or the other
  SetText(mText);
  UI_TellAccessibleChange(ui::AccessibleChange::kState);
}

void OS_EditText::SetFont(moxcore::Utf8String name, float size, moxcore::Utf8String style) {
  mFontName = std::move(name);
  mFontSize = size;
  mFontStyle = std::move(style);
  KeepCaretInSight();
  UI_Invalidate();
}

void OS_EditText::SetAlignment(ControlAlignment alignment) {
  if (std::exchange(mAlignment, alignment) != alignment) {
    UI_Invalidate();
  }
}

void OS_EditText::SetTextColor(ColorRGBAOptional colour) {
  if (std::exchange(mTextColor, colour) != colour) {
    UI_Invalidate();
  }
}

void OS_EditText::SetPlaceholder(moxcore::Utf16String text) {
  mPlaceholder = std::move(text);
  UI_Invalidate();
}

void OS_EditText::SetReadOnly(bool readOnly) {
  if (std::exchange(mIsReadOnly, readOnly) == readOnly) {
    return;
  }
  if (mEditor) {
    mEditor->SetReadOnly(readOnly);
  }
  UI_Invalidate();
  UI_TellAccessibleChange(ui::AccessibleChange::kState);
}

void OS_EditText::SetMaxLength(std::size_t units) {
  mMaxLength = units;
  if (mEditor) {
    mEditor->SetMaxLength(units);
  }
  if (units > 0 && mText.size() > units) {
    SetText(mText);
  }
}

void OS_EditText::UI_SizeChanged(RectT<float> const& rect) {
  UI_Node::UI_SizeChanged(rect);
  if (UI_HasKeyboardFocus()) {
    KeepCaretInSight();
  } else {
    SetScrollOffset(mScroll.y);
    TellScrolled();
  }
}

bool OS_EditText::UI_WantsKeyboardFocus() const {
  return true;
}

}  // namespace moxui::controls
