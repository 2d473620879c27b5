#pragma once

namespace moxui::ui {

/// The roles that a theme has a colour for. Numbers from kFirstCustomThemeColor on name colours of clients'
/// own, made by ThemeClient::SetCustomThemeColor.
enum class ThemeColorID : unsigned {
  kGray1 = 1,  ///< the panel's ground; up to kGray9, its strongest ink
  kGray2,
  kGray3,
  kGray4,
  kGray5,
  kGray6,
  kGray7,
  kGray8,
  kGray9,
  kGray10,  ///< no tenth step: the subdued tone of idle rings and muted marks

  kPanelBackground = 20,
  kTabBackground,
  kInteractive,
  kFocus,
  kDefaultTextDisabled,
  kStrongText,     ///< text typed by the user, labels under the pointer or pressed
  kSelectionFill,  ///< ground of selected text and rows; transparent, over the ground
  kOnInteractive,  ///< text and marks on a ground in the interactive colour
  kInteractiveHover,
  kInteractivePressed,
  kNegative,  ///< ground of what destroys something
  kNegativeHover,
  kNegativePressed,
  kOnNegative,  ///< text and marks on that ground

  kScrollBarThumb = 40,
  kScrollBarThumbActive,   ///< under the pointer
  kScrollBarThumbPressed,  ///< dragged, or the track beside it pressed
  kScrollBarTrack,
  kProgressBarEmptyFill,
  kProgressBarOuterLine,
  kProgressBarFill,

  kFieldFill = 50,  ///< ground of boxes that hold a value: text, checks, closed popups
  kFieldFillHover,
  kFieldFillDisabled,
  kFieldOutline,
  kFieldOutlineActive,  ///< under the pointer or pressed
  kFieldOutlineDisabled,
  kPlaceholderText,  ///< what an empty text box asks for

  kButtonFill = 60,
  kButtonFillHover,
  kButtonFillPressed,
  kButtonFillSelected,
  kButtonFillDisabled,
  kButtonOutline,
  kButtonOutlineActive,
  kButtonOutlineDisabled,
  kButtonText,
  kButtonTextActive,
  kButtonTextDisabled,

  kRangeBandDark = 129,   ///< play range band on a dark theme's empty track
  kRangeBandLight = 130,  ///< the same on a light theme's

  kTableGridLine = 251,
  kTableText = 253,
  kDefaultText = 305,
  kTableEdgeLine = 324,
  kTableAlternateRow = 331,

  kFirstCustomThemeColor = 0x10000
};

}  // namespace moxui::ui
