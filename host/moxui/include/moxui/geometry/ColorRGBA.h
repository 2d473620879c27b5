#pragma once

#include <optional>

namespace moxui {

/// A colour: red, green, blue and alpha from 0 to 1, not premultiplied.
struct ColorRGBA {
  float red = 0.0f;
  float green = 0.0f;
  float blue = 0.0f;
  float alpha = 1.0f;

  constexpr ColorRGBA WithAlpha(float newAlpha) const { return {red, green, blue, newAlpha}; }
  friend constexpr bool operator==(ColorRGBA const&, ColorRGBA const&) = default;
};

using ColorRGBAOptional = std::optional<ColorRGBA>;

/// Colours that no theme changes.
struct ColorRGBAFixed {
  static constexpr ColorRGBA White{1.0f, 1.0f, 1.0f, 1.0f};
  static constexpr ColorRGBA Black{0.0f, 0.0f, 0.0f, 1.0f};
};

}  // namespace moxui
