#pragma once

#include <moxui/geometry/PointT.h>

namespace moxui::ui {
struct PointerInput;
struct TreeState;
}  // namespace moxui::ui

namespace moxui::passes {

/// Where an input of the platform is for the tree: its place goes on without end while the pointer is hidden
/// and a button held.
PointT<float> FollowPointer(ui::TreeState& state, ui::PointerInput const& input);

/// After an input: puts a hidden pointer that is held and has come near the edge of its screen back to the
/// middle.
void KeepPointerInside(ui::TreeState& state, ui::PointerInput const& input);

/// Puts the pointer to a place of the desktop, for good.
void PlacePointer(ui::TreeState& state, PointT<float> place);

/// The pointer is shown again: where it was pressed, if it has been put elsewhere since.
void ReturnPointer(ui::TreeState& state);

/// The pointer's place on the desktop, as events tell it.
PointT<float> GetPointerPlace(ui::TreeState const& state);

}  // namespace moxui::passes
