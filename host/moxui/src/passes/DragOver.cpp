#include "DragOver.h"

#include "../ui/TreeState.h"
#include "HitTest.h"

#include <moxui/ui/DragData.h>
#include <moxui/ui/UI_SubView.h>

#include <utility>

namespace moxui::passes {

using ui::NodePtr;
using ui::UI_SubView;

namespace {

moxcore::utility::IntrusivePtr<UI_SubView> ViewThatWants(ui::TreeState const& state, PointT<float> position) {
  for (NodePtr node(FindNodeAt(state, position)); node; node = NodePtr(node->UI_GetParentNode())) {
    if (auto* const view = dynamic_cast<UI_SubView*>(node.Get());
        view != nullptr && view->WantsDragDropEvents()) {
      return moxcore::utility::IntrusivePtr<UI_SubView>(view);
    }
  }
  return nullptr;
}

UI_SubView* CurrentView(ui::TreeState const& state, NodePtr& keep) {
  keep = state.drag.view.Lock();
  return keep && state.Owns(*keep) ? dynamic_cast<UI_SubView*>(keep.Get()) : nullptr;
}

void LeaveView(ui::TreeState& state, ui::OS_ReceiveData& data) {
  NodePtr keep;
  UI_SubView const* const view = CurrentView(state, keep);
  state.drag = {};
  if (view != nullptr) {
    view->HandleDragLeave(data);
  }
}

int DragTo(ui::TreeState& state, PointT<float> position, ui::OS_ReceiveData& data, int proposedEffect) {
  auto const view = ViewThatWants(state, position);
  NodePtr keep;
  bool const isNew = view.Get() != CurrentView(state, keep);
  if (isNew) {
    LeaveView(state, data);
    state.drag.view = ui::WeakNode(view);
  }
  if (!view) {
    return ui::DropEffect::kNone;
  }
  PointT<float> const point = ToNode(*view, position);
  int effect = proposedEffect;
  bool accepted = true;
  if (isNew) {
    accepted = view->HandleDragEnter(point, data, effect);
  } else {
    effect = state.drag.effect;
    if (view->HasDragOverFunction()) {
      effect = proposedEffect;
      accepted = view->HandleDragOver(point, data, effect);
    }
  }
  state.drag.effect = accepted ? effect : ui::DropEffect::kNone;
  return state.drag.effect;
}

int Drop(ui::TreeState& state, PointT<float> position, ui::OS_ReceiveData& data, int proposedEffect) {
  NodePtr keep;
  if (ViewThatWants(state, position).Get() != CurrentView(state, keep)) {
    DragTo(state, position, data, proposedEffect);
  }
  if (state.drag.effect == ui::DropEffect::kNone) {
    // Who refused it last gets nothing.
    LeaveView(state, data);
    return ui::DropEffect::kNone;
  }
  UI_SubView const* const view = CurrentView(state, keep);
  state.drag = {};
  if (view == nullptr) {
    return ui::DropEffect::kNone;
  }
  int effect = proposedEffect;
  return view->HandleDrop(ToNode(*view, position), data, effect) ? effect : ui::DropEffect::kNone;
}

}  // namespace

int DispatchDrag(ui::TreeState& state, ui::DragPhase phase, PointT<float> position, ui::OS_ReceiveData& data,
                 int proposedEffect) {
  switch (phase) {
    case ui::DragPhase::kEnter:
    case ui::DragPhase::kOver:
      return DragTo(state, position, data, proposedEffect);
    case ui::DragPhase::kDrop:
      return Drop(state, position, data, proposedEffect);
    case ui::DragPhase::kLeave:
      break;
  }
  LeaveView(state, data);
  return ui::DropEffect::kNone;
}

}  // namespace moxui::passes
