#pragma once

#include <moxui/controls/UI_ControlView.h>

namespace playground {

// A picture to be looked at.
moxcore::utility::IntrusivePtr<moxui::controls::UI_ControlView> StaticImageSample();

// A button that finds its picture by name, among the host's icons.
moxcore::utility::IntrusivePtr<moxui::controls::UI_ControlView> NamedPictureSample();

// A button that is a capsule with a word in it, drawn by the page and not by the button.
moxcore::utility::IntrusivePtr<moxui::controls::UI_ControlView> OwnerDrawnSample();

}  // namespace playground
