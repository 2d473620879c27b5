#pragma once

#include "audio/AudioSession.h"
#include "properties/Property.h"
#include "shell/Page.h"

#include <moxui/controls/UI_Popup.h>
#include <moxui/controls/UI_StaticText.h>
#include <moxui/controls/UI_TextButton.h>

#include <optional>
#include <string>

namespace playground {

class ChannelGutter;
class EditBar;
class ExportBar;
enum class ExportKind;
class OverviewBar;
class PeakProgress;
class PropertyPanel;
class TimeRulerView;
class TransportBar;
class WaveformView;

// The waveform of a sound with everything around it: names of the channels, times, an overview to scroll by,
// read-outs, and a panel with every property of the drawing. Its states are places to begin from: the whole
// sound, a selection, single samples, channels in one layer, no sound at all.
class AudioPage : public Page {
 public:
  explicit AudioPage(PageContext const& context);
  ~AudioPage() override;

  void ShowState(std::size_t state) override;
  void ResumeState(std::size_t) override {}
  void Settle() override;
  // Of the panel.
  float GetScrollOffset() const override;
  void SetScrollOffset(float offset) override;

  WaveformView& Waveform() const;
  ChannelGutter& Gutter() const;
  OverviewBar& Overview() const;
  TimeRulerView& Ruler() const;
  PropertyPanel& Panel() const;
  PeakProgress& Progress() const;
  EditBar& Edit() const;
  TransportBar& Playback() const;
  ExportBar& Exporting() const;
  moxui::controls::UI_Popup& Sounds() const { return *mSounds; }
  // What the line about failures says; empty when there are none.
  std::string FailureText() const;
  // Whether the view is high enough for the channels as they are laid out.
  bool ChannelsFit() const;
  // What stands in the line below the waveform.
  moxcore::Utf16String const& ReadOut() const { return mReadOut->GetValue(); }

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  void UI_SizeChanged(moxui::RectT<float> const& rect) override;
  void UI_ScaleChanged(float scale) override;
  void UI_NodeChanged(moxui::ui::NodeChange change) override;
  bool UI_DoTimerNotify(int id) override;
  bool UI_DoPreKeyboardEvent(moxui::ui::UI_Node* node, moxui::ui::KeyboardEvent const& event) override;
  bool UI_DoKeyboardEvent(moxui::ui::UI_Node* node, moxui::ui::KeyboardEvent const& event) override;
  void UI_FocusChanged(moxui::ui::FocusChangeReason reason) override;
  bool CancelDrag() override;
  bool HandleShortcut(moxui::ui::KeyboardEvent const& event) override;

 private:
  void AskAndExport(ExportKind kind);
  float NoticesHeight() const;
  void SessionChanged(SessionChanges changes);
  void DocumentChanged();
  void LayOut();
  void ShowProgress();
  void ShowReadOut();
  void LogSelection();
  void PropertyChanged(Property const& property, std::string const& value);
  moxui::RectT<float> WaveformFrame() const;

  AudioSession& mSession;
  Transport& mTransport;
  EventLog& mLog;
  std::function<std::string(moxui::platform::FileRequest request)> mAskWhereToSave;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_Popup> mSounds;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_StaticText> mSummary;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_StaticText> mFailure;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_TextButton> mDismiss;
  moxcore::utility::IntrusivePtr<EditBar> mEdit;
  moxcore::utility::IntrusivePtr<ExportBar> mExport;
  moxcore::utility::IntrusivePtr<ChannelGutter> mGutter;
  moxcore::utility::IntrusivePtr<TimeRulerView> mRuler;
  moxcore::utility::IntrusivePtr<WaveformView> mWaveform;
  moxcore::utility::IntrusivePtr<OverviewBar> mOverview;
  moxcore::utility::IntrusivePtr<TransportBar> mPlayback;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_StaticText> mReadOut;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_StaticText> mHint;
  moxcore::utility::IntrusivePtr<PeakProgress> mProgress;
  moxcore::utility::IntrusivePtr<PropertyPanel> mPanel;
  std::optional<int> mHoveredColumn;
};

}  // namespace playground
