#include "MeasuredTextLayout.h"

#include <moxui/scriber/FontInterface.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace moxui::scriber {

MeasuredTextLayout::MeasuredTextLayout(FontP font, std::u16string_view text, float width,
                                       TextAlignment alignment)
    : mFont(std::move(font)), mText(text) {
  std::size_t begin = 0;
  while (begin <= mText.size()) {
    std::size_t const end = std::min(mText.find(u'\n', begin), mText.size());
    std::size_t wrapped = begin;
    do {
      std::size_t const next = width > 0.0f ? FindWrap(wrapped, end, width) : end;
      AddLine(wrapped, next, width, alignment);
      mLines.back().isWrapped = next < end;
      wrapped = next;
    } while (wrapped < end);
    begin = end + 1;
  }
}

// Behind the last word that fits, or behind the first.
std::size_t MeasuredTextLayout::FindWrap(std::size_t begin, std::size_t end, float width) const {
  std::u16string_view const text = mText;
  std::size_t fitting = begin;
  while (fitting < end) {
    std::size_t const wordEnd = std::min(text.find(u' ', fitting), end);
    bool const fits = mFont->GetWidth(text.substr(begin, wordEnd - begin)) <= width;
    if (!fits && fitting > begin) {
      break;
    }
    fitting = std::min(text.find_first_not_of(u' ', wordEnd), end);
  }
  return fitting;
}

void MeasuredTextLayout::AddLine(std::size_t begin, std::size_t end, float width, TextAlignment alignment) {
  float const ascent = std::ceil(mFont->GetAscent());
  TextLine line{.begin = begin, .end = end};
  line.width = mFont->GetWidth(std::u16string_view(mText).substr(begin, end - begin));
  float const spare = width > 0.0f ? width - line.width : 0.0f;
  line.left = alignment == TextAlignment::kLeft    ? 0.0f
              : alignment == TextAlignment::kRight ? spare
                                                   : spare / 2;
  line.height = std::ceil(mFont->GetAscent() + mFont->GetDescent());
  line.top = line.height * static_cast<float>(mLines.size());
  line.baseline = line.top + ascent;
  mLines.push_back(line);
}

float MeasuredTextLayout::GetCaretX(std::size_t line, std::size_t position) const {
  TextLine const& known = mLines[line];
  std::size_t const held = std::clamp(position, known.begin, known.end);
  return known.left + mFont->GetWidth(std::u16string_view(mText).substr(known.begin, held - known.begin));
}

std::size_t MeasuredTextLayout::GetPositionAt(std::size_t line, float x) const {
  TextLine const& known = mLines[line];
  std::size_t nearest = known.begin;
  for (std::size_t position = known.begin + 1; position <= known.end; ++position) {
    bool const splitsPair = position < mText.size() && (mText[position] & 0xFC00) == 0xDC00;
    if (!splitsPair && std::abs(x - GetCaretX(line, position)) < std::abs(x - GetCaretX(line, nearest))) {
      nearest = position;
    }
  }
  return nearest;
}

std::vector<TextSpan> MeasuredTextLayout::GetSpans(std::size_t line, std::size_t begin,
                                                   std::size_t end) const {
  TextSpan const span{.begin = GetCaretX(line, begin), .end = GetCaretX(line, end)};
  return span.begin < span.end ? std::vector{span} : std::vector<TextSpan>();
}

}  // namespace moxui::scriber
