// What the presets view asks its user, and what becomes of the answers. Every box is driven by keys.
#include "PresetsFixture.h"

#include <moxcore/config/Catalogue.h>
#include <moxcore/config/Localizer.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace moxmediaui {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string const kPrompt = "Preset Name:";
std::string const kOverwriteA = "The preset 'A' already exists. Would you like to overwrite it?";

class PresetsConversation : public Presets {
 protected:
  PresetsConversation() {
    mProvider.presets = {Protected("Mono"), Protected("Stereo"), Own("A"), Own("B")};
    mProvider.current = 2;
    Connect();
  }
  ~PresetsConversation() override { EXPECT_TRUE(mAnswers.AllUsed()); }
};

TEST_F(PresetsConversation, ABoxThatIsDismissedSavesNothing) {
  Dismiss();
  EXPECT_FALSE(mView->RequestSaveCurrentPreset(false));
  EXPECT_THAT(mProvider.log, IsEmpty());
  EXPECT_THAT(Boxes(), ElementsAre(kPrompt));
}

TEST_F(PresetsConversation, AnEmptyNameBringsTheBoxAgainWithoutAWord) {
  EmptyAndAccept();
  Dismiss();
  PressSave();
  EXPECT_THAT(mProvider.log, IsEmpty());
  EXPECT_THAT(Boxes(), ElementsAre(kPrompt, kPrompt));
}

TEST_F(PresetsConversation, ANameOfBlanksIsEmpty) {
  TypeAndAccept(u"  \u3000 ");
  TypeAndAccept(u"C");
  PressSave();
  EXPECT_THAT(mProvider.log, ElementsAre("create C"));
  EXPECT_THAT(Boxes(), ElementsAre(kPrompt, kPrompt));
}

TEST_F(PresetsConversation, AReservedNameIsRefusedAndTheBoxComesBackWithIt) {
  TypeAndAccept(u"Mono");
  Accept();  // the stop box
  AcceptOffered();
  Accept();
  Dismiss();
  EXPECT_FALSE(mView->RequestSaveCurrentPreset(false));
  std::string const invalid = "'Mono' is not a valid name for a preset.  Please pick a different name.";
  EXPECT_THAT(Boxes(), ElementsAre(kPrompt, invalid, kPrompt, invalid, kPrompt));
  EXPECT_EQ(mOffered, u"Mono");
  EXPECT_THAT(mProvider.log, IsEmpty());
}

TEST_F(PresetsConversation, ANewNameMakesAPreset) {
  TypeAndAccept(u"C");
  PressSave();
  EXPECT_THAT(mProvider.log, ElementsAre("create C"));
  EXPECT_THAT(Shown(), ElementsAre(u"Mono", u"Stereo", u"-", u"A", u"B", u"C"));
  EXPECT_EQ(Popup().GetValue(), 5);
}

TEST_F(PresetsConversation, ANameThatIsListedIsOverwrittenOnYes) {
  TypeAndAccept(u"B");
  Accept();
  EXPECT_TRUE(mView->RequestSaveCurrentPreset(false));
  EXPECT_THAT(mProvider.log, ElementsAre("save B"));
  EXPECT_EQ(mProvider.savedGuid, mProvider.presets[3].guid);
  EXPECT_EQ(Titles().back(), "Presets Test");
}

TEST_F(PresetsConversation, ANameThatIsListedBringsTheBoxAgainOnNo) {
  TypeAndAccept(u"A");
  Dismiss();  // the question: No
  AcceptOffered();
  Dismiss();
  TypeAndAccept(u"C");
  EXPECT_TRUE(mView->RequestSaveCurrentPreset(false));
  EXPECT_EQ(mOffered, u"A");
  EXPECT_THAT(Boxes(), ElementsAre(kPrompt, kOverwriteA, kPrompt, kOverwriteA, kPrompt));
  EXPECT_THAT(mProvider.log, ElementsAre("create C"));
}

TEST_F(PresetsConversation, NoAndThenDismissedSavesNothing) {
  TypeAndAccept(u"A");
  Dismiss();
  Dismiss();
  EXPECT_FALSE(mView->RequestSaveCurrentPreset(false));
  EXPECT_THAT(mProvider.log, IsEmpty());
}

TEST_F(PresetsConversation, TheNameOfTheCurrentPresetIsOffered) {
  AcceptOffered();
  Accept();
  PressSave();
  EXPECT_EQ(mOffered, u"A");
  EXPECT_THAT(Boxes(), ElementsAre(kPrompt, kOverwriteA));
  EXPECT_THAT(mProvider.log, ElementsAre("save A"));
}

TEST_F(PresetsConversation, FromAProtectedPresetAnUntitledOneIsOffered) {
  mProvider.SetCurrent(0);
  AcceptOffered();
  PressSave();
  EXPECT_EQ(mOffered, u"Untitled Preset");
  EXPECT_THAT(mProvider.log, ElementsAre("create Untitled Preset"));
}

TEST_F(PresetsConversation, BlanksAroundANameAreTakenOff) {
  TypeAndAccept(u"  My preset\u00a0 ");
  PressSave();
  EXPECT_THAT(mProvider.log, ElementsAre("create My preset"));
}

TEST_F(PresetsConversation, NamesThatDifferInCaseAloneAreDifferent) {
  TypeAndAccept(u"a");
  PressSave();
  EXPECT_THAT(mProvider.log, ElementsAre("create a"));
}

TEST_F(PresetsConversation, OfTwoWithOneNameTheLastIsMeant) {
  mProvider.presets.push_back(Own("A"));
  mProvider.Fire();
  TypeAndAccept(u"A");
  Accept();
  PressSave();
  EXPECT_EQ(mProvider.savedGuid, mProvider.presets.back().guid);
}

TEST_F(PresetsConversation, TheNameCustomIsReservedWhateverTheProviderSays) {
  TypeAndAccept(u"(Custom)");
  Accept();
  Dismiss();
  PressSave();
  EXPECT_THAT(Boxes()[1], "'(Custom)' is not a valid name for a preset.  Please pick a different name.");
}

TEST_F(PresetsConversation, TheNameCustomIsReservedInTheRunningLanguage) {
  auto& localizer = moxcore::config::Localizer::Get();
  localizer.SetLanguage("de");
  auto const custom = localizer.GetUTF16String("$$$/app/PresetManager/CustomPresetName=(Custom)");
  ASSERT_NE(custom, u"(Custom)");
  TypeAndAccept(custom);
  Accept();
  TypeAndAccept(u"(Custom)");  // any other name by now
  PressSave();
  localizer.SetLanguage("");
  EXPECT_THAT(mProvider.log, ElementsAre("create (Custom)"));
}

TEST_F(PresetsConversation, AStateThatIsNotModifiedIsSavedAlready) {
  EXPECT_TRUE(mView->RequestSaveCurrentPreset(true));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(PresetsConversation, AModifiedStateIsAskedAbout) {
  mProvider.modified = true;
  TypeAndAccept(u"C");
  EXPECT_TRUE(mView->RequestSaveCurrentPreset(true));
  EXPECT_THAT(mProvider.log, ElementsAre("create C"));
}

TEST_F(PresetsConversation, FailuresOfTheProviderAreOnlyHandedOn) {
  mProvider.succeeds = false;
  TypeAndAccept(u"C");
  EXPECT_FALSE(mView->RequestSaveCurrentPreset(false));
  TypeAndAccept(u"A");
  Accept();
  EXPECT_FALSE(mView->RequestSaveCurrentPreset(false));
  EXPECT_THAT(mProvider.log, ElementsAre("create C", "save A"));
  EXPECT_THAT(Boxes(), ElementsAre(kPrompt, kPrompt, kOverwriteA));
}

TEST_F(PresetsConversation, WithoutAProviderNothingIsSaved) {
  mView->SetPresetProvider(nullptr);
  EXPECT_TRUE(mView->RequestSaveCurrentPreset(true));
  TypeAndAccept(u"C");
  EXPECT_FALSE(mView->RequestSaveCurrentPreset(false));
  EXPECT_THAT(mProvider.log, IsEmpty());
}

TEST_F(PresetsConversation, ItsBoxHasTheStringsThatItsClientGives) {
  mView->SetDialogStrings(u"Save Layout", u"Layout Name:");
  Dismiss();
  PressSave();
  mView->SetDialogStrings(u"", u"Name:");
  Dismiss();
  PressSave();
  mView->SetDialogStrings(u"Save Layout", u"");
  mView->SetPresetProvider(nullptr);
  Dismiss();
  mView->RequestSaveCurrentPreset(false);
  EXPECT_THAT(Titles(), ElementsAre("Save Layout", "Save Preset", "Save Preset"));
  EXPECT_THAT(Boxes(), ElementsAre("Layout Name:", "Name:", "Preset Name:"));
}

TEST_F(PresetsConversation, NoProviderTwiceStillBringsTheDefaultStringsBack) {
  mView->SetPresetProvider(nullptr);
  mView->SetDialogStrings(u"Save Layout", u"Layout Name:");
  mView->SetPresetProvider(nullptr);
  Dismiss();
  mView->RequestSaveCurrentPreset(false);
  EXPECT_THAT(Titles(), ElementsAre("Save Preset"));
}

TEST_F(PresetsConversation, DeletingAsksFirst) {
  Accept();
  PressDelete();
  EXPECT_THAT(Boxes(), ElementsAre("Are you sure you want to delete the preset 'A'?"));
  EXPECT_THAT(mProvider.log, ElementsAre("remove A"));
}

TEST_F(PresetsConversation, DeletingStopsOnNo) {
  Dismiss();
  PressDelete();
  EXPECT_THAT(mProvider.log, IsEmpty());
}

TEST_F(PresetsConversation, ADeletionThatFailsIsNotToldOf) {
  mProvider.succeeds = false;
  Accept();
  PressDelete();
  EXPECT_THAT(mProvider.log, ElementsAre("remove A"));
  EXPECT_EQ(Boxes().size(), 1u);
}

// The button is disabled for these, but a provider may change without a word.
TEST_F(PresetsConversation, APresetWithoutANameIsNotDeleted) {
  mProvider.strayCurrent = Own("");
  Accept();
  PressDelete();
  EXPECT_THAT(Boxes(), ElementsAre("Please pick a preset."));
  EXPECT_THAT(mProvider.log, IsEmpty());
}

TEST_F(PresetsConversation, APresetWithAReservedNameIsNotDeleted) {
  mProvider.current = 0;
  Accept();
  PressDelete();
  EXPECT_THAT(Boxes(), ElementsAre("'Mono' cannot be deleted."));
  EXPECT_THAT(mProvider.log, IsEmpty());
}

TEST_F(PresetsConversation, EveryBoxButThatOfTheNameIsTitledWithTheProgramsName) {
  TypeAndAccept(u"Mono");
  Accept();  // not a valid name
  TypeAndAccept(u"A");
  Dismiss();  // overwriting
  Dismiss();
  PressSave();
  Dismiss();  // deleting
  PressDelete();
  mProvider.current = 0;
  Accept();  // can't be deleted
  PressDelete();
  mProvider.strayCurrent = Own("");
  Accept();  // no name
  PressDelete();
  EXPECT_THAT(Titles(), ElementsAre("Save Preset", "Presets Test", "Save Preset", "Presets Test",
                                    "Save Preset", "Presets Test", "Presets Test", "Presets Test"));
}

TEST_F(PresetsConversation, TheProviderMayChangeWhileABoxIsOpen) {
  mAnswers.ExpectDriven([this](moxui::testing::Stage& box) {
    mProvider.presets.push_back(Own("C"));
    mProvider.Fire();
    box.Type(u"C");
    box.Key(moxui::ui::KeyboardCode::kReturn);
  });
  Accept();
  PressSave();
  EXPECT_THAT(mProvider.log, ElementsAre("save C"));
}

}  // namespace
}  // namespace moxmediaui
