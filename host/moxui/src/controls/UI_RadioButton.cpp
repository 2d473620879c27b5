#include "../skins/BoxPainting.h"
#include "../skins/MarkPainting.h"
#include "ControlPainting.h"
#include "LabelledMark.h"

#include <moxcore/string/Encoding.h>
#include <moxui/controls/UI_RadioButton.h>
#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/ui/KeyboardEvent.h>

#include <vector>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;

float SideOf(skins::SkinSet const& skinSet, ComponentSize size) {
  return GetControlHeight(skinSet, skins::SkinNumber::kRadioSize, size);
}

// The radio buttons under one parent, in order; references, since choosing one may change the parent.
std::vector<IntrusivePtr<UI_RadioButton>> GetGroup(UI_RadioButton& member) {
  std::vector<IntrusivePtr<UI_RadioButton>> group;
  ui::UI_Node* const parent = member.UI_GetParentNode();
  ui::UI_Container* const container = parent != nullptr ? parent->UI_GetContainer() : nullptr;
  if (container == nullptr) {
    group.emplace_back(&member);
    return group;
  }
  for (std::size_t i = 0; i < container->ChildSize(); ++i) {
    if (auto* const radio = dynamic_cast<UI_RadioButton*>(container->ChildGet(i).Get())) {
      group.emplace_back(radio);
    }
  }
  return group;
}

int StepOf(ui::KeyboardEvent const& event) {
  using ui::KeyboardCode;
  bool const isPlain = event.IsAction(ui::KeyAction::kKeyDown) && event.GetModKey().IsEmpty();
  if (!isPlain) {
    return 0;
  }
  switch (event.GetCode()) {
    case KeyboardCode::kDown:
      return 1;
    case KeyboardCode::kUp:
      return -1;
    case KeyboardCode::kRight:
      return skins::IsRightToLeft() ? -1 : 1;
    case KeyboardCode::kLeft:
      return skins::IsRightToLeft() ? 1 : -1;
    default:
      return 0;
  }
}

}  // namespace

UI_RadioButton::UI_RadioButton(ComponentSize size) {
  ButtonComponents components;
  components.SetComponentSize(size);
  SetComponents(components);
  SetButtonStyle(ButtonStyle::kToggle);
}

UI_RadioButton::~UI_RadioButton() = default;

float UI_RadioButton::GetDefaultButtonSize() {
  return SideOf(skins::SkinSet::Get(), ComponentSize::kDefault);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): callers hand their text over
void UI_RadioButton::SetTextLabel(moxcore::Utf16String text) {
  StoreLabel(mLabel.text, text);
}

void UI_RadioButton::SetLabelText(moxcore::Utf8String const& text) {
  SetTextLabel(moxcore::string::UTF8to16(text));
}

RectT<float> UI_RadioButton::GetMarkRect() const {
  float const side = SideOf(UI_GetCurrentSkinSet(), GetComponents().GetComponentSize());
  return controls::GetMarkRect(UI_GetLocalRectF(ui::RectSpace::kOwn), side, !mLabel.text.empty());
}

void UI_RadioButton::UI_Draw(scriber::Scriber* scriber) const {
  skins::ControlLook const look = GetControlLook(*this);
  RectT<float> const mark = GetMarkRect();
  skins::PaintRadioMark(scriber, mark, GetValue(), look);
  if (scriber::FontP const font = GetControlFont(mLabel, *this, scriber->GetSupplier())) {
    DrawMarkLabel(scriber, UI_GetLocalRectF(ui::RectSpace::kOwn), mark, mLabel, *font, look);
  }
  if (ShowsFocusRing()) {
    skins::DrawFocusRing(scriber, mark, mark.width / 2.0f, look.Color(ui::ThemeColorID::kFocus));
  }
  // NOLINTNEXTLINE(bugprone-parent-virtual-call): in place of what UI_Button does
  ui::UI_SubView::UI_Draw(scriber);
}

ExtentT<float> UI_RadioButton::UI_GetRecommendedSize(scriber::Scriber* scriber) const {
  skins::SkinSet const& skinSet = UI_GetCurrentSkinSet();
  scriber::FontP const font = GetControlFont(mLabel, *this, scriber->GetSupplier());
  return GetLabelledMarkSize(SideOf(skinSet, GetComponents().GetComponentSize()),
                             skinSet.GetNumber(skins::SkinNumber::kControlHeight), mLabel, font.Get());
}

bool UI_RadioButton::UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) {
  int const step = StepOf(event);
  if (step != 0 && !IsDisabled() && ChooseSibling(step)) {
    return true;
  }
  return UI_Button::UI_DoKeyboardEvent(node, event);
}

bool UI_RadioButton::ChooseSibling(int step) {
  auto const group = GetGroup(*this);
  auto const count = static_cast<int>(group.size());
  int self = 0;
  while (group[static_cast<std::size_t>(self)].Get() != this) {
    ++self;
  }
  for (int distance = 1; distance < count; ++distance) {
    int const index = ((self + step * distance) % count + count) % count;
    UI_RadioButton& sibling = *group[static_cast<std::size_t>(index)];
    if (sibling.UI_IsShown() && !sibling.IsDisabled()) {
      sibling.UI_GainKeyboardFocus(ui::FocusChangeReason::kTraversal);
      sibling.PerformClick();
      return true;
    }
  }
  return false;
}

void UI_RadioButton::Clicked() {
  if (GetValue() && !IsValueUnknown()) {
    return;
  }
  for (auto const& member : GetGroup(*this)) {
    if (member.Get() != this) {
      member->SetValue(false);
    }
  }
  SetValue(true);
  SendValueChangedMessage();
}

ui::AccessibleRole UI_RadioButton::UI_GetAccessibleRole() const {
  return ui::AccessibleRole::kRadioButton;
}

moxcore::Utf8String UI_RadioButton::UI_GetAccessibleName() const {
  return GetAccessibleNameOr(mLabel.text);
}

}  // namespace moxui::controls
