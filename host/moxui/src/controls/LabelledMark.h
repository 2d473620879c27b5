#pragma once

#include "../skins/ControlLook.h"

#include <moxui/controls/ControlText.h>
#include <moxui/geometry/ExtentT.h>
#include <moxui/geometry/RectT.h>

namespace moxui::scriber {
class Scriber;
}

namespace moxui::controls {

// A square mark with a label behind it, as check boxes and radio buttons have: to the right of it, or, where
// the interface is laid out from right to left, to the left.

/// The mark: at the leading edge in the middle of the height; in the middle of all without a label.
RectT<float> GetMarkRect(RectT<float> const& rect, float side, bool hasLabel);
/// What mark and label want together; the mark alone without a label.
ExtentT<float> GetLabelledMarkSize(float side, float rowHeight, ControlText const& label,
                                   scriber::FontInterface const* font);
void DrawMarkLabel(scriber::Scriber* scriber, RectT<float> const& rect, RectT<float> const& mark,
                   ControlText const& label, scriber::FontInterface const& font,
                   skins::ControlLook const& look);

}  // namespace moxui::controls
