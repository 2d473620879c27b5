#pragma once

#include "audio/AudioSession.h"
#include "shell/EventLog.h"
#include "shell/Page.h"

#include <moxmediaui/PresetsView.h>
#include <moxui/controls/UI_StaticText.h>
#include <moxui/controls/UI_TextButton.h>

#include <memory>

namespace playground {

class EventLogView;
class PresetModel;
class PropertyPanel;
class ShownPreset;
class StateTable;
class WaveformPreview;

// Presets of the audio page's view: a picker over them, what they look like at once, all that they are made
// of, and the files in their folder that hold none; and the picker frozen in each of its states.
class PresetsPage : public Page {
 public:
  explicit PresetsPage(PageContext const& context);
  ~PresetsPage() override;

  void ShowState(std::size_t state) override;
  void ResumeState(std::size_t state) override;
  void Settle() override;
  float GetScrollOffset() const override;
  void SetScrollOffset(float offset) override;

  moxmediaui::PresetsView& Picker() const { return *mPicker; }
  moxui::controls::UI_TextButton& ReloadButton() const { return *mReload; }
  PropertyPanel& Panel() const;
  WaveformPreview& Preview() const;
  StateTable& States() const;
  EventLog const& Skipped() const { return mSkipped; }
  EventLogView& SkippedView() const;
  moxcore::Utf16String const& FolderText() const { return mFolder->GetValue(); }

  void UI_SizeChanged(moxui::RectT<float> const& rect) override;

 private:
  void ShowStates(bool show);
  void SessionChanged(SessionChanges changes);
  void ListSkipped();
  void Reload();

  AudioSession& mSession;
  EventLog& mLog;
  EventLog mSkipped;
  std::unique_ptr<PresetModel> mModel;
  moxcore::utility::IntrusivePtr<moxmediaui::PresetsView> mPicker;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_StaticText> mFolder;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_TextButton> mReload;
  moxcore::utility::IntrusivePtr<WaveformPreview> mPreview;
  moxcore::utility::IntrusivePtr<EventLogView> mSkippedView;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_StaticText> mHint;
  moxcore::utility::IntrusivePtr<PropertyPanel> mPanel;
  std::unique_ptr<ShownPreset> mShown;  // in the table
  moxcore::utility::IntrusivePtr<StateTable> mStates;
};

// Its entry in the list of pages.
PageDescriptor PresetsPageDescriptor();

}  // namespace playground
