#pragma once

namespace moxui::ui {

/// What a node is to assistive software. Nodes without a role of their own are passed over.
enum class AccessibleRole {
  kNone,
  kGroup,
  kButton,
  kCheckBox,
  kRadioButton,
  kStaticText,
  kTextField,
  kSlider,
  kSpinBox,
  kDial,
  kComboBox,
  kList,
  kListItem,
  kTable,
  kRow,
  kCell,
  kColumnHeader,
  kScrollBar,
  kImage,
  kDialog,
  kProgress,
  kTab,
};

}  // namespace moxui::ui
