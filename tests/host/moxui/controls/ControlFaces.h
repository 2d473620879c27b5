#pragma once

#include <moxcore/utility/IntrusivePtr.h>
#include <moxui/controls/UI_ControlView.h>
#include <moxui/geometry/ExtentT.h>
#include <moxui/platform/PaintTarget.h>

#include <functional>
#include <string>
#include <vector>

namespace moxui::testing {

enum class FaceState { kNormal, kHover, kPressed, kFocused, kDisabled, kUnknown, kEdited };

std::string NameOf(FaceState state);

/// A stock control as pictures show it: made anew for each, in the running look.
struct ControlFace {
  std::string name;
  ExtentT<float> size;
  std::function<moxcore::utility::IntrusivePtr<controls::UI_ControlView>()> make;
  /// States that look different from the normal one.
  std::vector<FaceState> states;
};

std::vector<ControlFace> const& GetControlFaces();

class Stage;
/// Puts a control that is on the stage into a state.
void PutIntoState(Stage& stage, controls::UI_ControlView& control, FaceState state);

/// A picture of the control in a state, in the running look, on the panel's ground with room around for a
/// focus ring.
platform::Pixels TakeFacePicture(ControlFace const& face, FaceState state, float scale);

/// The same in all looks: a row for each of V7 and classic, a column for each of dark, light and high
/// contrast.
platform::Pixels TakeFaceInAllLooks(ControlFace const& face, FaceState state, float scale);

}  // namespace moxui::testing
