#pragma once

#include "presets/WaveformPresets.h"

#include <moxmediaui/PresetCacheAdapter.h>

#include <string>
#include <vector>

namespace playground {

class AudioSession;
class EventLog;

// The presets of a session's view, as a picker asks for them. What is chosen, saved and deleted is told in
// the log, failures too. All three outlive the model, which belongs to a page: its texts are in the language
// of the moment.
class PresetModel : public moxmediaui::PresetCacheAdapter<WaveformPresetCache> {
 public:
  PresetModel(AudioSession& session, WaveformPresets& presets, EventLog& log);
  ~PresetModel() override;

  // The settings may be others than before.
  void SettingsChanged();
  // Reads the folder anew.
  void Reload();
  // The folder with the files.
  std::string Folder() const;
  // A sentence for each file that gave no preset.
  std::vector<std::string> SkippedFiles() const;

  bool LoadPreset(moxmediaui::PresetInfo const& info) override;
  bool SavePreset(moxmediaui::PresetInfo const& info) override;
  bool RemovePreset(moxmediaui::PresetInfo const& info) override;

 private:
  bool Differs() const;
  void NoteCurrent();
  bool Told(bool isDone, std::string_view done, std::string_view failed, moxcore::Utf8String const& name);

  AudioSession& mSession;
  WaveformPresets& mPresets;
  EventLog& mLog;
};

}  // namespace playground
