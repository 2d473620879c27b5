#include "channels/ChannelsPage.h"

#include "audio/AudioSession.h"
#include "audio/ChannelNames.h"
#include "channels/ChannelList.h"
#include "channels/LayoutTexts.h"
#include "program/Localized.h"
#include "shell/EventLogView.h"
#include "shell/Listening.h"
#include "shell/Painting.h"

#include <moxmediatypes/WaveChannelMask.h>
#include <moxui/scriber/Drawing.h>
#include <moxui/skins/Look.h>

#include <algorithm>
#include <cstdio>
#include <initializer_list>
#include <utility>

namespace playground {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using moxmediatypes::AudioChannelLabel;
using moxmediatypes::AudioChannelLayout;
using moxui::RectT;
using moxui::controls::UI_StaticText;
using moxui::ui::ThemeColorID;

// In the order of the page's states.
enum class Situation { kFits, kWithoutPreset, kRefused };

// The program's own sound among the session's documents.
constexpr std::size_t kOwnDocument = 0;
constexpr float kTop = 8.0f;
constexpr float kLineHeight = 20.0f;
constexpr float kEdgeWidth = 4.0f;
constexpr float kReloadWidth = 144.0f;
constexpr float kHeadingHeight = 24.0f;
constexpr float kSkippedHeight = 76.0f;

std::string LabelOf(LayoutUse use) {
  switch (use) {
    case LayoutUse::kOther:
      return Text("$$$/playground/channels/other=A second popup");
    case LayoutUse::kBuiltIn:
      return Text("$$$/playground/channels/builtIn=Built-in layouts");
    case LayoutUse::kWave:
      return Text("$$$/playground/channels/wave=For WAV files");
    case LayoutUse::kSound:
      break;
  }
  return Text("$$$/playground/channels/sound=Channels of the sound");
}

// The order of film, or, for another number of channels, all from the last to the first.
AudioChannelLayout UnusualLayout(std::size_t count) {
  using enum AudioChannelLabel;
  AudioChannelLayout layout = CustomaryLayout(count);
  if (count == 6) {
    return {kLeft, kCenter, kRight, kLeftSurround, kRightSurround, kLowFrequency};
  }
  if (count == 1) {
    return {kCenter};
  }
  std::ranges::reverse(layout);
  return layout;
}

std::string HexText(std::uint32_t mask) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%X", mask);
  return text;
}

}  // namespace

ChannelsPage::ChannelsPage(PageContext const& context)
    : mSession(context.audio), mDesk(context.channels), mLog(context.log) {
  for (auto* const text : {&mApplied, &mWave, &mHeading}) {
    *text = MakeIntrusive<UI_StaticText>();
    (*text)->SetAlignment(Leading());
    (*text)->SetTextTruncation(moxui::controls::TextTruncation::kEnd);
  }
  mHeading->SetFontIndex(moxui::ui::FontIndex::kSmall);
  mHeading->SetCustomThemeColor(ThemeColorID::kDefaultText, ThemeColorID::kGray7);
  mReload =
      MakeIntrusive<moxui::controls::UI_TextButton>(Text16("$$$/playground/channels/reload=Reload presets"));
  mReload->SetWantsKeyboardFocus(true);
  mReload->UI_SetToolTip(moxcore::Utf8String(Text("$$$/playground/channels/reload/tip=Reads the folder "
                                                  "again, with what other programs changed there")),
                         moxui::skins::GetToolTipDelay());
  WhenChanged(*mReload, this, [](ChannelsPage& page) { page.Reload(); });
  mChannels = MakeIntrusive<ChannelList>();
  mSkippedView =
      MakeIntrusive<EventLogView>(mSkipped, "$$$/playground/channels/skipped=Preset files that were skipped",
                                  "$$$/playground/channels/skipped/none=All preset files could be read.");
  for (IntrusivePtr<UI_Node> const& child : std::initializer_list<IntrusivePtr<UI_Node>>{
           {mApplied}, {mWave}, {mHeading}, {mReload}, {mChannels}, {mSkippedView}}) {
    ChildPushBack(child);
  }
  Follow();
  MakeTable();
  Show();
  mSession.SetListener(this, [this](SessionChanges changes) {
    if (changes.HasAny(SessionChange::kDocument | SessionChange::kLayout)) {
      Follow();
      Show();
    }
  });
}

ChannelsPage::~ChannelsPage() {
  mSession.RemoveListener(this);
}

ChannelList& ChannelsPage::Channels() const {
  return *mChannels;
}
EventLogView& ChannelsPage::Skipped() const {
  return *mSkippedView;
}

void ChannelsPage::MakeTable() {
  if (mTable) {
    ChildRemove(mTable);
  }
  mTable = MakeIntrusive<LayoutTable>(mDesk, [weak = moxcore::utility::RefCountedWeakPtr<ChannelsPage>(this)](
                                                 LayoutUse use, LayoutPopups::Edit edit) {
    if (auto const page = weak.Lock()) {
      page->LayoutChanged(use, edit);
    }
  });
  ChildInsert(0, mTable);
  mSkipped.Clear();
  for (auto const& skipped : mTable->SkippedFiles()) {
    mSkipped.Add(SkippedFileText(skipped));
  }
  LayOut();
}

void ChannelsPage::Reload() {
  MakeTable();
  mLog.Add(Text("$$$/playground/channels/log/reload=Presets read: @0, files skipped: @1",
                {std::to_string(mTable->CountPresets()), std::to_string(mTable->SkippedFiles().size())}));
}

// The first popup shows what the channels of the sound are called, unless the user has just chosen something
// for it that doesn't fit.
void ChannelsPage::Follow() {
  if (mDesk.RefusedBy() == mSession.CurrentIndex()) {
    return;
  }
  mDesk.SetRefusedBy(std::nullopt);
  if (mSession.HasSound()) {
    mDesk.SetLayout(LayoutUse::kSound, LayoutOfSound(mSession));
  }
}

void ChannelsPage::Choose(ChannelDesk::Layout layout) {
  mDesk.SetLayout(LayoutUse::kSound, std::move(layout));
  Apply();
  Show();
}

void ChannelsPage::Apply() {
  ChannelDesk::Layout const layout = mDesk.LayoutFor(LayoutUse::kSound);
  mDesk.SetRefusedBy(std::nullopt);
  if (mSession.HasSound() && layout.size() != mSession.Current().ChannelCount()) {
    mDesk.SetRefusedBy(mSession.CurrentIndex());
  } else if (mSession.SetLayout(layout) && mSession.CurrentIndex() == kOwnDocument) {
    mDesk.SetLayoutForOwnSound(layout);
  }
}

void ChannelsPage::LayoutChanged(LayoutUse use, LayoutPopups::Edit edit) {
  std::string const layout = ShortLayoutText(mDesk.LayoutFor(use));
  switch (edit) {
    case LayoutPopups::Edit::kCancelled:
      mLog.Add(Text("$$$/playground/channels/log/cancelled=@0: the editor was left without a change",
                    {LabelOf(use)}));
      break;
    case LayoutPopups::Edit::kConfirmed:
      mLog.Add(Text("$$$/playground/channels/log/confirmed=@0: the editor gave @1", {LabelOf(use), layout}));
      break;
    case LayoutPopups::Edit::kNone:
      mLog.Add(Text("$$$/playground/log/property=@0: @1", {LabelOf(use), layout}));
      break;
  }
  if (use == LayoutUse::kSound && edit != LayoutPopups::Edit::kCancelled) {
    Apply();
    mLog.Add(AppliedText());
  }
  Show();
}

bool ChannelsPage::IsRefused() const {
  return mDesk.RefusedBy().has_value();
}

std::string ChannelsPage::AppliedText() const {
  if (!mSession.HasSound()) {
    return Text("$$$/playground/channels/noSound=No sound is shown on the Audio page that it could name.");
  }
  std::string const title = mSession.Current().Title();
  std::string const count = ChannelCountText(mSession.Current().ChannelCount());
  if (IsRefused()) {
    return Text(
        "$$$/playground/channels/refused=Not applied: @0 has @1, the layout @2. Its channels keep their "
        "names.",
        {title, count, std::to_string(mDesk.LayoutFor(LayoutUse::kSound).size())});
  }
  return Text("$$$/playground/channels/applied=Names the channels of @0 on the Audio page (@1).",
              {title, count});
}

std::string ChannelsPage::WaveText() const {
  ChannelDesk::Layout const& layout = mDesk.LayoutFor(LayoutUse::kSound);
  auto const result = moxmediatypes::GetWaveChannelMask(layout);
  if (result.fault != moxmediatypes::WaveMaskFault::kNone) {
    return Text("$$$/playground/channels/notForWave=No WAV file can have it. @0",
                {WaveFaultText(layout, result)});
  }
  return result.mask == 0
             ? Text("$$$/playground/channels/unnamedWave=A WAV file of it tells no places.")
             : Text("$$$/playground/channels/maskOfWave=A WAV file of it has the channel mask @0.",
                    {HexText(result.mask)});
}

void ChannelsPage::Show() {
  auto const tell = [](UI_StaticText& text, std::string const& sentence) {
    text.SetValue(To16(sentence));
    text.UI_SetToolTip(moxcore::Utf8String(sentence), moxui::skins::GetToolTipDelay());
  };
  mTable->Refresh();
  tell(*mApplied, AppliedText());
  tell(*mWave, WaveText());
  mChannels->SetLayout(mDesk.LayoutFor(LayoutUse::kSound));
  mHeading->SetValue(To16(std::string(mChannels->UI_GetAccessibleName())));
  UI_Invalidate();
}

void ChannelsPage::ShowState(std::size_t state) {
  if (!mSession.HasSound()) {
    mSession.ShowDocument(0);
  }
  std::size_t const count = mSession.Current().ChannelCount();
  switch (static_cast<Situation>(state)) {
    case Situation::kFits:
      Choose(CustomaryLayout(count));
      break;
    case Situation::kWithoutPreset:
      Choose(UnusualLayout(count));
      break;
    case Situation::kRefused:
      Choose(CustomaryLayout(count == 2 ? 6 : 2));
      break;
  }
}

RectT<float> ChannelsPage::AppliedRect() const {
  RectT<float> const own = UI_GetLocalRectF(false);
  return {kPanelPadding, kTop + LayoutTable::Height() + 4.0f,
          std::max(own.width - 2.0f * kPanelPadding, 0.0f), kLineHeight};
}

void ChannelsPage::LayOut() {
  RectT<float> const own = UI_GetLocalRectF(false);
  if (own.IsEmpty()) {
    return;
  }
  auto const place = [&own](UI_Node& node, RectT<float> const& rect) {
    node.UI_SetLocalRectF(Placed(rect, own.width));
  };
  place(*mTable, {0.0f, kTop, own.width, LayoutTable::Height()});
  RectT<float> const applied = AppliedRect();
  float const inset = kEdgeWidth + 4.0f;
  place(*mApplied, {applied.left + inset, applied.top, std::max(applied.width - inset, 0.0f), kLineHeight});
  place(*mWave, {applied.left + inset, applied.Bottom(), std::max(applied.width - inset, 0.0f), kLineHeight});
  float const heading = applied.Bottom() + kLineHeight + 8.0f;
  float const reload = own.width - kPanelPadding - kReloadWidth;
  place(*mHeading,
        {kPanelPadding, heading, std::max(reload - kGroupGap - kPanelPadding, 0.0f), kHeadingHeight});
  place(*mReload, {reload, heading, kReloadWidth, ControlHeight()});
  float const list = heading + kHeadingHeight;
  float const skipped = std::max(own.height - kSkippedHeight, list);
  place(*mChannels, {0.0f, list, own.width, std::max(skipped - list - 4.0f, 0.0f)});
  place(*mSkippedView, {0.0f, skipped, own.width, kSkippedHeight});
}

void ChannelsPage::UI_SizeChanged(RectT<float> const& rect) {
  Page::UI_SizeChanged(rect);
  LayOut();
}

void ChannelsPage::UI_Draw(moxui::scriber::Scriber* scriber) const {
  if (IsRefused()) {
    float const width = UI_GetLocalRectF(false).width;
    RectT<float> const applied = AppliedRect();
    moxui::utils::DrawRect(scriber, Placed(applied, width), ThemeColor(ThemeColorID::kGray3));
    moxui::utils::DrawRect(scriber, Placed({applied.left, applied.top, kEdgeWidth, applied.height}, width),
                           {1.0f, 0.0f, 0.0f, 0.75f});
  }
  Page::UI_Draw(scriber);
}

PageDescriptor ChannelsPageDescriptor() {
  return {.name = "channels",
          .title = "$$$/playground/page/channels=Channels",
          .group = "$$$/playground/group/media=Media",
          .description =
              "$$$/playground/page/channels/text=Layouts of channels, from presets or made in the editor, "
              "for the "
              "sound on the Audio page.",
          .states = {{"fits", "$$$/playground/state/fits=Fits the sound"},
                     {"without-preset", "$$$/playground/state/withoutPreset=Without a preset"},
                     {"refused", "$$$/playground/state/refused=Doesn't fit"}},
          .make = [](PageContext const& context) -> IntrusivePtr<Page> {
            return MakeIntrusive<ChannelsPage>(context);
          }};
}

}  // namespace playground
