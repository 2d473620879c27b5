#include "audio/ChannelGutter.h"
#include "audio/ChannelNames.h"
#include "audio/WaveformView.h"
#include "playground/SoundFiles.h"
#include "playground/StagedProgram.h"
#include "playground/TemporaryFolder.h"
#include "properties/PropertyPanel.h"
#include "properties/PropertyRow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace playground {
namespace {

using enum moxmediatypes::AudioChannelLabel;
using moxmediatypes::AudioChannelLayout;
using ::testing::IsEmpty;

AudioChannelLayout const kFilm{kLeft, kCenter, kRight, kLeftSurround, kRightSurround, kLowFrequency};

class LaneNames : public testing::Test {
 protected:
  static ChannelGutter& GutterOf(StagedProgram& program) { return program.Audio().Gutter(); }
  static float WidthOf(ChannelGutter const& gutter) { return gutter.UI_GetLocalRectF(false).width; }
};

TEST_F(LaneNames, AreThoseOfTheLayoutAtOnce) {
  StagedProgram program;
  auto const before = program.Picture();
  float const narrow = WidthOf(GutterOf(program));
  EXPECT_EQ(GutterOf(program).LabelOf(1), "R");
  ASSERT_TRUE(program.Session().SetLayout(kFilm));
  EXPECT_EQ(GutterOf(program).LabelOf(1), "Center");
  EXPECT_EQ(GutterOf(program).ChildGet(3)->UI_GetAccessibleName(), "Left Surround");
  EXPECT_GT(WidthOf(GutterOf(program)), narrow);
  EXPECT_EQ(program.Audio().Panel().FindRow("channel2Color")->GetProperty().label, "Center colour");
  EXPECT_FALSE(program.Picture() == before);
  // The waveform begins where the names end.
  moxui::RectT<float> const gutter = GutterOf(program).UI_GetLocalRectF(true);
  EXPECT_EQ(program.Audio().Waveform().UI_GetLocalRectF(true).left, gutter.Right());
}

TEST_F(LaneNames, AreShortWhereThereIsLittleRoom) {
  StagedProgram program("audio", {}, {800.0f, 600.0f});
  ASSERT_TRUE(program.Session().SetLayout(kFilm));
  EXPECT_EQ(GutterOf(program).LabelOf(3), "Ls");
  EXPECT_LE(WidthOf(GutterOf(program)), 60.0f);
  EXPECT_EQ(GutterOf(program).ItemName(3), u"Left Surround");
}

TEST_F(LaneNames, AreNumbersWithoutALabel) {
  StagedProgram program;
  ASSERT_TRUE(program.Session().SetLayout({kLeft, kUnnamed, kRight, kUnnamed, kAmbisonic0, kLeft}));
  EXPECT_EQ(GutterOf(program).LabelOf(1), "Channel 2");
  EXPECT_EQ(GutterOf(program).LabelOf(4), "Ambisonic Component 0");
  EXPECT_LE(WidthOf(GutterOf(program)), 120.0f) << "what is longer is cut";
  EXPECT_EQ(ShortChannelName(program.Session(), 1), "2");
}

TEST_F(LaneNames, ALayoutForOtherSoundsIsRefused) {
  StagedProgram program;
  EXPECT_FALSE(program.Session().SetLayout({kLeft, kRight}));
  EXPECT_FALSE(program.Session().SetLayout({}));
  EXPECT_THAT(program.Session().Layout(), IsEmpty());
  EXPECT_EQ(GutterOf(program).LabelOf(1), "R");
  program.Session().ShowDocument(program.Session().Documents().size());
  EXPECT_FALSE(program.Session().SetLayout({}));
}

TEST_F(LaneNames, AreEachSoundsOwn) {
  StagedProgram program;
  TemporaryFolder const folder;
  ASSERT_TRUE(program.Session().SetLayout(kFilm));
  program.Session().OpenFiles({WriteTone(folder.Path(), "tone.wav").string()});
  program.Session().WaitForOpening();
  EXPECT_THAT(program.Session().Layout(), IsEmpty());
  ASSERT_TRUE(program.Session().SetLayout({kLeftTotal, kRightTotal}));
  EXPECT_EQ(GutterOf(program).LabelOf(0), "Left Total");
  program.Session().ShowDocument(0);
  EXPECT_EQ(GutterOf(program).LabelOf(1), "Center");
}

TEST_F(LaneNames, StayInAnotherAppearance) {
  StagedProgram program;
  program.Session().SetLayout(kFilm);
  for (ThemeChoice const theme : {ThemeChoice::kLight, ThemeChoice::kHighContrast, ThemeChoice::kDark}) {
    Appearance appearance;
    appearance.theme = theme;
    appearance.rightToLeft = theme == ThemeChoice::kLight;
    program.shell.SetAppearance(appearance);
    program.stage.PaintFrame();
    EXPECT_EQ(GutterOf(program).LabelOf(1), "Center");
  }
}

TEST(CustomaryLayout, HasTheLabelsThatGoWithItsNames) {
  EXPECT_EQ(CustomaryLayout(1), moxmediatypes::CreateMonoChannelLayout());
  EXPECT_EQ(CustomaryLayout(2), moxmediatypes::CreateStereoChannelLayout());
  EXPECT_EQ(CustomaryLayout(6),
            (AudioChannelLayout{kLeft, kRight, kCenter, kLowFrequency, kLeftSurround, kRightSurround}));
  EXPECT_EQ(CustomaryLayout(8)[6].GetLabel(), kLeftSideSurround);
  EXPECT_EQ(CustomaryLayout(7), AudioChannelLayout(7));
  EXPECT_EQ(CustomaryLayout(256), AudioChannelLayout(256));
}

}  // namespace
}  // namespace playground
