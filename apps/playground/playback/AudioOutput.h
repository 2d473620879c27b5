#pragma once

#include <functional>
#include <memory>
#include <span>
#include <stdexcept>

namespace playground {

struct AudioFormat {
  int sampleRate = 0;    // frames per second
  int channelCount = 0;  // interleaved
  int blockFrames = 0;   // frames that are asked for at a time, about

  bool operator==(AudioFormat const&) const = default;
};

// Why an output can't be opened or started, in the words of whoever drives it.
class AudioOutputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Somewhere to send samples to: a device, or what stands for one. It asks for what is to be played, on a
// thread of its own. All operations belong to one thread, that of the user interface.
class AudioOutput {
 public:
  // Fills the span, whole frames of interleaved samples. It is called on the output's thread, at most once at
  // a time, and must neither wait nor allocate.
  using PullFunction = std::function<void(std::span<float>)>;

  AudioOutput() = default;
  virtual ~AudioOutput();
  AudioOutput(AudioOutput const&) = delete;
  AudioOutput& operator=(AudioOutput const&) = delete;

  // Opens, stopped at first, and gives the format in which `pull` is going to be asked, which may differ from
  // the wanted one in all but the channels. Closes what was open before. Throws AudioOutputError.
  virtual AudioFormat Open(AudioFormat const& wanted, PullFunction pull) = 0;
  // Nothing is asked for once this has returned.
  virtual void Close() = 0;
  virtual bool IsOpen() const = 0;

  // Throws AudioOutputError.
  virtual void Start() = 0;
  // Nothing is asked for once this has returned, until it is started again.
  virtual void Stop() = 0;
  // Seconds from asking for a frame to its being heard, as well as the output knows.
  virtual double Latency() const = 0;
  // Whether the device has gone, or has failed, since it was opened.
  virtual bool IsLost() const = 0;
};

}  // namespace playground
