#pragma once

#include <moxcore/messaging/Signal.h>
#include <moxmediaui/PresetProviderInterface.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace moxmediaui {

inline PresetInfo Own(Utf8String const& name, std::uint32_t flags = 0) {
  return {.guid = Guid::CreateUnique(), .name = name, .flags = flags};
}
inline PresetInfo Protected(Utf8String const& name, std::uint32_t flags = 2) {
  return Own(name, flags);
}

/// Presets in a list, and what was asked for in another.
class FakeProvider : public PresetProviderInterface {
 public:
  std::vector<PresetInfo> presets;
  std::size_t current = 0;
  std::optional<PresetInfo> strayCurrent;  ///< a current preset that isn't listed
  bool modified = false;
  bool canCreate = true;
  bool succeeds = true;
  Utf16String displayString;
  std::vector<Utf8String> reserved;
  std::vector<std::string> log;
  int listed = 0;

  void Fire() { mChanged.Fire(); }
  void SetCurrent(std::size_t index) {
    current = index;
    Fire();
  }

  moxcore::messaging::Connection ConnectStateChanged(std::function<void()> function) override {
    return mChanged.Connect(std::move(function));
  }
  bool IsReservedPresetName(Utf8String const& name) override {
    bool const isOfProtected = std::ranges::any_of(
        presets, [&](PresetInfo const& info) { return info.name == name && (info.flags & 2) != 0; });
    return isOfProtected || std::ranges::find(reserved, name) != reserved.end();
  }
  void GetCurrentPresetInfo(PresetInfo& info, bool& isModified) override {
    isModified = modified;
    if (strayCurrent) {
      info = *strayCurrent;
    } else if (current < presets.size()) {
      info = presets[current];
    }
  }
  void GetPresetInfos(std::vector<PresetInfo>& infos) override {
    ++listed;
    infos = presets;
  }
  void GetDisplayString(Utf16String& text) override { text = displayString; }
  bool CanCreatePreset() override { return canCreate; }
  bool CreatePreset(Utf8String const& name) override {
    Log("create ", name);
    if (succeeds) {
      presets.push_back(Own(name));
      current = presets.size() - 1;
      modified = false;
      Fire();
    }
    return succeeds;
  }
  bool LoadPreset(PresetInfo const& info) override {
    Log("load ", info.name);
    if (succeeds) {
      current = static_cast<std::size_t>(std::ranges::find(presets, info) - presets.begin());
      modified = false;
      Fire();
    }
    return succeeds;
  }
  bool SavePreset(PresetInfo const& info) override {
    Log("save ", info.name);
    savedGuid = info.guid;
    return succeeds;
  }
  bool RemovePreset(PresetInfo const& info) override {
    Log("remove ", info.name);
    return succeeds;
  }

  Guid savedGuid;

 private:
  void Log(std::string const& what, Utf8String const& name) { log.push_back(what + std::string(name)); }

  moxcore::messaging::Signal<void(), 1> mChanged;
};

}  // namespace moxmediaui
