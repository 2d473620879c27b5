#pragma once

#include <moxcore/string/String.h>
#include <moxui/ui/UI_SubView.h>

namespace moxworkspace {

/// A panel of a workspace: what a user takes for one place to work in, with a title on its tab. One panel of
/// a workspace has the focus (Workspace::GetFocusedTabPanel), whether or not a control in it has the
/// keyboard's.
class TabPanel : public moxui::ui::UI_SubView {
 public:
  explicit TabPanel(moxcore::Utf16String title = {});
  ~TabPanel() override;

  moxcore::Utf16String const& GetTitle() const { return mTitle; }
  void SetTitle(moxcore::Utf16String title) { mTitle = std::move(title); }

  /// The innermost panel that a node is in, itself included; null for none.
  static TabPanel* FindPanelOf(moxui::ui::UI_Node* node);

  /// A control in this panel has got the keyboard focus: the panel gets its workspace's.
  void UI_FocusChanged(moxui::ui::FocusChangeReason reason) override;

 private:
  moxcore::Utf16String mTitle;
};

}  // namespace moxworkspace
