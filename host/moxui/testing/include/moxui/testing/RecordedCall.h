#pragma once

#include <moxui/geometry/ColorRGBA.h>
#include <moxui/geometry/PointT.h>
#include <moxui/geometry/RectT.h>
#include <moxui/scriber/ScriberTypes.h>

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace moxui::testing {

/// One step of a path: a move or line has one point, a curve three (handles first), an arc its centre, a
/// rectangle its top left corner; `numbers` holds an arc's radius, start and sweep, a rectangle's extent.
struct RecordedSegment {
  enum class Kind { kMoveTo, kLineTo, kCubicTo, kArc, kRect, kClose };
  Kind kind = Kind::kMoveTo;
  std::vector<PointT<float>> points{};
  std::vector<float> numbers{};

  friend bool operator==(RecordedSegment const&, RecordedSegment const&) = default;
};

/// What an image showed when it was drawn: the pixels of a buffer or a file's bytes, or the surface that it
/// is a snapshot of.
struct RecordedImage {
  int width = 0;
  int height = 0;
  int surface = -1;
  scriber::PixelFormat format = scriber::PixelFormat::kBGRX32;
  std::vector<std::uint8_t> bytes{};  ///< rows without gaps

  friend bool operator==(RecordedImage const&, RecordedImage const&) = default;
};

/// One call of the drawing facade. Fields that a call doesn't have keep their defaults, so that calls can be
/// compared as wholes and written down with designated initialisers.
struct RecordedCall {
  /// Name of the operation, as in the facade: "FillRect", "StrokePath", "NewPen".
  std::string operation{};
  /// Number of the surface called, counted from 0 in order of making; -1 for calls of the supplier.
  int surface = -1;
  RectT<float> rect{};    ///< filled, clipped, destination of an image, box of a text
  RectT<float> source{};  ///< part of an image
  PointT<float> point{};  ///< translation, place of an image or text; first point of a shader
  PointT<float> end{};    ///< second point of a shader
  ColorRGBA colour{};     ///< of a fill, pen, brush or text; the first of a shader
  float number = 0;       ///< opacity of an image, width of a pen, size of a font, scale
  int mode = 0;           ///< fill rule, smoothing, drawing mode, rounding, alignment
  std::vector<RecordedSegment> path{};
  RecordedImage image{};
  std::vector<ColorRGBA> colours{};  ///< of a shader
  std::vector<float> stops{};
  std::string text{};  ///< UTF-8; name and style of a font

  friend bool operator==(RecordedCall const&, RecordedCall const&) = default;
};

/// For messages of failed expectations.
std::ostream& operator<<(std::ostream& stream, RecordedCall const& call);
std::ostream& operator<<(std::ostream& stream, RecordedSegment const& segment);

}  // namespace moxui::testing
