#include "PointerPlace.h"

#include "../ui/TreeState.h"
#include "PointerFacts.h"

#include <moxui/platform/Application.h>
#include <moxui/platform/CursorControl.h>
#include <moxui/ui/NodeTreeHost.h>

#include <cmath>

namespace moxui::passes {

namespace {

/// How far from the middle the pointer may get, in parts of the screen's width and height; the rest is for
/// what a hand does from one input to the next.
constexpr float kReach = 0.25F;

bool IsPointerHidden() {
  platform::Application* const application = platform::Application::Get();
  return application != nullptr && !application->GetCursor().IsCursorShown();
}

PointT<float> ToDesktop(ui::TreeState const& state, PointT<float> point) {
  float const zoom = state.host->GetZoom();
  return PointT<float>(point.x * zoom, point.y * zoom) + state.host->GetOrigin();
}

PointT<float> FromDesktop(ui::TreeState const& state, PointT<float> point) {
  float const zoom = state.host->GetZoom();
  PointT<float> const distance = point - state.host->GetOrigin();
  return {distance.x / zoom, distance.y / zoom};
}

float Distance(PointT<float> a, PointT<float> b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

}  // namespace

PointT<float> FollowPointer(ui::TreeState& state, ui::PointerInput const& input) {
  // Pens and fingers have places of their own.
  if (input.subType != ui::PointerSubType::kMouse) {
    return input.position;
  }
  auto& motion = state.pointer.motion;
  if (motion.HasWarped() && !IsPointerHidden()) {
    motion.Reset();
  }
  return motion.Follow(input.position);
}

void KeepPointerInside(ui::TreeState& state, ui::PointerInput const& input) {
  auto& motion = state.pointer.motion;
  bool const isHeld = input.subType == ui::PointerSubType::kMouse && !state.pointer.buttons.IsEmpty();
  if (!isHeld || motion.IsWarpPending() || state.dispatchDepth > 0 || !IsPointerHidden()) {
    return;
  }
  RectT<float> const screen = state.host->GetPointerBounds();
  if (screen.width <= 0 || screen.height <= 0) {
    return;
  }
  PointT<float> const place = ToDesktop(state, input.position);
  PointT<float> const middle{std::round(screen.Center().x), std::round(screen.Center().y)};
  if (std::abs(place.x - middle.x) <= screen.width * kReach &&
      std::abs(place.y - middle.y) <= screen.height * kReach) {
    return;
  }
  PointT<float> const target = FromDesktop(state, middle);
  // Before the pointer is moved: the move may be told at once.
  motion.Warp(input.position, target);
  state.host->SetPointerPosition(middle);
  PointT<float> const actual = state.host->GetPointerPosition();
  if (Distance(actual, place) < Distance(actual, middle)) {
    motion.UndoWarp();
  } else if (Distance(actual, middle) < 1) {
    motion.CorrectWarp(target, FromDesktop(state, actual));
  }
}

void PlacePointer(ui::TreeState& state, PointT<float> place) {
  auto& pointer = state.pointer;
  pointer.motion.Reset();
  state.host->SetPointerPosition(place);
  // The move is told later, if at all; until then nothing is to be found where the pointer was.
  if (pointer.subType == ui::PointerSubType::kMouse && pointer.isInside) {
    pointer.position = FromDesktop(state, state.host->GetPointerPosition());
    state.hover.isStale = true;
  }
}

void ReturnPointer(ui::TreeState& state) {
  if (state.pointer.motion.HasWarped()) {
    PlacePointer(state, ToDesktop(state, GetPressPosition(state.pointer)));
  }
}

PointT<float> GetPointerPlace(ui::TreeState const& state) {
  PointT<float> const offset = state.pointer.motion.GetOffset();
  float const zoom = state.host->GetZoom();
  return state.host->GetPointerPosition() + PointT<float>(offset.x * zoom, offset.y * zoom);
}

}  // namespace moxui::passes
