#pragma once

namespace moxui::dialogs {

/// Buttons of dialogs and boxes, and the answers they give; bits, so that a box's buttons are their sum.
namespace DialogButton {
inline constexpr unsigned kNone = 0;
inline constexpr unsigned kOk = 1;
inline constexpr unsigned kYes = 16;
inline constexpr unsigned kNo = 64;
inline constexpr unsigned kCancel = 2048;
}  // namespace DialogButton

}  // namespace moxui::dialogs
