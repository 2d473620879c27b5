#pragma once

#include <moxui/scriber/ScriberTypes.h>
#include <moxui/scriber/TextLayoutInterface.h>

#include <QtGui/QTextLayout>
#include <memory>
#include <string_view>
#include <vector>

namespace moxui::qt {

/// A text in lines of one height, each paragraph laid out by Qt at one pixel to the logical pixel.
class RasterTextLayout final : public scriber::TextLayoutInterface {
 public:
  /// The font is one for the measuring device. A width of 0 or less wraps nothing.
  RasterTextLayout(QFont const& font, float ascent, float descent, std::u16string_view text, float width,
                   scriber::TextAlignment alignment);

  std::span<scriber::TextLine const> GetLines() const override { return mLines; }
  float GetCaretX(std::size_t line, std::size_t position) const override;
  std::size_t GetPositionAt(std::size_t line, float x) const override;
  std::vector<scriber::TextSpan> GetSpans(std::size_t line, std::size_t begin,
                                          std::size_t end) const override;

 private:
  struct Paragraph {
    std::size_t begin = 0;
    std::unique_ptr<QTextLayout> layout;
  };
  /// Whose line it is.
  struct Place {
    std::size_t paragraph = 0;
    int line = 0;
  };

  void AddParagraph(QFont const& font, std::u16string_view text, std::size_t begin, float width,
                    scriber::TextAlignment alignment);
  Paragraph const& ParagraphOf(std::size_t line) const { return mParagraphs[mPlaces[line].paragraph]; }
  QTextLine LineOf(std::size_t line) const;

  float mAscent;
  float mHeight;
  std::vector<Paragraph> mParagraphs;
  std::vector<scriber::TextLine> mLines;
  std::vector<Place> mPlaces;
};

}  // namespace moxui::qt
