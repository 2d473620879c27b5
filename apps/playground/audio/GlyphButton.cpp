#include "audio/GlyphButton.h"

#include "shell/Painting.h"

#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/Design.h>
#include <moxui/skins/Look.h>

#include <cmath>
#include <utility>

namespace playground {
namespace {

constexpr float kGlyphExtent = 16.0f;
constexpr float kStroke = 1.5f;

}  // namespace

GlyphButton::GlyphButton(std::string const& name, std::string const& toolTip, GlyphStrokes strokes,
                         bool mirrors)
    : mName(name), mStrokes(std::move(strokes)), mMirrors(mirrors) {
  UI_SetToolTip(moxcore::Utf8String(toolTip), moxui::skins::GetToolTipDelay());
  SetWantsKeyboardFocus(true);
}

GlyphButton::~GlyphButton() = default;

void GlyphButton::DrawContent(moxui::scriber::Scriber* scriber, moxui::RectT<float> const& rect,
                              moxui::controls::DrawButtonParameters const& parameters) const {
  using moxui::skins::design::ButtonProperty;
  bool const mirrored = mMirrors && Leading() == moxui::scriber::TextAlignment::kRight;
  float const left = std::round(rect.Center().x - kGlyphExtent / 2.0f);
  float const top = std::round(rect.Center().y - kGlyphExtent / 2.0f);
  auto const path = scriber->GetSupplier()->NewPath();
  for (auto const& stroke : mStrokes) {
    for (std::size_t i = 0; i < stroke.size(); ++i) {
      float const x = mirrored ? kGlyphExtent - stroke[i].x : stroke[i].x;
      moxui::PointT<float> const point{left + x, top + stroke[i].y};
      if (i == 0) {
        path->MoveTo(point);
      } else {
        path->LineTo(point);
      }
    }
  }
  auto const color = moxui::skins::design::GetButtonColor(parameters, ButtonProperty::kLabel);
  scriber->GetSurface()->StrokePath(*path, *scriber->GetSupplier()->NewPen(color, kStroke));
}

}  // namespace playground
