#pragma once

#include <moxcore/messaging/Signal.h>
#include <moxcore/string/Encoding.h>
#include <moxmediaui/HostTypes.h>
#include <moxmediaui/Preset.h>
#include <moxmediaui/PresetProviderInterface.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace moxmediaui {

/// The names by which the adapter below speaks of its state.
namespace preset_names {

/// What no preset may be called, besides the names of protected presets.
Utf8String LocalizedDefaultName();
/// What is shown for a protected preset that was modified.
Utf8String LocalizedCustomName();
/// Whether the preset is shown under exactly this name.
bool IsShownAs(moxappsupport::presets::PresetRecord const& preset, Utf16String const& name);
PresetInfo InfoOf(moxappsupport::presets::PresetRecord const& preset);
Utf16String DisplayString(moxappsupport::presets::PresetRecord const& preset, bool modified, bool isReserved);

}  // namespace preset_names

/// The model of a preset picker over a preset cache: remembers which preset is current and whether the edited
/// state, which its owner holds, differs from it. The functions that read and apply that state may be empty;
/// then nothing can be saved, or loaded. For use on the UI thread.
template <class Cache>
class PresetCacheAdapter : public PresetProviderInterface {
 public:
  using Payload = typename Cache::Payload;
  using PresetType = typename Cache::PresetType;
  /// Fills in the edited state; false if there is none to save.
  using ReadCurrentData = std::function<bool(Payload&)>;
  /// Brings the edited state to a preset.
  using ApplyPreset = std::function<bool(PresetType const&)>;
  /// Whether a preset is on offer here.
  using PresetFilter = std::function<bool(PresetType const&)>;

  /// Begins with the preset `initial`, or with the first one on offer if that is nil, or unknown: then the
  /// state counts as modified. An empty filter offers all.
  PresetCacheAdapter(std::shared_ptr<Cache> cache, Guid const& initial, PresetFilter presetFilter)
      : mCache(std::move(cache)),
        mPresetFilter(std::move(presetFilter)),
        mReservedNames{preset_names::LocalizedDefaultName()} {
    SelectPreset(initial);
  }

  void SetReadCurrentData(ReadCurrentData function) { mReadCurrentData = std::move(function); }
  void SetApplyPreset(ApplyPreset function) { mApplyPreset = std::move(function); }

  /// A copy of the preset as it was when it became current.
  PresetType const& GetCurrentPreset() const noexcept { return mCurrentPreset; }
  bool IsModified() const noexcept { return mModified; }
  /// For the owner of the edited state, after each change of it. Tells of it in any case.
  void SetModified(bool modified) {
    mModified = modified;
    mStateChanged.Fire();
  }
  /// Makes a preset current, without applying it.
  void SelectPreset(Guid const& guid) {
    auto const presets = mCache->GetPresets();
    auto const found = std::ranges::find(presets, guid, &PresetType::guid);
    mModified = found == presets.end() && !guid.IsNil();
    mCurrentPreset = found != presets.end() ? *found : GetDefaultPreset();
    mStateChanged.Fire();
  }

  std::vector<PresetType> GetFilteredPresets() const {
    auto presets = mCache->GetPresets();
    if (mPresetFilter) {
      std::erase_if(presets, [this](PresetType const& preset) { return !mPresetFilter(preset); });
    }
    return presets;
  }

  /// The first one on offer; an empty record if there is none.
  PresetType GetDefaultPreset() const {
    auto const presets = GetFilteredPresets();
    return presets.empty() ? PresetType() : presets.front();
  }

  moxcore::messaging::Connection ConnectStateChanged(std::function<void()> function) override {
    return mStateChanged.Connect(std::move(function));
  }

  bool IsReservedPresetName(Utf8String const& name) override {
    if (std::ranges::find(mReservedNames, name) != mReservedNames.end()) {
      return true;
    }
    auto const presets = mCache->GetPresets();
    auto const wide = moxcore::string::UTF8to16(name);
    auto const found = std::ranges::find_if(
        presets, [&](PresetType const& preset) { return preset_names::IsShownAs(preset, wide); });
    return found != presets.end() && moxappsupport::presets::IsProtectedPreset(found->flags);
  }

  void GetCurrentPresetInfo(PresetInfo& info, bool& modified) override {
    info = preset_names::InfoOf(mCurrentPreset);
    modified = mModified;
  }

  void GetPresetInfos(std::vector<PresetInfo>& infos) override {
    infos.clear();
    for (auto const& preset : GetFilteredPresets()) {
      infos.push_back(preset_names::InfoOf(preset));
    }
  }

  void GetDisplayString(Utf16String& text) override {
    auto const isReserved =
        mModified && IsReservedPresetName(moxappsupport::presets::LocalizedPresetName(mCurrentPreset));
    text = preset_names::DisplayString(mCurrentPreset, mModified, isReserved);
  }

  bool CanCreatePreset() override {
    Payload scratch;
    return mReadCurrentData && mReadCurrentData(scratch);
  }

  bool CreatePreset(Utf8String const& name) override { return SavePreset({Guid::CreateUnique(), name}); }

  bool LoadPreset(PresetInfo const& info) override {
    if (!mApplyPreset) {
      return false;
    }
    auto const presets = mCache->GetPresets();
    auto const found = std::ranges::find(presets, info.guid, &PresetType::guid);
    if (found == presets.end()) {
      return false;
    }
    mCurrentPreset = *found;
    mModified = false;
    auto const isApplied = mApplyPreset(mCurrentPreset);
    mStateChanged.Fire();
    return isApplied;
  }

  bool SavePreset(PresetInfo const& info) override {
    PresetType preset;
    if (!mReadCurrentData || !mReadCurrentData(preset.data)) {
      return false;
    }
    preset.guid = info.guid;
    preset.type = GetDefaultPreset().type;
    preset.name = info.name;
    if (!mCache->SavePreset(preset)) {
      return false;
    }
    SelectPreset(info.guid);
    mStateChanged.Fire();
    return true;
  }

  bool RemovePreset(PresetInfo const& info) override {
    PresetType preset;
    preset.guid = info.guid;
    if (!mCache->RemovePreset(preset)) {
      return false;
    }
    mCurrentPreset = GetDefaultPreset();
    mModified = true;
    mStateChanged.Fire();
    return true;
  }

 private:
  std::shared_ptr<Cache> mCache;
  ReadCurrentData mReadCurrentData;
  ApplyPreset mApplyPreset;
  PresetFilter mPresetFilter;
  PresetType mCurrentPreset;
  bool mModified = false;
  std::vector<Utf8String> mReservedNames;
  moxcore::messaging::Signal<void(), 1> mStateChanged;
};

}  // namespace moxmediaui
