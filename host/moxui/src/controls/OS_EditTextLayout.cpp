// Where edited text lies.
#include "OS_EditTextLayout.h"

#include "../skins/TextPainting.h"

#include <moxui/scriber/FontNames.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/skins/ThemeClient.h>
#include <moxui/ui/UI_NodeManager.h>

#include <algorithm>
#include <cmath>

namespace moxui::controls {

std::size_t OS_EditText::Laid::LineOf(std::size_t position) const {
  auto const lines = layout->GetLines();
  auto const next = std::ranges::upper_bound(lines, position, {}, &scriber::TextLine::begin);
  return next == lines.begin() ? 0 : static_cast<std::size_t>(next - lines.begin()) - 1;
}

std::size_t OS_EditText::Laid::LineAt(float y) const {
  auto const lines = layout->GetLines();
  float const line = std::floor(y / lines.front().height);
  auto const last = static_cast<float>(lines.size() - 1);
  return line > 0.0f ? static_cast<std::size_t>(std::min(line, last)) : 0;
}

// The end of a wrapped line is the begin of the next.
std::size_t OS_EditText::Laid::LastPlaceIn(std::size_t line) const {
  scriber::TextLine const& known = Line(line);
  if (!known.isWrapped || known.end <= known.begin + 1) {
    return known.end;
  }
  std::size_t const last = known.end - 1;
  bool const splitsPair = (text[last] & 0xFC00) == 0xDC00 && last > known.begin + 1;
  return splitsPair ? last - 1 : last;
}

float OS_EditText::Laid::Height() const {
  scriber::TextLine const& last = layout->GetLines().back();
  return last.top + last.height;
}

scriber::FontP OS_EditText::Font() const {
  auto const* const manager = ui::UI_NodeManager::Get(false);
  auto const* const supplier = manager != nullptr ? manager->GetDefaultDrawSupplier() : nullptr;
  if (supplier == nullptr) {
    return nullptr;
  }
  float size = mFontSize;
  if (!(size > 0.0f)) {
    auto const* const client = dynamic_cast<ui::ThemeClient const*>(UI_GetParentNode());
    size = client != nullptr ? client->GetThemeFontSize(ui::FontIndex::kText)
                             : ui::GetFontSize(ui::FontIndex::kText);
  }
  moxcore::Utf8String const& name = mFontName.empty() ? GetDefaultFontName() : mFontName;
  return supplier->NewFont(utils::ValidateFontName(name), mFontStyle, size);
}

moxcore::Utf16String OS_EditText::ShownText() const {
  if (mComposition.empty()) {
    return mText;
  }
  platform::TextSelection const selection = GetSelection();
  return mText.substr(0, selection.Begin()) + mComposition + mText.substr(selection.End());
}

std::size_t OS_EditText::ShownCaret() const {
  platform::TextSelection const selection = GetSelection();
  return mComposition.empty() ? selection.caret : selection.Begin() + mCompositionCaret;
}

float OS_EditText::Room() const {
  return UI_GetLocalRectF(ui::RectSpace::kOwn).width - kCaretWidth;
}

OS_EditText::Laid const* OS_EditText::Layout() const {
  scriber::FontP font = Font();
  if (!font) {
    return nullptr;
  }
  moxcore::Utf16String text = ShownText();
  float const width = mIsMultiLine ? std::max(Room(), 1.0f) : 0.0f;
  bool const isKnown = mLaid && mLaid->text == text && mLaid->font == font && mLaid->width == width &&
                       mLaid->alignment == mAlignment;
  if (!isKnown) {
    scriber::TextLayoutP layout = font->NewTextLayout(text, width, mAlignment);
    if (!layout) {
      return nullptr;
    }
    mLaid = std::make_unique<Laid>(Laid{.text = std::move(text),
                                        .font = std::move(font),
                                        .width = width,
                                        .alignment = mAlignment,
                                        .layout = std::move(layout)});
  }
  return mLaid.get();
}

// A text that doesn't fit begins at its begin until it is edited.
float OS_EditText::SidewaysScroll(Laid const& laid) const {
  if (UI_HasKeyboardFocus()) {
    return mScroll.x;
  }
  scriber::TextLine const& line = laid.Line(0);
  return line.isRightToLeft ? std::ceil(std::max(line.width - Room(), 0.0f)) : 0.0f;
}

// One line is centred in the height; one that fits is aligned, a longer one moved by the scroll.
PointT<float> OS_EditText::TextOrigin(Laid const& laid) const {
  if (mIsMultiLine) {
    return {0.0f, -mScroll.y};
  }
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  scriber::TextLine const& line = laid.Line(0);
  float const top = skins::GetCenteredBaseline(rect, *laid.font) - line.baseline;
  float const spare = Room() - line.width;
  if (spare < 0.0f) {
    return {-SidewaysScroll(laid), top};
  }
  switch (mAlignment) {
    case ControlAlignment::kLeft:
      return {0.0f, top};
    case ControlAlignment::kCenter:
      return {std::round(spare / 2.0f), top};
    case ControlAlignment::kRight:
      return {std::round(spare), top};
  }
  return {0.0f, top};
}

float OS_EditText::Baseline(Laid const& laid, std::size_t line) const {
  return std::round(TextOrigin(laid).y + laid.Line(line).baseline);
}

void OS_EditText::KeepCaretInSight() {
  Laid const* const laid = Layout();
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  float const room = Room();
  if (laid == nullptr || room <= 0.0f) {
    return;
  }
  std::size_t const line = laid->LineOf(ShownCaret());
  if (mIsMultiLine) {
    scriber::TextLine const& caretLine = laid->Line(line);
    float const least = std::max(caretLine.top + caretLine.height - rect.height, 0.0f);
    float const most = std::max(caretLine.top, least);
    mScroll.y = std::round(std::clamp(mScroll.y, least, most));
    TellScrolled();
    return;
  }
  float const caret = laid->layout->GetCaretX(0, ShownCaret());
  float const most = std::max(laid->Line(0).width - room, 0.0f);
  float const least = std::max(caret - room, 0.0f);
  mScroll.x =
      std::round(std::clamp(std::clamp(mScroll.x, least, std::max(caret, least)), 0.0f, std::ceil(most)));
}

void OS_EditText::TellScrolled() {
  if (mScrolled) {
    mScrolled();
  }
}

float OS_EditText::GetContentHeight() const {
  Laid const* const laid = Layout();
  return laid != nullptr ? laid->Height() : 0.0f;
}

void OS_EditText::SetScrollOffset(float offset) {
  float const most = std::max(GetContentHeight() - UI_GetLocalRectF(ui::RectSpace::kOwn).height, 0.0f);
  float const held = mIsMultiLine && offset > 0.0f ? std::round(std::min(offset, most)) : 0.0f;
  if (held != mScroll.y) {
    mScroll.y = held;
    UI_Invalidate();
    TellScrolled();
  }
}

RectT<float> OS_EditText::GetCaretRect() const {
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  Laid const* const laid = Layout();
  if (laid == nullptr) {
    return {0.0f, 0.0f, kCaretWidth, rect.height};
  }
  std::size_t const position = ShownCaret();
  std::size_t const line = laid->LineOf(position);
  float const baseline = Baseline(*laid, line);
  float const top = std::floor(baseline - laid->font->GetAscent());
  float const bottom = std::ceil(baseline + laid->font->GetDescent());
  float x = std::round(TextOrigin(*laid).x + laid->layout->GetCaretX(line, position));
  if (mIsMultiLine) {
    x = std::clamp(x, 0.0f, std::max(rect.width - kCaretWidth, 0.0f));  // blanks hang over the end
  }
  return {x, top, kCaretWidth, bottom - top};
}

std::size_t OS_EditText::GetPositionAt(PointT<float> point) const {
  Laid const* const laid = Layout();
  if (laid == nullptr) {
    return 0;
  }
  PointT<float> const inText = point - TextOrigin(*laid);
  std::size_t const line = laid->LineAt(inText.y);
  return std::min({laid->layout->GetPositionAt(line, inText.x), laid->LastPlaceIn(line), mText.size()});
}

RectT<float> OS_EditText::GetCharacterRect(std::size_t position) const {
  Laid const* const laid = Layout();
  if (laid == nullptr || position >= mText.size()) {
    return GetCaretRect();
  }
  std::size_t const line = laid->LineOf(position);
  auto const spans = laid->layout->GetSpans(line, position, position + 1);
  scriber::TextSpan const span = spans.empty() ? scriber::TextSpan{} : spans.front();
  PointT<float> const origin = TextOrigin(*laid);
  scriber::TextLine const& known = laid->Line(line);
  return {origin.x + span.begin, origin.y + known.top, span.end - span.begin, known.height};
}

}  // namespace moxui::controls
