#pragma once

#include <moxcore/utility/RefCountedObject.h>
#include <moxui/geometry/RectT.h>

namespace moxui::scriber {
class Scriber;
}

namespace moxui::skins {

/// What a button shows inside its frame. Derive from it, and hand an object to DrawButtonParameters for the
/// time of the drawing; the face may be made anew for each.
class DrawButtonFace : public moxcore::utility::RefCountedObject {
 public:
  explicit DrawButtonFace(bool displayBorderAlways = false) : mDisplayBorderAlways(displayBorderAlways) {}

  /// Draws into the face's rectangle, which is in the coordinates of the scriber in hand.
  virtual void Draw(scriber::Scriber* scriber, RectT<float> const& rect) const = 0;

  bool ShouldDisplayBorderAlways() const { return mDisplayBorderAlways; }

 private:
  bool mDisplayBorderAlways;
};

}  // namespace moxui::skins
