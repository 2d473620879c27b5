#pragma once

#include <moxcore/messaging/Listener.h>
#include <moxcore/messaging/MessageBase.h>
#include <moxmediaui/HostTypes.h>
#include <moxmediaui/TimecodeControlNotifier.h>
#include <moxmediaui/TimecodeModel.h>
#include <moxui/controls/FocusVisibility.h>
#include <moxui/controls/UI_TextEdit.h>
#include <moxui/scriber/ImageInterface.h>
#include <moxui/ui/MouseEvent.h>
#include <moxui/ui/UI_SubView.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace moxmediaui {

struct MessageNameForHotTimecodeValueChangingMessage {};
struct MessageNameForHotTimecodeValueChangedMessage {};
struct MessageNameForHotTimecodeVideoTimeDisplayChangedMessage {};
struct MessageNameForHotTimecodeAudioTimeDisplayChangedMessage {};
struct MessageNameForRadialControllerChange {};

/// The user is moving, or has settled, the value of the field with an identifier. The time is without the
/// field's offset.
using HotTimecodeValueChangingMessage =
    moxcore::messaging::MessageBase<MessageNameForHotTimecodeValueChangingMessage, TickTime, std::uint32_t>;
using HotTimecodeValueChangedMessage =
    moxcore::messaging::MessageBase<MessageNameForHotTimecodeValueChangedMessage, TickTime, std::uint32_t>;
/// The user chose a format for video or audio; fields on the same station follow.
using HotTimecodeVideoTimeDisplayChangedMessage =
    moxcore::messaging::MessageBase<MessageNameForHotTimecodeVideoTimeDisplayChangedMessage, TimeDisplay>;
using HotTimecodeAudioTimeDisplayChangedMessage =
    moxcore::messaging::MessageBase<MessageNameForHotTimecodeAudioTimeDisplayChangedMessage, TimeDisplay>;
/// A radial controller was turned by so many steps; on the station "moxmediaui.rc.station".
using RadialControllerChangeMessage =
    moxcore::messaging::MessageBase<MessageNameForRadialControllerChange, long long>;

/// A field that shows a time as hot text. It is dragged to move the time, a step for each pixel to the right
/// or upward (with Shift a second, a foot or 100 frames), and clicked to be typed into. With the keyboard
/// focus, arrow keys step and Enter opens the edit. It can offer its formats in a context menu.
///
/// Setters are silent; what the user does goes to GetStationID() as HotTimecodeValueChangingMessage for each
/// step and HotTimecodeValueChangedMessage at the end of a drag, of an edit and of a run of arrow keys.
///
/// Bounds, offset and value are those of TimecodeModel, which tells how they hang together. Video and audio
/// have a format and a rate each; the display type says which of the two is in use. Main thread only.
class UI_HotTimecodeControl : public moxcore::messaging::Listener,
                              public TimecodeControlListener,
                              public moxui::ui::UI_SubView {
 public:
  /// Puts the formats to offer for a rate into the list.
  using SupportedVideoFormatCallback = std::function<void(FrameRate, std::vector<TimeDisplay>&)>;

  UI_HotTimecodeControl();
  ~UI_HotTimecodeControl() override;

  // Value
  /// Invalidates, if that is wanted, only when the value changes.
  void SetTime(TickTime time, bool invalidate);
  /// As TimecodeModel::SetText; neither invalidates nor tells anybody.
  void SetTime(Utf16String const& text);
  TickTime GetTime() const { return mModel.GetTime(); }
  void SetMinTime(TickTime time);
  TickTime GetMinTime() const { return mModel.GetMinTime(); }
  void SetMaxTime(TickTime time);
  TickTime GetMaxTime() const { return mModel.GetMaxTime(); }
  void SetOffsetTime(TickTime offset);
  TickTime GetOffsetTime() const { return mModel.GetOffset(); }
  void SetStyle(std::uint32_t style);
  std::uint32_t GetStyle() const { return mModel.GetStyle(); }
  Utf16String GetTimecodeString() const { return mModel.GetText(); }
  /// A text other than the empty one is taken as the value, as if typed, or, with `inlineOnly`, merely put
  /// into the edit. The empty one puts the value's text into the edit, or does nothing with `inlineOnly`.
  void SetTimecodeString(Utf16String const& text, bool inlineOnly);

  // Format and rate
  /// Nothing happens when neither is another one.
  void SetFormat(TimeDisplay display, FrameRate rate);
  void SetDisplayType(DisplayType type);
  DisplayType GetDisplayType() const { return mDisplayType; }
  /// Those stored for the display type, which SetFormat doesn't change; FrameRate::kInvalid and
  /// TimeDisplay::kNone for a type that isn't one.
  FrameRate GetFrameRate() const;
  TimeDisplay GetTimeDisplay() const;
  /// Stores a pair, and has the field stay with its own pairs for good, whatever the host tells later.
  void ResetFrameRate(TimeDisplay display, FrameRate rate, DisplayType type);
  /// Stores both pairs, those of a field that stays with its own too.
  void SyncToTimecodeInfo(TimecodeInfo const& info);
  /// Becomes the listener of the notifier, which is kept.
  void SetTimecodeControlInfo(TimecodeControlInfo const& info);
  void OnRefreshTimecodeInfo(TimecodeInfo const& info) override;
  void OnRefreshFrameCountOffset() override;
  void SetQuantizeFrameRate(TimeDisplay display, FrameRate rate) { mModel.SetQuantization(display, rate); }

  // Plain stores: the next repaint or input acts on them.
  void SetTimecodeOptions(TimecodeOptions options) { mTimecodeOptions = options; }
  void SetInvalidDisplayType(InvalidDisplay display) { mModel.SetInvalidDisplay(display); }
  InvalidDisplay GetInvalidDisplayType() const { return mModel.GetInvalidDisplay(); }
  /// A fixed field can neither be dragged nor edited.
  void SetAsFixed(bool fixed) { mIsFixed = fixed; }
  bool GetIsFixed() const { return mIsFixed; }
  /// Sent along with the value.
  void SetIdentifier(std::uint32_t identifier) { mIdentifier = identifier; }
  std::uint32_t GetIdentifier() const { return mIdentifier; }
  /// Allows the context menu and the cycling of formats.
  void SetAllowDisplayFormatOverride(bool allow) { mAllowDisplayFormatOverride = allow; }
  void UseCustomTextColor(bool use) { mUseCustomTextColor = use; }
  /// Null, or null in it: the formats that belong to the rate.
  void SetSupportedVideoFormatCallback(std::shared_ptr<SupportedVideoFormatCallback> callback);

  // Stations
  /// Where format changes are published, and heard from now on; the empty name for nowhere. At first it is
  /// the station of the whole program, and is not heard: that takes a call.
  void SetTimeDisplayChangedStationID(ImmutableString station);
  ImmutableString GetTimeDisplayChangedStationID() const { return mTimeDisplayStation; }
  /// Where values are published, a station of this field alone.
  ImmutableString GetStationID() const { return mStationID; }
  void ListenToMessage(moxcore::messaging::Message const& message) override;

  // Appearance
  IntrusivePtr<moxui::controls::UI_TextEdit> const& GetTextControl() const { return mTextEdit; }
  /// Whether the text is being edited.
  bool HasFocus() const;
  /// The font of the edit; 0 points for the size's own.
  void SetTextSize(TextSize size, float points);
  TextSize GetTextSize() const { return mTextSize; }
  /// Of the edit.
  void SetTextAlignment(TextAlignment alignment, bool invalidate);
  /// Shows an image beside the field, outside of its rectangle, and makes room for it in the edit; null shows
  /// none and leaves the edit as it is. Images smaller than 2 either way count as 1 by 1.
  void SetSymbol(IntrusivePtr<ImageInterface> image, bool onLeft);
  void SetHorizontalSymbolOffset(int offset);
  void SetVerticalSymbolOffset(int offset);
  /// What an owner would draw the field's text in.
  ColorRGBA GetTextColor() const;
  void SetCustomTextColor(ColorRGBA const& color, bool invalidate);
  void SetUseInvalidColor(bool use, ColorRGBA const& color, bool invalidate);
  bool GetUseInvalidColor() const { return mUseInvalidColor; }
  ColorRGBA GetInvalidColor() const { return mInvalidColor; }
  void SetUseTextColorForFixed(bool use, bool invalidate);
  bool GetUseTextColorForFixed() const { return mUseTextColorForFixed; }

  // Input
  /// Whether the left button went down on the field and isn't up yet.
  bool IsScrubbing() const { return mIsScrubbing; }
  void LeftButtonUpSelf(moxui::ui::MouseEvent const& event);
  void MouseMoveSelf(moxui::ui::MouseEvent const& event);
  /// Whether the pointer is over the field and the field's panel is the focused one.
  bool IsInActiveHover() const;

  void UI_Draw(Scriber* scriber) const override;
  PaddingT<float> UI_GetDrawOverhang() const override;
  bool UI_DoPointerEvent(moxui::ui::UI_Node* node, moxui::ui::PointerEvent const& event) override;
  bool UI_DoMouseEvent(moxui::ui::UI_Node* node, moxui::ui::MouseEvent const& event) override;
  bool UI_DoPreKeyboardEvent(moxui::ui::UI_Node* node, moxui::ui::KeyboardEvent const& event) override;
  bool UI_DoKeyboardEvent(moxui::ui::UI_Node* node, moxui::ui::KeyboardEvent const& event) override;
  bool UI_DoCursor(moxui::ui::UI_Node* node, PointT<float> point, unsigned flags) override;
  bool UI_DoTimerNotify(int id) override;
  /// An edit that is open goes on covering the field.
  void UI_SizeChanged(RectT<float> const& rect) override;
  void UI_FocusChanged(moxui::ui::FocusChangeReason reason) override;
  bool UI_WantsKeyboardFocus() const override;
  moxui::ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;
  moxcore::Utf8String UI_GetAccessibleValue() const override;
  moxui::ui::AccessibleState UI_GetAccessibleState() const override;
  bool UI_DoAccessibleAction() override;

 protected:
  void SetDisplay();
  TimeDisplay GetQuantizeFormat() const { return mModel.GetQuantizeFormat(); }
  FrameRate GetQuantizeFrameRate() const { return mModel.GetQuantizeRate(); }
  /// 1: formats other than timecode count from one. Acts when the format or the offset is set next, or the
  /// host refreshes it.
  void SetGeneralClipMediaFrameCountOffset(int offset) { mGeneralClipMediaFrameCountOffset = offset; }
  bool UpdateTimecodeWithString(Utf16String const& text) { return mModel.SetText(text); }
  void SetInlineTextStringFromTimecode();
  moxcore::Utf8String GetToolTipTextSelf() const { return UI_GetToolTip(); }
  /// Whether right presses go on to the nodes above.
  void SetHandleRightClick(bool handle) { mHandleRightClick = handle; }
  bool ShouldHandleRightClick() const { return mHandleRightClick; }
  /// From the field's left to a text beside a left symbol.
  int GetTextInset() const { return mTextInset; }

  void LeftButtonDownSelf(moxui::ui::MouseEvent const& event);
  void LeftButtonMultiClickSelf(moxui::ui::MouseEvent const& event);
  void RightButtonDownSelf(moxui::ui::MouseEvent const& event);
  void CycleTimecodeDisplayFormat();
  void IncrementTimecode(int count, Flags<unsigned char> mods);
  bool SetCursorSelf();
  void HideCursorIntern();
  void AddTabletPenMouseMoveValueToHistory(TickTime value);
  void OnRadialControllerChange(long long delta);
  void OnHotTimecodeVideoTimeDisplayChanged(TimeDisplay display);
  void OnHotTimecodeAudioTimeDisplayChanged(TimeDisplay display);

 private:
  /// A value that a pen's move led to.
  struct PenMove {
    double milliseconds = 0.0;
    TickTime value;
  };

  void UpdateFrameCountOffset();
  void StoreTimecodeInfo(TimecodeInfo const& info);
  void InvalidateIf(bool invalidate);
  PointT<float> SymbolPosition() const;
  void DrawFocusRing(Scriber* scriber) const;
  bool DoLeftButtonEvent(moxui::ui::MouseEvent const& event);
  bool CanSetCursor() const;
  void ShowCursorIntern();
  void SetValueToBeforeTabletPenSlopTime();
  void EndScrub();
  void OpenEdit(bool byKey);
  void EndEdit();
  bool DoStepKey(moxui::ui::KeyboardEvent const& event);
  bool IsInFocusedTabPanel(IntrusivePtr<moxui::ui::UI_Node> node) const;
  void GetSupportedVideoFormats(FrameRate rate, std::vector<TimeDisplay>& formats) const;
  void ChooseAudioItem(int item);
  void ChooseVideoItem(int item, std::vector<TimeDisplay> const& formats);
  void BroadcastChangingMessage();
  void BroadcastChangedMessage();
  void BroadcastVideoTimeDisplay();
  void BroadcastAudioTimeDisplay();

  std::shared_ptr<SupportedVideoFormatCallback> mSupportedFormatCallback;
  TimecodeModel mModel;
  TimecodeOptions mTimecodeOptions = TimecodeOptions::kSupportedFormats;
  TickTime mFrameCountOffset;  ///< the part of the offset that stems from counting from one
  std::shared_ptr<TimecodeControlNotifier> mNotifier;
  bool mFollowsTimecodeInfo = true;
  DisplayType mDisplayType = DisplayType::kVideo;
  TimeDisplay mVideoDisplay;
  FrameRate mVideoRate;
  TimeDisplay mAudioDisplay;
  FrameRate mAudioRate;
  std::int32_t mGeneralClipMediaFrameCountOffset = 0;
  bool mFrameCountOffsetFrozen = false;
  bool mAllowDisplayFormatOverride = false;
  ImmutableString mTimeDisplayStation;
  ImmutableString mStationID;
  bool mHasSymbol = false;
  bool mSymbolOnLeft = false;
  IntrusivePtr<ImageInterface> mSymbol;
  int mSymbolWidth = 0;
  int mSymbolHeight = 0;
  int mTextInset = 0;
  int mHorizontalSymbolOffset = 0;
  int mVerticalSymbolOffset = 0;
  std::uint32_t mIdentifier = 0;
  bool mIsFixed = false;
  TextSize mTextSize = TextSize::kToolkit;
  float mFontSize = 11.0f;
  IntrusivePtr<moxui::controls::UI_TextEdit> mTextEdit;
  bool mUseCustomTextColor = false;
  ColorRGBA mCustomTextColor{0, 0, 0, 0};
  bool mIsScrubbing = false;
  bool mScrubStarted = false;  ///< moved far enough to be a drag
  int mScrubAxis = -1;         ///< -1 none yet, 0 horizontal, 1 vertical
  PointT<float> mLastPosition;
  PointT<float> mPressGlobalPosition;
  std::vector<PenMove> mPenHistory;  ///< newest first
  bool mUseTextColorForFixed = false;
  bool mUseInvalidColor = false;
  ColorRGBA mInvalidColor;
  bool mHandleRightClick = false;
  bool mCursorHidden = false;
  bool mIsPenEvent = false;
  int mTimerID;
  moxui::controls::FocusVisibility mFocusVisibility;
  bool mHasOwnFocus = false;    ///< the field itself rather than its edit
  bool mSteppedByKeys = false;  ///< since it got it
  bool mEditOpenedByKey = false;
  bool mTextIsBehind = false;  ///< a step is being told, and the edit has the text from before it
};

}  // namespace moxmediaui
