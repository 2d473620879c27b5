#pragma once

#include <moxui/controls/OS_EditText.h>
#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/TextLayoutInterface.h>

#include <cstddef>

namespace moxui::controls {

inline constexpr float kCaretWidth = 1.0f;

/// An edited text in its lines, and what it was laid out of.
struct OS_EditText::Laid {
  moxcore::Utf16String text;
  scriber::FontP font;
  float width = 0.0f;
  ControlAlignment alignment = ControlAlignment::kLeft;
  scriber::TextLayoutP layout;

  scriber::TextLine const& Line(std::size_t line) const { return layout->GetLines()[line]; }
  /// The line that shows a caret at a place: where one line is wrapped into the next, the next.
  std::size_t LineOf(std::size_t position) const;
  /// The line at a distance from the top, the first or last one beyond them.
  std::size_t LineAt(float y) const;
  /// The last place that a caret has in a line.
  std::size_t LastPlaceIn(std::size_t line) const;
  float Height() const;
};

}  // namespace moxui::controls
