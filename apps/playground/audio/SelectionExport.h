#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace moxaudiotoolkit {
class SampleSource;
}
namespace moxcore::threads {
class IExecutor;
}

namespace playground {

// What to write, and where.
struct ExportRequest {
  std::shared_ptr<moxaudiotoolkit::SampleSource const> source;
  std::int64_t begin = 0;  // frames, within the source; `end` is the first that isn't written
  std::int64_t end = 0;
  std::vector<std::size_t> channels;  // of the source, in the order of the file
  std::string path;                   // UTF-8; what is there is replaced
};

// A part of a sound on its way into a WAV file, sample for sample: 16 or 24 bits where the source has no
// more, floats otherwise, RF64 beyond 4 GiB. Work begins with construction, on another thread, and takes
// little memory whatever the length. The file appears whole at the end; a cancelled or failed export leaves
// what was there and nothing else. The destructor cancels and waits.
class SelectionExport {
 public:
  enum class State { kRunning, kDone, kCancelled, kFailed };

  // A null executor stands for the one for work that computes.
  explicit SelectionExport(ExportRequest request,
                           std::shared_ptr<moxcore::threads::IExecutor> executor = nullptr);
  ~SelectionExport();
  SelectionExport(SelectionExport const&) = delete;
  SelectionExport& operator=(SelectionExport const&) = delete;

  ExportRequest const& Request() const;
  State GetState() const;
  // From 0 to 1.
  double Progress() const;
  // Why it failed, localised; empty otherwise.
  std::string Problem() const;

  // Asks it to end; returns at once. What is complete by then stays.
  void Cancel();
  void Wait();

 private:
  class Job;
  std::shared_ptr<Job> mJob;
};

}  // namespace playground
