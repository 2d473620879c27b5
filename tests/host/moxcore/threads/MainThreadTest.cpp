#include <moxcore/threads/MainThread.h>
#include <moxcore/utility/RefCountedWeakPtr.h>

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <future>
#include <stdexcept>
#include <thread>
#include <vector>

namespace moxcore::threads {
namespace {

class Picture : public utility::RefCountedObjectWithWeakPtr {
 public:
  explicit Picture(std::vector<bool>* ends) : mEnds(ends) {}
  ~Picture() override { mEnds->push_back(CurrentThreadIsMainThread()); }
  bool DestructOnMainThread() const noexcept override { return true; }

 private:
  std::vector<bool>* mEnds;
};

TEST(MainThread, TellsTheMainThreadFromAnother) {
  EXPECT_TRUE(CurrentThreadIsMainThread());
  bool inThread = true;
  std::thread([&] { inThread = CurrentThreadIsMainThread(); }).join();
  EXPECT_FALSE(inThread);
}

TEST(MainThread, RunsPostedFunctionsInOrderWhenDrained) {
  std::vector<int> order;
  std::thread([&] {
    PostToMainThread([&] { order.push_back(1); });
    PostToMainThread([&] { order.push_back(2); });
    EXPECT_EQ(DrainMainThreadQueue(), 0);
  }).join();
  EXPECT_TRUE(order.empty());
  EXPECT_EQ(DrainMainThreadQueue(), 2);
  EXPECT_EQ(order, (std::vector<int>{1, 2}));
}

TEST(MainThread, LeavesWhatADrainedFunctionPostsForTheNextDrain) {
  int runs = 0;
  PostToMainThread([&] {
    ++runs;
    PostToMainThread([&] { ++runs; });
  });
  EXPECT_EQ(DrainMainThreadQueue(), 1);
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(DrainMainThreadQueue(), 1);
  EXPECT_EQ(runs, 2);
}

TEST(MainThread, KeepsTheFunctionsBehindOneThatThrows) {
  bool ran = false;
  PostToMainThread([] { throw std::runtime_error("no"); });
  PostToMainThread([&] { ran = true; });
  EXPECT_THROW(DrainMainThreadQueue(), std::runtime_error);
  EXPECT_EQ(DrainMainThreadQueue(), 1);
  EXPECT_TRUE(ran);
}

TEST(MainThread, HandsWhatWasPostedToThePosterThatIsInstalledLater) {
  std::vector<std::function<void()>> loop;
  bool ran = false;
  PostToMainThread([&] { ran = true; });
  SetMainThreadPoster([&](std::function<void()> function) { loop.push_back(std::move(function)); });
  ASSERT_EQ(loop.size(), 1u);
  PostToMainThread([] {});
  EXPECT_EQ(loop.size(), 2u);
  SetMainThreadPoster(nullptr);
  for (auto const& function : loop) {
    function();
  }
  EXPECT_TRUE(ran);
  EXPECT_EQ(DrainMainThreadQueue(), 0);
}

TEST(MainThread, WaitsForCallsOfThePosterThatItTakesBack) {
  std::promise<void> entered;
  std::promise<void> replaced;
  std::atomic<bool> hasLeft = false;
  SetMainThreadPoster([&](std::function<void()> const&) {
    entered.set_value();
    replaced.get_future().wait();
    for (int i = 0; i < 1000; ++i) {
      std::this_thread::yield();
    }
    hasLeft = true;
  });
  std::thread posting([] { PostToMainThread([] {}); });
  entered.get_future().wait();

  // The new one is called at once, for what the other has been told of.
  SetMainThreadPoster([&](std::function<void()> const&) { replaced.set_value(); });

  EXPECT_TRUE(hasLeft);
  posting.join();
  SetMainThreadPoster(nullptr);
  EXPECT_EQ(DrainMainThreadQueue(), 1);
}

TEST(MainThread, LetsAPosterTakeItselfBack) {
  int calls = 0;
  SetMainThreadPoster([&](std::function<void()> const&) {
    ++calls;
    SetMainThreadPoster(nullptr);
  });
  PostToMainThread([] {});
  PostToMainThread([] {});
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(DrainMainThreadQueue(), 2);
}

TEST(DestructOnMainThread, MovesALastReleaseOnAnotherThreadToTheMainThread) {
  std::vector<bool> ends;
  auto picture = utility::MakeIntrusive<Picture>(&ends);
  utility::RefCountedWeakPtr<Picture> const weak(picture);
  std::thread([mine = std::move(picture)]() mutable { mine.Reset(); }).join();
  EXPECT_TRUE(ends.empty());
  EXPECT_FALSE(weak.Lock());
  DrainMainThreadQueue();
  EXPECT_EQ(ends, std::vector<bool>{true});
}

TEST(DestructOnMainThread, EndsAtOnceOnTheMainThread) {
  std::vector<bool> ends;
  utility::MakeIntrusive<Picture>(&ends).Reset();
  EXPECT_EQ(ends, std::vector<bool>{true});
}

}  // namespace
}  // namespace moxcore::threads
