#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/peaks/PeakBuilder.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>
#include <moxcore/threads/Executor.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <exception>
#include <mutex>
#include <utility>
#include <vector>

namespace moxaudiotoolkit {
namespace {

using Clock = std::chrono::steady_clock;

constexpr Clock::duration kProgressInterval = std::chrono::milliseconds(40);

// The finest points of one page, of all channels.
class PagePoints {
 public:
  PagePoints(std::size_t channelCount, std::size_t points) : mValues(3 * channelCount * points) {
    for (std::size_t channel = 0; channel < channelCount; ++channel) {
      float* values = mValues.data() + 3 * channel * points;
      mRuns.push_back({.minimum = values, .maximum = values + points, .sumOfSquares = values + 2 * points});
    }
  }

  const std::vector<PeakRun>& GetRuns() const { return mRuns; }

 private:
  std::vector<float> mValues;
  std::vector<PeakRun> mRuns;
};

}  // namespace

class PeakBuilder::Job {
 public:
  Job(std::shared_ptr<const SampleSource> source, PeakBuildOptions options)
      : pyramid(std::make_shared<PeakPyramid>(GetPeakPyramidFormat(source->GetProperties()))),
        mSource(std::move(source)),
        mOptions(std::move(options)) {}

  static void Start(const std::shared_ptr<Job>& job) {
    const auto& executor =
        job->mOptions.executor ? job->mOptions.executor : moxcore::threads::GetCPUBoundExecutor();
    const int wanted = job->mOptions.threadCount > 0 ? job->mOptions.threadCount : executor->GetThreadCount();
    const std::int64_t pages = job->pyramid->GetPageCount();
    const int threads = job->mSource->IsParallel() ? wanted : 1;
    const int count = std::max(static_cast<int>(std::min<std::int64_t>(threads, pages)), 1);
    job->mThreadsLeft = count;
    job->task = moxcore::threads::AsyncExecuteTaskOnAllThreads([job](int) { job->Work(); }, count, executor);
  }

  void Cancel() { mCancelled.store(true, std::memory_order_relaxed); }
  State GetState() const { return mState.load(std::memory_order_acquire); }

  std::string GetProblem() const {
    const std::lock_guard lock(mMutex);
    return mProblem;
  }

  std::string GetReason() const {
    const std::lock_guard lock(mMutex);
    return mReason;
  }

  const std::shared_ptr<PeakPyramid> pyramid;
  std::shared_ptr<moxcore::threads::IMultithreadedTask> task;

 private:
  void Work() {
    try {
      WorkOnPages();
    } catch (const AudioFileError& error) {
      Fail(error.what(), error.GetReason());
    } catch (const std::exception& error) {
      Fail(error.what(), error.what());
    }
    if (--mThreadsLeft == 0) {
      Finish();
    }
  }

  // The first problem is the one to tell of.
  void Fail(const std::string& problem, const std::string& reason) {
    const std::lock_guard lock(mMutex);
    if (mProblem.empty()) {
      mProblem = problem;
      mReason = reason;
    }
    Cancel();
  }

  void WorkOnPages() {
    const std::int64_t pageCount = pyramid->GetPageCount();
    if (pageCount == 0) {
      return;
    }
    const PagePoints points(pyramid->GetChannelCount(),
                            static_cast<std::size_t>(pyramid->GetPointsOfPage(0)));
    constexpr std::int64_t kFramesPerPage = PeakPyramid::kPointsPerPage * kSamplesPerPoint;
    while (!mCancelled.load(std::memory_order_relaxed)) {
      const std::int64_t page = mNextPage.fetch_add(1, std::memory_order_relaxed);
      if (page >= pageCount) {
        return;
      }
      const std::int64_t firstFrame = page * kFramesPerPage;
      mSource->ReadPeaks(firstFrame, std::min(kFramesPerPage, pyramid->GetFrameCount() - firstFrame),
                         points.GetRuns());
      pyramid->SetPage(page, points.GetRuns());
      TellProgress();
    }
  }

  void TellProgress() {
    const std::unique_lock lock(mProgressMutex, std::try_to_lock);
    if (mOptions.onProgress && lock && Clock::now() - mLastProgress >= kProgressInterval) {
      mOptions.onProgress();
      mLastProgress = Clock::now();
    }
  }

  void Finish() {
    const bool failed = !GetProblem().empty();
    mState.store(failed                  ? State::kFailed
                 : pyramid->IsComplete() ? State::kDone
                                         : State::kCancelled,
                 std::memory_order_release);
    if (mOptions.onProgress) {
      const std::lock_guard lock(mProgressMutex);
      mOptions.onProgress();
    }
    // Before anyone who waits goes on: this object may outlive the wait by a moment.
    mOptions.onProgress = nullptr;
    mSource.reset();
  }

  std::shared_ptr<const SampleSource> mSource;
  PeakBuildOptions mOptions;
  std::atomic<std::int64_t> mNextPage{0};
  std::atomic<int> mThreadsLeft{0};
  std::atomic<bool> mCancelled{false};
  std::atomic<State> mState{State::kRunning};
  mutable std::mutex mMutex;
  std::string mProblem;
  std::string mReason;
  std::mutex mProgressMutex;
  Clock::time_point mLastProgress = Clock::now();
};

PeakBuilder::PeakBuilder(std::shared_ptr<const SampleSource> source, PeakBuildOptions options)
    : mJob(std::make_shared<Job>(std::move(source), std::move(options))) {
  Job::Start(mJob);
}

PeakBuilder::~PeakBuilder() {
  Cancel();
  Wait();
}

std::shared_ptr<const PeakPyramid> PeakBuilder::GetPyramid() const {
  return mJob->pyramid;
}

PeakBuilder::State PeakBuilder::GetState() const {
  return mJob->GetState();
}

std::string PeakBuilder::GetProblem() const {
  return mJob->GetProblem();
}

std::string PeakBuilder::GetReason() const {
  return mJob->GetReason();
}

double PeakBuilder::GetProgress() const {
  return mJob->pyramid->GetProgress();
}

void PeakBuilder::Cancel() {
  mJob->Cancel();
}

void PeakBuilder::Wait() {
  mJob->task->Wait();
}

}  // namespace moxaudiotoolkit
