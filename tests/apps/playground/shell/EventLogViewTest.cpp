#include "playground/StagedProgram.h"
#include "shell/EventLog.h"
#include "shell/EventLogView.h"

#include <moxui/testing/Stage.h>

#include <gtest/gtest.h>

#include <string>

namespace playground {
namespace {

class EventLogWheel : public ::testing::Test {
 protected:
  EventLogWheel() {
    for (int i = 0; i < 50; ++i) {
      log.Add(std::to_string(i));
    }
    view->UI_SetLocalRectF({0.0f, 0.0f, 300.0f, 200.0f});
    stage.GetRootView().ChildPushBack(view);
    stage.PaintFrame();
  }

  EventLog log;
  moxcore::utility::IntrusivePtr<EventLogView> view =
      moxcore::utility::MakeIntrusive<EventLogView>(log, "$$$/t/Log=Log", "$$$/t/Empty=Nothing yet");
  moxui::testing::Stage stage{{300.0f, 200.0f}};
};

TEST_F(EventLogWheel, ScrollsALineForSixteenPixels) {
  stage.Wheel({100.0f, 100.0f}, {0.0f, 48.0f});
  EXPECT_EQ(view->GetLinesBack(), 3);
  stage.Wheel({100.0f, 100.0f}, {0.0f, -32.0f});
  EXPECT_EQ(view->GetLinesBack(), 1);
}

// A slow finger on a trackpad sends a pixel at a time.
TEST_F(EventLogWheel, AddsUpDistancesOfLessThanALine) {
  for (int i = 0; i < 40; ++i) {
    stage.Wheel({100.0f, 100.0f}, {0.0f, 1.0f});
  }
  EXPECT_EQ(view->GetLinesBack(), 2);
}

}  // namespace
}  // namespace playground
