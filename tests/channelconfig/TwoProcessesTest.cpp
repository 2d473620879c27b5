#include "PresetStore.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>
#include <vector>

namespace moxappsupport::presets {
namespace {

using namespace layout_presets;

constexpr int kSaves = 40;

// A preset whose layout tells whether it is whole: all channels have the same label.
LayoutPreset Uniform(std::string const& name, Guid const& guid, std::uint32_t label) {
  return MakePreset(name, guid.AsUTF8String(), std::vector<std::uint32_t>(500, label));
}

bool IsUniform(LayoutPreset const& preset) {
  auto const& layout = preset.data.channelLayout;
  return std::ranges::all_of(layout, [&](auto const channel) { return channel == layout.front(); });
}

// What a process does beside another: gives whether every save was acknowledged.
bool SaveMany(PresetStore const& store, std::vector<Guid> const& mine, Guid const& shared,
              std::uint32_t label) {
  auto const cache = store.Open();
  auto saved = true;
  for (auto const& guid : mine) {
    saved = cache->SavePreset(Uniform("Same", guid, label)) && saved;
    saved = cache->SavePreset(Uniform("Shared", shared, label)) && saved;
  }
  return saved;
}

std::vector<Guid> NewGuids() {
  std::vector<Guid> guids(kSaves);
  std::ranges::generate(guids, Guid::CreateUnique);
  return guids;
}

TEST(TwoProcesses, NeitherTearNorLosePresetsThatTheySaveAtOnce) {
  PresetStore const store;
  auto const shared = GuidOf(kUser);
  ASSERT_TRUE(store.Open()->SavePreset(Uniform("Shared", shared, 1)));
  auto const mine = NewGuids();
  auto const theirs = NewGuids();
  auto const child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    _exit(SaveMany(store, theirs, shared, 2) ? 0 : 1);
  }
  EXPECT_TRUE(SaveMany(store, mine, shared, 3));
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);

  auto const cache = store.Open();
  EXPECT_TRUE(cache->GetSkippedFiles().empty());
  auto const presets = cache->GetPresets();
  EXPECT_EQ(presets.size(), 3u + 1u + 2u * kSaves);
  for (auto const& preset : presets) {
    EXPECT_TRUE(IsProtectedPreset(preset.flags) || IsUniform(preset)) << preset.name;
  }
  for (auto const* const guids : {&mine, &theirs}) {
    for (auto const& guid : *guids) {
      EXPECT_NE(std::ranges::find(presets, guid, &LayoutPreset::guid), presets.end());
    }
  }
}

// Processes that all wait at a gate and then start for the first time.
class FirstStarts {
 public:
  FirstStarts(PresetStore const& store, std::size_t count) {
    if (pipe(mGate.data()) != 0) {
      throw std::runtime_error("no pipe for the test");
    }
    for (std::size_t i = 0; i < count; ++i) {
      mChildren.push_back(fork());
      if (mChildren.back() < 0) {
        throw std::runtime_error("no process for the test");
      }
      if (mChildren.back() == 0) {
        close(mGate[1]);
        char gone = 0;
        // Gives nothing once the gate is opened.
        [[maybe_unused]] auto const nothing = read(mGate[0], &gone, 1);
        _exit(static_cast<int>(store.Open()->GetPresets().size()));
      }
    }
    close(mGate[0]);
  }

  // Lets them go, and gives how many presets each of them had.
  std::vector<int> Finish() {
    close(mGate[1]);
    std::vector<int> counts;
    for (auto const child : mChildren) {
      int status = 0;
      waitpid(child, &status, 0);
      counts.push_back(WIFEXITED(status) ? WEXITSTATUS(status) : -1);
    }
    return counts;
  }

 private:
  std::array<int, 2> mGate{};
  std::vector<pid_t> mChildren;
};

TEST(TwoProcesses, ThatStartForTheFirstTimeTogetherRestoreTheFactoryPresetsOnce) {
  for (int round = 0; round < 10; ++round) {
    PresetStore const store;
    EXPECT_EQ(FirstStarts(store, 6).Finish(), std::vector<int>(6, 3));
    EXPECT_EQ(store.Files(), (std::vector<std::string>{"5.1.preset", "Mono.preset", "Stereo.preset"}));
  }
}

}  // namespace
}  // namespace moxappsupport::presets
