#include "qt/raster/Compositing.h"

#include "qt/raster/PixelSpans.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace moxui::qt {

namespace {

constexpr int kPixelsOfCacheLine = 16;

unsigned ByteOf(float component) {
  return std::isnan(component) ? 0u
                               : static_cast<unsigned>(std::clamp(component, 0.0f, 1.0f) * 255.0f + 0.5f);
}

// The first covered pixel from `x` on, or `end`.
int NextCovered(std::uint8_t const* coverage, int x, int end) {
  while (x + 8 <= end) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, coverage + x, sizeof(eight));
    if (eight != 0) {
      break;
    }
    x += 8;
  }
  while (x < end && coverage[x] == 0) {
    ++x;
  }
  return x;
}

int NextUncovered(std::uint8_t const* coverage, int x, int end) {
  while (x < end && coverage[x] != 0) {
    ++x;
  }
  return x;
}

// Vertical hairlines.
void FillColumn(Pixels const& pixels, PixelRect const& rect, std::uint32_t colour) {
  unsigned const rest = 255u - AlphaOf(colour);
  std::uint32_t const force = pixels.opaque ? kOpaqueAlpha : 0u;
  std::uint32_t* pixel = pixels.Row(rect.top) + rect.left;
  for (int y = rect.top; y < rect.bottom; ++y, pixel += pixels.stride) {
    *pixel = rest == 0 ? colour : (colour + Scaled(*pixel, rest)) | force;
  }
}

}  // namespace

std::uint32_t PremultipliedPixel(ColorRGBA const& colour) {
  unsigned const alpha = ByteOf(colour.alpha);
  std::uint32_t const straight =
      (ByteOf(colour.red) << 16) | (ByteOf(colour.green) << 8) | ByteOf(colour.blue) | kOpaqueAlpha;
  return Scaled(straight, alpha);
}

void FillPixels(Pixels const& pixels, PixelRect const& rect, std::uint32_t colour) {
  unsigned const alpha = AlphaOf(colour);
  if (alpha == 0 || rect.IsEmpty()) {
    return;
  }
  std::uint32_t const force = pixels.opaque ? kOpaqueAlpha : 0u;
  if (rect.Width() == 1) {
    FillColumn(pixels, rect, colour);
    return;
  }
  auto const width = static_cast<std::size_t>(rect.Width());
  for (int y = rect.top; y < rect.bottom; ++y) {
    std::uint32_t* const out = pixels.Row(y) + rect.left;
    if (alpha == 255) {
      StoreSpan(out, width, colour);
    } else {
      BlendSpan(out, width, colour, force);
    }
  }
}

void FillMask(Pixels const& pixels, CoverageMask const& mask, PixelRect const& clip, std::uint32_t colour) {
  unsigned const alpha = AlphaOf(colour);
  PixelRect const area = mask.bounds.Intersection(clip);
  if (alpha == 0 || area.IsEmpty()) {
    return;
  }
  std::uint32_t const force = pixels.opaque ? kOpaqueAlpha : 0u;
  bool const isNarrow = area.Width() <= kPixelsOfCacheLine;
  for (int y = area.top; y < area.bottom; ++y) {
    if (isNarrow) {
      // Masks of lines come from left to right: the next one's pixels are fetched meanwhile.
      __builtin_prefetch(pixels.Row(y) + area.left + kPixelsOfCacheLine, 1);
    }
    BlendCoveredSpan(pixels.Row(y) + area.left, mask.Row(y) + (area.left - mask.bounds.left),
                     static_cast<std::size_t>(area.Width()), colour, force);
  }
}

void FillMask(Pixels const& pixels, CoverageMask const& mask, PixelRect const& clip,
              PixelSource const& source) {
  PixelRect const area = mask.bounds.Intersection(clip);
  if (area.IsEmpty()) {
    return;
  }
  std::uint32_t const force = pixels.opaque ? kOpaqueAlpha : 0u;
  std::vector<std::uint32_t> colours(static_cast<std::size_t>(area.Width()));
  for (int y = area.top; y < area.bottom; ++y) {
    std::uint32_t* const row = pixels.Row(y);
    std::uint8_t const* const coverage = mask.Row(y) - mask.bounds.left;
    int begin = NextCovered(coverage, area.left, area.right);
    while (begin < area.right) {
      int const end = NextUncovered(coverage, begin, area.right);
      source(begin, y, end - begin, colours.data());
      for (int x = begin; x < end; ++x) {
        std::uint32_t const colour = colours[static_cast<std::size_t>(x - begin)];
        unsigned const share = coverage[x];
        if ((share & AlphaOf(colour)) == 255) {
          row[x] = colour;
        } else {
          row[x] = Over(share == 255 ? colour : Scaled(colour, share), row[x]) | force;
        }
      }
      begin = NextCovered(coverage, end, area.right);
    }
  }
}

}  // namespace moxui::qt
