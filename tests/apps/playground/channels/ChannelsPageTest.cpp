#include "audio/ChannelGutter.h"
#include "channels/ChannelList.h"
#include "playground/channels/WorkedChannels.h"
#include "shell/EventLogView.h"

#include <moxui/ui/KeyboardEvent.h>

namespace playground {
namespace {

using layout_presets::ChannelsOf;
using layout_presets::LabelText;
using moxui::ui::KeyboardCode;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::vector<std::uint32_t> const kFilm{100, 102, 101, 104, 105, 103};

class Channels : public WorkedChannels {};

// Popups

TEST_F(Channels, PopupsListWhatIsMeantForThem) {
  for (LayoutUse const use : {LayoutUse::kSound, LayoutUse::kOther, LayoutUse::kWave}) {
    EXPECT_THAT(Items(use), ElementsAre("Mono", "Stereo", "5.1", "-", "Custom..."));
  }
  EXPECT_THAT(Items(LayoutUse::kBuiltIn), ElementsAre("Mono", "Stereo", "5.1"));
  EXPECT_EQ(Popup(LayoutUse::kBuiltIn).UI_GetAccessibleName(), "Built-in layouts");
}

TEST_F(Channels, BeginsWithWhatTheSoundIsTakenFor) {
  EXPECT_EQ(Shown(LayoutUse::kSound), "5.1");
  EXPECT_EQ(Names(LayoutUse::kSound), "L  R  C  LFE  Ls  Rs");
  EXPECT_EQ(Shown(LayoutUse::kOther), "Stereo");
  EXPECT_EQ(Page().Channels().UI_GetAccessibleValue(),
            "Left, Right, Center, Low-Frequency Effects, Left Surround, Right Surround");
  EXPECT_THAT(program.Session().Layout(), IsEmpty());
}

TEST_F(Channels, LayoutThatFitsIsAppliedToTheSound) {
  Write("Film.preset", PresetText("Film", kFilm));
  PressReload();
  Choose(LayoutUse::kSound, u"Film");
  EXPECT_EQ(program.Session().Layout(), ChannelsOf(kFilm));
  EXPECT_EQ(Page().AppliedText(), "Names the channels of Demo sound on the Audio page (6 channels).");
  EXPECT_THAT(Page().WaveText(), HasSubstr("A WAV file keeps Right (channel 3) before Center (channel 2)."));
  EXPECT_THAT(Log(), Contains("Channels of the sound: L  C  R  Ls  Rs  LFE"));
  Show("audio");
  EXPECT_EQ(program.Audio().Gutter().LabelOf(1), "Center");
  EXPECT_EQ(program.Audio().Gutter().ChildGet(5)->UI_GetAccessibleName(), "Low-Frequency Effects");
  Show("channels");
  EXPECT_EQ(Shown(LayoutUse::kSound), "Film");
}

TEST_F(Channels, LayoutWithAnotherNumberOfChannelsIsRefused) {
  Choose(LayoutUse::kSound, u"Stereo");
  EXPECT_THAT(program.Session().Layout(), IsEmpty());
  EXPECT_EQ(Page().AppliedText(),
            "Not applied: Demo sound has 6 channels, the layout 2. Its channels keep their names.");
  EXPECT_EQ(Shown(LayoutUse::kSound), "Stereo");
  // What was refused is no more there on another day.
  Choose(LayoutUse::kSound, u"5.1");
  Choose(LayoutUse::kSound, u"Mono");
  EXPECT_EQ(program.Session().Layout(), ChannelsOf({100, 101, 102, 103, 104, 105}));
  EXPECT_THAT(Page().AppliedText(), HasSubstr("Not applied"));
}

TEST_F(Channels, OtherPopupsTouchNoSound) {
  for (LayoutUse const use : {LayoutUse::kOther, LayoutUse::kBuiltIn, LayoutUse::kWave}) {
    Choose(use, u"5.1");
    EXPECT_EQ(Names(use), "L  R  C  LFE  Ls  Rs");
  }
  EXPECT_THAT(program.Session().Layout(), IsEmpty());
  EXPECT_THAT(Log(), Contains("Built-in layouts: L  R  C  LFE  Ls  Rs"));
}

TEST_F(Channels, AreChosenByKeys) {
  Popup(LayoutUse::kSound).UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kLeft));
  EXPECT_EQ(Shown(LayoutUse::kSound), "Stereo");
  EXPECT_THAT(Page().AppliedText(), HasSubstr("Not applied"));
  program.stage.Type(u"5");
  EXPECT_EQ(Shown(LayoutUse::kSound), "5.1");
  EXPECT_EQ(program.Session().Layout().size(), 6u);
  answers.ExpectItem(u"Mono");
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kDown));
  EXPECT_EQ(Shown(LayoutUse::kSound), "Mono");
}

// The editor

TEST_F(Channels, LayoutOfTheEditorIsAppliedThoughNoPresetHasIt) {
  Edit(LayoutUse::kSound,
       [](OpenEditor& editor) {
         EXPECT_EQ(editor.Presets().GetShownText(), u"5.1");
         editor.OpenPopup(0);
         editor.Press("OKButtonID");
       },
       {ThenChoose(LabelText(114)),
        ThenDrive([](moxui::testing::Stage& box) { box.Key(KeyboardCode::kEscape); })});
  EXPECT_EQ(program.Session().Layout(), ChannelsOf({114, 101, 102, 103, 104, 105}));
  EXPECT_EQ(Shown(LayoutUse::kSound), "(Custom)");
  EXPECT_EQ(Names(LayoutUse::kSound), "Lw  R  C  LFE  Ls  Rs");
  EXPECT_THAT(Log(), Contains("Channels of the sound: the editor gave Lw  R  C  LFE  Ls  Rs"));
  EXPECT_TRUE(Popup(LayoutUse::kSound).UI_HasKeyboardFocus());
}

TEST_F(Channels, PresetThatTheEditorSavesIsInAllPopupsOfUsers) {
  Edit(LayoutUse::kSound,
       [](OpenEditor& editor) {
         editor.OpenPopup(0);
         editor.Press("OKButtonID");
       },
       {ThenChoose(LabelText(114)), ThenDrive([](moxui::testing::Stage& box) {
          box.Type(u"Wide");
          box.Key(KeyboardCode::kReturn);
        })});
  for (LayoutUse const use : {LayoutUse::kSound, LayoutUse::kOther}) {
    EXPECT_THAT(Items(use), ElementsAre("Mono", "Stereo", "5.1", "-", "Wide", "-", "Custom..."));
  }
  EXPECT_EQ(Shown(LayoutUse::kSound), "Wide");
  EXPECT_EQ(Shown(LayoutUse::kOther), "Stereo");
  // A handler of its own hears of it when it reads the folder again.
  EXPECT_THAT(Items(LayoutUse::kWave), ElementsAre("Mono", "Stereo", "5.1", "-", "Custom..."));
  PressReload();
  EXPECT_THAT(Items(LayoutUse::kWave), Contains("Wide"));
  EXPECT_THAT(Items(LayoutUse::kBuiltIn), ElementsAre("Mono", "Stereo", "5.1"));
  EXPECT_EQ(Shown(LayoutUse::kSound), "Wide");
}

TEST_F(Channels, EditorThatIsLeftChangesNothing) {
  auto const cancel = [](OpenEditor& editor) {
    editor.Press("RemoveChannelButtonID");
    editor.Press("CancelButtonID");
  };
  auto const escape = [](OpenEditor& editor) {
    editor.Press("AddChannelButtonID");
    editor.stage.Key(KeyboardCode::kEscape);
  };
  for (auto const& leave : std::vector<std::function<void(OpenEditor&)>>{cancel, escape}) {
    program.state.log.Clear();
    Edit(LayoutUse::kSound, leave);
    EXPECT_EQ(Shown(LayoutUse::kSound), "5.1");
    EXPECT_THAT(program.Session().Layout(), IsEmpty());
    EXPECT_THAT(Log(), ElementsAre("Channels of the sound: the editor was left without a change"));
    EXPECT_TRUE(Popup(LayoutUse::kSound).UI_HasKeyboardFocus());
  }
  // Not even for a layout that no preset has.
  Page().ShowState(1);
  auto const film = program.Session().Layout();
  EXPECT_EQ(Shown(LayoutUse::kSound), "(Custom)");
  Edit(LayoutUse::kSound, escape);
  EXPECT_EQ(program.Session().Layout(), film);
  EXPECT_EQ(Shown(LayoutUse::kSound), "(Custom)");
}

TEST_F(Channels, EditorForWaveFilesOffersLabelsWithAPlace) {
  Edit(LayoutUse::kWave, [](OpenEditor& editor) {
    // One without a label, a divider and twenty labels.
    EXPECT_EQ(editor.Popup(0)->GetItems().size(), 22u);
    editor.stage.Key(KeyboardCode::kEscape);
  });
  Edit(LayoutUse::kOther, [](OpenEditor& editor) {
    EXPECT_EQ(editor.Popup(0)->GetItems().size(),
              moxmediatypes::GetSupportedAudioChannelDescriptions().size() + 1);
    editor.stage.Key(KeyboardCode::kEscape);
  });
}

// Presets of other processes

TEST_F(Channels, ReloadTakesOverWhatOtherProcessesWroteAndRemoved) {
  Write("Film.preset", PresetText("Film", kFilm));
  EXPECT_THAT(Items(LayoutUse::kSound), testing::Not(Contains("Film")));
  PressReload();
  EXPECT_THAT(Items(LayoutUse::kSound), Contains("Film"));
  EXPECT_THAT(Items(LayoutUse::kWave), Contains("Film"));
  ASSERT_FALSE(Log().empty());
  EXPECT_EQ(Log().back(), "Presets read: 4, files skipped: 0");
  Choose(LayoutUse::kSound, u"Film");
  std::filesystem::remove(program.presets.Base() / "AudioChannelLayout/Film.preset");
  Page().ReloadButton().UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kSpace));
  EXPECT_TRUE(Page().ReloadButton().UI_HasKeyboardFocus());
  EXPECT_THAT(Items(LayoutUse::kSound), ElementsAre("Mono", "Stereo", "5.1", "-", "Custom..."));
  // The layout itself stays with the sound.
  EXPECT_EQ(Shown(LayoutUse::kSound), "(Custom)");
  EXPECT_EQ(program.Session().Layout(), ChannelsOf(kFilm));
}

TEST_F(Channels, NamesTheFilesThatWereSkippedAndWhy) {
  EXPECT_THAT(Skipped(), IsEmpty());
  Write("a.preset", "no preset");
  Write("b.preset", PresetText("Nil", {100}, "00000000-0000-0000-0000-000000000000"));
  Write("c.preset", PresetText("None", {}));
  PressReload();
  EXPECT_THAT(Skipped(), ElementsAre("a.preset: It holds no channel layout.", "b.preset: It has no GUID.",
                                     "c.preset: It holds no channel layout."));
  EXPECT_EQ(Log().back(), "Presets read: 3, files skipped: 3");
  EXPECT_EQ(Page().Skipped().UI_GetAccessibleName(), "Preset files that were skipped");
}

// Sounds

TEST_F(Channels, FollowsTheSoundThatIsShown) {
  Choose(LayoutUse::kSound, u"Stereo");
  program.Session().ShowDocument(program.Session().Documents().size());
  EXPECT_EQ(Page().AppliedText(), "No sound is shown on the Audio page that it could name.");
  Choose(LayoutUse::kSound, u"Mono");
  EXPECT_THAT(Page().AppliedText(), HasSubstr("No sound"));
  program.Session().ShowDocument(0);
  EXPECT_EQ(Shown(LayoutUse::kSound), "5.1");
  EXPECT_THAT(Page().AppliedText(), HasSubstr("Names the channels"));
}

// From one time to the next

TEST_F(Channels, RemembersWhatWasChosenAndOfSoundsForItsOwnAlone) {
  auto const remembered = [this](LayoutUse use) {
    return program.state.channels.Remembered()[static_cast<std::size_t>(use)];
  };
  EXPECT_THAT(remembered(LayoutUse::kSound), IsEmpty());
  Write("Film.preset", PresetText("Film", kFilm));
  PressReload();
  Choose(LayoutUse::kSound, u"Film");
  Choose(LayoutUse::kBuiltIn, u"Mono");
  EXPECT_EQ(remembered(LayoutUse::kSound), ChannelsOf(kFilm));
  EXPECT_EQ(remembered(LayoutUse::kBuiltIn), ChannelsOf({0}));
  // Neither what was refused nor what was chosen while another sound was there.
  Choose(LayoutUse::kSound, u"Stereo");
  EXPECT_EQ(remembered(LayoutUse::kSound), ChannelsOf(kFilm));
  AudioDocument const& own = program.Session().Current();
  program.Session().AddDocument(AudioDocument("Another", own.Source(), own.Pyramid()));
  std::vector<std::uint32_t> const reversed{105, 104, 103, 102, 101, 100};
  Write("Reversed.preset", PresetText("Reversed", reversed, layout_presets::kOther));
  PressReload();
  Choose(LayoutUse::kSound, u"Reversed");
  EXPECT_EQ(program.Session().Layout(), ChannelsOf(reversed));
  EXPECT_EQ(remembered(LayoutUse::kSound), ChannelsOf(kFilm));
}

TEST_F(Channels, EditorBeginsWithThePresetChosenBeforeWhereNoneHasTheLayout) {
  Page().ShowState(1);
  EXPECT_EQ(Shown(LayoutUse::kSound), "(Custom)");
  Edit(LayoutUse::kSound, [](OpenEditor& editor) {
    EXPECT_EQ(editor.Presets().GetShownText(), u"5.1");
    editor.stage.Key(KeyboardCode::kEscape);
  });
}

// Appearance

TEST_F(Channels, KeepsItsLayoutsInEveryAppearance) {
  Choose(LayoutUse::kSound, u"Stereo");
  Choose(LayoutUse::kOther, u"Mono");
  for (ThemeChoice const theme : {ThemeChoice::kLight, ThemeChoice::kHighContrast, ThemeChoice::kDark}) {
    for (LookChoice const look : {LookChoice::kClassic, LookChoice::kV7}) {
      for (bool const rightToLeft : {true, false}) {
        Appearance appearance;
        appearance.theme = theme;
        appearance.look = look;
        appearance.rightToLeft = rightToLeft;
        program.shell.SetAppearance(appearance);
        program.stage.PaintFrame();
        EXPECT_EQ(Shown(LayoutUse::kSound), "Stereo");
        EXPECT_EQ(Shown(LayoutUse::kOther), "Mono");
        EXPECT_THAT(Page().AppliedText(), HasSubstr("Not applied"));
        Edit(LayoutUse::kOther, [](OpenEditor& editor) {
          EXPECT_EQ(editor.Tree().CountRows(), 1u);
          editor.stage.Key(KeyboardCode::kEscape);
        });
      }
    }
  }
}

TEST_F(Channels, AreToldOfInGerman) {
  AddGermanTexts();
  Appearance appearance;
  appearance.language.tag = "de";
  program.shell.SetAppearance(appearance);
  Choose(LayoutUse::kSound, u"Stereo");
  EXPECT_THAT(Page().AppliedText(), HasSubstr("Nicht angewandt"));
  Page().ShowState(1);
  EXPECT_THAT(Page().WaveText(), HasSubstr("Keine WAV-Datei kann sie haben. In WAV-Dateien steht"));
}

// Every control and text of the page, in the tree's coordinates.
std::vector<moxui::RectT<float>> PlacesOf(ChannelsPage const& page) {
  std::vector<moxui::RectT<float>> places;
  auto const add = [&places](moxui::ui::UI_Node const& node) {
    places.push_back(node.UI_ConvertRectTo(nullptr, node.UI_GetLocalRectF(false)));
  };
  for (std::size_t i = 0; i < page.Table().ChildSize(); ++i) {
    add(*page.Table().ChildGet(i));
  }
  for (std::size_t i = 1; i < page.ChildSize(); ++i) {
    add(*page.ChildGet(i));
  }
  return places;
}

class ChannelsInASmallWindow : public testing::TestWithParam<bool> {};

TEST_P(ChannelsInASmallWindow, OverlapNowhere) {
  Appearance appearance;
  appearance.look = GetParam() ? LookChoice::kV7 : LookChoice::kClassic;
  StagedProgram program("channels", appearance, {800.0f, 600.0f});
  moxui::RectT<float> const window{0.0f, 0.0f, 800.0f, 600.0f};
  auto const places = PlacesOf(program.Channels());
  for (std::size_t i = 0; i < places.size(); ++i) {
    EXPECT_FALSE(places[i].IsEmpty()) << i;
    EXPECT_EQ(places[i].Intersection(window), places[i]) << i;
    for (std::size_t j = 0; j < i; ++j) {
      EXPECT_TRUE(places[i].Intersection(places[j]).IsEmpty()) << i << " " << j;
    }
  }
  EXPECT_EQ(program.Channels().Channels().CountNamed(), 6u);
  program.Channels().Channels().SetLayout(moxmediatypes::AudioChannelLayout(400));
  std::size_t const named = program.Channels().Channels().CountNamed();
  EXPECT_GE(named, 16u);
  EXPECT_LT(named, 400u);
  program.Picture();
}

INSTANTIATE_TEST_SUITE_P(Looks, ChannelsInASmallWindow, testing::Bool());

}  // namespace
}  // namespace playground
