#include <moxcore/threads/ParallelContainers.h>

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <numeric>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace moxcore::threads {
namespace {

std::vector<int> Numbers(std::size_t count) {
  std::vector<int> numbers(count);
  std::iota(numbers.begin(), numbers.end(), 0);
  return numbers;
}

TEST(ParallelContainers, CountWholeChunks) {
  EXPECT_EQ(ParallelChunkCount(0), 0u);
  EXPECT_EQ(ParallelChunkCount(127), 0u);
  EXPECT_EQ(ParallelChunkCount(128), 4u);
  EXPECT_EQ(ParallelChunkCount(512), 16u);
  EXPECT_EQ(ParallelChunkCount(513), 16u);
}

TEST(ParallelContainers, PutEachElementIntoItsOwnPlace) {
  for (std::size_t const count : {0u, 1u, 127u, 128u, 159u, 160u, 513u, 10'000u}) {
    auto const source = Numbers(count);
    std::vector<int> target(count, -1);
    ExecuteFunctionOnContainersAllProcessorsHelperWithTail([](int from, int& to) { to = from; }, count,
                                                           source, target);
    EXPECT_EQ(target, source);
  }
}

TEST(ParallelContainers, AskNoThreadForFewElements) {
  auto const source = Numbers(127);
  std::vector<std::thread::id> target(127);
  ExecuteFunctionOnContainersAllProcessorsHelperWithTail(
      [](int, std::thread::id& to) { to = std::this_thread::get_id(); }, 127, source, target);
  EXPECT_EQ(target, std::vector<std::thread::id>(127, std::this_thread::get_id()));
}

// The chunks wait for the tail, which so has to run beside them, on the calling thread.
TEST(ParallelContainers, WorkOnTheTailMeanwhile) {
  auto const source = Numbers(513);
  std::vector<std::thread::id> target(513);
  std::promise<void> tailDone;
  auto const done = tailDone.get_future().share();
  ExecuteFunctionOnContainersAllProcessorsHelperWithTail(
      [&](int from, std::thread::id& to) {
        to = std::this_thread::get_id();
        if (from == 512) {
          tailDone.set_value();
        } else if (done.wait_for(std::chrono::seconds(60)) != std::future_status::ready) {
          throw std::runtime_error("the tail waits for the chunks");
        }
      },
      513, source, target);
  EXPECT_EQ(target[512], std::this_thread::get_id());
}

class Throwing : public testing::TestWithParam<int> {};

TEST_P(Throwing, ElementIsWaitedForAndThenThrown) {
  constexpr std::size_t kCount = 1000;
  auto const source = Numbers(kCount);
  std::vector<int> target(kCount, -1);
  auto const fails = [](int from) { return from == GetParam(); };
  EXPECT_THROW(ExecuteFunctionOnContainersAllProcessorsHelperWithTail(
                   [&](int from, int& to) {
                     if (fails(from)) {
                       throw std::invalid_argument("no");
                     }
                     to = from;
                   },
                   kCount, source, target),
               std::invalid_argument);
  auto const chunkBegin = GetParam() / 32 * 32;
  for (int i = 0; i < static_cast<int>(kCount); ++i) {
    auto const isLeftOut = i >= GetParam() && i < chunkBegin + 32;
    EXPECT_EQ(target[static_cast<std::size_t>(i)], isLeftOut ? -1 : i) << i;
  }
}

// The first and the last of a chunk, of the chunks, and of the tail (992 to 999).
INSTANTIATE_TEST_SUITE_P(ParallelContainers, Throwing, testing::Values(0, 31, 32, 500, 991, 992, 999));

TEST(ParallelContainers, ThrowTheExceptionOfTheTailFirst) {
  auto const source = Numbers(513);
  std::vector<int> target(513);
  try {
    ExecuteFunctionOnContainersAllProcessorsHelperWithTail(
        [](int from, int&) { throw std::runtime_error(from == 512 ? "tail" : "chunk"); }, 513, source,
        target);
    FAIL();
  } catch (std::runtime_error const& exception) {
    EXPECT_STREQ(exception.what(), "tail");
  }
}

TEST(ParallelContainers, RefuseIndicesBeyondEitherSequence) {
  auto const copy = [](int from, int& to) { to = from; };
  std::vector<int> few(200);
  std::vector<int> many(600);
  EXPECT_THROW(ExecuteFunctionOnContainersAllProcessorsHelperWithTail(copy, 600, Numbers(600), few),
               std::out_of_range);
  EXPECT_THROW(ExecuteFunctionOnContainersAllProcessorsHelperWithTail(copy, 600, Numbers(200), many),
               std::out_of_range);
  std::vector<int> none;
  EXPECT_THROW(ExecuteFunctionOnContainersAllProcessorsHelperWithTail(copy, 1, Numbers(1), none),
               std::out_of_range);
}

}  // namespace
}  // namespace moxcore::threads
