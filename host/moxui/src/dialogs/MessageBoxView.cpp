#include <moxcore/string/Encoding.h>
#include <moxui/dialogs/MessageBoxView.h>
#include <moxui/scriber/Drawing.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/CircleDrawing.h>
#include <moxui/skins/Theme.h>
#include <moxui/ui/KeyboardEvent.h>

#include <algorithm>
#include <cmath>

namespace moxui::dialogs {
namespace {

using messagebox::MessageIcon;
using moxcore::utility::MakeIntrusive;

constexpr float kUsualTextWidth = 320.0f;
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

MessageBoxView::MessageBoxView(MessageBoxContent content, std::function<void(unsigned)> answered)
    : mContent(std::move(content)),
      mAnswered(std::move(answered)),
      mText(MakeIntrusive<controls::UI_StaticText>(mContent.text)),
      mButtons(*this, mContent.buttons, mContent.defaultButton,
               [this](unsigned button) { mAnswered(button); }) {
  mText->SetMultiLine(true);
  ChildInsert(0, mText);
  Arrange();
}

MessageBoxView::~MessageBoxView() = default;

void MessageBoxView::Arrange() {
  float const textWidth = mContent.textWidth > 0.0f ? mContent.textWidth : kUsualTextWidth;
  float const iconRoom = mContent.icon == MessageIcon::kNone ? 0.0f : kIconSize + kBoxGap;
  mText->UI_SetLocalRectF({kBoxPadding + iconRoom, kBoxPadding, textWidth, 0.0f});
  float const textHeight = std::ceil(mText->UI_GetRecommendedSizeFromDefaultSupplier().height);
  float const body = std::max(textHeight, iconRoom > 0.0f ? kIconSize : 0.0f);
  // A short text stands beside the middle of the icon.
  float const textTop = kBoxPadding + std::floor((body - textHeight) / 2.0f);
  mExtent.width = kBoxPadding + iconRoom + textWidth + kBoxPadding;
  mText->UI_SetLocalRectF(
      PlacedInBox({kBoxPadding + iconRoom, textTop, textWidth, textHeight}, mExtent.width));
  float const buttonTop = kBoxPadding + body + kBoxPadding;
  mExtent.height = buttonTop + mButtons.Arrange(mExtent.width, buttonTop) + kBoxPadding;
  UI_SetLocalRectF({0, 0, mExtent.width, mExtent.height});
}

void MessageBoxView::FocusDefaultButton() {
  if (auto* const button = mButtons.Find(mContent.defaultButton)) {
    button->UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  }
}

void MessageBoxView::UI_Draw(scriber::Scriber* scriber) const {
  scriber->GetSurface()->FillRect(UI_GetLocalRectF(ui::RectSpace::kOwn),
                                  GetColor(ui::ThemeColorID::kTabBackground));
  if (mContent.icon != MessageIcon::kNone) {
    RectT<float> const disc = PlacedInBox({kBoxPadding, kBoxPadding, kIconSize, kIconSize}, mExtent.width);
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
      mAnswered(mContent.cancelButton);
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
