#include "../skins/TextPainting.h"
#include "ControlPainting.h"

#include <moxcore/string/Encoding.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/skins/Design.h>

#include <cmath>

namespace moxui::controls {
namespace {

constexpr float kLabelMargin = 12.0f;  // on each side of a label at the recommended width
constexpr float kLeastMargin = 4.0f;   // on each side, however narrow the button

}  // namespace

UI_TextButton::UI_TextButton() : UI_TextButton(moxcore::Utf16String()) {}

UI_TextButton::UI_TextButton(moxcore::Utf16String label) {
  mLabel.text = std::move(label);
  mLabel.alignment = ControlAlignment::kCenter;
}

UI_TextButton::~UI_TextButton() = default;

// NOLINTNEXTLINE(performance-unnecessary-value-param): callers hand their text over
void UI_TextButton::SetTextLabel(moxcore::Utf16String text) {
  StoreLabel(mLabel.text, text);
}

void UI_TextButton::SetLabelText(moxcore::Utf8String const& text) {
  SetTextLabel(moxcore::string::UTF8to16(text));
}

void UI_TextButton::SetAlignment(ControlAlignment alignment) {
  StoreVisual(mLabel.alignment, std::optional(alignment));
}

void UI_TextButton::SetTextIndent(float indent) {
  StoreVisual(mLabel.indent, indent);
}

void UI_TextButton::SetTextTruncation(TextTruncation truncation) {
  StoreVisual(mLabel.truncation, truncation);
}

void UI_TextButton::SetFontIndex(ui::FontIndex index) {
  StoreVisual(mLabel.fontIndex, index);
}

void UI_TextButton::SetFontSize(float size) {
  StoreVisual(mLabel.fontSize, size);
}

ExtentT<float> UI_TextButton::UI_GetRecommendedSize(scriber::Scriber* scriber) const {
  ExtentT<float> const base = UI_Button::UI_GetRecommendedSize(scriber);
  scriber::FontP const font = GetControlFont(mLabel, *this, scriber->GetSupplier());
  float const text = font ? std::ceil(font->GetWidth(mLabel.text)) : 0.0f;
  bool const isCompact = GetComponents().GetDensity() == ComponentDensity::kCompact;
  float const margin = isCompact ? kLabelMargin / 2.0f : kLabelMargin;
  return {text + 2.0f * margin + mLabel.indent, base.height};
}

moxcore::Utf8String UI_TextButton::UI_GetAccessibleName() const {
  return GetAccessibleNameOr(mLabel.text);
}

void UI_TextButton::DrawContent(scriber::Scriber* scriber, RectT<float> const& rect,
                                DrawButtonParameters const& parameters) const {
  scriber::FontP const font = GetControlFont(mLabel, *this, scriber->GetSupplier());
  if (!font) {
    return;
  }
  bool const fromRight = GetAlignment(mLabel) == ControlAlignment::kRight;
  float const left = kLeastMargin + (fromRight ? 0.0f : mLabel.indent);
  float const right = kLeastMargin + (fromRight ? mLabel.indent : 0.0f);
  RectT<float> const box = rect.Grown({-left, 0.0f, -right, 0.0f});
  ColorRGBA const colour = skins::design::GetButtonColor(parameters, skins::design::ButtonProperty::kLabel);
  skins::DrawTextLine(scriber, mLabel.text, box, GetAlignment(mLabel), mLabel.truncation, *font, colour);
}

}  // namespace moxui::controls
