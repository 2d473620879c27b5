#include "../skins/BoxPainting.h"

#include <moxui/controls/UI_OutlineBox.h>

#include <algorithm>

namespace moxui::controls {
namespace {

using ui::ThemeColorID;

}  // namespace

UI_OutlineBox::UI_OutlineBox() = default;
UI_OutlineBox::~UI_OutlineBox() = default;

template <typename T>
void UI_OutlineBox::StoreVisual(T& field, T const& value) {
  if (field != value) {
    field = value;
    UI_Invalidate();
  }
}

void UI_OutlineBox::SetChromeType(ChromeType type) {
  StoreVisual(mChromeType, type);
}

void UI_OutlineBox::SetCornerRadius(std::optional<float> radius) {
  StoreVisual(mCornerRadius, radius);
}

void UI_OutlineBox::SetStrokeSize1(float size) {
  StoreVisual(mStrokeSize1, size);
}

void UI_OutlineBox::SetStrokeSize2(float size) {
  StoreVisual(mStrokeSize2, size);
}

void UI_OutlineBox::UI_Draw(scriber::Scriber* scriber) const {
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  if (!rect.IsEmpty() && mChromeType != ChromeType::kNone) {
    float const radius =
        mCornerRadius.value_or(UI_GetCurrentSkinSet().GetNumber(skins::SkinNumber::kCornerRadius));
    if (mChromeType == ChromeType::kFilled) {
      skins::FillBox(scriber, rect, radius, GetColor(ThemeColorID::kTabBackground));
    }
    skins::FrameBox(scriber, rect, radius, GetColor(ThemeColorID::kTableEdgeLine), mStrokeSize1);
    float const outer = std::max(mStrokeSize1, 0.0f);
    skins::FrameBox(scriber, rect.Inset(outer), std::max(radius - outer, 0.0f),
                    GetColor(ThemeColorID::kTableGridLine), mStrokeSize2);
  }
  UI_SubView::UI_Draw(scriber);
}

}  // namespace moxui::controls
