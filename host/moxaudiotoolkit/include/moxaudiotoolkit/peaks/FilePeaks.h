#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <string>

namespace moxcore::threads {
class IExecutor;
}

namespace moxaudiotoolkit {

class PeakCache;
class PeakPyramid;
class SampleSource;

struct FilePeaksOptions {
  std::shared_ptr<const PeakCache> cache = nullptr;  // null: nothing is kept
  // Called on other threads whenever there is more or something else to draw, or the state has changed. Must
  // not destroy the object.
  std::function<void()> onChange = nullptr;
  int threadCount = 0;  // of building: at most so many; 0: as many as the executor has
  std::shared_ptr<moxcore::threads::IExecutor> executor = nullptr;  // null: the one for work that computes
  // How the samples of the file are read; called on another thread, and throws why they can't be. Null:
  // OpenSampleSource.
  std::function<std::shared_ptr<const SampleSource>(const std::string& path)> open = nullptr;
  // For a file of peaks without samples: makes its pyramid in place of all the above. Called on another
  // thread; throws why there is none, AudioFileFault::kCancelled soon after `cancelled` has become true.
  std::function<std::shared_ptr<const PeakPyramid>(const std::string& path,
                                                   const std::atomic<bool>& cancelled)>
      readPeaks = nullptr;
};

// The peaks of a sound file for as long as someone looks at it. From construction on they come from the
// cache, and are checked in the background against the whole file, or are built and then kept. The destructor
// cancels and waits. All but construction, PollForChange, Restart, Wait and destruction may be called on any
// thread.
class FilePeaks {
 public:
  enum class State {
    kOpening,
    kBuilding,   // the pyramid grows
    kStoring,    // it is complete, and on its way to the cache
    kVerifying,  // it came from the cache, and the file is being compared
    kDone,
    kCancelled,
    kFailed,  // what there is of the pyramid stays
  };

  explicit FilePeaks(std::string path, FilePeaksOptions options = {});
  ~FilePeaks();
  FilePeaks(const FilePeaks&) = delete;
  FilePeaks& operator=(const FilePeaks&) = delete;

  // Both null until the file has been opened; the pyramid follows the source once it is begun. Both are
  // replaced together when it is built anew. A file of peaks has no source.
  std::shared_ptr<const PeakPyramid> GetPyramid() const;
  std::shared_ptr<const SampleSource> GetSource() const;
  State GetState() const;
  // Of the pyramid, from 0 to 1.
  double GetProgress() const;
  // Why opening or building failed; else why nothing could be kept; empty when all is well. Localised.
  std::string GetProblem() const;
  // The same without the name of the file.
  std::string GetReason() const;
  bool CameFromCache() const;

  // Ends all work soon. What is there stays.
  void Cancel();
  // Returns when all work has ended.
  void Wait();
  // Looks whether the file has changed since it was opened, which costs a microsecond. Then begins anew, with
  // the old picture until the file has been opened again, and returns true. While the file is being read it
  // has to have stood still since the last poll: one that grows on and on is read to its end before it is
  // begun anew.
  bool PollForChange();
  // The same whether it has changed or not, as after a cancelled or failed build. Both return at once: what
  // runs is cancelled and followed by the new work.
  void Restart();

 private:
  class Worker;
  std::unique_ptr<Worker> mWorker;
};

}  // namespace moxaudiotoolkit
