#pragma once

#include <moxui/skins/SkinSetClient.h>
#include <moxui/skins/ThemeClient.h>
#include <moxui/ui/UI_Container.h>
#include <moxui/ui/UI_DragDropHandler.h>
#include <moxui/ui/UI_Node.h>

namespace moxui::ui {

/// A node with children. It can lay them out by their bindings when its size changes, take drops, and give
/// itself and what is below it other colours, font sizes and skins.
class UI_SubView : public UI_Node,
                   public UI_Container,
                   public UI_DragDropHandler,
                   public ThemeClient,
                   public SkinSetClient {
 public:
  UI_SubView();
  ~UI_SubView() override;

  /// Whether children follow the view's size by their layout bindings; off at first.
  void UI_SetLayoutsChildren(bool layouts);
  bool UI_LayoutsChildren() const { return mLayoutsChildren; }
  UI_DragDropHandler& UI_GetDragDropHandler() { return *this; }

  /// Applies the children's bindings to the change since they were last laid out. A size of 0 is no start to
  /// count from: the first size after it only is remembered.
  void UI_SizeChanged(RectT<float> const& rect) override;

 private:
  ExtentT<float> mLaidOutExtent;
  bool mLayoutsChildren = false;
};

}  // namespace moxui::ui
