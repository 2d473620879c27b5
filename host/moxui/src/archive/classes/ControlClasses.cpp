#include "../ArchiveClasses.h"

#include <moxui/controls/UI_HotTextNumber.h>
#include <moxui/controls/UI_InteractiveControlView.h>
#include <moxui/controls/UI_Popup.h>
#include <moxui/controls/UI_StaticText.h>

namespace moxui::archive {

namespace {

using controls::UI_Button;
using controls::UI_ControlView;
using controls::UI_HotText;
using controls::UI_HotTextNumber;
using controls::UI_InteractiveControlView;
using controls::UI_Popup;
using controls::UI_StaticText;

/// A value means what the control shows: a popup's item, a text, a number, whether a button is on.
void SetValue(UI_ControlView& control, PropertyValue const& value) {
  if (auto* const popup = dynamic_cast<UI_Popup*>(&control)) {
    popup->SetValue(value.AsInteger());
  } else if (auto* const button = dynamic_cast<UI_Button*>(&control)) {
    button->SetValue(value.AsBoolean());
  } else if (auto* const text = dynamic_cast<UI_StaticText*>(&control)) {
    text->SetValue(value.AsText());
  } else if (auto* const number = dynamic_cast<UI_HotTextNumber*>(&control)) {
    number->SetValue(value.AsDouble());
  } else if (auto* const hotText = dynamic_cast<UI_HotText*>(&control)) {
    hotText->SetText(value.AsText());
  }
}

template <class Class>
bool SetBoolean(UI_ControlView& control, PropertyValue const& value, void (Class::*setter)(bool)) {
  auto* const object = dynamic_cast<Class*>(&control);
  if (object != nullptr) {
    (object->*setter)(value.AsBoolean());
  }
  return object != nullptr;
}

/// A key of some classes alone that stands in the section of all controls: the first class that fits has it.
template <auto... kSetters>
void SetOneOf(UI_ControlView& control, PropertyValue const& value) {
  static_cast<void>((SetBoolean(control, value, kSetters) || ...));
}

void SetComponentSize(UI_ControlView& control, PropertyValue const& value) {
  auto const size = value.AsEnumeration(controls::ComponentSize::kLarge);
  if (auto* const button = dynamic_cast<UI_Button*>(&control)) {
    controls::ButtonComponents components = button->GetComponents();
    components.SetComponentSize(size);
    button->SetComponents(components);
  }
}

// `className` is the builder's.
constexpr Property<UI_ControlView> kControl[] = {
    {"enabled",
     [](UI_ControlView& control, PropertyValue const& value) { control.UI_SetEnabled(value.AsBoolean()); }},
    {"wantsFocus", [](UI_ControlView& control,
                      PropertyValue const& value) { control.SetWantsKeyboardFocus(value.AsBoolean()); }},
    {"value", SetValue},
    {"componentSize", SetComponentSize},
    {"suppressFocusDrawing",
     SetOneOf<&UI_Button::SetSuppressFocusDrawing, &UI_HotText::SetSuppressFocusDrawing>},
    {"changeFocusOnClick", SetOneOf<&UI_Button::SetChangeFocusOnClick, &UI_HotText::SetChangeFocusOnClick>},
    {"alwaysNotify", SetOneOf<&UI_Popup::SetAlwaysNotify, &UI_HotText::SetAlwaysNotify>},
};

constexpr SectionOf<UI_ControlView> kControlSection{kControl};
constexpr SectionOf<UI_InteractiveControlView> kInteractiveSection{{}};

constexpr ArchiveClass kControlClasses[] = {
    {"moxui::controls::UI_ControlView", Make<UI_ControlView>, &kControlSection},
    {"moxui::controls::UI_InteractiveControlView", Make<UI_InteractiveControlView>, &kInteractiveSection},
};

}  // namespace

std::span<ArchiveClass const> ControlClasses() {
  return kControlClasses;
}

}  // namespace moxui::archive
