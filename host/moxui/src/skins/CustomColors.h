#pragma once

#include <moxui/geometry/ColorRGBA.h>
#include <moxui/skins/ThemeColorID.h>

namespace moxui::ui {

/// A number that names exactly this colour, the same for equal colours; what isn't a number in it counts as
/// 0. It lasts as long as a HeldColorID has it, and may name another colour afterwards.
ThemeColorID GetCustomColorID(ColorRGBA const& colour);
/// The colour of such a number; opaque black for any other.
ColorRGBA GetCustomColor(ThemeColorID id);

/// Any colour's number; keeps it, if it is one of those.
class HeldColorID {
 public:
  explicit HeldColorID(unsigned id);
  ~HeldColorID();
  HeldColorID(HeldColorID const& other);
  HeldColorID& operator=(HeldColorID const&) = delete;

  unsigned Get() const { return mID; }

 private:
  unsigned mID;
  bool mHolds;
};

}  // namespace moxui::ui
