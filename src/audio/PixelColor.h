#pragma once

#include <moxui/geometry/ColorRGBA.h>

#include <algorithm>
#include <cstdint>

namespace moxmediaui {

/// A component of 0 to 1 as a byte, rounded to nearest. Components outside wrap as their low eight bits.
constexpr std::uint8_t ToByte(float component) {
  constexpr float kLargest = 1073741824.0f;  // 2^30; all at or beyond it becomes 0, and fits an int
  float const value = 255.0f * component;
  if (value > 0.0f) {
    return static_cast<std::uint8_t>(static_cast<int>(std::min(value + 0.5f, kLargest)));
  }
  if (!(value > -kLargest)) {
    return 0;
  }
  bool const isTie = static_cast<float>(static_cast<int>(value + 0.5f)) == value + 0.5f;
  return static_cast<std::uint8_t>(static_cast<int>(isTie ? value : value - 0.5f));
}

/// A pixel as a word of memory: bytes blue, green, red, alpha on a little-endian machine.
constexpr std::uint32_t PackPixel(std::uint8_t blue, std::uint8_t green, std::uint8_t red,
                                  std::uint8_t alpha) {
  return std::uint32_t{blue} | std::uint32_t{green} << 8 | std::uint32_t{red} << 16 |
         std::uint32_t{alpha} << 24;
}

constexpr std::uint32_t ToPixel(moxui::ColorRGBA const& colour) {
  return PackPixel(ToByte(colour.blue), ToByte(colour.green), ToByte(colour.red), ToByte(colour.alpha));
}

constexpr std::uint32_t kOpaqueAlpha = 0xFF000000u;

constexpr std::uint32_t ToOpaquePixel(moxui::ColorRGBA const& colour) {
  return ToPixel(colour) | kOpaqueAlpha;
}

// Two bytes of a pixel at a time, each in 16 bits of its own: products of two bytes don't meet there.
constexpr std::uint32_t kBytePairs = 0x00FF00FFu;

/// n / 255, rounded, in both halves of a word; n at most 255 * 255.
constexpr std::uint32_t DividePairsBy255(std::uint32_t pairs) {
  std::uint32_t const rounded = pairs + 0x00800080u;
  return ((rounded + ((rounded >> 8) & kBytePairs)) >> 8) & kBytePairs;
}

/// Blends `source` over `destination` at an alpha of 0 to 255; the result is opaque.
constexpr std::uint32_t BlendPixel(std::uint32_t destination, std::uint32_t source, std::uint32_t alpha) {
  std::uint32_t const remainder = 255u - alpha;
  std::uint32_t const redBlue = DividePairsBy255((destination & kBytePairs) * remainder) +
                                DividePairsBy255((source & kBytePairs) * alpha);
  std::uint32_t const green = DividePairsBy255(((destination >> 8) & 0xFFu) * remainder) +
                              DividePairsBy255(((source >> 8) & 0xFFu) * alpha);
  return redBlue | green << 8 | kOpaqueAlpha;
}

}  // namespace moxmediaui
