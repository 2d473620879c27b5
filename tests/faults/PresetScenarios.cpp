#include "Scenarios.h"
#include "channelconfig/LayoutPresets.h"

#include <moxappsupport/LocalPresets.h>
#include <moxcore/filesupport/Dir.h>
#include <moxcore/filesupport/SafeSave.h>
#include <moxmediaui/PresetCache.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

namespace faults {

namespace {

using namespace layout_presets;
using LayoutCache = moxappsupport::presets::PresetCache<AudioChannelLayoutPresetData,
                                                        moxappsupport::presets::DirBasedStorage>;
using moxappsupport::presets::SetLocalPresetsBaseDir;
using moxcore::filesupport::Dir;
using tests::ScratchFolder;

constexpr const char* kFamily = "AudioChannelLayout";

std::unique_ptr<LayoutCache> Open(const ScratchFolder& folder) {
  SetLocalPresetsBaseDir(Dir(Utf8String(folder.Path().string())));
  return std::make_unique<LayoutCache>(u"AudioChannelLayout", u".preset");
}

LayoutPreset WithChannels(const char* name, const char* guid, std::size_t count, std::uint32_t first) {
  auto preset = MakePreset(name, guid, {first});
  for (std::size_t i = 1; i < count; ++i) {
    preset.data.channelLayout.emplace_back(static_cast<std::uint32_t>(first + i));
  }
  return preset;
}

std::optional<LayoutPreset> Find(const std::vector<LayoutPreset>& presets, const moxcore::Guid& guid) {
  const auto found = std::ranges::find(presets, guid, &LayoutPreset::guid);
  return found == presets.end() ? std::nullopt : std::optional(*found);
}

// What is in the directory besides presets: names of temporary files of processes that were killed aren't
// counted.
std::size_t StrayFiles(const ScratchFolder& folder, std::size_t presets) {
  std::size_t files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder / kFamily)) {
    files += entry.path().extension() == moxcore::filesupport::SafeSave::kEnding ? 0 : 1;
  }
  return files - presets;
}

bool HasTemporaries(const ScratchFolder& folder) {
  return std::ranges::any_of(std::filesystem::directory_iterator(folder / kFamily), [](const auto& entry) {
    return entry.path().string().ends_with(moxcore::filesupport::SafeSave::kEnding);
  });
}

// A change of one preset: from `before` to `after`, either of which may be none. All others have to stay.
struct Change {
  std::optional<LayoutPreset> before;
  std::optional<LayoutPreset> after;
};

Verdict Judge(const ScratchFolder& folder, const Change& change, bool acknowledged, bool failed) {
  const auto cache = Open(folder);
  const auto presets = cache->GetPresets();
  const auto guid = (change.after.has_value() ? change.after : change.before)->guid;
  const auto now = Find(presets, guid);
  Verdict verdict;
  verdict.isTorn = now != change.before && now != change.after;
  verdict.isFalse = acknowledged && now != change.after;
  for (const auto* const other : {kMono, kStereo, kFiveOne}) {
    verdict.isLost = verdict.isLost || !Find(presets, GuidOf(other)).has_value();
  }
  verdict.isLost =
      verdict.isLost || (change.before.has_value() && change.after.has_value() && !now.has_value());
  const auto strays = StrayFiles(folder, presets.size());
  // Where a first save was killed its name may stay taken by an empty file.
  verdict.isTorn = verdict.isTorn || strays > 1 || presets.size() > 4;
  verdict.isLeft = failed && (strays > 0 || HasTemporaries(folder));
  verdict.detail = std::to_string(presets.size()) + " presets, " + std::to_string(strays) + " other files";
  return verdict;
}

// The cache is opened before the fault: only the change itself meets it.
Scenario ChangeScenario(const std::string& name, const Change& change) {
  const auto cache = std::make_shared<std::unique_ptr<LayoutCache>>();
  return {.name = name,
          .prepare =
              [cache, change](const ScratchFolder& folder) {
                *cache = Open(folder);
                if (change.before.has_value()) {
                  (*cache)->SavePreset(*change.before);
                }
              },
          .change =
              [cache, change](const ScratchFolder&) {
                return change.after.has_value() ? (*cache)->SavePreset(*change.after)
                                                : (*cache)->RemovePreset(*change.before);
              },
          .judge = [change](const ScratchFolder& folder, bool acknowledged,
                            bool failed) { return Judge(folder, change, acknowledged, failed); }};
}

// The first start: whatever became of it, each preset that is there is whole, and what was listed is there.
Scenario RestoreScenario() {
  return {.name = "restoring into an empty directory",
          .prepare = [](const ScratchFolder&) {},
          .change = [](const ScratchFolder& folder) { return Open(folder)->GetPresets().size() == 3; },
          .judge =
              [](const ScratchFolder& folder, bool acknowledged, bool) {
                std::size_t valid = 0;
                if (folder.Has(kFamily)) {
                  for (const auto& entry : std::filesystem::directory_iterator(folder / kFamily)) {
                    valid += entry.path().extension() == ".preset" && entry.file_size() > 0 ? 1 : 0;
                  }
                }
                const auto cache = Open(folder);
                const auto presets = cache->GetPresets();
                Verdict verdict;
                verdict.isTorn = presets.size() != (valid == 0 ? 3 : valid);
                for (const auto& preset : presets) {
                  verdict.isTorn = verdict.isTorn || preset.flags < 2 || preset.data.channelLayout.empty();
                }
                verdict.isFalse = acknowledged && valid != 3;
                verdict.detail = std::to_string(valid) + " whole files";
                return verdict;
              }};
}

}  // namespace

std::vector<Scenario> PresetScenarios() {
  std::vector<Scenario> scenarios = {RestoreScenario()};
  for (const std::size_t channels : {1u, 6u, 300u, 5000u}) {
    const auto size = std::to_string(channels) + " channels";
    const auto before = WithChannels("Old", kUser, channels, 1000);
    const auto after = WithChannels("New", kUser, channels, 2000);
    scenarios.push_back(ChangeScenario("a new preset of " + size, {.before = {}, .after = after}));
    scenarios.push_back(
        ChangeScenario("a preset over another of " + size, {.before = before, .after = after}));
    scenarios.push_back(ChangeScenario("removing a preset of " + size, {.before = before, .after = {}}));
  }
  return scenarios;
}

}  // namespace faults
