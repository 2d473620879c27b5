#pragma once

#include <moxui/scriber/ScriberTypes.h>

#include <filesystem>

namespace moxui::scriber {

/// The supplier whose surfaces are pictures in memory. It lives as long as the process. Pictures and paths
/// need nothing else; fonts need the application object that the platform starts with.
SupplierInterface const* GetRasterSupplier();

/// A surface over pixels that the caller keeps: bytes blue, green, red, alpha, `rowBytes` (a multiple of 4,
/// at least 4 times the width) from row to row, `scale` device pixels to the logical pixel. With `opaque`,
/// alpha stays 255 wherever something is drawn; otherwise the pixels hold premultiplied alpha. What the
/// pixels hold already is kept. The pixels have to outlive the surface, but not the images taken of it.
SurfaceP NewRasterSurfaceOver(void* pixels, int pixelWidth, int pixelHeight, int rowBytes, float scale,
                              bool opaque);

/// Writes an image's pixels, alpha straight, as a PNG file; false if it cannot be written or has no pixels.
bool WritePNG(ImageInterface const& image, std::filesystem::path const& path);

/// Reads a PNG file at one pixel to the logical pixel; null if it cannot be read.
ImageP ReadPNG(std::filesystem::path const& path);

}  // namespace moxui::scriber
