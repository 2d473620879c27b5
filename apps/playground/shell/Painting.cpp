#include "shell/Painting.h"

#include "program/AppearanceState.h"

#include <moxui/scriber/Drawing.h>
#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/skins/Look.h>
#include <moxui/skins/Theme.h>

namespace playground {

using moxui::ColorRGBA;
using moxui::RectT;
using moxui::scriber::TextAlignment;
using moxui::ui::FontIndex;

namespace {
constexpr float kRingWidth = 2.0f;
}

float ControlHeight() {
  return moxui::skins::IsRunningV7OrBeyond() ? 24.0f : 20.0f;
}

TextAlignment Leading() {
  return CurrentAppearance().rightToLeft ? TextAlignment::kRight : TextAlignment::kLeft;
}

TextAlignment Trailing() {
  return CurrentAppearance().rightToLeft ? TextAlignment::kLeft : TextAlignment::kRight;
}

RectT<float> Placed(RectT<float> const& rect, float width) {
  if (!CurrentAppearance().rightToLeft) {
    return rect;
  }
  return {width - rect.Right(), rect.top, rect.width, rect.height};
}

ColorRGBA ThemeColor(moxui::ui::ThemeColorID id) {
  return moxui::ui::GetColor(id);
}

void DrawLabel(moxui::scriber::Scriber* scriber, std::u16string_view text, RectT<float> const& box,
               TextAlignment alignment, FontIndex font, ColorRGBA const& color) {
  std::string_view const style = font == FontIndex::kTitle ? "Bold" : "";
  auto const made =
      scriber->GetSupplier()->NewFont(moxui::ui::GetFontName(font), style, moxui::ui::GetFontSize(font));
  if (made) {
    moxui::utils::DrawString(scriber, text, box, alignment, *made, color);
  }
}

float LabelWidth(std::u16string_view text, FontIndex font) {
  std::string_view const style = font == FontIndex::kTitle ? "Bold" : "";
  auto const made = moxui::scriber::GetRasterSupplier()->NewFont(moxui::ui::GetFontName(font), style,
                                                                 moxui::ui::GetFontSize(font));
  return made ? made->GetWidth(text) : 0.0f;
}

void DrawFocusRing(moxui::scriber::Scriber* scriber, RectT<float> const& rect) {
  moxui::utils::DrawOutline(scriber, rect.Inset(-kFocusReach + kRingWidth / 2.0f),
                            ThemeColor(moxui::ui::ThemeColorID::kFocus), kRingWidth);
}

void DrawInnerFocusRing(moxui::scriber::Scriber* scriber, RectT<float> const& rect) {
  moxui::utils::DrawOutline(scriber, rect.Inset(kRingWidth / 2.0f),
                            ThemeColor(moxui::ui::ThemeColorID::kFocus), kRingWidth);
}

}  // namespace playground
