#include "audio/SelectionExport.h"

#include "program/Localized.h"

#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/WaveFileWriter.h>
#include <moxaudiotoolkit/peaks/SampleSource.h>
#include <moxcore/threads/Executor.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <new>
#include <span>
#include <utility>

namespace playground {
namespace {

constexpr std::size_t kBlockFloats = std::size_t{1} << 17;  // read at a time

// The channels asked for, frame by frame.
void Pick(std::span<float const> frames, std::size_t channelCount, std::vector<std::size_t> const& channels,
          std::span<float> picked) {
  std::size_t to = 0;
  for (std::size_t frame = 0; frame < frames.size(); frame += channelCount) {
    for (std::size_t const channel : channels) {
      picked[to++] = frames[frame + channel];
    }
  }
}

}  // namespace

class SelectionExport::Job {
 public:
  explicit Job(ExportRequest request) : mRequest(std::move(request)) {}

  ExportRequest const& Request() const { return mRequest; }

  void Run() {
    State state = State::kFailed;
    std::string problem;
    try {
      state = Write() ? State::kDone : State::kCancelled;
    } catch (moxaudiotoolkit::AudioFileError const& error) {
      problem = error.GetReason();
    } catch (std::bad_alloc const&) {
      problem = Text("$$$/playground/open/memory=There is not enough memory.");
    } catch (std::exception const& error) {
      problem = error.what();
    }
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
  double Progress() const {
    auto const frames = static_cast<double>(mRequest.end - mRequest.begin);
    return frames > 0.0 ? static_cast<double>(mFramesDone.load()) / frames : 1.0;
  }
  void Cancel() { mCancelled = true; }
  void Wait() {
    std::unique_lock lock(mMutex);
    mEnded.wait(lock, [this] { return mState != State::kRunning; });
  }

 private:
  // False when it was cancelled.
  bool Write() {
    auto const& properties = mRequest.source->GetProperties();
    auto const channelCount = static_cast<std::size_t>(properties.channelCount);
    std::size_t const picked = mRequest.channels.size();
    moxaudiotoolkit::WaveFileWriter writer(mRequest.path,
                                           {.type = moxaudiotoolkit::GetExactWaveType(properties),
                                            .sampleRate = properties.sampleRate,
                                            .channelCount = static_cast<int>(picked),
                                            .frames = mRequest.end - mRequest.begin});
    auto const blockFrames = static_cast<std::int64_t>(std::max<std::size_t>(kBlockFloats / channelCount, 1));
    std::vector<float> frames(static_cast<std::size_t>(blockFrames) * channelCount);
    std::vector<float> samples(static_cast<std::size_t>(blockFrames) * picked);
    for (std::int64_t at = mRequest.begin; at < mRequest.end; at += blockFrames) {
      if (mCancelled) {
        return false;
      }
      auto const count = static_cast<std::size_t>(std::min(blockFrames, mRequest.end - at));
      std::span<float> const block = std::span(frames).first(count * channelCount);
      mRequest.source->ReadInterleaved(at, block);
      Pick(block, channelCount, mRequest.channels, samples);
      writer.Write(std::span(samples).first(count * picked));
      mFramesDone += static_cast<std::int64_t>(count);
    }
    if (mCancelled) {
      return false;
    }
    writer.Commit();
    return true;
  }

  ExportRequest mRequest;
  std::atomic<bool> mCancelled = false;
  std::atomic<std::int64_t> mFramesDone = 0;
  mutable std::mutex mMutex;
  std::condition_variable mEnded;
  State mState = State::kRunning;
  std::string mProblem;
};

SelectionExport::SelectionExport(ExportRequest request, std::shared_ptr<moxcore::threads::IExecutor> executor)
    : mJob(std::make_shared<Job>(std::move(request))) {
  auto const& runs = executor ? executor : moxcore::threads::GetCPUBoundExecutor();
  runs->Execute([job = mJob] { job->Run(); });
}

SelectionExport::~SelectionExport() {
  mJob->Cancel();
  mJob->Wait();
}

ExportRequest const& SelectionExport::Request() const {
  return mJob->Request();
}
SelectionExport::State SelectionExport::GetState() const {
  return mJob->GetState();
}
double SelectionExport::Progress() const {
  return mJob->Progress();
}
std::string SelectionExport::Problem() const {
  return mJob->Problem();
}
void SelectionExport::Cancel() {
  mJob->Cancel();
}
void SelectionExport::Wait() {
  mJob->Wait();
}

}  // namespace playground
