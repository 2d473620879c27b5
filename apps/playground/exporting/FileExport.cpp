#include "exporting/FileExport.h"

#include "program/Localized.h"

#include <moxaudiotoolkit/AudioFileError.h>

#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <new>
#include <utility>

namespace playground {

class FileExport::Job {
 public:
  Job(std::string path, Work work) : mPath(std::move(path)), mWork(std::move(work)) {}

  std::string const& Path() const { return mPath; }

  void Run() {
    State state = State::kFailed;
    std::string problem;
    try {
      state = mWork([this](double done) {
        mDone = done;
        return !mCancelled;
      })
                  ? State::kDone
                  : State::kCancelled;
    } catch (moxaudiotoolkit::AudioFileError const& error) {
      problem = error.GetReason();
    } catch (std::bad_alloc const&) {
      problem = Text("$$$/playground/open/memory=There is not enough memory.");
    } catch (std::exception const& error) {
      problem = error.what();
    }
    mWork = {};  // with the sound that it holds
    std::lock_guard const lock(mMutex);
    mState = state;
    mProblem = std::move(problem);
    mEnded.notify_all();
  }

  State GetState() const {
    std::lock_guard const lock(mMutex);
    return mState;
  }
  std::string Problem() const {
    std::lock_guard const lock(mMutex);
    return mProblem;
  }
  double Progress() const { return mDone; }
  void Cancel() { mCancelled = true; }
  void Wait() {
    std::unique_lock lock(mMutex);
    mEnded.wait(lock, [this] { return mState != State::kRunning; });
  }

 private:
  std::string const mPath;
  Work mWork;
  std::atomic<bool> mCancelled = false;
  std::atomic<double> mDone = 0.0;
  mutable std::mutex mMutex;
  std::condition_variable mEnded;
  State mState = State::kRunning;
  std::string mProblem;
};

FileExport::FileExport(std::string path, Work work)
    : mJob(std::make_unique<Job>(std::move(path), std::move(work))),
      mThread([job = mJob.get()] { job->Run(); }) {}

FileExport::~FileExport() {
  mJob->Cancel();
  mThread.join();
}

std::string const& FileExport::Path() const {
  return mJob->Path();
}
FileExport::State FileExport::GetState() const {
  return mJob->GetState();
}
double FileExport::Progress() const {
  return mJob->Progress();
}
std::string FileExport::Problem() const {
  return mJob->Problem();
}
void FileExport::Cancel() {
  mJob->Cancel();
}
void FileExport::Wait() {
  mJob->Wait();
}

}  // namespace playground
