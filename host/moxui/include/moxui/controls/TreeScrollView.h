#pragma once

#include <moxui/controls/UI_ScrollView.h>

#include <vector>

namespace moxui::controls {

class UI_MultiColumnTree;

/// The scroll view of a tree: it shows the rows that it has come to, and takes along what lies beside them.
class TreeScrollView : public UI_ScrollView {
 public:
  /// The tree owns it.
  TreeScrollView(UI_MultiColumnTree& tree, moxcore::utility::IntrusivePtr<ui::UI_Node> rows);
  ~TreeScrollView() override;

  /// A view that is repainted whenever the tree scrolls. Plain pointers, which must be cleared before such a
  /// view goes.
  void AddSubViewToInvalidateOnScroll(ui::UI_SubView* view);
  void ClearSubViewsToInvalidateOnScroll() { mViews.clear(); }

  void UI_SizeChanged(RectT<float> const& rect) override;
  /// The tree takes the keys, and hands those that scroll to ScrollByKey.
  bool UI_WantsKeyboardFocus() const override { return false; }
  bool UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) override;
  bool ScrollByKey(ui::UI_Node* node, ui::KeyboardEvent const& event);
  /// Rows count as the tree's own.
  ui::AccessibleRole UI_GetAccessibleRole() const override;

 protected:
  void Scrolled() override;

 private:
  UI_MultiColumnTree& mTree;
  std::vector<ui::UI_SubView*> mViews;
};

}  // namespace moxui::controls
