#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace moxcore::threads {
class IExecutor;
}

namespace moxaudiotoolkit {

class PeakPyramid;
class SampleSource;

struct PeakBuildOptions {
  int threadCount = 0;  // at most so many at once; 0: as many as the executor has
  // Called on the threads that build, one call at a time: at most each 40 ms while points arrive and once at
  // the end. Must not destroy the builder.
  std::function<void()> onProgress = nullptr;
  // Null: the one for work that computes.
  std::shared_ptr<moxcore::threads::IExecutor> executor = nullptr;
};

// The making of a peak pyramid, which begins with construction and goes from the start of the audio to its
// end on several threads. The pyramid may be looked at all the while, and after a cancelled or failed
// build shows what was read. The destructor cancels and waits, so that no thread works on after it.
class PeakBuilder {
 public:
  enum class State { kRunning, kDone, kCancelled, kFailed };

  explicit PeakBuilder(std::shared_ptr<const SampleSource> source, PeakBuildOptions options = {});
  ~PeakBuilder();
  PeakBuilder(const PeakBuilder&) = delete;
  PeakBuilder& operator=(const PeakBuilder&) = delete;

  // Never null.
  std::shared_ptr<const PeakPyramid> GetPyramid() const;
  State GetState() const;
  // Why building failed, localised; empty otherwise.
  std::string GetProblem() const;
  // The same without the name of the file, where there is one.
  std::string GetReason() const;
  // From 0 to 1.
  double GetProgress() const;

  // Asks the build to end; returns at once. May be called on any thread, at any time.
  void Cancel();
  // Returns when no thread works on the build any more. Takes a share of the work.
  void Wait();

 private:
  class Job;
  std::shared_ptr<Job> mJob;
};

}  // namespace moxaudiotoolkit
