#include <moxui/scriber/FontInterface.h>
#include <moxui/skins/TextTruncation.h>

#include <cstddef>

namespace moxui::skins {
namespace {

constexpr char16_t kEllipsis = u'\u2026';

// Whether a character that begins at `position` may be parted from the one before it.
bool IsBoundary(std::u16string_view text, std::size_t position) {
  if (position == 0 || position >= text.size()) {
    return true;
  }
  char16_t const unit = text[position];
  bool const isLowSurrogate = unit >= 0xDC00 && unit <= 0xDFFF;
  bool const isMark = (unit >= 0x0300 && unit <= 0x036F) || (unit >= 0x20D0 && unit <= 0x20FF) ||
                      (unit >= 0xFE00 && unit <= 0xFE0F) || unit == 0x200D;
  return !isLowSurrogate && !isMark && text[position - 1] != 0x200D;
}

std::size_t BoundaryAtOrBefore(std::u16string_view text, std::size_t position) {
  while (!IsBoundary(text, position)) {
    --position;
  }
  return position;
}

std::size_t BoundaryAtOrAfter(std::u16string_view text, std::size_t position) {
  while (!IsBoundary(text, position)) {
    ++position;
  }
  return position;
}

moxcore::Utf16String WithoutMost(std::u16string_view text, std::size_t kept, TextTruncation truncation) {
  std::size_t head = 0;
  switch (truncation) {
    case TextTruncation::kStart:
      break;
    case TextTruncation::kMiddle:
      head = (kept + 1) / 2;
      break;
    default:
      head = kept;
      break;
  }
  std::size_t headEnd = BoundaryAtOrBefore(text, head);
  while (headEnd > 0 && text[headEnd - 1] == u' ') {
    --headEnd;
  }
  std::size_t const tailBegin = BoundaryAtOrAfter(text, text.size() - (kept - head));
  moxcore::Utf16String result(text.substr(0, headEnd));
  result += kEllipsis;
  result += text.substr(tailBegin);
  return result;
}

}  // namespace

moxcore::Utf16String TruncateText(std::u16string_view text, float width, scriber::FontInterface const& font,
                                  TextTruncation truncation) {
  if (truncation == TextTruncation::kNone || font.GetWidth(text) <= width) {
    return moxcore::Utf16String(text);
  }
  // The largest number of kept units that fits, by halving: `fitting` fits (or is none), `tooMany` doesn't.
  std::size_t fitting = 0;
  std::size_t tooMany = text.size();
  while (tooMany - fitting > 1) {
    std::size_t const middle = fitting + (tooMany - fitting) / 2;
    (font.GetWidth(WithoutMost(text, middle, truncation)) <= width ? fitting : tooMany) = middle;
  }
  moxcore::Utf16String const result = WithoutMost(text, fitting, truncation);
  return font.GetWidth(result) <= width ? result : moxcore::Utf16String();
}

}  // namespace moxui::skins
