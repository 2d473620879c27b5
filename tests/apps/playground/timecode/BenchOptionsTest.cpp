// What the panel beside the bench tells its field, and what the host pushes.
#include "playground/timecode/WorkedBench.h"

#include <moxui/controls/UI_Popup.h>
#include <moxui/testing/ModalAnswers.h>

namespace playground {
namespace {

using moxmediaui::FrameRate;
using moxmediaui::InvalidDisplay;
using moxmediaui::TextSize;
using moxmediaui::TickTime;
using moxmediaui::TimeDisplay;
using moxui::ui::KeyboardCode;

constexpr TickTime Seconds(std::int64_t seconds) {
  return TickTime(seconds * moxmediatypes::kTicksPerSecond);
}

using BenchOptions = WorkedBench;

TEST_F(BenchOptions, HostPushesItsRateThroughTheNotifier) {
  EXPECT_EQ(TextOf(Field()), u"01;02;03;00");
  PressKeyOn("videoDisplay", KeyboardCode::kRight);
  EXPECT_EQ(TextOf(Field()), u"01:01:59:08");
  PressKeyOn("videoRate", KeyboardCode::kRight);
  EXPECT_EQ(Field().GetFrameRate(), FrameRate::k30);
  EXPECT_EQ(TextOf(Field()), u"01:02:03:00");
  EXPECT_EQ(TextOf(Follower()), u"01:02:03:00");
  EXPECT_NE(program.state.log.Lines().back().text.find(u"30"), moxcore::Utf16String::npos)
      << "the log tells of it";
}

TEST_F(BenchOptions, ShowsSound) {
  PressKeyOn("displayType", KeyboardCode::kRight);
  EXPECT_EQ(TextOf(Field()), u"178704000");
  PressKeyOn("audioRate", KeyboardCode::kLeft);
  EXPECT_EQ(TextOf(Field()), u"164184300");
  moxui::testing::ModalAnswers answers;
  answers.ExpectItem(u"Milliseconds");
  program.stage.Click(At(Field()), moxui::ui::MouseButton::kRight);
  EXPECT_EQ(TextOf(Field()), u"3723000");
  EXPECT_EQ(TextOf(Follower()), u"3723000");
}

TEST_F(BenchOptions, AFieldThatStaysWithItsRateHearsItsHostNoMoreButCanBeSynced) {
  PressKeyOn("keepOwnRate", KeyboardCode::kEnter);
  EXPECT_EQ(TextOf(Field()), u"01:02:03:00");
  EXPECT_FALSE(Told().Settings().followsHost);
  PressKeyOn("videoRate", KeyboardCode::kRight);
  EXPECT_EQ(Field().GetFrameRate(), FrameRate::k25);
  PressKeyOn("syncToHost", KeyboardCode::kEnter);
  EXPECT_EQ(Field().GetFrameRate(), FrameRate::k30);
  PressKeyOn("videoRate", KeyboardCode::kLeft);
  EXPECT_EQ(Field().GetFrameRate(), FrameRate::k30);
  PressKeyOn("renewField", KeyboardCode::kEnter);
  EXPECT_EQ(Field().GetFrameRate(), FrameRate::k2997) << "another field follows";
  PressKeyOn("videoRate", KeyboardCode::kRight);
  EXPECT_EQ(Field().GetFrameRate(), FrameRate::k30);
}

TEST_F(BenchOptions, ASecondFieldThatIsNotConnectedStays) {
  PressKeyOn("followerIsConnected", KeyboardCode::kSpace);
  moxui::testing::ModalAnswers answers;
  answers.ExpectItem(u"Frames");
  program.stage.Click(At(Field()), moxui::ui::MouseButton::kRight);
  EXPECT_EQ(TextOf(Field()), u"111578");
  EXPECT_EQ(TextOf(Follower()), u"01;02;03;00");
  PressKeyOn("followerIsConnected", KeyboardCode::kSpace);
  EXPECT_EQ(TextOf(Follower()), u"111578");
}

TEST_F(BenchOptions, WithoutATimeItShowsWhatItIsTold) {
  PressKeyOn("hasTime", KeyboardCode::kSpace);
  EXPECT_EQ(TextOf(Field()), u"00;00;00;00");
  PressKeyOn("invalidDisplay", KeyboardCode::kRight);
  EXPECT_EQ(TextOf(Field()), u"--:--:--:--");
  PressKeyOn("invalidDisplay", KeyboardCode::kRight);
  EXPECT_EQ(TextOf(Field()), u"");
  PressKeyOn("hasTime", KeyboardCode::kSpace);
  EXPECT_EQ(TextOf(Field()), u"01;02;03;00");
}

TEST_F(BenchOptions, ADragFromNoTimeBringsOneBack) {
  Change([](BenchSettings& settings) { settings.hasTime = false; });
  program.stage.Press(At(Field()));
  program.stage.MoveBy({3.0f, 0.0f});
  program.stage.ReleaseHere();
  EXPECT_EQ(Field().GetTime(), TickTime()) << "at the lower bound";
  EXPECT_TRUE(Told().Settings().hasTime);
}

TEST_F(BenchOptions, AnOffsetIsShownAndNotTold) {
  Change([](BenchSettings& settings) { settings.start = FieldStart::kHour; });
  EXPECT_EQ(TextOf(Field()), u"02;02;03;00");
  EXPECT_EQ(Field().GetTime(), TimecodeBench::kFirstTime);
  Change([](BenchSettings& settings) { settings.start = FieldStart::kMinusHour; });
  EXPECT_EQ(Field().GetOffsetTime(), Seconds(-3600));
  EXPECT_EQ(Field().GetTime(), TimecodeBench::kFirstTime);
  Change([](BenchSettings& settings) { settings.start = FieldStart::kZero; });
  EXPECT_EQ(TextOf(Field()), u"01;02;03;00");
}

TEST_F(BenchOptions, CountsFromOneInFramesOnlyAndWithTheOffset) {
  Change([](BenchSettings& settings) { settings.countsFromOne = true; });
  EXPECT_EQ(TextOf(Field()), u"01;02;03;00");
  Change([](BenchSettings& settings) { settings.host.videoDisplay = TimeDisplay(TimeDisplay::kFrames); });
  EXPECT_EQ(TextOf(Field()), u"111579");
  EXPECT_EQ(Field().GetTime(), TimecodeBench::kFirstTime);
  Change([](BenchSettings& settings) { settings.start = FieldStart::kTenSeconds; });
  EXPECT_EQ(TextOf(Field()), u"111879");
  Change([](BenchSettings& settings) { settings.countsFromOne = false; });
  EXPECT_EQ(TextOf(Field()), u"111878");
  EXPECT_EQ(Field().GetOffsetTime(), Seconds(10));
}

TEST_F(BenchOptions, BoundsHoldTheTime) {
  Change([](BenchSettings& settings) { settings.bounds = FieldBounds::kFirstMinute; });
  EXPECT_EQ(Field().GetTime(), Seconds(60));
  EXPECT_EQ(Follower().GetTime(), Seconds(60));
  program.stage.Press(At(Field()));
  program.stage.MoveBy({30.0f, 0.0f});
  program.stage.ReleaseHere();
  EXPECT_EQ(Field().GetTime(), Seconds(60));
  Change([](BenchSettings& settings) { settings.bounds = FieldBounds::kCrossed; });
  EXPECT_EQ(Field().GetTime(), Seconds(30)) << "all but what lies below the lower bound";
}

TEST_F(BenchOptions, StepsOfFilmAndOfMilliseconds) {
  auto const drag = [this] {
    Rest();
    program.stage.Press(At(Field()));
    program.stage.MoveBy({6.0f, 0.0f});
    program.stage.ReleaseHere();
  };
  Change([](BenchSettings& settings) { settings.steps = FieldSteps::kMilliseconds; });
  drag();
  TickTime const after = TimecodeBench::kFirstTime + TickTime(5 * moxmediatypes::kTicksPerSecond / 1000);
  EXPECT_EQ(Field().GetTime(), after);
  Change([](BenchSettings& settings) { settings.steps = FieldSteps::kFeet35; });
  program.stage.SetModKeys(moxui::ui::ModKey::kShift);
  drag();
  EXPECT_EQ(Field().GetTime(), after + TickTime(5 * 16, FrameRate::k24)) << "five feet of film";
}

TEST_F(BenchOptions, TheMenuOffersWhatTheOwnerHas) {
  auto const itemsOf = [this] {
    Rest();
    moxui::testing::ModalAnswers answers;
    program.stage.Click(At(Field()), moxui::ui::MouseButton::kRight);
    std::vector<moxcore::Utf16String> items;
    if (!answers.GetRecords().empty()) {
      for (auto const& item : answers.GetRecords().front().menuItems) {
        items.push_back(item.text);
      }
    }
    return items;
  };
  EXPECT_EQ(itemsOf().size(), 5u);
  Change([](BenchSettings& settings) { settings.formats = FormatSource::kOwner; });
  EXPECT_EQ(itemsOf().size(), 2u);
  Change(
      [](BenchSettings& settings) { settings.menu = moxmediaui::TimecodeOptions::kFixedListWithDropFrame; });
  EXPECT_EQ(itemsOf().size(), 7u) << "with a divider";
  Change([](BenchSettings& settings) { settings.offersFormats = false; });
  EXPECT_TRUE(itemsOf().empty());
}

TEST_F(BenchOptions, AFixedFieldStaysAndADisabledOneToo) {
  for (bool BenchSettings::*const option : {&BenchSettings::isFixed, &BenchSettings::isDisabled}) {
    Change([option](BenchSettings& settings) { settings.*option = true; });
    Rest();
    program.stage.Press(At(Field()));
    program.stage.MoveBy({6.0f, 0.0f});
    program.stage.ReleaseHere();
    EXPECT_EQ(Field().GetTime(), TimecodeBench::kFirstTime);
    Change([option](BenchSettings& settings) { settings.*option = false; });
  }
}

TEST_F(BenchOptions, SymbolsSizesAndColoursAreSeen) {
  std::vector<moxui::platform::Pixels> pictures{program.Picture()};
  auto const isSeen = [&](std::function<void(BenchSettings&)> const& change) {
    Change(change);
    pictures.push_back(program.Picture());
    return !(pictures.back() == pictures[pictures.size() - 2]);
  };
  EXPECT_TRUE(isSeen([](BenchSettings& settings) { settings.symbol = SymbolSide::kLeft; }));
  EXPECT_TRUE(isSeen([](BenchSettings& settings) { settings.symbolX = 8.0; }));
  EXPECT_TRUE(isSeen([](BenchSettings& settings) { settings.symbolY = -4.0; }));
  EXPECT_TRUE(isSeen([](BenchSettings& settings) { settings.symbol = SymbolSide::kRight; }));
  EXPECT_TRUE(isSeen([](BenchSettings& settings) { settings.symbol = SymbolSide::kNone; }));
  EXPECT_TRUE(isSeen([](BenchSettings& settings) { settings.textColor = moxui::ColorRGBA{1, 0, 0, 1}; }));
  EXPECT_EQ(Field().GetTextColor(), (moxui::ColorRGBA{1, 0, 0, 1}));
  EXPECT_TRUE(isSeen([](BenchSettings& settings) {
    settings.hasTime = false;
    settings.noTimeColor = moxui::ColorRGBA{0, 1, 0, 1};
  }));
  EXPECT_EQ(Field().GetTextColor(), (moxui::ColorRGBA{0, 1, 0, 1}));
  program.stage.Click(At(Field()));
  EXPECT_TRUE(isSeen([](BenchSettings& settings) { settings.textSize = TextSize::kLargeBold; }));
  EXPECT_TRUE(
      isSeen([](BenchSettings& settings) { settings.alignment = moxui::scriber::TextAlignment::kRight; }));
}

TEST_F(BenchOptions, AreKeptInAnotherTheme) {
  Change([](BenchSettings& settings) {
    settings.host.videoDisplay = TimeDisplay(TimeDisplay::kFrames);
    settings.start = FieldStart::kTenSeconds;
    settings.symbol = SymbolSide::kLeft;
  });
  program.stage.Click(program.shell.View()
                          .GetTabs()
                          .UI_ConvertRectTo(nullptr, program.shell.View().GetTabs().ItemRect(2))
                          .Center());
  Field().UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
  program.stage.Key(KeyboardCode::kUp);
  ASSERT_EQ(TextOf(Field()), u"111879");
  Appearance appearance;
  appearance.theme = ThemeChoice::kLight;
  program.shell.SetAppearance(appearance);
  program.stage.PaintFrame();
  EXPECT_TRUE(Bench().UI_IsShown());
  EXPECT_EQ(TextOf(Field()), u"111879");
  EXPECT_EQ(Field().GetOffsetTime(), Seconds(10));
}

TEST_F(BenchOptions, ComeBackAsTheyWereAtFirst) {
  Change([](BenchSettings& settings) {
    settings.isFixed = true;
    settings.host.videoRate = FrameRate::k60;
  });
  PressKeyOn("keepOwnRate", KeyboardCode::kEnter);
  PressKeyOn("reset", KeyboardCode::kEnter);
  EXPECT_FALSE(Field().GetIsFixed());
  EXPECT_EQ(TextOf(Field()), u"01;02;03;00");
}

}  // namespace
}  // namespace playground
