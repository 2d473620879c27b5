#include "audio/WaveformPalette.h"

#include "program/HexColor.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace playground {
namespace {

using moxui::ColorRGBA;

// Hues far enough apart to tell eight channels from each other, of one lightness for each kind of ground.
constexpr std::array<unsigned, 8> kOnDark{0x8FDDB0, 0x8CC4FF, 0xFFC48A, 0xE3A6F5,
                                          0xF5DC7E, 0x84DEDD, 0xFFA9A9, 0xBFC2FF};
constexpr std::array<unsigned, 8> kOnLight{0x17794B, 0x1463B8, 0x9A5200, 0x8432A3,
                                           0x7A6300, 0x0F7374, 0xB33A3A, 0x4B4FC4};
constexpr std::array<unsigned, 8> kHighContrast{0xFFFFFF, 0x7FD4FF, 0xFFB84D, 0xFF9CFF,
                                                0xFFF066, 0x66FFE0, 0xFF9090, 0xC0C8FF};

// Ground of a selection: the interactive colour at this share over the background.
constexpr float kSelectionShare = 0.25f;

WaveformPalette Made(unsigned background, unsigned interactive, unsigned line, unsigned grid,
                     unsigned divider, unsigned ink, std::array<unsigned, 8> const& hues) {
  WaveformPalette palette;
  ColorRGBA const ground = ColorOfNumber(background);
  ColorRGBA const strong = ColorOfNumber(ink);
  palette.colors = {ground,
                    Mixed(ground, ColorOfNumber(interactive), kSelectionShare),
                    ColorOfNumber(line),
                    ColorOfNumber(grid),
                    ColorOfNumber(divider),
                    ground};
  for (unsigned const hue : hues) {
    palette.channels.push_back(ColorOfNumber(hue));
    palette.selectedChannels.push_back(Mixed(ColorOfNumber(hue), strong, kSelectedShare));
  }
  palette.ink = strong;
  palette.wave = palette.channels.front();
  palette.selectedWave = palette.selectedChannels.front();
  return palette;
}

}  // namespace

namespace {

double Linear(double value) {
  return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double LuminanceOf(ColorRGBA const& color) {
  return 0.2126 * Linear(color.red) + 0.7152 * Linear(color.green) + 0.0722 * Linear(color.blue);
}

}  // namespace

double ContrastOf(ColorRGBA const& a, ColorRGBA const& b) {
  double const first = LuminanceOf(a) + 0.05;
  double const second = LuminanceOf(b) + 0.05;
  return std::max(first, second) / std::min(first, second);
}

ColorRGBA InkOn(ColorRGBA const& ground) {
  ColorRGBA const black{0.0f, 0.0f, 0.0f, 1.0f};
  ColorRGBA const white{1.0f, 1.0f, 1.0f, 1.0f};
  return ContrastOf(black, ground) >= ContrastOf(white, ground) ? black : white;
}

ColorRGBA Mixed(ColorRGBA ground, ColorRGBA over, float alpha) {
  auto const mix = [alpha](float a, float b) { return a + (b - a) * alpha; };
  return {mix(ground.red, over.red), mix(ground.green, over.green), mix(ground.blue, over.blue), 1.0f};
}

WaveformPalette PaletteOf(ThemeChoice theme) {
  switch (theme) {
    case ThemeChoice::kLight:
      return Made(0xFFFFFF, 0x0B63C5, 0xCDCDD2, 0xEDEDF0, 0xCDCDD2, 0x18181B, kOnLight);
    case ThemeChoice::kHighContrast:
      return Made(0x000000, 0xFFE600, 0x6E6E6E, 0x3A3A3A, 0x8C8C8C, 0xFFFFFF, kHighContrast);
    case ThemeChoice::kDark:
      break;
  }
  return Made(0x141416, 0x4DA3FF, 0x3D3D40, 0x222224, 0x303030, 0xFFFFFF, kOnDark);
}

}  // namespace playground
