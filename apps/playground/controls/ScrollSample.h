#pragma once

#include <moxui/controls/UI_ControlView.h>

namespace playground {

// A scroll view with a list of takes in it, wider than the view where it scrolls both ways.
moxcore::utility::IntrusivePtr<moxui::controls::UI_ControlView> ScrollSample(bool bothWays);

}  // namespace playground
