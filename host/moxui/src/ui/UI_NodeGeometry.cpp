#include "../passes/HitTest.h"
#include "../passes/Invalidate.h"
#include "../passes/Layout.h"
#include "NodeAccess.h"
#include "TreeState.h"

#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/NodeTreeHost.h>
#include <moxui/ui/UI_Node.h>

#include <cmath>

namespace moxui::ui {

namespace {

int Rounded(float edge) {
  constexpr float kLimit = 1e9F;
  if (!(edge > -kLimit)) {
    return -static_cast<int>(kLimit);
  }
  return edge < kLimit ? static_cast<int>(std::lround(edge)) : static_cast<int>(kLimit);
}

}  // namespace

void UI_Node::UI_SetLocalRectF(RectT<float> const& rect) {
  if (rect == mLocalRect) {
    return;
  }
  NodePtr const self(this);
  passes::DamageSubtree(*this);
  bool const isResized = rect.Extent() != mLocalRect.Extent();
  mLocalRect = rect;
  // The parent's view of this child changes with its place, too, even where its own bounds don't.
  passes::UpdateBounds(*this);
  passes::ChildBoundsChanged(*this);
  if (isResized) {
    UI_SizeChanged(UI_GetLocalRectF(RectSpace::kOwn));
  }
  passes::DamageSubtree(*this);
  if (mTree != nullptr) {
    mTree->State().hover.isStale = true;
  }
}

void UI_Node::UI_SetLocalRect(RectT<int> const& rect) {
  UI_SetLocalRectF(RectT<float>(rect));
}

RectT<float> UI_Node::UI_GetLocalRectF(bool inParent) const {
  return inParent ? mLocalRect : RectT<float>(0, 0, mLocalRect.width, mLocalRect.height);
}

RectT<int> UI_Node::UI_GetLocalRect(bool inParent) const {
  RectT<float> const rect = UI_GetLocalRectF(inParent);
  return RectT<int>::FromEdges(Rounded(rect.left), Rounded(rect.top), Rounded(rect.Right()),
                               Rounded(rect.Bottom()));
}

PointT<float> UI_Node::UI_LocalToGlobalF(PointT<float> point) const {
  PointT<float> const inTree = passes::ToTree(*this, point);
  if (mTree == nullptr) {
    return inTree;
  }
  float const zoom = mTree->GetHost().GetZoom();
  return PointT<float>(inTree.x * zoom, inTree.y * zoom) + mTree->GetHost().GetOrigin();
}

PointT<float> UI_Node::UI_GlobalToLocalF(PointT<float> point) const {
  PointT<float> const distance = point - UI_LocalToGlobalF(PointT<float>{});
  float const zoom = mTree != nullptr ? mTree->GetHost().GetZoom() : 1.0F;
  return {distance.x / zoom, distance.y / zoom};
}

RectT<float> UI_Node::UI_ConvertRectTo(UI_Node const* node, RectT<float> const& rect) const {
  PointT<float> const inTree = passes::ToTree(*this, rect.TopLeft());
  PointT<float> const place = node != nullptr ? passes::ToNode(*node, inTree) : inTree;
  return {place.x, place.y, rect.width, rect.height};
}

void UI_Node::UI_Invalidate() {
  // Overhang may follow from what is drawn: this is where its change shows.
  passes::UpdateBounds(*this);
  passes::DamageNode(*this, NodeAccess::OwnRect(*this).Grown(UI_GetDrawOverhang()));
}

void UI_Node::UI_Invalidate(RectT<float> const& rect, unsigned) {
  passes::DamageNode(*this, rect);
}

void UI_Node::UI_UpdateNow(unsigned flags) {
  // A frame that is being painted can't hold another: what waits then is painted with the next.
  if (mTree != nullptr && flags != 0 && !mTree->State().isPainting) {
    mTree->GetHost().PaintNow();
  }
}

void UI_Node::UI_SetCustomDrawFunction(CustomDrawFunction function) {
  Extras().drawFunction = std::move(function);
  UI_Invalidate();
}

void UI_Node::UI_ClipToSelf(scriber::Scriber* scriber) const {
  UI_ClipToRect(scriber, NodeAccess::OwnRect(*this));
}

void UI_Node::UI_ClipToRect(scriber::Scriber* scriber, RectT<float> const& rect) const {
  scriber->GetSurface()->ClipToRect(rect);
}

void UI_Node::UI_SetClipsChildren(bool clips) {
  if (clips == mClipsChildren) {
    return;
  }
  passes::DamageSubtree(*this);
  mClipsChildren = clips;
  passes::UpdateBounds(*this);
  passes::DamageSubtree(*this);
}

void UI_Node::UI_SetLayoutBinding(unsigned bindings) {
  mLayoutBinding = static_cast<std::uint8_t>(bindings);
}

void UI_Node::UI_InvalidateLayout() {
  if (!mNeedsLayout) {
    mNeedsLayout = true;
    if (mTree != nullptr) {
      passes::QueueLayout(mTree->State(), *this);
    }
  }
}

}  // namespace moxui::ui
