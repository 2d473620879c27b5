#pragma once

#include <moxui/scriber/SupplierInterface.h>
#include <moxui/testing/RecordedCall.h>

#include <memory>
#include <vector>

namespace moxui::testing {

/// Draws nothing and writes every call down, in order, for tests that ask what would be drawn. All makers
/// succeed; fonts have round metrics (a character is half the size wide, ascent 0.8, descent 0.2 of it).
/// What it made may outlive it.
class RecordingSupplier : public scriber::SupplierInterface {
 public:
  RecordingSupplier();
  ~RecordingSupplier() override;

  /// All calls since the start or the last Clear, those of path objects excepted: a path's steps stand in the
  /// call that uses it.
  std::vector<RecordedCall> const& GetCalls() const;
  /// The calls of one operation.
  std::vector<RecordedCall> GetCalls(std::string_view operation) const;
  /// The calls of one surface.
  std::vector<RecordedCall> GetCallsOf(int surface) const;
  void Clear();
  /// How many objects handed out by this supplier are still held; a test of leaks.
  int GetLiveObjectCount() const;

  scriber::PenP NewPen(ColorRGBA const& colour, float width) const override;
  scriber::PathP NewPath() const override;
  scriber::BrushP NewBrush(ColorRGBA const& colour) const override;
  scriber::BrushP NewLinearShader(PointT<float> from, PointT<float> to, ColorRGBA const& first,
                                  ColorRGBA const& last) const override;
  scriber::BrushP NewRadialShader(PointT<float> centre, PointT<float> rim, ColorRGBA const& first,
                                  ColorRGBA const& last) const override;
  scriber::BrushP NewLinearShader(PointT<float> from, PointT<float> to, std::span<ColorRGBA const> colours,
                                  std::span<float const> stops) const override;
  scriber::BrushP NewRadialShader(PointT<float> centre, PointT<float> rim, std::span<ColorRGBA const> colours,
                                  std::span<float const> stops) const override;
  bool HasLinearShader() const override { return true; }
  bool HasRadialShader() const override { return true; }
  bool HasMultiStopLinearShader() const override { return true; }
  bool HasMultiStopRadialShader() const override { return true; }
  scriber::BufferImageP NewImage(int width, int height, int rowBytes, scriber::PixelFormat format, void* data,
                                 scriber::DataDeleter deleter) const override;
  scriber::ImageP NewImageFromFileBytes(std::span<std::byte const> bytes, float scale) const override;
  scriber::FontP NewFont(std::string_view name, std::string_view style, float size) const override;
  /// The first one made is surface 0.
  scriber::SurfaceP NewOffscreenSurface(int width, int height, float scale) const override;

 private:
  std::shared_ptr<struct Recording> mRecording;
};

}  // namespace moxui::testing
