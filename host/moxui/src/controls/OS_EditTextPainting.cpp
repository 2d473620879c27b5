// How edited text looks.
#include "../skins/TextPainting.h"
#include "OS_EditTextLayout.h"

#include <moxui/controls/UI_ControlView.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/Theme.h>

#include <algorithm>
#include <cmath>
#include <string_view>

namespace moxui::controls {
namespace {

constexpr float kUnderlineGap = 1.0f;  // from the baseline to the line under an unfinished text
constexpr float kLineEndWidth = 4.0f;  // of a selected line feed
/// Of lines that are wider than this only what is seen is drawn.
constexpr float kWideLine = 4096.0f;
constexpr float kBesideWhatIsSeen = 64.0f;
constexpr char16_t kFirstOfOtherScripts = 0x0590;  // below, all is written from left to right

bool HasOtherScripts(std::u16string_view text) {
  return std::ranges::any_of(text, [](char16_t unit) { return unit >= kFirstOfOtherScripts; });
}

/// What is drawn for a line, so that it reads as it does within its paragraph: a line's own first letter
/// doesn't tell the paragraph's direction, which a mark without a width does.
moxcore::Utf16String DrawnText(std::u16string_view text, scriber::TextLine const& line) {
  std::u16string_view shown = text.substr(line.begin, line.end - line.begin);
  while (line.isWrapped && !shown.empty() && shown.back() == u' ') {
    shown.remove_suffix(1);
  }
  moxcore::Utf16String drawn(shown);
  bool const beginsParagraph = line.begin == 0 || text[line.begin - 1] == u'\n';
  if (!beginsParagraph && HasOtherScripts(text)) {
    drawn.insert(drawn.begin(), line.isRightToLeft ? u'\u200F' : u'\u200E');
  }
  return drawn;
}

}  // namespace

ColorRGBA OS_EditText::ColorOf(ui::ThemeColorID id) const {
  return ui::GetColor(UI_GetColorFromChangeMap(static_cast<unsigned>(id)));
}

// A text that is at hand shows as soon as it can be edited.
bool OS_EditText::ShowsUnknown() const {
  auto const* const control = dynamic_cast<UI_ControlView const*>(UI_GetParentNode());
  return control != nullptr && control->IsValueUnknown() && mComposition.empty() &&
         (mText.empty() || !UI_HasKeyboardFocus());
}

void OS_EditText::UI_Draw(scriber::Scriber* scriber) const {
  Laid const* const laid = Layout();
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  if (laid == nullptr || rect.IsEmpty()) {
    return;
  }
  scriber::SurfaceInterface& surface = *scriber->GetSurface();
  bool const showsUnknown = ShowsUnknown();
  bool const isEmpty = laid->text.empty();
  if (showsUnknown || (isEmpty && !mPlaceholder.empty())) {
    RectT<float> const line =
        mIsMultiLine ? RectT<float>(0.0f, 0.0f, rect.width, laid->Line(0).height) : rect;
    skins::DrawTextLine(scriber, showsUnknown ? skins::kUnknownText : std::u16string_view(mPlaceholder), line,
                        mAlignment, TextTruncation::kEnd, *laid->font,
                        ColorOf(ui::ThemeColorID::kPlaceholderText));
  }
  bool const hasFocus = UI_HasKeyboardFocus();
  bool const isComposing = !mComposition.empty();
  bool const hasSelection = !GetSelection().IsEmpty();
  if (hasFocus && hasSelection && !isComposing) {
    DrawSelection(surface, *laid);
  }
  ColorRGBA const colour = mTextColor.value_or(
      ColorOf(UI_IsDisabled() ? ui::ThemeColorID::kDefaultTextDisabled : ui::ThemeColorID::kStrongText));
  if (!showsUnknown) {
    DrawLines(surface, *laid, colour);
  }
  if (isComposing) {
    DrawCompositionLine(surface, *laid, colour);
  }
  if (hasFocus && mCaretIsLit && !mIsReadOnly && (!hasSelection || isComposing)) {
    surface.FillRect(GetCaretRect(), colour);
  }
}

void OS_EditText::DrawSelection(scriber::SurfaceInterface& surface, Laid const& laid) const {
  platform::TextSelection const selection = GetSelection();
  PointT<float> const origin = TextOrigin(laid);
  ColorRGBA const fill = ColorOf(ui::ThemeColorID::kSelectionFill);
  RectT<float> const clip = surface.GetClipBounds();
  std::size_t const last = laid.LineOf(selection.End());
  for (std::size_t line = laid.LineOf(selection.Begin()); line <= last; ++line) {
    float const baseline = Baseline(laid, line);
    float const top = mIsMultiLine ? baseline - laid.Line(line).baseline + laid.Line(line).top
                                   : std::floor(baseline - laid.font->GetAscent());
    float const bottom =
        mIsMultiLine ? top + laid.Line(line).height : std::ceil(baseline + laid.font->GetDescent());
    if (bottom <= clip.top || top >= clip.Bottom()) {
      continue;
    }
    for (scriber::TextSpan const& span : laid.layout->GetSpans(line, selection.Begin(), selection.End())) {
      surface.FillRect({origin.x + span.begin, top, span.end - span.begin, bottom - top}, fill);
    }
    scriber::TextLine const& known = laid.Line(line);
    if (!known.isWrapped && line < last) {
      float const end = origin.x + laid.layout->GetCaretX(line, known.end);
      surface.FillRect({known.isRightToLeft ? end - kLineEndWidth : end, top, kLineEndWidth, bottom - top},
                       fill);
    }
  }
}

void OS_EditText::DrawLines(scriber::SurfaceInterface& surface, Laid const& laid,
                            ColorRGBA const& colour) const {
  PointT<float> const origin = TextOrigin(laid);
  RectT<float> const clip = surface.GetClipBounds();
  auto const count = laid.layout->GetLines().size();
  for (std::size_t index = laid.LineAt(clip.top - origin.y); index < count; ++index) {
    scriber::TextLine const& line = laid.Line(index);
    if (origin.y + line.top >= clip.Bottom()) {
      break;
    }
    if (line.begin == line.end) {
      continue;
    }
    float const baseline = Baseline(laid, index);
    if (line.width <= kWideLine) {
      surface.DrawText(DrawnText(laid.text, line), {origin.x + line.left, baseline}, *laid.font, colour);
      continue;
    }
    std::size_t const a = laid.layout->GetPositionAt(index, clip.left - origin.x - kBesideWhatIsSeen);
    std::size_t const b = laid.layout->GetPositionAt(index, clip.Right() - origin.x + kBesideWhatIsSeen);
    scriber::TextLine part = line;
    part.begin = std::min(a, b);
    part.end = std::max(a, b);
    float const left =
        std::min(laid.layout->GetCaretX(index, part.begin), laid.layout->GetCaretX(index, part.end));
    surface.DrawText(DrawnText(laid.text, part), {origin.x + left, baseline}, *laid.font, colour);
  }
}

void OS_EditText::DrawCompositionLine(scriber::SurfaceInterface& surface, Laid const& laid,
                                      ColorRGBA const& colour) const {
  std::size_t const begin = GetSelection().Begin();
  std::size_t const end = begin + mComposition.size();
  PointT<float> const origin = TextOrigin(laid);
  for (std::size_t line = laid.LineOf(begin); line <= laid.LineOf(end); ++line) {
    float const top = Baseline(laid, line) + kUnderlineGap;
    for (scriber::TextSpan const& span : laid.layout->GetSpans(line, begin, end)) {
      surface.FillRect({origin.x + span.begin, top, span.end - span.begin, 1.0f}, colour);
    }
  }
}

}  // namespace moxui::controls
