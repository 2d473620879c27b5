#include "presets/PresetModel.h"

#include "audio/AudioSession.h"
#include "program/Localized.h"
#include "shell/EventLog.h"

#include <filesystem>

namespace playground {
namespace {

using moxappsupport::presets::SkippedFile;
using moxappsupport::presets::SkipReason;
using moxmediaui::PresetInfo;

std::string NameOf(SkippedFile const& skipped) {
  return std::filesystem::path(std::string(skipped.file.FullPath())).filename().string();
}

std::string SentenceOf(SkippedFile const& skipped) {
  std::string const name = NameOf(skipped);
  switch (skipped.reason) {
    case SkipReason::kGone:
      return Text("$$$/playground/presets/skippedGone=@0: it vanished meanwhile", {name});
    case SkipReason::kUnreadable:
      return Text("$$$/playground/presets/skippedUnreadable=@0: it can't be read", {name});
    case SkipReason::kTooLong:
      return Text("$$$/playground/presets/skippedTooLong=@0: it is too long", {name});
    case SkipReason::kMalformed:
      break;
    case SkipReason::kNoGuid:
      return Text("$$$/playground/presets/skippedNoGuid=@0: its preset has no identity", {name});
  }
  return Text("$$$/playground/presets/skippedMalformed=@0: it holds no preset of this kind", {name});
}

}  // namespace

PresetModel::PresetModel(AudioSession& session, WaveformPresets& presets, EventLog& log)
    : PresetCacheAdapter(presets.Cache(), presets.Current(), {}),
      mSession(session),
      mPresets(presets),
      mLog(log) {
  SetReadCurrentData([&session](WaveformPresetData& data) {
    data.style = session.Settings();
    return true;
  });
  SetApplyPreset([&session](PresetType const& preset) {
    session.ChangeSettings(
        [&preset](WaveformSettings& settings) { static_cast<WaveformStyle&>(settings) = preset.data.style; });
    return true;
  });
  SettingsChanged();
}

PresetModel::~PresetModel() = default;

// Without any preset there is nothing to differ from.
bool PresetModel::Differs() const {
  return !GetCurrentPreset().guid.IsNil() && !(GetCurrentPreset().data.style == mSession.Settings());
}

void PresetModel::SettingsChanged() {
  if (bool const differs = Differs(); differs != IsModified()) {
    SetModified(differs);
  }
}

void PresetModel::NoteCurrent() {
  mPresets.SetCurrent(GetCurrentPreset().guid);
}

void PresetModel::Reload() {
  mPresets.Cache()->Reload();
  SelectPreset(GetCurrentPreset().guid);
  SettingsChanged();
  NoteCurrent();
  auto const& skipped = mPresets.Cache()->GetSkippedFiles();
  mLog.Add(Text("$$$/playground/presets/read=Presets: @0, files without a preset: @1",
                {std::to_string(mPresets.Cache()->GetPresets().size()), std::to_string(skipped.size())}));
  for (SkippedFile const& file : skipped) {
    mLog.Add(NameOf(file) + ": " + std::string(file.detail));
  }
}

std::string PresetModel::Folder() const {
  return std::string(mPresets.Cache()->GetDir().FullPath());
}

std::vector<std::string> PresetModel::SkippedFiles() const {
  std::vector<std::string> sentences;
  for (SkippedFile const& file : mPresets.Cache()->GetSkippedFiles()) {
    sentences.push_back(SentenceOf(file));
  }
  return sentences;
}

bool PresetModel::Told(bool isDone, std::string_view done, std::string_view failed,
                       moxcore::Utf8String const& name) {
  NoteCurrent();
  mLog.Add(Text(isDone ? done : failed, {std::string_view(name)}));
  return isDone;
}

bool PresetModel::LoadPreset(PresetInfo const& info) {
  return Told(PresetCacheAdapter::LoadPreset(info), "$$$/playground/presets/loaded=Preset chosen: @0",
              "$$$/playground/presets/notLoaded=The preset @0 couldn't be loaded.", info.name);
}

bool PresetModel::SavePreset(PresetInfo const& info) {
  return Told(PresetCacheAdapter::SavePreset(info), "$$$/playground/presets/saved=Preset saved: @0",
              "$$$/playground/presets/notSaved=The preset @0 couldn't be saved.", info.name);
}

bool PresetModel::RemovePreset(PresetInfo const& info) {
  return Told(PresetCacheAdapter::RemovePreset(info), "$$$/playground/presets/removed=Preset deleted: @0",
              "$$$/playground/presets/notRemoved=The preset @0 couldn't be deleted.", info.name);
}

}  // namespace playground
