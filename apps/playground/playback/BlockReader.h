#pragma once

#include "playback/SourceWalk.h"
#include "playback/StereoMix.h"

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <thread>
#include <vector>

namespace moxaudiotoolkit {
class SampleSource;
}

namespace playground {

class BlockStore;

// Reads ahead of playback, on a thread of its own, which ends with it: whatever a walk is about to come to is
// read, folded to stereo and put into the store.
class BlockReader {
 public:
  // `whereabouts` gives the walk from where playback is about to go on; it is called on the thread, and is to
  // return at once. It and the store outlive the reader.
  BlockReader(std::shared_ptr<moxaudiotoolkit::SampleSource const> source, std::vector<StereoGain> mix,
              BlockStore& store, std::function<SourceWalk()> whereabouts);
  // Waits for what is being read at the moment.
  ~BlockReader();
  BlockReader(BlockReader const&) = delete;
  BlockReader& operator=(BlockReader const&) = delete;

  // While it runs it looks by itself how far playback is; else at each Wake only.
  void SetRunning(bool running);
  void Wake();
  void SetMix(std::vector<StereoGain> mix);
  // Returns when all that is to be had ahead of playback has been read. False when that failed.
  bool WaitUntilRead();
  // Why reading failed, after which nothing more is read.
  std::optional<std::string> Failure() const;

 private:
  void Run();
  void Serve(std::vector<StereoGain> const& mix);
  void ReadAround(std::int64_t block, std::vector<std::int64_t> const& wanted);
  std::vector<std::int64_t> Wanted() const;
  bool IsEnding() const;

  std::shared_ptr<moxaudiotoolkit::SampleSource const> mSource;
  BlockStore& mStore;
  std::function<SourceWalk()> mWhereabouts;

  mutable std::mutex mMutex;
  std::condition_variable mAsked;
  std::condition_variable mAnswered;
  std::uint64_t mRequest = 0;
  std::uint64_t mServed = 0;
  bool mIsRunning = false;
  bool mEnds = false;
  std::vector<StereoGain> mMix;
  std::optional<std::string> mFailure;

  // Of the thread alone.
  std::vector<StereoGain> mCurrentMix;
  std::vector<float> mFrames;
  std::vector<float> mPairs;

  std::thread mThread;  // last: begins when all else is there
};

}  // namespace playground
