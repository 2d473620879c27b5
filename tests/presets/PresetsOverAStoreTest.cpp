// The view over presets on disk: what the user answers, and what the files hold then.
#include "PresetsFixture.h"
#include "channelconfig/PresetStore.h"

#include <moxmediaui/PresetCacheAdapter.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace moxmediaui {
namespace {

using namespace layout_presets;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PresetsOverAStore : public Presets {
 protected:
  PresetsOverAStore() {
    cache->SavePreset(MakePreset("A", kUser, {1}));
    cache->SavePreset(MakePreset("B", kOther, {2}));
    adapter.SetReadCurrentData([this](AudioChannelLayoutPresetData& data) {
      data = edited;
      return true;
    });
    adapter.SetApplyPreset([this](LayoutPreset const& preset) {
      edited = preset.data;
      return true;
    });
    adapter.SelectPreset(GuidOf(kUser));
    mView->SetPresetProvider(&adapter);
    before = store.Files();
  }
  ~PresetsOverAStore() override {
    EXPECT_TRUE(mAnswers.AllUsed());
    mView->SetPresetProvider(nullptr);
  }

  void Edit(std::vector<std::uint32_t> const& labels) {
    edited = Layout(labels);
    adapter.SetModified(edited != adapter.GetCurrentPreset().data);
  }

  PresetStore store;
  std::shared_ptr<LayoutCache> cache = store.Open();
  PresetCacheAdapter<LayoutCache> adapter{cache, Guid(), {}};
  AudioChannelLayoutPresetData edited = Layout({1});
  std::vector<std::string> before;
};

TEST_F(PresetsOverAStore, ShowsThemInTheirOrder) {
  EXPECT_THAT(Shown(), ElementsAre(u"Mono", u"Stereo", u"5.1", u"-", u"A", u"B"));
  EXPECT_EQ(Popup().GetValue(), 4);
  EXPECT_FALSE(SaveButton().IsDisabled());
  EXPECT_FALSE(DeleteButton().IsDisabled());
}

TEST_F(PresetsOverAStore, ShowsAModifiedStateInNoItem) {
  Edit({7});
  EXPECT_EQ(Popup().GetShownText(), u"A *");
  EXPECT_EQ(Popup().GetValue(), -1);
  adapter.SelectPreset(GuidOf(kStereo));
  Edit({7});
  EXPECT_EQ(Popup().GetShownText(), u"(Custom)");
  EXPECT_TRUE(DeleteButton().IsDisabled());
  EXPECT_THAT(Shown(), ElementsAre(u"Mono", u"Stereo", u"5.1", u"-", u"A", u"B"));
}

TEST_F(PresetsOverAStore, ListsTheNameDefaultForAPresetThatHasIt) {
  store.Write("d.preset", layout_presets::TextOf("$$$/app/Presets/DefaultPresetName=(Default)", kMono));
  std::filesystem::remove(store.Path("Mono.preset"));
  cache->Reload();
  adapter.SelectPreset(GuidOf(kMono));
  EXPECT_THAT(Shown(), ElementsAre(u"Stereo", u"5.1", u"(Default)", u"-", u"A", u"B"));
  EXPECT_EQ(Popup().GetValue(), 2);
}

TEST_F(PresetsOverAStore, ADismissedBoxWritesNothing) {
  Edit({7});
  Dismiss();
  EXPECT_FALSE(mView->RequestSaveCurrentPreset(true));
  EXPECT_EQ(store.Files(), before);
}

TEST_F(PresetsOverAStore, AnEmptyNameWritesNothing) {
  EmptyAndAccept();
  Dismiss();
  PressSave();
  EXPECT_EQ(store.Files(), before);
  EXPECT_EQ(Boxes().size(), 2u);
}

TEST_F(PresetsOverAStore, EveryReservedNameIsRefused) {
  for (auto const* name : {u"Mono", u"Stereo", u"5.1", u"(Default)", u"(Custom)"}) {
    TypeAndAccept(name);
    Accept();  // the stop box
  }
  Dismiss();
  PressSave();
  EXPECT_EQ(Boxes().size(), 6u + 5u);
  EXPECT_EQ(store.Files(), before);
}

TEST_F(PresetsOverAStore, ANewNameMakesAFile) {
  Edit({7, 8});
  TypeAndAccept(u"C");
  PressSave();
  auto const preset = store.Preset("C.preset");
  EXPECT_EQ(preset.name, "C");
  EXPECT_EQ(preset.data, Layout({7, 8}));
  EXPECT_EQ(preset.type, GuidOf(kType));
  EXPECT_THAT(Shown(), ElementsAre(u"Mono", u"Stereo", u"5.1", u"-", u"A", u"B", u"C"));
  EXPECT_EQ(Popup().GetValue(), 6);
  EXPECT_EQ(store.Open()->GetPresets(), cache->GetPresets());
}

TEST_F(PresetsOverAStore, AListedNameIsOverwrittenInItsFileOnYes) {
  Edit({7});
  TypeAndAccept(u"B");
  Accept();
  EXPECT_TRUE(mView->RequestSaveCurrentPreset(true));
  EXPECT_EQ(store.Preset("B.preset"), MakePreset("B", kOther, {7}));
  EXPECT_EQ(store.Files(), before);
  EXPECT_EQ(Popup().GetValue(), 5);
}

TEST_F(PresetsOverAStore, AListedNameStaysAsItWasOnNo) {
  Edit({7});
  TypeAndAccept(u"B");
  Dismiss();  // the question: No
  TypeAndAccept(u"b");
  EXPECT_TRUE(mView->RequestSaveCurrentPreset(true));
  EXPECT_EQ(store.Preset("B.preset"), MakePreset("B", kOther, {2}));
  EXPECT_EQ(store.Preset("b (2).preset").data, Layout({7}));
}

TEST_F(PresetsOverAStore, AFullMediumIsOnlyToldToTheCaller) {
  Edit({7});
  TypeAndAccept(u"C");
  FullMedium const full(0);
  EXPECT_FALSE(mView->RequestSaveCurrentPreset(true));
  EXPECT_EQ(store.Files(), before);
  EXPECT_EQ(Boxes().size(), 1u);
  EXPECT_EQ(Popup().GetShownText(), u"A *");
}

TEST_F(PresetsOverAStore, ADeletedPresetLeavesTheStateAsACustomOne) {
  Accept();
  PressDelete();
  EXPECT_FALSE(std::filesystem::exists(store.Path("A.preset")));
  EXPECT_THAT(Shown(), ElementsAre(u"Mono", u"Stereo", u"5.1", u"-", u"B"));
  EXPECT_EQ(Popup().GetShownText(), u"(Custom)");
  EXPECT_EQ(edited, Layout({1}));
}

TEST_F(PresetsOverAStore, AChosenPresetIsApplied) {
  Edit({7});
  Choose(u"5.1");
  EXPECT_EQ(edited, Layout({100, 101, 102, 103, 104, 105}));
  EXPECT_EQ(Popup().GetValue(), 2);
  EXPECT_TRUE(DeleteButton().IsDisabled());
  EXPECT_THAT(Boxes(), IsEmpty());
}

}  // namespace
}  // namespace moxmediaui
