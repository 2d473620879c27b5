#include "MadeUpSources.h"

#include <moxaudiotoolkit/peaks/PeakBuilder.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace moxaudiotoolkit {
namespace {

using testing::BuildPyramid;
using testing::GatedSource;
using testing::NoiseSource;

constexpr std::int64_t kFramesPerPage = PeakPyramid::kPointsPerPage * kSamplesPerPoint;

TEST(PeakBuilder, BuildsThePyramidOnAllThreads) {
  const auto source = std::make_shared<NoiseSource>(5 * kFramesPerPage + 123, 2, 16);
  PeakBuilder builder(source);
  builder.Wait();
  EXPECT_EQ(builder.GetState(), PeakBuilder::State::kDone);
  EXPECT_EQ(builder.GetProgress(), 1.0);
  EXPECT_EQ(builder.GetProblem(), "");
  const auto expected = BuildPyramid(*source);
  for (int level = 0; level < PeakPyramid::kLevelCount; ++level) {
    for (std::int64_t i = 0; i < expected->GetPointCount(level); i += 1 + i / 5) {
      ASSERT_EQ(builder.GetPyramid()->GetPoint(level, 1, i), expected->GetPoint(level, 1, i));
    }
  }
}

TEST(PeakBuilder, IsDoneAtOnceWithAudioOfNoLength) {
  PeakBuilder builder(std::make_shared<NoiseSource>(0, 1));
  builder.Wait();
  EXPECT_EQ(builder.GetState(), PeakBuilder::State::kDone);
}

TEST(PeakBuilder, ShowsWhatIsReadWhileItBuilds) {
  const auto noise = std::make_shared<NoiseSource>(4 * kFramesPerPage, 1);
  const auto source = std::make_shared<GatedSource>(noise);
  PeakBuilder builder(source, {.threadCount = 1});
  source->OpenUpTo(kFramesPerPage);
  while (!builder.GetPyramid()->HasPage(0)) {
    std::this_thread::yield();
  }
  EXPECT_EQ(builder.GetState(), PeakBuilder::State::kRunning);
  EXPECT_EQ(builder.GetProgress(), 0.25);
  const PeakPoint start = builder.GetPyramid()->GetRange(0, 0, kFramesPerPage);
  EXPECT_TRUE(start.known);
  EXPECT_GT(start.maximum, 0.9F);
  EXPECT_FALSE(builder.GetPyramid()->GetRange(0, 0, 2 * kFramesPerPage).known);
  source->OpenUpTo(4 * kFramesPerPage);
  builder.Wait();
  EXPECT_EQ(builder.GetState(), PeakBuilder::State::kDone);
}

TEST(PeakBuilder, StopsWhenItIsCancelledAndKeepsWhatItHas) {
  const auto source = std::make_shared<GatedSource>(std::make_shared<NoiseSource>(100 * kFramesPerPage, 1));
  PeakBuilder builder(source, {.threadCount = 2});
  source->OpenUpTo(2 * kFramesPerPage);
  while (builder.GetPyramid()->GetPagesDone() < 2) {
    std::this_thread::yield();
  }
  builder.Cancel();
  source->OpenUpTo(100 * kFramesPerPage);
  builder.Wait();
  EXPECT_EQ(builder.GetState(), PeakBuilder::State::kCancelled);
  // The pages in hand are finished, no further ones begun.
  EXPECT_LE(builder.GetPyramid()->GetPagesDone(), 4);
  EXPECT_TRUE(builder.GetPyramid()->GetRange(0, 0, 2 * kFramesPerPage).known);
  const int readings = source->GetReadings();
  std::this_thread::yield();
  EXPECT_EQ(source->GetReadings(), readings);
}

TEST(PeakBuilder, LeavesNoThreadAtItsEnd) {
  for (int i = 0; i < 50; ++i) {
    const auto source = std::make_shared<NoiseSource>(3 * kFramesPerPage, 1);
    const std::weak_ptr<const SampleSource> watched = source;
    {
      PeakBuilder builder(source);
      for (int wait = 0; wait < i * 20; ++wait) {
        std::this_thread::yield();
      }
    }
    EXPECT_EQ(watched.use_count(), 1) << "a thread still holds the source";
  }
}

TEST(PeakBuilder, TellsWhyItFailed) {
  const auto source = std::make_shared<GatedSource>(std::make_shared<NoiseSource>(10 * kFramesPerPage, 1));
  source->OpenUpTo(10 * kFramesPerPage);
  source->FailFrom(3 * kFramesPerPage);
  PeakBuilder builder(source, {.threadCount = 1});
  builder.Wait();
  EXPECT_EQ(builder.GetState(), PeakBuilder::State::kFailed);
  EXPECT_EQ(builder.GetProblem(), "broken");
  EXPECT_TRUE(builder.GetPyramid()->GetRange(0, 0, 3 * kFramesPerPage).known);
  EXPECT_FALSE(builder.GetPyramid()->GetRange(0, 0, 4 * kFramesPerPage).known);
}

TEST(PeakBuilder, TellsItsProgressAndItsEnd) {
  std::atomic<int> calls{0};
  std::atomic<bool> done{false};
  PeakBuilder* self = nullptr;
  const auto source = std::make_shared<GatedSource>(std::make_shared<NoiseSource>(4 * kFramesPerPage, 1));
  PeakBuilder builder(source, {.onProgress = [&] {
                        ++calls;
                        done = self->GetState() == PeakBuilder::State::kDone;
                      }});
  self = &builder;
  source->OpenUpTo(4 * kFramesPerPage);
  builder.Wait();
  EXPECT_GE(calls, 1);
  EXPECT_TRUE(done);
}

TEST(PeakBuilder, CanBeLookedAtByManyThreadsWhileItBuilds) {
  const auto source = std::make_shared<NoiseSource>(12 * kFramesPerPage, 2, 16);
  const auto expected = BuildPyramid(*source);
  PeakBuilder builder(source);
  std::vector<std::thread> viewers;
  std::atomic<int> wrong{0};
  for (int viewer = 0; viewer < 3; ++viewer) {
    viewers.emplace_back([&, viewer] {
      const auto pyramid = builder.GetPyramid();
      for (std::int64_t i = 0; builder.GetState() == PeakBuilder::State::kRunning || i < 50; ++i) {
        const std::int64_t begin = i * 64000 * (viewer + 1) % source->GetProperties().frames / 64 * 64;
        const PeakPoint point = pyramid->GetRange(0, begin, begin + 64 * 5000);
        if (point.known && point != expected->GetRange(0, begin, begin + 64 * 5000)) {
          ++wrong;
        }
      }
    });
  }
  for (std::thread& viewer : viewers) {
    viewer.join();
  }
  builder.Wait();
  EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace moxaudiotoolkit
