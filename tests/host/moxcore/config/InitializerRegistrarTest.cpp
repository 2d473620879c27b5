#include <moxcore/config/Errors.h>
#include <moxcore/config/InitializerRegistrar.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace moxcore::config {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr ContextFlags kTestContext = 1u << 20;
constexpr ContextFlags kOtherTestContext = 1u << 21;

int sStaticInits = 0;
InitializerRegistrar const sStaticStep(
    "test static step", 1u << 22, nullptr, [] { ++sStaticInits; }, nullptr);

class InitializerRegistrarTest : public testing::Test {
 protected:
  std::unique_ptr<InitializerRegistrar> Step(std::string const& name, ContextFlags flags = kTestContext) {
    return std::make_unique<InitializerRegistrar>(
        name, flags, [] { return true; }, [this, name] { log.push_back("+" + name); },
        [this, name] { log.push_back("-" + name); });
  }
  ~InitializerRegistrarTest() override { TerminateInitializers(kTestContext | kOtherTestContext); }

  std::vector<std::string> log;
};

TEST_F(InitializerRegistrarTest, RunsStepsByNameAndTerminatesThemInReverse) {
  auto const c = Step("c");
  auto const a = Step("a");
  auto const b = Step("b");
  EXPECT_THAT(log, IsEmpty());
  RunInitializers(kTestContext);
  TerminateInitializers(kTestContext);
  EXPECT_THAT(log, ElementsAre("+a", "+b", "+c", "-c", "-b", "-a"));
}

TEST_F(InitializerRegistrarTest, RunsTheStepsOfTheGivenContextsOnly) {
  auto const mine = Step("mine");
  auto const others = Step("others", kOtherTestContext);
  auto const both = Step("both", kTestContext | kOtherTestContext);
  RunInitializers(kTestContext);
  EXPECT_THAT(log, ElementsAre("+both", "+mine"));
  RunInitializers(kOtherTestContext);
  EXPECT_THAT(log, ElementsAre("+both", "+mine", "+others"));
  log.clear();
  TerminateInitializers(kOtherTestContext);
  EXPECT_THAT(log, ElementsAre("-others", "-both"));
}

TEST_F(InitializerRegistrarTest, TellsWhichStepsAreRecordedRunningOrNot) {
  auto const namesOf = [](ContextFlags flags) {
    std::vector<std::string> names;
    for (InitializerStep const& step : GetInitializerSteps()) {
      if (step.contextFlags == flags) {
        names.emplace_back(step.name);
      }
    }
    return names;
  };
  auto const second = Step("b");
  auto first = Step("a");
  auto const other = Step("c", kOtherTestContext);
  RunInitializers(kOtherTestContext);
  EXPECT_THAT(namesOf(kTestContext), ElementsAre("a", "b"));
  EXPECT_THAT(namesOf(kOtherTestContext), ElementsAre("c"));
  first.reset();
  EXPECT_THAT(namesOf(kTestContext), ElementsAre("b"));
}

TEST_F(InitializerRegistrarTest, RunsAStepOnceUntilItIsTerminated) {
  auto const step = Step("a");
  RunInitializers(kTestContext);
  RunInitializers(kTestContext);
  TerminateInitializers(kTestContext);
  TerminateInitializers(kTestContext);
  RunInitializers(kTestContext);
  EXPECT_THAT(log, ElementsAre("+a", "-a", "+a"));
}

TEST_F(InitializerRegistrarTest, TriesAStepAgainOnceOthersHaveRun) {
  bool ready = false;
  InitializerRegistrar const needing(
      "a", kTestContext, [&] { return ready; }, [&] { log.push_back("+a"); }, nullptr);
  InitializerRegistrar const giving(
      "b", kTestContext, nullptr, [&] { ready = true, log.push_back("+b"); }, nullptr);
  RunInitializers(kTestContext);
  EXPECT_THAT(log, ElementsAre("+b", "+a"));
}

TEST_F(InitializerRegistrarTest, SkipsAStepThatCannotRunUnlessThatIsForbidden) {
  InitializerRegistrar const optional(
      "a", kTestContext, [] { return false; }, [&] { log.push_back("+a"); }, nullptr);
  EXPECT_TRUE(optional.CanBeSkipped());
  RunInitializers(kTestContext);
  EXPECT_THAT(log, IsEmpty());
  InitializerRegistrar const required(
      "needed step", kTestContext, [] { return false; }, nullptr, nullptr, false);
  EXPECT_FALSE(required.CanBeSkipped());
  try {
    RunInitializers(kTestContext);
    FAIL();
  } catch (mox_exception const& error) {
    EXPECT_STREQ(error.what(), "The start-up step needed step can't run.");
  }
}

TEST_F(InitializerRegistrarTest, KeepsWhatRanBeforeAStepThatThrows) {
  auto const a = Step("a");
  InitializerRegistrar const b(
      "b", kTestContext, nullptr, [] { throw std::runtime_error("b"); }, [&] { log.push_back("-b"); });
  auto const c = Step("c");
  EXPECT_THROW(RunInitializers(kTestContext), std::runtime_error);
  TerminateInitializers(kTestContext);
  EXPECT_THAT(log, ElementsAre("+a", "-a"));
}

TEST_F(InitializerRegistrarTest, TerminatesAllEvenIfOneThrows) {
  auto const a = Step("a");
  InitializerRegistrar const b("b", kTestContext, nullptr, nullptr, [] { throw std::runtime_error("b"); });
  auto const c = Step("c");
  RunInitializers(kTestContext);
  EXPECT_THROW(TerminateInitializers(kTestContext), std::runtime_error);
  EXPECT_THAT(log, ElementsAre("+a", "+c", "-c", "-a"));
}

TEST_F(InitializerRegistrarTest, WithdrawsAStepThatEnds) {
  auto a = Step("a");
  auto b = Step("b");
  RunInitializers(kTestContext);
  b.reset();
  TerminateInitializers(kTestContext);
  a.reset();
  RunInitializers(kTestContext);
  EXPECT_THAT(log, ElementsAre("+a", "+b", "-a"));
}

TEST_F(InitializerRegistrarTest, RecordsStaticObjects) {
  RunInitializers(1u << 22);
  EXPECT_EQ(sStaticInits, 1);
  TerminateInitializers(1u << 22);
}

}  // namespace
}  // namespace moxcore::config
