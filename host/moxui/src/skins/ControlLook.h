#pragma once

#include <moxui/geometry/ColorRGBA.h>
#include <moxui/geometry/Flags.h>
#include <moxui/skins/ControlState.h>
#include <moxui/skins/SkinSet.h>
#include <moxui/skins/Theme.h>

namespace moxui::skins {

/// What the painting of every stock control depends on besides its rectangle and value.
struct ControlLook {
  ui::ThemeProvider const* theme;
  SkinSet const* skinSet;
  Flags<unsigned int> state;
  bool isUnknown = false;

  ColorRGBA Color(ui::ThemeColorID id) const { return ui::GetColorOf(theme, id); }
  float Number(SkinNumber number) const { return skinSet->GetNumber(number); }
  bool IsV7() const { return skinSet->IsV7OrBeyond(); }
  Interaction GetInteraction() const { return skins::GetInteraction(state); }
  bool IsDisabled() const { return state.Has(ControlState::kDisabled); }
};

}  // namespace moxui::skins
