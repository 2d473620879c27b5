#pragma once

#include <moxcore/string/String.h>
#include <moxui/scriber/ScriberTypes.h>
#include <moxui/scriber/TextLayoutInterface.h>

#include <string_view>
#include <vector>

namespace moxui::scriber {

/// A text in lines by the widths of its parts alone, from left to right: for fonts that only measure.
class MeasuredTextLayout final : public TextLayoutInterface {
 public:
  MeasuredTextLayout(FontP font, std::u16string_view text, float width, TextAlignment alignment);

  std::span<TextLine const> GetLines() const override { return mLines; }
  float GetCaretX(std::size_t line, std::size_t position) const override;
  std::size_t GetPositionAt(std::size_t line, float x) const override;
  std::vector<TextSpan> GetSpans(std::size_t line, std::size_t begin, std::size_t end) const override;

 private:
  std::size_t FindWrap(std::size_t begin, std::size_t end, float width) const;
  void AddLine(std::size_t begin, std::size_t end, float width, TextAlignment alignment);

  FontP mFont;
  moxcore::Utf16String mText;
  std::vector<TextLine> mLines;
};

}  // namespace moxui::scriber
