#include "StandIn.h"

#include <moxui/testing/DragHand.h>
#include <moxui/testing/Stage.h>
#include <moxui/ui/UI_DragDropHandler.h>

namespace moxui::testing {

namespace {

// What a desktop proposes without modifier keys: moving, where it is offered, else copying.
int ProposedEffect(int offered) {
  for (int const effect : {ui::DropEffect::kMove, ui::DropEffect::kCopy, ui::DropEffect::kLink}) {
    if ((offered & effect) != 0) {
      return effect;
    }
  }
  return ui::DropEffect::kNone;
}

}  // namespace

DragHand::DragHand(Stage& stage)
    : mStage(stage),
      mStandIn(std::make_unique<StandIn<platform::DragSource>>(&platform::SetDragSource, this)) {}
DragHand::~DragHand() = default;

void DragHand::DropAt(PointT<float> point) {
  mPoint = point;
  mDrops = true;
}

void DragHand::GiveUpAt(PointT<float> point) {
  mPoint = point;
  mDrops = false;
}

int DragHand::Drag(ui::UI_Node*, ui::TransferData const& data, int effects) {
  mDragged = data;
  mOfferedEffects = effects;
  int const proposed = ProposedEffect(effects);
  int taken = ui::DropEffect::kNone;
  if (mDrops) {
    taken = mStage.Drop(mPoint, data, proposed);
  } else {
    mStage.DragOver(mPoint, data, proposed);
    mStage.DragAway(data);
  }
  mStage.ForgetButtons();
  // An effect that wasn't offered can't be had.
  return (taken & effects) == taken ? taken : ui::DropEffect::kNone;
}

}  // namespace moxui::testing
