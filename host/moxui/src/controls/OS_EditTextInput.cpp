// How edited text is worked: focus, caret, pointer, keys, menu.
#include "PressCapture.h"

#include <moxcore/config/Localizer.h>
#include <moxui/controls/OS_EditText.h>
#include <moxui/platform/Application.h>
#include <moxui/platform/CursorControl.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/MouseEvent.h>
#include <moxui/ui/OS_Menu.h>
#include <moxui/ui/UI_NodeManager.h>

#include <algorithm>
#include <array>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;
using platform::EditCommand;

constexpr float kBlinkPeriod = 530.0f;  // milliseconds

struct MenuLine {
  EditCommand command;
  char const* text;
  bool changes;  // of no use in a text that can't be changed
  bool needsSelection;
};

constexpr std::array kMenu = {
    MenuLine{EditCommand::kUndo, "$$$/moxui/EditText/Undo=Undo", true, false},
    MenuLine{EditCommand::kRedo, "$$$/moxui/EditText/Redo=Redo", true, false},
    MenuLine{EditCommand::kCut, "$$$/moxui/EditText/Cut=Cut", true, true},
    MenuLine{EditCommand::kCopy, "$$$/moxui/EditText/Copy=Copy", false, true},
    MenuLine{EditCommand::kPaste, "$$$/moxui/EditText/Paste=Paste", true, false},
    MenuLine{EditCommand::kDelete, "$$$/moxui/EditText/Delete=Delete", true, true},
    MenuLine{EditCommand::kSelectAll, "$$$/moxui/EditText/SelectAll=Select All", false, false},
};

bool StartsGroup(EditCommand command) {
  return command == EditCommand::kCut || command == EditCommand::kSelectAll;
}

}  // namespace

void OS_EditText::UI_FocusChanged(ui::FocusChangeReason reason) {
  UI_Node::UI_FocusChanged(reason);
  if (UI_HasKeyboardFocus()) {
    bool const comesByItself =
        reason == ui::FocusChangeReason::kTraversal || reason == ui::FocusChangeReason::kByCode;
    if (comesByItself) {
      SelectAll();
    }
    RestartBlinking();
  } else {
    UI_RemoveTimer(mBlinkTimer);
    mComposition.clear();
    mScroll = 0.0f;
  }
  UI_Invalidate();
}

void OS_EditText::RestartBlinking() {
  mCaretIsLit = true;
  if (UI_HasKeyboardFocus()) {
    UI_InstallTimer(kBlinkPeriod, mBlinkTimer);
  }
}

bool OS_EditText::UI_DoTimerNotify(int id) {
  if (id != mBlinkTimer) {
    return UI_Node::UI_DoTimerNotify(id);
  }
  mCaretIsLit = !mCaretIsLit;
  UI_Invalidate(GetCaretRect());
  return true;
}

bool OS_EditText::UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) {
  if (UI_IsDisabled() || !event.IsAction(ui::KeyAction::kKeyDown)) {
    return UI_Node::UI_DoKeyboardEvent(node, event);
  }
  switch (event.GetCode()) {
    case ui::KeyboardCode::kReturn:
    case ui::KeyboardCode::kEnter:
    case ui::KeyboardCode::kEscape:
    case ui::KeyboardCode::kTab:
      return UI_Node::UI_DoKeyboardEvent(node, event);
    default:
      break;
  }
  IntrusivePtr<OS_EditText> const self(this);
  platform::TextEditor* const editor = Editor();
  return (editor != nullptr && editor->HandleKey(event)) || UI_Node::UI_DoKeyboardEvent(node, event);
}

bool OS_EditText::UI_DoComposition(moxcore::Utf16String const& text, std::size_t caret) {
  if (mIsReadOnly || UI_IsDisabled()) {
    return false;
  }
  mComposition = text;
  mCompositionCaret = std::min(caret, text.size());
  KeepCaretInSight();
  RestartBlinking();
  UI_Invalidate();
  return true;
}

bool OS_EditText::UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) {
  if (node != this || UI_IsDisabled() || !event.IsAction(ui::PointerAction::kPress)) {
    return UI_Node::UI_DoMouseEvent(node, event);
  }
  IntrusivePtr<OS_EditText> const self(this);
  if (!UI_HasKeyboardFocus()) {
    UI_GainKeyboardFocus(ui::FocusChangeReason::kPointer);
  }
  if (event.IsRightButtonSingleDown()) {
    ShowEditMenu(event.GetPosition());
    return true;
  }
  if (!event.IsButton(ui::MouseButton::kLeft)) {
    return UI_Node::UI_DoMouseEvent(node, event);
  }
  Press(event);
  return true;
}

// One click places the caret (with Shift it moves the selection's end), two choose the word, three all.
void OS_EditText::Press(ui::MouseEvent const& event) {
  platform::TextEditor* const editor = Editor();
  if (editor == nullptr) {
    return;
  }
  std::size_t const position = GetPositionAt(event.GetPosition());
  if (event.GetClickCount() >= 3) {
    SelectAll();
    return;
  }
  if (event.GetClickCount() == 2) {
    SetSelection(editor->GetWordAt(position));
    return;
  }
  bool const extends = event.GetModKey().Has(ui::ModKey::kShift);
  std::size_t const anchor = extends ? GetSelection().anchor : position;
  SetSelection({.anchor = anchor, .caret = position});
  RestartBlinking();
  PressCapture::Start(
      this, event,
      [this, anchor](ui::MouseEvent const& next) {
        if (next.IsAction(ui::PointerAction::kMove)) {
          SetSelection({.anchor = anchor, .caret = GetPositionAt(next.GetPosition())});
        }
      },
      [] {});
}

void OS_EditText::ShowEditMenu(PointT<float> point) {
  IntrusivePtr<ui::OS_Menu> const menu = ui::CreateOSMenu();
  bool const hasSelection = !GetSelection().IsEmpty();
  for (std::size_t i = 0; i < kMenu.size(); ++i) {
    MenuLine const& line = kMenu[i];
    int const id = static_cast<int>(i) + 1;
    if (StartsGroup(line.command)) {
      menu->AddSeparator();
    }
    menu->AddItem(id, moxcore::config::Localizer::Get().GetUTF16String(line.text));
    menu->EnableItem(id, !(line.changes && mIsReadOnly) && !(line.needsSelection && !hasSelection));
  }
  int const chosen = UI_DoContextMenu(menu.Get(), this, point);
  if (chosen > 0 && static_cast<std::size_t>(chosen) <= kMenu.size()) {
    Perform(kMenu[static_cast<std::size_t>(chosen) - 1].command);
  }
}

bool OS_EditText::UI_DoCursor(ui::UI_Node* node, PointT<float> point, unsigned flags) {
  platform::Application* const application = platform::Application::Get();
  if (application == nullptr || UI_IsDisabled()) {
    return UI_Node::UI_DoCursor(node, point, flags);
  }
  application->GetCursor().DisplayCursor(platform::CursorID::kIBeam, platform::CursorMode::kUntilNext);
  return true;
}

}  // namespace moxui::controls
