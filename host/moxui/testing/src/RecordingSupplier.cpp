#include "Recording.h"

#include <moxcore/utility/IntrusivePtr.h>
#include <moxui/testing/RecordingSupplier.h>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace moxui::testing {

using moxcore::utility::MakeIntrusive;

RecordingBufferImage::RecordingBufferImage(std::shared_ptr<Recording> recording,
                                           RecordedImage const& description, int rowBytes, void* data,
                                           scriber::DataDeleter deleter)
    : mRecorded(std::move(recording)),
      mDescription(description),
      mRowBytes(rowBytes),
      mData(data),
      mDeleter(std::move(deleter)) {}

RecordingBufferImage::~RecordingBufferImage() {
  if (mDeleter) {
    mDeleter(mData);
  }
}

void RecordingBufferImage::CopyPixels(std::uint8_t* destination, int rowBytes) const {
  for (std::ptrdiff_t row = 0; row < mDescription.height; ++row) {
    std::memcpy(destination + row * rowBytes, static_cast<std::uint8_t const*>(mData) + row * mRowBytes,
                static_cast<std::size_t>(mDescription.width) * 4);
  }
}

void RecordingImage::CopyPixels(std::uint8_t* destination, int rowBytes) const {
  for (std::ptrdiff_t row = 0; row < mDescription.height; ++row) {
    std::memset(destination + row * rowBytes, 0, static_cast<std::size_t>(mDescription.width) * 4);
  }
}

RecordingSupplier::RecordingSupplier() : mRecording(std::make_shared<Recording>()) {}
RecordingSupplier::~RecordingSupplier() = default;

std::vector<RecordedCall> const& RecordingSupplier::GetCalls() const {
  return mRecording->calls;
}

std::vector<RecordedCall> RecordingSupplier::GetCalls(std::string_view operation) const {
  std::vector<RecordedCall> calls;
  std::copy_if(mRecording->calls.begin(), mRecording->calls.end(), std::back_inserter(calls),
               [&](RecordedCall const& call) { return call.operation == operation; });
  return calls;
}

std::vector<RecordedCall> RecordingSupplier::GetCallsOf(int surface) const {
  std::vector<RecordedCall> calls;
  std::copy_if(mRecording->calls.begin(), mRecording->calls.end(), std::back_inserter(calls),
               [&](RecordedCall const& call) { return call.surface == surface; });
  return calls;
}

void RecordingSupplier::Clear() {
  mRecording->calls.clear();
}

int RecordingSupplier::GetLiveObjectCount() const {
  return mRecording->liveObjects;
}

scriber::PenP RecordingSupplier::NewPen(ColorRGBA const& colour, float width) const {
  mRecording->calls.push_back({.operation = "NewPen", .colour = colour, .number = width});
  return MakeIntrusive<RecordingPen>(mRecording, colour, width);
}

scriber::PathP RecordingSupplier::NewPath() const {
  mRecording->calls.push_back({.operation = "NewPath"});
  return MakeIntrusive<RecordingPath>(mRecording);
}

scriber::BrushP RecordingSupplier::NewBrush(ColorRGBA const& colour) const {
  RecordedCall const making{.operation = "NewBrush", .colour = colour};
  mRecording->calls.push_back(making);
  return MakeIntrusive<RecordingBrush>(mRecording, making);
}

scriber::BrushP RecordingSupplier::NewLinearShader(PointT<float> from, PointT<float> to,
                                                   ColorRGBA const& first, ColorRGBA const& last) const {
  RecordedCall const making{
      .operation = "NewLinearShader", .point = from, .end = to, .colours = {first, last}, .stops = {0, 1}};
  mRecording->calls.push_back(making);
  return MakeIntrusive<RecordingBrush>(mRecording, making);
}

scriber::BrushP RecordingSupplier::NewRadialShader(PointT<float> centre, PointT<float> rim,
                                                   ColorRGBA const& first, ColorRGBA const& last) const {
  RecordedCall const making{
      .operation = "NewRadialShader", .point = centre, .end = rim, .colours = {first, last}, .stops = {0, 1}};
  mRecording->calls.push_back(making);
  return MakeIntrusive<RecordingBrush>(mRecording, making);
}

scriber::BrushP RecordingSupplier::NewLinearShader(PointT<float> from, PointT<float> to,
                                                   std::span<ColorRGBA const> colours,
                                                   std::span<float const> stops) const {
  RecordedCall const making{.operation = "NewLinearShader",
                            .point = from,
                            .end = to,
                            .colours = {colours.begin(), colours.end()},
                            .stops = {stops.begin(), stops.end()}};
  mRecording->calls.push_back(making);
  return MakeIntrusive<RecordingBrush>(mRecording, making);
}

scriber::BrushP RecordingSupplier::NewRadialShader(PointT<float> centre, PointT<float> rim,
                                                   std::span<ColorRGBA const> colours,
                                                   std::span<float const> stops) const {
  RecordedCall const making{.operation = "NewRadialShader",
                            .point = centre,
                            .end = rim,
                            .colours = {colours.begin(), colours.end()},
                            .stops = {stops.begin(), stops.end()}};
  mRecording->calls.push_back(making);
  return MakeIntrusive<RecordingBrush>(mRecording, making);
}

scriber::BufferImageP RecordingSupplier::NewImage(int width, int height, int rowBytes,
                                                  scriber::PixelFormat format, void* data,
                                                  scriber::DataDeleter deleter) const {
  RecordedImage const description{.width = width, .height = height, .format = format};
  mRecording->calls.push_back(
      {.operation = "NewImage", .number = static_cast<float>(rowBytes), .image = description});
  return MakeIntrusive<RecordingBufferImage>(mRecording, description, rowBytes, data, std::move(deleter));
}

scriber::ImageP RecordingSupplier::NewImageFromFileBytes(std::span<std::byte const> bytes,
                                                         float scale) const {
  constexpr int kIconPixels = 36;
  RecordedImage description{.width = kIconPixels, .height = kIconPixels};
  std::transform(bytes.begin(), bytes.end(), std::back_inserter(description.bytes),
                 [](std::byte byte) { return std::to_integer<std::uint8_t>(byte); });
  mRecording->calls.push_back({.operation = "NewImageFromFileBytes", .number = scale, .image = description});
  return MakeIntrusive<RecordingImage>(mRecording, std::move(description), scale);
}

scriber::FontP RecordingSupplier::NewFont(std::string_view name, std::string_view style, float size) const {
  std::string const fullName = std::string(name) + "|" + std::string(style);
  mRecording->calls.push_back({.operation = "NewFont", .number = size, .text = fullName});
  return MakeIntrusive<RecordingFont>(mRecording, fullName, size);
}

scriber::SurfaceP RecordingSupplier::NewOffscreenSurface(int width, int height, float scale) const {
  mRecording->calls.push_back({.operation = "NewOffscreenSurface",
                               .rect = {0.0f, 0.0f, static_cast<float>(width), static_cast<float>(height)},
                               .number = scale});
  return MakeIntrusive<RecordingSurface>(mRecording, width, height, scale);
}

}  // namespace moxui::testing
