#pragma once

#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/FailingSupplier.h>

#include <memory>

namespace moxui::testing {

/// Hands everything on to another surface, except layers and snapshots that are refused.
class FailingSurface : public scriber::SurfaceInterface {
 public:
  /// Null for none.
  static scriber::SurfaceP Around(scriber::SurfaceP inner,
                                  std::shared_ptr<FailingSupplier::Refusals> refusals);

  FailingSurface(scriber::SurfaceP inner, std::shared_ptr<FailingSupplier::Refusals> refusals)
      : mInner(std::move(inner)), mRefusals(std::move(refusals)) {}

  void SaveState() override { mInner->SaveState(); }
  void RestoreState() override { mInner->RestoreState(); }
  void Translate(PointT<float> by) override { mInner->Translate(by); }
  void ClipToRect(RectT<float> const& rect) override { mInner->ClipToRect(rect); }
  void ClipToPath(scriber::PathInterface const& path, scriber::FillRule rule) override {
    mInner->ClipToPath(path, rule);
  }
  RectT<float> GetClipBounds() const override { return mInner->GetClipBounds(); }
  void SetSmoothing(scriber::Smoothing smoothing) override { mInner->SetSmoothing(smoothing); }
  scriber::Smoothing GetSmoothing() const override { return mInner->GetSmoothing(); }
  void SetDrawingMode(scriber::DrawingMode mode) override { mInner->SetDrawingMode(mode); }
  scriber::DrawingMode GetDrawingMode() const override { return mInner->GetDrawingMode(); }
  float GetScale() const override { return mInner->GetScale(); }
  void FillRect(RectT<float> const& rect, ColorRGBA const& colour, scriber::EdgeRounding rounding) override {
    mInner->FillRect(rect, colour, rounding);
  }
  void FillPath(scriber::PathInterface const& path, scriber::BrushInterface const& brush,
                scriber::FillRule rule) override {
    mInner->FillPath(path, brush, rule);
  }
  void StrokePath(scriber::PathInterface const& path, scriber::PenInterface const& pen) override {
    mInner->StrokePath(path, pen);
  }
  void DrawImage(scriber::ImageInterface const& image, RectT<float> const& source,
                 RectT<float> const& destination, float opacity) override {
    mInner->DrawImage(image, source, destination, opacity);
  }
  void DrawImage(scriber::ImageInterface const& image, RectT<float> const& destination,
                 float opacity) override {
    mInner->DrawImage(image, destination, opacity);
  }
  void DrawImage(scriber::ImageInterface const& image, PointT<float> topLeft, float opacity) override {
    mInner->DrawImage(image, topLeft, opacity);
  }
  void DrawText(std::u16string_view text, PointT<float> baseline, scriber::FontInterface const& font,
                ColorRGBA const& colour, scriber::TextAlignment alignment) override {
    mInner->DrawText(text, baseline, font, colour, alignment);
  }
  void DrawTextInBox(std::u16string_view text, RectT<float> const& box, scriber::FontInterface const& font,
                     ColorRGBA const& colour, scriber::TextAlignment alignment) override {
    mInner->DrawTextInBox(text, box, font, colour, alignment);
  }
  scriber::SurfaceP NewOffscreenSurface(int width, int height) const override;
  scriber::ImageP GetImage() const override {
    return mRefusals->Take(Refusal::kSnapshot) ? mInner->GetImage() : nullptr;
  }

 private:
  scriber::SurfaceP mInner;
  std::shared_ptr<FailingSupplier::Refusals> mRefusals;
};

}  // namespace moxui::testing
