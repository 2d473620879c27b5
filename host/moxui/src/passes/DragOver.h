#pragma once

#include <moxui/ui/NodeTree.h>

namespace moxui::passes {

/// Takes what the platform drags to the view that wants it; gives the effect.
int DispatchDrag(ui::TreeState& state, ui::DragPhase phase, PointT<float> position, ui::OS_ReceiveData& data,
                 int proposedEffect);

}  // namespace moxui::passes
