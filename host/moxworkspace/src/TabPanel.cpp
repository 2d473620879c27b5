#include <moxworkspace/TabPanel.h>
#include <moxworkspace/Workspace.h>

#include <utility>

namespace moxworkspace {

using moxui::ui::FocusChangeReason;
using moxui::ui::UI_Node;

TabPanel::TabPanel(moxcore::Utf16String title) : mTitle(std::move(title)) {}

TabPanel::~TabPanel() = default;

TabPanel* TabPanel::FindPanelOf(UI_Node* node) {
  for (UI_Node* up = node; up != nullptr; up = up->UI_GetParentNode()) {
    if (auto* const panel = dynamic_cast<TabPanel*>(up)) {
      return panel;
    }
  }
  return nullptr;
}

void TabPanel::UI_FocusChanged(FocusChangeReason reason) {
  UI_SubView::UI_FocusChanged(reason);
  bool const isLoss = reason == FocusChangeReason::kLost || reason == FocusChangeReason::kDeactivated;
  // The innermost panel around the leaf, which tells its ancestors after itself.
  if (isLoss || FindPanelOf(UI_GetKeyboardFocusLeafNode()) != this) {
    return;
  }
  for (UI_Node* up = UI_GetParentNode(); up != nullptr; up = up->UI_GetParentNode()) {
    if (auto* const workspace = dynamic_cast<Workspace*>(up)) {
      workspace->SetFocusedTabPanel(this);
      return;
    }
  }
}

}  // namespace moxworkspace
