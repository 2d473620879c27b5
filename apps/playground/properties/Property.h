#pragma once

#include <moxui/geometry/ColorRGBA.h>

#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace playground {

struct ToggleProperty {
  std::function<bool()> get;
  std::function<void(bool)> set;
};

// One of some items, by their positions.
struct ChoiceProperty {
  std::vector<std::string> items;
  std::function<int()> get;
  std::function<void(int)> set;
};

// A number on a slider, with a text that reads it out and can be typed into.
struct NumberProperty {
  double low = 0.0;
  double high = 1.0;
  double step = 0.1;  // of an arrow key
  std::function<double()> get;
  std::function<void(double)> set;
  std::function<std::string(double)> format;
  std::function<std::optional<double>(std::string const&)> parse;  // of a text typed by the user
};

// A colour; setting nothing goes back to the theme's.
struct ColorProperty {
  std::function<moxui::ColorRGBA()> get;
  std::function<bool()> followsTheme;
  std::function<void(std::optional<moxui::ColorRGBA>)> set;
};

struct ActionProperty {
  std::function<void()> run;
};

// Something that can be worked by hand, whatever it belongs to. `id` is its name for the program. It is
// disabled while it would have no effect.
struct Property {
  std::string id;
  std::string label;
  std::variant<ToggleProperty, ChoiceProperty, NumberProperty, ColorProperty, ActionProperty> kind;
  std::function<bool()> isEnabled = {};  // empty: always
};

struct PropertyGroup {
  std::string title;
  std::vector<Property> properties;
};

}  // namespace playground
