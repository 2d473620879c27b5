#pragma once

#include <moxcore/utility/RefCountedObjectWithoutVirtualBase.h>
#include <moxui/geometry/ColorRGBA.h>

namespace moxui::scriber {

/// A solid line style with flat caps and miter joins; the width is in logical pixels.
class PenInterface : public moxcore::utility::RefCountedObjectWithoutVirtualBase {
 public:
  virtual ColorRGBA GetColor() const = 0;
  virtual float GetWidth() const = 0;
};

/// What a path is filled with: one colour, or a shader.
class BrushInterface : public moxcore::utility::RefCountedObjectWithoutVirtualBase {};

}  // namespace moxui::scriber
