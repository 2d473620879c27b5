#include "MessageBoxView.h"

#include <moxcore/config/Localizer.h>
#include <moxcore/string/Encoding.h>
#include <moxui/scriber/Drawing.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/CircleDrawing.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/skins/Theme.h>
#include <moxui/ui/KeyboardEvent.h>

#include <algorithm>
#include <cmath>

namespace moxui::dialogs {
namespace {

using messagebox::MessageIcon;
using moxcore::utility::MakeIntrusive;

constexpr float kPadding = 16.0f;
constexpr float kGap = 12.0f;
constexpr float kButtonGap = 8.0f;
constexpr float kButtonWidth = 80.0f;
constexpr float kTextWidth = 320.0f;
constexpr float kIconSize = 32.0f;
constexpr float kIconFontSize = 20.0f;

char16_t const* SignOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kNone:
      return u"";
    case MessageIcon::kNote:
      return u"i";
    case MessageIcon::kQuestion:
      return u"?";
    case MessageIcon::kStop:
      return u"!";
  }
  return u"";
}

}  // namespace

unsigned GetCancelAnswer(unsigned buttons) {
  for (unsigned const candidate : {DialogButton::kCancel, DialogButton::kNo, DialogButton::kOk}) {
    if ((buttons & candidate) != 0) {
      return candidate;
    }
  }
  return buttons;
}

MessageBoxView::MessageBoxView(MessageBoxContent content, std::function<void(unsigned)> answered)
    : mContent(std::move(content)),
      mAnswered(std::move(answered)),
      mText(MakeIntrusive<controls::UI_StaticText>(mContent.text)) {
  mText->SetMultiLine(true);
  ChildPushBack(mText);
  AddButton(DialogButton::kYes, "$$$/moxui/MessageBox/Yes=Yes");
  AddButton(DialogButton::kNo, "$$$/moxui/MessageBox/No=No");
  AddButton(DialogButton::kOk, "$$$/moxui/MessageBox/OK=OK");
  AddButton(DialogButton::kCancel, "$$$/moxui/MessageBox/Cancel=Cancel");
  Arrange();
}

MessageBoxView::~MessageBoxView() = default;

void MessageBoxView::AddButton(unsigned button, char const* label) {
  if ((mContent.buttons & button) == 0) {
    return;
  }
  auto const control =
      MakeIntrusive<controls::UI_TextButton>(moxcore::config::Localizer::Get().GetUTF16String(label));
  control->SetDefaultAppearance(button == mContent.defaultButton);
  control->NotifyWhenChanged(std::make_shared<moxcore::messaging::MessageFunction>(
      [this, button](moxcore::messaging::Message*) { mAnswered(button); }));
  ChildPushBack(control);
  mButtons.emplace_back(button, control);
}

RectT<float> MessageBoxView::Placed(RectT<float> const& rect) const {
  float const left = skins::IsRightToLeft() ? mExtent.width - rect.Right() : rect.left;
  return {left, rect.top, rect.width, rect.height};
}

void MessageBoxView::Arrange() {
  float const iconRoom = mContent.icon == MessageIcon::kNone ? 0.0f : kIconSize + kGap;
  mText->UI_SetLocalRectF({kPadding + iconRoom, kPadding, kTextWidth, 0.0f});
  ExtentT<float> const text = mText->UI_GetRecommendedSizeFromDefaultSupplier();
  float const body = std::max(std::ceil(text.height), iconRoom > 0.0f ? kIconSize : 0.0f);
  // A short text stands beside the middle of the icon.
  float const textTop = kPadding + std::floor((body - std::ceil(text.height)) / 2.0f);
  float const width = kPadding + iconRoom + kTextWidth + kPadding;
  mExtent.width = width;
  mText->UI_SetLocalRectF(Placed({kPadding + iconRoom, textTop, kTextWidth, std::ceil(text.height)}));
  float const buttonTop = kPadding + body + kPadding;
  float right = width - kPadding;
  float height = 0.0f;
  for (auto button = mButtons.rbegin(); button != mButtons.rend(); ++button) {
    ExtentT<float> const wanted = button->second->UI_GetRecommendedSizeFromDefaultSupplier();
    float const buttonWidth = std::max(wanted.width, kButtonWidth);
    button->second->UI_SetLocalRectF(Placed({right - buttonWidth, buttonTop, buttonWidth, wanted.height}));
    right -= buttonWidth + kButtonGap;
    height = wanted.height;
  }
  mExtent.height = buttonTop + height + kPadding;
}

void MessageBoxView::FocusDefaultButton() {
  for (auto const& [button, control] : mButtons) {
    if (button == mContent.defaultButton) {
      control->UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
    }
  }
}

void MessageBoxView::UI_Draw(scriber::Scriber* scriber) const {
  scriber->GetSurface()->FillRect(UI_GetLocalRectF(ui::RectSpace::kOwn),
                                  GetColor(ui::ThemeColorID::kTabBackground));
  if (mContent.icon != MessageIcon::kNone) {
    RectT<float> const disc = Placed({kPadding, kPadding, kIconSize, kIconSize});
    skins::utilities::DrawCircleFill(scriber, disc, GetColor(ui::ThemeColorID::kInteractive));
    utils::DrawString(scriber, SignOf(mContent.icon), disc, scriber::TextAlignment::kCenter,
                      GetThemeFontName(ui::FontIndex::kTitle), kIconFontSize,
                      GetColor(ui::ThemeColorID::kOnInteractive));
  }
  UI_SubView::UI_Draw(scriber);
}

moxcore::Utf8String MessageBoxView::UI_GetAccessibleName() const {
  return moxcore::string::UTF16to8(mContent.title);
}

moxcore::Utf8String MessageBoxView::UI_GetAccessibleDescription() const {
  return moxcore::string::UTF16to8(mContent.text);
}

bool MessageBoxView::UI_DoPreKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) {
  if (event.IsAction(ui::KeyAction::kKeyDown)) {
    if (event.CompareShortcut(ui::KeyboardCode::kEscape, ui::ModKey::kNone)) {
      mAnswered(GetCancelAnswer(mContent.buttons));
      return true;
    }
    // A button that has the focus takes Enter for itself.
    bool const isReturn = event.CompareShortcut(ui::KeyboardCode::kReturn, ui::ModKey::kNone) ||
                          event.CompareShortcut(ui::KeyboardCode::kEnter, ui::ModKey::kNone);
    if (isReturn && dynamic_cast<controls::UI_TextButton*>(node) == nullptr) {
      mAnswered(mContent.defaultButton);
      return true;
    }
  }
  return UI_SubView::UI_DoPreKeyboardEvent(node, event);
}

}  // namespace moxui::dialogs
