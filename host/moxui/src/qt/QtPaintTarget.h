#pragma once

#include <moxui/platform/PaintTarget.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <optional>
#include <vector>

namespace moxui::qt {

class QtPaintTarget final : public platform::PaintTarget {
 public:
  QtPaintTarget(int width, int height, float scale);
  ~QtPaintTarget() override;

  scriber::Scriber& BeginPaint() override;
  void EndPaint() override;
  void Clear(RectT<float> const& rect, ColorRGBA const& colour) override;
  platform::Pixels GetPixels() const override;

 private:
  int mWidth;
  int mHeight;
  float mScale = 1;
  std::vector<std::uint32_t> mPixels;
  scriber::SurfaceP mSurface;
  std::optional<scriber::Scriber> mScriber;
};

}  // namespace moxui::qt
