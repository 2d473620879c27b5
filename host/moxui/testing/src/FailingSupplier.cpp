#include "FailingSurface.h"

#include <moxcore/utility/IntrusivePtr.h>
#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/testing/FailingSupplier.h>

namespace moxui::testing {

bool FailingSupplier::Refusals::IsRefused(Refusal refusal) const {
  auto const found = remaining.find(refusal);
  return found != remaining.end() && found->second <= 0;
}

bool FailingSupplier::Refusals::Take(Refusal refusal) {
  auto const found = remaining.find(refusal);
  if (found == remaining.end()) {
    return true;
  }
  return found->second-- > 0;
}

scriber::SurfaceP FailingSurface::Around(scriber::SurfaceP inner,
                                         std::shared_ptr<FailingSupplier::Refusals> refusals) {
  return inner ? moxcore::utility::MakeIntrusive<FailingSurface>(std::move(inner), std::move(refusals))
               : nullptr;
}

scriber::SurfaceP FailingSurface::NewOffscreenSurface(int width, int height) const {
  if (!mRefusals->Take(Refusal::kLayer)) {
    return nullptr;
  }
  return FailingSurface::Around(mInner->NewOffscreenSurface(width, height), mRefusals);
}

FailingSupplier::FailingSupplier(scriber::SupplierInterface const& inner)
    : mInner(inner), mRefusals(std::make_shared<Refusals>()) {}
FailingSupplier::~FailingSupplier() = default;

void FailingSupplier::Refuse(Refusal refusal, int after) {
  mRefusals->remaining[refusal] = after;
}
void FailingSupplier::Allow(Refusal refusal) {
  mRefusals->remaining.erase(refusal);
}

scriber::SurfaceP FailingSupplier::Wrap(scriber::SurfaceP inner) const {
  return FailingSurface::Around(std::move(inner), mRefusals);
}

scriber::PenP FailingSupplier::NewPen(ColorRGBA const& colour, float width) const {
  return mRefusals->Take(Refusal::kPen) ? mInner.NewPen(colour, width) : nullptr;
}

scriber::PathP FailingSupplier::NewPath() const {
  return mRefusals->Take(Refusal::kPath) ? mInner.NewPath() : nullptr;
}

scriber::BrushP FailingSupplier::NewBrush(ColorRGBA const& colour) const {
  return mRefusals->Take(Refusal::kBrush) ? mInner.NewBrush(colour) : nullptr;
}

scriber::BrushP FailingSupplier::NewLinearShader(PointT<float> from, PointT<float> to, ColorRGBA const& first,
                                                 ColorRGBA const& last) const {
  return mRefusals->Take(Refusal::kLinearShader) ? mInner.NewLinearShader(from, to, first, last) : nullptr;
}

scriber::BrushP FailingSupplier::NewRadialShader(PointT<float> centre, PointT<float> rim,
                                                 ColorRGBA const& first, ColorRGBA const& last) const {
  return mRefusals->Take(Refusal::kRadialShader) ? mInner.NewRadialShader(centre, rim, first, last) : nullptr;
}

scriber::BrushP FailingSupplier::NewLinearShader(PointT<float> from, PointT<float> to,
                                                 std::span<ColorRGBA const> colours,
                                                 std::span<float const> stops) const {
  return mRefusals->Take(Refusal::kMultiStopLinearShader) ? mInner.NewLinearShader(from, to, colours, stops)
                                                          : nullptr;
}

scriber::BrushP FailingSupplier::NewRadialShader(PointT<float> centre, PointT<float> rim,
                                                 std::span<ColorRGBA const> colours,
                                                 std::span<float const> stops) const {
  return mRefusals->Take(Refusal::kMultiStopRadialShader)
             ? mInner.NewRadialShader(centre, rim, colours, stops)
             : nullptr;
}

bool FailingSupplier::HasLinearShader() const {
  return !mRefusals->IsRefused(Refusal::kLinearShader) && mInner.HasLinearShader();
}

bool FailingSupplier::HasRadialShader() const {
  return !mRefusals->IsRefused(Refusal::kRadialShader) && mInner.HasRadialShader();
}

bool FailingSupplier::HasMultiStopLinearShader() const {
  return !mRefusals->IsRefused(Refusal::kMultiStopLinearShader) && mInner.HasMultiStopLinearShader();
}

bool FailingSupplier::HasMultiStopRadialShader() const {
  return !mRefusals->IsRefused(Refusal::kMultiStopRadialShader) && mInner.HasMultiStopRadialShader();
}

scriber::BufferImageP FailingSupplier::NewImage(int width, int height, int rowBytes,
                                                scriber::PixelFormat format, void* data,
                                                scriber::DataDeleter deleter) const {
  if (mRefusals->Take(Refusal::kImage)) {
    return mInner.NewImage(width, height, rowBytes, format, data, std::move(deleter));
  }
  if (deleter) {
    deleter(data);
  }
  return nullptr;
}

scriber::ImageP FailingSupplier::NewImageFromFileBytes(std::span<std::byte const> bytes, float scale) const {
  return mRefusals->Take(Refusal::kFileImage) ? mInner.NewImageFromFileBytes(bytes, scale) : nullptr;
}

scriber::FontP FailingSupplier::NewFont(std::string_view name, std::string_view style, float size) const {
  return mRefusals->Take(Refusal::kFont) ? mInner.NewFont(name, style, size) : nullptr;
}

scriber::SurfaceP FailingSupplier::NewOffscreenSurface(int width, int height, float scale) const {
  return mRefusals->Take(Refusal::kOffscreenSurface) ? Wrap(mInner.NewOffscreenSurface(width, height, scale))
                                                     : nullptr;
}

}  // namespace moxui::testing
