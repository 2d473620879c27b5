#include <moxcore/debug/Trace.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

namespace moxcore::debug {
namespace {

TraceCategory const kPresets("test.presets");
TraceCategory const kFamily("test");
TraceCategory const kAll("*");
TraceCategory const kColor("TestColor");

class TraceTest : public testing::Test {
 protected:
  TraceTest() {
    mBefore = SetTraceSink([this](TraceLevel level, TraceCategory const& category, std::string_view text) {
      lines.push_back(std::to_string(static_cast<int>(level)) + " " + category.GetName().data() + ": " +
                      std::string(text));
    });
  }
  ~TraceTest() override {
    for (auto const& category : {kPresets, kFamily, kAll, kColor}) {
      ResetTrace(category);
    }
    SetTraceSink(mBefore);
  }

  std::vector<std::string> lines;

 private:
  TraceSink mBefore;
};

TEST_F(TraceTest, IsSilentUntilACategoryIsEnabled) {
  Trace(TraceLevel(0), kPresets, "quiet");
  EXPECT_TRUE(lines.empty());
  EXPECT_FALSE(TraceEnabled(kPresets, TraceLevel(0)));
}

TEST_F(TraceTest, LetsLevelsUpToTheEnabledOneThrough) {
  EnableTrace(kPresets, TraceLevel(2));
  EXPECT_TRUE(TraceEnabled(kPresets, TraceLevel(2)));
  EXPECT_FALSE(TraceEnabled(kPresets, TraceLevel(3)));
  EXPECT_FALSE(TraceEnabled(kColor, TraceLevel(2)));
  Trace(TraceLevel(2), kPresets, "Error writing preset file: a\r\n");
  Trace(TraceLevel(3), kPresets, "too detailed");
  EXPECT_EQ(lines, std::vector<std::string>{"2 test.presets: Error writing preset file: a\r\n"});
}

TEST_F(TraceTest, HasFamiliesThatAreAskedUnlessTheOwnSettingAloneCounts) {
  EnableTrace(kFamily, TraceLevel(4));
  EXPECT_TRUE(TraceEnabled(kPresets, TraceLevel(4)));
  EXPECT_TRUE(TraceEnabled(TraceCategory("test::deep::deeper"), TraceLevel(4)));
  EXPECT_FALSE(TraceEnabled(kPresets, TraceLevel(4), true));
  EXPECT_FALSE(TraceEnabled(TraceCategory("tester"), TraceLevel(0)));
  EnableTrace(kAll, TraceLevel(1));
  EXPECT_TRUE(TraceEnabled(kColor, TraceLevel(1)));
  DisableTrace(kPresets);
  EXPECT_FALSE(TraceEnabled(kPresets, TraceLevel(0)));
  ResetTrace(kPresets);
  EXPECT_TRUE(TraceEnabled(kPresets, TraceLevel(4)));
}

TEST_F(TraceTest, MovesTheChangeCountWithEverySetting) {
  auto const before = TraceChangeCount();
  EnableTrace(kPresets, TraceLevel(2));
  auto const enabled = TraceChangeCount();
  EXPECT_NE(enabled, before);
  (void)TraceEnabled(kPresets, TraceLevel(2));
  Trace(TraceLevel(1), kPresets, "");
  EXPECT_EQ(TraceChangeCount(), enabled);
  ResetTrace(kPresets);
  EXPECT_NE(TraceChangeCount(), enabled);
}

TEST_F(TraceTest, ReadsAListAndPassesOverWhatIsMalformed) {
  ConfigureTrace("test.presets=2,,=3,TestColor,test=x,test=-1,test=99999999999,test=1 ");
  EXPECT_TRUE(TraceEnabled(kPresets, TraceLevel(2)));
  EXPECT_FALSE(TraceEnabled(kPresets, TraceLevel(3)));
  EXPECT_TRUE(TraceEnabled(kColor, kTraceEverything));
  EXPECT_FALSE(TraceEnabled(kFamily, TraceLevel(0)));
}

TEST_F(TraceTest, WritesLinesToTheStandardErrorStreamWithoutASink) {
  auto const mine = SetTraceSink(nullptr);
  EnableTrace(kPresets);
  testing::internal::CaptureStderr();
  Trace(TraceLevel(2), kPresets, "one line\r\n");
  Trace(TraceLevel(2), kPresets, "another");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "test.presets: one line\ntest.presets: another\n");
  EXPECT_FALSE(SetTraceSink(mine));
}

// Run by the test below in a process whose environment names the category.
TEST(TraceEnvironment, EnablesWhatTheVariableSays) {
  auto const* const list = std::getenv("MOX_TRACE");
  auto const isNamed =
      list != nullptr && std::string_view(list).find("test-environment=3") != std::string_view::npos;
  TraceCategory const category("test-environment");
  EXPECT_EQ(TraceEnabled(category, TraceLevel(3)), isNamed);
  EXPECT_FALSE(TraceEnabled(category, TraceLevel(4)));
}

TEST(TraceEnvironment, IsReadByANewProcess) {
  auto const program = std::filesystem::read_symlink("/proc/self/exe").string();
  auto const command =
      "MOX_TRACE=other,test-environment=3 '" + program +
      "' --gtest_brief=1 --gtest_filter=TraceEnvironment.EnablesWhatTheVariableSays >/dev/null";
  EXPECT_EQ(std::system(command.c_str()), 0);
}

TEST(Trace, MayBeConfiguredAndWrittenByThreadsAtOnce) {
  std::atomic<int> written{0};
  auto const before = SetTraceSink([&](TraceLevel, TraceCategory const&, std::string_view) { ++written; });
  std::thread configuring([] {
    for (int i = 0; i < 500; ++i) {
      EnableTrace(kPresets);
      ResetTrace(kPresets);
    }
    EnableTrace(kPresets);
  });
  for (int i = 0; i < 500; ++i) {
    Trace(TraceLevel(1), kPresets, "text");
  }
  configuring.join();
  written = 0;
  Trace(TraceLevel(1), kPresets, "text");
  EXPECT_EQ(written, 1);
  ResetTrace(kPresets);
  SetTraceSink(before);
}

}  // namespace
}  // namespace moxcore::debug
