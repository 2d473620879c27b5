#include "../skins/BoxPainting.h"
#include "../skins/MarkPainting.h"
#include "ControlPainting.h"

#include <moxui/controls/UI_DisclosureTriangleButton.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/ui/KeyboardEvent.h>

namespace moxui::controls {
namespace {

constexpr float kSide = 16.0f;

}  // namespace

UI_DisclosureTriangleButton::UI_DisclosureTriangleButton() {
  SetButtonStyle(ButtonStyle::kToggle);
}

UI_DisclosureTriangleButton::~UI_DisclosureTriangleButton() = default;

void UI_DisclosureTriangleButton::UI_Draw(scriber::Scriber* scriber) const {
  skins::ControlLook const look = GetControlLook(*this);
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  skins::PaintDisclosureTriangle(scriber, rect, GetValue(), look);
  if (ShowsFocusRing()) {
    skins::DrawFocusRing(scriber, rect, look.Number(skins::SkinNumber::kCornerRadius),
                         look.Color(ui::ThemeColorID::kFocus));
  }
  // NOLINTNEXTLINE(bugprone-parent-virtual-call): in place of what UI_Button does
  ui::UI_SubView::UI_Draw(scriber);
}

ExtentT<float> UI_DisclosureTriangleButton::UI_GetRecommendedSize(scriber::Scriber*) const {
  return {kSide, kSide};
}

bool UI_DisclosureTriangleButton::UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) {
  bool const isMirrored = skins::IsRightToLeft();
  auto const forward = isMirrored ? ui::KeyboardCode::kLeft : ui::KeyboardCode::kRight;
  auto const back = isMirrored ? ui::KeyboardCode::kRight : ui::KeyboardCode::kLeft;
  bool const expands = event.CompareShortcut(forward, ui::ModKey::kNone);
  bool const collapses = event.CompareShortcut(back, ui::ModKey::kNone);
  if (event.IsAction(ui::KeyAction::kKeyDown) && (expands || collapses) && !IsDisabled()) {
    if (IsValueUnknown() || GetValue() != expands) {
      SetValue(expands);
      SendValueChangedMessage();
    }
    return true;
  }
  return UI_Button::UI_DoKeyboardEvent(node, event);
}

ui::AccessibleState UI_DisclosureTriangleButton::UI_GetAccessibleState() const {
  ui::AccessibleState state = UI_Button::UI_GetAccessibleState();
  state.isExpandable = true;
  state.isExpanded = state.isChecked;
  state.isCheckable = false;
  state.isChecked = false;
  return state;
}

}  // namespace moxui::controls
