#include "PresetStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace moxappsupport::presets {
namespace {

using namespace layout_presets;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Counts what a cache tells its listeners.
class Changes {
 public:
  explicit Changes(LayoutCache& cache) : mConnection(cache.changed.Connect([this] { ++mCount; })) {}
  int Count() const { return mCount; }

 private:
  int mCount = 0;
  moxcore::messaging::ScopedConnection mConnection;
};

class PresetCacheTest : public testing::Test {
 protected:
  PresetStore store;
};

TEST_F(PresetCacheTest, RestoresFactoryPresetsIntoAnEmptyDirectory) {
  auto const cache = store.Open();
  EXPECT_THAT(NamesOf(cache->GetPresets()), ElementsAre("Mono", "Stereo", "5.1"));
  EXPECT_THAT(store.Files(), ElementsAre("5.1.preset", "Mono.preset", "Stereo.preset"));
  EXPECT_EQ(store.Preset("Stereo.preset"),
            MakePreset("$$$/moxmediatypes/AudioChannelLayout/Stereo=Stereo", kStereo, {100, 101}, 3, 200));
}

TEST_F(PresetCacheTest, FiresOnceForALoading) {
  auto const cache = store.Open();
  Changes const changes(*cache);
  cache->Reload();
  EXPECT_EQ(changes.Count(), 1);
  std::filesystem::remove_all(store.Path(""));
  std::filesystem::create_directory(store.Path(""));
  cache->Reload();
  EXPECT_EQ(changes.Count(), 2);
  EXPECT_THAT(store.Files(), ElementsAre("5.1.preset", "Mono.preset", "Stereo.preset"));
}

TEST_F(PresetCacheTest, LoadsWhatItRestored) {
  auto const presets = store.Open()->GetPresets();
  EXPECT_EQ(store.Open()->GetPresets(), presets);
  EXPECT_EQ(store.Files().size(), 3u);
}

TEST_F(PresetCacheTest, RestoresNothingBesideAUserPreset) {
  store.Write("Foo.preset", TextOf("Foo"));
  EXPECT_THAT(NamesOf(store.Open()->GetPresets()), ElementsAre("Foo"));
  EXPECT_THAT(store.Files(), ElementsAre("Foo.preset"));
}

TEST_F(PresetCacheTest, RestoresAllOnceAllAreGoneAndNoneBefore) {
  auto const cache = store.Open();
  std::filesystem::remove(store.Path("Mono.preset"));
  cache->Reload();
  EXPECT_THAT(NamesOf(cache->GetPresets()), ElementsAre("Stereo", "5.1"));
  std::filesystem::remove(store.Path("Stereo.preset"));
  std::filesystem::remove(store.Path("5.1.preset"));
  cache->Reload();
  EXPECT_THAT(NamesOf(cache->GetPresets()), ElementsAre("Mono", "Stereo", "5.1"));
}

TEST_F(PresetCacheTest, RestoresBesideFilesThatHoldNoPreset) {
  store.Write("Mono.preset", "");
  EXPECT_THAT(NamesOf(store.Open()->GetPresets()), ElementsAre("Mono", "Stereo", "5.1"));
  EXPECT_THAT(store.Files(), ElementsAre("5.1.preset", "Mono (2).preset", "Mono.preset", "Stereo.preset"));
}

TEST_F(PresetCacheTest, HasNoFactoryPresetsForOtherFamilies) {
  LayoutCache const cache(u"Other", u".preset");
  EXPECT_THAT(cache.GetPresets(), IsEmpty());
  EXPECT_TRUE(std::filesystem::is_directory(store.Base() / "Other"));
}

TEST_F(PresetCacheTest, ListsAFactoryPresetOnlyOnceItIsWritten) {
  {
    FullMedium const full(300);
    EXPECT_THAT(NamesOf(store.Open()->GetPresets()), ElementsAre("Mono", "Stereo"));
  }
  EXPECT_THAT(store.Files(), ElementsAre("Mono.preset", "Stereo.preset"));
}

TEST_F(PresetCacheTest, IsEmptyWhereNothingCanBeWritten) {
  FullMedium const full(0);
  EXPECT_THAT(store.Open()->GetPresets(), IsEmpty());
  EXPECT_THAT(store.Files(), IsEmpty());
}

TEST_F(PresetCacheTest, IsEmptyWithoutADirectory) {
  store.Base().Write("AudioChannelLayout", "a file");
  auto const cache = store.Open();
  EXPECT_THAT(cache->GetPresets(), IsEmpty());
  EXPECT_FALSE(cache->SavePreset(MakePreset("Foo")));
  EXPECT_THAT(cache->GetPresets(), IsEmpty());
}

TEST_F(PresetCacheTest, KeepsItsListWhenTheDirectoryVanishes) {
  auto const cache = store.Open();
  std::filesystem::remove_all(store.Path(""));
  Changes const changes(*cache);
  cache->Reload();
  EXPECT_THAT(NamesOf(cache->GetPresets()), ElementsAre("Mono", "Stereo", "5.1"));
  EXPECT_EQ(changes.Count(), 1);
}

TEST_F(PresetCacheTest, SavesANewPreset) {
  auto const cache = store.Open();
  Changes const changes(*cache);
  EXPECT_TRUE(cache->SavePreset(MakePreset("Foo", kUser, {7, 8})));
  EXPECT_EQ(changes.Count(), 1);
  EXPECT_THAT(NamesOf(cache->GetPresets()), ElementsAre("Mono", "Stereo", "5.1", "Foo"));
  EXPECT_EQ(store.Preset("Foo.preset"), MakePreset("Foo", kUser, {7, 8}));
  EXPECT_EQ(store.Open()->GetPresets(), cache->GetPresets());
}

TEST_F(PresetCacheTest, KeepsItsListSorted) {
  auto const cache = store.Open();
  EXPECT_TRUE(cache->SavePreset(MakePreset("a", kUser)));
  EXPECT_TRUE(cache->SavePreset(MakePreset("Z", kOther)));
  EXPECT_THAT(NamesOf(cache->GetPresets()), ElementsAre("Mono", "Stereo", "5.1", "Z", "a"));
  EXPECT_TRUE(cache->SavePreset(MakePreset("a", kUser, {1}, 2)));
  EXPECT_THAT(NamesOf(cache->GetPresets()), ElementsAre("a", "Mono", "Stereo", "5.1", "Z"));
}

TEST_F(PresetCacheTest, OverwritesInTheSameFile) {
  auto const cache = store.Open();
  cache->SavePreset(MakePreset("Foo", kUser, {1}));
  EXPECT_TRUE(cache->SavePreset(MakePreset("Bar", kUser, {2})));
  EXPECT_EQ(store.Preset("Foo.preset"), MakePreset("Bar", kUser, {2}));
  EXPECT_THAT(store.Files(), ElementsAre("5.1.preset", "Foo.preset", "Mono.preset", "Stereo.preset"));
  EXPECT_THAT(NamesOf(cache->GetPresets()), ElementsAre("Mono", "Stereo", "5.1", "Bar"));
}

TEST_F(PresetCacheTest, FindsAnotherFileForANameThatClashes) {
  auto const cache = store.Open();
  EXPECT_TRUE(cache->SavePreset(MakePreset("Foo", kUser)));
  EXPECT_TRUE(cache->SavePreset(MakePreset("Foo", kOther)));
  EXPECT_THAT(store.Files(),
              ElementsAre("5.1.preset", "Foo (2).preset", "Foo.preset", "Mono.preset", "Stereo.preset"));
  EXPECT_THAT(NamesOf(store.Open()->GetPresets()), ElementsAre("Mono", "Stereo", "5.1", "Foo", "Foo"));
}

TEST_F(PresetCacheTest, SavesUnderAnyName) {
  auto const cache = store.Open();
  for (auto const* name : {"", "..", "/etc/passwd", "a/b", "\U0001f3b5", "x\n", "CON", "e\u0301", "\u00e9"}) {
    EXPECT_TRUE(cache->SavePreset(MakePreset(name, Guid::CreateUnique().AsUTF8String()))) << name;
  }
  EXPECT_TRUE(cache->SavePreset(MakePreset(std::string(300, 'n'), kUser)));
  EXPECT_TRUE(cache->SavePreset(MakePreset(std::string("a\0b", 3), kOther)));
  EXPECT_EQ(store.Open()->GetPresets().size(), 3u + 11u);
  EXPECT_EQ(store.Base().Names(), std::vector<std::string>{"AudioChannelLayout"});
}

TEST_F(PresetCacheTest, RefusesNamesThatNoFileHolds) {
  auto const cache = store.Open();
  EXPECT_FALSE(cache->SavePreset(MakePreset("\xff")));
  EXPECT_EQ(store.Files().size(), 3u);
}

TEST_F(PresetCacheTest, RefusesWhatItCouldNotLoadAgain) {
  auto const cache = store.Open();
  EXPECT_FALSE(cache->SavePreset(MakePreset("Foo", kUser, std::vector<std::uint32_t>(400'000, 1))));
  EXPECT_EQ(store.Files().size(), 3u);
  EXPECT_TRUE(cache->SavePreset(MakePreset("Foo", kUser, std::vector<std::uint32_t>(40'000, 1))));
  EXPECT_EQ(store.Open()->GetPresets(), cache->GetPresets());
}

TEST_F(PresetCacheTest, RefusesTheNilGuid) {
  auto const cache = store.Open();
  Changes const changes(*cache);
  EXPECT_FALSE(cache->SavePreset(MakePreset("Foo", "")));
  EXPECT_FALSE(cache->RemovePreset(MakePreset("Foo", "")));
  EXPECT_EQ(changes.Count(), 0);
}

TEST_F(PresetCacheTest, ProtectsPresetsWithEitherBit) {
  store.Write("d.preset",
              TextOf("d", kUser, R"({"audiochannellayout":[{"channellabel":1}]})", R"(,"Flags":1)"));
  store.Write("f.preset",
              TextOf("f", kOther, R"({"audiochannellayout":[{"channellabel":1}]})", R"(,"Flags":2)"));
  auto const cache = store.Open();
  auto const before = cache->GetPresets();
  auto const textOfD = store.Read("d.preset");
  Changes const changes(*cache);
  for (auto const* guid : {kUser, kOther}) {
    EXPECT_FALSE(cache->SavePreset(MakePreset("other", guid, {5})));
    EXPECT_FALSE(cache->RemovePreset(MakePreset("", guid)));
  }
  EXPECT_EQ(cache->GetPresets(), before);
  EXPECT_EQ(store.Read("d.preset"), textOfD);
  EXPECT_EQ(changes.Count(), 0);
}

TEST_F(PresetCacheTest, LeavesStereoAndItsFile) {
  auto const cache = store.Open();
  EXPECT_FALSE(cache->RemovePreset(MakePreset("", kStereo)));
  EXPECT_TRUE(std::filesystem::exists(store.Path("Stereo.preset")));
  EXPECT_THAT(NamesOf(cache->GetPresets()), ElementsAre("Mono", "Stereo", "5.1"));
}

TEST_F(PresetCacheTest, RemovesAUserPresetByItsGuid) {
  auto const cache = store.Open();
  cache->SavePreset(MakePreset("Foo"));
  Changes const changes(*cache);
  EXPECT_TRUE(cache->RemovePreset(MakePreset("any name")));
  EXPECT_EQ(changes.Count(), 1);
  EXPECT_THAT(NamesOf(cache->GetPresets()), ElementsAre("Mono", "Stereo", "5.1"));
  EXPECT_FALSE(std::filesystem::exists(store.Path("Foo.preset")));
  EXPECT_FALSE(cache->RemovePreset(MakePreset("Foo")));
}

TEST_F(PresetCacheTest, IsUnchangedByASaveThatFails) {
  auto const cache = store.Open();
  cache->SavePreset(MakePreset("Foo", kUser, {1}));
  auto const before = cache->GetPresets();
  auto const files = store.Files();
  Changes const changes(*cache);
  {
    FullMedium const full(0);
    EXPECT_FALSE(cache->SavePreset(MakePreset("Bar", kOther)));
    EXPECT_FALSE(cache->SavePreset(MakePreset("Foo", kUser, {2})));
  }
  EXPECT_EQ(cache->GetPresets(), before);
  EXPECT_EQ(store.Files(), files);
  EXPECT_EQ(store.Preset("Foo.preset"), MakePreset("Foo", kUser, {1}));
  EXPECT_EQ(changes.Count(), 0);
  EXPECT_TRUE(cache->SavePreset(MakePreset("Bar", kOther)));
}

TEST_F(PresetCacheTest, IsUnchangedByARemovalThatFails) {
  auto const cache = store.Open();
  cache->SavePreset(MakePreset("Foo"));
  std::filesystem::remove(store.Path("Foo.preset"));
  std::filesystem::create_directory(store.Path("Foo.preset"));
  Changes const changes(*cache);
  EXPECT_FALSE(cache->RemovePreset(MakePreset("Foo")));
  EXPECT_EQ(cache->GetPresets().size(), 4u);
  EXPECT_EQ(changes.Count(), 0);
}

TEST_F(PresetCacheTest, SeesWhatAnotherProcessChangedOnlyByReload) {
  auto const mine = store.Open();
  auto const theirs = store.Open();
  theirs->SavePreset(MakePreset("Theirs", kOther));
  EXPECT_EQ(mine->GetPresets().size(), 3u);
  mine->Reload();
  EXPECT_THAT(NamesOf(mine->GetPresets()), ElementsAre("Mono", "Stereo", "5.1", "Theirs"));
  theirs->RemovePreset(MakePreset("", kOther));
  mine->Reload();
  EXPECT_EQ(mine->GetPresets().size(), 3u);
}

TEST_F(PresetCacheTest, KeepsBothOfTwoPresetsThatTwoProcessesNameAlike) {
  auto const mine = store.Open();
  auto const theirs = store.Open();
  EXPECT_TRUE(mine->SavePreset(MakePreset("Foo", kUser)));
  EXPECT_TRUE(theirs->SavePreset(MakePreset("Foo", kOther)));
  EXPECT_EQ(store.Open()->GetPresets().size(), 5u);
}

TEST_F(PresetCacheTest, LetsListenersReadTheNewList) {
  auto const cache = store.Open();
  std::size_t seen = 0;
  auto const connection = cache->changed.Connect([&] { seen = cache->GetPresets().size(); });
  cache->SavePreset(MakePreset("Foo"));
  EXPECT_EQ(seen, 4u);
}

}  // namespace
}  // namespace moxappsupport::presets
