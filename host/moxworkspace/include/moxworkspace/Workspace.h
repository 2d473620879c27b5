#pragma once

#include <moxcore/utility/RefCountedWeakPtr.h>
#include <moxui/ui/UI_SubView.h>

namespace moxworkspace {

class TabPanel;

/// The panels of one window, anywhere below this view. The panel in which the user last pressed, or to which
/// the keyboard focus last went, is the focused one; a press outside of all panels changes nothing.
class Workspace : public moxui::ui::UI_SubView {
 public:
  Workspace();
  ~Workspace() override;

  /// Null before there is one, and while it is hidden or no longer in this workspace.
  TabPanel* GetFocusedTabPanel() const;
  /// The keyboard focus leaves another panel that has it. Null: no panel is focused.
  void SetFocusedTabPanel(TabPanel* panel);

  bool UI_DoPrePointerEvent(moxui::ui::UI_Node* node, moxui::ui::PointerEvent const& event) override;

 private:
  moxcore::utility::RefCountedWeakPtr<TabPanel> mFocused;
};

}  // namespace moxworkspace
