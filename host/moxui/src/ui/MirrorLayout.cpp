#include "MirrorLayout.h"

#include "NodeAccess.h"

#include <moxui/ui/AutoLayout.h>
#include <moxui/ui/UI_SubView.h>

namespace moxui::ui {

namespace {

constexpr unsigned kSideways = LayoutBinding::kFreeLeft | LayoutBinding::kBindRight;

/// What stretches goes on stretching; what stayed at one edge stays at the other.
unsigned MirrorBinding(unsigned binding) {
  unsigned const sideways = binding & kSideways;
  if (sideways == LayoutBinding::kBindRight) {
    return binding;
  }
  unsigned const others = binding & ~kSideways;
  return sideways == kSideways ? others : others | kSideways;
}

void MirrorFittedChildren(UI_SubView& view) {
  if (!GetAutoLayoutFlags(view).isOn) {
    return;
  }
  float const width = NodeAccess::OwnRect(view).width;
  for (auto const& child : NodeAccess::Children(view)) {
    MirrorChild(*child, width);
    if (auto* const inner = dynamic_cast<UI_SubView*>(child.Get())) {
      MirrorFittedChildren(*inner);
    }
  }
}

}  // namespace

void MirrorChild(UI_Node& child, float viewWidth) {
  RectT<float> place = child.UI_GetLocalRectF(RectSpace::kParent);
  place.left = viewWidth - place.Right();
  child.UI_SetLocalRectF(place);
  child.UI_SetLayoutBinding(MirrorBinding(child.UI_GetLayoutBinding()));
}

MirroredForAutoLayout::MirroredForAutoLayout(UI_SubView& view) : mView(view) {
  MirrorFittedChildren(mView);
}

MirroredForAutoLayout::~MirroredForAutoLayout() {
  MirrorFittedChildren(mView);
}

}  // namespace moxui::ui
