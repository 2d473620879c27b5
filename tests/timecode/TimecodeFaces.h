#pragma once

#include "OpenTimecodeControl.h"

#include <moxui/platform/PaintTarget.h>

#include <functional>
#include <string>
#include <vector>

namespace timecode_tests {

/// A timecode field as pictures show it: made ready, then put into a state as a user would.
struct TimecodeFace {
  std::string name;
  std::function<void(OpenTimecodeControl&)> prepare;
  std::function<void(Stage&, OpenTimecodeControl&)> act{};
};

std::vector<TimecodeFace> const& GetTimecodeFaces();
TimecodeFace const& GetTimecodeFace(std::string const& name);

/// The field in the running look, with room around it for a symbol.
moxui::platform::Pixels TakeFacePicture(TimecodeFace const& face, float scale);

/// The same in all looks: a row for each of V7 and classic, a column for each of dark, light and high
/// contrast.
moxui::platform::Pixels TakeFaceInAllLooks(TimecodeFace const& face, float scale);

}  // namespace timecode_tests
