#include "../passes/Layout.h"
#include "NodeAccess.h"

#include <moxui/ui/UI_SubView.h>

namespace moxui::ui {

UI_SubView::UI_SubView()
    : UI_Container(static_cast<UI_Node&>(*this)),
      ThemeClient(static_cast<UI_Node&>(*this)),
      SkinSetClient(static_cast<UI_Node&>(*this)) {}

UI_SubView::~UI_SubView() = default;

void UI_SubView::UI_SetLayoutsChildren(bool layouts) {
  mLayoutsChildren = layouts;
  mLaidOutExtent = NodeAccess::OwnRect(*this).Extent();
}

void UI_SubView::UI_SizeChanged(RectT<float> const&) {
  ExtentT<float> const before = mLaidOutExtent;
  ExtentT<float> const after = NodeAccess::OwnRect(*this).Extent();
  mLaidOutExtent = after;
  if (!mLayoutsChildren) {
    return;
  }
  auto const children = NodeAccess::Children(*this);
  for (auto const& child : children) {
    child->DoPlace(passes::BoundRect(child->UI_GetLocalRectF(RectSpace::kParent),
                                     child->UI_GetLayoutBinding(), before, after));
  }
}

}  // namespace moxui::ui
