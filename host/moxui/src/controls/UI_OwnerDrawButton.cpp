#include <moxui/controls/UI_OwnerDrawButton.h>

#include <utility>

namespace moxui::controls {

UI_OwnerDrawButton::UI_OwnerDrawButton() = default;

UI_OwnerDrawButton::~UI_OwnerDrawButton() = default;

void UI_OwnerDrawButton::SetOwnerDrawFunction(OwnerDrawFunction function) {
  mOwnerDraw = std::move(function);
  UI_Invalidate();
}

void UI_OwnerDrawButton::UI_Draw(scriber::Scriber* scriber) const {
  if (!mOwnerDraw) {
    UI_Button::UI_Draw(scriber);
    return;
  }
  // A copy: the function may be replaced while it draws. It takes the button as clients keep it; drawing
  // doesn't change it.
  auto const draw = mOwnerDraw;
  draw(const_cast<UI_OwnerDrawButton*>(this), scriber);
  // NOLINTNEXTLINE(bugprone-parent-virtual-call): in place of what UI_Button does
  ui::UI_SubView::UI_Draw(scriber);
}

}  // namespace moxui::controls
