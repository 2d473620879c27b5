#include "../skins/TextPainting.h"
#include "../skins/TextWrapping.h"
#include "ControlPainting.h"

#include <moxcore/string/Encoding.h>
#include <moxui/controls/UI_StaticText.h>
#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/ui/UI_NodeManager.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace moxui::controls {
namespace {

constexpr std::u16string_view kUnknownText = u"\u2013";

RectT<float> IndentedBox(RectT<float> const& rect, ControlText const& text) {
  bool const fromRight = text.alignment == ControlAlignment::kRight;
  return rect.Grown({fromRight ? 0.0f : -text.indent, 0.0f, fromRight ? -text.indent : 0.0f, 0.0f});
}

}  // namespace

UI_StaticText::UI_StaticText() = default;

UI_StaticText::UI_StaticText(moxcore::Utf16String text) {
  mText.text = std::move(text);
}

UI_StaticText::~UI_StaticText() = default;

void UI_StaticText::SetValue(moxcore::Utf16String text) {
  SetValueKnown();
  ControlText changed = mText;
  changed.text = std::move(text);
  StoreText(std::move(changed));
}

void UI_StaticText::SetLabelText(moxcore::Utf8String const& text) {
  SetValue(moxcore::string::UTF8to16(text));
}

float UI_StaticText::GetTextWidth() const {
  auto const* const manager = ui::UI_NodeManager::Get(false);
  scriber::FontP const font =
      GetControlFont(mText, *this, manager != nullptr ? manager->GetDefaultDrawSupplier() : nullptr);
  return font && !mText.text.empty() ? font->GetWidth(mText.text) : 0.0f;
}

void UI_StaticText::SetAlignment(ControlAlignment alignment) {
  ControlText changed = mText;
  changed.alignment = alignment;
  StoreText(std::move(changed));
}

void UI_StaticText::SetTextTruncation(TextTruncation truncation) {
  ControlText changed = mText;
  changed.truncation = truncation;
  StoreText(std::move(changed));
}

void UI_StaticText::SetTextIndent(float indent) {
  ControlText changed = mText;
  changed.indent = indent;
  StoreText(std::move(changed));
}

void UI_StaticText::SetMultiLine(bool multiLine) {
  if (std::exchange(mMultiLine, multiLine) != multiLine) {
    UI_Invalidate();
  }
}

void UI_StaticText::SetFontIndex(ui::FontIndex index) {
  ControlText changed = mText;
  changed.fontIndex = index;
  StoreText(std::move(changed));
}

void UI_StaticText::SetFontSize(float size) {
  ControlText changed = mText;
  changed.fontSize = size;
  StoreText(std::move(changed));
}

void UI_StaticText::SetBold(bool bold) {
  ControlText changed = mText;
  changed.bold = bold;
  StoreText(std::move(changed));
}

void UI_StaticText::SetCustomTextColor(ColorRGBA const& colour) {
  if (std::exchange(mCustomColor, colour) != colour) {
    UI_Invalidate();
  }
}

void UI_StaticText::ClearCustomTextColor() {
  if (std::exchange(mCustomColor, std::nullopt)) {
    UI_Invalidate();
  }
}

void UI_StaticText::StoreText(ControlText text) {
  if (!(text == mText)) {
    bool const isOtherText = text.text != mText.text;
    mText = std::move(text);
    UI_Invalidate();
    if (isOtherText) {
      UI_TellAccessibleChange(ui::AccessibleChange::kName);
    }
  }
}

void UI_StaticText::UI_Draw(scriber::Scriber* scriber) const {
  skins::ControlLook const look = GetControlLook(*this);
  if (scriber::FontP const font = GetControlFont(mText, *this, scriber->GetSupplier())) {
    bool const isMuted = look.isUnknown || look.IsDisabled();
    ColorRGBA const colour = mCustomColor.value_or(
        look.Color(isMuted ? ui::ThemeColorID::kDefaultTextDisabled : ui::ThemeColorID::kDefaultText));
    RectT<float> const box = IndentedBox(UI_GetLocalRectF(ui::RectSpace::kOwn), mText);
    std::u16string_view const shown = look.isUnknown ? kUnknownText : std::u16string_view(mText.text);
    if (!mMultiLine) {
      skins::DrawTextLine(scriber, shown, box, mText.alignment, mText.truncation, *font, colour);
    } else {
      RectT<float> line(box.left, box.top, box.width, skins::GetLineHeight(*font));
      for (std::u16string_view const text : skins::WrapText(shown, box.width, *font)) {
        skins::DrawTextLine(scriber, text, line, mText.alignment, TextTruncation::kEnd, *font, colour);
        line.top += line.height;
      }
    }
  }
  UI_ControlView::UI_Draw(scriber);
}

ExtentT<float> UI_StaticText::UI_GetRecommendedSize(scriber::Scriber* scriber) const {
  scriber::FontP const font = GetControlFont(mText, *this, scriber->GetSupplier());
  if (!font) {
    return {};
  }
  float const lineHeight = skins::GetLineHeight(*font);
  if (!mMultiLine) {
    return {mText.text.empty() ? 0.0f : font->GetWidth(mText.text) + mText.indent, lineHeight};
  }
  RectT<float> const box = IndentedBox(UI_GetLocalRectF(ui::RectSpace::kOwn), mText);
  float const width = box.width > 0.0f ? box.width : std::numeric_limits<float>::max();
  float widest = 0.0f;
  auto const lines = skins::WrapText(mText.text, width, *font);
  for (std::u16string_view const line : lines) {
    widest = std::max(widest, font->GetWidth(line));
  }
  auto const count = static_cast<float>(std::max<std::size_t>(lines.size(), 1));
  return {widest + mText.indent, lineHeight * count};
}

ui::AccessibleRole UI_StaticText::UI_GetAccessibleRole() const {
  return ui::AccessibleRole::kStaticText;
}

moxcore::Utf8String UI_StaticText::UI_GetAccessibleName() const {
  return GetAccessibleNameOr(mText.text);
}

}  // namespace moxui::controls
