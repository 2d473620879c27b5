#pragma once

#include "channels/LayoutTable.h"
#include "shell/EventLog.h"
#include "shell/Page.h"

#include <moxui/controls/UI_TextButton.h>

#include <string>

namespace playground {

class ChannelDesk;
class ChannelList;
class EventLogView;

// Popups of channel layouts, kept in step with the presets on disk, and the editor behind them. What the
// first one shows names the channels of the sound on the audio page, if it has as many.
class ChannelsPage : public Page {
 public:
  explicit ChannelsPage(PageContext const& context);
  ~ChannelsPage() override;

  void ShowState(std::size_t state) override;
  // States are places to begin from.
  void ResumeState(std::size_t) override {}

  LayoutTable& Table() const { return *mTable; }
  ChannelList& Channels() const;
  EventLogView& Skipped() const;
  EventLog& SkippedFiles() { return mSkipped; }
  moxui::controls::UI_TextButton& ReloadButton() const { return *mReload; }
  // Reads the presets anew.
  void Reload();
  // Whether the sound has taken the layout, in a sentence; and whether a WAV file can say it.
  std::string AppliedText() const;
  std::string WaveText() const;

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  void UI_SizeChanged(moxui::RectT<float> const& rect) override;

 private:
  void MakeTable();
  void Follow();
  void Choose(ChannelDesk::Layout layout);
  void LayoutChanged(LayoutUse use, LayoutPopups::Edit edit);
  void Apply();
  void Show();
  void LayOut();
  bool IsRefused() const;
  moxui::RectT<float> AppliedRect() const;

  AudioSession& mSession;
  ChannelDesk& mDesk;
  EventLog& mLog;
  EventLog mSkipped;
  moxcore::utility::IntrusivePtr<LayoutTable> mTable;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_StaticText> mApplied;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_StaticText> mWave;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_StaticText> mHeading;  // of the channels
  moxcore::utility::IntrusivePtr<moxui::controls::UI_TextButton> mReload;
  moxcore::utility::IntrusivePtr<ChannelList> mChannels;
  moxcore::utility::IntrusivePtr<EventLogView> mSkippedView;
};

// Its entry in the list of pages.
PageDescriptor ChannelsPageDescriptor();

}  // namespace playground
