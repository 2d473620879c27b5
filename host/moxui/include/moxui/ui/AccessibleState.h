#pragma once

namespace moxui::ui {

/// What assistive software is told of a node's state, beyond being disabled, focused or hovered, which are
/// the same for all nodes.
struct AccessibleState {
  bool isCheckable = false;
  bool isChecked = false;
  bool isMixed = false;  ///< neither on nor off, as of several things that differ
  bool isExpandable = false;
  bool isExpanded = false;
  bool isSelectable = false;  ///< one of several, of which some are selected
  bool isSelected = false;
  bool hasPopup = false;
  bool isPressed = false;
  bool isDefault = false;  ///< the button that Enter means
  bool isEditable = false;
  bool isReadOnly = false;
  bool isMultiLine = false;
};

/// A value that is a number, in the control's own unit.
struct AccessibleRange {
  double minimum = 0.0;
  double maximum = 1.0;
  double value = 0.0;
  double step = 0.0;  ///< what an arrow key moves
};

/// What of a node has become another.
enum class AccessibleChange {
  kName,   ///< the name or the description
  kValue,  ///< the value, as text and as a number
  kState,
  kText,      ///< the text that is edited
  kCaret,     ///< the caret or the selection in it
  kDetached,  ///< the node has left its tree
};

}  // namespace moxui::ui
