// The page of presets, worked as a user would: picker, boxes, panel, files.
#include "playground/presets/WorkedPresets.h"
#include "presets/WaveformPreview.h"
#include "program/HexColor.h"

namespace playground {
namespace {

using moxui::ui::KeyboardCode;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
namespace fs = std::filesystem;

class PresetsOfTheView : public WorkedPresets {};

TEST_F(PresetsOfTheView, BeginWithTheProgramsOwnAndAnUnchangedView) {
  EXPECT_THAT(Items(), ElementsAre(u"Standard", u"Levels", u"Cutting", u"Layers", u"On paper"));
  EXPECT_EQ(Shown(), u"Standard");
  EXPECT_TRUE(SaveButton().UI_IsEnabled());
  EXPECT_TRUE(DeleteButton().UI_IsDisabled()) << "it came with the program";
  EXPECT_THAT(Files(), ElementsAre("Cutting.preset", "Layers.preset", "Levels.preset", "On paper.preset",
                                   "Standard.preset"));
}

TEST_F(PresetsOfTheView, AreReadOnlyOnceSomebodyLooksAtThem) {
  StagedProgram program("audio");
  EXPECT_FALSE(fs::exists(Folder()));
}

TEST_F(PresetsOfTheView, AreAppliedToTheViewOfTheAudioPage) {
  auto const before = Program().Picture();
  Choose(u"Levels");
  EXPECT_EQ(Shown(), u"Levels");
  EXPECT_EQ(Settings().peakStyle, PeakStyle::kRectifiedFromZero);
  EXPECT_TRUE(Settings().squareRoot);
  EXPECT_NE(Program().Picture(), before);
  Program().shell.View().ShowPage(FindPage("audio"));
  EXPECT_EQ(Settings().peakStyle, PeakStyle::kRectifiedFromZero);
  Program().shell.View().ShowPage(FindPage("presets"));
  EXPECT_EQ(Shown(), u"Levels");
}

TEST_F(PresetsOfTheView, ShowTheirEffectInThePreviewAtOnce) {
  Stage().PaintFrame();
  auto const inPreview = [this] {
    // The middle of the preview's top channel, a pixel beside another.
    // Only what was invalidated is painted.
    Stage().PaintFrame();
    auto const picture = Stage().GetFramePixels();
    auto const rect = Page().Preview().UI_ConvertRectTo(nullptr, Page().Preview().UI_GetLocalRectF(false));
    std::vector<std::uint8_t> bytes;
    for (int y = static_cast<int>(rect.top); y < static_cast<int>(rect.Bottom()); ++y) {
      auto const row = static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) * 4;
      auto const at = row + static_cast<std::size_t>(rect.Center().x) * 4;
      bytes.insert(bytes.end(), picture.bytes.begin() + static_cast<std::ptrdiff_t>(at),
                   picture.bytes.begin() + static_cast<std::ptrdiff_t>(at) + 4);
    }
    return bytes;
  };
  auto const before = inPreview();
  EXPECT_EQ(inPreview(), before);
  Choose(u"On paper");
  EXPECT_NE(inPreview(), before);
}

TEST_F(PresetsOfTheView, AreMarkedAsChangedByHandAndNoMoreOnceItIsTakenBack) {
  Flip("squareRoot");
  EXPECT_EQ(Shown(), u"(Custom)");
  Flip("squareRoot");
  EXPECT_EQ(Shown(), u"Standard");
}

TEST_F(PresetsOfTheView, DontCareAboutWhatBelongsToTheSound) {
  Program().Session().ToggleChannel(0);
  EXPECT_EQ(Shown(), u"Standard");
  Program().Session().ChangeSettings(
      [](WaveformSettings& settings) { settings.fadeDirection = FadeDirection::kIn; });
  Choose(u"Levels");
  EXPECT_FALSE(Program().Session().IsChannelEnabled(0));
  EXPECT_EQ(Settings().fadeDirection, FadeDirection::kIn);
  EXPECT_EQ(Shown(), u"Levels");
}

TEST_F(PresetsOfTheView, NoticeWhatWasChangedOnAnotherPage) {
  Choose(u"Layers");
  Program().shell.View().ShowPage(FindPage("audio"));
  Program().Session().ChangeSettings([](WaveformSettings& settings) { settings.gainDecibel = 3.0; });
  Program().shell.View().ShowPage(FindPage("presets"));
  EXPECT_EQ(Shown(), u"(Custom)");
  Choose(u"Layers");
  EXPECT_EQ(Settings().gainDecibel, 0.0);
}

TEST_F(PresetsOfTheView, AreSavedIntoFilesThatSurviveARestart) {
  Flip("squareRoot");
  SaveAs(u"Mine");
  EXPECT_EQ(Shown(), u"Mine");
  EXPECT_THAT(Items(),
              ElementsAre(u"Standard", u"Levels", u"Cutting", u"Layers", u"On paper", u"-", u"Mine"));
  EXPECT_THAT(Files(), Contains("Mine.preset"));
  EXPECT_TRUE(DeleteButton().UI_IsEnabled());
  Restart();
  EXPECT_EQ(Shown(), u"Standard");
  EXPECT_FALSE(Settings().squareRoot);
  Choose(u"Mine");
  EXPECT_TRUE(Settings().squareRoot);
}

TEST_F(PresetsOfTheView, OfTheUsersShowAnAsteriskWhileChanged) {
  SaveAs(u"Mine");
  Flip("squareRoot");
  EXPECT_EQ(Shown(), u"Mine *");
  Choose(u"Mine");
  EXPECT_FALSE(Settings().squareRoot);
  EXPECT_EQ(Shown(), u"Mine");
}

TEST_F(PresetsOfTheView, AreOverwrittenAfterAQuestion) {
  SaveAs(u"Mine");
  Flip("squareRoot");
  WillAccept();   // the name
  WillDismiss();  // the question
  WillDismiss();  // the name, asked for again
  ClickOn(SaveButton());
  EXPECT_EQ(Shown(), u"Mine *");
  WillAccept();
  WillAccept();
  ClickOn(SaveButton());
  EXPECT_EQ(Shown(), u"Mine");
  EXPECT_THAT(Boxes(), Contains("The preset 'Mine' already exists. Would you like to overwrite it?"));
  Restart();
  Choose(u"Mine");
  EXPECT_TRUE(Settings().squareRoot);
}

TEST_F(PresetsOfTheView, TakeNoNameOfTheProgramsOwn) {
  WillTypeAndAccept(u"Levels");
  WillAccept();   // the stop box
  WillDismiss();  // the name, asked for again
  ClickOn(SaveButton());
  EXPECT_THAT(Boxes(), Contains("'Levels' is not a valid name for a preset.  Please pick a different name."));
  EXPECT_EQ(Files().size(), 5u);
}

TEST_F(PresetsOfTheView, AreDeletedAfterAQuestion) {
  SaveAs(u"Mine");
  WillDismiss();
  ClickOn(DeleteButton());
  EXPECT_THAT(Files(), Contains("Mine.preset"));
  WillAccept();
  ClickOn(DeleteButton());
  EXPECT_THAT(Boxes(), Contains("Are you sure you want to delete the preset 'Mine'?"));
  EXPECT_THAT(Files(), Not(Contains("Mine.preset")));
  EXPECT_THAT(Items(), Not(Contains(u"Mine")));
}

TEST_F(PresetsOfTheView, AreRenamedBySavingAndDeleting) {
  Flip("squareRoot");
  SaveAs(u"Old");
  SaveAs(u"New");
  Choose(u"Old");
  WillAccept();
  ClickOn(DeleteButton());
  EXPECT_THAT(Files(), Contains("New.preset"));
  EXPECT_THAT(Files(), Not(Contains("Old.preset")));
  Choose(u"New");
  EXPECT_TRUE(Settings().squareRoot);
}

TEST_F(PresetsOfTheView, SkipBadFilesAndTellWhy) {
  Write("broken.preset", "{");
  Write("another kind.preset",
        R"({"Version": 1, "Type": "d11e182d-f09c-4d27-871c-0034a7d2e3f8",)"
        R"( "Guid": "c33cc6bf-e279-4498-8e0e-35fe442c2c8b", "Name": "Mono", "PresetData": {"zoom": -5}})");
  Write("nobody.preset",
        R"({"Version": 1, "Type": "85a3b10a-c660-403e-831d-064e7041702f",)"
        R"( "Guid": "00000000-0000-0000-0000-000000000000", "Name": "Nobody", "PresetData": {}})");
  Write("notes.txt", "not a preset at all");
  EXPECT_THAT(Skipped(), ElementsAre(u"another kind.preset: it holds no preset of this kind",
                                     u"broken.preset: it holds no preset of this kind",
                                     u"nobody.preset: its preset has no identity"));
  EXPECT_THAT(Items(), ElementsAre(u"Standard", u"Levels", u"Cutting", u"Layers", u"On paper"));
}

TEST_F(PresetsOfTheView, AreReadAnewOnDemand) {
  EXPECT_THAT(Skipped(), IsEmpty());
  Write("broken.preset", "{");
  Write("theirs.preset", R"({"Version": 1, "Type": "85a3b10a-c660-403e-831d-064e7041702f",)"
                         R"( "Guid": "1c9f5a52-5cfa-47b5-9f8a-3a3f6a3f0c11", "Name": "Theirs",)"
                         R"( "PresetData": {"zoom": 4, "colors": {"background": "#123456"}}})");
  EXPECT_THAT(Items(), Not(Contains(u"Theirs")));
  ClickOn(Page().ReloadButton());
  EXPECT_THAT(Skipped(), ElementsAre(u"broken.preset: it holds no preset of this kind"));
  Choose(u"Theirs");
  EXPECT_EQ(Settings().zoom, 4.0);
  EXPECT_EQ(Settings().colors[0], ColorOfNumber(0x123456));
  fs::remove(Folder() / "broken.preset");
  ClickOn(Page().ReloadButton());
  EXPECT_THAT(Skipped(), IsEmpty());
  EXPECT_EQ(Shown(), u"Theirs");
}

TEST_F(PresetsOfTheView, GoBackToTheFirstOneWhenOthersDeletedTheFile) {
  Flip("squareRoot");
  SaveAs(u"Mine");
  fs::remove(Folder() / "Mine.preset");
  ClickOn(Page().ReloadButton());
  EXPECT_EQ(Shown(), u"(Custom)");
  EXPECT_TRUE(Settings().squareRoot) << "what is being looked at stays";
}

TEST_F(PresetsOfTheView, SayThatNothingCanBeKept) {
  std::ofstream(Folder()) << "a file where the folder should be";
  EXPECT_THAT(Items(), IsEmpty());
  EXPECT_THAT(Skipped(), ElementsAre(u"No preset can be kept in the folder."));
  SaveAs(u"Mine");
  EXPECT_THAT(Items(), IsEmpty());
  EXPECT_EQ(Program().state.log.Lines().back().text, u"The preset Mine couldn't be saved.");
}

TEST_F(PresetsOfTheView, StayChosenWithAnotherThemeLookAndDirection) {
  Choose(u"Cutting");
  for (LookChoice const look : {LookChoice::kClassic, LookChoice::kV7}) {
    for (ThemeChoice const theme : {ThemeChoice::kLight, ThemeChoice::kHighContrast, ThemeChoice::kDark}) {
      Appearance appearance;
      appearance.look = look;
      appearance.theme = theme;
      appearance.rightToLeft = theme == ThemeChoice::kLight;
      Program().shell.SetAppearance(appearance);
      Stage().PaintFrame();
      EXPECT_EQ(Shown(), u"Cutting");
      EXPECT_EQ(Presets().UI_GetLocalRectF(false).height, look == LookChoice::kV7 ? 24.0f : 19.0f);
      bool const isFirst = Stage().CenterOf(Presets()).x < Stage().CenterOf(SaveButton()).x;
      EXPECT_EQ(isFirst, !appearance.rightToLeft);
      Choose(u"Levels");
      EXPECT_EQ(Shown(), u"Levels");
      Choose(u"Cutting");
    }
  }
}

TEST_F(PresetsOfTheView, AreWorkedByTheKeyboardAlone) {
  Stage().PaintFrame();
  Presets().UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
  answers.ExpectItem(u"Layers");
  EXPECT_TRUE(Stage().Key(KeyboardCode::kSpace));
  EXPECT_TRUE(answers.AllUsed());
  EXPECT_EQ(Shown(), u"Layers");
  Stage().Tab();
  ASSERT_TRUE(SaveButton().UI_HasKeyboardFocus());
  WillTypeAndAccept(u"Mine");
  Stage().Key(KeyboardCode::kSpace);
  EXPECT_EQ(Shown(), u"Mine");
  Stage().Tab();
  ASSERT_TRUE(DeleteButton().UI_HasKeyboardFocus());
  WillAccept();
  Stage().Key(KeyboardCode::kSpace);
  EXPECT_TRUE(answers.AllUsed());
  EXPECT_THAT(Files(), Not(Contains("Mine.preset")));
}

TEST_F(PresetsOfTheView, StatesShowAPresetAndWhatAHandMadeOfIt) {
  Page().ShowState(1);
  EXPECT_EQ(Shown(), u"(Custom)");
  Page().ShowState(0);
  EXPECT_EQ(Shown(), u"Standard");
}

TEST_F(PresetsOfTheView, TellTheLogWhatHasBeenDone) {
  SaveAs(u"Mine");
  EXPECT_EQ(Program().state.log.Lines().back().text, u"Preset saved: Mine");
  Choose(u"Levels");
  EXPECT_EQ(Program().state.log.Lines().back().text, u"Preset chosen: Levels");
  EXPECT_THAT(std::string(Page().FolderText().begin(), Page().FolderText().end()),
              HasSubstr(Folder().string()));
}

}  // namespace
}  // namespace playground
