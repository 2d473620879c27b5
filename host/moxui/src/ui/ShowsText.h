#pragma once

#include <moxui/ui/UI_Node.h>

namespace moxui::ui {

/// Whether a node is as wide as the text that it shows asks for.
inline bool ShowsText(UI_Node const& node) {
  switch (node.UI_GetAccessibleRole()) {
    case AccessibleRole::kStaticText:
    case AccessibleRole::kButton:
    case AccessibleRole::kCheckBox:
    case AccessibleRole::kRadioButton:
      return true;
    default:
      return false;
  }
}

}  // namespace moxui::ui
