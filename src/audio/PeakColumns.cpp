#include "PeakColumns.h"

#include "PixelColor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>

// Columns are worked out first, many at a time, and then written row by row: pixels of a row are neighbours
// in memory where pixels of a column are a whole row apart. Both steps are plain loops that compilers turn
// into vector code; they are built for several processors and the best one is taken at run time. All give the
// same bits.
#define MOX_INLINE [[gnu::always_inline]] inline

namespace moxmediaui {

namespace {

constexpr int kColumnsPerChunk = 512;  // worked out at once
constexpr int kColumnsPerBlock = 32;   // columns that share the decision whether a row is solid
constexpr float kThinnest = 0.75f;     // rows; thinner pairs are widened to it

/// Where the columns of a chunk begin and end.
struct ColumnEdges {
  // Rows of the body: first, and one beyond the last.
  alignas(64) std::array<std::int32_t, kColumnsPerChunk> bodyStart;
  alignas(64) std::array<std::int32_t, kColumnsPerChunk> bodyEnd;
  // Rows that are covered in part, -1 for none, and how much of them by alpha.
  alignas(64) std::array<std::int32_t, kColumnsPerChunk> topRow;
  alignas(64) std::array<std::int32_t, kColumnsPerChunk> bottomRow;
  alignas(64) std::array<std::int32_t, kColumnsPerChunk> topAlpha;
  alignas(64) std::array<std::int32_t, kColumnsPerChunk> bottomAlpha;
};

MOX_INLINE float SignedSquareRoot(float value) {
  return value >= 0.0f ? std::sqrt(value) : -std::sqrt(-value);
}

/// `value` held to a range; not-a-number becomes its low end.
MOX_INLINE float Held(float value, float low, float high) {
  float const raised = value > low ? value : low;
  return raised < high ? raised : high;
}

template <bool kIsBipolar, bool kHasSquareRoot>
MOX_INLINE void FindEdges(PeakStrip const& strip, float const* pairs, int count, ColumnEdges& edges) {
  std::int32_t const first = strip.top;
  std::int32_t const end = strip.top + strip.height;
  // Rows beyond these don't matter, and floats within them are held by an int.
  float const low = static_cast<float>(first - 2);
  float const high = static_cast<float>(end + 2);
  float const height = static_cast<float>(strip.height);
  float const highestTop = strip.style == PeakDataDrawStyle::kRectified ? height - 1.0f : high;
  for (int i = 0; i < count; ++i) {
    // NOLINTBEGIN(bugprone-implicit-widening-of-multiplication-result): a chunk's columns fit an int twice
    float a = pairs[2 * i];
    float b = pairs[2 * i + 1];
    // NOLINTEND(bugprone-implicit-widening-of-multiplication-result)
    if (kHasSquareRoot) {
      a = SignedSquareRoot(a);
      b = SignedSquareRoot(b);
    }
    float top, bottom;
    if (kIsBipolar) {
      float const wantedTop = strip.centre - a * strip.centre * strip.zoom;
      float const wantedBottom = strip.centre - b * strip.centre * strip.zoom;
      bool const isThin = wantedBottom - wantedTop < kThinnest;
      float const thinTop = (wantedBottom + wantedTop) * 0.5f - kThinnest * 0.5f;
      top = isThin ? thinTop : wantedTop;
      bottom = isThin ? thinTop + kThinnest : wantedBottom;
    } else {
      float const magnitudeA = std::fabs(a);
      float const magnitudeB = std::fabs(b);
      float const magnitude = magnitudeB < magnitudeA ? magnitudeA : magnitudeB;
      bottom = height;
      top = height - magnitude * height * strip.zoom;
      top = highestTop < top ? highestTop : top;
    }
    bool const isNumber = (a == a) & (b == b) & (top == top) & (bottom == bottom);
    top = Held(isNumber ? top : high, low, high);
    bottom = Held(isNumber ? bottom : low, low, high);

    std::int32_t const truncatedTop = static_cast<std::int32_t>(top);
    std::int32_t const truncatedBottom = static_cast<std::int32_t>(bottom);
    float const topAsFloat = static_cast<float>(truncatedTop);
    float const bottomAsFloat = static_cast<float>(truncatedBottom);
    std::int32_t const y0 = truncatedTop + (topAsFloat < top ? 1 : 0);           // ceiling
    std::int32_t const y1 = truncatedBottom - (bottomAsFloat > bottom ? 1 : 0);  // floor
    float const topCover = static_cast<float>(y0) - top;
    float const bottomCover = bottom - static_cast<float>(y1);
    edges.topAlpha[i] = static_cast<std::int32_t>(topCover * strip.opacity * 255.0f) & 255;
    edges.bottomAlpha[i] = static_cast<std::int32_t>(bottomCover * strip.opacity * 255.0f) & 255;
    edges.topRow[i] = ((y0 > first) & (y0 < end)) ? y0 - 1 : -1;
    edges.bottomRow[i] = ((y1 > first) & (y1 < end)) ? y1 : -1;
    edges.bodyStart[i] = std::max(y0, first);
    edges.bodyEnd[i] = std::min(y1, end);
  }
}

MOX_INLINE void FindEdges(PeakStrip const& strip, float const* pairs, int count, ColumnEdges& edges) {
  bool const isBipolar = strip.style == PeakDataDrawStyle::kBipolar;
  bool const hasSquareRoot = strip.scaling == WaveformScalingStyle::kSquareRoot;
  if (isBipolar && hasSquareRoot) {
    FindEdges<true, true>(strip, pairs, count, edges);
  } else if (isBipolar) {
    FindEdges<true, false>(strip, pairs, count, edges);
  } else if (hasSquareRoot) {
    FindEdges<false, true>(strip, pairs, count, edges);
  } else {
    FindEdges<false, false>(strip, pairs, count, edges);
  }
}

/// What the bodies of a strip are painted with.
struct BodyPaint {
  std::uint32_t pixel;      // the colour
  std::uint16_t remainder;  // 255 less the alpha
  std::uint32_t share;      // the colour's part of a blended pixel, its alpha byte 0
};

/// So many pixels side by side, as words and as halves of words.
template <int kPixels>
struct Pixels {
  using Words [[gnu::vector_size(kPixels * 4)]] = std::uint32_t;
  using Rows [[gnu::vector_size(kPixels * 4)]] = std::int32_t;
  using Halves [[gnu::vector_size(kPixels * 4)]] = std::uint16_t;
};

/// Paints a body over pixels. All bytes of a pixel are blended as halves of words, odd and even ones apart;
/// what becomes of the alpha byte is overwritten.
template <int kPixels, bool kIsOpaque>
MOX_INLINE void Paint(typename Pixels<kPixels>::Words& pixels, BodyPaint const& paint) {
  using Words = typename Pixels<kPixels>::Words;
  using Halves = typename Pixels<kPixels>::Halves;
  if (kIsOpaque) {
    pixels = Words{} + paint.pixel;
    return;
  }
  Halves even = reinterpret_cast<Halves>(pixels & kBytePairs) * paint.remainder + 128;
  Halves odd = (reinterpret_cast<Halves>(pixels) >> 8) * paint.remainder + 128;
  even = (even + (even >> 8)) >> 8;
  odd = (odd + (odd >> 8)) & 0xFF00;
  pixels = (reinterpret_cast<Words>(even) | reinterpret_cast<Words>(odd)) + paint.share;
  pixels |= kOpaqueAlpha;
}

/// Paints so many neighbouring pixels, of row `y`, that lie in a body.
template <int kPixels, bool kIsOpaque>
MOX_INLINE void PaintCovered(std::uint32_t* row, std::int32_t y, std::int32_t const* start,
                             std::int32_t const* end, BodyPaint const& paint) {
  using Words = typename Pixels<kPixels>::Words;
  typename Pixels<kPixels>::Rows starts, ends;
  Words old;
  std::memcpy(&starts, start, sizeof starts);
  std::memcpy(&ends, end, sizeof ends);
  std::memcpy(&old, row, sizeof old);
  Words painted = old;
  Paint<kPixels, kIsOpaque>(painted, paint);
  painted = (ends > y) & ~(starts > y) ? painted : old;
  std::memcpy(row, &painted, sizeof painted);
}

template <int kPixels, bool kIsOpaque>
MOX_INLINE void PaintSolid(std::uint32_t* row, BodyPaint const& paint) {
  typename Pixels<kPixels>::Words pixels;
  std::memcpy(&pixels, row, sizeof pixels);
  Paint<kPixels, kIsOpaque>(pixels, paint);
  std::memcpy(row, &pixels, sizeof pixels);
}

/// The rows in which a block of columns has any body, and those in which all have it.
struct BlockRows {
  std::int32_t anyStart, anyEnd, allStart, allEnd;
};

MOX_INLINE BlockRows FindBlockRows(std::int32_t const* start, std::int32_t const* end, int count) {
  BlockRows rows{start[0], end[0], start[0], end[0]};
  for (int i = 0; i < count; ++i) {
    rows.anyStart = std::min(rows.anyStart, start[i]);
    rows.anyEnd = std::max(rows.anyEnd, end[i]);
    rows.allStart = std::max(rows.allStart, start[i]);
    rows.allEnd = std::min(rows.allEnd, end[i]);
  }
  return rows;
}

template <int kPixels, bool kIsOpaque>
MOX_INLINE void PaintBodies(std::uint32_t* pixels, std::ptrdiff_t pixelsPerRow, int count,
                            ColumnEdges const& edges, BodyPaint const& paint) {
  std::array<BlockRows, kColumnsPerChunk / kColumnsPerBlock> blocks;
  int const blockCount = count / kColumnsPerBlock;
  std::int32_t const* const start = edges.bodyStart.data();
  std::int32_t const* const end = edges.bodyEnd.data();
  BlockRows const all = FindBlockRows(start, end, count);
  for (int block = 0; block < blockCount; ++block) {
    int const x = block * kColumnsPerBlock;
    blocks[block] = FindBlockRows(start + x, end + x, kColumnsPerBlock);
  }
  for (std::int32_t y = all.anyStart; y < all.anyEnd; ++y) {
    std::uint32_t* const row = pixels + y * pixelsPerRow;
    for (int block = 0; block < blockCount; ++block) {
      BlockRows const& rows = blocks[block];
      int const x = block * kColumnsPerBlock;
      if (y >= rows.allStart && y < rows.allEnd) {
        for (int i = x; i < x + kColumnsPerBlock; i += kPixels) {
          PaintSolid<kPixels, kIsOpaque>(row + i, paint);
        }
      } else if (y >= rows.anyStart && y < rows.anyEnd) {
        for (int i = x; i < x + kColumnsPerBlock; i += kPixels) {
          PaintCovered<kPixels, kIsOpaque>(row + i, y, start + i, end + i, paint);
        }
      }
    }
    for (int x = blockCount * kColumnsPerBlock; x < count; ++x) {
      PaintCovered<1, kIsOpaque>(row + x, y, start + x, end + x, paint);
    }
  }
}

MOX_INLINE void PaintEdges(std::uint32_t* pixels, std::ptrdiff_t pixelsPerRow, int count,
                           ColumnEdges const& edges, std::uint32_t colour) {
  for (int i = 0; i < count; ++i) {
    if (edges.topRow[i] >= 0) {
      std::uint32_t& pixel = pixels[edges.topRow[i] * pixelsPerRow + i];
      pixel = BlendPixel(pixel, colour, static_cast<std::uint32_t>(edges.topAlpha[i]));
    }
    if (edges.bottomRow[i] >= 0) {
      std::uint32_t& pixel = pixels[edges.bottomRow[i] * pixelsPerRow + i];
      pixel = BlendPixel(pixel, colour, static_cast<std::uint32_t>(edges.bottomAlpha[i]));
    }
  }
}

template <int kPixels>
MOX_INLINE void DrawStrip(PeakStrip const& strip) {
  bool const isOpaque = strip.opacity == 1.0f;
  auto const alpha = static_cast<std::uint32_t>(static_cast<std::int32_t>(strip.opacity * 255.0f) & 255);
  std::uint32_t const redBlue = DividePairsBy255((strip.pixel & kBytePairs) * alpha);
  std::uint32_t const green = DividePairsBy255(((strip.pixel >> 8) & 0xFFu) * alpha);
  BodyPaint const paint{.pixel = strip.pixel,
                        .remainder = static_cast<std::uint16_t>(255u - alpha),
                        .share = redBlue | green << 8};
  ColumnEdges edges;
  for (int x = 0; x < strip.columns; x += kColumnsPerChunk) {
    int const count = std::min(kColumnsPerChunk, strip.columns - x);
    FindEdges(strip, strip.pairs + 2 * static_cast<std::ptrdiff_t>(x), count, edges);
    // A column's edges lie outside its body, so either may come first.
    if (isOpaque) {
      PaintBodies<kPixels, true>(strip.pixels + x, strip.pixelsPerRow, count, edges, paint);
    } else {
      PaintBodies<kPixels, false>(strip.pixels + x, strip.pixelsPerRow, count, edges, paint);
    }
    if (strip.hasEdges) {
      PaintEdges(strip.pixels + x, strip.pixelsPerRow, count, edges, strip.pixel);
    }
  }
}

#if defined(__x86_64__)
[[gnu::target("avx2")]] void DrawStripWithAvx2(PeakStrip const& strip) {
  DrawStrip<8>(strip);
}
#endif

}  // namespace

void DrawPeakStripPortably(PeakStrip const& strip) {
  DrawStrip<4>(strip);
}

void DrawPeakStrip(PeakStrip const& strip) {
#if defined(__x86_64__)
  static bool const hasAvx2 = __builtin_cpu_supports("avx2") != 0;
  if (hasAvx2) {
    DrawStripWithAvx2(strip);
    return;
  }
#endif
  DrawPeakStripPortably(strip);
}

}  // namespace moxmediaui
