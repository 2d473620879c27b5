#include "audio/Playhead.h"

#include "shell/Painting.h"

#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <algorithm>
#include <cmath>

namespace playground {
namespace {

using moxui::RectT;

constexpr float kMarkWidth = 9.0f;
constexpr float kMarkHeight = 6.0f;
constexpr float kEdge = 1.0f;  // around the line, so that it stands out from every wave

}  // namespace

void Playhead::SetColumn(std::optional<int> column) {
  if (column == mColumn) {
    return;
  }
  if (mColumn) {
    UI_Invalidate(Strip(*mColumn));
  }
  mColumn = column;
  if (mColumn) {
    UI_Invalidate(Strip(*mColumn));
  }
}

// As wide as a logical pixel, and the column's own device pixel within it.
RectT<float> Playhead::Line(int column, float scale) const {
  float const pixels = std::max(std::floor(scale), 1.0f);
  float const left = static_cast<float>(column) - std::floor((pixels - 1.0f) / 2.0f);
  return {left / scale, 0.0f, pixels / scale, UI_GetLocalRectF(false).height};
}

RectT<float> Playhead::Strip(int column) const {
  RectT<float> const line = Line(column, GetViewScaleFactor());
  return {line.Center().x - kMarkWidth / 2.0f - 1.0f, 0.0f, kMarkWidth + 2.0f, line.height};
}

void Playhead::UI_Draw(moxui::scriber::Scriber* scriber) const {
  if (!mColumn) {
    return;
  }
  UI_ClipToSelf(scriber);
  moxui::scriber::SurfaceInterface& surface = *scriber->GetSurface();
  RectT<float> const line = Line(*mColumn, surface.GetScale());
  surface.FillRect({line.left - kEdge, 0.0f, line.width + 2.0f * kEdge, line.height},
                   ThemeColor(moxui::ui::ThemeColorID::kGray1).WithAlpha(0.5f));
  surface.FillRect(line, ThemeColor(moxui::ui::ThemeColorID::kGray9));
  auto const& supplier = *scriber->GetSupplier();
  auto const mark = supplier.NewPath();
  float const middle = line.Center().x;
  mark->MoveTo({middle - kMarkWidth / 2.0f, 0.0f});
  mark->LineTo({middle + kMarkWidth / 2.0f, 0.0f});
  mark->LineTo({middle, kMarkHeight});
  mark->Close();
  surface.FillPath(*mark, *supplier.NewBrush(ThemeColor(moxui::ui::ThemeColorID::kInteractive)),
                   moxui::scriber::FillRule::kWinding);
}

bool Playhead::UI_ContainsPoint(moxui::PointT<float>) const {
  return false;
}

}  // namespace playground
