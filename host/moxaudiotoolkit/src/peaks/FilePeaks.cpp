#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/peaks/FilePeaks.h>
#include <moxaudiotoolkit/peaks/PeakBuilder.h>
#include <moxaudiotoolkit/peaks/PeakCache.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>
#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <sys/stat.h>

#include <atomic>
#include <cstdint>
#include <exception>
#include <mutex>
#include <new>
#include <optional>
#include <thread>
#include <utility>

namespace moxaudiotoolkit {
namespace {

// What a look at a folder tells of a file; all zero when there is none.
struct FileStamp {
  std::uint64_t device = 0;
  std::uint64_t node = 0;
  std::int64_t size = 0;
  std::int64_t modified = 0;  // nanoseconds

  bool operator==(const FileStamp&) const = default;
};

FileStamp StampOf(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) {
    return {};
  }
  return {.device = status.st_dev,
          .node = status.st_ino,
          .size = status.st_size,
          .modified = status.st_mtim.tv_sec * std::int64_t{1'000'000'000} + status.st_mtim.tv_nsec};
}

}  // namespace

class FilePeaks::Worker {
 public:
  Worker(std::string path, FilePeaksOptions options) : mPath(std::move(path)), mOptions(std::move(options)) {
    Start();
  }

  ~Worker() {
    Cancel();
    Wait();
  }

  std::shared_ptr<const PeakPyramid> GetPyramid() const {
    const std::lock_guard lock(mMutex);
    return mPyramid;
  }

  std::shared_ptr<const SampleSource> GetSource() const {
    const std::lock_guard lock(mMutex);
    return mSource;
  }

  State GetState() const {
    const std::lock_guard lock(mMutex);
    return mState;
  }

  std::string GetProblem() const {
    const std::lock_guard lock(mMutex);
    return mProblem.text;
  }

  std::string GetReason() const {
    const std::lock_guard lock(mMutex);
    return mProblem.reason;
  }

  bool CameFromCache() const {
    const std::lock_guard lock(mMutex);
    return mFromCache;
  }

  void Cancel() {
    const std::lock_guard lock(mMutex);
    mAgain = false;
    CancelLocked();
  }

  void Wait() {
    if (mThread.joinable()) {
      mThread.join();
    }
  }

  bool PollForChange() {
    {
      const std::lock_guard lock(mMutex);
      const FileStamp now = StampOf(mPath);
      const bool standsStill = now == std::exchange(mPolled, now);
      // What is being written, by a recorder say, would never be read to its end.
      const bool mayInterrupt = mHasEnded || standsStill;
      if (now == mStamp || !mayInterrupt) {
        return false;
      }
    }
    Restart();
    return true;
  }

  void Restart() {
    {
      const std::lock_guard lock(mMutex);
      if (!mHasEnded) {
        // The thread goes on with the new work as soon as it has left the old.
        mStamp = StampOf(mPath);
        mAgain = true;
        CancelLocked();
        return;
      }
    }
    Wait();
    Start();
  }

 private:
  // What went wrong, with the name of the file and without.
  struct Problem {
    std::string text;
    std::string reason;
  };

  void Start() {
    {
      const std::lock_guard lock(mMutex);
      mStamp = StampOf(mPath);
      mHasEnded = false;
      BeginLocked();
    }
    mThread = std::thread([this] { Run(); });
  }

  void BeginLocked() {
    mAgain = false;
    mCancelled = false;
    mState = State::kOpening;
    mProblem = {};
  }

  void CancelLocked() {
    mCancelled = true;
    if (mBuilder != nullptr) {
      mBuilder->Cancel();
    }
  }

  void SetState(State state) {
    {
      const std::lock_guard lock(mMutex);
      mState = state;
    }
    if (mOptions.onChange) {
      mOptions.onChange();
    }
  }

  void SetProblem(Problem problem) {
    const std::lock_guard lock(mMutex);
    mProblem = std::move(problem);
  }

  // The pyramid and its source change together, so that a view never mixes two files.
  void Show(std::shared_ptr<const PeakPyramid> pyramid, const std::shared_ptr<const SampleSource>& source,
            bool fromCache) {
    const std::lock_guard lock(mMutex);
    mPyramid = std::move(pyramid);
    mSource = source;
    mFromCache = fromCache;
  }

  void Run() {
    for (bool again = true; again;) {
      const State end = MakeOrFail();
      {
        const std::lock_guard lock(mMutex);
        again = mAgain;
        mHasEnded = !again;
        if (again) {
          BeginLocked();
        } else {
          mState = end;
        }
      }
      if (mOptions.onChange) {
        mOptions.onChange();
      }
    }
  }

  State MakeOrFail() {
    try {
      return Make();
    } catch (const AudioFileError& error) {
      if (error.GetFault() == AudioFileFault::kCancelled) {
        return State::kCancelled;
      }
      SetProblem({error.what(), error.GetReason()});
    } catch (const std::bad_alloc&) {
      const AudioFileError error(AudioFileFault::kTooLong, mPath,
                                 "$$$/moxaudiotoolkit/Error/Memory=There is not enough memory.");
      SetProblem({error.what(), error.GetReason()});
    } catch (const std::exception& error) {
      SetProblem({error.what(), error.what()});
    }
    return State::kFailed;
  }

  State Make() {
    if (mOptions.readPeaks) {
      Show(mOptions.readPeaks(mPath, mCancelled), nullptr, false);
      return State::kDone;
    }
    const std::shared_ptr<const SampleSource> source =
        mOptions.open ? mOptions.open(mPath) : OpenSampleSource(mPath, &mCancelled);
    if (GetPyramid() == nullptr) {
      // What the header tells needn't wait for peaks.
      Show(nullptr, source, false);
      SetState(State::kOpening);
    }
    if (mCancelled) {
      return State::kCancelled;
    }
    std::optional<PeakCacheKey> key;
    if (mOptions.cache) {
      key = MakePeakCacheKey(mPath);
      if (const auto end = TakeFromCache(*key, source)) {
        return *end;
      }
    }
    return Build(source, key);
  }

  // Nothing when it has to be built.
  std::optional<State> TakeFromCache(const PeakCacheKey& key,
                                     const std::shared_ptr<const SampleSource>& source) {
    const PeakCache::Entry entry = mOptions.cache->Load(key, GetPeakPyramidFormat(source->GetProperties()));
    if (entry.pyramid == nullptr) {
      return std::nullopt;
    }
    Show(entry.pyramid, source, true);
    SetState(State::kVerifying);
    const auto hash = HashFile(mPath, mCancelled);
    if (!hash) {
      return State::kCancelled;
    }
    if (*hash == entry.fileHash) {
      return State::kDone;
    }
    mOptions.cache->Remove(key);
    return std::nullopt;
  }

  State Build(const std::shared_ptr<const SampleSource>& source, const std::optional<PeakCacheKey>& key) {
    PeakBuilder builder(source, {.threadCount = mOptions.threadCount,
                                 .onProgress = mOptions.onChange,
                                 .executor = mOptions.executor});
    Show(builder.GetPyramid(), source, false);
    {
      const std::lock_guard lock(mMutex);
      mBuilder = &builder;
    }
    // One that came before the builder was known is still in force.
    if (mCancelled) {
      builder.Cancel();
    }
    SetState(State::kBuilding);
    builder.Wait();
    {
      const std::lock_guard lock(mMutex);
      mBuilder = nullptr;
    }
    switch (builder.GetState()) {
      case PeakBuilder::State::kDone:
        return key ? Store(*builder.GetPyramid(), *key) : State::kDone;
      case PeakBuilder::State::kFailed:
        SetProblem({builder.GetProblem(), builder.GetReason()});
        return State::kFailed;
      default:
        return State::kCancelled;
    }
  }

  State Store(const PeakPyramid& pyramid, const PeakCacheKey& key) {
    SetState(State::kStoring);
    const auto hash = HashFile(mPath, mCancelled);
    if (!hash) {
      return State::kCancelled;
    }
    // Peaks of a file that changed while it was read are those of no file; a poll will tell.
    if (MakePeakCacheKey(mPath) == key && IsUnchanged()) {
      const std::string problem = mOptions.cache->Store(key, *hash, pyramid);
      SetProblem({problem, problem});
    }
    return State::kDone;
  }

  bool IsUnchanged() const {
    const std::lock_guard lock(mMutex);
    return StampOf(mPath) == mStamp;
  }

  const std::string mPath;
  const FilePeaksOptions mOptions;
  std::atomic<bool> mCancelled{false};
  mutable std::mutex mMutex;
  FileStamp mStamp;        // as it was when the work began
  FileStamp mPolled;       // as it was at the latest poll
  bool mAgain = false;     // the thread is to begin anew
  bool mHasEnded = false;  // the thread looks at nothing of this any more but onChange
  State mState = State::kOpening;
  std::shared_ptr<const PeakPyramid> mPyramid;
  std::shared_ptr<const SampleSource> mSource;
  bool mFromCache = false;
  Problem mProblem;
  PeakBuilder* mBuilder = nullptr;
  std::thread mThread;
};

FilePeaks::FilePeaks(std::string path, FilePeaksOptions options)
    : mWorker(std::make_unique<Worker>(std::move(path), std::move(options))) {}

FilePeaks::~FilePeaks() = default;

std::shared_ptr<const PeakPyramid> FilePeaks::GetPyramid() const {
  return mWorker->GetPyramid();
}

std::shared_ptr<const SampleSource> FilePeaks::GetSource() const {
  return mWorker->GetSource();
}

FilePeaks::State FilePeaks::GetState() const {
  return mWorker->GetState();
}

double FilePeaks::GetProgress() const {
  const auto pyramid = mWorker->GetPyramid();
  return pyramid ? pyramid->GetProgress() : 0.0;
}

std::string FilePeaks::GetProblem() const {
  return mWorker->GetProblem();
}

std::string FilePeaks::GetReason() const {
  return mWorker->GetReason();
}

bool FilePeaks::CameFromCache() const {
  return mWorker->CameFromCache();
}

void FilePeaks::Cancel() {
  mWorker->Cancel();
}

void FilePeaks::Wait() {
  mWorker->Wait();
}

bool FilePeaks::PollForChange() {
  return mWorker->PollForChange();
}

void FilePeaks::Restart() {
  mWorker->Restart();
}

}  // namespace moxaudiotoolkit
