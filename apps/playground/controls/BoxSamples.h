#pragma once

#include <moxui/controls/UI_ControlView.h>
#include <moxui/controls/UI_OutlineBox.h>

namespace playground {

// A box of a chrome with a label in it; the inner line is as wide as that.
moxcore::utility::IntrusivePtr<moxui::controls::UI_ControlView> BoxSample(moxui::controls::ChromeType chrome,
                                                                          float innerLine);

// A row of buttons that were made for shorter texts, at the right edge or at the left one.
moxcore::utility::IntrusivePtr<moxui::controls::UI_ControlView> ButtonRowSample(bool atRight);

}  // namespace playground
