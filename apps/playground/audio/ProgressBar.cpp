#include "audio/ProgressBar.h"

#include "program/Localized.h"
#include "shell/Painting.h"

#include <moxui/scriber/Drawing.h>

#include <cmath>

namespace playground {

void ProgressBar::SetFraction(double fraction) {
  if (fraction != mFraction) {
    mFraction = fraction;
    UI_Invalidate();
    UI_TellAccessibleChange(moxui::ui::AccessibleChange::kValue);
  }
}

void ProgressBar::UI_Draw(moxui::scriber::Scriber* scriber) const {
  constexpr float kHeight = 4.0f;
  using moxui::ui::ThemeColorID;
  moxui::RectT<float> const own = UI_GetLocalRectF(false);
  moxui::RectT<float> const track{0.0f, std::floor((own.height - kHeight) / 2.0f), own.width, kHeight};
  moxui::utils::DrawRect(scriber, track, ThemeColor(ThemeColorID::kGray4));
  moxui::RectT<float> done = track;
  done.width *= static_cast<float>(mFraction);
  moxui::utils::DrawRect(scriber, Placed(done, own.width), ThemeColor(ThemeColorID::kInteractive));
}

moxui::ui::AccessibleRole ProgressBar::UI_GetAccessibleRole() const {
  return moxui::ui::AccessibleRole::kProgress;
}

moxcore::Utf8String ProgressBar::UI_GetAccessibleValue() const {
  // Not 100 before all is there.
  int const percent = static_cast<int>(std::floor(mFraction * 100.0));
  return moxcore::Utf8String(Text("$$$/playground/progress/value=@0 %", {std::to_string(percent)}));
}

std::optional<moxui::ui::AccessibleRange> ProgressBar::UI_GetAccessibleRange() const {
  return moxui::ui::AccessibleRange{.value = mFraction};
}

}  // namespace playground
