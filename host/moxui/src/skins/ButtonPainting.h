#pragma once

namespace moxui::scriber {
class Scriber;
}

namespace moxui::skins {

class DrawButtonParameters;

/// Ground, frame, face and focus ring of a button, as far as its parameters ask for them.
void PaintButton(scriber::Scriber* scriber, DrawButtonParameters const& parameters);

}  // namespace moxui::skins
