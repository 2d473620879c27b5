#include <moxui/resources/IconTone.h>
#include <moxui/resources/ResourceManager.h>
#include <moxui/skins/ControlState.h>
#include <moxui/skins/Design.h>
#include <moxui/skins/DrawButtonParameters.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string>

namespace moxui::utility {

namespace {

constexpr ResourceType kIconType("SVG");
constexpr std::string_view kDoubleScaleEnding = "_AT_2X";

bool EqualsWithoutCase(std::string_view a, std::string_view b) {
  auto const lower = [](char unit) { return unit >= 'A' && unit <= 'Z' ? unit - 'A' + 'a' : int{unit}; };
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [&](char x, char y) { return lower(x) == lower(y); });
}

/// Resources are stored under names that a file may have anywhere.
std::string StoredName(std::string_view name) {
  constexpr std::string_view kWritten = "@2x";
  if (name.size() > kWritten.size() &&
      EqualsWithoutCase(name.substr(name.size() - kWritten.size()), kWritten)) {
    return std::string(name.substr(0, name.size() - kWritten.size())).append(kDoubleScaleEnding);
  }
  return std::string(name);
}

std::string ToHexadecimal(ColorRGBA const& colour) {
  auto const byte = [](float component) {
    return static_cast<unsigned>(std::lround(std::clamp(component, 0.0f, 1.0f) * 255.0f));
  };
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "#%02x%02x%02x", byte(colour.red), byte(colour.green),
                byte(colour.blue));
  return text.data();
}

std::string ToDecimal(float alpha) {
  std::array<char, 16> text{};
  auto const thousandths = static_cast<unsigned>(std::lround(std::clamp(alpha, 0.0f, 1.0f) * 1000.0f));
  std::snprintf(text.data(), text.size(), "%u.%03u", thousandths / 1000, thousandths % 1000);
  return text.data();
}

void ReplaceAll(std::string& text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
}

/// Both as an attribute, name="value", and within a style, name:value.
void ReplaceProperty(std::string& text, std::string const& name, std::string const& from,
                     std::string const& to) {
  ReplaceAll(text, name + "=\"" + from + "\"", name + "=\"" + to + "\"");
  ReplaceAll(text, name + ":" + from + ";", name + ":" + to + ";");
  ReplaceAll(text, name + ":" + from + "\"", name + ":" + to + "\"");
}

}  // namespace

ColorRGBA GetIconTone(ui::ThemeProvider const* provider, Flags<unsigned int> state) {
  using skins::design::ButtonProperty;
  skins::DrawButtonParameters parameters;
  parameters.SetControlState(state);
  parameters.SetTheme(provider);
  switch (skins::GetInteraction(state)) {
    case skins::Interaction::kDisabled:
      return skins::design::GetButtonColor(parameters, ButtonProperty::kIconDisabled);
    case skins::Interaction::kPressed:
    case skins::Interaction::kHover:
      return skins::design::GetButtonColor(parameters, ButtonProperty::kIconActive);
    case skins::Interaction::kIdle:
      break;
  }
  return skins::design::GetButtonColor(parameters, ButtonProperty::kIconRest);
}

ResourceBytes ApplyIconTone(ResourceBytes const& document, ColorRGBA const& tone) {
  std::string text(document.begin(), document.end());
  std::string const colour = ToHexadecimal(tone);
  std::string const alpha = ToDecimal(tone.alpha);
  for (char const* const property : {"fill", "stroke", "color", "stop-color"}) {
    for (char const* const white : {"#fff", "#FFF", "#ffffff", "#FFFFFF", "white"}) {
      ReplaceProperty(text, property, white, colour);
    }
  }
  for (char const* const property : {"opacity", "fill-opacity", "stroke-opacity"}) {
    for (char const* const value : {"0.65", ".65"}) {
      ReplaceProperty(text, property, value, alpha);
    }
  }
  ReplaceAll(text, "currentColor", colour);
  return {text.begin(), text.end()};
}

bool FindIconDocument(ResourceManager const& resources, std::string_view name, ResourceBytes& document) {
  bool const isResourceName = name.size() > 2 && EqualsWithoutCase(name.substr(0, 2), "S_");
  if (!isResourceName) {
    std::string const stored = std::string("S_").append(name).append("_N_D").append(kDoubleScaleEnding);
    return resources.GetBinary(kIconType, ResourceName(stored), &document);
  }
  std::string const stored = StoredName(name);
  return resources.GetBinary(kIconType, ResourceName(stored), &document) ||
         resources.GetBinary(kIconType, ResourceName(stored + std::string(kDoubleScaleEnding)), &document);
}

}  // namespace moxui::utility
