// How edited text is worked by keys: focus, caret, lines, input methods, menu.
#include "OS_EditTextLayout.h"

#include <moxcore/config/Localizer.h>
#include <moxui/platform/Application.h>
#include <moxui/platform/CursorControl.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/NodeTreeHost.h>
#include <moxui/ui/OS_Menu.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;
using platform::EditCommand;

constexpr float kBlinkPeriod = 530.0f;  // milliseconds

struct MenuLine {
  EditCommand command;
  char const* text;
};

constexpr std::array kMenu = {
    MenuLine{EditCommand::kUndo, "$$$/moxui/EditText/Undo=Undo"},
    MenuLine{EditCommand::kRedo, "$$$/moxui/EditText/Redo=Redo"},
    MenuLine{EditCommand::kCut, "$$$/moxui/EditText/Cut=Cut"},
    MenuLine{EditCommand::kCopy, "$$$/moxui/EditText/Copy=Copy"},
    MenuLine{EditCommand::kPaste, "$$$/moxui/EditText/Paste=Paste"},
    MenuLine{EditCommand::kDelete, "$$$/moxui/EditText/Delete=Delete"},
    MenuLine{EditCommand::kSelectAll, "$$$/moxui/EditText/SelectAll=Select All"},
};

bool StartsGroup(EditCommand command) {
  return command == EditCommand::kCut || command == EditCommand::kSelectAll;
}

bool IsMenuKey(ui::KeyboardEvent const& event) {
  return event.CompareShortcut(ui::KeyboardCode::kContextMenu, {}) ||
         event.CompareShortcut(ui::KeyboardCode::kF10, ui::ModKey::kShift);
}

}  // namespace

void OS_EditText::UI_FocusChanged(ui::FocusChangeReason reason) {
  UI_Node::UI_FocusChanged(reason);
  if (UI_HasKeyboardFocus()) {
    bool const comesByItself =
        reason == ui::FocusChangeReason::kTraversal || reason == ui::FocusChangeReason::kByCode;
    if (comesByItself && mIsMultiLine) {
      KeepCaretInSight();  // what is typed next replaces a line, but doesn't wipe out a page
    } else if (comesByItself) {
      SelectAll();
    }
    RestartBlinking();
  } else {
    IntrusivePtr<OS_EditText> const self(this);
    UI_RemoveTimer(mBlinkTimer);
    FinishComposition();
    mScroll.x = 0.0f;
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
  if (id == mDragTimer) {
    ExtendTo(mDragPoint);
    return true;
  }
  if (id != mBlinkTimer) {
    return UI_Node::UI_DoTimerNotify(id);
  }
  mCaretIsLit = !mCaretIsLit;
  UI_Invalidate(GetCaretRect());
  return true;
}

// Keys

bool OS_EditText::LeavesToOthers(ui::KeyboardEvent const& event) const {
  switch (event.GetCode()) {
    case ui::KeyboardCode::kReturn:
      return !mIsMultiLine || event.GetModKey().Has(ui::ModKey::kCommand);
    case ui::KeyboardCode::kEnter:
    case ui::KeyboardCode::kEscape:
    case ui::KeyboardCode::kTab:
      return true;
    default:
      return false;
  }
}

bool OS_EditText::UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) {
  if (UI_IsDisabled() || !event.IsAction(ui::KeyAction::kKeyDown) || LeavesToOthers(event)) {
    return UI_Node::UI_DoKeyboardEvent(node, event);
  }
  IntrusivePtr<OS_EditText> const self(this);
  if (IsMenuKey(event)) {
    RectT<float> const caret = GetCaretRect();
    ShowEditMenu({caret.left, caret.Bottom()});
    return true;
  }
  if (MoveByLines(event)) {
    return true;
  }
  platform::TextEditor* const editor = Editor();
  return (editor != nullptr && editor->HandleKey(event)) || UI_Node::UI_DoKeyboardEvent(node, event);
}

// The platform's editor doesn't know how the lines are wrapped.
bool OS_EditText::MoveByLines(ui::KeyboardEvent const& event) {
  ui::ModKeys const mods = event.GetModKey();
  bool const extends = mods == ui::ModKeys(ui::ModKey::kShift);
  Laid const* const laid = mIsMultiLine && (mods.IsEmpty() || extends) ? Layout() : nullptr;
  if (laid == nullptr) {
    return false;
  }
  platform::TextSelection const before = GetSelection();
  std::size_t const here = laid->LineOf(before.caret);
  auto const last = static_cast<std::ptrdiff_t>(laid->layout->GetLines().size()) - 1;
  float const height = UI_GetLocalRectF(ui::RectSpace::kOwn).height;
  auto const page =
      std::max<std::ptrdiff_t>(static_cast<std::ptrdiff_t>(height / laid->Line(0).height) - 1, 1);
  std::ptrdiff_t lines = 0;
  std::size_t place = before.caret;
  switch (event.GetCode()) {
    case ui::KeyboardCode::kUp:
      lines = -1;
      break;
    case ui::KeyboardCode::kDown:
      lines = 1;
      break;
    case ui::KeyboardCode::kPageUp:
      lines = -page;
      break;
    case ui::KeyboardCode::kPageDown:
      lines = page;
      break;
    case ui::KeyboardCode::kHome:
      place = laid->Line(here).begin;
      break;
    case ui::KeyboardCode::kEnd:
      place = laid->LastPlaceIn(here);
      break;
    default:
      return false;
  }
  std::optional<float> goal;
  if (lines != 0) {
    goal = mGoal.value_or(laid->layout->GetCaretX(here, before.caret));
    std::ptrdiff_t const wanted = static_cast<std::ptrdiff_t>(here) + lines;
    auto const line = static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(wanted, 0, last));
    place = std::min(laid->layout->GetPositionAt(line, *goal), laid->LastPlaceIn(line));
    // Beyond the first and the last line lie the begin and the end.
    if (wanted < 0) {
      place = 0;
    } else if (wanted > last) {
      place = mText.size();
    }
  }
  SetSelection({.anchor = extends ? before.anchor : place, .caret = place});
  mGoal = goal;
  RestartBlinking();
  return true;
}

// Input methods

bool OS_EditText::UI_DoComposition(moxcore::Utf16String const& text, std::size_t caret) {
  if (mIsReadOnly || UI_IsDisabled()) {
    return false;
  }
  mComposition = platform::FitText(text, mIsMultiLine, 0);
  mCompositionCaret = std::min(caret, mComposition.size());
  KeepCaretInSight();
  RestartBlinking();
  UI_Invalidate();
  return true;
}

// Whoever goes on elsewhere keeps what was composed so far.
void OS_EditText::FinishComposition() {
  if (mComposition.empty()) {
    return;
  }
  moxcore::Utf16String const composed = std::exchange(mComposition, {});
  if (ui::NodeTree* const tree = UI_GetTree()) {
    tree->GetHost().ResetTextInput();
  }
  if (auto* const editor = Editor()) {
    editor->InsertText(composed);
  }
}

// Menu

void OS_EditText::ShowEditMenu(PointT<float> point) {
  platform::TextEditor const* const editor = Editor();
  if (editor == nullptr) {
    return;
  }
  IntrusivePtr<ui::OS_Menu> const menu = ui::CreateOSMenu();
  for (std::size_t i = 0; i < kMenu.size(); ++i) {
    MenuLine const& line = kMenu[i];
    int const id = static_cast<int>(i) + 1;
    if (StartsGroup(line.command)) {
      menu->AddSeparator();
    }
    menu->AddItem(id, moxcore::config::Localizer::Get().GetUTF16String(line.text));
    menu->EnableItem(id, editor->CanPerform(line.command));
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
