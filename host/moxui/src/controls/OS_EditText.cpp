#include "../skins/TextPainting.h"

#include <moxui/controls/OS_EditText.h>
#include <moxui/controls/UI_ControlView.h>
#include <moxui/platform/Application.h>
#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/FontNames.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/Theme.h>
#include <moxui/skins/ThemeClient.h>
#include <moxui/ui/UI_NodeManager.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace moxui::controls {
namespace {

constexpr float kCaretWidth = 1.0f;
constexpr std::u16string_view kUnknownText = u"\u2013";
constexpr float kUnderlineGap = 1.0f;  // from the baseline to the line under an unfinished text

}  // namespace

OS_EditText::OS_EditText() : mBlinkTimer(ui::UI_NodeManager::GetUniqueTimerID()) {
  UI_SetClipsChildren(true);
}

OS_EditText::~OS_EditText() = default;

moxcore::Utf8String OS_EditText::GetDefaultFontName() {
  return ui::GetFontName(ui::FontIndex::kText);
}

// The editor is made when it is first needed: a text that is only shown needs none.
platform::TextEditor* OS_EditText::Editor() {
  platform::Application* const application = platform::Application::Get();
  if (!mEditor && application != nullptr) {
    mEditor = application->NewTextEditor(false);
    mEditor->SetText(mText);
    mEditor->SetMaxLength(mMaxLength);
    mEditor->SetReadOnly(mIsReadOnly);
    mEditor->SetChangedFunction([this] { EditorChanged(); });
  }
  return mEditor.get();
}

void OS_EditText::SetText(moxcore::Utf16String text) {
  mText = std::move(text);
  if (mEditor) {
    mEditor->SetText(mText);
  }
  KeepCaretInSight();
  UI_Invalidate();
  UI_TellAccessibleChange(ui::AccessibleChange::kText);
}

moxcore::Utf16String OS_EditText::GetText() const {
  return mText;
}

platform::TextSelection OS_EditText::GetSelection() const {
  return mEditor ? mEditor->GetSelection()
                 : platform::TextSelection{.anchor = mText.size(), .caret = mText.size()};
}

void OS_EditText::SetSelection(platform::TextSelection selection) {
  if (auto* const editor = Editor()) {
    editor->SetSelection({.anchor = std::min(selection.anchor, mText.size()),
                          .caret = std::min(selection.caret, mText.size())});
    KeepCaretInSight();
    UI_Invalidate();
    UI_TellAccessibleChange(ui::AccessibleChange::kCaret);
  }
}

void OS_EditText::SelectAll() {
  SetSelection({.anchor = 0, .caret = mText.size()});
}

bool OS_EditText::Perform(platform::EditCommand command) {
  auto* const editor = Editor();
  return editor != nullptr && editor->Perform(command);
}

void OS_EditText::EditorChanged() {
  moxcore::utility::IntrusivePtr<OS_EditText> const self(this);
  moxcore::Utf16String text = mEditor->GetText();
  bool const isEdit = text != mText;
  mText = std::move(text);
  KeepCaretInSight();
  RestartBlinking();
  UI_Invalidate();
  UI_TellAccessibleChange(isEdit ? ui::AccessibleChange::kText : ui::AccessibleChange::kCaret);
  if (isEdit && mEdited) {
    mEdited();
  }
}

void OS_EditText::SetFont(moxcore::Utf8String name, float size, moxcore::Utf8String style) {
  mFontName = std::move(name);
  mFontSize = size;
  mFontStyle = std::move(style);
  KeepCaretInSight();
  UI_Invalidate();
}

void OS_EditText::SetAlignment(ControlAlignment alignment) {
  if (std::exchange(mAlignment, alignment) != alignment) {
    UI_Invalidate();
  }
}

void OS_EditText::SetTextColor(ColorRGBAOptional colour) {
  if (std::exchange(mTextColor, colour) != colour) {
    UI_Invalidate();
  }
}

void OS_EditText::SetPlaceholder(moxcore::Utf16String text) {
  mPlaceholder = std::move(text);
  UI_Invalidate();
}

void OS_EditText::SetReadOnly(bool readOnly) {
  if (std::exchange(mIsReadOnly, readOnly) == readOnly) {
    return;
  }
  if (mEditor) {
    mEditor->SetReadOnly(readOnly);
  }
  UI_TellAccessibleChange(ui::AccessibleChange::kState);
}

void OS_EditText::SetMaxLength(std::size_t units) {
  mMaxLength = units;
  if (mEditor) {
    mEditor->SetMaxLength(units);
  }
}

// Geometry

scriber::FontP OS_EditText::Font() const {
  auto const* const manager = ui::UI_NodeManager::Get(false);
  auto const* const supplier = manager != nullptr ? manager->GetDefaultDrawSupplier() : nullptr;
  if (supplier == nullptr) {
    return nullptr;
  }
  float size = mFontSize;
  if (!(size > 0.0f)) {
    auto const* const client = dynamic_cast<ui::ThemeClient const*>(UI_GetParentNode());
    size = client != nullptr ? client->GetThemeFontSize(ui::FontIndex::kText)
                             : ui::GetFontSize(ui::FontIndex::kText);
  }
  moxcore::Utf8String const& name = mFontName.empty() ? GetDefaultFontName() : mFontName;
  return supplier->NewFont(utils::ValidateFontName(name), mFontStyle, size);
}

moxcore::Utf16String OS_EditText::ShownText() const {
  if (mComposition.empty()) {
    return mText;
  }
  platform::TextSelection const selection = GetSelection();
  return mText.substr(0, selection.Begin()) + mComposition + mText.substr(selection.End());
}

std::size_t OS_EditText::ShownCaret() const {
  platform::TextSelection const selection = GetSelection();
  return mComposition.empty() ? selection.caret : selection.Begin() + mCompositionCaret;
}

float OS_EditText::Advance(scriber::FontInterface const& font, std::size_t position) const {
  return font.GetWidth(std::u16string_view(ShownText()).substr(0, position));
}

// Left of the first character. A text that fits is aligned; a longer one is moved by the scroll.
float OS_EditText::TextLeft(scriber::FontInterface const& font) const {
  float const room = UI_GetLocalRectF(ui::RectSpace::kOwn).width - kCaretWidth;
  float const spare = room - font.GetWidth(ShownText());
  if (spare < 0.0f) {
    return -mScroll;
  }
  switch (mAlignment) {
    case ControlAlignment::kLeft:
      return 0.0f;
    case ControlAlignment::kCenter:
      return std::round(spare / 2.0f);
    case ControlAlignment::kRight:
      return std::round(spare);
  }
  return 0.0f;
}

void OS_EditText::KeepCaretInSight() {
  scriber::FontP const font = Font();
  float const room = UI_GetLocalRectF(ui::RectSpace::kOwn).width - kCaretWidth;
  if (!font || room <= 0.0f) {
    return;
  }
  float const caret = Advance(*font, ShownCaret());
  float const most = std::max(font->GetWidth(ShownText()) - room, 0.0f);
  float const least = std::max(caret - room, 0.0f);
  mScroll = std::round(std::clamp(std::clamp(mScroll, least, std::max(caret, least)), 0.0f, std::ceil(most)));
}

RectT<float> OS_EditText::GetCaretRect() const {
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  scriber::FontP const font = Font();
  if (!font) {
    return {0.0f, 0.0f, kCaretWidth, rect.height};
  }
  float const baseline = skins::GetCenteredBaseline(rect, *font);
  float const top = std::floor(baseline - font->GetAscent());
  float const bottom = std::ceil(baseline + font->GetDescent());
  float const x = std::round(TextLeft(*font) + Advance(*font, ShownCaret()));
  return {x, top, kCaretWidth, bottom - top};
}

std::size_t OS_EditText::GetPositionAt(PointT<float> point) const {
  scriber::FontP const font = Font();
  if (!font) {
    return 0;
  }
  float const x = point.x - TextLeft(*font);
  std::size_t nearest = 0;
  float distance = std::abs(x);
  for (std::size_t position = 1; position <= mText.size(); ++position) {
    bool const splitsPair = position < mText.size() && (mText[position] & 0xFC00) == 0xDC00;
    float const here = std::abs(x - Advance(*font, position));
    if (!splitsPair && here < distance) {
      nearest = position;
      distance = here;
    }
  }
  return nearest;
}

void OS_EditText::UI_SizeChanged(RectT<float> const& rect) {
  UI_Node::UI_SizeChanged(rect);
  KeepCaretInSight();
}

// Painting

ColorRGBA OS_EditText::ColorOf(ui::ThemeColorID id) const {
  return ui::GetColor(UI_GetColorFromChangeMap(static_cast<unsigned>(id)));
}

void OS_EditText::UI_Draw(scriber::Scriber* scriber) const {
  scriber::FontP const font = Font();
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  if (!font || rect.IsEmpty()) {
    return;
  }
  scriber::SurfaceInterface& surface = *scriber->GetSurface();
  float const baseline = skins::GetCenteredBaseline(rect, *font);
  bool const showsUnknown = ShowsUnknown();
  moxcore::Utf16String const shown = showsUnknown ? moxcore::Utf16String() : ShownText();
  if (showsUnknown) {
    skins::DrawTextLine(scriber, kUnknownText, rect, mAlignment, TextTruncation::kEnd, *font,
                        ColorOf(ui::ThemeColorID::kPlaceholderText));
  } else if (shown.empty() && !mPlaceholder.empty()) {
    skins::DrawTextLine(scriber, mPlaceholder, rect, mAlignment, TextTruncation::kEnd, *font,
                        ColorOf(ui::ThemeColorID::kPlaceholderText));
  }
  bool const hasFocus = UI_HasKeyboardFocus();
  float const left = TextLeft(*font);
  RectT<float> const caret = GetCaretRect();
  platform::TextSelection const selection = GetSelection();
  bool const isComposing = !mComposition.empty();
  if (hasFocus && !selection.IsEmpty() && !isComposing) {
    float const begin = left + Advance(*font, selection.Begin());
    float const end = left + Advance(*font, selection.End());
    surface.FillRect({begin, caret.top, end - begin, caret.height},
                     ColorOf(ui::ThemeColorID::kSelectionFill));
  }
  ColorRGBA const colour = mTextColor.value_or(
      ColorOf(UI_IsDisabled() ? ui::ThemeColorID::kDefaultTextDisabled : ui::ThemeColorID::kStrongText));
  if (!shown.empty()) {
    surface.DrawText(shown, {left, baseline}, *font, colour);
  }
  if (isComposing) {
    float const begin = left + Advance(*font, selection.Begin());
    float const end = left + Advance(*font, selection.Begin() + mComposition.size());
    surface.FillRect({begin, baseline + kUnderlineGap, end - begin, 1.0f}, colour);
  }
  if (hasFocus && mCaretIsLit && !mIsReadOnly && (selection.IsEmpty() || isComposing)) {
    surface.FillRect(caret, colour);
  }
}

// A text that is at hand shows as soon as it can be edited.
bool OS_EditText::ShowsUnknown() const {
  auto const* const control = dynamic_cast<UI_ControlView const*>(UI_GetParentNode());
  return control != nullptr && control->IsValueUnknown() && mComposition.empty() &&
         (mText.empty() || !UI_HasKeyboardFocus());
}

bool OS_EditText::UI_WantsKeyboardFocus() const {
  return true;
}

}  // namespace moxui::controls
