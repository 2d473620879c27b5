#include "LayoutDialogFixture.h"

#include <moxcore/config/Catalogue.h>
#include <moxcore/config/Localizer.h>
#include <moxui/controls/UI_MultiColumnTreeHeaderRow.h>
#include <moxui/controls/UI_StaticText.h>
#include <moxui/platform/Application.h>
#include <moxui/platform/Window.h>
#include <moxui/testing/ComparePicture.h>
#include <moxui/ui/UI_NodeManager.h>

namespace layout_presets {
namespace {

using Dialog = moxmediaui::channelconfig::CustomAudioChannelLayoutDialog;
using moxui::ui::KeyboardCode;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::int32_t kOK = 1;
constexpr std::int32_t kCancelled = 2048;

class LayoutDialog : public LayoutEditorTest {};

// Opening

TEST_F(LayoutDialog, OpenedFromStereoShowsItsTwoRowsAndItsName) {
  Run(kStereo, [](OpenEditor& editor) {
    EXPECT_THAT(editor.Labels(), ElementsAre(LabelText(100), LabelText(101)));
    EXPECT_EQ(editor.Presets().GetShownText(), u"Stereo");
    EXPECT_THAT(editor.Selected(), ElementsAre(1));
    auto const& header = *editor.Tree().GetHeaderRow();
    EXPECT_EQ(header.ChildGet(0)->UI_GetAccessibleName(), "Number");
    EXPECT_EQ(header.ChildGet(1)->UI_GetAccessibleName(), "Channel Label");
    EXPECT_FLOAT_EQ(editor.Tree().GetColumnWidth(0), 80.0f);
    EXPECT_FLOAT_EQ(editor.Tree().GetColumnWidth(1), 194.0f);
    EXPECT_FALSE(editor.Tree().AllowsChildren());
    EXPECT_TRUE(editor.Tree().SupportsUserSelectableRows());
    EXPECT_EQ(editor.Popup(0)->UI_GetNodeID(), "ChannelsPopupID");
  });
  EXPECT_EQ(mDialog->GetPresetName(), u"Stereo");
  EXPECT_EQ(mAnswers.GetRecords()[0].title, u"Custom Audio Channel Layout");
}

TEST_F(LayoutDialog, WithoutAKnownPresetBeginsWithTheFirst) {
  Make("");
  EXPECT_EQ(mDialog->GetPresetName(), u"Mono");
  EXPECT_EQ(mDialog->GetLayout(), ChannelsOf({0}));
  EXPECT_EQ(mDialog->GetResponse(), 0);
  Make(kOther);
  EXPECT_EQ(mDialog->GetLayout(), ChannelsOf({0}));
}

TEST_F(LayoutDialog, ARowsPopupOffersTheSetWithTheChannelsNumberFirst) {
  mValid = {moxmediatypes::AudioChannelDescription(0), moxmediatypes::AudioChannelDescription(100),
            moxmediatypes::AudioChannelDescription(101)};
  Run(kStereo, [](OpenEditor& editor) {
    auto const& items = editor.Popup(1)->GetItems();
    ASSERT_EQ(items.size(), 4u);
    EXPECT_EQ(items[0].text, u"2");
    EXPECT_TRUE(items[1].isSeparator);
    EXPECT_EQ(items[2].text, LabelText(100));
    EXPECT_EQ(items[3].text, LabelText(101));
    EXPECT_EQ(editor.Popup(0)->GetValue(), 2);
    EXPECT_EQ(editor.Popup(1)->GetValue(), 3);
  });
}

TEST_F(LayoutDialog, ALabelThatIsNotInTheSetShowsAsTheFirst) {
  mValid = {moxmediatypes::AudioChannelDescription(0), moxmediatypes::AudioChannelDescription(101)};
  Run(kStereo, [](OpenEditor& editor) {
    EXPECT_EQ(editor.Popup(0)->GetValue(), 0);
    EXPECT_EQ(editor.Popup(1)->GetValue(), 2);
  });
  EXPECT_EQ(mDialog->GetLayout(), ChannelsOf({100, 101}));
}

// Labels

TEST_F(LayoutDialog, AnotherLabelOfAFactoryPresetShowsAsCustomAndBackAsThePreset) {
  ThenChoose(LabelText(102));
  ThenChoose(LabelText(100));
  Run(kStereo, [](OpenEditor& editor) {
    editor.OpenPopup(0);
    EXPECT_EQ(editor.Presets().GetShownText(), u"(Custom)");
    editor.OpenPopup(0);
    EXPECT_EQ(editor.Presets().GetShownText(), u"Stereo");
  });
}

TEST_F(LayoutDialog, AnotherLabelOfAUsersPresetShowsItsNameWithAnAsterisk) {
  Cache()->SavePreset(MakePreset("Foo", kUser, {100, 101}));
  ThenChoose(LabelText(101));
  Run(kUser, [](OpenEditor& editor) {
    EXPECT_EQ(editor.Presets().GetShownText(), u"Foo");
    editor.OpenPopup(0);
    EXPECT_EQ(editor.Presets().GetShownText(), u"Foo *");
  });
  // The same label may stand on any number of channels.
  EXPECT_EQ(mDialog->GetLayout(), ChannelsOf({101, 101}));
  EXPECT_EQ(mDialog->GetPresetName(), u"Foo");
}

TEST_F(LayoutDialog, TheFirstItemTakesTheLabelAway) {
  ThenChoose(u"2");
  Run(kStereo, [](OpenEditor& editor) { editor.OpenPopup(1); });
  EXPECT_EQ(mDialog->GetLayout(), ChannelsOf({100, 0}));
}

TEST_F(LayoutDialog, ValuesUpToTheDividersStandForTheFirstLabelAndThosePastTheSetForNone) {
  mValid = {moxmediatypes::AudioChannelDescription(0), moxmediatypes::AudioChannelDescription(100),
            moxmediatypes::AudioChannelDescription(101)};
  Run(kStereo, [&](OpenEditor& editor) {
    auto const tell = [&](std::int64_t value) {
      editor.Popup(1)->SetValue(value);
      editor.Popup(1)->SendValueChangedMessage();
      return mDialog->GetLayout();
    };
    EXPECT_EQ(tell(4), ChannelsOf({100, 101}));  // position 3 of three
    EXPECT_EQ(tell(1), ChannelsOf({100, 0}));
    EXPECT_EQ(tell(2), ChannelsOf({100, 100}));
    EXPECT_EQ(tell(-1), ChannelsOf({100, 0}));
    EXPECT_EQ(tell(3), ChannelsOf({100, 101}));
  });
}

// Adding and removing

TEST_F(LayoutDialog, AChannelWithoutALabelIsFollowedByAnother) {
  Run(kMono, [](OpenEditor& editor) {
    editor.Press("AddChannelButtonID");
    EXPECT_THAT(editor.Labels(), ElementsAre(u"1", u"2"));
    EXPECT_THAT(editor.Selected(), ElementsAre(1));
  });
  EXPECT_EQ(mDialog->GetLayout(), ChannelsOf({0, 0}));
}

TEST_F(LayoutDialog, ARunOfAddsWalksThroughTheLabelsThatAreFree) {
  Run(kStereo, [](OpenEditor& editor) {
    editor.PressNumber(0);
    editor.Press("AddChannelButtonID");
    editor.Press("AddChannelButtonID");
    EXPECT_THAT(editor.Selected(), ElementsAre(2));
  });
  EXPECT_EQ(mDialog->GetLayout(), ChannelsOf({100, 102, 103, 101}));
}

TEST_F(LayoutDialog, WithoutAFreeLabelBehindItsOwnAChannelIsFollowedByOneWithout) {
  mValid = {moxmediatypes::AudioChannelDescription(0), moxmediatypes::AudioChannelDescription(100),
            moxmediatypes::AudioChannelDescription(101)};
  Run(kStereo, [](OpenEditor& editor) {
    editor.PressNumber(0);
    editor.Press("AddChannelButtonID");
  });
  EXPECT_EQ(mDialog->GetLayout(), ChannelsOf({100, 0, 101}));
}

TEST_F(LayoutDialog, HoldsFromOneToThirtyTwoChannels) {
  Run(kMono, [](OpenEditor& editor) {
    EXPECT_TRUE(editor.Button("RemoveChannelButtonID").UI_IsDisabled());
    for (int channel = 1; channel < 32; ++channel) {
      EXPECT_TRUE(editor.Button("AddChannelButtonID").UI_IsEnabled()) << channel;
      editor.Press("AddChannelButtonID");
    }
    EXPECT_TRUE(editor.Button("AddChannelButtonID").UI_IsDisabled());
    EXPECT_TRUE(editor.Button("RemoveChannelButtonID").UI_IsEnabled());
    EXPECT_TRUE(editor.Button("OKButtonID").UI_IsEnabled());
  });
  EXPECT_EQ(mDialog->GetLayout().size(), 32u);
}

TEST_F(LayoutDialog, APresetWithMoreHasToBeCutDownFirst) {
  Cache()->SavePreset(MakePreset("Many", kUser, std::vector<std::uint32_t>(33, 0)));
  Run(kUser, [](OpenEditor& editor) {
    EXPECT_TRUE(editor.Button("AddChannelButtonID").UI_IsDisabled());
    EXPECT_TRUE(editor.Button("OKButtonID").UI_IsDisabled());
    editor.Press("RemoveChannelButtonID");
    EXPECT_TRUE(editor.Button("AddChannelButtonID").UI_IsDisabled());
    EXPECT_TRUE(editor.Button("OKButtonID").UI_IsEnabled());
  });
}

TEST_F(LayoutDialog, APresetWithoutChannelsHasToGetOneFirst) {
  Cache()->SavePreset(MakePreset("None", kUser, {}));
  Run(kUser, [](OpenEditor& editor) {
    EXPECT_EQ(editor.Tree().CountRows(), 0u);
    EXPECT_TRUE(editor.Button("OKButtonID").UI_IsDisabled());
    EXPECT_TRUE(editor.Button("RemoveChannelButtonID").UI_IsDisabled());
    editor.Press("AddChannelButtonID");
    EXPECT_THAT(editor.Labels(), ElementsAre(u"1"));
    EXPECT_THAT(editor.Selected(), ElementsAre(0));
    EXPECT_TRUE(editor.Button("OKButtonID").UI_IsEnabled());
  });
  EXPECT_EQ(mDialog->GetLayout(), ChannelsOf({0}));
}

TEST_F(LayoutDialog, RemovingTheLastRowSelectsTheNewLastOne) {
  Run(kFiveOne, [](OpenEditor& editor) {
    EXPECT_THAT(editor.Selected(), ElementsAre(5));
    editor.Press("RemoveChannelButtonID");
    EXPECT_THAT(editor.Selected(), ElementsAre(4));
    editor.PressNumber(1);
    editor.Press("RemoveChannelButtonID");
    EXPECT_THAT(editor.Selected(), ElementsAre(1));
    EXPECT_EQ(editor.Presets().GetShownText(), u"(Custom)");
  });
  EXPECT_EQ(mDialog->GetLayout(), ChannelsOf({100, 102, 103, 104}));
}

// Presets and the end

TEST_F(LayoutDialog, APresetOfTheStripReplacesAllRows) {
  ThenChoose(u"5.1");
  Run(kMono, [](OpenEditor& editor) {
    editor.Press("AddChannelButtonID");
    editor.Press("PresetsPopupID");
    EXPECT_EQ(editor.Tree().CountRows(), 6u);
    EXPECT_EQ(editor.Presets().GetShownText(), u"5.1");
  });
  EXPECT_EQ(mDialog->GetLayout(), ChannelsOf({100, 101, 102, 103, 104, 105}));
  EXPECT_EQ(mDialog->GetPresetName(), u"Mono");
}

TEST_F(LayoutDialog, OKOnAPresetAsItStandsOpensNoBox) {
  Run(kStereo, [](OpenEditor& editor) { editor.Press("OKButtonID"); });
  EXPECT_EQ(mDialog->GetResponse(), kOK);
  EXPECT_EQ(CountBoxes(), 1u);
}

TEST_F(LayoutDialog, OKOnAModifiedLayoutAsksForAName) {
  ThenChoose(LabelText(102));
  ThenDrive([](Stage& box) {
    box.Type(u"Mine");
    box.Key(KeyboardCode::kReturn);
  });
  Run(kStereo, [](OpenEditor& editor) {
    editor.OpenPopup(1);
    editor.Press("OKButtonID");
  });
  EXPECT_EQ(mDialog->GetResponse(), kOK);
  EXPECT_EQ(CountBoxes(), 2u);
  EXPECT_THAT(NamesOf(Cache()->GetPresets()), ElementsAre("Mono", "Stereo", "5.1", "Mine"));
  EXPECT_EQ(Cache()->GetPresets().back().data.channelLayout, ChannelsOf({100, 102}));
}

TEST_F(LayoutDialog, ADismissedNameBoxSavesNothingAndStillMeansOK) {
  ThenChoose(LabelText(102));
  ThenDrive([](Stage& box) { box.Key(KeyboardCode::kEscape); });
  Run(kStereo, [](OpenEditor& editor) {
    editor.OpenPopup(1);
    editor.Press("OKButtonID");
  });
  EXPECT_EQ(mDialog->GetResponse(), kOK);
  EXPECT_EQ(mDialog->GetLayout(), ChannelsOf({100, 102}));
  EXPECT_EQ(Cache()->GetPresets().size(), 3u);
}

TEST_F(LayoutDialog, CancelIsNoOKAndAsksNothing) {
  ThenChoose(LabelText(102));
  Run(kStereo, [](OpenEditor& editor) {
    editor.OpenPopup(1);
    editor.Press("CancelButtonID");
  });
  EXPECT_EQ(mDialog->GetResponse(), kCancelled);
  EXPECT_EQ(CountBoxes(), 1u);
}

TEST_F(LayoutDialog, IsWorkedByKeysAlone) {
  Run(kStereo, [](OpenEditor& editor) { EXPECT_TRUE(editor.stage.Key(KeyboardCode::kEscape)); });
  EXPECT_EQ(mDialog->GetResponse(), kCancelled);
  Run(kStereo, [](OpenEditor& editor) {
    while (!editor.Button("AddChannelButtonID").UI_HasKeyboardFocus()) {
      ASSERT_TRUE(editor.stage.Tab());
    }
    editor.stage.Key(KeyboardCode::kSpace);
    EXPECT_EQ(editor.Tree().CountRows(), 3u);
    while (!editor.Button("OKButtonID").UI_HasKeyboardFocus()) {
      ASSERT_TRUE(editor.stage.Tab());
    }
    EXPECT_TRUE(editor.stage.Key(KeyboardCode::kReturn));
  });
  EXPECT_EQ(mDialog->GetResponse(), kOK);
}

// Focus and selection

TEST_F(LayoutDialog, TheFocusOfAPopupSelectsItsRowAndTheOtherWayRound) {
  Run(kFiveOne, [](OpenEditor& editor) {
    editor.Popup(2)->UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
    EXPECT_THAT(editor.Selected(), ElementsAre(2));
    editor.Tree().SelectRow(editor.Tree().GetRow(4).Get(), true, false, true);
    EXPECT_TRUE(editor.Popup(4)->UI_HasKeyboardFocus(true));
    editor.PressNumber(1);
    EXPECT_THAT(editor.Selected(), ElementsAre(1));
    EXPECT_FALSE(editor.Popup(4)->UI_HasKeyboardFocus(true));
    EXPECT_FALSE(editor.Popup(1)->UI_HasKeyboardFocus(true));
  });
}

TEST_F(LayoutDialog, ARowStaysSelectedWhereverThePressIs) {
  Run(kStereo, [](OpenEditor& editor) {
    editor.stage.Click(editor.stage.CenterOf(editor.Tree()));  // below the two rows
    EXPECT_THAT(editor.Selected(), ElementsAre(1));
    editor.stage.SetModKeys(moxui::ui::ModKey::kCommand);
    editor.PressNumber(1);
    EXPECT_THAT(editor.Selected(), ElementsAre(1));
    editor.PressNumber(0);
    EXPECT_THAT(editor.Selected(), ElementsAre(0));
  });
}

TEST_F(LayoutDialog, ItsColumnsAreNeitherMovedNorSortedBy) {
  Run(kStereo, [](OpenEditor& editor) {
    auto& header = *editor.Tree().GetHeaderRow();
    auto const label = editor.stage.CenterOf(*header.ChildGet(1));
    editor.stage.Drag(label, editor.stage.CenterOf(*header.ChildGet(0)));
    editor.stage.Click(label);
    EXPECT_EQ(header.GetColumnAt(0), 0);
    EXPECT_EQ(header.GetSortColumn(), -1);
  });
}

// Rows and their popups

TEST_F(LayoutDialog, OnlyRowsThatWereSeenHavePopupsAndTheyKeepThem) {
  Cache()->SavePreset(MakePreset("Many", kUser, std::vector<std::uint32_t>(20, 100)));
  Run(kUser, [](OpenEditor& editor) {
    EXPECT_EQ(editor.Popup(8), nullptr);
    UI_Popup const* const last = editor.Popup(19);
    ASSERT_NE(last, nullptr);
    editor.Tree().ScrollToTop();
    editor.stage.PaintFrame();
    EXPECT_NE(editor.Popup(0), nullptr);
    EXPECT_EQ(editor.Popup(19), last);
    EXPECT_EQ(editor.Popup(10), nullptr);
  });
}

TEST_F(LayoutDialog, APopupFillsItsCellAndFollowsItsWidth) {
  for (bool const isV7 : {true, false}) {
    moxui::skins::SetRunningV7OrBeyond(isV7);
    Run(kStereo, [isV7](OpenEditor& editor) {
      auto const place = [&] { return editor.Popup(0)->UI_GetLocalRectF(moxui::ui::RectSpace::kParent); };
      EXPECT_EQ(place(), isV7 ? RectT<float>(2, 2, 190, 24) : RectT<float>(0, 0, 194, 20));
      editor.Tree().SetColumnWidth(1, 120.0f);
      editor.stage.PaintFrame();
      EXPECT_EQ(place(), isV7 ? RectT<float>(2, 2, 116, 24) : RectT<float>(0, 0, 120, 20));
      editor.stage.PaintFrame();
      editor.stage.PaintFrame();
      EXPECT_FALSE(editor.stage.GetTree().NeedsFrame());
    });
  }
}

// The window

struct Place {
  char const* id;
  RectT<float> classic;
  RectT<float> v7;
};

TEST_F(LayoutDialog, ItsPartsLieWhereTheyBelongInBothLooks) {
  constexpr Place kPlaces[] = {{"UI_TransformSubView", {0, 0, 320, 325}, {0, 0, 320, 325}},
                               {"TreeID", {8, 8, 289, 188}, {8, 8, 289, 190}},
                               {"RemoveChannelButtonID", {250, 0, 19, 19}, {231, 0, 28, 24}},
                               {"AddChannelButtonID", {276, 0, 19, 19}, {267, 0, 28, 24}}};
  for (bool const isV7 : {true, false}) {
    moxui::skins::SetRunningV7OrBeyond(isV7);
    Run(kStereo, [&](OpenEditor& editor) {
      for (Place const& place : kPlaces) {
        EXPECT_EQ(
            FindNode(editor.stage.GetRootView(), place.id)->UI_GetLocalRectF(moxui::ui::RectSpace::kParent),
            isV7 ? place.v7 : place.classic)
            << place.id;
      }
      // Texts that need more room than the look's own get it, at the edge where they are bound.
      auto const cancel = editor.Button("CancelButtonID").UI_GetLocalRectF(moxui::ui::RectSpace::kParent);
      EXPECT_FLOAT_EQ(cancel.Right(), isV7 ? 305.0f : 301.0f);
      EXPECT_GE(cancel.width,
                editor.Button("CancelButtonID").UI_GetRecommendedSizeFromDefaultSupplier().width - 1);
      auto const& label = editor.Get<moxui::controls::UI_StaticText>("PresetLabelID");
      EXPECT_GE(label.UI_GetLocalRectF(moxui::ui::RectSpace::kParent).width, label.GetTextWidth());
    });
  }
}

TEST_F(LayoutDialog, TheStripFillsItsPlaceThoughItsLabelNeedsNoMore) {
  auto& localizer = moxcore::config::Localizer::Get();
  localizer.AddCatalogue(moxcore::config::ParseCatalogue(
      "msgid \"\"\nmsgstr \"\"\n\"Language: xx\\n\"\n\nmsgctxt "
      "\"$$$/CustomAudioChannelLayoutDialogXML/Preset\"\nmsgid \"Preset:\"\nmsgstr \"P\"\n"));
  localizer.SetLanguage("xx");
  for (bool const isV7 : {true, false}) {
    moxui::skins::SetRunningV7OrBeyond(isV7);
    Run(kStereo, [](OpenEditor& editor) {
      auto const place = [&](char const* id) {
        return FindNode(editor.stage.GetRootView(), id)->UI_GetLocalRectF(moxui::ui::RectSpace::kParent);
      };
      EXPECT_EQ(place("PresetLabelID").width, 30.0f);
      EXPECT_EQ(place("PresetsViewID").width, 269.0f);
      EXPECT_EQ(place("DeletePresetButtonID").Right(), 269.0f);
    });
  }
  localizer.SetLanguage("");
}

TEST_F(LayoutDialog, LooksAsWasAgreedOn) {
  for (bool const isV7 : {true, false}) {
    moxui::skins::SetRunningV7OrBeyond(isV7);
    Run(kFiveOne, [isV7](OpenEditor& editor) {
      std::string const name =
          isV7 ? "channelconfig/layout_dialog.png" : "channelconfig/layout_dialog_classic.png";
      auto const picture = editor.stage.TakePicture();
      EXPECT_EQ(moxui::testing::ComparePicture(picture, moxui::testing::GoldenPath(name)), "");
      editor.Press("RemoveChannelButtonID");
      EXPECT_GT(moxui::testing::FindDifference(editor.stage.TakePicture(), picture).differingPixels, 0);
    });
  }
}

TEST_F(LayoutDialog, TellsWhatItsButtonsDo) {
  Run(kStereo, [](OpenEditor& editor) {
    EXPECT_EQ(editor.Button("AddChannelButtonID").UI_GetToolTip(), "Add a Channel");
    EXPECT_EQ(editor.Button("RemoveChannelButtonID").UI_GetToolTip(), "Remove a Channel");
    EXPECT_EQ(editor.Button("AddChannelButtonID").GetTextLabel(), u"+");
    EXPECT_EQ(editor.Button("RemoveChannelButtonID").GetTextLabel(), u"-");
    EXPECT_EQ(editor.Button("OKButtonID").GetTextLabel(), u"OK");
    EXPECT_EQ(editor.Button("CancelButtonID").GetTextLabel(), u"Cancel");
    EXPECT_EQ(editor.Popup(1)->UI_GetAccessibleName(), "Label of channel 2");
    EXPECT_EQ(editor.Button("AddChannelButtonID").UI_GetAccessibleName(), "Add a Channel");
    EXPECT_EQ(editor.Button("RemoveChannelButtonID").UI_GetAccessibleName(), "Remove a Channel");
    EXPECT_EQ(editor.Tree().UI_GetAccessibleName(), "Channels");
  });
}

TEST(LayoutDialogWindow, CantBecomeSmallerThanItsArchive) {
  PresetStore const store;
  moxmediaui::Initialize(moxui::scriber::GetRasterSupplier());
  {
    auto const dialog = moxcore::utility::MakeIntrusive<Dialog>(
        store.Open(), moxmediatypes::GetSupportedAudioChannelDescriptions(), moxcore::Guid());
    moxui::platform::Application::Get()->PostDelayed(0, [] {
      moxui::ui::NodeTree& tree = *moxui::ui::UI_NodeManager::Get(false)->GetTrees().back();
      dynamic_cast<moxui::platform::Window&>(tree.GetHost()).SetSize({200, 100});
      EXPECT_EQ(tree.GetSize(), moxui::ExtentT<float>(320, 325));
      tree.HandleKey(moxui::ui::KeyboardEvent(moxui::ui::KeyAction::kKeyDown, KeyboardCode::kEscape));
    });
    dialog->RunDialog();
    EXPECT_EQ(dialog->GetResponse(), kCancelled);
  }
  moxmediaui::Terminate();
}

}  // namespace
}  // namespace layout_presets
