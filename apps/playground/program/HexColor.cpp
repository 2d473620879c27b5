#include "program/HexColor.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <system_error>

namespace playground {
namespace {

using moxui::ColorRGBA;

unsigned ByteOf(float component) {
  return static_cast<unsigned>(std::lround(std::clamp(component, 0.0f, 1.0f) * 255.0f));
}

ColorRGBA FromBytes(unsigned red, unsigned green, unsigned blue, unsigned alpha) {
  auto const part = [](unsigned byte) { return static_cast<float>(byte & 0xFFu) / 255.0f; };
  return {part(red), part(green), part(blue), part(alpha)};
}

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kSpaces = " \t\r\n";
  auto const begin = text.find_first_not_of(kSpaces);
  if (begin == std::string_view::npos) {
    return {};
  }
  return text.substr(begin, text.find_last_not_of(kSpaces) - begin + 1);
}

}  // namespace

ColorRGBA ColorOfNumber(unsigned number) {
  return FromBytes(number >> 16, number >> 8, number, 0xFF);
}

std::string HexFromColor(ColorRGBA const& color) {
  std::array<char, 16> text;
  unsigned const alpha = ByteOf(color.alpha);
  std::snprintf(text.data(), text.size(), "#%02X%02X%02X", ByteOf(color.red), ByteOf(color.green),
                ByteOf(color.blue));
  std::string result(text.data());
  if (alpha != 255) {
    std::snprintf(text.data(), text.size(), "%02X", alpha);
    result += text.data();
  }
  return result;
}

std::optional<ColorRGBA> ColorFromHex(std::string_view text) {
  text = Trimmed(text);
  if (text.starts_with('#')) {
    text.remove_prefix(1);
  }
  unsigned number = 0;
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, 16);
  if (error != std::errc() || end != text.data() + text.size()) {
    return std::nullopt;
  }
  auto const doubled = [number](int shift) { return ((number >> shift) & 0xFu) * 0x11u; };
  switch (text.size()) {
    case 3:
      return FromBytes(doubled(8), doubled(4), doubled(0), 0xFF);
    case 4:
      return FromBytes(doubled(12), doubled(8), doubled(4), doubled(0));
    case 6:
      return ColorOfNumber(number);
    case 8:
      return FromBytes(number >> 24, number >> 16, number >> 8, number);
    default:
      return std::nullopt;
  }
}

}  // namespace playground
