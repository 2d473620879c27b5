#include "qt/raster/RasterTextLayout.h"

#include "qt/raster/RasterFont.h"

#include <QtGui/QGlyphRun>
#include <algorithm>
#include <cmath>

namespace moxui::qt {

namespace {

constexpr double kEndless = 1e7;

Qt::Alignment AlignmentOf(scriber::TextAlignment alignment) {
  switch (alignment) {
    case scriber::TextAlignment::kCenter:
      return Qt::AlignHCenter;
    case scriber::TextAlignment::kRight:
      return Qt::AlignRight | Qt::AlignAbsolute;
    case scriber::TextAlignment::kLeft:
      break;
  }
  return Qt::AlignLeft | Qt::AlignAbsolute;
}

}  // namespace

RasterTextLayout::RasterTextLayout(QFont const& font, float ascent, float descent, std::u16string_view text,
                                   float width, scriber::TextAlignment alignment)
    : mAscent(std::ceil(ascent)), mHeight(std::ceil(ascent + descent)) {
  std::size_t begin = 0;
  while (begin <= text.size()) {
    std::size_t const end = std::min(text.find(u'\n', begin), text.size());
    AddParagraph(font, text.substr(begin, end - begin), begin, width, alignment);
    begin = end + 1;
  }
}

void RasterTextLayout::AddParagraph(QFont const& font, std::u16string_view text, std::size_t begin,
                                    float width, scriber::TextAlignment alignment) {
  bool const wraps = width > 0.0f;
  QTextOption option = TextOptionFor(1.0);
  option.setWrapMode(wraps ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
  if (wraps) {
    option.setFlags({});  // blanks hang over the end of a wrapped line
  }
  option.setAlignment(wraps ? AlignmentOf(alignment) : Qt::AlignLeft | Qt::AlignAbsolute);
  auto layout = std::make_unique<QTextLayout>(
      QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())), font);
  layout->setTextOption(option);
  layout->setCacheEnabled(true);
  layout->beginLayout();
  for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
    line.setLineWidth(wraps ? static_cast<double>(width) : kEndless);
    line.setPosition({0, 0});
  }
  layout->endLayout();
  // A mark of a direction alone makes a line of that direction, as it will be for what is typed behind it.
  bool const isRightToLeft = layout->text().isRightToLeft();
  int const count = std::max(layout->lineCount(), 1);
  for (int i = 0; i < count; ++i) {
    scriber::TextLine line{.begin = begin, .end = begin, .isRightToLeft = isRightToLeft};
    if (i < layout->lineCount()) {
      QTextLine const made = layout->lineAt(i);
      line.begin += static_cast<std::size_t>(made.textStart());
      line.end = line.begin + static_cast<std::size_t>(made.textLength());
      line.isWrapped = i + 1 < layout->lineCount();
      QRectF const seen = made.naturalTextRect();
      line.left = static_cast<float>(seen.left());
      line.width = static_cast<float>(seen.width());
    }
    line.top = mHeight * static_cast<float>(mLines.size());
    line.height = mHeight;
    line.baseline = line.top + mAscent;
    mLines.push_back(line);
    mPlaces.push_back({.paragraph = mParagraphs.size(), .line = i});
  }
  mParagraphs.push_back({.begin = begin, .layout = std::move(layout)});
}

QTextLine RasterTextLayout::LineOf(std::size_t line) const {
  QTextLayout const& layout = *ParagraphOf(line).layout;
  int const index = mPlaces[line].line;
  return index < layout.lineCount() ? layout.lineAt(index) : QTextLine();
}

float RasterTextLayout::GetCaretX(std::size_t line, std::size_t position) const {
  scriber::TextLine const& known = mLines[line];
  QTextLine const made = LineOf(line);
  if (!made.isValid()) {
    return known.left;
  }
  std::size_t const held = std::clamp(position, known.begin, known.end);
  return static_cast<float>(made.cursorToX(static_cast<int>(held - ParagraphOf(line).begin)));
}

std::size_t RasterTextLayout::GetPositionAt(std::size_t line, float x) const {
  scriber::TextLine const& known = mLines[line];
  QTextLine const made = LineOf(line);
  if (!made.isValid()) {
    return known.begin;
  }
  auto const found = static_cast<std::size_t>(std::max(made.xToCursor(static_cast<double>(x)), 0));
  return std::clamp(ParagraphOf(line).begin + found, known.begin, known.end);
}

namespace {

bool HasBothDirections(QStringView text) {
  bool hasLeftToRight = false;
  bool hasRightToLeft = false;
  for (QChar const unit : text) {
    QChar::Direction const direction = unit.direction();
    hasRightToLeft = hasRightToLeft || direction == QChar::DirR || direction == QChar::DirAL;
    hasLeftToRight = hasLeftToRight || direction == QChar::DirL || direction == QChar::DirEN ||
                     direction == QChar::DirAN || unit.isSurrogate();
  }
  return hasLeftToRight && hasRightToLeft;
}

scriber::TextSpan SpanOf(double a, double b) {
  return {.begin = static_cast<float>(std::min(a, b)), .end = static_cast<float>(std::max(a, b))};
}

/// From left to right, those that touch as one.
std::vector<scriber::TextSpan> Joined(std::vector<scriber::TextSpan> spans) {
  constexpr float kGap = 0.05f;
  std::ranges::sort(spans, {}, &scriber::TextSpan::begin);
  std::vector<scriber::TextSpan> joined;
  for (scriber::TextSpan const& span : spans) {
    if (!joined.empty() && span.begin <= joined.back().end + kGap) {
      joined.back().end = std::max(joined.back().end, span.end);
    } else {
      joined.push_back(span);
    }
  }
  return joined;
}

}  // namespace

std::vector<scriber::TextSpan> RasterTextLayout::GetSpans(std::size_t line, std::size_t begin,
                                                          std::size_t end) const {
  scriber::TextLine const& known = mLines[line];
  QTextLine const made = LineOf(line);
  std::size_t const first = ParagraphOf(line).begin;
  std::size_t const from = std::max(begin, known.begin);
  std::size_t const to = std::min(end, known.end);
  if (from >= to || !made.isValid()) {
    return {};
  }
  QStringView const text =
      QStringView(ParagraphOf(line).layout->text())
          .mid(static_cast<qsizetype>(known.begin - first), static_cast<qsizetype>(known.end - known.begin));
  if (!HasBothDirections(text)) {
    return {SpanOf(static_cast<double>(GetCaretX(line, from)), static_cast<double>(GetCaretX(line, to)))};
  }
  std::vector<scriber::TextSpan> spans;
  for (QGlyphRun const& run : made.glyphRuns(static_cast<int>(from - first), static_cast<int>(to - from))) {
    QRectF const seen = run.boundingRect();
    spans.push_back(SpanOf(seen.left(), seen.right()));
  }
  return Joined(std::move(spans));
}

}  // namespace moxui::qt
