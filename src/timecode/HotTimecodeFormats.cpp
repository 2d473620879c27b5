// The formats that a timecode field offers, and what it tells and hears.
#include "StationBroadcast.h"
#include "SupportedVideoFormats.h"

#include <moxcore/config/Localizer.h>
#include <moxmediaui/HotTimecodeControl.h>
#include <moxui/ui/OS_Menu.h>

#include <algorithm>

namespace moxmediaui {

namespace {

using moxui::ui::OS_Menu;

// Items of the menus that don't list the formats of a rate.
constexpr int kAudioSamplesItem = 1;
constexpr int kMillisecondsItem = 2;
constexpr int kTimecodeItem = 1;
constexpr int kFeet16mmItem = 2;
constexpr int kFeet35mmItem = 3;
constexpr int kFramesItem = 4;
constexpr int kDropFrameItem = 6;
constexpr int kNonDropFrameItem = 7;

Utf16String Text(char const* literal) {
  return moxcore::config::Localizer::Get().GetUTF16String(literal);
}

TimeDisplay TimecodeOf(FrameRate rate, bool dropFrame) {
  return moxmediatypes::GetTimeDisplayForFrameRate(rate, dropFrame, true,
                                                   TimeDisplay(TimeDisplay::kTimecode2997Drop), false);
}

void AddAudioItems(OS_Menu& menu, TimeDisplay format) {
  menu.AddItem(kAudioSamplesItem,
               Text("$$$/moxmediaui/timecode/control/UI_TimecodeControl/AudioSamplesItem=Audio Samples"));
  menu.AddItem(kMillisecondsItem,
               Text("$$$/moxmediaui/timecode/control/UI_TimecodeControl/MillisecondsItem=Milliseconds"));
  menu.CheckItem(kAudioSamplesItem, format.GetType() == TimeDisplay::kAudioSamples);
  menu.CheckItem(kMillisecondsItem, format.GetType() == TimeDisplay::kMilliseconds);
}

void AddSupportedItems(OS_Menu& menu, std::vector<TimeDisplay> const& formats, TimeDisplay format) {
  int item = 0;
  for (TimeDisplay const supported : formats) {
    menu.AddItem(++item, moxmediatypes::TimeDisplayDescription(supported, true));
    menu.CheckItem(item, supported == format);
  }
}

int FixedItemOf(TimeDisplay format) {
  switch (format.GetType()) {
    case TimeDisplay::kFrames:
      return kFramesItem;
    case TimeDisplay::kFeetFrames16mm:
      return kFeet16mmItem;
    case TimeDisplay::kFeetFrames35mm:
      return kFeet35mmItem;
    default:
      return kTimecodeItem;
  }
}

void AddFixedItems(OS_Menu& menu, TimeDisplay format, bool offersDropFrame) {
  menu.AddItem(kTimecodeItem, Text("$$$/moxmediaui/timecode/control/VideoTimeDispTimecode=Timecode"));
  menu.AddItem(kFeet16mmItem,
               Text("$$$/moxmediaui/timecode/control/VideoTimeDisp16mmFeetFrames=Feet + Frames 16mm"));
  menu.AddItem(kFeet35mmItem,
               Text("$$$/moxmediaui/timecode/control/VideoTimeDisp35mmFeetFrames=Feet + Frames 35mm"));
  menu.AddItem(kFramesItem, Text("$$$/moxmediaui/timecode/control/Frames=Frames"));
  menu.CheckItem(FixedItemOf(format), true);
  if (!offersDropFrame) {
    return;
  }
  menu.AddSeparator();
  menu.AddItem(kDropFrameItem, Text("$$$/moxmediaui/timecode/control/DropFrame=Drop-Frame"));
  menu.AddItem(kNonDropFrameItem, Text("$$$/moxmediaui/timecode/control/NonDropFrame=Non-Drop-Frame"));
  bool const applies = moxmediatypes::IsDropFrameApplicableForTimeDisplay(format);
  menu.EnableItem(kDropFrameItem, applies);
  menu.EnableItem(kNonDropFrameItem, applies);
  if (applies) {
    menu.CheckItem(moxmediatypes::IsTimeDisplayDropFrame(format) ? kDropFrameItem : kNonDropFrameItem, true);
  }
}

}  // namespace

// Formats

void UI_HotTimecodeControl::GetSupportedVideoFormats(FrameRate rate,
                                                     std::vector<TimeDisplay>& formats) const {
  formats.clear();
  // Kept: the function may set another one.
  if (auto const callback = mSupportedFormatCallback; callback != nullptr && *callback) {
    (*callback)(rate, formats);
  } else {
    formats = ListSupportedVideoFormats(rate);
  }
}

void UI_HotTimecodeControl::CycleTimecodeDisplayFormat() {
  IntrusivePtr<UI_Node> const self(this);
  if (mDisplayType == DisplayType::kVideo) {
    std::vector<TimeDisplay> formats;
    GetSupportedVideoFormats(mVideoRate, formats);
    TimeDisplay next(TimeDisplay::kFrames);
    if (auto const here = std::ranges::find(formats, mModel.GetFormat()); here != formats.end()) {
      next = here + 1 == formats.end() ? formats.front() : here[1];
    }
    SetFormat(next, mVideoRate);
    BroadcastVideoTimeDisplay();
  } else if (mDisplayType == DisplayType::kAudio) {
    int const code = mModel.GetFormat().GetType();
    if (code == TimeDisplay::kMilliseconds) {
      SetFormat(TimeDisplay(TimeDisplay::kAudioSamples), mAudioRate);
    } else if (code == TimeDisplay::kAudioSamples) {
      SetFormat(TimeDisplay(TimeDisplay::kMilliseconds), mAudioRate);
    }
    BroadcastAudioTimeDisplay();
  }
}

// Context menu

void UI_HotTimecodeControl::RightButtonDownSelf(moxui::ui::MouseEvent const& event) {
  if (!mAllowDisplayFormatOverride) {
    return;
  }
  IntrusivePtr<UI_Node> const self(this);
  auto const menu = moxui::ui::CreateOSMenu();
  std::vector<TimeDisplay> formats;
  bool const isAudio = mDisplayType == DisplayType::kAudio;
  bool const isVideo = mDisplayType == DisplayType::kVideo;
  if (isAudio) {
    AddAudioItems(*menu, mModel.GetFormat());
  } else if (isVideo && mTimecodeOptions == TimecodeOptions::kSupportedFormats) {
    GetSupportedVideoFormats(mVideoRate, formats);
    AddSupportedItems(*menu, formats, mModel.GetFormat());
  } else if (isVideo && (mTimecodeOptions == TimecodeOptions::kFixedListWithDropFrame ||
                         mTimecodeOptions == TimecodeOptions::kFixedList)) {
    AddFixedItems(*menu, mModel.GetFormat(), mTimecodeOptions == TimecodeOptions::kFixedListWithDropFrame);
  }
  int const item = UI_DoContextMenu(menu.Get(), mTextEdit->UI_GetParentNode(), event.GetPosition());
  if (item == 0) {
    return;
  }
  if (isAudio) {
    ChooseAudioItem(item);
  } else {
    ChooseVideoItem(item, formats);
  }
}

void UI_HotTimecodeControl::ChooseAudioItem(int item) {
  if (item == kAudioSamplesItem) {
    SetFormat(TimeDisplay(TimeDisplay::kAudioSamples), mAudioRate);
  } else if (item == kMillisecondsItem) {
    SetFormat(TimeDisplay(TimeDisplay::kMilliseconds), mAudioRate);
  }
  BroadcastAudioTimeDisplay();
}

/// `formats` are those that the menu listed; empty for a menu with a list of its own.
void UI_HotTimecodeControl::ChooseVideoItem(int item, std::vector<TimeDisplay> const& formats) {
  TimeDisplay chosen = mModel.GetFormat();
  if (!formats.empty()) {
    chosen = formats.at(static_cast<std::size_t>(item - 1));
  } else if (item == kTimecodeItem) {
    chosen = TimecodeOf(mVideoRate, moxmediatypes::IsTimeDisplayDropFrame(chosen));
  } else if (item == kFeet16mmItem) {
    chosen = TimeDisplay(TimeDisplay::kFeetFrames16mm);
  } else if (item == kFeet35mmItem) {
    chosen = TimeDisplay(TimeDisplay::kFeetFrames35mm);
  } else if (item == kFramesItem) {
    chosen = TimeDisplay(TimeDisplay::kFrames);
  } else {
    // The field returns to this choice when its own format is set again.
    mVideoDisplay = TimecodeOf(mVideoRate, item == kDropFrameItem);
    chosen = mVideoDisplay;
  }
  SetFormat(chosen, mVideoRate);
  BroadcastVideoTimeDisplay();
}

// Messages

void UI_HotTimecodeControl::BroadcastChangingMessage() {
  BroadcastOnStation(mStationID, HotTimecodeValueChangingMessage(mModel.GetTime(), mIdentifier));
}

void UI_HotTimecodeControl::BroadcastChangedMessage() {
  BroadcastOnStation(mStationID, HotTimecodeValueChangedMessage(mModel.GetTime(), mIdentifier));
}

void UI_HotTimecodeControl::BroadcastVideoTimeDisplay() {
  BroadcastOnStation(mTimeDisplayStation, HotTimecodeVideoTimeDisplayChangedMessage(mModel.GetFormat()));
}

void UI_HotTimecodeControl::BroadcastAudioTimeDisplay() {
  BroadcastOnStation(mTimeDisplayStation, HotTimecodeAudioTimeDisplayChangedMessage(mModel.GetFormat()));
}

void UI_HotTimecodeControl::ListenToMessage(moxcore::messaging::Message const& message) {
  if (auto const* const turned = RadialControllerChangeMessage::Find(message)) {
    OnRadialControllerChange(turned->Get<0>());
  } else if (auto const* const video = HotTimecodeVideoTimeDisplayChangedMessage::Find(message)) {
    OnHotTimecodeVideoTimeDisplayChanged(video->Get<0>());
  } else if (auto const* const audio = HotTimecodeAudioTimeDisplayChangedMessage::Find(message)) {
    OnHotTimecodeAudioTimeDisplayChanged(audio->Get<0>());
  }
}

// Both leave the field's own formats as they are: it returns to them when they are set again.
void UI_HotTimecodeControl::OnHotTimecodeVideoTimeDisplayChanged(TimeDisplay display) {
  if (mDisplayType == DisplayType::kVideo && display != mModel.GetFormat()) {
    SetFormat(display, mVideoRate);
  }
}

void UI_HotTimecodeControl::OnHotTimecodeAudioTimeDisplayChanged(TimeDisplay display) {
  if (mDisplayType == DisplayType::kAudio && display != mModel.GetFormat()) {
    SetFormat(display, mAudioRate);
  }
}

}  // namespace moxmediaui
