#pragma once

#include <moxcore/filesupport/Dir.h>
#include <moxcore/filesupport/DirLock.h>
#include <moxcore/filesupport/File.h>
#include <moxcore/messaging/Signal.h>
#include <moxcore/serialization/JSON.h>
#include <moxcore/string/String.h>
#include <moxcore/utility/Guid.h>
#include <moxcore/utility/Noncopyable.h>
#include <moxmediaui/Preset.h>

#include <algorithm>
#include <cstdint>
#include <exception>
#include <functional>
#include <map>
#include <optional>
#include <utility>
#include <vector>

/// Presets on disk: a file for each, below GetLocalPresetsBaseDir() of moxappsupport/LocalPresets.h. For use
/// on the UI thread.
namespace moxappsupport::presets {

/// Why a file in a preset directory gave no preset.
enum class SkipReason {
  kGone,        ///< it vanished while the directory was read
  kUnreadable,  ///< it can't be opened or read
  kTooLong,     ///< it has more than 4294967295 bytes
  kMalformed,   ///< it holds no preset
  kNoGuid,      ///< its GUID is nil, or its root is no object
};

struct SkippedFile {
  moxcore::filesupport::File file;
  SkipReason reason = SkipReason::kMalformed;
  /// What was wrong in detail, for a log: not for users.
  moxcore::Utf8String detail;
};

/// The directory of one family of presets, and which of its files holds which preset.
class DirBasedStorage : public moxcore::utility::noncopyable {
 public:
  /// The files that the last loading passed over, in order of their names.
  std::vector<SkippedFile> const& GetSkippedFiles() const noexcept { return mSkipped; }
  moxcore::filesupport::Dir const& GetDir() const noexcept { return mDir; }

 protected:
  /// The directory is made if it isn't there, and rid of what killed saves left. `extension` has its dot.
  DirBasedStorage(moxcore::Utf16String const& family, moxcore::Utf16String extension);
  ~DirBasedStorage() = default;

  /// While it is held no other process loads or restores.
  moxcore::filesupport::DirLock LockOthersOut() const { return moxcore::filesupport::DirLock(mDir); }

  /// Reads every valid preset of the directory, in order of file names. Where two have the same GUID, the
  /// later one becomes a copy, on disk too. False if the directory can't be listed; `out` is untouched then.
  template <class T>
  bool LoadPresets(std::vector<Preset<T>>& out);

  /// Into the file that holds the preset, or else a new one that is named after it. False if it can't be
  /// written, and then nothing has changed.
  template <class T>
  bool WritePreset(Preset<T> const& preset);

  /// False for an unknown preset or a file that can't be deleted.
  bool DeletePresetFile(PresetRecord const& preset);

  /// The presets of that name that the library carries; empty, without a NUL, if there are none.
  static moxcore::Utf8String EmbeddedListText(moxcore::Utf16String const& family);

 private:
  using File = moxcore::filesupport::File;
  using TextMaker = std::function<moxcore::Utf8String()>;

  template <class T>
  static TextMaker TextOf(Preset<T> const& preset) {
    return [&preset] {
      auto text = moxcore::serialization::GetJSONUTF8String(PresetToJSON(preset), false);
      // What is too large to be read mustn't count as saved.
      json::RootOfText(text.c_str(), text.size() + 1);
      return text;
    };
  }

  template <class T>
  std::optional<Preset<T>> ReadPresetFile(File const& file);
  template <class T>
  void AddLoaded(Preset<T> preset, File const& file, std::vector<Preset<T>>& loaded);

  std::optional<moxcore::Utf8String> ReadText(File const& file);
  bool CollectPresetFiles(std::vector<File>& files);
  void Skip(File const& file, SkipReason reason, char const* detail);
  static void MarkDefaultPreset(PresetRecord& preset);
  static void TraceRepair(File const& file);
  static void TraceFailedRepair(File const& file);
  static bool WriteFile(TextMaker const& text, File const& file) noexcept;
  bool WriteRecordedOrNewFile(PresetRecord const& preset, TextMaker const& text) noexcept;

  moxcore::filesupport::Dir mDir;
  moxcore::Utf16String mExtension;
  std::map<moxcore::Guid, File> mFiles;
  std::vector<SkippedFile> mSkipped;
};

/// The presets of one family, in the order of PresetLess, and on disk by `Storage`. A directory without any
/// valid preset gets those that the library carries for the family.
///
/// No operation throws for what is wrong with files, or tells the user.
template <class T, class Storage>
class PresetCache : public Storage {
 public:
  using Payload = T;
  using PresetType = Preset<T>;

  /// Loads the presets from the directory `name`, out of files that end in `extension` (".preset").
  PresetCache(moxcore::Utf16String const& name, moxcore::Utf16String const& extension)
      : Storage(name, extension), mName(name) {
    Reload();
  }

  std::vector<PresetType> GetPresets() const { return mPresets; }

  /// Reads the directory anew, with what other processes changed in it.
  void Reload() {
    LoadOrRestore();
    std::sort(mPresets.begin(), mPresets.end(), PresetLess);
    changed.Fire();
  }

  /// Adds a preset, or replaces the one with its GUID. False for a nil GUID, for a protected preset, and if
  /// the file can't be written; nothing has changed then.
  bool SavePreset(PresetType const& preset) {
    if (preset.guid.IsNil()) {
      return false;
    }
    auto presets = mPresets;
    auto const found = std::ranges::find(presets, preset.guid, &PresetType::guid);
    if (found == presets.end()) {
      presets.push_back(preset);
    } else if (IsProtectedPreset(found->flags)) {
      return false;
    } else {
      *found = preset;
    }
    if (!this->WritePreset(preset)) {
      return false;
    }
    std::sort(presets.begin(), presets.end(), PresetLess);
    Swap(presets);
    return true;
  }

  /// Removes the preset with the GUID of `preset`. False if there is none, if it is protected, and if its
  /// file can't be deleted; nothing has changed then.
  bool RemovePreset(PresetType const& preset) {
    if (preset.guid.IsNil()) {
      return false;
    }
    auto presets = mPresets;
    auto const found = std::ranges::find(presets, preset.guid, &PresetType::guid);
    if (found == presets.end() || IsProtectedPreset(found->flags)) {
      return false;
    }
    presets.erase(found);
    if (!this->DeletePresetFile(preset)) {
      return false;
    }
    Swap(presets);
    return true;
  }

  /// Fires after each loading and each successful change.
  moxcore::messaging::Signal<void(), 1> changed;

 private:
  void LoadOrRestore() {
    // Of two that find the directory empty only one may fill it, and no one loads what is half restored.
    [[maybe_unused]] auto const alone = this->LockOthersOut();
    this->LoadPresets(mPresets);
    if (mPresets.empty()) {
      RestoreEmbeddedPresets();
    }
  }

  void RestoreEmbeddedPresets() {
    for (auto const& preset : ReadEmbeddedPresets()) {
      if (this->WritePreset(preset)) {
        mPresets.push_back(preset);
      }
    }
  }

  std::vector<PresetType> ReadEmbeddedPresets() const {
    try {
      auto const text = this->EmbeddedListText(mName);
      return text.empty() ? std::vector<PresetType>() : ParsePresetListText<T>(text.c_str(), text.size() + 1);
    } catch (...) {
      return {};
    }
  }

  void Swap(std::vector<PresetType>& presets) {
    mPresets.swap(presets);
    changed.Fire();
  }

  moxcore::Utf16String mName;
  std::vector<PresetType> mPresets;
};

template <class T>
bool DirBasedStorage::LoadPresets(std::vector<Preset<T>>& out) {
  std::vector<File> files;
  if (!CollectPresetFiles(files)) {
    return false;
  }
  std::vector<Preset<T>> loaded;
  loaded.reserve(files.size());
  for (auto const& file : files) {
    auto preset = ReadPresetFile<T>(file);
    if (!preset.has_value()) {
      continue;
    }
    MarkDefaultPreset(*preset);
    if (preset->guid.IsNil()) {
      Skip(file, SkipReason::kNoGuid, "nil GUID");
      continue;
    }
    AddLoaded(std::move(*preset), file, loaded);
  }
  out = std::move(loaded);
  return true;
}

template <class T>
void DirBasedStorage::AddLoaded(Preset<T> preset, File const& file, std::vector<Preset<T>>& loaded) {
  if (mFiles.contains(preset.guid)) {
    TraceRepair(file);
    preset = MakePresetCopy(preset);
    if (!WriteFile(TextOf(preset), file)) {
      TraceFailedRepair(file);
    }
  }
  mFiles.insert_or_assign(preset.guid, file);
  loaded.push_back(std::move(preset));
}

template <class T>
std::optional<Preset<T>> DirBasedStorage::ReadPresetFile(File const& file) {
  auto const text = ReadText(file);
  if (!text.has_value()) {
    return std::nullopt;
  }
  try {
    return ParsePresetText<T>(text->c_str(), text->size() + 1);
  } catch (std::exception const& exception) {
    Skip(file, SkipReason::kMalformed, exception.what());
  } catch (...) {
    Skip(file, SkipReason::kMalformed, "the payload can't be converted");
  }
  return std::nullopt;
}

template <class T>
bool DirBasedStorage::WritePreset(Preset<T> const& preset) {
  return WriteRecordedOrNewFile(preset, TextOf(preset));
}

}  // namespace moxappsupport::presets
