#include "shell/ToolBar.h"

#include "program/Localized.h"
#include "program/NumberText.h"
#include "shell/Listening.h"
#include "shell/Named.h"
#include "shell/Painting.h"

#include <moxui/scriber/Drawing.h>
#include <moxui/skins/Look.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace playground {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using moxui::RectT;
using moxui::controls::UI_Checkbox;
using moxui::controls::UI_Popup;
using moxui::controls::UI_TextButton;
using moxui::ui::FontIndex;
using moxui::ui::ThemeColorID;

constexpr float kPopupMargin = 44.0f;  // of a popup around its text: insets and the arrow
constexpr float kBoxMargin = 28.0f;    // of a checkbox beside its text
constexpr float kButtonMargin = 32.0f;
constexpr float kLabelGap = 8.0f;
constexpr float kControlGap = 16.0f;

float UpToGrid(float value) {
  return std::ceil(value / 4.0f) * 4.0f;
}

// The scale that the command line asked for may be one that isn't offered.
std::int64_t IndexOfScale(double scale) {
  auto const found = std::find(kOfferedScales.begin(), kOfferedScales.end(), scale);
  return found == kOfferedScales.end() ? UI_Popup::kNoItem : found - kOfferedScales.begin();
}

std::string ScaleText(double scale) {
  return Text("$$$/playground/scale/percent=@0 %", {TextFromNumber(scale * 100.0, 1)});
}

// A language as those who speak it call it, so that they find it among others; by its tag if unknown.
std::string OwnName(std::string const& tag) {
  return tag == "de" ? "Deutsch" : tag;
}

std::vector<std::string> LanguageTexts(std::vector<LanguageChoice> const& languages) {
  std::vector<std::string> texts;
  for (LanguageChoice const& language : languages) {
    texts.push_back(language == LanguageChoice::kEnglish  ? Text("$$$/playground/language/english=English")
                    : language == LanguageChoice::kPseudo ? Text("$$$/playground/language/pseudo=Pseudo")
                                                          : OwnName(language.tag));
  }
  return texts;
}

}  // namespace

ToolBar::ToolBar(Appearance const& appearance, ChangeFunction change, std::function<void()> open)
    : mAppearance(appearance), mChange(std::move(change)), mOpenFiles(std::move(open)) {
  mTheme = AddPopup(Text("$$$/playground/theme=Theme"),
                    {Text("$$$/playground/theme/dark=Dark"), Text("$$$/playground/theme/light=Light"),
                     Text("$$$/playground/theme/highContrast=High contrast")},
                    static_cast<std::int64_t>(appearance.theme));
  mLook = AddPopup(Text("$$$/playground/look=Look"),
                   {Text("$$$/playground/look/classic=Classic"), Text("$$$/playground/look/v7=V7")},
                   static_cast<std::int64_t>(appearance.look));
  std::vector<std::string> scales;
  for (double const scale : kOfferedScales) {
    scales.push_back(ScaleText(scale));
  }
  mScale = AddPopup(Text("$$$/playground/scale=Scale"), scales, IndexOfScale(appearance.scale));
  if (mScale->GetValue() == UI_Popup::kNoItem) {
    mScale->SetValueString(To16(ScaleText(appearance.scale)), true, true);
  }
  auto const language = std::find(mLanguages.begin(), mLanguages.end(), appearance.language);
  mLanguage = AddPopup(Text("$$$/playground/language=Language"), LanguageTexts(mLanguages),
                       language == mLanguages.end() ? 0 : language - mLanguages.begin());
  mDirection = MakeIntrusive<UI_Checkbox>();
  mDirection->SetTextLabel(Text16("$$$/playground/direction=Right to left"));
  mDirection->SetChecked(appearance.rightToLeft);
  mDirection->SetWantsKeyboardFocus(true);
  ChildPushBack(mDirection);
  mOpen = MakeIntrusive<UI_TextButton>(Text16("$$$/playground/open=Open..."));
  mOpen->SetWantsKeyboardFocus(true);
  mOpen->UI_SetToolTip(moxcore::Utf8String(Text("$$$/playground/open/tip=Open sound files (Ctrl+O)")),
                       moxui::skins::GetToolTipDelay());
  ChildPushBack(mOpen);
  WhenChanged(*mDirection, this, [](ToolBar& bar) { bar.Changed(); });
  WhenChanged(*mOpen, this, [](ToolBar& bar) { bar.mOpenFiles(); });
}

ToolBar::~ToolBar() = default;

IntrusivePtr<UI_Popup> ToolBar::AddPopup(std::string const& label, std::vector<std::string> const& items,
                                         std::int64_t value) {
  auto popup = MakeIntrusive<Named<UI_Popup>>(label);
  for (std::string const& item : items) {
    popup->AddItem(To16(item));
  }
  popup->SetValue(value);
  popup->SetItemCheckStyle(moxui::controls::ItemCheckStyle::kCurrent);
  popup->SetTextTruncation(moxui::controls::TextTruncation::kEnd);
  popup->SetWantsKeyboardFocus(true);
  ChildPushBack(popup);
  mPopups.push_back({To16(label), popup, {}});
  WhenChanged(*popup, this, [](ToolBar& bar) { bar.Changed(); });
  return popup;
}

void ToolBar::Changed() {
  Appearance appearance = mAppearance;
  appearance.theme = static_cast<ThemeChoice>(mTheme->GetValue());
  appearance.look = static_cast<LookChoice>(mLook->GetValue());
  appearance.language = mLanguages[static_cast<std::size_t>(mLanguage->GetValue())];
  appearance.rightToLeft = mDirection->IsChecked();
  if (auto const scale = mScale->GetValue(); scale >= 0) {
    appearance.scale = kOfferedScales[static_cast<std::size_t>(scale)];
  }
  if (!(appearance == mAppearance)) {
    mAppearance = appearance;
    mChange(appearance);
  }
}

float ToolBar::PopupWidth(UI_Popup const& popup) {
  float widest = 0.0f;
  for (auto const& item : popup.GetItems()) {
    widest = std::max(widest, LabelWidth(item.text, FontIndex::kText));
  }
  return UpToGrid(widest + kPopupMargin);
}

// In a narrow window popups stand without their labels, which show as tool tips then; in one that is narrower
// still the popups take less than their texts need.
void ToolBar::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  float const height = ControlHeight();
  float const top = std::floor((rect.height - height) / 2.0f);
  float const box = UpToGrid(LabelWidth(mDirection->GetTextLabel(), FontIndex::kText) + kBoxMargin);
  float const open = UpToGrid(LabelWidth(mOpen->GetTextLabel(), FontIndex::kText) + kButtonMargin);
  float labels = 0.0f;
  float popups = 0.0f;
  for (Labelled& labelled : mPopups) {
    labels += UpToGrid(LabelWidth(labelled.label, FontIndex::kSmall)) + kLabelGap;
    popups += PopupWidth(*labelled.popup);
  }
  float const room =
      rect.width - 2.0f * kPanelPadding - box - open - static_cast<float>(mPopups.size() + 1) * kControlGap;
  mShowsLabels = labels + popups <= room;
  float const share = std::clamp((mShowsLabels ? room - labels : room) / popups, 0.0f, 1.0f);
  float left = kPanelPadding;
  for (Labelled& labelled : mPopups) {
    if (mShowsLabels) {
      float const label = UpToGrid(LabelWidth(labelled.label, FontIndex::kSmall));
      labelled.labelRect = Placed({left, top, label, height}, rect.width);
      left += label + kLabelGap;
    }
    labelled.popup->UI_SetToolTip(
        mShowsLabels ? moxcore::Utf8String() : moxcore::Utf8String(To8(labelled.label)),
        moxui::skins::GetToolTipDelay());
    float const width = std::floor(PopupWidth(*labelled.popup) * share);
    labelled.popup->UI_SetLocalRectF(Placed({left, top, width, height}, rect.width));
    left += width + kControlGap;
  }
  mDirection->UI_SetLocalRectF(Placed({left, top, box, height}, rect.width));
  mOpen->UI_SetLocalRectF(Placed({rect.width - kPanelPadding - open, top, open, height}, rect.width));
}

void ToolBar::UI_Draw(moxui::scriber::Scriber* scriber) const {
  RectT<float> const own = UI_GetLocalRectF(false);
  moxui::utils::DrawRect(scriber, own, ThemeColor(ThemeColorID::kGray2));
  moxui::utils::DrawRect(scriber, {0.0f, own.height - 1.0f, own.width, 1.0f},
                         ThemeColor(ThemeColorID::kGray3));
  if (mShowsLabels) {
    for (Labelled const& labelled : mPopups) {
      DrawLabel(scriber, labelled.label, labelled.labelRect, Leading(), FontIndex::kSmall,
                ThemeColor(ThemeColorID::kGray7));
    }
  }
  UI_SubView::UI_Draw(scriber);
}

}  // namespace playground
