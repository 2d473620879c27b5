#pragma once

namespace moxui::ui {

/// Why a node gained (pointer, traversal, by code) or lost the keyboard focus: lost to another node or given
/// up, or deactivated, when its window is no longer the active one or when its input capture was taken away.
enum class FocusChangeReason : int {
  kNone = 0,
  kPointer = 1,
  kTraversal = 2,
  kByCode = 3,
  kLost = 4,
  kDeactivated = 5
};

}  // namespace moxui::ui
