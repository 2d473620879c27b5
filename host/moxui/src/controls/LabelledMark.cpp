#include "LabelledMark.h"

#include "../skins/TextPainting.h"

#include <moxui/scriber/FontInterface.h>
#include <moxui/skins/LayoutDirection.h>

#include <algorithm>
#include <cmath>

namespace moxui::controls {
namespace {

constexpr float kLabelGap = 6.0f;

}  // namespace

RectT<float> GetMarkRect(RectT<float> const& rect, float side, bool hasLabel) {
  float left = std::floor(rect.left + (rect.width - side) / 2.0f);
  if (hasLabel) {
    left = skins::IsRightToLeft() ? rect.Right() - side : rect.left;
  }
  return {left, std::floor(rect.top + (rect.height - side) / 2.0f), side, side};
}

ExtentT<float> GetLabelledMarkSize(float side, float rowHeight, ControlText const& label,
                                   scriber::FontInterface const* font) {
  if (label.text.empty() || font == nullptr) {
    return {side, side};
  }
  return {side + kLabelGap + std::ceil(font->GetWidth(label.text)), std::max(rowHeight, side)};
}

void DrawMarkLabel(scriber::Scriber* scriber, RectT<float> const& rect, RectT<float> const& mark,
                   ControlText const& label, scriber::FontInterface const& font,
                   skins::ControlLook const& look) {
  RectT<float> const box =
      skins::IsRightToLeft()
          ? RectT<float>::FromEdges(rect.left, rect.top, mark.left - kLabelGap, rect.Bottom())
          : RectT<float>::FromEdges(mark.Right() + kLabelGap, rect.top, rect.Right(), rect.Bottom());
  ColorRGBA const colour =
      look.Color(look.IsDisabled() ? ui::ThemeColorID::kDefaultTextDisabled : ui::ThemeColorID::kDefaultText);
  skins::DrawTextLine(scriber, label.text, box, GetAlignment(label), label.truncation, font, colour);
}

}  // namespace moxui::controls
