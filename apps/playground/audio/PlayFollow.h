#pragma once

#include "audio/Viewport.h"

#include <cstdint>
#include <optional>

namespace playground {

// Lets a view follow the playhead by pages: when it leaves the view, the next page begins with it. A user who
// has just scrolled isn't disturbed, and one who has scrolled away from it not until it is in sight again.
class PlayFollow {
 public:
  // Playback has begun: the view goes where it is.
  void Begin() { *this = {}; }
  // The user has changed the view, at this time in nanoseconds.
  void ViewChanged(Viewport const& view, double position, std::int64_t now);
  // Where the view's left end is to be; nothing while it may stay.
  std::optional<double> Follow(Viewport const& view, double position, bool forward, std::int64_t now);

 private:
  bool mIsAway = false;
  std::optional<std::int64_t> mChanged;
};

}  // namespace playground
