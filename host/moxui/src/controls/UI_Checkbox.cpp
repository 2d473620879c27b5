#include "../skins/BoxPainting.h"
#include "../skins/MarkPainting.h"
#include "ControlPainting.h"
#include "LabelledMark.h"

#include <moxcore/string/Encoding.h>
#include <moxui/controls/UI_Checkbox.h>
#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/Scriber.h>

namespace moxui::controls {
namespace {

constexpr float kBoxRadius = 2.0f;

float SideOf(skins::SkinSet const& skinSet, ComponentSize size) {
  return GetControlHeight(skinSet, skins::SkinNumber::kCheckSize, size);
}

}  // namespace

UI_Checkbox::UI_Checkbox(ComponentSize size) {
  ButtonComponents components;
  components.SetComponentSize(size);
  SetComponents(components);
  SetButtonStyle(ButtonStyle::kToggle);
}

UI_Checkbox::~UI_Checkbox() = default;

float UI_Checkbox::GetDefaultCheckSize(ComponentSize size, int) {
  return SideOf(skins::SkinSet::Get(), size);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): callers hand their text over
void UI_Checkbox::SetTextLabel(moxcore::Utf16String text) {
  StoreLabel(mLabel.text, text);
}

void UI_Checkbox::SetLabelText(moxcore::Utf8String const& text) {
  SetTextLabel(moxcore::string::UTF8to16(text));
}

void UI_Checkbox::SetFontIndex(ui::FontIndex index) {
  StoreVisual(mLabel.fontIndex, index);
}

RectT<float> UI_Checkbox::GetBoxRect() const {
  float const side = SideOf(UI_GetCurrentSkinSet(), GetComponents().GetComponentSize());
  return GetMarkRect(UI_GetLocalRectF(ui::RectSpace::kOwn), side, !mLabel.text.empty());
}

void UI_Checkbox::UI_Draw(scriber::Scriber* scriber) const {
  skins::ControlLook const look = GetControlLook(*this);
  RectT<float> const box = GetBoxRect();
  skins::PaintCheckBox(scriber, box, IsChecked(), look);
  if (scriber::FontP const font = GetControlFont(mLabel, *this, scriber->GetSupplier())) {
    DrawMarkLabel(scriber, UI_GetLocalRectF(ui::RectSpace::kOwn), box, mLabel, *font, look);
  }
  if (ShowsFocusRing()) {
    skins::DrawFocusRing(scriber, box, kBoxRadius, look.Color(ui::ThemeColorID::kFocus));
  }
  // NOLINTNEXTLINE(bugprone-parent-virtual-call): in place of what UI_Button does
  ui::UI_SubView::UI_Draw(scriber);
}

ExtentT<float> UI_Checkbox::UI_GetRecommendedSize(scriber::Scriber* scriber) const {
  skins::SkinSet const& skinSet = UI_GetCurrentSkinSet();
  scriber::FontP const font = GetControlFont(mLabel, *this, scriber->GetSupplier());
  return GetLabelledMarkSize(SideOf(skinSet, GetComponents().GetComponentSize()),
                             skinSet.GetNumber(skins::SkinNumber::kControlHeight), mLabel, font.Get());
}

ui::AccessibleRole UI_Checkbox::UI_GetAccessibleRole() const {
  return ui::AccessibleRole::kCheckBox;
}

moxcore::Utf8String UI_Checkbox::UI_GetAccessibleName() const {
  return GetAccessibleNameOr(mLabel.text);
}

}  // namespace moxui::controls
