#pragma once

#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace playground {

// The making of a file, on a thread of its own from construction on: in a pool it would wait, with all who
// wait for its end, until long sounds are read. What makes it writes beside the file, which appears whole at
// the end: a cancelled or failed export leaves what was there and nothing else. The destructor cancels and
// waits.
class FileExport {
 public:
  enum class State { kRunning, kDone, kCancelled, kFailed };
  // Is told how far the work is, from 0 to 1; false when it is to end.
  using Report = std::function<bool(double done)>;
  // Does the work; false when a report had it end. Throws when it fails.
  using Work = std::function<bool(Report const& report)>;

  // `path` is UTF-8, and only what the export is known by.
  FileExport(std::string path, Work work);
  ~FileExport();
  FileExport(FileExport const&) = delete;
  FileExport& operator=(FileExport const&) = delete;

  std::string const& Path() const;
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
  std::unique_ptr<Job> mJob;
  std::thread mThread;
};

}  // namespace playground
