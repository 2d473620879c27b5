#include "qt/raster/PixelSpans.h"

#include "qt/raster/Pixels.h"

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

#endif

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
