#pragma once

#include <moxui/controls/UI_ControlView.h>

namespace playground {

enum class TreeKind { kTakes, kChannels, kBins };

// A tree of one kind: a hundred thousand takes to be sorted, channels with a popup each, or bins in bins.
moxcore::utility::IntrusivePtr<moxui::controls::UI_ControlView> TreeSample(TreeKind kind);

}  // namespace playground
