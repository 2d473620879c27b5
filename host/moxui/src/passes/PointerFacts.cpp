#include "PointerFacts.h"

#include "../ui/TreeState.h"

#include <moxui/ui/NodeTreeHost.h>

#include <cmath>

namespace moxui::passes {

namespace {

std::size_t IndexOf(ui::MouseButton button) {
  switch (button) {
    case ui::MouseButton::kRight:
      return 1;
    case ui::MouseButton::kMiddle:
      return 2;
    default:
      return 0;
  }
}

bool IsNear(PointT<float> a, PointT<float> b, float distance) {
  return std::abs(a.x - b.x) <= distance && std::abs(a.y - b.y) <= distance;
}

int CountPress(ui::TreeState& state, ui::PointerInput const& input) {
  auto const limits = state.host->GetClickLimits();
  double const now = state.host->GetTime();
  auto& record = state.pointer.clicks.at(IndexOf(input.button));
  bool const goesOn = record.count > 0 && state.pointer.lastPressed == input.button && !record.hasLeft &&
                      now - record.time <= limits.milliseconds &&
                      IsNear(record.position, input.position, limits.distance);
  record = {goesOn ? record.count + 1 : 1, now, input.position, false};
  state.pointer.lastPressed = input.button;
  return record.count;
}

}  // namespace

PointT<float> GetPressPosition(ui::PointerState const& pointer) {
  return pointer.clicks.at(IndexOf(pointer.lastPressed)).position;
}

ui::MouseButton HeldButton(ui::MouseButtons buttons) {
  for (auto const button : {ui::MouseButton::kLeft, ui::MouseButton::kRight, ui::MouseButton::kMiddle}) {
    if (buttons.Has(static_cast<unsigned char>(button))) {
      return button;
    }
  }
  return ui::MouseButton::kNone;
}

int NotePointerInput(ui::TreeState& state, ui::PointerInput const& input) {
  auto& pointer = state.pointer;
  pointer.position = input.position;
  pointer.isInside = true;
  pointer.modKeys = input.modKeys;
  pointer.subType = input.subType;
  float const slop = state.host->GetClickLimits().distance;
  for (auto& record : pointer.clicks) {
    record.hasLeft = record.hasLeft || !IsNear(record.position, input.position, slop);
  }
  switch (input.action) {
    case ui::PointerAction::kPress:
      pointer.buttons.Set(static_cast<unsigned char>(input.button));
      return CountPress(state, input);
    case ui::PointerAction::kRelease: {
      pointer.buttons.Set(static_cast<unsigned char>(input.button), false);
      auto const& record = pointer.clicks.at(IndexOf(input.button));
      return record.hasLeft ? 0 : record.count;
    }
    default:
      return 0;
  }
}

}  // namespace moxui::passes
