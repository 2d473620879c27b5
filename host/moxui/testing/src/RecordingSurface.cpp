#include "Recording.h"

#include <moxcore/utility/IntrusivePtr.h>

#include <algorithm>
#include <string>

namespace moxui::testing {

namespace {

std::vector<RecordedSegment> const& SegmentsOf(scriber::PathInterface const& path) {
  return dynamic_cast<RecordingPath const&>(path).GetSegments();
}

RecordedImage Describe(scriber::ImageInterface const& image) {
  if (auto const* const plain = dynamic_cast<RecordingImage const*>(&image)) {
    return plain->GetDescription();
  }
  RecordedImage description{.width = image.GetPixelWidth(), .height = image.GetPixelHeight()};
  if (auto const* const buffer = dynamic_cast<scriber::BufferImageInterface const*>(&image)) {
    description.format = buffer->GetFormat();
  }
  int const rowBytes = description.width * 4;
  description.bytes.resize(static_cast<std::size_t>(rowBytes) * static_cast<std::size_t>(description.height));
  image.CopyPixels(description.bytes.data(), rowBytes);
  return description;
}

/// Texts of tests are plain enough: what isn't ASCII is shown by its code.
std::string ToText(std::u16string_view text) {
  std::string result;
  for (char16_t const unit : text) {
    result += unit < 0x80 ? std::string(1, static_cast<char>(unit)) : "\\" + std::to_string(unit);
  }
  return result;
}

std::string FontName(scriber::FontInterface const& font) {
  auto const* const recording = dynamic_cast<RecordingFont const*>(&font);
  return recording != nullptr ? recording->GetName() : "";
}

}  // namespace

RectT<float> RecordingPath::GetBounds() const {
  RectT<float> bounds;
  bool isFirst = true;
  auto const add = [&](float left, float top, float right, float bottom) {
    auto const box = RectT<float>::FromEdges(left, top, right, bottom);
    bounds =
        isFirst ? box
                : RectT<float>::FromEdges(std::min(bounds.left, left), std::min(bounds.top, top),
                                          std::max(bounds.Right(), right), std::max(bounds.Bottom(), bottom));
    isFirst = false;
  };
  for (RecordedSegment const& segment : mSegments) {
    for (PointT<float> const point : segment.points) {
      bool const isArc = segment.kind == RecordedSegment::Kind::kArc;
      bool const isRect = segment.kind == RecordedSegment::Kind::kRect;
      float const before = isArc ? segment.numbers[0] : 0.0f;
      float const afterX = isRect ? segment.numbers[0] : before;
      float const afterY = isRect ? segment.numbers[1] : before;
      add(point.x - before, point.y - before, point.x + afterX, point.y + afterY);
    }
  }
  return bounds;
}

RecordingSurface::RecordingSurface(std::shared_ptr<Recording> recording, int width, int height, float scale)
    : mRecorded(std::move(recording)),
      mNumber(mRecorded.Get()->surfaceCount++),
      mWidth(width),
      mHeight(height),
      mScale(scale) {
  mState.clip = {0.0f, 0.0f, static_cast<float>(width), static_cast<float>(height)};
}

void RecordingSurface::Add(RecordedCall call) const {
  call.surface = mNumber;
  mRecorded.Add(std::move(call));
}

void RecordingSurface::SaveState() {
  mSavedStates.push_back(mState);
  Add({.operation = "SaveState"});
}

void RecordingSurface::RestoreState() {
  if (!mSavedStates.empty()) {
    mState = mSavedStates.back();
    mSavedStates.pop_back();
  }
  Add({.operation = "RestoreState"});
}

void RecordingSurface::Translate(PointT<float> by) {
  mState.clip = mState.clip.Offset({-by.x, -by.y});
  Add({.operation = "Translate", .point = by});
}

void RecordingSurface::ClipToRect(RectT<float> const& rect) {
  mState.clip = mState.clip.Intersection(rect);
  Add({.operation = "ClipToRect", .rect = rect});
}

void RecordingSurface::ClipToPath(scriber::PathInterface const& path, scriber::FillRule rule) {
  mState.clip = mState.clip.Intersection(dynamic_cast<RecordingPath const&>(path).GetBounds());
  Add({.operation = "ClipToPath", .mode = static_cast<int>(rule), .path = SegmentsOf(path)});
}

void RecordingSurface::SetSmoothing(scriber::Smoothing smoothing) {
  mState.smoothing = smoothing;
  Add({.operation = "SetSmoothing", .mode = static_cast<int>(smoothing)});
}

void RecordingSurface::SetDrawingMode(scriber::DrawingMode mode) {
  mState.mode = mode;
  Add({.operation = "SetDrawingMode", .mode = static_cast<int>(mode)});
}

void RecordingSurface::FillRect(RectT<float> const& rect, ColorRGBA const& colour,
                                scriber::EdgeRounding rounding) {
  Add({.operation = "FillRect", .rect = rect, .colour = colour, .mode = static_cast<int>(rounding)});
}

void RecordingSurface::FillPath(scriber::PathInterface const& path, scriber::BrushInterface const& brush,
                                scriber::FillRule rule) {
  RecordedCall call = dynamic_cast<RecordingBrush const&>(brush).GetMaking();
  call.operation = "FillPath";
  call.mode = static_cast<int>(rule);
  call.path = SegmentsOf(path);
  Add(std::move(call));
}

void RecordingSurface::StrokePath(scriber::PathInterface const& path, scriber::PenInterface const& pen) {
  Add({.operation = "StrokePath",
       .colour = pen.GetColor(),
       .number = pen.GetWidth(),
       .path = SegmentsOf(path)});
}

void RecordingSurface::DrawImage(scriber::ImageInterface const& image, RectT<float> const& source,
                                 RectT<float> const& destination, float opacity) {
  Add({.operation = "DrawImage",
       .rect = destination,
       .source = source,
       .number = opacity,
       .image = Describe(image)});
}

void RecordingSurface::DrawImage(scriber::ImageInterface const& image, RectT<float> const& destination,
                                 float opacity) {
  Add({.operation = "DrawImage", .rect = destination, .number = opacity, .image = Describe(image)});
}

void RecordingSurface::DrawImage(scriber::ImageInterface const& image, PointT<float> topLeft, float opacity) {
  Add({.operation = "DrawImage", .point = topLeft, .number = opacity, .image = Describe(image)});
}

void RecordingSurface::DrawText(std::u16string_view text, PointT<float> baseline,
                                scriber::FontInterface const& font, ColorRGBA const& colour,
                                scriber::TextAlignment alignment) {
  Add({.operation = "DrawText",
       .point = baseline,
       .colour = colour,
       .number = font.GetSize(),
       .mode = static_cast<int>(alignment),
       .text = ToText(text) + "|" + FontName(font)});
}

void RecordingSurface::DrawTextInBox(std::u16string_view text, RectT<float> const& box,
                                     scriber::FontInterface const& font, ColorRGBA const& colour,
                                     scriber::TextAlignment alignment) {
  Add({.operation = "DrawTextInBox",
       .rect = box,
       .colour = colour,
       .number = font.GetSize(),
       .mode = static_cast<int>(alignment),
       .text = ToText(text) + "|" + FontName(font)});
}

scriber::SurfaceP RecordingSurface::NewOffscreenSurface(int width, int height) const {
  Add({.operation = "NewOffscreenSurface",
       .rect = {0.0f, 0.0f, static_cast<float>(width), static_cast<float>(height)}});
  return moxcore::utility::MakeIntrusive<RecordingSurface>(mRecorded.Get(), width, height, mScale);
}

scriber::ImageP RecordingSurface::GetImage() const {
  Add({.operation = "GetImage"});
  RecordedImage const description{.width = static_cast<int>(static_cast<float>(mWidth) * mScale),
                                  .height = static_cast<int>(static_cast<float>(mHeight) * mScale),
                                  .surface = mNumber};
  return moxcore::utility::MakeIntrusive<RecordingImage>(mRecorded.Get(), description, mScale);
}

}  // namespace moxui::testing
