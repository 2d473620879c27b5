#include "timecode/BenchPane.h"

#include "program/Localized.h"
#include "properties/PropertyPanel.h"
#include "shell/EventLogView.h"
#include "shell/Painting.h"
#include "timecode/BenchProperties.h"
#include "timecode/CountedField.h"
#include "timecode/FieldHeight.h"
#include "timecode/RadialDial.h"
#include "timecode/StationEar.h"
#include "timecode/StationMessages.h"
#include "timecode/TimecodeBench.h"

#include <moxcore/messaging/Station.h>
#include <moxui/skins/Look.h>
#include <moxui/ui/PointerEvent.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

namespace playground {
namespace {

using moxcore::ImmutableString;
using moxcore::messaging::Message;
using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using moxcore::utility::RefCountedWeakPtr;
using moxmediaui::DisplayType;
using moxmediaui::FrameRate;
using moxmediaui::TickTime;
using moxmediaui::TimeDisplay;
using moxui::RectT;
using moxui::ui::FontIndex;
using moxui::ui::ThemeColorID;

constexpr std::uint32_t kFieldNumber = 1;
constexpr std::uint32_t kFollowerNumber = 2;

constexpr float kPanelWidth = 316.0f;
constexpr float kNameWidth = 108.0f;
constexpr float kFieldWidth = 120.0f;
// A symbol on the left begins half a field before it.
constexpr float kSymbolRoom = 84.0f;
constexpr float kFieldLeft = kPanelPadding + kNameWidth + kSymbolRoom;
constexpr float kSampleLeft = kFieldLeft + kFieldWidth + 48.0f;
constexpr float kRowHeight = 40.0f;
constexpr float kTop = 12.0f;
constexpr float kDialTop = kTop + 2.0f * kRowHeight + 12.0f;
constexpr float kDialSize = 72.0f;
constexpr float kMessagesTop = kDialTop + kDialSize + 16.0f;

ImmutableString RadialStation() {
  return ImmutableString::Create("moxmediaui.rc.station");
}

bool HasTime(CountedField const& field) {
  return !(field.GetTime() + field.GetOffsetTime()).IsInvalid();
}

}  // namespace

BenchPane::BenchPane(TimecodeBench& bench, EventLog& log) : mBench(bench) {
  // Held for the time of a message, since a listener may take the pane away.
  mEar = MakeIntrusive<StationEar>([weak = RefCountedWeakPtr<BenchPane>(this)](Message const& message) {
    if (auto const pane = weak.Lock()) {
      pane->Hear(message);
    }
  });
  mEar->Hear(RadialStation());
  mField = MakeField(kFieldNumber, moxcore::Utf8String(Text("$$$/playground/timecode/field=Field")));
  mDisplayStation = mField->GetTimeDisplayChangedStationID();
  mEar->Hear(mDisplayStation);
  mFollower =
      MakeField(kFollowerNumber, moxcore::Utf8String(Text("$$$/playground/timecode/second=Second field")));
  mFollower->SetAllowDisplayFormatOverride(true);
  mDial = MakeIntrusive<RadialDial>([](int steps) {
    moxcore::messaging::BroadcastMessageOnMainThread(RadialStation(),
                                                     moxmediaui::RadialControllerChangeMessage(steps));
  });
  mHint = MakeIntrusive<moxui::controls::UI_StaticText>(
      Text16("$$$/playground/timecode/dialHint=A turn is a step of the field under the pointer: rest it on a "
             "field and turn the wheel, or turn the controller by its arrow keys."));
  mHint->SetFontIndex(FontIndex::kSmall);
  mHint->SetAlignment(Leading());
  mHint->SetMultiLine(true);
  mHint->SetCustomThemeColor(ThemeColorID::kDefaultText, ThemeColorID::kGray7);
  mMessages = MakeIntrusive<EventLogView>(
      mBench.Messages(), "$$$/playground/timecode/messages=What goes over the stations",
      "$$$/playground/timecode/messages/empty=Drag, type or step a field, or choose a format.");
  mPanel = MakeIntrusive<PropertyPanel>();
  for (IntrusivePtr<UI_Node> const& child : std::initializer_list<IntrusivePtr<UI_Node>>{
           {mField}, {mFollower}, {mDial}, {mHint}, {mMessages}, {mPanel}}) {
    ChildPushBack(child);
  }
  SetFieldUp();
  SettingsChanged(mBench.Settings());
  AddPanel(log);
  mBench.SetListener(this, [this](BenchSettings const& before) { SettingsChanged(before); });
}

BenchPane::~BenchPane() {
  mBench.RemoveListener(this);
  mHost->ClearListener();
}

CountedField& BenchPane::Field() const {
  return *mField;
}
CountedField& BenchPane::Follower() const {
  return *mFollower;
}
RadialDial& BenchPane::Dial() const {
  return *mDial;
}
EventLogView& BenchPane::Messages() const {
  return *mMessages;
}
PropertyPanel& BenchPane::Panel() const {
  return *mPanel;
}

IntrusivePtr<CountedField> BenchPane::MakeField(std::uint32_t identifier, moxcore::Utf8String const& name) {
  auto field = MakeIntrusive<CountedField>();
  field->SetIdentifier(identifier);
  field->UI_SetToolTip(name, moxui::skins::GetToolTipDelay());
  mEar->Hear(field->GetStationID());
  moxcore::messaging::AddWeakPtrListener(RadialStation(), moxcore::messaging::ListenerOwner(field),
                                         field.Get());
  return field;
}

void BenchPane::AddPanel(EventLog& log) {
  RefCountedWeakPtr<BenchPane> const weak(this);
  auto const calls = [weak](void (BenchPane::*operation)()) {
    return [weak, operation] {
      if (auto const pane = weak.Lock()) {
        (*pane.*operation)();
      }
    };
  };
  mPanel->SetGroups(BenchProperties(mBench, {.keepOwnRate = calls(&BenchPane::KeepOwnRate),
                                             .syncToHost =
                                                 [weak] {
                                                   if (auto const pane = weak.Lock()) {
                                                     pane->mField->SyncToTimecodeInfo(
                                                         pane->mBench.Settings().host);
                                                   }
                                                 },
                                             .renewField = calls(&BenchPane::RenewField)}));
  mPanel->SetChangeFunction([&log](Property const& property, std::string const& value) {
    log.Add(value.empty() ? property.label
                          : Text("$$$/playground/log/property=@0: @1", {property.label, value}));
  });
}

// A field's first settings: where it hears of formats, its host, and all options that differ from those that
// it comes with.
void BenchPane::SetFieldUp() {
  auto const& host = mBench.Settings().host;
  mField->SetTimeDisplayChangedStationID(mDisplayStation);
  mField->SetTimecodeControlInfo(
      {host.videoDisplay, host.videoRate, host.audioDisplay, host.audioRate, mHost});
  if (!mBench.Settings().followsHost) {
    KeepOwnRate();
  }
  Tell(BenchSettings());
}

void BenchPane::Tell(BenchSettings const& before) {
  BenchSettings const& now = mBench.Settings();
  TellField(*mField, before, now);
  if (before.countsFromOne != now.countsFromOne) {
    mHost->PushCounting();
  }
  if (before.host != now.host) {
    mHost->Push(now.host);
  }
  // Bounds may have moved it.
  mBench.NoteTime(HasTime(*mField) ? mField->GetTime() : now.time, HasTime(*mField));
}

void BenchPane::RenewField() {
  if (mBench.Settings().followsHost) {
    ReplaceField();
  } else {
    mBench.Change([](BenchSettings& settings) { settings.followsHost = true; });
  }
}

// The one that goes may settle what it was doing and tell of it, upon which anything may happen: the other
// one is in its place by then.
void BenchPane::ReplaceField() {
  auto const before = std::exchange(
      mField, MakeField(kFieldNumber, moxcore::Utf8String(Text("$$$/playground/timecode/field=Field"))));
  SetFieldUp();
  ChildInsert(0, mField);
  LayOut();
  ChildRemove(before);
}

void BenchPane::KeepOwnRate() {
  mField->ResetFrameRate(TimeDisplay(TimeDisplay::kTimecode25), FrameRate::k25, DisplayType::kVideo);
  mBench.Change([](BenchSettings& settings) { settings.followsHost = false; });
}

void BenchPane::SettingsChanged(BenchSettings const& before) {
  BenchSettings const& now = mBench.Settings();
  if (now.followsHost && !before.followsHost) {
    ReplaceField();  // one that stays with its own rate does so for good
  } else {
    Tell(before);
  }
  mFollower->SetTimeDisplayChangedStationID(now.followerIsConnected ? mDisplayStation : ImmutableString());
  if (now.followerIsConnected) {
    mFollower->SetDisplayType(now.displayType);
    mFollower->SyncToTimecodeInfo(now.host);
    mFollower->SetTime(now.hasTime ? now.time : TickTime::kInvalid, true);
  }
  mPanel->Refresh();
  UI_Invalidate();
}

void BenchPane::Hear(Message const& message) {
  auto const told = FindToldTime(message);
  CountedField& field = told && told->field == kFollowerNumber ? *mFollower : *mField;
  mBench.Messages().Add(StationMessageText(message, To8(field.GetTimecodeString())));
  if (told) {
    HearTime(field, told->time);
  }
  // The host takes over what the user chose, as an application would.
  auto const choose = [this](TimeDisplay moxmediaui::TimecodeInfo::*display, TimeDisplay chosen) {
    mBench.Change([&](BenchSettings& settings) { settings.host.*display = chosen; });
  };
  if (auto const* const video = moxmediaui::HotTimecodeVideoTimeDisplayChangedMessage::Find(message)) {
    choose(&moxmediaui::TimecodeInfo::videoDisplay, video->Get<0>());
  } else if (auto const* const audio = moxmediaui::HotTimecodeAudioTimeDisplayChangedMessage::Find(message)) {
    choose(&moxmediaui::TimecodeInfo::audioDisplay, audio->Get<0>());
  }
  UI_Invalidate();
}

// Both fields show one time.
void BenchPane::HearTime(CountedField& field, TickTime time) {
  bool const hasTime = HasTime(field);
  CountedField& other = &field == mField.Get() ? *mFollower : *mField;
  if (&other == mField.Get() || mBench.Settings().followerIsConnected) {
    other.SetTime(hasTime ? time : TickTime::kInvalid, true);
  }
  mBench.NoteTime(hasTime ? time : mBench.Settings().time, hasTime);
  mPanel->Refresh();
}

bool BenchPane::UI_DoPrePointerEvent(UI_Node* node, moxui::ui::PointerEvent const& event) {
  auto const* const wheel = moxui::ui::WheelEvent::GetWheelEventForPointerEvent(event);
  bool const isOnField =
      node->UI_IsSelfOrDescendantOf(mField.Get()) || node->UI_IsSelfOrDescendantOf(mFollower.Get());
  if (wheel == nullptr || !isOnField) {
    return UI_SubView::UI_DoPrePointerEvent(node, event);
  }
  return mDial->UI_DoPointerEvent(mDial.Get(), *wheel);
}

void BenchPane::LayOut() {
  RectT<float> const own = UI_GetLocalRectF(false);
  if (own.IsEmpty()) {
    return;
  }
  auto const place = [&own](UI_Node& node, RectT<float> const& rect) {
    node.UI_SetLocalRectF(Placed(rect, own.width));
  };
  float const mainWidth = std::max(own.width - kPanelWidth, 0.0f);
  float const inset = std::floor((kRowHeight - kTimecodeFieldHeight) / 2.0f);
  place(*mField, {kFieldLeft, kTop + inset, kFieldWidth, kTimecodeFieldHeight});
  place(*mFollower, {kFieldLeft, kTop + kRowHeight + inset, kFieldWidth, kTimecodeFieldHeight});
  place(*mDial, {kFieldLeft, kDialTop, kDialSize, kDialSize});
  float const hint = kFieldLeft + kDialSize + 16.0f;
  place(*mHint, {hint, kDialTop + 8.0f, std::clamp(mainWidth - hint - kPanelPadding, 0.0f, 360.0f),
                 kDialSize - 8.0f});
  place(*mMessages, {0.0f, kMessagesTop, mainWidth, std::max(own.height - kMessagesTop, 0.0f)});
  place(*mPanel, {mainWidth, 0.0f, kPanelWidth, own.height});
}

void BenchPane::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  LayOut();
}

void BenchPane::UI_Draw(moxui::scriber::Scriber* scriber) const {
  RectT<float> const own = UI_GetLocalRectF(false);
  auto const lead = [&](std::u16string_view text, RectT<float> const& rect, FontIndex font,
                        moxui::ColorRGBA const& color) {
    DrawLabel(scriber, text, Placed(rect, own.width), Leading(), font, color);
  };
  float const mainWidth = std::max(own.width - kPanelWidth, 0.0f);
  auto const name = [&](moxcore::Utf16String const& text, float top, float height) {
    lead(text, {kPanelPadding, top, kNameWidth, height}, FontIndex::kText, ThemeColor(ThemeColorID::kGray8));
  };
  name(Text16("$$$/playground/timecode/field=Field"), kTop, kRowHeight);
  name(Text16("$$$/playground/timecode/second=Second field"), kTop + kRowHeight, kRowHeight);
  name(Text16("$$$/playground/timecode/dial=Radial controller"), kDialTop, kDialSize);
  // What the field's owner writes takes the colour that the field has for it.
  RectT<float> const sample{kSampleLeft, kTop, std::max(mainWidth - kSampleLeft - kPanelPadding, 0.0f),
                            kRowHeight};
  lead(Text16("$$$/playground/timecode/ownersText=Owner's text: @0", {To8(mField->GetTimecodeString())}),
       sample, FontIndex::kText, mField->GetTextColor());
  UI_SubView::UI_Draw(scriber);
}

}  // namespace playground
