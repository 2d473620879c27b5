#pragma once

#include <moxui/scriber/SupplierInterface.h>

#include <map>
#include <memory>

namespace moxui::testing {

/// What a failing supplier can refuse.
enum class Refusal {
  kPen,
  kPath,
  kBrush,
  kFont,
  kImage,             ///< an image over a buffer
  kFileImage,         ///< an image from a file's bytes
  kOffscreenSurface,  ///< made by the supplier
  kLayer,             ///< an offscreen surface made by a wrapped surface
  kSnapshot,          ///< the image of a wrapped surface
  kLinearShader,
  kRadialShader,
  kMultiStopLinearShader,
  kMultiStopRadialShader,
};

/// Hands everything on to another supplier, except what it is told to refuse: makers then give null, and
/// questions for shaders are answered with no. Surfaces to be drawn on are to be wrapped, for layers and
/// snapshots to be refused. The other supplier is lent.
class FailingSupplier : public scriber::SupplierInterface {
 public:
  explicit FailingSupplier(scriber::SupplierInterface const& inner);
  ~FailingSupplier() override;

  /// Refuses from now on, after so many successes more.
  void Refuse(Refusal refusal, int after = 0);
  void Allow(Refusal refusal);
  /// A surface that draws on `inner` and knows what is refused; null for none.
  scriber::SurfaceP Wrap(scriber::SurfaceP inner) const;

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
  bool HasLinearShader() const override;
  bool HasRadialShader() const override;
  bool HasMultiStopLinearShader() const override;
  bool HasMultiStopRadialShader() const override;
  scriber::BufferImageP NewImage(int width, int height, int rowBytes, scriber::PixelFormat format, void* data,
                                 scriber::DataDeleter deleter) const override;
  scriber::ImageP NewImageFromFileBytes(std::span<std::byte const> bytes, float scale) const override;
  scriber::FontP NewFont(std::string_view name, std::string_view style, float size) const override;
  /// Comes wrapped.
  scriber::SurfaceP NewOffscreenSurface(int width, int height, float scale) const override;

  /// What is refused, after how many successes.
  class Refusals {
   public:
    bool IsRefused(Refusal refusal) const;
    /// Counts a success or says that there is none.
    bool Take(Refusal refusal);
    std::map<Refusal, int> remaining;
  };

 private:
  scriber::SupplierInterface const& mInner;
  std::shared_ptr<Refusals> mRefusals;
};

}  // namespace moxui::testing
