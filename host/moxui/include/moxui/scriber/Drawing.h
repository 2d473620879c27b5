#pragma once

#include <moxui/geometry/ColorRGBA.h>
#include <moxui/geometry/FourEdgeTupleT.h>
#include <moxui/geometry/RectT.h>
#include <moxui/scriber/RoundedRect.h>
#include <moxui/scriber/ScriberTypes.h>

#include <string_view>

namespace moxui::scriber {
class Scriber;
}

namespace moxui::utils {

inline constexpr FourEdgeTupleT<bool> kAllEdges{true, true, true, true};

/// Fills a rectangle.
void DrawRect(scriber::Scriber* scriber, RectT<float> const& rect, ColorRGBA const& colour);

/// Frames a rectangle with a line of `thickness` centred on its edge. Only the `edges` asked for are drawn;
/// a corner of `cornerRadius` is rounded if `corners` names it and both edges that meet there are drawn.
void DrawOutline(scriber::Scriber* scriber, RectT<float> const& rect, ColorRGBA const& colour,
                 float thickness, FourEdgeTupleT<bool> const& edges = kAllEdges, float cornerRadius = 0.0f,
                 RoundedCorners const& corners = kAllCorners);

/// Draws one line of text into a box: centred in its height, aligned in its width, and, when it is wider than
/// the box, cut at its end as skins::TruncateText does.
void DrawString(scriber::Scriber* scriber, std::u16string_view text, RectT<float> const& box,
                scriber::TextAlignment alignment, scriber::FontInterface const& font,
                ColorRGBA const& colour);
/// The same with the font of a family at a size; draws nothing when there is no font at all.
void DrawString(scriber::Scriber* scriber, std::u16string_view text, RectT<float> const& box,
                scriber::TextAlignment alignment, std::string_view fontName, float fontSize,
                ColorRGBA const& colour);

}  // namespace moxui::utils
