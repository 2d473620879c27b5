#include <moxui/ui/PointerEvent.h>
#include <moxworkspace/TabPanel.h>
#include <moxworkspace/Workspace.h>

namespace moxworkspace {

using moxui::ui::UI_Node;

Workspace::Workspace() = default;

Workspace::~Workspace() = default;

TabPanel* Workspace::GetFocusedTabPanel() const {
  auto const panel = mFocused.Lock();
  UI_Node const* up = panel.Get();
  while (up != nullptr && up != this) {
    up = up->UI_IsShown() ? up->UI_GetParentNode() : nullptr;
  }
  return up != nullptr ? panel.Get() : nullptr;
}

void Workspace::SetFocusedTabPanel(TabPanel* panel) {
  mFocused = moxcore::utility::RefCountedWeakPtr<TabPanel>(panel);
  UI_Node* const leaf = UI_GetKeyboardFocusLeafNode();
  TabPanel* const holder = TabPanel::FindPanelOf(leaf);
  if (holder != nullptr && holder != panel) {
    leaf->UI_LoseKeyboardFocus();
  }
}

bool Workspace::UI_DoPrePointerEvent(UI_Node* node, moxui::ui::PointerEvent const& event) {
  TabPanel* const panel =
      event.IsAction(moxui::ui::PointerAction::kPress) ? TabPanel::FindPanelOf(node) : nullptr;
  if (panel != nullptr && panel->UI_IsSelfOrDescendantOf(this)) {
    SetFocusedTabPanel(panel);
  }
  return UI_SubView::UI_DoPrePointerEvent(node, event);
}

}  // namespace moxworkspace
