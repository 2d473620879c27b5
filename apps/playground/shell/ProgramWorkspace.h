#pragma once

#include <moxworkspace/TabPanel.h>
#include <moxworkspace/Workspace.h>

namespace playground {

// The root of the program's tree: a workspace of one panel, the focused one from the start, filled by a view.
class ProgramWorkspace : public moxworkspace::Workspace {
 public:
  ProgramWorkspace(moxcore::Utf16String title, moxcore::utility::IntrusivePtr<moxui::ui::UI_Node> view);
  ~ProgramWorkspace() override;

  moxworkspace::TabPanel& GetPanel() const { return *mPanel; }

  void UI_SizeChanged(moxui::RectT<float> const& rect) override;
  // Keys come to the root while nothing has the focus: they are meant for the view.
  bool UI_DoPreKeyboardEvent(moxui::ui::UI_Node* node, moxui::ui::KeyboardEvent const& event) override;
  bool UI_DoKeyboardEvent(moxui::ui::UI_Node* node, moxui::ui::KeyboardEvent const& event) override;

 private:
  moxcore::utility::IntrusivePtr<moxworkspace::TabPanel> mPanel;
  moxcore::utility::IntrusivePtr<moxui::ui::UI_Node> mView;
};

}  // namespace playground
