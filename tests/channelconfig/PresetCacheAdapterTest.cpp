#include "PresetStore.h"

#include <moxcore/config/Catalogue.h>
#include <moxcore/config/Localizer.h>
#include <moxmediaui/PresetCacheAdapter.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace moxmediaui {
namespace {

using namespace layout_presets;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Adapter = PresetCacheAdapter<LayoutCache>;

class PresetCacheAdapterTest : public testing::Test {
 protected:
  std::unique_ptr<Adapter> Open(char const* initial = "", Adapter::PresetFilter filter = {}) {
    auto adapter = std::make_unique<Adapter>(cache, GuidOf(initial), std::move(filter));
    adapter->SetReadCurrentData([this](AudioChannelLayoutPresetData& data) {
      data = edited;
      return canRead;
    });
    adapter->SetApplyPreset([this](LayoutPreset const& preset) {
      edited = preset.data;
      return canApply;
    });
    adapter->ConnectStateChanged([this] { ++changes; });
    return adapter;
  }

  static std::string Shown(Adapter& adapter) {
    Utf16String text;
    adapter.GetDisplayString(text);
    return std::string(moxcore::string::UTF16to8(text));
  }

  static std::pair<std::string, bool> Current(Adapter& adapter) {
    PresetInfo info;
    bool modified = false;
    adapter.GetCurrentPresetInfo(info, modified);
    return {std::string(info.name), modified};
  }

  PresetStore store;
  std::shared_ptr<LayoutCache> cache = store.Open();
  AudioChannelLayoutPresetData edited = Layout({42});
  bool canRead = true;
  bool canApply = true;
  int changes = 0;
};

TEST_F(PresetCacheAdapterTest, BeginsWithTheGivenPreset) {
  auto const adapter = Open(kStereo);
  EXPECT_EQ(Current(*adapter), std::pair(std::string("Stereo"), false));
  EXPECT_EQ(Shown(*adapter), "Stereo");
  EXPECT_EQ(adapter->GetCurrentPreset().data, Layout({100, 101}));
}

TEST_F(PresetCacheAdapterTest, BeginsWithTheFirstPresetForTheNilGuid) {
  EXPECT_EQ(Current(*Open("")), std::pair(std::string("Mono"), false));
}

TEST_F(PresetCacheAdapterTest, BeginsWithTheFirstPresetModifiedForAnUnknownGuid) {
  auto const adapter = Open(kOther);
  EXPECT_EQ(Current(*adapter), std::pair(std::string("Mono"), true));
  EXPECT_EQ(Shown(*adapter), "(Custom)");
}

TEST_F(PresetCacheAdapterTest, SelectsAmongAllPresetsAndFires) {
  auto const adapter = Open("", [](LayoutPreset const& preset) { return preset.guid != GuidOf(kStereo); });
  adapter->SelectPreset(GuidOf(kStereo));
  EXPECT_EQ(Current(*adapter), std::pair(std::string("Stereo"), false));
  EXPECT_EQ(changes, 1);
  adapter->SelectPreset(GuidOf(kOther));
  EXPECT_EQ(Current(*adapter), std::pair(std::string("Mono"), true));
  EXPECT_EQ(changes, 2);
}

TEST_F(PresetCacheAdapterTest, OffersWhatTheFilterAccepts) {
  std::vector<PresetInfo> infos = {PresetInfo()};
  Open()->GetPresetInfos(infos);
  EXPECT_THAT(infos,
              ElementsAre(PresetInfo{GuidOf(kMono), "Mono", 2}, PresetInfo{GuidOf(kStereo), "Stereo", 3},
                          PresetInfo{GuidOf(kFiveOne), "5.1", 2}));
  auto const adapter =
      Open("", [](LayoutPreset const& preset) { return preset.data.channelLayout.size() > 1; });
  adapter->GetPresetInfos(infos);
  EXPECT_THAT(infos,
              ElementsAre(PresetInfo{GuidOf(kStereo), "Stereo", 3}, PresetInfo{GuidOf(kFiveOne), "5.1", 2}));
  EXPECT_EQ(adapter->GetDefaultPreset().guid, GuidOf(kStereo));
  EXPECT_EQ(Current(*adapter), std::pair(std::string("Stereo"), false));
}

TEST_F(PresetCacheAdapterTest, HasAnEmptyRecordWhereNothingIsOnOffer) {
  auto const adapter = Open("", [](LayoutPreset const&) { return false; });
  EXPECT_EQ(adapter->GetDefaultPreset(), LayoutPreset());
  EXPECT_EQ(Current(*adapter), std::pair(std::string(), false));
  std::vector<PresetInfo> infos;
  adapter->GetPresetInfos(infos);
  EXPECT_THAT(infos, IsEmpty());
}

TEST_F(PresetCacheAdapterTest, ReservesTheNamesOfProtectedPresetsOnly) {
  cache->SavePreset(MakePreset("Foo"));
  auto const adapter = Open();
  EXPECT_TRUE(adapter->IsReservedPresetName("(Default)"));
  EXPECT_TRUE(adapter->IsReservedPresetName("Stereo"));
  EXPECT_TRUE(adapter->IsReservedPresetName("5.1"));
  EXPECT_FALSE(adapter->IsReservedPresetName("stereo"));
  EXPECT_FALSE(adapter->IsReservedPresetName("Foo"));
  EXPECT_FALSE(adapter->IsReservedPresetName("(Custom)"));
  EXPECT_FALSE(adapter->IsReservedPresetName(""));
}

TEST_F(PresetCacheAdapterTest, ReservesByTheFirstPresetOfThatName) {
  cache->SavePreset(MakePreset("Stereo"));
  EXPECT_TRUE(Open()->IsReservedPresetName("Stereo"));
}

TEST_F(PresetCacheAdapterTest, ShowsModifiedUserPresetsWithAnAsterisk) {
  cache->SavePreset(MakePreset("Foo"));
  auto const adapter = Open(kUser);
  EXPECT_EQ(Shown(*adapter), "Foo");
  adapter->SetModified(true);
  EXPECT_EQ(Shown(*adapter), "Foo *");
  EXPECT_EQ(changes, 1);
  adapter->SetModified(false);
  EXPECT_EQ(Shown(*adapter), "Foo");
  EXPECT_EQ(changes, 2);
}

TEST_F(PresetCacheAdapterTest, ShowsModifiedProtectedPresetsAsCustom) {
  auto const adapter = Open(kStereo);
  adapter->SetModified(true);
  EXPECT_EQ(Shown(*adapter), "(Custom)");
}

TEST_F(PresetCacheAdapterTest, CanCreateAPresetOnlyOfAStateThatCanBeRead) {
  auto const adapter = Open();
  EXPECT_TRUE(adapter->CanCreatePreset());
  canRead = false;
  EXPECT_FALSE(adapter->CanCreatePreset());
  adapter->SetReadCurrentData({});
  EXPECT_FALSE(adapter->CanCreatePreset());
}

TEST_F(PresetCacheAdapterTest, CreatesAPresetOfTheEditedState) {
  auto const adapter = Open(kStereo);
  adapter->SetModified(true);
  changes = 0;
  int cacheChanges = 0;
  cache->changed.Connect([&] { ++cacheChanges; });
  EXPECT_TRUE(adapter->CreatePreset("Foo"));
  // Once for the selection, once for the saving.
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(cacheChanges, 1);
  EXPECT_EQ(Current(*adapter), std::pair(std::string("Foo"), false));
  auto const preset = adapter->GetCurrentPreset();
  EXPECT_FALSE(preset.guid.IsNil());
  EXPECT_EQ(preset.type, GuidOf(kType));
  EXPECT_EQ(preset.data, Layout({42}));
  EXPECT_EQ(store.Preset("Foo.preset"), preset);
}

TEST_F(PresetCacheAdapterTest, CreatesNothingOfAStateThatCannotBeReadOrStored) {
  auto const adapter = Open();
  canRead = false;
  EXPECT_FALSE(adapter->CreatePreset("Foo"));
  canRead = true;
  {
    FullMedium const full(0);
    EXPECT_FALSE(adapter->CreatePreset("Foo"));
  }
  adapter->SetReadCurrentData({});
  EXPECT_FALSE(adapter->CreatePreset("Foo"));
  EXPECT_EQ(changes, 0);
  EXPECT_EQ(cache->GetPresets().size(), 3u);
  EXPECT_EQ(Current(*adapter), std::pair(std::string("Mono"), false));
}

TEST_F(PresetCacheAdapterTest, LoadsAPresetAndAppliesIt) {
  auto const adapter = Open();
  adapter->SetModified(true);
  changes = 0;
  EXPECT_TRUE(adapter->LoadPreset({GuidOf(kFiveOne), "whatever", 0}));
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(edited, Layout({100, 101, 102, 103, 104, 105}));
  EXPECT_EQ(Current(*adapter), std::pair(std::string("5.1"), false));
}

TEST_F(PresetCacheAdapterTest, TellsThatAPresetWasNotAppliedThoughItIsCurrent) {
  auto const adapter = Open();
  canApply = false;
  EXPECT_FALSE(adapter->LoadPreset({GuidOf(kFiveOne), "", 0}));
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(Current(*adapter), std::pair(std::string("5.1"), false));
}

TEST_F(PresetCacheAdapterTest, LoadsNothingUnknownAndNothingWithoutAFunction) {
  auto const adapter = Open();
  EXPECT_FALSE(adapter->LoadPreset({GuidOf(kOther), "", 0}));
  adapter->SetApplyPreset({});
  EXPECT_FALSE(adapter->LoadPreset({GuidOf(kFiveOne), "", 0}));
  EXPECT_EQ(changes, 0);
  EXPECT_EQ(Current(*adapter), std::pair(std::string("Mono"), false));
}

TEST_F(PresetCacheAdapterTest, ResetsFlagsAndSortOrderOfWhatItOverwrites) {
  cache->SavePreset(MakePreset("Foo", kUser, {1}, 4, 77));
  auto const adapter = Open(kUser);
  EXPECT_TRUE(adapter->SavePreset({GuidOf(kUser), "Bar", 3}));
  EXPECT_EQ(adapter->GetCurrentPreset(), MakePreset("Bar", kUser, {42}));
  EXPECT_EQ(store.Preset("Foo.preset"), MakePreset("Bar", kUser, {42}));
  EXPECT_EQ(changes, 2);
}

TEST_F(PresetCacheAdapterTest, OverwritesNoProtectedPreset) {
  auto const adapter = Open();
  EXPECT_FALSE(adapter->SavePreset({GuidOf(kStereo), "Stereo", 0}));
  EXPECT_FALSE(adapter->SavePreset({Guid(), "Nil", 0}));
  EXPECT_EQ(changes, 0);
}

TEST_F(PresetCacheAdapterTest, RemovesAPresetAndShowsTheEditedStateAsModified) {
  cache->SavePreset(MakePreset("Foo"));
  auto const adapter = Open(kUser);
  EXPECT_TRUE(adapter->RemovePreset({GuidOf(kUser), "", 0}));
  EXPECT_EQ(Current(*adapter), std::pair(std::string("Mono"), true));
  EXPECT_EQ(edited, Layout({42}));
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(cache->GetPresets().size(), 3u);
}

TEST_F(PresetCacheAdapterTest, RemovesNothingProtectedOrUnknown) {
  auto const adapter = Open(kStereo);
  EXPECT_FALSE(adapter->RemovePreset({GuidOf(kStereo), "", 0}));
  EXPECT_FALSE(adapter->RemovePreset({GuidOf(kOther), "", 0}));
  EXPECT_EQ(changes, 0);
  EXPECT_EQ(Current(*adapter), std::pair(std::string("Stereo"), false));
}

TEST_F(PresetCacheAdapterTest, SpeaksTheUsersLanguage) {
  auto& localizer = moxcore::config::Localizer::Get();
  localizer.AddCatalogue(moxcore::config::ParseCatalogue(
      "msgid \"\"\nmsgstr \"Language: xx\\n\"\n\n"
      "msgctxt \"$$$/moxmediatypes/AudioChannelLayout/Mono\"\nmsgid \"Mono\"\nmsgstr \"Uno\"\n\n"
      "msgctxt \"$$$/mediaio/moxmediaui/Presets/CustomPresetName\"\nmsgid \"(Custom)\"\nmsgstr \"(X)\"\n"));
  localizer.SetLanguage("xx");
  auto const adapter = Open(kMono);
  EXPECT_EQ(Shown(*adapter), "Uno");
  EXPECT_TRUE(adapter->IsReservedPresetName("Uno"));
  EXPECT_FALSE(adapter->IsReservedPresetName("Mono"));
  adapter->SetModified(true);
  EXPECT_EQ(Shown(*adapter), "(X)");
  localizer.SetLanguage("");
}

}  // namespace
}  // namespace moxmediaui
