#include "TextWrapping.h"

#include <moxui/scriber/FontInterface.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace moxui::skins {
namespace {

std::u16string_view WithoutTrailingBlanks(std::u16string_view line) {
  while (!line.empty() && line.back() == u' ') {
    line.remove_suffix(1);
  }
  return line;
}

// Takes the first line of a paragraph that has no line feeds.
std::u16string_view TakeLine(std::u16string_view& paragraph, float width,
                             scriber::FontInterface const& font) {
  std::size_t end = 0;
  while (end < paragraph.size()) {
    std::size_t const wordBegin = std::min(paragraph.find_first_not_of(u' ', end), paragraph.size());
    std::size_t const wordEnd = std::min(paragraph.find(u' ', wordBegin), paragraph.size());
    if (end > 0 && font.GetWidth(WithoutTrailingBlanks(paragraph.substr(0, wordEnd))) > width) {
      break;
    }
    end = wordEnd;
  }
  std::u16string_view const line = WithoutTrailingBlanks(paragraph.substr(0, end));
  std::size_t const next = std::min(paragraph.find_first_not_of(u' ', end), paragraph.size());
  paragraph.remove_prefix(next);
  return line;
}

}  // namespace

std::vector<std::u16string_view> WrapText(std::u16string_view text, float width,
                                          scriber::FontInterface const& font) {
  std::vector<std::u16string_view> lines;
  std::size_t begin = 0;
  while (begin <= text.size() && !text.empty()) {
    std::size_t const end = std::min(text.find(u'\n', begin), text.size());
    std::u16string_view paragraph = text.substr(begin, end - begin);
    do {
      lines.push_back(TakeLine(paragraph, width, font));
    } while (!paragraph.empty());
    begin = end + 1;
  }
  return lines;
}

float GetLineHeight(scriber::FontInterface const& font) {
  return std::ceil(font.GetAscent() + font.GetDescent());
}

}  // namespace moxui::skins
