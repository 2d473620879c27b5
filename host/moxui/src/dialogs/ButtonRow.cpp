#include <moxcore/config/Localizer.h>
#include <moxui/dialogs/ButtonRow.h>
#include <moxui/dialogs/DialogButton.h>
#include <moxui/skins/LayoutDirection.h>

#include <algorithm>
#include <array>
#include <memory>

namespace moxui::dialogs {
namespace {

using moxcore::utility::MakeIntrusive;

constexpr float kButtonGap = 8.0f;
constexpr float kButtonWidth = 80.0f;

constexpr std::array<std::pair<unsigned, char const*>, 4> kLabels = {{
    {DialogButton::kYes, "$$$/moxui/MessageBox/Yes=Yes"},
    {DialogButton::kNo, "$$$/moxui/MessageBox/No=No"},
    {DialogButton::kOk, "$$$/moxui/MessageBox/OK=OK"},
    {DialogButton::kCancel, "$$$/moxui/MessageBox/Cancel=Cancel"},
}};

}  // namespace

unsigned GetCancelAnswer(unsigned buttons) {
  for (unsigned const candidate : {DialogButton::kCancel, DialogButton::kNo, DialogButton::kOk}) {
    if ((buttons & candidate) != 0) {
      return candidate;
    }
  }
  return buttons;
}

RectT<float> PlacedInBox(RectT<float> const& rect, float boxWidth) {
  float const left = skins::IsRightToLeft() ? boxWidth - rect.Right() : rect.left;
  return {left, rect.top, rect.width, rect.height};
}

ButtonRow::ButtonRow(ui::UI_SubView& box, unsigned buttons, unsigned defaultButton,
                     Answered const& answered) {
  for (auto const& [button, label] : kLabels) {
    if ((buttons & button) == 0) {
      continue;
    }
    auto const control =
        MakeIntrusive<controls::UI_TextButton>(moxcore::config::Localizer::Get().GetUTF16String(label));
    control->SetDefaultAppearance(button == defaultButton);
    control->NotifyWhenChanged(std::make_shared<moxcore::messaging::MessageFunction>(
        [answered, answer = button](moxcore::messaging::Message*) { answered(answer); }));
    box.ChildPushBack(control);
    mButtons.emplace_back(button, control);
  }
}

float ButtonRow::Arrange(float boxWidth, float top) const {
  float right = boxWidth - kBoxPadding;
  float height = 0.0f;
  for (auto button = mButtons.rbegin(); button != mButtons.rend(); ++button) {
    auto const& control = button->second;
    ExtentT<float> const wanted = control->UI_GetRecommendedSizeFromDefaultSupplier();
    float const width = std::max(wanted.width, kButtonWidth);
    control->UI_SetLocalRectF(PlacedInBox({right - width, top, width, wanted.height}, boxWidth));
    right -= width + kButtonGap;
    height = std::max(height, wanted.height);
  }
  return height;
}

controls::UI_TextButton* ButtonRow::Find(unsigned button) const {
  auto const found = std::ranges::find(mButtons, button, [](auto const& one) { return one.first; });
  return found != mButtons.end() ? found->second.Get() : nullptr;
}

}  // namespace moxui::dialogs
