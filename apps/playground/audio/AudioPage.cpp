#include "audio/AudioPage.h"

#include "audio/AudioNotices.h"
#include "audio/AudioProperties.h"
#include "audio/AudioReadOut.h"
#include "audio/AudioSituations.h"
#include "audio/ChannelGutter.h"
#include "audio/EditBar.h"
#include "audio/EditKeys.h"
#include "audio/ExportBar.h"
#include "audio/OverviewBar.h"
#include "audio/PeakProgress.h"
#include "audio/TimeRulerView.h"
#include "audio/TransportBar.h"
#include "audio/TransportKeys.h"
#include "audio/WaveformView.h"
#include "program/AppearanceState.h"
#include "program/Localized.h"
#include "properties/PropertyPanel.h"
#include "shell/EventLog.h"
#include "shell/Listening.h"
#include "shell/Named.h"
#include "shell/Painting.h"

#include <moxui/scriber/Drawing.h>
#include <moxui/skins/Look.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

namespace playground {
namespace {

using moxcore::utility::MakeIntrusive;
using moxui::RectT;
using moxui::controls::UI_Popup;
using moxui::controls::UI_StaticText;
using moxui::controls::UI_TextButton;
using moxui::ui::FontIndex;
using moxui::ui::ThemeColorID;

constexpr float kPanelWidth = 316.0f;
constexpr float kRulerHeight = 20.0f;
constexpr float kOverviewHeight = 40.0f;
constexpr float kLineHeight = 20.0f;
constexpr float kSoundsWidth = 220.0f;
constexpr float kDismissWidth = 88.0f;
constexpr float kNoticeHeight = 32.0f;
// How often files are looked at whether they have changed, in milliseconds.
constexpr int kPollTimer = 1;
constexpr float kPollPeriod = 1000.0f;

float OnGrid(float value) {
  return std::floor(value / 4.0f) * 4.0f;
}

}  // namespace

AudioPage::AudioPage(PageContext const& context)
    : mSession(context.audio),
      mTransport(context.transport),
      mLog(context.log),
      mAskWhereToSave(context.askWhereToSave) {
  std::string const soundsName = Text("$$$/playground/audio/sounds=Sound");
  mSounds = MakeIntrusive<Named<UI_Popup>>(soundsName);
  mSounds->SetItemCheckStyle(moxui::controls::ItemCheckStyle::kCurrent);
  mSounds->SetWantsKeyboardFocus(true);
  mSummary = MakeIntrusive<UI_StaticText>();
  mSummary->SetFontIndex(FontIndex::kSmall);
  mSummary->SetAlignment(Leading());
  mSummary->SetTextTruncation(moxui::controls::TextTruncation::kEnd);
  mFailure = MakeIntrusive<UI_StaticText>();
  mFailure->SetAlignment(Leading());
  mFailure->SetTextTruncation(moxui::controls::TextTruncation::kMiddle);
  mDismiss = MakeIntrusive<UI_TextButton>(Text16("$$$/playground/audio/dismiss=Dismiss"));
  mDismiss->SetWantsKeyboardFocus(true);
  using moxcore::utility::RefCountedWeakPtr;
  mEdit = MakeIntrusive<EditBar>(mSession, [weak = RefCountedWeakPtr<AudioPage>(this)](ExportKind kind) {
    if (auto const page = weak.Lock()) {
      page->AskAndExport(kind);
    }
  });
  mExport = MakeIntrusive<ExportBar>(mSession);
  mExport->SetEndFunction([&log = mLog](std::string const& sentence) { log.Add(sentence); });
  mGutter = MakeIntrusive<ChannelGutter>(mSession);
  mRuler = MakeIntrusive<TimeRulerView>(mSession);
  mWaveform = MakeIntrusive<WaveformView>(mSession);
  mOverview = MakeIntrusive<OverviewBar>(mSession);
  mPlayback = MakeIntrusive<TransportBar>(mSession, mTransport);
  mReadOut = MakeIntrusive<UI_StaticText>();
  mReadOut->SetAlignment(Leading());
  mHint = MakeIntrusive<UI_StaticText>(Text16(
      "$$$/playground/audio/hint=Space plays. Drag to select, Shift extends. Wheel to zoom, Shift+wheel "
      "or middle drag to scroll. Space or Alt+drag scrolls too."));
  mHint->SetFontIndex(FontIndex::kSmall);
  mHint->SetAlignment(Leading());
  mHint->SetTextTruncation(moxui::controls::TextTruncation::kEnd);
  mHint->UI_SetToolTip(
      moxcore::Utf8String(Text(
          "$$$/playground/audio/keys=Space plays and pauses, J, K and L shuttle, R loops\\n"
          "Left and right move the cursor, Ctrl farther, Shift selects\\nHome and End go "
          "to the ends, pages scroll, up and down change the level\\nPlus and minus zoom, F "
          "shows all, Z the selection and again what was before\\nEscape stops, then "
          "selects nothing\\nCtrl+Z undoes, Ctrl+Shift+Z or Ctrl+Y redoes, Ctrl+E exports\\n1 to 9 switch "
          "channels off and on")),
      moxui::skins::GetToolTipDelay());
  mProgress = MakeIntrusive<PeakProgress>(mSession);
  mPanel = MakeIntrusive<PropertyPanel>();

  for (moxcore::utility::IntrusivePtr<moxui::ui::UI_Node> const& child :
       {moxcore::utility::IntrusivePtr<moxui::ui::UI_Node>(mSounds),
        {mSummary},
        {mEdit},
        {mFailure},
        {mDismiss},
        {mExport},
        {mGutter},
        {mRuler},
        {mWaveform},
        {mPlayback->Line()},
        {mOverview},
        {mPlayback},
        {mReadOut},
        {mHint},
        {mProgress},
        {mPanel}}) {
    ChildPushBack(child);
  }

  WhenChanged(*mSounds, this, [](AudioPage& page) {
    // A divider stands before the last item, which is no sound.
    auto const item = static_cast<std::size_t>(page.mSounds->GetValue());
    page.mSession.ShowDocument(std::min(item, page.mSession.Documents().size()));
  });
  WhenChanged(*mDismiss, this, [](AudioPage& page) { page.mSession.ForgetFailures(); });
  mWaveform->SetHoverFunction([weak = RefCountedWeakPtr<AudioPage>(this)](std::optional<int> column) {
    if (auto const page = weak.Lock()) {
      page->mHoveredColumn = column;
      page->ShowReadOut();
    }
  });
  mWaveform->SetPlayFunction([&transport = mTransport] { transport.PlayOrPause(); });
  mPanel->SetChangeFunction(
      [weak = RefCountedWeakPtr<AudioPage>(this)](Property const& property, std::string const& value) {
        if (auto const page = weak.Lock()) {
          page->PropertyChanged(property, value);
        }
      });
  mSession.SetListener(this, [this](SessionChanges changes) { SessionChanged(changes); });
  DocumentChanged();
}

AudioPage::~AudioPage() {
  mSession.RemoveListener(this);
}

WaveformView& AudioPage::Waveform() const {
  return *mWaveform;
}
ChannelGutter& AudioPage::Gutter() const {
  return *mGutter;
}
OverviewBar& AudioPage::Overview() const {
  return *mOverview;
}
TimeRulerView& AudioPage::Ruler() const {
  return *mRuler;
}
PropertyPanel& AudioPage::Panel() const {
  return *mPanel;
}
PeakProgress& AudioPage::Progress() const {
  return *mProgress;
}
TransportBar& AudioPage::Playback() const {
  return *mPlayback;
}
EditBar& AudioPage::Edit() const {
  return *mEdit;
}

ExportBar& AudioPage::Exporting() const {
  return *mExport;
}

bool AudioPage::CancelDrag() {
  return mWaveform->CancelDrag() || mOverview->CancelDrag() || mRuler->CancelDrag();
}

bool AudioPage::HandleShortcut(moxui::ui::KeyboardEvent const& event) {
  return HandleEditKey(mSession, event, [this] { AskAndExport(ExportKind::kWave); });
}

void AudioPage::AskAndExport(ExportKind kind) {
  if (!ExportProblem(mSession, kind).empty()) {
    mSession.Export(kind, {});  // which tells of it; what can't be written needs no name
    return;
  }
  if (CanExport(mSession, kind) && mAskWhereToSave) {
    moxcore::utility::IntrusivePtr<AudioPage> const alive(this);  // anything may happen meanwhile
    std::string const path = mAskWhereToSave(RequestForExport(mSession, kind));
    if (!path.empty()) {
      mSession.Export(kind, path);
    }
  }
}

float AudioPage::GetScrollOffset() const {
  return mPanel->GetScrollOffset();
}
void AudioPage::SetScrollOffset(float offset) {
  mPanel->SetScrollOffset(offset);
}

void AudioPage::Settle() {
  mWaveform->Settle();
}

void AudioPage::ShowState(std::size_t state) {
  BeginAt(mSession, static_cast<AudioSituation>(state), GetViewScaleFactor());
}

void AudioPage::SessionChanged(SessionChanges changes) {
  mPlayback->SessionChanged(changes);
  if (changes.HasAny(SessionChange::kDocument | SessionChange::kLayout)) {
    DocumentChanged();
    return;
  }
  if (changes.HasAny(SessionChange::kFailures | SessionChange::kExport)) {
    LayOut();
    UI_Invalidate();
  }
  if (changes.Has(SessionChange::kPeaks)) {
    mWaveform->UI_Invalidate();
    mOverview->UI_Invalidate();
    ShowProgress();
  }
  if (changes.HasAny(SessionChange::kView | SessionChange::kSettings)) {
    mWaveform->ViewChanged();
    mOverview->UI_Invalidate();
    mRuler->UI_Invalidate();
    mGutter->SessionChanged();
    mPanel->Refresh();
  }
  if (changes.Has(SessionChange::kSelection)) {
    mWaveform->SelectionChanged();
    mPanel->Refresh();
    LogSelection();
  }
  mEdit->Refresh();
  ShowReadOut();
}

void AudioPage::DocumentChanged() {
  mSounds->DeleteAllItems();
  for (AudioDocument const& document : mSession.Documents()) {
    mSounds->AddItem(To16(document.Title()));
  }
  mSounds->AddSeparator();
  std::int64_t const none = mSounds->AddItem(Text16("$$$/playground/audio/noSound=No sound"));
  bool const shows = mSession.CurrentIndex() < mSession.Documents().size();
  mSounds->SetValue(shows ? static_cast<std::int64_t>(mSession.CurrentIndex()) : none);
  mSummary->SetValue(To16(mSession.Current().Summary()));
  mSummary->UI_SetToolTip(moxcore::Utf8String(mSession.Current().Summary()), moxui::skins::GetToolTipDelay());
  mPanel->SetGroups(AudioProperties(mSession, CurrentAppearance().theme));
  for (moxui::ui::UI_Node* const aboutSound : std::initializer_list<moxui::ui::UI_Node*>{
           mRuler.Get(), mGutter.Get(), mOverview.Get(), mPlayback.Get()}) {
    aboutSound->UI_Show(mSession.HasSound());
  }
  ShowProgress();
  mHoveredColumn.reset();
  mEdit->Refresh();
  mGutter->SessionChanged();
  LayOut();
  mWaveform->ViewChanged();
  UI_Invalidate();
  ShowReadOut();
}

void AudioPage::ShowProgress() {
  // It takes the place of the hints while there is something to tell.
  bool const shows = mProgress->Update();
  mProgress->UI_Show(shows);
  mHint->UI_Show(!shows && mSession.HasSound());
}

void AudioPage::UI_NodeChanged(moxui::ui::NodeChange change) {
  Page::UI_NodeChanged(change);
  if (change == moxui::ui::NodeChange::kAttached) {
    UI_InstallTimer(kPollPeriod, kPollTimer);
  }
}

bool AudioPage::UI_DoTimerNotify(int id) {
  if (id != kPollTimer) {
    return Page::UI_DoTimerNotify(id);
  }
  mSession.PollForChanges();
  return true;
}

bool AudioPage::UI_DoPreKeyboardEvent(moxui::ui::UI_Node* node, moxui::ui::KeyboardEvent const& event) {
  return node == mWaveform.Get() && HandlePlayheadKey(mSession, mTransport, event);
}

bool AudioPage::UI_DoKeyboardEvent(moxui::ui::UI_Node*, moxui::ui::KeyboardEvent const& event) {
  return mSession.HasSound() && HandleTransportKey(mTransport, event);
}

// The focus comes back with the window, when another program may just have written the file.
void AudioPage::UI_FocusChanged(moxui::ui::FocusChangeReason reason) {
  Page::UI_FocusChanged(reason);
  mSession.PollForChanges();
}

std::string AudioPage::FailureText() const {
  auto const& failures = mSession.Failures();
  if (failures.empty()) {
    return {};
  }
  std::string const first = failures.front().Sentence();
  return failures.size() == 1 ? first
                              : Text("$$$/playground/open/failedMore=@0 (and @1 more)",
                                     {first, std::to_string(failures.size() - 1)});
}

// Of the lines about failures and exports.
float AudioPage::NoticesHeight() const {
  return (mSession.Failures().empty() ? 0.0f : kNoticeHeight) +
         (mSession.Exports().HasNews() ? kNoticeHeight : 0.0f);
}

RectT<float> AudioPage::WaveformFrame() const {
  RectT<float> const own = UI_GetLocalRectF(false);
  float const top = 8.0f + 24.0f + 8.0f + NoticesHeight() + kRulerHeight;
  float const bottom =
      own.height - 4.0f - 2.0f * kLineHeight - 4.0f - ControlHeight() - 8.0f - kOverviewHeight - 8.0f;
  float const right = own.width - kPanelWidth - kPanelPadding;
  float const left = kPanelPadding + mGutter->WidthFor(right - kPanelPadding);
  return {left, top, std::max(OnGrid(right - left), 0.0f), std::max(OnGrid(bottom - top), 0.0f)};
}

void AudioPage::LayOut() {
  RectT<float> const own = UI_GetLocalRectF(false);
  if (own.IsEmpty()) {
    return;
  }
  // Times run from left to right in every language, so that only what stands around the waveform is mirrored.
  auto const place = [&own](moxui::ui::UI_Node& node, RectT<float> const& rect) {
    node.UI_SetLocalRectF(Placed(rect, own.width));
  };
  float const control = ControlHeight();
  float const mainRight = own.width - kPanelWidth - kPanelPadding;
  place(*mSounds, {kPanelPadding, 8.0f, kSoundsWidth, control});
  float const summary = kPanelPadding + kSoundsWidth + kGroupGap;
  float const edit = mainRight - EditBar::Width();
  place(*mSummary, {summary, 8.0f, std::max(edit - kGroupGap - summary, 0.0f), control});
  place(*mEdit, {edit, 8.0f, EditBar::Width(), control});

  bool const failed = !mSession.Failures().empty();
  mFailure->UI_Show(failed);
  mDismiss->UI_Show(failed);
  mFailure->SetValue(To16(FailureText()));
  mFailure->UI_SetToolTip(moxcore::Utf8String(FailureText()), moxui::skins::GetToolTipDelay());
  place(*mFailure, {kPanelPadding + 8.0f, 40.0f, mainRight - kPanelPadding - kDismissWidth - 16.0f, 24.0f});
  place(*mDismiss, {mainRight - kDismissWidth - 4.0f, 42.0f, kDismissWidth, 20.0f});

  mExport->UI_Show(mExport->Update());
  place(*mExport, {kPanelPadding, failed ? 40.0f + kNoticeHeight : 40.0f, mainRight - kPanelPadding, 24.0f});

  RectT<float> const wave = WaveformFrame();
  place(*mRuler, {wave.left, wave.top - kRulerHeight, wave.width, kRulerHeight});
  place(*mGutter, {kPanelPadding, wave.top, wave.left - kPanelPadding, wave.height});
  place(*mWaveform, wave);
  place(*mOverview, {wave.left, wave.Bottom() + 8.0f, wave.width, kOverviewHeight});
  place(*mPlayback->Line(), wave);
  float const playback = wave.Bottom() + 8.0f + kOverviewHeight + 8.0f;
  place(*mPlayback, {wave.left, playback, wave.width, control});
  float const line = playback + control + 4.0f;
  place(*mReadOut, {wave.left, line, wave.width, kLineHeight});
  place(*mHint, {wave.left, line + kLineHeight, wave.width, kLineHeight});
  place(*mProgress, {wave.left, line + kLineHeight, wave.width, kLineHeight});
  place(*mPanel, {own.width - kPanelWidth, 0.0f, kPanelWidth, own.height});
}

void AudioPage::UI_SizeChanged(RectT<float> const& rect) {
  Page::UI_SizeChanged(rect);
  LayOut();
}

void AudioPage::UI_ScaleChanged(float scale) {
  Page::UI_ScaleChanged(scale);
  UI_Invalidate();
}

void AudioPage::ShowReadOut() {
  auto const level = [this](std::size_t channel, int column) {
    return ShownLevel{mWaveform->AmplitudeAt(channel, column), mWaveform->RmsAt(channel, column)};
  };
  mReadOut->SetValue(To16(AudioReadOut(mSession, mHoveredColumn, level, [this](std::string const& line) {
    return LabelWidth(To16(line), FontIndex::kText) <= mReadOut->UI_GetLocalRectF(false).width;
  })));
}

void AudioPage::LogSelection() {
  mLog.Add(SelectionText(mSession));
}

void AudioPage::PropertyChanged(Property const& property, std::string const& value) {
  mLog.Add(value.empty() ? property.label
                         : Text("$$$/playground/log/property=@0: @1", {property.label, value}));
}

void AudioPage::UI_Draw(moxui::scriber::Scriber* scriber) const {
  RectT<float> const own = UI_GetLocalRectF(false);
  if (!mSession.Failures().empty()) {
    float const mainRight = own.width - kPanelWidth - kPanelPadding;
    RectT<float> const bar = Placed({kPanelPadding, 40.0f, mainRight - kPanelPadding, 24.0f}, own.width);
    moxui::utils::DrawRect(scriber, bar, ThemeColor(ThemeColorID::kGray3));
    // The one place on this page where something is wrong is the one place in red.
    moxui::utils::DrawRect(scriber, Placed({kPanelPadding, 40.0f, 4.0f, 24.0f}, own.width),
                           {1.0f, 0.0f, 0.0f, 0.75f});
  }
  Page::UI_Draw(scriber);
  RectT<float> const wave = Placed(WaveformFrame(), own.width);
  if (!mSession.HasSound()) {
    DrawNoSound(scriber, wave, mSession.Settings());
  } else if (!ChannelsFit()) {
    DrawTooManyChannels(scriber, wave, mSession.Settings(), mSession.Current().ChannelCount());
  }
}

bool AudioPage::ChannelsFit() const {
  return mSession.Current().ChannelCount() == 0 || !mGutter->StripRect(0).IsEmpty();
}

}  // namespace playground
