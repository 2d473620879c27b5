#include "audio/TimeRuler.h"
#include "audio/TimeRulerView.h"
#include "playground/StagedProgram.h"
#include "program/Localized.h"
#include "shell/Painting.h"

#include <moxui/platform/ModalResponder.h>
#include <moxui/ui/MouseEvent.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace playground {
namespace {

// Chooses an item of the menu that opens.
class MenuChoice : public moxui::platform::ModalResponder {
 public:
  explicit MenuChoice(int id) : mId(id), mBefore(SetModalResponder(this)) {}
  ~MenuChoice() override { SetModalResponder(mBefore); }
  std::optional<int> Answer(moxui::platform::ModalRequest& request) override {
    if (request.kind != moxui::platform::ModalKind::kMenu) {
      return std::nullopt;
    }
    for (auto const& item : *request.menuItems) {
      texts.push_back(item.text);
      if (item.isChecked) {
        checked = item.id;
      }
    }
    return mId;
  }

  std::vector<moxcore::Utf16String> texts;
  int checked = 0;

 private:
  int mId;
  ModalResponder* mBefore;
};

class TimeRulerViewTest : public testing::Test {
 protected:
  TimeRulerView& Ruler() { return program.Audio().Ruler(); }
  RulerUnit Unit() { return program.Session().Settings().rulerUnit; }
  void ContextClick() {
    program.stage.Click(StagedProgram::PointIn(Ruler(), 0.3f), moxui::ui::MouseButton::kRight);
  }

  StagedProgram program;
};

TEST_F(TimeRulerViewTest, ContextClickOffersBothUnits) {
  {
    MenuChoice menu(2);
    ContextClick();
    EXPECT_THAT(menu.texts, testing::ElementsAre(u"Time", u"Samples"));
    EXPECT_EQ(menu.checked, 1);
  }
  EXPECT_EQ(Unit(), RulerUnit::kSamples);
  {
    MenuChoice const nothing(0);
    ContextClick();
  }
  EXPECT_EQ(Unit(), RulerUnit::kSamples);
  {
    MenuChoice menu(1);
    ContextClick();
    EXPECT_EQ(menu.checked, 2);
  }
  EXPECT_EQ(Unit(), RulerUnit::kTime);
}

TEST_F(TimeRulerViewTest, OtherUnitIsAnotherPicture) {
  auto const times = program.Picture();
  program.Session().ChangeSettings([](WaveformSettings& s) { s.rulerUnit = RulerUnit::kSamples; });
  EXPECT_FALSE(program.Picture() == times);
}

TEST_F(TimeRulerViewTest, TellsWhatItShows) {
  EXPECT_EQ(Ruler().UI_GetAccessibleName(), "Ruler");
  EXPECT_EQ(Ruler().UI_GetAccessibleValue(), "0:00.000 to 0:12.000");
  program.Session().ChangeView([](Viewport& view) { view.Show(48000.0, 96000.0); });
  program.Session().ChangeSettings([](WaveformSettings& s) { s.rulerUnit = RulerUnit::kSamples; });
  EXPECT_EQ(Ruler().UI_GetAccessibleValue(), "Samples 48000 to 96000");
}

TEST_F(TimeRulerViewTest, WheelZoomsAsOnTheWaveform) {
  auto const at = StagedProgram::PointIn(Ruler(), 0.3f);
  double const sample = program.SampleAt(at);
  double const before = program.Session().View().SamplesPerPixel();
  program.stage.Wheel(at, {0.0f, 120.0f});
  EXPECT_NEAR(program.Session().View().SamplesPerPixel(), before / 2.0, before * 1e-9);
  EXPECT_NEAR(program.SampleAt(at), sample, 1e-3);
}

TEST_F(TimeRulerViewTest, DragScrollsAndIsOneStep) {
  program.Session().ChangeView([](Viewport& view) { view.ZoomAt(view.Width() / 2.0, 8.0); });
  Viewport const before = program.Session().View();
  auto const at = StagedProgram::PointIn(Ruler(), 0.5f);
  program.stage.Drag(at, {at.x - 40.0f, at.y}, 8);
  EXPECT_NEAR(program.Session().View().Left(), before.Left() + 40.0 * before.SamplesPerPixel(), 1e-3);
  program.Session().Undo();
  EXPECT_EQ(program.Session().View(), before);
}

TEST_F(TimeRulerViewTest, LabelsAreNoWiderThanTheRoomThatIsKeptForThem) {
  for (LookChoice const look : {LookChoice::kClassic, LookChoice::kV7}) {
    Appearance appearance = program.state.appearance;
    appearance.look = look;
    program.shell.SetAppearance(appearance);
    for (std::string const& label : {std::string("24:00:00.00000"), SampleText(16'588'800'000),
                                     SampleText(288'888'888'888'888), std::string("0:00")}) {
      EXPECT_LE(LabelWidth(To16(label), moxui::ui::FontIndex::kSmall), RulerLabelWidth(label)) << label;
    }
  }
}

}  // namespace
}  // namespace playground
