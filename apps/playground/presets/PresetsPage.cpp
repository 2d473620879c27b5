#include "presets/PresetsPage.h"

#include "audio/AudioProperties.h"
#include "presets/PickerStates.h"
#include "presets/PresetModel.h"
#include "presets/WaveformPreview.h"
#include "program/AppearanceState.h"
#include "program/Localized.h"
#include "properties/PropertyPanel.h"
#include "shell/EventLogView.h"
#include "shell/Listening.h"
#include "shell/Painting.h"

#include <moxmediaui/Module.h>
#include <moxui/skins/Look.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace playground {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using moxui::RectT;
using moxui::controls::UI_StaticText;
using moxui::controls::UI_TextButton;
using moxui::ui::FontIndex;
using moxui::ui::ThemeColorID;

constexpr float kNarrowestMain = 296.0f;  // the picker's own width and its margins
constexpr float kWidestPanel = 316.0f;
constexpr float kWidestPicker = 400.0f;
constexpr float kReloadWidth = 96.0f;
constexpr float kHintLine = 16.0f;
constexpr float kWideHint = 480.0f;  // fits into two lines from here on
constexpr float kTop = 12.0f;
constexpr float kSkippedShare = 0.36f;
constexpr float kLowestSkipped = 76.0f;
constexpr float kHighestSkipped = 160.0f;

IntrusivePtr<UI_StaticText> SmallText(moxcore::Utf16String text) {
  auto line = MakeIntrusive<UI_StaticText>(std::move(text));
  line->SetFontIndex(FontIndex::kSmall);
  line->SetAlignment(Leading());
  line->SetCustomThemeColor(ThemeColorID::kDefaultText, ThemeColorID::kGray7);
  return line;
}

// The presets that a picker begins with, and one that has been changed by hand.
enum State { kChanged = 1, kStates = 2 };

}  // namespace

PresetsPage::PresetsPage(PageContext const& context) : mSession(context.audio), mLog(context.log) {
  mModel = std::make_unique<PresetModel>(mSession, context.presets, mLog);
  mPicker = moxmediaui::PresetsView::Create();
  mPicker->Initialize(moxmediaui::GetResourceManager(), moxmediaui::GetDrawSupplier(),
                      moxmediaui::GetModuleImageProvider());
  mPicker->SetPresetProvider(mModel.get());
  std::string const folder = Text("$$$/playground/presets/folder=Folder: @0", {mModel->Folder()});
  mFolder = SmallText(To16(folder));
  mFolder->SetTextTruncation(moxui::controls::TextTruncation::kMiddle);
  mFolder->UI_SetToolTip(moxcore::Utf8String(folder), moxui::skins::GetToolTipDelay());
  mReload = MakeIntrusive<UI_TextButton>(Text16("$$$/playground/presets/reload=Reload"));
  mReload->SetWantsKeyboardFocus(true);
  mReload->UI_SetToolTip(
      moxcore::Utf8String(Text("$$$/playground/presets/reloadTip=Read the folder anew, with what others "
                               "changed in it")),
      moxui::skins::GetToolTipDelay());
  mPreview = MakeIntrusive<WaveformPreview>(mSession);
  mSkippedView =
      MakeIntrusive<EventLogView>(mSkipped, "$$$/playground/presets/skipped=Files without a preset",
                                  "$$$/playground/presets/noneSkipped=Every file gave a preset.");
  mHint =
      SmallText(Text16("$$$/playground/presets/hint=A preset keeps the whole view but fades and what is "
                       "about single channels. "
                       "To rename one, save it under the new name and delete the old one."));
  mHint->SetMultiLine(true);
  mPanel = MakeIntrusive<PropertyPanel>();
  mPanel->SetGroups(AudioProperties(mSession, CurrentAppearance().theme));
  mPanel->SetChangeFunction([&log = mLog](Property const& property, std::string const& value) {
    log.Add(value.empty() ? property.label
                          : Text("$$$/playground/log/property=@0: @1", {property.label, value}));
  });
  mShown = std::make_unique<ShownPreset>();
  mStates = MakeIntrusive<StateTable>(PickerStateColumns(*mShown),
                                      Text16("$$$/playground/presets/statesRemark=Each column has another "
                                             "part under the pointer, pressed or with "
                                             "the keyboard focus."));
  mStates->UI_Hide();
  for (IntrusivePtr<UI_Node> const& child : {IntrusivePtr<UI_Node>(mPicker),
                                             {mFolder},
                                             {mReload},
                                             {mPreview},
                                             {mSkippedView},
                                             {mHint},
                                             {mPanel},
                                             {mStates}}) {
    ChildPushBack(child);
  }
  WhenChanged(*mReload, this, [](PresetsPage& page) { page.Reload(); });
  ListSkipped();
  mSession.SetListener(this, [this](SessionChanges changes) { SessionChanged(changes); });
}

PresetsPage::~PresetsPage() {
  mSession.RemoveListener(this);
  mPicker->SetPresetProvider(nullptr);
  // Before the log that it listens to, and before the preset that they show.
  ChildRemove(mSkippedView);
  ChildRemove(mStates);
}

PropertyPanel& PresetsPage::Panel() const {
  return *mPanel;
}
WaveformPreview& PresetsPage::Preview() const {
  return *mPreview;
}
EventLogView& PresetsPage::SkippedView() const {
  return *mSkippedView;
}

StateTable& PresetsPage::States() const {
  return *mStates;
}

float PresetsPage::GetScrollOffset() const {
  return mPanel->GetScrollOffset();
}
void PresetsPage::SetScrollOffset(float offset) {
  mPanel->SetScrollOffset(offset);
}

void PresetsPage::Settle() {
  mPreview->Settle();
}

// The first preset, something that somebody made of it by hand, or the picker in its states.
void PresetsPage::ShowState(std::size_t state) {
  std::vector<moxmediaui::PresetInfo> infos;
  mModel->GetPresetInfos(infos);
  if (!infos.empty()) {
    mModel->LoadPreset(infos.front());
  }
  if (state == kChanged) {
    mSession.ChangeSettings([](WaveformSettings& settings) {
      settings.peakStyle = PeakStyle::kRectified;
      settings.gainDecibel = 6.0;
    });
  }
  ShowStates(state == kStates);
}

// The others are but places to begin from.
void PresetsPage::ResumeState(std::size_t state) {
  ShowStates(state == kStates);
}

void PresetsPage::ShowStates(bool show) {
  for (auto child = ChildBegin(); child != ChildEnd(); ++child) {
    (*child)->UI_Show(show == (child->Get() == mStates.Get()));
  }
}

void PresetsPage::SessionChanged(SessionChanges changes) {
  if (changes.Has(SessionChange::kDocument)) {
    mPanel->SetGroups(AudioProperties(mSession, CurrentAppearance().theme));
  }
  if (changes.HasAny(SessionChange::kDocument | SessionChange::kSettings)) {
    mModel->SettingsChanged();
  }
  mPanel->Refresh();
  mPreview->UI_Invalidate();
}

void PresetsPage::ListSkipped() {
  mSkipped.Clear();
  for (std::string const& sentence : mModel->SkippedFiles()) {
    mSkipped.Add(sentence);
  }
  std::vector<moxmediaui::PresetInfo> infos;
  mModel->GetPresetInfos(infos);
  if (infos.empty()) {
    mSkipped.Add(Text("$$$/playground/presets/noFolder=No preset can be kept in the folder."));
  }
  mSkippedView->UI_Invalidate();
}

void PresetsPage::Reload() {
  mModel->Reload();
  ListSkipped();
}

void PresetsPage::UI_SizeChanged(RectT<float> const& rect) {
  Page::UI_SizeChanged(rect);
  if (rect.IsEmpty()) {
    return;
  }
  auto const place = [&rect](UI_Node& node, RectT<float> const& where) {
    node.UI_SetLocalRectF(Placed(where, rect.width));
  };
  float const panel = std::clamp(rect.width - kNarrowestMain, 0.0f, kWidestPanel);
  float const main = rect.width - panel;
  float const width = std::max(main - 2.0f * kPanelPadding, 0.0f);
  float const control = ControlHeight();
  float top = kTop;
  place(*mPicker, {kPanelPadding, top, std::min(width, kWidestPicker), control});
  top += control + 8.0f;
  place(*mFolder, {kPanelPadding, top, std::max(width - kReloadWidth - 8.0f, 0.0f), control});
  place(*mReload, {kPanelPadding + width - kReloadWidth, top, kReloadWidth, control});
  top += control + 8.0f;
  float const skipped = std::clamp(std::floor((rect.height - top) * kSkippedShare / 4.0f) * 4.0f,
                                   kLowestSkipped, kHighestSkipped);
  float const hint = (width < kWideHint ? 4.0f : 2.0f) * kHintLine;
  float const hintTop = rect.height - skipped - hint;
  place(*mPreview, {kPanelPadding, top, width, std::max(hintTop - 8.0f - top, 0.0f)});
  place(*mHint, {kPanelPadding, hintTop, width, hint});
  place(*mSkippedView, {0.0f, rect.height - skipped, main, skipped});
  place(*mPanel, {main, 0.0f, panel, rect.height});
  mStates->UI_SetLocalRectF(rect);
}

PageDescriptor PresetsPageDescriptor() {
  return {
      .name = "presets",
      .title = "$$$/playground/page/presets=Presets",
      .group = "$$$/playground/group/media=Media",
      .description =
          "$$$/playground/page/presets/text=Views of the waveform under names, each in a file of its own.",
      .states = {{"preset", "$$$/playground/state/preset=Preset"},
                 {"changed", "$$$/playground/state/presetChanged=Changed by hand"},
                 {"states", "$$$/playground/state/states=States"}},
      .make = [](PageContext const& context) -> IntrusivePtr<Page> {
        return MakeIntrusive<PresetsPage>(context);
      }};
}

}  // namespace playground
