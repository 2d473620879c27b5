#pragma once

#include "../skins/CustomColors.h"

#include <moxui/ui/AutoLayout.h>
#include <moxui/ui/InputCapture.h>
#include <moxui/ui/UI_Node.h>

#include <any>
#include <map>
#include <utility>
#include <vector>

namespace moxui::ui {

/// What few nodes have, so that the many don't pay for it.
struct NodeExtras {
  moxcore::Utf8String id;
  moxcore::Utf8String toolTip;
  int toolTipDelay = 0;
  std::any userData;
  CustomDrawFunction drawFunction;
  std::vector<FocusChangedFunction> focusFunctions;
  std::map<unsigned, HeldColorID> colorChanges;
  /// Timers (id, period) of a node outside a tree; they start when it comes into one.
  std::vector<std::pair<int, float>> restingTimers;
  AutoLayoutFlags autoLayout;
};

}  // namespace moxui::ui
