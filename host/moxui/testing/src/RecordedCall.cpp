#include <moxui/testing/RecordedCall.h>

#include <algorithm>
#include <iomanip>
#include <ostream>

namespace moxui::testing {

namespace {

void Print(std::ostream& stream, PointT<float> point) {
  stream << " (" << point.x << ", " << point.y << ")";
}

void Print(std::ostream& stream, RectT<float> const& rect) {
  stream << " [" << rect.left << ", " << rect.top << ", " << rect.width << " x " << rect.height << "]";
}

void Print(std::ostream& stream, ColorRGBA const& colour) {
  stream << " rgba(" << colour.red << ", " << colour.green << ", " << colour.blue << ", " << colour.alpha
         << ")";
}

void Print(std::ostream& stream, RecordedImage const& image) {
  stream << " image " << image.width << " x " << image.height;
  if (image.surface >= 0) {
    stream << " of surface " << image.surface;
  } else {
    stream << " format " << static_cast<int>(image.format) << ", " << image.bytes.size() << " bytes";
  }
}

char const* NameOf(RecordedSegment::Kind kind) {
  constexpr char const* kNames[] = {"move", "line", "curve", "arc", "rect", "close"};
  return kNames[static_cast<int>(kind)];
}

}  // namespace

std::ostream& operator<<(std::ostream& stream, RecordedSegment const& segment) {
  stream << NameOf(segment.kind);
  for (PointT<float> const point : segment.points) {
    Print(stream, point);
  }
  for (float const number : segment.numbers) {
    stream << ' ' << number;
  }
  return stream;
}

std::ostream& operator<<(std::ostream& stream, RecordedCall const& call) {
  constexpr std::size_t kMostSegments = 8;
  RecordedCall const none;
  auto const precision = stream.precision(9);  // enough to tell any two floats apart
  stream << call.operation;
  if (call.surface >= 0) {
    stream << " on " << call.surface;
  }
  if (call.rect != none.rect) {
    Print(stream, call.rect);
  }
  if (call.source != none.source) {
    stream << " from";
    Print(stream, call.source);
  }
  if (call.point != none.point || call.end != none.end) {
    Print(stream, call.point);
  }
  if (call.end != none.end) {
    Print(stream, call.end);
  }
  if (call.colour != none.colour) {
    Print(stream, call.colour);
  }
  if (call.number != none.number) {
    stream << " number " << call.number;
  }
  if (call.mode != none.mode) {
    stream << " mode " << call.mode;
  }
  if (call.image != none.image) {
    Print(stream, call.image);
  }
  for (std::size_t i = 0; i < call.colours.size(); ++i) {
    Print(stream, call.colours[i]);
    stream << " at " << (i < call.stops.size() ? call.stops[i] : -1.0f);
  }
  if (!call.text.empty()) {
    stream << " \"" << call.text << '"';
  }
  for (std::size_t i = 0; i < std::min(call.path.size(), kMostSegments); ++i) {
    stream << (i == 0 ? " path " : ", ") << call.path[i];
  }
  if (call.path.size() > kMostSegments) {
    stream << ", ... of " << call.path.size() << " segments";
  }
  stream.precision(precision);
  return stream;
}

}  // namespace moxui::testing
