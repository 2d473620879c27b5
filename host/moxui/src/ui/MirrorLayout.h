#pragma once

namespace moxui::ui {

class UI_Node;
class UI_SubView;

/// Gives a child of a view of a width the place and the binding that it has in the layout for the other
/// reading direction. Twice is as before.
void MirrorChild(UI_Node& child, float viewWidth);

/// Mirrors the children of all views that AutoLayoutSubView would go through, as long as it lives.
class MirroredForAutoLayout {
 public:
  explicit MirroredForAutoLayout(UI_SubView& view);
  ~MirroredForAutoLayout();
  MirroredForAutoLayout(MirroredForAutoLayout const&) = delete;
  MirroredForAutoLayout& operator=(MirroredForAutoLayout const&) = delete;

 private:
  UI_SubView& mView;
};

}  // namespace moxui::ui
