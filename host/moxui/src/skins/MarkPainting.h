#pragma once

#include <moxui/geometry/RectT.h>

namespace moxui::scriber {
class Scriber;
}

namespace moxui::skins {

struct ControlLook;

/// The box of a check box: off, on, or unknown.
void PaintCheckBox(scriber::Scriber* scriber, RectT<float> const& box, bool isChecked,
                   ControlLook const& look);

/// The round mark of a radio button.
void PaintRadioMark(scriber::Scriber* scriber, RectT<float> const& mark, bool isChosen,
                    ControlLook const& look);

/// The triangle of a disclosure button: down when expanded, else to the right; a dash when unknown.
void PaintDisclosureTriangle(scriber::Scriber* scriber, RectT<float> const& rect, bool isExpanded,
                             ControlLook const& look);

}  // namespace moxui::skins
