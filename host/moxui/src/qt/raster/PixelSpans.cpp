#include "qt/raster/PixelSpans.h"

#include "qt/raster/Pixels.h"

#include <algorithm>
#include <cstring>

#if defined(__SSE2__)
#include <immintrin.h>
#endif

namespace moxui::qt {

namespace {

// Vectors as the compiler offers them on every machine.
using Bytes = std::uint8_t __attribute__((vector_size(16)));
using Words = std::uint16_t __attribute__((vector_size(16)));
using Pixels4 = std::uint32_t __attribute__((vector_size(16)));

constexpr std::size_t kAtOnce = 4;

// The bytes of four pixels, widened: two pixels each.
struct Wide {
  Words low;
  Words high;
};

Pixels4 Load(std::uint32_t const* from) {
  Pixels4 pixels;
  std::memcpy(&pixels, from, sizeof(pixels));
  return pixels;
}

void Store(std::uint32_t* to, Pixels4 pixels) {
  std::memcpy(to, &pixels, sizeof(pixels));
}

Wide Widened(Pixels4 pixels) {
  Bytes const bytes = reinterpret_cast<Bytes>(pixels);
  Bytes const zero{};
  // Interleaved with zeros, which makes 16-bit words of them.
  Bytes const low =
      __builtin_shufflevector(bytes, zero, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23);
  Bytes const high =
      __builtin_shufflevector(bytes, zero, 8, 24, 9, 25, 10, 26, 11, 27, 12, 28, 13, 29, 14, 30, 15, 31);
  return {reinterpret_cast<Words>(low), reinterpret_cast<Words>(high)};
}

#if defined(__SSE2__)

// Words below 256 become bytes again.
Pixels4 Narrowed(Words low, Words high) {
  return reinterpret_cast<Pixels4>(
      _mm_packus_epi16(reinterpret_cast<__m128i>(low), reinterpret_cast<__m128i>(high)));
}

Words By255(Words product) {
  Words const factor = Words{} + 257;
  return reinterpret_cast<Words>(
      _mm_mulhi_epu16(reinterpret_cast<__m128i>(product + 128), reinterpret_cast<__m128i>(factor)));
}

#else

Pixels4 Narrowed(Words low, Words high) {
  Bytes const bytes = __builtin_shufflevector(reinterpret_cast<Bytes>(low), reinterpret_cast<Bytes>(high), 0,
                                              2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
  return reinterpret_cast<Pixels4>(bytes);
}

Words By255(Words product) {
  product += 128;
  return (product + (product >> 8)) >> 8;
}

#endif

#if defined(__SSE2__)

// Eight pixels at once where the machine has the instructions; each gives how many pixels it has done.
constexpr std::size_t kWideAtOnce = 8;

bool HasWideVectors() {
  static bool const has = __builtin_cpu_supports("avx2") != 0;
  return has;
}

[[gnu::target("avx2"), gnu::always_inline]] inline __m256i WideBy255(__m256i product) {
  return _mm256_mulhi_epu16(_mm256_add_epi16(product, _mm256_set1_epi16(128)), _mm256_set1_epi16(257));
}

[[gnu::target("avx2")]] std::size_t BlendWide(std::uint32_t* out, std::size_t count, std::uint32_t colour,
                                              std::uint32_t force) {
  __m256i const zero = _mm256_setzero_si256();
  __m256i const keep = _mm256_set1_epi16(static_cast<short>(255u - AlphaOf(colour)));
  __m256i const source = _mm256_set1_epi32(static_cast<int>(colour));
  __m256i const forced = _mm256_set1_epi32(static_cast<int>(force));
  std::size_t i = 0;
  for (; i + kWideAtOnce <= count; i += kWideAtOnce) {
    auto* const at = reinterpret_cast<__m256i*>(out + i);
    __m256i const below = _mm256_loadu_si256(at);
    __m256i const low = WideBy255(_mm256_mullo_epi16(_mm256_unpacklo_epi8(below, zero), keep));
    __m256i const high = WideBy255(_mm256_mullo_epi16(_mm256_unpackhi_epi8(below, zero), keep));
    __m256i const sum = _mm256_add_epi32(source, _mm256_packus_epi16(low, high));
    _mm256_storeu_si256(at, _mm256_or_si256(sum, forced));
  }
  return i;
}

[[gnu::target("avx2"), gnu::always_inline]] inline __m256i WideOver(__m256i above, __m256i below,
                                                                    __m256i share) {
  __m256i const source = WideBy255(_mm256_mullo_epi16(above, share));
  __m256i const alpha = _mm256_shufflehi_epi16(_mm256_shufflelo_epi16(source, 0xff), 0xff);
  __m256i const keep = _mm256_sub_epi16(_mm256_set1_epi16(255), alpha);
  return _mm256_add_epi16(source, WideBy255(_mm256_mullo_epi16(below, keep)));
}

// As QPainter rounds, for which this stands.
[[gnu::target("avx2"), gnu::always_inline]] inline __m256i WideAsPainter(__m256i product) {
  __m256i const more = _mm256_add_epi16(product, _mm256_srli_epi16(product, 8));
  return _mm256_srli_epi16(_mm256_add_epi16(more, _mm256_set1_epi16(128)), 8);
}

[[gnu::target("avx2"), gnu::always_inline]] inline __m256i WideOverAsPainter(__m256i above, __m256i below,
                                                                             __m256i share) {
  __m256i const source = WideAsPainter(_mm256_mullo_epi16(above, share));
  __m256i const alpha = _mm256_shufflehi_epi16(_mm256_shufflelo_epi16(source, 0xff), 0xff);
  __m256i const keep = _mm256_sub_epi16(_mm256_set1_epi16(255), alpha);
  return _mm256_add_epi16(source, WideAsPainter(_mm256_mullo_epi16(below, keep)));
}

[[gnu::target("avx2")]] std::size_t BlendPixelsWide(std::uint32_t* out, std::uint32_t const* in,
                                                    std::size_t count, unsigned opacity,
                                                    std::uint32_t force) {
  __m256i const zero = _mm256_setzero_si256();
  __m256i const forced = _mm256_set1_epi32(static_cast<int>(force));
  __m256i const share = _mm256_set1_epi16(static_cast<short>(opacity));
  std::size_t i = 0;
  for (; i + kWideAtOnce <= count; i += kWideAtOnce) {
    __m256i const above = _mm256_loadu_si256(reinterpret_cast<__m256i const*>(in + i));
    if (_mm256_testz_si256(above, above) != 0) {
      continue;  // most of a layer is transparent
    }
    auto* const at = reinterpret_cast<__m256i*>(out + i);
    __m256i const below = _mm256_loadu_si256(at);
    __m256i const low =
        WideOverAsPainter(_mm256_unpacklo_epi8(above, zero), _mm256_unpacklo_epi8(below, zero), share);
    __m256i const high =
        WideOverAsPainter(_mm256_unpackhi_epi8(above, zero), _mm256_unpackhi_epi8(below, zero), share);
    __m256i const isSeen = _mm256_xor_si256(_mm256_cmpeq_epi32(above, zero), _mm256_set1_epi32(-1));
    _mm256_storeu_si256(at,
                        _mm256_or_si256(_mm256_packus_epi16(low, high), _mm256_and_si256(isSeen, forced)));
  }
  return i;
}

[[gnu::target("avx2")]] std::size_t MixWide(std::uint32_t* out, std::uint32_t const* in, std::size_t count,
                                            unsigned opacity, std::uint32_t force) {
  __m256i const zero = _mm256_setzero_si256();
  __m256i const opaque = _mm256_set1_epi32(static_cast<int>(kOpaqueAlpha));
  __m256i const forced = _mm256_set1_epi32(static_cast<int>(force));
  __m256i const share = _mm256_set1_epi16(static_cast<short>(opacity));
  __m256i const keep = _mm256_set1_epi16(static_cast<short>(255u - opacity));
  std::size_t i = 0;
  for (; i + kWideAtOnce <= count; i += kWideAtOnce) {
    auto* const at = reinterpret_cast<__m256i*>(out + i);
    __m256i const above =
        _mm256_or_si256(_mm256_loadu_si256(reinterpret_cast<__m256i const*>(in + i)), opaque);
    __m256i const below = _mm256_loadu_si256(at);
    __m256i const low =
        WideBy255(_mm256_add_epi16(_mm256_mullo_epi16(_mm256_unpacklo_epi8(above, zero), share),
                                   _mm256_mullo_epi16(_mm256_unpacklo_epi8(below, zero), keep)));
    __m256i const high =
        WideBy255(_mm256_add_epi16(_mm256_mullo_epi16(_mm256_unpackhi_epi8(above, zero), share),
                                   _mm256_mullo_epi16(_mm256_unpackhi_epi8(below, zero), keep)));
    _mm256_storeu_si256(at, _mm256_or_si256(_mm256_packus_epi16(low, high), forced));
  }
  return i;
}

// The same of eight pixels, of which some are covered.
[[gnu::target("avx2"), gnu::always_inline]] inline void BlendCoveredEight(std::uint32_t* out,
                                                                          std::uint64_t coverage,
                                                                          __m256i source, __m256i forced) {
  __m256i const zero = _mm256_setzero_si256();
  auto* const at = reinterpret_cast<__m256i*>(out);
  __m256i const below = _mm256_loadu_si256(at);
  __m256i const shares = _mm256_cvtepu8_epi32(_mm_cvtsi64_si128(static_cast<long long>(coverage)));
  __m256i const pairs = _mm256_or_si256(shares, _mm256_slli_epi32(shares, 16));
  __m256i const low = WideOver(_mm256_unpacklo_epi8(source, zero), _mm256_unpacklo_epi8(below, zero),
                               _mm256_unpacklo_epi32(pairs, pairs));
  __m256i const high = WideOver(_mm256_unpackhi_epi8(source, zero), _mm256_unpackhi_epi8(below, zero),
                                _mm256_unpackhi_epi32(pairs, pairs));
  __m256i const covered = _mm256_cmpgt_epi32(shares, zero);
  _mm256_storeu_si256(at, _mm256_or_si256(_mm256_packus_epi16(low, high), _mm256_and_si256(covered, forced)));
}

[[gnu::target("avx2")]] std::size_t BlendCoveredWide(std::uint32_t* out, std::uint8_t const* coverage,
                                                     std::size_t count, std::uint32_t colour,
                                                     std::uint32_t force) {
  __m256i const source = _mm256_set1_epi32(static_cast<int>(colour));
  __m256i const forced = _mm256_set1_epi32(static_cast<int>(force));
  bool const isOpaque = AlphaOf(colour) == 255;
  std::size_t i = 0;
  for (; i + kWideAtOnce <= count; i += kWideAtOnce) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, coverage + i, sizeof(eight));
    if (eight == 0) {
      continue;
    }
    if (isOpaque && ~eight == 0) {
      _mm256_storeu_si256(reinterpret_cast<__m256i*>(out + i), source);
    } else {
      BlendCoveredEight(out + i, eight, source, forced);
    }
  }
  return i;
}

#endif

// All four bytes times `factor` / 255, as QPainter rounds.
std::uint32_t ScaledAsPainter(std::uint32_t pixel, unsigned factor) {
  std::uint32_t even = (pixel & 0x00ff00ffu) * factor;
  even = ((even + ((even >> 8) & 0x00ff00ffu) + 0x00800080u) >> 8) & 0x00ff00ffu;
  std::uint32_t odd = ((pixel >> 8) & 0x00ff00ffu) * factor;
  odd = (odd + ((odd >> 8) & 0x00ff00ffu) + 0x00800080u) & 0xff00ff00u;
  return even | odd;
}

// The first pixel from `i` on that isn't covered wholly, or `count`.
std::size_t RunEnd(std::uint8_t const* coverage, std::size_t i, std::size_t count) {
  while (i < count && coverage[i] == 255) {
    ++i;
  }
  return i;
}

}  // namespace

void StoreSpan(std::uint32_t* out, std::size_t count, std::uint32_t colour) {
  Pixels4 const four{colour, colour, colour, colour};
  std::size_t i = 0;
  for (; i + kAtOnce <= count; i += kAtOnce) {
    Store(out + i, four);
  }
  for (; i < count; ++i) {
    out[i] = colour;
  }
}

void BlendSpan(std::uint32_t* out, std::size_t count, std::uint32_t colour, std::uint32_t force) {
  unsigned const rest = 255u - AlphaOf(colour);
  Pixels4 const source{colour, colour, colour, colour};
  Pixels4 const forced{force, force, force, force};
  auto const keep = static_cast<std::uint16_t>(rest);
  std::size_t i = 0;
#if defined(__SSE2__)
  if (HasWideVectors()) {
    i = BlendWide(out, count, colour, force);
  }
#endif
  for (; i + kAtOnce <= count; i += kAtOnce) {
    Wide const below = Widened(Load(out + i));
    Pixels4 const kept = Narrowed(By255(below.low * keep), By255(below.high * keep));
    // Bytes don't overflow into their neighbours: no premultiplied byte is above its alpha.
    Store(out + i, (source + kept) | forced);
  }
  for (; i < count; ++i) {
    out[i] = (colour + Scaled(out[i], rest)) | force;
  }
}

void BlendCoveredSpan(std::uint32_t* out, std::uint8_t const* coverage, std::size_t count,
                      std::uint32_t colour, std::uint32_t force) {
  std::size_t i = 0;
#if defined(__SSE2__)
  if (HasWideVectors()) {
    i = BlendCoveredWide(out, coverage, count, colour, force);
  }
#endif
  while (i < count) {
    if (coverage[i] == 255) {
      std::size_t const end = RunEnd(coverage, i, count);
      if (AlphaOf(colour) == 255) {
        StoreSpan(out + i, end - i, colour);
      } else {
        BlendSpan(out + i, end - i, colour, force);
      }
      i = end;
      continue;
    }
    if (coverage[i] != 0) {
      out[i] = Over(Scaled(colour, coverage[i]), out[i]) | force;
    }
    ++i;
  }
}

void CopyOpaqueSpan(std::uint32_t* out, std::uint32_t const* in, std::size_t count) {
  Pixels4 const opaque{kOpaqueAlpha, kOpaqueAlpha, kOpaqueAlpha, kOpaqueAlpha};
  std::size_t i = 0;
  for (; i + kAtOnce <= count; i += kAtOnce) {
    Store(out + i, Load(in + i) | opaque);
  }
  for (; i < count; ++i) {
    out[i] = in[i] | kOpaqueAlpha;
  }
}

#if defined(__SSE2__)

namespace {

// Pixels before an address that stores past the caches take.
std::size_t CountUnaligned(std::uint32_t const* out, std::size_t count) {
  return std::min((16 - reinterpret_cast<std::uintptr_t>(out) % 16) % 16 / 4, count);
}

}  // namespace

void StoreSpanPastCaches(std::uint32_t* out, std::size_t count, std::uint32_t colour) {
  std::size_t i = CountUnaligned(out, count);
  StoreSpan(out, i, colour);
  __m128i const four = _mm_set1_epi32(static_cast<int>(colour));
  for (; i + kAtOnce <= count; i += kAtOnce) {
    _mm_stream_si128(reinterpret_cast<__m128i*>(out + i), four);
  }
  _mm_sfence();
  StoreSpan(out + i, count - i, colour);
}

void CopyOpaqueSpanPastCaches(std::uint32_t* out, std::uint32_t const* in, std::size_t count) {
  std::size_t i = CountUnaligned(out, count);
  CopyOpaqueSpan(out, in, i);
  __m128i const opaque = _mm_set1_epi32(static_cast<int>(kOpaqueAlpha));
  for (; i + kAtOnce <= count; i += kAtOnce) {
    __m128i const pixels = _mm_loadu_si128(reinterpret_cast<__m128i const*>(in + i));
    _mm_stream_si128(reinterpret_cast<__m128i*>(out + i), _mm_or_si128(pixels, opaque));
  }
  _mm_sfence();
  CopyOpaqueSpan(out + i, in + i, count - i);
}

#else

void StoreSpanPastCaches(std::uint32_t* out, std::size_t count, std::uint32_t colour) {
  StoreSpan(out, count, colour);
}

void CopyOpaqueSpanPastCaches(std::uint32_t* out, std::uint32_t const* in, std::size_t count) {
  CopyOpaqueSpan(out, in, count);
}

#endif

void BlendPixelsSpan(std::uint32_t* out, std::uint32_t const* in, std::size_t count, unsigned opacity,
                     std::uint32_t force) {
  // QPainter works with 256ths, and then with 255ths of them.
  unsigned const share = (opacity * 256 / 255 * 255) >> 8;
  std::size_t i = 0;
#if defined(__SSE2__)
  if (HasWideVectors()) {
    i = BlendPixelsWide(out, in, count, share, force);
  }
#endif
  for (; i < count; ++i) {
    if (in[i] != 0) {
      std::uint32_t const above = ScaledAsPainter(in[i], share);
      out[i] = (above + ScaledAsPainter(out[i], 255u - AlphaOf(above))) | force;
    }
  }
}

void MixOpaqueSpan(std::uint32_t* out, std::uint32_t const* in, std::size_t count, unsigned opacity,
                   std::uint32_t force) {
  Pixels4 const opaque{kOpaqueAlpha, kOpaqueAlpha, kOpaqueAlpha, kOpaqueAlpha};
  Pixels4 const forced{force, force, force, force};
  auto const share = static_cast<std::uint16_t>(opacity);
  auto const keep = static_cast<std::uint16_t>(255u - opacity);
  std::size_t i = 0;
#if defined(__SSE2__)
  if (HasWideVectors()) {
    i = MixWide(out, in, count, opacity, force);
  }
#endif
  for (; i + kAtOnce <= count; i += kAtOnce) {
    Wide const above = Widened(Load(in + i) | opaque);
    Wide const below = Widened(Load(out + i));
    Pixels4 const mixed =
        Narrowed(By255(above.low * share + below.low * keep), By255(above.high * share + below.high * keep));
    Store(out + i, mixed | forced);
  }
  for (; i < count; ++i) {
    std::uint32_t pixel = 0;
    for (unsigned shift = 0; shift < 32; shift += 8) {
      unsigned const above = ((in[i] | kOpaqueAlpha) >> shift) & 255u;
      unsigned const sum = above * opacity + ((out[i] >> shift) & 255u) * (255u - opacity) + 128u;
      pixel |= ((sum + (sum >> 8)) >> 8) << shift;
    }
    out[i] = pixel | force;
  }
}

}  // namespace moxui::qt
