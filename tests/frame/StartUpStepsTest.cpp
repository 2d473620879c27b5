#include <moxcore/config/InitializerRegistrar.h>
#include <moxcore/messaging/Station.h>
#include <moxmediaui/Module.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using ::testing::ElementsAre;
using ::testing::Pair;

// The steps come with the library: each program that it is loaded into may run them, in any order and again.
TEST(StartUpSteps, RunAndEndInEveryKindOfProgram) {
  int unused = 0;
  moxmediaui::utility::GetUpdateRange(0, 0, 0, 0, unused, unused);  // the library is linked
  for (auto const context : {moxcore::config::kApplicationContext, moxcore::config::kPlaygroundContext,
                             moxcore::config::kAllContexts}) {
    EXPECT_NO_THROW(moxcore::config::RunInitializers(context));
    EXPECT_NO_THROW(moxcore::config::TerminateInitializers(context));
  }
}

TEST(StartUpSteps, AreThoseOfTheTimecodeControlAndOfThePlayground) {
  int unused = 0;
  moxmediaui::utility::GetUpdateRange(0, 0, 0, 0, unused, unused);
  std::vector<std::pair<std::string, unsigned>> steps;
  for (moxcore::config::InitializerStep const& step : moxcore::config::GetInitializerSteps()) {
    std::string const name(step.name);
    if (name.starts_with("moxmediaui::")) {
      steps.emplace_back(name, step.contextFlags);
    }
  }
  EXPECT_THAT(steps,
              ElementsAre(Pair("moxmediaui::timecodecontrol", 4u), Pair("moxmediaui::uiplayground", 2u)));
}

// The two stations that every part of a program finds without a word to another.
class GlobalStations : public ::testing::Test {
 protected:
  GlobalStations() {
    int unused = 0;
    moxmediaui::utility::GetUpdateRange(0, 0, 0, 0, unused, unused);  // the library is linked
  }
  ~GlobalStations() override { moxcore::config::TerminateInitializers(); }

  static std::vector<bool> AreOpen() {
    std::vector<bool> open;
    for (auto const* const name :
         {"moxmediaui.timecodeControl.timedisplay.changed.station.global", "moxmediaui.rc.station"}) {
      open.push_back(moxcore::messaging::IsStationRegistered(moxcore::ImmutableString::Create(name)));
    }
    return open;
  }
};

TEST_F(GlobalStations, AreOpenFromTheStartOfAnApplicationToItsEnd) {
  EXPECT_THAT(AreOpen(), ElementsAre(false, false));
  moxcore::config::RunInitializers(moxcore::config::kApplicationContext);
  EXPECT_THAT(AreOpen(), ElementsAre(true, true));
  moxcore::config::TerminateInitializers(moxcore::config::kApplicationContext);
  EXPECT_THAT(AreOpen(), ElementsAre(false, false));
}

TEST_F(GlobalStations, AreNoMatterOfThePlaygroundsStep) {
  moxcore::config::RunInitializers(moxcore::config::kPlaygroundContext);
  EXPECT_THAT(AreOpen(), ElementsAre(false, false));
}

}  // namespace
