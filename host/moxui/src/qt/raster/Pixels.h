#pragma once

#include "qt/raster/PixelRect.h"

#include <moxui/geometry/ColorRGBA.h>

#include <cstddef>
#include <cstdint>

namespace moxui::qt {

/// The pixels that a surface draws on: 32 bits, alpha in the highest byte, premultiplied. `opaque` ones keep
/// alpha 255 wherever something is drawn.
struct Pixels {
  std::uint32_t* data = nullptr;
  std::ptrdiff_t stride = 0;  // pixels from row to row
  int width = 0;
  int height = 0;
  bool opaque = false;

  std::uint32_t* Row(int y) const { return data + y * stride; }
  PixelRect Bounds() const { return {0, 0, width, height}; }
};

inline constexpr std::uint32_t kOpaqueAlpha = 0xff000000u;

inline unsigned AlphaOf(std::uint32_t pixel) {
  return pixel >> 24;
}

/// All four bytes times `factor` / 255, rounded.
inline std::uint32_t Scaled(std::uint32_t pixel, unsigned factor) {
  std::uint32_t even = (pixel & 0x00ff00ffu) * factor + 0x00800080u;
  even = ((even + ((even >> 8) & 0x00ff00ffu)) >> 8) & 0x00ff00ffu;
  std::uint32_t odd = ((pixel >> 8) & 0x00ff00ffu) * factor + 0x00800080u;
  odd = (odd + ((odd >> 8) & 0x00ff00ffu)) & 0xff00ff00u;
  return even | odd;
}

inline std::uint32_t Over(std::uint32_t source, std::uint32_t destination) {
  return source + Scaled(destination, 255u - AlphaOf(source));
}

/// A colour as a premultiplied pixel; components are clamped to 0..1.
std::uint32_t PremultipliedPixel(ColorRGBA const& colour);

}  // namespace moxui::qt
