#include "TextPainting.h"

#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/SavedState.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <cmath>

namespace moxui::skins {
namespace {

float AnchorOf(RectT<float> const& box, scriber::TextAlignment alignment) {
  switch (alignment) {
    case scriber::TextAlignment::kLeft:
      return box.left;
    case scriber::TextAlignment::kCenter:
      return box.left + box.width / 2.0f;
    case scriber::TextAlignment::kRight:
      return box.Right();
  }
  return box.left;
}

}  // namespace

float GetCenteredBaseline(RectT<float> const& box, scriber::FontInterface const& font) {
  float const ascent = font.GetAscent();
  float const height = ascent + font.GetDescent();
  return std::round(box.top + (box.height - height) / 2.0f + ascent);
}

void DrawTextLine(scriber::Scriber* scriber, std::u16string_view text, RectT<float> const& box,
                  scriber::TextAlignment alignment, TextTruncation truncation,
                  scriber::FontInterface const& font, ColorRGBA const& colour) {
  if (text.empty() || box.IsEmpty()) {
    return;
  }
  moxcore::Utf16String const shown = TruncateText(text, box.width, font, truncation);
  PointT<float> const baseline(AnchorOf(box, alignment), GetCenteredBaseline(box, font));
  scriber::SurfaceInterface& surface = *scriber->GetSurface();
  if (truncation != TextTruncation::kNone) {
    surface.DrawText(shown, baseline, font, colour, alignment);
    return;
  }
  scriber::SavedState const saved(surface);
  surface.ClipToRect(box);
  surface.DrawText(shown, baseline, font, colour, alignment);
}

}  // namespace moxui::skins
