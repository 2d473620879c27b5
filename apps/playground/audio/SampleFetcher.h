#pragma once

#include "shell/MainThreadBell.h"

#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <cstdint>
#include <functional>
#include <memory>

namespace playground {

// Reads samples for a view on a thread of its own, where reading takes too long for the main thread. It keeps
// those around the last view, and reads ahead when a view comes near to their end. Only the newest wish
// counts. The destructor ends the thread soon.
class SampleFetcher {
 public:
  using Source = std::shared_ptr<moxaudiotoolkit::SampleSource const>;

  // Of all channels together, kept at a time: 64 MiB.
  static constexpr std::int64_t kMostFloats = std::int64_t{1} << 24;

  // `arrived` is called on the main thread when samples that were wished for have come, or can't.
  explicit SampleFetcher(std::function<void()> arrived);
  ~SampleFetcher();

  // A source with the frames from `begin` up to but not including `end` of `source`, and some around them; it
  // throws for all others. Null as long as they aren't there, and when they can't be read. The same object as
  // long as it serves.
  Source Get(Source const& source, std::int64_t begin, std::int64_t end);
  // Returns when nothing is wished for any more; for programs without an event loop.
  void Wait();

 private:
  class Worker;
  std::unique_ptr<Worker> mWorker;
  MainThreadBell mBell;
};

}  // namespace playground
