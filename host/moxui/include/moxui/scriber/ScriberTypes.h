#pragma once

#include <moxcore/utility/IntrusivePtr.h>

#include <cstdint>
#include <functional>

namespace moxui::scriber {

class BrushInterface;
class BufferImageInterface;
class FontInterface;
class ImageInterface;
class PathInterface;
class PenInterface;
class SupplierInterface;
class SurfaceInterface;
class TextLayoutInterface;

/// References to facade objects; use of an empty one raises the null-pointer exception with the type's name.
using BrushP = moxcore::utility::IntrusivePtr<BrushInterface>;
using BufferImageP = moxcore::utility::IntrusivePtr<BufferImageInterface>;
using FontP = moxcore::utility::IntrusivePtr<FontInterface>;
using ImageP = moxcore::utility::IntrusivePtr<ImageInterface>;
using PathP = moxcore::utility::IntrusivePtr<PathInterface>;
using PenP = moxcore::utility::IntrusivePtr<PenInterface>;
using SurfaceP = moxcore::utility::IntrusivePtr<SurfaceInterface>;
using TextLayoutP = moxcore::utility::IntrusivePtr<TextLayoutInterface>;

/// Which points lie inside a path, for fills and clips alike.
enum class FillRule { kEvenOdd = 0, kWinding = 1 };

/// How edges and scaled images are smoothed. High quality adds smooth image sampling and dithered shaders.
enum class Smoothing { kOff = 0, kAntiAliased = 1, kHighQuality = 2 };

/// What is being drawn: interface content has its text and icons snapped to device pixels; media content has
/// its images sampled smoothly and nothing snapped.
enum class DrawingMode { kInterface = 1, kMedia = 2 };

/// Whether the edges of a rectangle are moved to the nearest device pixel.
enum class EdgeRounding { kExact = 0, kSnapped = 1 };

enum class TextAlignment { kLeft = 0, kCenter = 1, kRight = 2 };

/// 32-bit pixels, bytes in the order blue, green, red, alpha.
enum class PixelFormat : std::int32_t {
  kBGRA32Straight = 6,  ///< alpha is straight, not premultiplied
  kBGRX32 = 7,          ///< alpha is ignored: every pixel is opaque
};

/// Called once with the pixels when the image over them ends, or at once if no image could be made.
using DataDeleter = std::function<void(void* data)>;

}  // namespace moxui::scriber
