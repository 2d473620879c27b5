#pragma once

#include <moxui/controls/UI_TextButton.h>
#include <moxui/geometry/ExtentT.h>
#include <moxui/geometry/RectT.h>
#include <moxui/ui/UI_SubView.h>

#include <functional>
#include <utility>
#include <vector>

namespace moxui::dialogs {

// In logical pixels: around what a box holds, and between its parts.
inline constexpr float kBoxPadding = 16.0f;
inline constexpr float kBoxGap = 12.0f;

/// The answer that Escape and a close give: of Cancel, No and OK the first among `buttons`.
unsigned GetCancelAnswer(unsigned buttons);

/// A place in a box as given, or mirrored where the interface is laid out from right to left.
RectT<float> PlacedInBox(RectT<float> const& rect, float boxWidth);

/// The buttons at the lower right of a box: Yes, No, OK and Cancel, as far as they are wanted.
class ButtonRow {
 public:
  using Answered = std::function<void(unsigned button)>;

  /// Makes them as children of `box`, which outlives this. `buttons` is a sum of DialogButton. `answered` is
  /// not empty.
  ButtonRow(ui::UI_SubView& box, unsigned buttons, unsigned defaultButton, Answered const& answered);

  /// Places them in a box of a width, their upper edge at `top`; gives their height.
  float Arrange(float boxWidth, float top) const;
  /// Null for a button that isn't there.
  controls::UI_TextButton* Find(unsigned button) const;

 private:
  std::vector<std::pair<unsigned, moxcore::utility::IntrusivePtr<controls::UI_TextButton>>> mButtons;
};

}  // namespace moxui::dialogs
