#pragma once

#include <moxui/geometry/ColorRGBA.h>
#include <moxui/geometry/RectT.h>

namespace moxui::scriber {
class Scriber;
}

namespace moxui::skins {

struct ControlLook;
class SkinSet;

/// Where a closed popup of a size shows its text, and where its arrow.
struct PopupLayout {
  RectT<float> text;
  RectT<float> arrow;
};
PopupLayout GetPopupLayout(RectT<float> const& rect, SkinSet const& skinSet);

struct PopupBox {
  bool drawDivider = true;  ///< between text and arrow, in the classic look
  bool isQuiet = false;     ///< no ground and frame until the pointer comes
};
/// Ground, frame, divider and arrow.
void PaintPopupBox(scriber::Scriber* scriber, RectT<float> const& rect, PopupBox const& box,
                   ControlLook const& look);

ColorRGBA GetPopupTextColor(ControlLook const& look);

}  // namespace moxui::skins
