#include "../skins/TextPainting.h"
#include "../skins/TextWrapping.h"
#include "ControlPainting.h"

#include <moxcore/string/Encoding.h>
#include <moxui/controls/UI_StaticText.h>
#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/ui/UI_NodeManager.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace moxui::controls {
namespace {

RectT<float> IndentedBox(RectT<float> const& rect, ControlText const& text) {
  bool const fromRight = GetAlignment(text) == ControlAlignment::kRight;
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
  if (StoreText(&ControlText::text, std::move(text))) {
    UI_TellAccessibleChange(ui::AccessibleChange::kName);
  }
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
  // The edge at which the text stands already may be asked for by its name.
  if (std::exchange(mText.alignment, alignment).value_or(skins::GetLeadingAlignment()) != alignment) {
    UI_Invalidate();
  }
}

ControlAlignment UI_StaticText::GetAlignment() const {
  return controls::GetAlignment(mText);
}

void UI_StaticText::SetTextTruncation(TextTruncation truncation) {
  StoreText(&ControlText::truncation, truncation);
}

void UI_StaticText::SetTextIndent(float indent) {
  StoreText(&ControlText::indent, indent);
}

void UI_StaticText::SetMultiLine(bool multiLine) {
  if (std::exchange(mMultiLine, multiLine) != multiLine) {
    UI_Invalidate();
  }
}

void UI_StaticText::SetFontIndex(ui::FontIndex index) {
  StoreText(&ControlText::fontIndex, index);
}

void UI_StaticText::SetFontSize(float size) {
  StoreText(&ControlText::fontSize, size);
}

void UI_StaticText::SetBold(bool bold) {
  StoreText(&ControlText::bold, bold);
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

template <typename T>
bool UI_StaticText::StoreText(T ControlText::*field, std::type_identity_t<T> value) {
  if (mText.*field == value) {
    return false;
  }
  mText.*field = std::move(value);
  UI_Invalidate();
  return true;
}

void UI_StaticText::UI_Draw(scriber::Scriber* scriber) const {
  skins::ControlLook const look = GetControlLook(*this);
  if (scriber::FontP const font = GetControlFont(mText, *this, scriber->GetSupplier())) {
    bool const isMuted = look.isUnknown || look.IsDisabled();
    ColorRGBA const colour = mCustomColor.value_or(
        look.Color(isMuted ? ui::ThemeColorID::kDefaultTextDisabled : ui::ThemeColorID::kDefaultText));
    RectT<float> const box = IndentedBox(UI_GetLocalRectF(ui::RectSpace::kOwn), mText);
    std::u16string_view const shown = look.isUnknown ? skins::kUnknownText : std::u16string_view(mText.text);
    if (!mMultiLine) {
      skins::DrawTextLine(scriber, shown, box, GetAlignment(), mText.truncation, *font, colour);
    } else {
      RectT<float> line(box.left, box.top, box.width, skins::GetLineHeight(*font));
      for (std::u16string_view const text : skins::WrapText(shown, box.width, *font)) {
        skins::DrawTextLine(scriber, text, line, GetAlignment(), TextTruncation::kEnd, *font, colour);
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
