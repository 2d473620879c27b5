#pragma once

#include <moxui/geometry/ColorRGBA.h>
#include <moxui/geometry/RectT.h>
#include <moxui/scriber/ScriberTypes.h>
#include <moxui/skins/ThemeColorID.h>
#include <moxui/skins/ThemeFont.h>

#include <string_view>

namespace moxui::scriber {
class Scriber;
}

namespace playground {

// Sizes that everything in the window is laid out with, in logical pixels. All are multiples of four, so that
// edges lie on device pixels at each scale that is offered.
inline constexpr float kPanelPadding = 12.0f;
inline constexpr float kGroupGap = 12.0f;
inline constexpr float kRowGap = 4.0f;

// Height of a control of the running look.
float ControlHeight();

// Where lines begin and end in the running direction.
moxui::scriber::TextAlignment Leading();
moxui::scriber::TextAlignment Trailing();
// `rect` as it stands, or, from right to left, at the same distance from the other side of a parent `width`
// wide.
moxui::RectT<float> Placed(moxui::RectT<float> const& rect, float width);

moxui::ColorRGBA ThemeColor(moxui::ui::ThemeColorID id);

// One line in the middle of the box's height, cut with an ellipsis where it is too long.
void DrawLabel(moxui::scriber::Scriber* scriber, std::u16string_view text, moxui::RectT<float> const& box,
               moxui::scriber::TextAlignment alignment, moxui::ui::FontIndex font,
               moxui::ColorRGBA const& color);
float LabelWidth(std::u16string_view text, moxui::ui::FontIndex font);

// The ring around what has the keyboard focus; it reaches kFocusReach beyond the rectangle.
inline constexpr float kFocusReach = 3.0f;
void DrawFocusRing(moxui::scriber::Scriber* scriber, moxui::RectT<float> const& rect);
// The same inside the rectangle, for what fills its place to the edge.
void DrawInnerFocusRing(moxui::scriber::Scriber* scriber, moxui::RectT<float> const& rect);

}  // namespace playground
