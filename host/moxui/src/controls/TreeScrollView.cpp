#include <moxui/controls/TreeScrollView.h>
#include <moxui/controls/UI_MultiColumnTree.h>

#include <utility>

namespace moxui::controls {

using moxcore::utility::IntrusivePtr;

TreeScrollView::TreeScrollView(UI_MultiColumnTree& tree, IntrusivePtr<ui::UI_Node> rows)
    : UI_ScrollView(std::move(rows), ScrollViewStyle::kHorizontalBar | ScrollViewStyle::kVerticalBar),
      mTree(tree) {}

TreeScrollView::~TreeScrollView() = default;

void TreeScrollView::AddSubViewToInvalidateOnScroll(ui::UI_SubView* view) {
  if (view != nullptr) {
    mViews.push_back(view);
  }
}

void TreeScrollView::UI_SizeChanged(RectT<float> const& rect) {
  UI_ScrollView::UI_SizeChanged(rect);
  mTree.LayoutRows();
}

bool TreeScrollView::UI_DoKeyboardEvent(ui::UI_Node*, ui::KeyboardEvent const&) {
  return false;
}

bool TreeScrollView::ScrollByKey(ui::UI_Node* node, ui::KeyboardEvent const& event) {
  return UI_ScrollView::UI_DoKeyboardEvent(node, event);
}

ui::AccessibleRole TreeScrollView::UI_GetAccessibleRole() const {
  return ui::AccessibleRole::kNone;
}

void TreeScrollView::Scrolled() {
  IntrusivePtr<UI_MultiColumnTree> const kept(&mTree);
  for (ui::UI_SubView* const view : mViews) {
    view->UI_Invalidate();
  }
  mTree.Scrolled();
  UI_ScrollView::Scrolled();
}

}  // namespace moxui::controls
