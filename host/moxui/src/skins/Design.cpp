#include <moxui/skins/ControlState.h>
#include <moxui/skins/Design.h>
#include <moxui/skins/DrawButtonParameters.h>
#include <moxui/skins/Theme.h>

#include <optional>

namespace moxui::skins::design {
namespace {

using ui::ThemeColorID;

bool IsFilledWithInteractive(ButtonComponents const& components) {
  return components.GetVariant() == ButtonVariant::kPrimary ||
         (components.IsSelected() && components.IsEmphasized());
}

/// The grounds of a strongly coloured button, and what stands on them.
struct StrongRoles {
  ThemeColorID idle;
  ThemeColorID hover;
  ThemeColorID pressed;
  ThemeColorID onGround;
};

constexpr StrongRoles kInteractiveRoles{ThemeColorID::kInteractive, ThemeColorID::kInteractiveHover,
                                        ThemeColorID::kInteractivePressed, ThemeColorID::kOnInteractive};
constexpr StrongRoles kNegativeRoles{ThemeColorID::kNegative, ThemeColorID::kNegativeHover,
                                     ThemeColorID::kNegativePressed, ThemeColorID::kOnNegative};

/// Null for a button in the theme's grays.
StrongRoles const* GetStrongRoles(ButtonComponents const& components) {
  if (components.GetVariant() == ButtonVariant::kNegative) {
    return &kNegativeRoles;
  }
  return IsFilledWithInteractive(components) ? &kInteractiveRoles : nullptr;
}

ThemeColorID FillRole(DrawButtonParameters const& parameters) {
  ButtonComponents const& components = parameters.Components();
  Interaction const interaction = GetInteraction(parameters.GetControlState());
  if (interaction == Interaction::kDisabled) {
    return ThemeColorID::kButtonFillDisabled;
  }
  if (StrongRoles const* const strong = GetStrongRoles(components)) {
    switch (interaction) {
      case Interaction::kPressed:
        return strong->pressed;
      case Interaction::kHover:
        return strong->hover;
      default:
        return strong->idle;
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
  StrongRoles const* const strong = GetStrongRoles(parameters.Components());
  switch (GetInteraction(parameters.GetControlState())) {
    case Interaction::kDisabled:
      return ThemeColorID::kButtonOutlineDisabled;
    case Interaction::kPressed:
    case Interaction::kHover:
      return strong != nullptr ? strong->pressed : ThemeColorID::kButtonOutlineActive;
    case Interaction::kIdle:
      break;
  }
  return strong != nullptr ? strong->pressed : ThemeColorID::kButtonOutline;
}

/// What stands on a strongly coloured ground, if that is drawn.
std::optional<ThemeColorID> OnStrongGround(DrawButtonParameters const& parameters) {
  StrongRoles const* const strong = GetStrongRoles(parameters.Components());
  return strong != nullptr && parameters.ShowsContainer() ? std::optional(strong->onGround) : std::nullopt;
}

ThemeColorID LabelRole(DrawButtonParameters const& parameters) {
  Interaction const interaction = GetInteraction(parameters.GetControlState());
  if (interaction == Interaction::kDisabled) {
    return ThemeColorID::kButtonTextDisabled;
  }
  bool const isActive = interaction != Interaction::kIdle || parameters.HasSelectedAppearance();
  return OnStrongGround(parameters)
      .value_or(isActive ? ThemeColorID::kButtonTextActive : ThemeColorID::kButtonText);
}

ThemeColorID IconRestRole(DrawButtonParameters const& parameters) {
  return OnStrongGround(parameters)
      .value_or(parameters.HasSelectedAppearance() ? ThemeColorID::kButtonTextActive
                                                   : ThemeColorID::kButtonText);
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
