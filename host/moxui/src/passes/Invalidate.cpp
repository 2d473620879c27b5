#include "Invalidate.h"

#include "../ui/NodeAccess.h"
#include "../ui/TreeState.h"

#include <moxui/ui/NodeTreeHost.h>

#include <limits>

namespace moxui::passes {

using ui::NodeAccess;
using ui::UI_Node;

namespace {

constexpr std::size_t kMaxDamageRects = 8;
/// So many are asked one by one at each change.
constexpr std::size_t kFewChildren = 16;

float Area(RectT<float> const& rect) {
  return rect.width * rect.height;
}

/// Joins the two rectangles whose union covers least that neither covered.
void JoinCheapestPair(std::vector<RectT<float>>& damage) {
  std::size_t first = 0;
  std::size_t second = 1;
  float least = std::numeric_limits<float>::max();
  for (std::size_t a = 0; a < damage.size(); ++a) {
    for (std::size_t b = a + 1; b < damage.size(); ++b) {
      float const waste = Area(damage[a].Union(damage[b])) - Area(damage[a]) - Area(damage[b]);
      if (waste < least) {
        least = waste;
        first = a;
        second = b;
      }
    }
  }
  damage[first] = damage[first].Union(damage[second]);
  damage.erase(damage.begin() + static_cast<std::ptrdiff_t>(second));
}

/// Joins two rectangles that meet; false if none do.
bool JoinTwo(std::vector<RectT<float>>& damage) {
  for (std::size_t a = 0; a < damage.size(); ++a) {
    for (std::size_t b = a + 1; b < damage.size(); ++b) {
      if (damage[a].Intersects(damage[b])) {
        damage[a] = damage[a].Union(damage[b]);
        damage.erase(damage.begin() + static_cast<std::ptrdiff_t>(b));
        return true;
      }
    }
  }
  return false;
}

/// Joins rectangles until no two of them meet; what two came to may meet a third.
void JoinMeeting(std::vector<RectT<float>>& damage) {
  while (JoinTwo(damage)) {
  }
}

}  // namespace

void AddDamage(ui::TreeState& state, RectT<float> const& rect) {
  RectT<float> const seen = rect.Intersection({0, 0, state.size.width, state.size.height});
  if (seen.IsEmpty()) {
    return;
  }
  auto& damage = state.damage;
  bool isNew = true;
  for (auto const& held : damage) {
    isNew = isNew && !held.Contains(seen);
  }
  if (isNew) {
    damage.push_back(seen);
    do {
      JoinMeeting(damage);
      if (damage.size() > kMaxDamageRects) {
        JoinCheapestPair(damage);
      }
    } while (damage.size() > kMaxDamageRects);
    JoinMeeting(damage);
  }
  if (!state.isFrameRequested) {
    state.isFrameRequested = true;
    state.host->RequestFrame();
  }
}

void DamageNode(UI_Node const& node, RectT<float> const& rect) {
  ui::NodeTree* const tree = node.UI_GetTree();
  if (tree == nullptr) {
    return;
  }
  RectT<float> seen = rect;
  for (UI_Node const* up = &node; up != nullptr; up = up->UI_GetParentNode()) {
    if (!up->UI_IsShown()) {
      return;
    }
    if (up->UI_ClipsChildren()) {
      seen = seen.Intersection(NodeAccess::OwnRect(*up));
    }
    seen = seen.Offset(NodeAccess::LocalRect(*up).TopLeft());
  }
  AddDamage(tree->State(), seen);
}

void DamageSubtree(UI_Node const& node) {
  DamageNode(node, NodeAccess::Bounds(node));
}

void UpdateBounds(UI_Node& node) {
  RectT<float> bounds = NodeAccess::OwnRect(node);
  if (!node.UI_ClipsChildren()) {
    bounds = bounds.Grown(node.UI_GetDrawOverhang());
    if (ui::UI_Container* const container = node.UI_GetContainer()) {
      bounds = bounds.Union(NodeAccess::ChildrenBounds(*container));
    }
  }
  if (bounds != NodeAccess::Bounds(node)) {
    NodeAccess::Bounds(node) = bounds;
    ChildBoundsChanged(node);
  }
}

void ChildBoundsChanged(UI_Node& child) {
  UI_Node* const parent = child.UI_GetParentNode();
  if (parent == nullptr) {
    return;
  }
  ui::UI_Container& container = *parent->UI_GetContainer();
  if (auto* const index = NodeAccess::Index(container)) {
    index->Update(child);
  }
  // Over many children the union only grows, which costs nothing; it is drawn tight again once as many
  // changes as twice the children have made it loose.
  auto& united = NodeAccess::ChildrenBounds(container);
  RectT<float> bounds = united.Union(NodeAccess::BoundsInParent(child));
  bool const isLoose = ++NodeAccess::LooseBounds(container) > 2 * container.ChildSize() + 64;
  if (isLoose || container.ChildSize() <= kFewChildren) {
    NodeAccess::LooseBounds(container) = 0;
    bounds = {};
    for (auto const& one : NodeAccess::Children(container)) {
      bounds = bounds.Union(NodeAccess::BoundsInParent(*one));
    }
  }
  if (bounds != united) {
    united = bounds;
    UpdateBounds(*parent);
  }
}

}  // namespace moxui::passes
