#pragma once

#include "LayoutPresets.h"
#include "support/ScratchFolder.h"

#include <moxappsupport/LocalPresets.h>
#include <moxcore/filesupport/Dir.h>
#include <moxmediaui/PresetCache.h>

#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace layout_presets {

using LayoutCache = moxappsupport::presets::PresetCache<AudioChannelLayoutPresetData,
                                                        moxappsupport::presets::DirBasedStorage>;

inline std::vector<std::string> NamesOf(std::vector<LayoutPreset> const& presets) {
  std::vector<std::string> names;
  for (auto const& preset : presets) {
    names.emplace_back(LocalizedPresetName(preset));
  }
  return names;
}

/// A base directory of presets for one test.
class PresetStore {
 public:
  PresetStore() {
    moxappsupport::presets::SetLocalPresetsBaseDir(
        moxcore::filesupport::Dir(Utf8String(mFolder.Path().string())));
  }
  ~PresetStore() { moxappsupport::presets::SetLocalPresetsBaseDir(std::nullopt); }
  PresetStore(PresetStore const&) = delete;
  PresetStore& operator=(PresetStore const&) = delete;

  tests::ScratchFolder const& Base() const { return mFolder; }
  std::string Path(std::string_view name) const {
    return mFolder / ("AudioChannelLayout/" + std::string(name));
  }
  void Write(std::string_view name, std::string_view text) const {
    std::filesystem::create_directories(mFolder / "AudioChannelLayout");
    mFolder.Write("AudioChannelLayout/" + std::string(name), text);
  }
  std::string Read(std::string_view name) const {
    return mFolder.Read("AudioChannelLayout/" + std::string(name));
  }
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (auto const& entry : std::filesystem::directory_iterator(mFolder / "AudioChannelLayout")) {
      names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
  }
  LayoutPreset Preset(std::string_view name) const {
    auto const text = Read(name);
    return moxappsupport::presets::ParsePresetText<AudioChannelLayoutPresetData>(text.data(), text.size());
  }

  std::shared_ptr<LayoutCache> Open() const {
    return std::make_shared<LayoutCache>(u"AudioChannelLayout", u".preset");
  }

 private:
  tests::ScratchFolder mFolder;
};

/// While it lives no file can grow beyond so many bytes, whoever writes.
class FullMedium {
 public:
  explicit FullMedium(rlim_t bytes) : mOldHandler(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &mOldLimit);
    rlimit const limit = {bytes, mOldLimit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullMedium() {
    setrlimit(RLIMIT_FSIZE, &mOldLimit);
    std::signal(SIGXFSZ, mOldHandler);
  }
  FullMedium(FullMedium const&) = delete;
  FullMedium& operator=(FullMedium const&) = delete;

 private:
  rlimit mOldLimit{};
  void (*mOldHandler)(int);
};

}  // namespace layout_presets
