#include "../skins/TextPainting.h"
#include "ImagePainting.h"

#include <moxui/controls/UI_PictureTextButton.h>
#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/skins/Design.h>
#include <moxui/skins/LayoutDirection.h>

#include <algorithm>
#include <cmath>

namespace moxui::controls {
namespace {

constexpr float kPictureGap = 6.0f;
constexpr float kLeastMargin = 4.0f;

}  // namespace

UI_PictureTextButton::UI_PictureTextButton() = default;

UI_PictureTextButton::~UI_PictureTextButton() = default;

ExtentT<float> UI_PictureTextButton::UI_GetRecommendedSize(scriber::Scriber* scriber) const {
  ExtentT<float> size = UI_TextButton::UI_GetRecommendedSize(scriber);
  if (scriber::ImageP const image = GetImage()) {
    size.width += image->GetWidth() + kPictureGap;
  }
  return size;
}

void UI_PictureTextButton::DrawContent(scriber::Scriber* scriber, RectT<float> const& rect,
                                       DrawButtonParameters const& parameters) const {
  scriber::ImageP const image = GetImage();
  if (!image) {
    UI_TextButton::DrawContent(scriber, rect, parameters);
    return;
  }
  ControlText const& label = GetLabel();
  scriber::FontP const font = GetControlFont(label, *this, scriber->GetSupplier());
  float const gap = label.text.empty() ? 0.0f : kPictureGap;
  float const picture = image->GetWidth();
  float const room = std::max(rect.width - 2.0f * kLeastMargin - picture - gap, 0.0f);
  float const text = font ? std::min(std::ceil(font->GetWidth(label.text)), room) : 0.0f;
  float const left = rect.left + std::floor((rect.width - picture - gap - text) / 2.0f);
  bool const isMirrored = skins::IsRightToLeft();
  float const pictureLeft = isMirrored ? left + text + gap : left;
  float const textLeft = isMirrored ? left : left + picture + gap;
  DrawImageCentered(scriber, *image, {pictureLeft, rect.top, picture, rect.height});
  if (font) {
    ColorRGBA const colour = skins::design::GetButtonColor(parameters, skins::design::ButtonProperty::kLabel);
    skins::DrawTextLine(scriber, label.text, {textLeft, rect.top, text, rect.height}, ControlAlignment::kLeft,
                        label.truncation, *font, colour);
  }
}

}  // namespace moxui::controls
