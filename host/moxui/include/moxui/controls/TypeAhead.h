#pragma once

#include <moxcore/string/String.h>

#include <cstdint>
#include <functional>
#include <optional>

namespace moxui::ui {
class KeyboardEvent;
}

namespace moxui::controls {

/// Finds the line of a list that begins with what is typed. Letters that follow each other within a second
/// are one word; case doesn't matter.
class TypeAhead {
 public:
  /// Lines that can't be chosen have no text.
  using TextFunction = std::function<std::optional<moxcore::Utf16String>(std::int64_t line)>;

  /// Whether a key types a character, which begins no word as a blank.
  static bool IsTyping(ui::KeyboardEvent const& event);

  /// Whether what is typed at `time` (milliseconds) goes on from what was typed before.
  bool IsTypingOn(double time) const;
  /// The line to choose for a key that types `text`: the current one if a word goes on and it still fits,
  /// else the next below it, round the end.
  std::optional<std::int64_t> Type(moxcore::Utf16String const& text, double time, std::int64_t count,
                                   std::int64_t current, TextFunction const& textOf);

 private:
  moxcore::Utf16String mTyped;
  double mLastTime = 0.0;
};

}  // namespace moxui::controls
