#pragma once

#include <moxui/ui/AutoLayout.h>
#include <moxui/ui/UI_SubView.h>

namespace moxui::ui {

/// A row of controls that make room for their texts, such as the buttons at the bottom of a dialog. A control
/// that is too narrow for its text grows: to the left, pushing what lies left of it, if it is bound to the
/// right edge alone (free left, bind right), else to the right, pushing what lies there. Distances stay, and
/// nothing shrinks but what stretches with the view (bind right), which gives up the width that another one
/// takes. The view itself keeps its size. It happens before a frame is painted, after the view
/// has come into a tree, changed its size or its look.
class UI_LayoutView : public UI_SubView {
 public:
  UI_LayoutView();
  ~UI_LayoutView() override;

  // How the view takes part in AutoLayoutSubView; on, sideways and with margins kept at first. While it is
  // off, or not sideways, nothing grows here.
  void SetAutoLayout(bool on);
  void SetAutoLayoutHorizontal(bool horizontal);
  void SetAutoLayoutMaintainMargins(bool maintains);
  void SetAutoLayoutScaleChildren(bool scales);

  void UI_SizeChanged(RectT<float> const& rect) override;
  void UI_NodeChanged(NodeChange change) override;
  void UI_SkinSetUpdated() override;
  void UI_LayoutChildren() override;

 private:
  void ChangeFlags(bool AutoLayoutFlags::*flag, bool value);
};

}  // namespace moxui::ui
