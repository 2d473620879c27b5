// How a popup is worked: its menu, and the keys that choose without it.
#include "PressCapture.h"

#include <moxui/controls/UI_Popup.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/MouseEvent.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/NodeTreeHost.h>
#include <moxui/ui/OS_Menu.h>

namespace moxui::controls {

using moxcore::utility::IntrusivePtr;

void UI_Popup::OpenMenu() {
  IntrusivePtr<UI_Popup> const self(this);
  IntrusivePtr<ui::OS_Menu> const menu = ui::CreateOSMenu();
  for (std::size_t i = 0; i < mItems.size(); ++i) {
    PopupItem const& item = mItems[i];
    if (item.isSeparator) {
      menu->AddSeparator();
      continue;
    }
    int const id = static_cast<int>(i) + 1;
    menu->AddItem(id, item.text);
    menu->EnableItem(id, item.isEnabled);
    bool const isCurrent = static_cast<std::int64_t>(i) == mValue && !IsValueUnknown();
    menu->CheckItem(id, isCurrent && mCheckStyle == ItemCheckStyle::kCurrent);
  }
  SetDownState(true);
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  // The current item opens over the box, so that choosing it again needs no way.
  bool const hasCurrent = CanChoose(mValue) && !IsValueUnknown();
  menu->SetInitialItem(hasCurrent ? static_cast<int>(mValue) + 1 : 0);
  float const leading = skins::IsRightToLeft() ? rect.Right() : rect.left;
  PointT<float> const corner(leading, hasCurrent ? rect.top : rect.Bottom());
  menu->SetMinimumWidth(UI_LocalToGlobalF({rect.Right(), rect.top}).x - UI_LocalToGlobalF(rect.TopLeft()).x);
  int const chosen = UI_DoContextMenu(menu.Get(), this, corner);
  SetDownState(false);
  if (chosen > 0) {
    Choose(chosen - 1);
  }
}

bool UI_Popup::UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) {
  // NOLINTNEXTLINE(bugprone-parent-virtual-call): in place of what UI_Button does
  if (UI_InteractiveControlView::UI_DoMouseEvent(node, event)) {
    return true;
  }
  if (!event.IsAction(ui::PointerAction::kPress) || !event.IsButton(ui::MouseButton::kLeft) || IsDisabled()) {
    return false;
  }
  IntrusivePtr<UI_Popup> const self(this);
  TakeFocusForPress();
  if (PressCapture::CanStart(*this)) {
    OpenMenu();
  }
  return true;
}

void UI_Popup::Clicked() {
  OpenMenu();
}

bool UI_Popup::UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) {
  if (IsDisabled() || !event.IsAction(ui::KeyAction::kKeyDown)) {
    return UI_Button::UI_DoKeyboardEvent(node, event);
  }
  bool const isPlain = event.GetModKey().IsEmpty();
  bool const isOption = event.GetModKey() == ui::ModKeys(ui::ModKey::kOption);
  switch (event.GetCode()) {
    case ui::KeyboardCode::kDown:
    case ui::KeyboardCode::kUp:
      if (isPlain || isOption) {
        PerformClick();
        return true;
      }
      break;
    case ui::KeyboardCode::kSpace:
      // While a text is typed, a space is part of it.
      if (isPlain && mTypeAhead.IsTypingOn(GetTypingTime())) {
        ChooseTyped(u" ");
        return true;
      }
      if (isPlain) {
        PerformClick();
        return true;
      }
      break;
    case ui::KeyboardCode::kLeft:
      if (isPlain && Step(-1)) {
        return true;
      }
      break;
    case ui::KeyboardCode::kRight:
      if (isPlain && Step(1)) {
        return true;
      }
      break;
    default:
      if (TypeAhead::IsTyping(event) && ChooseTyped(event.GetText())) {
        return true;
      }
      break;
  }
  return UI_Button::UI_DoKeyboardEvent(node, event);
}

bool UI_Popup::Step(int step) {
  auto const count = static_cast<std::int64_t>(mItems.size());
  bool const isItem = mValue >= 0 && mValue < count;
  std::int64_t value = isItem ? mValue + step : (step > 0 ? 0 : count - 1);
  while (value >= 0 && value < count) {
    if (CanChoose(value)) {
      Choose(value);
      return true;
    }
    value += step;
  }
  return false;
}

double UI_Popup::GetTypingTime() const {
  ui::NodeTree const* const tree = UI_GetTree();
  return tree != nullptr ? tree->GetHost().GetTime() : 0.0;
}

bool UI_Popup::ChooseTyped(moxcore::Utf16String const& typed) {
  auto const textOf = [this](std::int64_t value) {
    return CanChoose(value) ? std::optional(mItems[static_cast<std::size_t>(value)].text) : std::nullopt;
  };
  auto const found =
      mTypeAhead.Type(typed, GetTypingTime(), static_cast<std::int64_t>(mItems.size()), mValue, textOf);
  if (found) {
    Choose(*found);
  }
  return found.has_value();
}

}  // namespace moxui::controls
