#include <moxcore/messaging/BindMessageFunction.h>
#include <moxcore/string/Encoding.h>
#include <moxui/dialogs/InputBoxView.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/Theme.h>
#include <moxui/ui/KeyboardEvent.h>

#include <cmath>
#include <utility>

namespace moxui::dialogs {
namespace {

using moxcore::utility::MakeIntrusive;

constexpr float kFieldWidth = 320.0f;
constexpr float kPromptGap = 4.0f;

}  // namespace

InputBoxView::InputBoxView(InputBoxContent content, std::function<void(unsigned)> answered)
    : mContent(std::move(content)),
      mAnswered(std::move(answered)),
      mPrompt(MakeIntrusive<controls::UI_StaticText>(mContent.prompt)),
      mEdit(MakeIntrusive<controls::UI_TextEdit>()),
      mButtons(*this, mContent.acceptButton | mContent.cancelButton, mContent.acceptButton,
               [this](unsigned button) { mAnswered(button); }) {
  mPrompt->SetMultiLine(true);
  mEdit->SetAccessibleName(moxcore::string::UTF16to8(mContent.prompt));
  mEdit->SetMaxLength(mContent.maxLength);
  mEdit->SetReadOnly(mContent.readOnly);
  mEdit->SetValue(mContent.text, false);
  mEdit->NotifyWhenTextEdited(moxcore::messaging::BindMessageFunction(this, &InputBoxView::TextEdited));
  ChildInsert(0, mPrompt);
  ChildInsert(1, mEdit);
  Arrange();
  mButtons.Find(mContent.acceptButton)->UI_SetEnabled(CanBeAccepted());
}

InputBoxView::~InputBoxView() = default;

void InputBoxView::Arrange() {
  mExtent.width = kBoxPadding + kFieldWidth + kBoxPadding;
  mPrompt->UI_SetLocalRectF({kBoxPadding, kBoxPadding, kFieldWidth, 0.0f});
  float const promptHeight = std::ceil(mPrompt->UI_GetRecommendedSizeFromDefaultSupplier().height);
  mPrompt->UI_SetLocalRectF(
      PlacedInBox({kBoxPadding, kBoxPadding, kFieldWidth, promptHeight}, mExtent.width));
  float const fieldTop = kBoxPadding + promptHeight + kPromptGap;
  float const fieldHeight = mEdit->UI_GetRecommendedSizeFromDefaultSupplier().height;
  mEdit->UI_SetLocalRectF(PlacedInBox({kBoxPadding, fieldTop, kFieldWidth, fieldHeight}, mExtent.width));
  float const buttonTop = fieldTop + fieldHeight + kBoxPadding;
  mExtent.height = buttonTop + mButtons.Arrange(mExtent.width, buttonTop) + kBoxPadding;
  UI_SetLocalRectF({0, 0, mExtent.width, mExtent.height});
}

void InputBoxView::FocusText() {
  mEdit->UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  std::size_t const end = mContent.text.size();
  mEdit->GetTextEdit()->SetSelection({.anchor = mContent.selectsText ? 0 : end, .caret = end});
}

void InputBoxView::TextEdited(controls::UI_ControlChangedMessage&) {
  mButtons.Find(mContent.acceptButton)->UI_SetEnabled(CanBeAccepted());
}

void InputBoxView::UI_Draw(scriber::Scriber* scriber) const {
  scriber->GetSurface()->FillRect(UI_GetLocalRectF(ui::RectSpace::kOwn),
                                  GetColor(ui::ThemeColorID::kTabBackground));
  UI_SubView::UI_Draw(scriber);
}

moxcore::Utf8String InputBoxView::UI_GetAccessibleName() const {
  return moxcore::string::UTF16to8(mContent.title);
}

// Enter and Escape in the field mean the box, not the field alone.
bool InputBoxView::UI_DoPreKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) {
  if (event.IsAction(ui::KeyAction::kKeyDown)) {
    if (event.CompareShortcut(ui::KeyboardCode::kEscape, ui::ModKey::kNone)) {
      mAnswered(mContent.cancelButton);
      return true;
    }
    bool const isReturn = event.CompareShortcut(ui::KeyboardCode::kReturn, ui::ModKey::kNone) ||
                          event.CompareShortcut(ui::KeyboardCode::kEnter, ui::ModKey::kNone);
    // A button that has the focus takes Enter for itself.
    if (isReturn && dynamic_cast<controls::UI_TextButton*>(node) == nullptr) {
      if (CanBeAccepted()) {
        mAnswered(mContent.acceptButton);
      }
      return true;
    }
  }
  return UI_SubView::UI_DoPreKeyboardEvent(node, event);
}

}  // namespace moxui::dialogs
