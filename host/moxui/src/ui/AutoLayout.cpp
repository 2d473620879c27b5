#include "MirrorLayout.h"
#include "NodeAccess.h"
#include "ShowsText.h"

#include <moxui/skins/LayoutDirection.h>
#include <moxui/ui/AutoLayout.h>
#include <moxui/ui/UI_LayoutView.h>
#include <moxui/ui/UI_SubView.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace moxui::ui {

namespace {

bool OverlapsVertically(RectT<float> const& a, RectT<float> const& b) {
  return a.top < b.Bottom() && b.top < a.Bottom();
}

bool OverlapsHorizontally(RectT<float> const& a, RectT<float> const& b) {
  return a.left < b.Right() && b.left < a.Right();
}

RectT<float> PlaceOf(UI_Node const& node) {
  return node.UI_GetLocalRectF(RectSpace::kParent);
}

/// How far the children's outermost edges reach.
ExtentT<float> Reach(UI_SubView const& view) {
  ExtentT<float> reach;
  for (auto const& child : NodeAccess::Children(view)) {
    if (child->UI_IsShown()) {
      reach.width = std::max(reach.width, PlaceOf(*child).Right());
      reach.height = std::max(reach.height, PlaceOf(*child).Bottom());
    }
  }
  return reach;
}

/// Moves what stands to the right of a child that grew, or below it.
void MakeRoom(UI_SubView& view, UI_Node const& grown, RectT<float> const& before, RectT<float> const& after) {
  float const right = after.Right() - before.Right();
  float const down = after.Bottom() - before.Bottom();
  for (auto const& sibling : NodeAccess::Children(view)) {
    if (sibling.Get() == &grown) {
      continue;
    }
    RectT<float> place = PlaceOf(*sibling);
    if (right > 0 && place.left >= before.Right() && OverlapsVertically(place, after)) {
      place.left += right;
    } else if (down > 0 && place.top >= before.Bottom() && OverlapsHorizontally(place, after)) {
      place.top += down;
    }
    sibling->DoPlace(place);
  }
}

void FitView(UI_SubView& view, scriber::Scriber* scriber);

void FitChild(UI_SubView& view, UI_Node& child, AutoLayoutFlags flags, scriber::Scriber* scriber) {
  RectT<float> const before = PlaceOf(child);
  if (ShowsText(child)) {
    ExtentT<float> const wanted = child.DoMeasure(scriber, PlaceOf(view).Extent());
    RectT<float> place = before;
    if (flags.isHorizontal) {
      place.width = std::max(place.width, std::ceil(wanted.width));
    }
    // The line of a button fits the height that was given to it; a text may have several.
    if (child.UI_GetAccessibleRole() == AccessibleRole::kStaticText) {
      place.height = std::max(place.height, std::ceil(wanted.height));
    }
    child.DoPlace(place);
  } else if (auto* const inner = dynamic_cast<UI_SubView*>(&child)) {
    FitView(*inner, scriber);
  }
  RectT<float> const after = PlaceOf(child);
  if (after != before) {
    MakeRoom(view, child, before, after);
  }
}

void FitView(UI_SubView& view, scriber::Scriber* scriber) {
  AutoLayoutFlags const flags = GetAutoLayoutFlags(view);
  if (!flags.isOn) {
    return;
  }
  if (auto* const row = dynamic_cast<UI_LayoutView*>(&view); row != nullptr && flags.isHorizontal) {
    row->UI_LayoutChildren();
    return;
  }
  RectT<float> const before = PlaceOf(view);
  ExtentT<float> const reachBefore = Reach(view);
  auto const children = NodeAccess::Children(view);
  for (auto const& child : children) {
    FitChild(view, *child, flags, scriber);
  }
  ExtentT<float> const reach = Reach(view);
  RectT<float> place = before;
  // Without margins to keep, the view only grows until nothing sticks out.
  float const wider = flags.maintainsMargins ? reach.width - reachBefore.width : reach.width - before.width;
  float const higher =
      flags.maintainsMargins ? reach.height - reachBefore.height : reach.height - before.height;
  place.width += std::max(wider, 0.0F);
  place.height += std::max(higher, 0.0F);
  bool const layoutsChildren = view.UI_LayoutsChildren();
  view.UI_SetLayoutsChildren(flags.scalesChildren && layoutsChildren);
  view.DoPlace(place);
  view.UI_SetLayoutsChildren(layoutsChildren);
}

}  // namespace

void SetAutoLayoutFlags(UI_SubView& view, AutoLayoutFlags flags) {
  NodeAccess::MakeExtras(view).autoLayout = flags;
}

AutoLayoutFlags GetAutoLayoutFlags(UI_SubView const& view) {
  auto const* const extras = NodeAccess::Extras(view);
  return extras != nullptr ? extras->autoLayout : AutoLayoutFlags{};
}

void AutoLayoutSubView(UI_SubView* view, scriber::Scriber* scriber) {
  if (view == nullptr) {
    return;
  }
  std::optional<MirroredForAutoLayout> mirrored;
  if (skins::IsRightToLeft()) {
    mirrored.emplace(*view);
  }
  FitView(*view, scriber);
}

}  // namespace moxui::ui
