// What a timecode field holds: its value, formats, rates and stations.
#include "frame/StationNames.h"

#include <moxcore/messaging/Station.h>
#include <moxmediatypes/TimeDisplay.h>
#include <moxmediaui/HotTimecodeControl.h>
#include <moxui/skins/ThemeColors.h>
#include <moxui/ui/UI_NodeManager.h>

#include <utility>

namespace moxmediaui {

namespace messaging = moxcore::messaging;
using moxui::ui::UI_NodeManager;

UI_HotTimecodeControl::UI_HotTimecodeControl()
    : mTimeDisplayStation(sTimeDisplayChangedStation),
      mStationID(messaging::UniqueStationID()),
      mInvalidColor(moxui::skins::utilities::GetDefaultTextDisabledColor(this)),
      mTimerID(UI_NodeManager::GetUniqueTimerID()) {
  messaging::RegisterStation(mStationID);
  UpdateFrameCountOffset();
  mTextEdit = moxcore::utility::MakeIntrusive<moxui::controls::UI_TextEdit>();
  mTextEdit->UI_Hide(true);
  ChildPushBack(mTextEdit);
  SetInlineTextStringFromTimecode();
}

UI_HotTimecodeControl::~UI_HotTimecodeControl() {
  if (mCursorHidden) {
    ShowCursorIntern();
  }
  messaging::DisposeStation(mStationID);
}

// Value

void UI_HotTimecodeControl::SetTime(TickTime time, bool invalidate) {
  bool const changes = mModel.SetTime(time);
  SetInlineTextStringFromTimecode();
  InvalidateIf(invalidate && changes);
}

void UI_HotTimecodeControl::SetTime(Utf16String const& text) {
  mModel.SetText(text);
  SetInlineTextStringFromTimecode();
}

void UI_HotTimecodeControl::SetMinTime(TickTime time) {
  mModel.SetMinTime(time);
  SetInlineTextStringFromTimecode();
}

void UI_HotTimecodeControl::SetMaxTime(TickTime time) {
  mModel.SetMaxTime(time);
  SetInlineTextStringFromTimecode();
}

void UI_HotTimecodeControl::SetOffsetTime(TickTime offset) {
  mModel.SetOffset(offset);
  UpdateFrameCountOffset();
  SetInlineTextStringFromTimecode();
}

void UI_HotTimecodeControl::SetStyle(std::uint32_t style) {
  mModel.SetStyle(style);
  SetInlineTextStringFromTimecode();
}

void UI_HotTimecodeControl::SetTimecodeString(Utf16String const& text, bool inlineOnly) {
  if (!inlineOnly && !text.empty()) {
    mModel.SetText(text);
    UI_Invalidate();
    return;
  }
  if (inlineOnly && text.empty()) {
    return;
  }
  Utf16String const& shown = inlineOnly ? text : mModel.GetText();
  if (mTextEdit->GetValue() != shown) {
    mTextEdit->SetValue(shown, false);
  } else {
    InvalidateIf(!inlineOnly);
  }
}

void UI_HotTimecodeControl::SetInlineTextStringFromTimecode() {
  Utf16String const text = mModel.GetText();
  if (mTextEdit->GetValue() != text) {
    mTextEdit->SetValue(text, false);
    UI_TellAccessibleChange(moxui::ui::AccessibleChange::kValue);
  }
}

void UI_HotTimecodeControl::InvalidateIf(bool invalidate) {
  if (invalidate) {
    UI_Invalidate();
  }
}

// Format and rate

void UI_HotTimecodeControl::SetFormat(TimeDisplay display, FrameRate rate) {
  if (!mModel.SetFormat(display, rate)) {
    return;
  }
  UpdateFrameCountOffset();
  UI_Invalidate();
  SetInlineTextStringFromTimecode();
}

// A type that isn't one has no pair, and the format stays.
void UI_HotTimecodeControl::SetDisplay() {
  if (mDisplayType == DisplayType::kVideo) {
    SetFormat(mVideoDisplay, mVideoRate);
  } else if (mDisplayType == DisplayType::kAudio) {
    SetFormat(mAudioDisplay, mAudioRate);
  }
}

void UI_HotTimecodeControl::SetDisplayType(DisplayType type) {
  if (std::exchange(mDisplayType, type) != type) {
    SetDisplay();
  }
}

FrameRate UI_HotTimecodeControl::GetFrameRate() const {
  switch (mDisplayType) {
    case DisplayType::kVideo:
      return mVideoRate;
    case DisplayType::kAudio:
      return mAudioRate;
  }
  return FrameRate::kInvalid;
}

TimeDisplay UI_HotTimecodeControl::GetTimeDisplay() const {
  switch (mDisplayType) {
    case DisplayType::kVideo:
      return mVideoDisplay;
    case DisplayType::kAudio:
      return mAudioDisplay;
  }
  return TimeDisplay(TimeDisplay::kNone);
}

void UI_HotTimecodeControl::ResetFrameRate(TimeDisplay display, FrameRate rate, DisplayType type) {
  mFollowsTimecodeInfo = false;
  if (type == DisplayType::kVideo) {
    mVideoDisplay = display;
    mVideoRate = rate;
  } else if (type == DisplayType::kAudio) {
    mAudioDisplay = display;
    mAudioRate = rate;
  }
  if (type == mDisplayType) {
    SetDisplay();
  }
}

void UI_HotTimecodeControl::StoreTimecodeInfo(TimecodeInfo const& info) {
  mVideoDisplay = info.videoDisplay;
  mVideoRate = info.videoRate;
  mAudioDisplay = info.audioDisplay;
  mAudioRate = info.audioRate;
}

void UI_HotTimecodeControl::SyncToTimecodeInfo(TimecodeInfo const& info) {
  StoreTimecodeInfo(info);
  SetDisplay();
}

void UI_HotTimecodeControl::SetTimecodeControlInfo(TimecodeControlInfo const& info) {
  StoreTimecodeInfo({info.videoDisplay, info.videoRate, info.audioDisplay, info.audioRate});
  mNotifier = info.notifier;
  if (mNotifier != nullptr) {
    mNotifier->ClearListener();
    mNotifier->SetListener(this);
  }
  SetDisplay();
}

void UI_HotTimecodeControl::OnRefreshTimecodeInfo(TimecodeInfo const& info) {
  if (mFollowsTimecodeInfo) {
    SyncToTimecodeInfo(info);
    SetInlineTextStringFromTimecode();
  }
}

void UI_HotTimecodeControl::OnRefreshFrameCountOffset() {
  if (!mFrameCountOffsetFrozen) {
    UpdateFrameCountOffset();
    UI_Invalidate();
    SetInlineTextStringFromTimecode();
  }
}

// Counts of a clip's frames and feet begin at one, timecode at zero; the shift travels with the bounds, so
// that the time given out stays the same.
void UI_HotTimecodeControl::UpdateFrameCountOffset() {
  bool const countsFromOne = !moxmediatypes::IsHMSFTimeDisplay(mModel.GetFormat(), false) &&
                             !mFrameCountOffsetFrozen && mGeneralClipMediaFrameCountOffset == 1;
  TickTime const before =
      std::exchange(mFrameCountOffset, countsFromOne ? TickTime(1, mModel.GetFrameRate()) : TickTime());
  if (before != mFrameCountOffset) {
    mModel.SetOffset(mModel.GetOffset() - before + mFrameCountOffset);
  }
}

void UI_HotTimecodeControl::SetSupportedVideoFormatCallback(
    std::shared_ptr<SupportedVideoFormatCallback> callback) {
  mSupportedFormatCallback = std::move(callback);
}

void UI_HotTimecodeControl::SetTimeDisplayChangedStationID(ImmutableString station) {
  messaging::RemoveListener(mTimeDisplayStation, this);
  mTimeDisplayStation = station;
  if (!station.empty()) {
    messaging::AddWeakPtrListener(station, messaging::ListenerOwner(this), this);
  }
}

}  // namespace moxmediaui
