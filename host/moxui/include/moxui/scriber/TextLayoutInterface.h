#pragma once

#include <moxcore/utility/RefCountedObjectWithoutVirtualBase.h>

#include <cstddef>
#include <span>
#include <vector>

namespace moxui::scriber {

/// One line of a text that has been laid out. Places are UTF-16 units of the text, measures logical pixels
/// from the layout's top left.
struct TextLine {
  std::size_t begin = 0;
  std::size_t end = 0;     ///< without a line feed; blanks at which it was wrapped belong to it
  bool isWrapped = false;  ///< the next line begins where this one ends
  bool isRightToLeft = false;
  float left = 0.0f;  ///< of what is seen of it
  float width = 0.0f;
  float top = 0.0f;
  float height = 0.0f;
  float baseline = 0.0f;
};

/// A stretch along a line.
struct TextSpan {
  float begin = 0.0f;
  float end = 0.0f;
};

/// A text in its lines, as it would be drawn: wrapped, in the order in which each language reads, with the
/// places of carets. It stays as it was made. A text always has a line, an empty one too.
class TextLayoutInterface : public moxcore::utility::RefCountedObjectWithoutVirtualBase {
 public:
  virtual std::span<TextLine const> GetLines() const = 0;
  /// Where a caret before the character at `position` stands in a line; places outside of the line are those
  /// of its ends. Never within a character.
  virtual float GetCaretX(std::size_t line, std::size_t position) const = 0;
  /// The place in a line that is nearest to `x`, never within a character.
  virtual std::size_t GetPositionAt(std::size_t line, float x) const = 0;
  /// Where the text from `begin` to `end` lies in a line, from left to right: several stretches where the
  /// languages of both directions meet.
  virtual std::vector<TextSpan> GetSpans(std::size_t line, std::size_t begin, std::size_t end) const = 0;
};

}  // namespace moxui::scriber
