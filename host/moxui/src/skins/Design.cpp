#include <moxui/skins/ControlState.h>
#include <moxui/skins/Design.h>
#include <moxui/skins/DrawButtonParameters.h>
#include <moxui/skins/Theme.h>

namespace moxui::skins::design {
namespace {

using ui::ThemeColorID;

bool IsFilledWithInteractive(ButtonComponents const& components) {
  return components.GetVariant() == ButtonVariant::kPrimary ||
         (components.IsSelected() && components.IsEmphasized());
}

ThemeColorID FillRole(DrawButtonParameters const& parameters) {
  ButtonComponents const& components = parameters.Components();
  Interaction const interaction = GetInteraction(parameters.GetControlState());
  if (interaction == Interaction::kDisabled) {
    return ThemeColorID::kButtonFillDisabled;
  }
  if (IsFilledWithInteractive(components)) {
    switch (interaction) {
      case Interaction::kPressed:
        return ThemeColorID::kInteractivePressed;
      case Interaction::kHover:
        return ThemeColorID::kInteractiveHover;
      default:
        return ThemeColorID::kInteractive;
    }
  }
  if (interaction == Interaction::kPressed) {
    return ThemeColorID::kButtonFillPressed;
  }
  if (components.IsSelected()) {
    return ThemeColorID::kButtonFillSelected;
  }
  return interaction == Interaction::kHover ? ThemeColorID::kButtonFillHover : ThemeColorID::kButtonFill;
}

ThemeColorID OutlineRole(DrawButtonParameters const& parameters) {
  switch (GetInteraction(parameters.GetControlState())) {
    case Interaction::kDisabled:
      return ThemeColorID::kButtonOutlineDisabled;
    case Interaction::kPressed:
    case Interaction::kHover:
      return IsFilledWithInteractive(parameters.Components()) ? ThemeColorID::kInteractivePressed
                                                              : ThemeColorID::kButtonOutlineActive;
    case Interaction::kIdle:
      break;
  }
  return IsFilledWithInteractive(parameters.Components()) ? ThemeColorID::kInteractivePressed
                                                          : ThemeColorID::kButtonOutline;
}

ThemeColorID LabelRole(DrawButtonParameters const& parameters) {
  Interaction const interaction = GetInteraction(parameters.GetControlState());
  if (interaction == Interaction::kDisabled) {
    return ThemeColorID::kButtonTextDisabled;
  }
  if (IsFilledWithInteractive(parameters.Components()) && parameters.ShouldDrawContainer()) {
    return ThemeColorID::kOnInteractive;
  }
  bool const isActive = interaction != Interaction::kIdle || parameters.HasSelectedAppearance();
  return isActive ? ThemeColorID::kButtonTextActive : ThemeColorID::kButtonText;
}

ThemeColorID IconRestRole(DrawButtonParameters const& parameters) {
  if (IsFilledWithInteractive(parameters.Components()) && parameters.ShouldDrawContainer()) {
    return ThemeColorID::kOnInteractive;
  }
  return parameters.HasSelectedAppearance() ? ThemeColorID::kButtonTextActive : ThemeColorID::kButtonText;
}

}  // namespace

ColorRGBA GetTableColor(ui::ThemeProvider const* provider, TableProperty property, int variant) {
  auto const colorOf = [provider](ThemeColorID id) { return ui::GetColorOf(provider, id); };
  switch (property) {
    case TableProperty::kAlternateRow:
      return colorOf(variant == 1 ? ThemeColorID::kTableAlternateRow : ThemeColorID::kPanelBackground);
    case TableProperty::kGridLine:
      return colorOf(ThemeColorID::kTableGridLine);
    case TableProperty::kEdgeLine:
      return colorOf(ThemeColorID::kTableEdgeLine);
    case TableProperty::kText:
      return colorOf(ThemeColorID::kTableText);
  }
  return colorOf(ThemeColorID::kTableText);
}

ColorRGBA GetTableColor(TableProperty property, ui::ThemeProvider const* provider) {
  return GetTableColor(provider, property, 1);
}

ColorRGBA GetPrismaColor(PrismaColorID id, ui::ThemeProvider const* provider) {
  return ui::GetColorOf(provider, static_cast<ThemeColorID>(id));
}

ColorRGBA GetButtonColor(DrawButtonParameters const& parameters, ButtonProperty property) {
  auto const colorOf = [&](ThemeColorID id) { return ui::GetColorOf(parameters.GetTheme(), id); };
  switch (property) {
    case ButtonProperty::kFill:
      return colorOf(FillRole(parameters));
    case ButtonProperty::kOutline:
      return colorOf(OutlineRole(parameters));
    case ButtonProperty::kIconRest:
      return colorOf(IconRestRole(parameters));
    case ButtonProperty::kIconActive:
      return colorOf(ThemeColorID::kButtonTextActive);
    case ButtonProperty::kIconDisabled:
      return colorOf(ThemeColorID::kButtonTextDisabled);
    case ButtonProperty::kLabel:
      return colorOf(LabelRole(parameters));
  }
  return colorOf(ThemeColorID::kButtonText);
}

}  // namespace moxui::skins::design
