#pragma once

#include <cstddef>
#include <cstdint>

namespace moxui::qt {

/// Work on pixels in a row, several at once. `force` is or'ed to each pixel written: the alpha of pixels that
/// have to stay opaque, or 0.

void StoreSpan(std::uint32_t* out, std::size_t count, std::uint32_t colour);

/// Spans of pictures of more bytes than this go past the caches, which they would empty for nothing.
inline constexpr std::size_t kLargePicture = std::size_t{4} << 20;

/// The same for spans of large pictures, which nobody looks at soon.
void StoreSpanPastCaches(std::uint32_t* out, std::size_t count, std::uint32_t colour);

/// Lays a premultiplied colour over pixels.
void BlendSpan(std::uint32_t* out, std::size_t count, std::uint32_t colour, std::uint32_t force);

/// Lays a premultiplied colour over pixels, each by how much of it is covered: 0 to 255.
void BlendCoveredSpan(std::uint32_t* out, std::uint8_t const* coverage, std::size_t count,
                      std::uint32_t colour, std::uint32_t force);

/// Copies pixels whose alpha bytes mean nothing, as opaque ones.
void CopyOpaqueSpan(std::uint32_t* out, std::uint32_t const* in, std::size_t count);

/// The same for spans of large pictures.
void CopyOpaqueSpanPastCaches(std::uint32_t* out, std::uint32_t const* in, std::size_t count);

/// Lays premultiplied pixels over others: `opacity` of 255 parts of them.
void BlendPixelsSpan(std::uint32_t* out, std::uint32_t const* in, std::size_t count, unsigned opacity,
                     std::uint32_t force);

/// Copies as CopyOpaqueSpan does, mixed with what is there: `opacity` of 255 parts of the new.
void MixOpaqueSpan(std::uint32_t* out, std::uint32_t const* in, std::size_t count, unsigned opacity,
                   std::uint32_t force);

}  // namespace moxui::qt
