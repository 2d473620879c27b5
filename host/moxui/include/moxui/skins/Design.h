#pragma once

#include <moxui/geometry/ColorRGBA.h>

namespace moxui::ui {
class ThemeProvider;
}

namespace moxui::skins {
class DrawButtonParameters;
}

/// Colours of tables, buttons and bands by property. A null provider means the running theme.
namespace moxui::skins::design {

enum class TableProperty { kAlternateRow = 0, kGridLine = 1, kEdgeLine = 2, kText = 3 };

/// `variant` 1 is an odd row, 0 an even one; it matters for kAlternateRow only, whose even rows have the
/// panel's ground.
ColorRGBA GetTableColor(ui::ThemeProvider const* provider, TableProperty property, int variant);
/// The same with variant 1.
ColorRGBA GetTableColor(TableProperty property, ui::ThemeProvider const* provider);

/// Bands that mark the range to be played on an empty track.
enum class PrismaColorID { kRangeBandDark = 129, kRangeBandLight = 130 };

ColorRGBA GetPrismaColor(PrismaColorID id, ui::ThemeProvider const* provider = nullptr);

/// 2, 3 and 4 are the three tones of a themed icon, in the order that GetColorizedSVGIconImage takes them; 0
/// and 1 are the face and its outline; 5 is the label.
enum class ButtonProperty {
  kFill = 0,
  kOutline = 1,
  kIconRest = 2,
  kIconActive = 3,
  kIconDisabled = 4,
  kLabel = 5
};

/// The colour of a button's part for the state and the appearance in hand.
ColorRGBA GetButtonColor(DrawButtonParameters const& parameters, ButtonProperty property);

}  // namespace moxui::skins::design
