#include "program/WindowIcon.h"

#include "program/HexColor.h"

#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/RoundedRect.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <array>

namespace playground {
namespace {

constexpr int kSize = 64;
constexpr float kCorner = 14.0f;
constexpr float kBarWidth = 5.0f;
constexpr float kBarDistance = 8.0f;
// Heights of the columns, in pixels.
constexpr std::array<float, 6> kBars{12.0f, 28.0f, 40.0f, 22.0f, 34.0f, 10.0f};

}  // namespace

moxui::scriber::ImageP WindowIcon(moxui::scriber::SupplierInterface const& supplier) {
  auto const surface = supplier.NewOffscreenSurface(kSize, kSize, 1.0f);
  auto ground = supplier.NewPath();
  moxui::utils::FormRoundedRect(ground, {0.0f, 0.0f, kSize, kSize}, kCorner);
  surface->FillPath(*ground, *supplier.NewBrush(ColorOfNumber(0x1B1B1D)), moxui::scriber::FillRule::kWinding);
  float const width = kBarDistance * (kBars.size() - 1) + kBarWidth;
  float left = (kSize - width) / 2.0f;
  auto bars = supplier.NewPath();
  for (float const height : kBars) {
    moxui::utils::FormRoundedRect(bars, {left, (kSize - height) / 2.0f, kBarWidth, height}, kBarWidth / 2.0f);
    left += kBarDistance;
  }
  surface->FillPath(*bars, *supplier.NewBrush(ColorOfNumber(0x8FDDB0)), moxui::scriber::FillRule::kWinding);
  return surface->GetImage();
}

}  // namespace playground
