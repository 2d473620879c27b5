#include "timecode/FieldSymbol.h"

#include "shell/Painting.h"

#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>

namespace playground {
namespace {

constexpr int kSize = 14;
// Drawn finer than most screens are, so that it stays sharp at each scale.
constexpr float kFineness = 4.0f;

}  // namespace

moxui::scriber::ImageP FieldSymbol() {
  auto const& supplier = *moxui::scriber::GetRasterSupplier();
  auto const surface = supplier.NewOffscreenSurface(kSize, kSize, kFineness);
  auto const bracket = supplier.NewPath();
  bracket->AddRect({4.0f, 1.0f, 2.0f, 12.0f});
  bracket->AddRect({6.0f, 1.0f, 5.0f, 2.0f});
  bracket->AddRect({6.0f, 11.0f, 5.0f, 2.0f});
  surface->FillPath(*bracket, *supplier.NewBrush(ThemeColor(moxui::ui::ThemeColorID::kGray8)),
                    moxui::scriber::FillRule::kWinding);
  return surface->GetImage();
}

}  // namespace playground
