#include "LayoutDialogFixture.h"

#include <moxcore/config/Errors.h>
#include <moxmediaui/ChannelsPopupHandlerBase.h>
#include <moxui/ui/UI_SubView.h>

namespace layout_presets {
namespace {

using moxmediatypes::AudioChannelLayout;
using moxmediaui::channelconfig::ChannelsPopupHandlerBase;
using moxui::ui::KeyboardCode;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A client's handler, which writes down what it is told.
class Handler : public ChannelsPopupHandlerBase {
 public:
  struct Saved {
    std::array<Utf16String, 3> keys;
    std::int64_t chosenValue;
    AudioChannelLayout layout;
    Utf16String name;
  };

  using ChannelsPopupHandlerBase::ChannelsPopupHandlerBase;
  using ChannelsPopupHandlerBase::GetPresetCache;

  AudioChannelLayout defaultLayout;
  std::vector<Saved> saved;

 protected:
  void SaveLayoutsToPreferences(PopupData data, AudioChannelLayout layout, Utf16String name) override {
    saved.push_back({data.preferenceKeys, data.chosenValue, std::move(layout), std::move(name)});
  }
  AudioChannelLayout GetDefaultChannelLayout(PopupData& data) override {
    return defaultLayout.empty() ? ChannelsPopupHandlerBase::GetDefaultChannelLayout(data) : defaultLayout;
  }
};

class PopupHandler : public LayoutEditorTest {
 protected:
  IntrusivePtr<UI_Popup> AddPopup(ChannelsPopupHandlerBase& handler) {
    auto popup = moxcore::utility::MakeIntrusive<UI_Popup>();
    popup->UI_SetLocalRectF({10, 10 + 40 * static_cast<float>(mStage.GetRootView().ChildSize()), 150, 24});
    mStage.GetRootView().ChildPushBack(popup);
    handler.AddPopup(popup, u"a", u"b", u"c");
    return popup;
  }
  static std::vector<Utf16String> Shown(UI_Popup const& popup) {
    std::vector<Utf16String> texts;
    for (auto const& item : popup.GetItems()) {
      texts.push_back(item.isSeparator ? u"-" : item.text);
    }
    return texts;
  }
  void Choose(UI_Popup& popup, Utf16String const& item) {
    mAnswers.ExpectItem(item);
    mStage.Click(mStage.CenterOf(popup));
  }
  /// Chooses "Custom..." and drives the editor.
  void Edit(UI_Popup& popup, std::function<void(OpenEditor&)> drive) {
    mAnswers.ExpectItem(u"Custom...");
    mAnswers.ExpectDriven([drive = std::move(drive)](Stage& stage) {
      OpenEditor editor(stage);
      drive(editor);
    });
    for (auto& answer : std::exchange(mThen, {})) {
      answer();
    }
    mStage.Click(mStage.CenterOf(popup));
  }
  void SaveInStore(LayoutPreset const& preset) { mStore.Open()->SavePreset(preset); }

  Stage mStage{moxui::ExtentT<float>(300, 300)};
};

TEST_F(PopupHandler, ListsTheFactoryPresetsAndTheEditorAndShowsStereo) {
  Handler handler(true);
  auto const popup = AddPopup(handler);
  EXPECT_THAT(Shown(*popup), ElementsAre(u"Mono", u"Stereo", u"5.1", u"-", u"Custom..."));
  EXPECT_EQ(popup->GetValue(), 1);
  EXPECT_EQ(handler.GetSelectedLayout(popup), ChannelsOf({100, 101}));
}

TEST_F(PopupHandler, WithoutCustomLayoutsListsProtectedPresetsOnlyAndOpensNothing) {
  SaveInStore(MakePreset("Foo"));
  Handler handler(false);
  auto const popup = AddPopup(handler);
  EXPECT_THAT(Shown(*popup), ElementsAre(u"Mono", u"Stereo", u"5.1"));
  Choose(*popup, u"5.1");
  EXPECT_EQ(popup->GetValue(), 2);
  EXPECT_EQ(handler.GetSelectedLayout(popup), ChannelsOf({100, 101, 102, 103, 104, 105}));
  EXPECT_EQ(CountBoxes(), 0u);
}

TEST_F(PopupHandler, PartsTheUsersPresetsFromTheOthers) {
  SaveInStore(MakePreset("Foo", kUser, {102}));
  SaveInStore(MakePreset("Bar", kOther, {103}));
  Handler handler(true);
  auto const popup = AddPopup(handler);
  EXPECT_THAT(Shown(*popup),
              ElementsAre(u"Mono", u"Stereo", u"5.1", u"-", u"Bar", u"Foo", u"-", u"Custom..."));
  Choose(*popup, u"Foo");
  EXPECT_EQ(popup->GetValue(), 5);
  EXPECT_EQ(handler.GetSelectedLayout(popup), ChannelsOf({102}));
}

TEST_F(PopupHandler, WithoutProtectedPresetsBeginsWithASeparator) {
  mStore.Write("Foo.preset", TextOf("Foo"));
  Handler handler(true);
  auto const popup = AddPopup(handler);
  EXPECT_THAT(Shown(*popup), ElementsAre(u"-", u"Foo", u"-", u"Custom..."));
  EXPECT_EQ(popup->GetValue(), -1);
  EXPECT_EQ(handler.GetSelectedLayout(popup), ChannelsOf({0}));
}

TEST_F(PopupHandler, ShowsTheLastPresetWithTheDefaultLayout) {
  SaveInStore(MakePreset("My stereo", kUser, {100, 101}));
  Handler handler(true);
  EXPECT_EQ(AddPopup(handler)->GetValue(), 4);
}

TEST_F(PopupHandler, ShowsWhatItsClientTakesForTheDefault) {
  Handler handler(true);
  handler.defaultLayout = ChannelsOf({100, 101, 102, 103, 104, 105});
  EXPECT_EQ(AddPopup(handler)->GetValue(), 2);
  // The same labels in another order are another layout, which no preset has.
  handler.defaultLayout = ChannelsOf({101, 100, 102, 103, 104, 105});
  EXPECT_EQ(AddPopup(handler)->GetValue(), 1);
}

TEST_F(PopupHandler, GivesMonoForAPopupThatItDoesntKnowAndThrowsForNone) {
  Handler handler(true);
  auto const other = moxcore::utility::MakeIntrusive<UI_Popup>();
  other->AddItem(u"Mono");
  other->AddItem(u"Stereo");
  other->SetValue(1);
  EXPECT_EQ(handler.GetSelectedLayout(other), ChannelsOf({0}));
  handler.SetSelectedLayout(ChannelsOf({0}), other);
  EXPECT_EQ(other->GetValue(), 1);
  EXPECT_THROW(handler.GetSelectedLayout(nullptr), moxcore::config::mox_exception);
  EXPECT_THROW(handler.AddPopup(nullptr, u"", u"", u""), moxcore::config::mox_exception);
}

TEST_F(PopupHandler, SelectsALayoutExactlyAndOnlyIfAPresetHasIt) {
  Handler handler(true);
  auto const popup = AddPopup(handler);
  handler.SetSelectedLayout(ChannelsOf({0}), popup);
  EXPECT_EQ(popup->GetValue(), 0);
  handler.SetSelectedLayout(ChannelsOf({101, 100}), popup);
  handler.SetSelectedLayout({}, popup);
  EXPECT_EQ(popup->GetValue(), 0);
}

TEST_F(PopupHandler, OpensTheEditorFromThePresetChosenBefore) {
  Handler handler(true);
  auto const popup = AddPopup(handler);
  Choose(*popup, u"5.1");
  Edit(*popup, [](OpenEditor& editor) {
    EXPECT_EQ(editor.Presets().GetShownText(), u"5.1");
    editor.Press("CancelButtonID");
  });
  EXPECT_EQ(CountBoxes(), 1u);
}

TEST_F(PopupHandler, ShowsTheDefaultAgainAfterACancelledEditor) {
  Handler handler(true);
  auto const popup = AddPopup(handler);
  Choose(*popup, u"5.1");
  Edit(*popup, [&](OpenEditor& editor) {
    EXPECT_EQ(popup->GetValue(), 4);
    editor.Press("CancelButtonID");
  });
  EXPECT_EQ(popup->GetValue(), 1);
  EXPECT_TRUE(popup->UI_HasKeyboardFocus(true));
  EXPECT_THAT(handler.saved, IsEmpty());
}

TEST_F(PopupHandler, KeepsAllPopupsInStepWithWhatTheEditorSaved) {
  Handler handler(true);
  auto const popup = AddPopup(handler);
  auto const other = AddPopup(handler);
  ThenChoose(LabelText(102));
  ThenDrive([](Stage& box) {
    box.Type(u"Mine");
    box.Key(KeyboardCode::kReturn);
  });
  Edit(*popup, [](OpenEditor& editor) {
    editor.OpenPopup(1);
    editor.Press("OKButtonID");
  });
  ASSERT_EQ(handler.saved.size(), 1u);
  EXPECT_THAT(handler.saved[0].keys, ElementsAre(u"a", u"b", u"c"));
  EXPECT_EQ(handler.saved[0].chosenValue, 1);
  EXPECT_EQ(handler.saved[0].layout, ChannelsOf({100, 102}));
  EXPECT_EQ(handler.saved[0].name, u"Stereo");
  for (auto const& one : {popup, other}) {
    EXPECT_THAT(Shown(*one), ElementsAre(u"Mono", u"Stereo", u"5.1", u"-", u"Mine", u"-", u"Custom..."));
  }
  EXPECT_EQ(popup->GetValue(), 4);
  EXPECT_EQ(other->GetValue(), 1);
  EXPECT_TRUE(popup->UI_HasKeyboardFocus(true));
}

TEST_F(PopupHandler, ALayoutThatWasConfirmedButNotSavedIsToldToTheClient) {
  Handler handler(true);
  auto const popup = AddPopup(handler);
  ThenDrive([](Stage& box) { box.Key(KeyboardCode::kEscape); });
  Edit(*popup, [](OpenEditor& editor) {
    editor.Press("RemoveChannelButtonID");
    editor.Press("OKButtonID");
  });
  ASSERT_EQ(handler.saved.size(), 1u);
  EXPECT_EQ(handler.saved[0].layout, ChannelsOf({100}));
  EXPECT_EQ(popup->GetValue(), 1);
}

TEST_F(PopupHandler, OffersTheLabelsItWasGiven) {
  Handler handler(true);
  auto const popup = AddPopup(handler);
  handler.SetValidChannelDescriptions(
      {moxmediatypes::AudioChannelDescription(0), moxmediatypes::AudioChannelDescription(100)});
  Edit(*popup, [](OpenEditor& editor) { EXPECT_EQ(editor.Popup(0)->GetItems().size(), 3u); });
}

TEST_F(PopupHandler, OffersTheEditorOverAnEmptyStore) {
  mStore.Write("Foo.preset", TextOf("Foo"));
  Handler handler(true);
  auto const popup = AddPopup(handler);
  handler.GetPresetCache()->RemovePreset(handler.GetPresetCache()->GetPresets().front());
  Edit(*popup, [](OpenEditor& editor) { editor.Press("CancelButtonID"); });
  EXPECT_THAT(Shown(*popup), ElementsAre(u"-", u"Custom..."));
  EXPECT_EQ(popup->GetValue(), -1);
}

TEST_F(PopupHandler, ACopySharesStoreAndPopups) {
  Handler handler(true);
  auto const popup = AddPopup(handler);
  Handler const copy = handler;
  handler.SetSelectedLayout(ChannelsOf({0}), popup);
  EXPECT_EQ(copy.GetSelectedLayout(popup), ChannelsOf({0}));
}

TEST_F(PopupHandler, ACopyDoesntHearFromThePopupsOfItsSource) {
  Handler handler(true);
  auto const popup = AddPopup(handler);
  Handler const copy = handler;
  Edit(*popup, [](OpenEditor& editor) { editor.Press("OKButtonID"); });
  EXPECT_EQ(handler.saved.size(), 1u);
  EXPECT_THAT(copy.saved, IsEmpty());
}

TEST_F(PopupHandler, DoesntSeeWhatAnotherOneSavesUntilItIsMadeAnew) {
  Handler handler(true);
  Handler const early(true);
  handler.GetPresetCache()->SavePreset(MakePreset("Foo"));
  EXPECT_THAT(NamesOf(early.GetPresetCache()->GetPresets()), ElementsAre("Mono", "Stereo", "5.1"));
  Handler late(true);
  EXPECT_THAT(Shown(*AddPopup(late)),
              ElementsAre(u"Mono", u"Stereo", u"5.1", u"-", u"Foo", u"-", u"Custom..."));
}

TEST_F(PopupHandler, APresetThatHasGoneFromTheStoreIsNoMatch) {
  SaveInStore(MakePreset("Foo", kUser, {102}));
  Handler handler(true);
  auto const popup = AddPopup(handler);
  Choose(*popup, u"Foo");
  handler.GetPresetCache()->RemovePreset(MakePreset("Foo", kUser, {102}));
  EXPECT_EQ(popup->GetValue(), 4);
  EXPECT_EQ(handler.GetSelectedLayout(popup), ChannelsOf({0}));
  handler.SetSelectedLayout(ChannelsOf({100, 101}), popup);
  handler.SetSelectedLayout(ChannelsOf({102}), popup);
  EXPECT_EQ(popup->GetValue(), 1);
}

TEST_F(PopupHandler, ItselfShowsWhatWasConfirmedAndRemembersNothing) {
  ChannelsPopupHandlerBase handler(true);
  auto const popup = AddPopup(handler);
  Choose(*popup, u"5.1");
  Edit(*popup, [](OpenEditor& editor) { editor.Press("OKButtonID"); });
  EXPECT_EQ(popup->GetValue(), 2);
  EXPECT_EQ(AddPopup(handler)->GetValue(), 1);
}

}  // namespace
}  // namespace layout_presets
