// Presets and the files that hold them: names that are twins, files that come and go, payloads of strange
// kinds.
#include "PresetStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <any>
#include <chrono>
#include <filesystem>
#include <set>
#include <string>

namespace {

// A payload that can be neither read nor written, in no way that anyone expects.
struct Moody {};

}  // namespace

template <>
struct moxcore::serialization::JSONConvert<Moody> {
  static Moody FromJSON(std::any const&) { throw 5; }
  static std::any ToJSON(Moody const&) { throw 5; }
};

namespace moxappsupport::presets {
namespace {

using namespace layout_presets;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using MoodyCache = PresetCache<Moody, DirBasedStorage>;

class PresetFilesTest : public testing::Test {
 protected:
  PresetStore store;
};

TEST_F(PresetFilesTest, KeepTwinsOfNamesApart) {
  auto const cache = store.Open();
  std::set<std::string> names;
  for (auto const* name : {"Foo", "foo", "FOO", "Foo.", "Foo...", " Foo", "Foo/", "Foo:", "\u00c9t\u00e9",
                           "E\u0301te\u0301", "\u00e9T\u00c9", "..", "../..", "stereo", "\U0001f3b5"}) {
    names.insert(name);
    EXPECT_TRUE(cache->SavePreset(MakePreset(name, Guid::CreateUnique().AsUTF8String()))) << name;
  }
  auto const again = store.Open()->GetPresets();
  EXPECT_EQ(again, cache->GetPresets());
  for (auto const& preset : again) {
    names.erase(std::string(preset.name));
  }
  EXPECT_THAT(names, IsEmpty());
  EXPECT_EQ(store.Files().size(), 3u + 15u);
  EXPECT_EQ(store.Base().Names(), std::vector<std::string>{"AudioChannelLayout"});
}

TEST_F(PresetFilesTest, WithoutChannelsAreWrittenButNeverLoaded) {
  auto const cache = store.Open();
  EXPECT_TRUE(cache->SavePreset(MakePreset("Foo", kUser, {})));
  EXPECT_THAT(NamesOf(cache->GetPresets()), ElementsAre("Mono", "Stereo", "5.1", "Foo"));
  cache->Reload();
  EXPECT_THAT(NamesOf(cache->GetPresets()), ElementsAre("Mono", "Stereo", "5.1"));
  ASSERT_EQ(cache->GetSkippedFiles().size(), 1u);
  EXPECT_EQ(cache->GetSkippedFiles()[0].file.GetName(), "Foo.preset");
}

TEST_F(PresetFilesTest, HoldTheLow32BitsOfALabelAndNothingButWholeNumbers) {
  auto const layout = [](std::string const& label) {
    return R"({"audiochannellayout":[{"channellabel":)" + label + "}]}";
  };
  store.Write("a.preset", TextOf("Wide", kUser, layout("4294967296")));
  store.Write("b.preset", TextOf("Quoted", kOther, layout("\"100\"")));
  store.Write("c.preset", TextOf("Fraction", kMono, layout("100.5")));
  auto const cache = store.Open();
  ASSERT_THAT(NamesOf(cache->GetPresets()), ElementsAre("Wide"));
  EXPECT_EQ(cache->GetPresets()[0].data, Layout({0}));
  EXPECT_EQ(cache->GetSkippedFiles().size(), 2u);
}

TEST_F(PresetFilesTest, ThatAnotherProcessDeletedAreRemovedAllTheSame) {
  auto const cache = store.Open();
  cache->SavePreset(MakePreset("Foo"));
  std::filesystem::remove(store.Path("Foo.preset"));
  EXPECT_TRUE(cache->RemovePreset(MakePreset("")));
  EXPECT_THAT(NamesOf(cache->GetPresets()), ElementsAre("Mono", "Stereo", "5.1"));
}

TEST_F(PresetFilesTest, ThatAnotherProcessDeletedAreWrittenAnew) {
  auto const cache = store.Open();
  cache->SavePreset(MakePreset("Foo", kUser, {1}));
  std::filesystem::remove(store.Path("Foo.preset"));
  EXPECT_TRUE(cache->SavePreset(MakePreset("Bar", kUser, {2})));
  EXPECT_EQ(store.Preset("Foo.preset"), MakePreset("Bar", kUser, {2}));
}

TEST_F(PresetFilesTest, LeaveNothingWhereAFirstSaveFails) {
  auto const cache = store.Open();
  {
    FullMedium const full(20);
    EXPECT_FALSE(cache->SavePreset(MakePreset("Foo")));
  }
  EXPECT_THAT(store.Files(), ElementsAre("5.1.preset", "Mono.preset", "Stereo.preset"));
}

TEST_F(PresetFilesTest, ThatAreEmptyCountAsNoPresetAndKeepTheirNames) {
  store.Write("Foo.preset", "");
  auto const cache = store.Open();
  EXPECT_THAT(NamesOf(cache->GetPresets()), ElementsAre("Mono", "Stereo", "5.1"));
  EXPECT_TRUE(cache->SavePreset(MakePreset("Foo")));
  EXPECT_EQ(store.Preset("Foo (2).preset"), MakePreset("Foo"));
  EXPECT_EQ(store.Read("Foo.preset"), "");
}

TEST_F(PresetFilesTest, ThatKilledSavesLeftAreDeletedAtTheNextStart) {
  store.Write("Foo.preset", TextOf("Foo"));
  for (auto const& [name, hours] : {std::pair(".11111111-2222-4333-8444-555555555555.mox-tmp", 48),
                                    std::pair(".99999999-2222-4333-8444-555555555555.mox-tmp", 1)}) {
    store.Write(name, TextOf("Bar", kOther));
    std::filesystem::last_write_time(
        store.Path(name), std::filesystem::file_time_type::clock::now() - std::chrono::hours(hours));
  }
  EXPECT_THAT(NamesOf(store.Open()->GetPresets()), ElementsAre("Foo"));
  EXPECT_THAT(store.Files(), ElementsAre(".99999999-2222-4333-8444-555555555555.mox-tmp", "Foo.preset"));
}

TEST_F(PresetFilesTest, AreSkippedWhateverTheirPayloadThrows) {
  std::filesystem::create_directories(store.Base() / "Moods");
  store.Base().Write("Moods/Foo.preset", TextOf("Foo"));
  MoodyCache cache(u"Moods", u".preset");
  EXPECT_THAT(cache.GetPresets(), IsEmpty());
  ASSERT_EQ(cache.GetSkippedFiles().size(), 1u);
  EXPECT_EQ(cache.GetSkippedFiles()[0].reason, SkipReason::kMalformed);
  Preset<Moody> preset;
  preset.guid = GuidOf(kUser);
  preset.name = "Bar";
  EXPECT_FALSE(cache.SavePreset(preset));
  EXPECT_FALSE(store.Base().Has("Moods/Bar.preset"));
}

TEST_F(PresetFilesTest, AreNoCrashForValuesThatNoTextGives) {
  using Conversion = moxcore::serialization::JSONConvert<AudioChannelLayoutPresetData>;
  std::any value;
  moxcore::serialization::AddToObject(value, "audiochannellayout",
                                      std::any(moxcore::serialization::JSONArray{nullptr}), false);
  EXPECT_THROW(Conversion::FromJSON(value), std::bad_any_cast);
  EXPECT_THROW(Conversion::FromJSON(std::any()), std::bad_any_cast);
}

}  // namespace
}  // namespace moxappsupport::presets
