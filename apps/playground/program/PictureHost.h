#pragma once

#include <moxui/ui/NodeTreeHost.h>

namespace playground {

// Stands in for a window around a tree that is only made pictures of: time stands still, the pointer is far
// away, no key is down.
class PictureHost : public moxui::ui::NodeTreeHost {
 public:
  explicit PictureHost(float scale) : mScale(scale) {}

  void RequestFrame() override {}
  void PaintNow() override {}
  void RequestWakeUp(double) override {}
  double GetTime() const override { return 0.0; }
  moxui::PointT<float> GetOrigin() const override { return {}; }
  float GetScale() const override { return mScale; }
  moxui::PointT<float> GetPointerPosition() const override { return {-1000.0f, -1000.0f}; }
  moxui::ui::ModKeys GetModKeys() const override { return {}; }
  moxui::ui::MouseButtons GetMouseButtons() const override { return {}; }

 private:
  float mScale;
};

}  // namespace playground
