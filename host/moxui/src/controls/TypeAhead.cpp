#include <moxcore/string/TextOperations.h>
#include <moxui/controls/TypeAhead.h>
#include <moxui/ui/KeyboardEvent.h>

namespace moxui::controls {
namespace {

constexpr double kTypingPause = 1000.0;  // milliseconds after which typing begins anew

moxcore::Utf16String Folded(moxcore::Utf16String text) {
  moxcore::string::ToUpperCase(text);
  return text;
}

}  // namespace

bool TypeAhead::IsTyping(ui::KeyboardEvent const& event) {
  bool const hasCommand = event.GetModKey().HasAny(ui::ModKey::kCommand | ui::ModKey::kControl);
  return event.IsAction(ui::KeyAction::kKeyDown) && !hasCommand && !event.GetText().empty() &&
         event.GetText().front() > u' ';
}

bool TypeAhead::IsTypingOn(double time) const {
  return !mTyped.empty() && time - mLastTime < kTypingPause;
}

std::optional<std::int64_t> TypeAhead::Type(moxcore::Utf16String const& text, double time, std::int64_t count,
                                            std::int64_t current, TextFunction const& textOf) {
  bool const goesOn = IsTypingOn(time);
  mTyped = goesOn ? mTyped + Folded(text) : Folded(text);
  mLastTime = time;
  // A word that goes on may stay with its line; a new one looks behind it.
  std::int64_t const from = current < 0 || current >= count ? 0 : current + (goesOn ? 0 : 1);
  for (std::int64_t distance = 0; distance < count; ++distance) {
    std::int64_t const line = (from + distance) % count;
    std::optional<moxcore::Utf16String> const shown = textOf(line);
    if (shown && Folded(*shown).starts_with(mTyped)) {
      return line;
    }
  }
  return std::nullopt;
}

}  // namespace moxui::controls
