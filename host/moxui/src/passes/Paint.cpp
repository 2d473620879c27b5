#include "Paint.h"

#include "../ui/NodeAccess.h"
#include "../ui/TreeState.h"

#include <moxui/scriber/SavedState.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <cmath>
#include <utility>

namespace moxui::passes {

using ui::NodeAccess;
using ui::UI_Node;

namespace {

/// More children than this are found by their index.
constexpr std::size_t kManyChildren = 48;

bool Meets(RectT<float> const& a, RectT<float> const& b) {
  return a.left < b.Right() && b.left < a.Right() && a.top < b.Bottom() && b.top < a.Bottom();
}

void DrawNode(UI_Node const& node, scriber::Scriber* scriber, PointT<float> offset) {
  scriber::SurfaceInterface& surface = *scriber->GetSurface();
  scriber::SavedState const saved(surface);
  surface.Translate(offset);
  surface.SetSmoothing(scriber::Smoothing::kAntiAliased);
  surface.SetDrawingMode(scriber::DrawingMode::kInterface);
  if (node.UI_ClipsChildren()) {
    surface.ClipToRect(NodeAccess::OwnRect(node));
  }
  auto const* const extras = NodeAccess::Extras(node);
  if (extras != nullptr && extras->drawFunction) {
    // A copy: the function may be replaced while it draws. It gets the node to change, as it may while
    // painting.
    auto const draw = extras->drawFunction;
    draw(const_cast<UI_Node*>(&node), scriber);
  } else {
    node.UI_Draw(scriber);
  }
}

class PaintingMark {
 public:
  explicit PaintingMark(ui::TreeState& state)
      : mState(state), mWasPainting(std::exchange(state.isPainting, true)) {}
  ~PaintingMark() { mState.isPainting = mWasPainting; }
  PaintingMark(PaintingMark const&) = delete;
  PaintingMark& operator=(PaintingMark const&) = delete;

 private:
  ui::TreeState& mState;
  bool mWasPainting;
};

RectT<float> RoundedOut(RectT<float> const& rect, float scale) {
  return RectT<float>::FromEdges(std::floor(rect.left * scale) / scale, std::floor(rect.top * scale) / scale,
                                 std::ceil(rect.Right() * scale) / scale,
                                 std::ceil(rect.Bottom() * scale) / scale);
}

}  // namespace

void PaintChild(UI_Node const& child, scriber::Scriber* scriber) {
  if (child.UI_IsShown()) {
    DrawNode(child, scriber, NodeAccess::LocalRect(child).TopLeft());
  }
}

void PaintAtOrigin(UI_Node const& node, scriber::Scriber* scriber) {
  DrawNode(node, scriber, {});
}

void PaintChildren(UI_Node const& node, scriber::Scriber* scriber) {
  ui::UI_Container* const container = node.UI_GetContainer();
  if (container == nullptr || container->ChildSize() == 0) {
    return;
  }
  RectT<float> const clip = scriber->GetSurface()->GetClipBounds();
  // Outside a tree nothing keeps the bounds of nodes that reach beyond their rectangles.
  bool const hasBounds = node.UI_GetTree() != nullptr;
  std::vector<ui::NodePtr> visible;
  if (hasBounds && container->ChildSize() > kManyChildren) {
    for (UI_Node* const child : NodeAccess::MakeIndex(*container)->Find(clip)) {
      visible.emplace_back(child);
    }
  } else {
    for (auto const& child : NodeAccess::Children(*container)) {
      if (!hasBounds || Meets(NodeAccess::BoundsInParent(*child), clip)) {
        visible.push_back(child);
      }
    }
  }
  for (auto const& child : visible) {
    PaintChild(*child, scriber);
  }
}

void PaintDamage(ui::TreeState& state, scriber::Scriber* scriber,
                 std::function<void(RectT<float> const&)> const& clear) {
  // What is invalidated while painting belongs to the next frame.
  auto const damage = std::exchange(state.damage, {});
  state.isFrameRequested = false;
  auto const root = state.root;
  PaintingMark const mark(state);
  for (auto const& rect : damage) {
    RectT<float> const pixels = RoundedOut(rect, scriber->GetSurface()->GetScale());
    if (clear) {
      clear(pixels);
    }
    if (root) {
      scriber::SavedState const saved(*scriber->GetSurface());
      scriber->GetSurface()->ClipToRect(pixels);
      PaintChild(*root, scriber);
    }
  }
}

void PaintAll(ui::TreeState& state, scriber::Scriber* scriber) {
  if (ui::NodePtr const root = state.root) {
    PaintingMark const mark(state);
    PaintChild(*root, scriber);
  }
}

}  // namespace moxui::passes
