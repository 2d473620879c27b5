#include "ShowsText.h"

#include <moxui/ui/UI_LayoutView.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace moxui::ui {
namespace {

/// A control of the row, and how much wider it has to become.
struct Part {
  UI_Node* node;
  RectT<float> place;
  float wider;
  bool isAtRight;
  bool stretches;
};

constexpr unsigned kSideways = LayoutBinding::kFreeLeft | LayoutBinding::kBindRight;

bool ShareLine(RectT<float> const& a, RectT<float> const& b) {
  return a.top < b.Bottom() && b.top < a.Bottom();
}

void Grow(std::vector<Part>& parts, Part& grown) {
  RectT<float> const before = grown.place;
  grown.place.width += grown.wider;
  if (grown.isAtRight) {
    grown.place.left -= grown.wider;
  }
  for (Part& other : parts) {
    if (&other == &grown || !ShareLine(other.place, before)) {
      continue;
    }
    if (grown.isAtRight && other.isAtRight && other.place.Right() <= before.left) {
      other.place.left -= grown.wider;
    } else if (!grown.isAtRight && !other.isAtRight && other.place.left >= before.Right()) {
      other.place.left += grown.wider;
      other.place.width -= other.stretches ? std::min(grown.wider, other.place.width) : 0.0f;
    }
  }
}

}  // namespace

UI_LayoutView::UI_LayoutView() {
  SetAutoLayoutFlags(*this, {.isOn = true});
}

UI_LayoutView::~UI_LayoutView() = default;

void UI_LayoutView::ChangeFlags(bool AutoLayoutFlags::*flag, bool value) {
  AutoLayoutFlags flags = GetAutoLayoutFlags(*this);
  flags.*flag = value;
  SetAutoLayoutFlags(*this, flags);
  UI_InvalidateLayout();
}

void UI_LayoutView::SetAutoLayout(bool on) {
  ChangeFlags(&AutoLayoutFlags::isOn, on);
}

void UI_LayoutView::SetAutoLayoutHorizontal(bool horizontal) {
  ChangeFlags(&AutoLayoutFlags::isHorizontal, horizontal);
}

void UI_LayoutView::SetAutoLayoutMaintainMargins(bool maintains) {
  ChangeFlags(&AutoLayoutFlags::maintainsMargins, maintains);
}

void UI_LayoutView::SetAutoLayoutScaleChildren(bool scales) {
  ChangeFlags(&AutoLayoutFlags::scalesChildren, scales);
}

void UI_LayoutView::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  UI_InvalidateLayout();
}

void UI_LayoutView::UI_NodeChanged(NodeChange change) {
  UI_SubView::UI_NodeChanged(change);
  if (change == NodeChange::kAttached) {
    UI_InvalidateLayout();
  }
}

void UI_LayoutView::UI_SkinSetUpdated() {
  UI_SubView::UI_SkinSetUpdated();
  UI_InvalidateLayout();
}

void UI_LayoutView::UI_LayoutChildren() {
  UI_SubView::UI_LayoutChildren();
  AutoLayoutFlags const flags = GetAutoLayoutFlags(*this);
  if (!flags.isOn || !flags.isHorizontal) {
    return;
  }
  ExtentT<float> const available = UI_GetLocalRectF(RectSpace::kOwn).Extent();
  std::vector<Part> parts;
  for (auto child = ChildBegin(); child != ChildEnd(); ++child) {
    UI_Node& node = **child;
    if (!node.UI_IsShown()) {
      continue;
    }
    RectT<float> const place = node.UI_GetLocalRectF(RectSpace::kParent);
    unsigned const sides = node.UI_GetLayoutBinding() & kSideways;
    float const wanted =
        ShowsText(node) ? std::ceil(node.UI_MeasureFromDefaultSupplier(available).width) : 0.0f;
    parts.push_back({.node = &node,
                     .place = place,
                     .wider = std::max(wanted - place.width, 0.0f),
                     .isAtRight = sides == kSideways,
                     .stretches = sides == LayoutBinding::kBindRight});
  }
  for (Part& part : parts) {
    if (part.wider > 0.0f) {
      Grow(parts, part);
    }
  }
  for (Part const& part : parts) {
    part.node->DoPlace(part.place);
  }
}

}  // namespace moxui::ui
