#pragma once

#include <moxcore/utility/RefCountedObjectWithoutVirtualBase.h>
#include <moxui/scriber/ScriberTypes.h>

#include <cstdint>

namespace moxui::scriber {

/// A picture that can be drawn. Width and height are logical: an icon of 36 pixels at scale 2 has 18.
class ImageInterface : public moxcore::utility::RefCountedObjectWithoutVirtualBase {
 public:
  virtual float GetWidth() const = 0;
  virtual float GetHeight() const = 0;
  virtual int GetPixelWidth() const = 0;
  virtual int GetPixelHeight() const = 0;
  /// Writes all pixels as straight BGRA, `rowBytes` (at least 4 times the pixel width) from row to row.
  virtual void CopyPixels(std::uint8_t* destination, int rowBytes) const = 0;
};

/// An image over a pixel buffer that its maker handed over and may still write between draws.
class BufferImageInterface : public ImageInterface {
 public:
  virtual void* GetData() const = 0;
  virtual int GetRowBytes() const = 0;
  virtual PixelFormat GetFormat() const = 0;
};

}  // namespace moxui::scriber
