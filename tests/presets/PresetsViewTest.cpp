#include "PresetsFixture.h"

#include <moxcore/config/Errors.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace moxmediaui {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(Presets, IsInTheUnknownStateUntilThereIsAProvider) {
  EXPECT_EQ(Popup().GetValue(), -1);
  EXPECT_TRUE(Popup().GetItems().empty());
  mView->SetValueUnknown();
  EXPECT_EQ(Popup().GetValue(), -1);
  EXPECT_TRUE(Popup().IsValueUnknown());
}

TEST_F(Presets, TwoProtectedPresetsAndNoOtherHaveNoSeparator) {
  mProvider.presets = {Protected("Mono"), Protected("Stereo")};
  Connect();
  EXPECT_THAT(Shown(), ElementsAre(u"Mono", u"Stereo"));
}

TEST_F(Presets, ASeparatorPartsThreeProtectedFromTwoOthersAndTakesAValue) {
  mProvider.presets = {Protected("Mono"), Protected("Stereo"), Protected("5.1"), Own("A"), Own("B")};
  mProvider.current = 3;
  Connect();
  EXPECT_THAT(Shown(), ElementsAre(u"Mono", u"Stereo", u"5.1", u"-", u"A", u"B"));
  EXPECT_EQ(Popup().GetValue(), 4);
  mProvider.SetCurrent(4);
  EXPECT_EQ(Popup().GetValue(), 5);
  mProvider.SetCurrent(2);
  EXPECT_EQ(Popup().GetValue(), 2);
}

TEST_F(Presets, OneProtectedPresetIsNotParted) {
  mProvider.presets = {Protected("Mono"), Own("A"), Own("B")};
  mProvider.current = 2;
  Connect();
  EXPECT_THAT(Shown(), ElementsAre(u"Mono", u"A", u"B"));
  EXPECT_EQ(Popup().GetValue(), 2);
}

TEST_F(Presets, APresetWithEitherFlagIsProtected) {
  mProvider.presets = {Protected("Mono", 1), Protected("Stereo", 2), Own("A", 4)};
  Connect();
  EXPECT_THAT(Shown(), ElementsAre(u"Mono", u"Stereo", u"-", u"A"));
}

TEST_F(Presets, ACurrentPresetThatIsNotListedHasTheValuePastTheLast) {
  mProvider.presets = {Protected("Mono"), Own("A")};
  mProvider.strayCurrent = Own("Gone");
  Connect();
  EXPECT_EQ(Popup().GetValue(), 2);
  EXPECT_EQ(Popup().GetShownText(), u"");
  mProvider.presets = {Protected("Mono"), Protected("Stereo"), Own("A")};
  mProvider.Fire();
  EXPECT_EQ(Popup().GetValue(), 4);
}

TEST_F(Presets, WhileModifiedTheTextIsTheProvidersAndNoItemIsSelected) {
  mProvider.presets = {Protected("Mono"), Own("A")};
  mProvider.current = 1;
  mProvider.modified = true;
  mProvider.displayString = u"A *";
  Connect();
  EXPECT_EQ(Popup().GetShownText(), u"A *");
  EXPECT_EQ(Popup().GetValue(), -1);
  EXPECT_FALSE(Popup().IsValueUnknown());
  EXPECT_FALSE(DeleteButton().IsDisabled());  // it is about the preset, not about the text
  EXPECT_THAT(Shown(), ElementsAre(u"Mono", u"A"));
}

TEST_F(Presets, TheSaveButtonIsEnabledWhenThereIsSomethingToSave) {
  mProvider.presets = {Own("A")};
  mProvider.canCreate = false;
  Connect();
  EXPECT_TRUE(SaveButton().IsDisabled());
  mProvider.canCreate = true;
  mProvider.Fire();
  EXPECT_FALSE(SaveButton().IsDisabled());
}

TEST_F(Presets, TheDeleteButtonIsDisabledForWhatCantBeDeleted) {
  mProvider.presets = {Protected("Default", 1), Protected("Factory", 2), Own("A"), Own("Reserved"), Own("")};
  mProvider.reserved = {"Reserved"};
  Connect();
  mProvider.SetCurrent(0);
  EXPECT_FALSE(DeleteButton().IsDisabled());  // the first bit alone doesn't say so
  mProvider.SetCurrent(1);
  EXPECT_TRUE(DeleteButton().IsDisabled());
  mProvider.SetCurrent(2);
  EXPECT_FALSE(DeleteButton().IsDisabled());
  mProvider.SetCurrent(3);
  EXPECT_TRUE(DeleteButton().IsDisabled());
  mProvider.SetCurrent(4);
  EXPECT_TRUE(DeleteButton().IsDisabled());
}

TEST_F(Presets, ChoosingAnItemLoadsItsPreset) {
  mProvider.presets = {Protected("Mono"), Protected("Stereo"), Own("A")};
  Connect();
  Choose(u"A");
  EXPECT_THAT(mProvider.log, ElementsAre("load A"));
  EXPECT_EQ(Popup().GetValue(), 3);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(Presets, APresetThatDoesntLoadIsToldOf) {
  mProvider.presets = {Protected("Mono"), Own("A")};
  mProvider.succeeds = false;
  Connect();
  Choose(u"A");
  EXPECT_THAT(Boxes(), ElementsAre("The preset 'A' did not load correctly."));
  EXPECT_EQ(Titles().back(), "Presets Test");
  EXPECT_EQ(Popup().GetValue(), 0);  // what is the current one still
}

TEST_F(Presets, ChoosingAfterTheProviderHasGoneIsToldOf) {
  mProvider.presets = {Protected("Mono"), Own("A")};
  Connect();
  mView->SetPresetProvider(nullptr);
  Choose(u"A");
  EXPECT_THAT(mProvider.log, IsEmpty());
  EXPECT_THAT(Boxes(), ElementsAre("The preset 'A' did not load correctly."));
}

TEST_F(Presets, AValueThatIsNoItemCausesNothing) {
  mProvider.presets = {Protected("Mono"), Protected("Stereo"), Own("A")};
  Connect();
  int const askedBefore = mProvider.listed;
  Popup().SetValue(2);  // the separator's
  Popup().SendValueChangedMessage();
  Popup().SetValue(17);
  Popup().SendValueChangedMessage();
  EXPECT_THAT(mProvider.log, IsEmpty());
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_EQ(mProvider.listed, askedBefore);  // not even an update
}

TEST_F(Presets, TheSameProviderTwiceIsConnectedOnce) {
  mProvider.presets = {Own("A")};
  Connect();
  int const listed = mProvider.listed;
  mView->SetPresetProvider(&mProvider);
  EXPECT_EQ(mProvider.listed, listed);
  mProvider.Fire();
  EXPECT_EQ(mProvider.listed, listed + 1);
}

TEST_F(Presets, AProviderThatIsTakenAwayIsHeardNoMore) {
  mProvider.presets = {Own("A")};
  Connect();
  mView->SetPresetProvider(nullptr);
  EXPECT_EQ(Popup().GetValue(), -1);
  EXPECT_TRUE(Popup().IsValueUnknown());
  int const listed = mProvider.listed;
  mProvider.Fire();
  EXPECT_EQ(mProvider.listed, listed);
}

TEST_F(Presets, AnotherProviderTakesTheOnesPlace) {
  FakeProvider other;
  other.presets = {Own("B")};
  mProvider.presets = {Own("A")};
  Connect();
  mView->SetPresetProvider(&other);
  EXPECT_THAT(Shown(), ElementsAre(u"B"));
  mProvider.Fire();
  EXPECT_THAT(Shown(), ElementsAre(u"B"));
  mView->SetPresetProvider(nullptr);
}

TEST_F(Presets, TheConnectionEndsWithTheView) {
  mProvider.presets = {Own("A")};
  Connect();
  mStage.GetRootView().DeleteChildren();
  mView.Reset();
  int const listed = mProvider.listed;
  mProvider.Fire();
  EXPECT_EQ(mProvider.listed, listed);
}

TEST_F(Presets, HasNoControlsBeforeItIsInitialized) {
  auto const view = PresetsView::Create();
  EXPECT_THROW(view->SetValueUnknown(), moxcore::config::mox_exception);
  EXPECT_THROW(view->SetPresetProvider(&mProvider), moxcore::config::mox_exception);
}

TEST_F(Presets, IsReachedAndWorkedByKeyboardAlone) {
  mProvider.presets = {Protected("Mono"), Own("A")};
  mProvider.current = 1;
  Connect();
  EXPECT_TRUE(mView->UI_WantsKeyboardFocus());
  mStage.Tab();
  EXPECT_TRUE(Popup().UI_HasKeyboardFocus());
  mStage.Tab();
  EXPECT_TRUE(SaveButton().UI_HasKeyboardFocus());
  mStage.Tab();
  EXPECT_TRUE(DeleteButton().UI_HasKeyboardFocus());
  mAnswers.ExpectDriven([](moxui::testing::Stage& box) { box.Key(moxui::ui::KeyboardCode::kReturn); });
  mStage.Key(moxui::ui::KeyboardCode::kSpace);
  EXPECT_THAT(mProvider.log, ElementsAre("remove A"));
}

TEST_F(Presets, EveryControlHasAName) {
  EXPECT_EQ(Popup().UI_GetAccessibleName(), "Preset");
  EXPECT_EQ(SaveButton().UI_GetAccessibleName(), "Save settings as a preset");
  EXPECT_EQ(DeleteButton().UI_GetAccessibleName(), "Delete preset");
}

}  // namespace
}  // namespace moxmediaui
