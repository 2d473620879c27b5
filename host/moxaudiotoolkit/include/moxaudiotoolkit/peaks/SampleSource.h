#pragma once

#include <moxmediatypes/AudioChannels.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace moxaudiotoolkit {

class DecodedAudio;

struct SampleSourceProperties {
  std::int64_t frames = 0;  // samples per channel
  int sampleRate = 0;       // frames per second
  int channelCount = 0;
  int integerBits = 0;  // of samples that are whole numbers; 0 when they are floats or compressed with loss
  std::string format = {};  // of a file: container and encoding in words, for display
  moxmediatypes::AudioChannelLayout channelLayout = {};  // one for each channel, or none where nobody says
};

// A channel's points, one for each 64 frames: smallest and largest sample and the sum of the squares. Whoever
// hands one out says how many there are.
struct PeakRun {
  float* minimum = nullptr;
  float* maximum = nullptr;
  float* sumOfSquares = nullptr;
};

inline constexpr int kSamplesPerPoint = 64;

// Audio that is read piece by piece: a file, a recording that is in memory, one that is made up. May be used
// from several threads at once. Samples are floats with full scale 1.0 and harmless as those of AudioFile.
class SampleSource {
 public:
  explicit SampleSource(const SampleSourceProperties& properties) : mProperties(properties) {}
  virtual ~SampleSource();
  SampleSource(const SampleSource&) = delete;
  SampleSource& operator=(const SampleSource&) = delete;

  const SampleSourceProperties& GetProperties() const { return mProperties; }
  // False where reading is a decoding from one end to the other, which more threads don't speed up and which
  // is best left to one that goes forward.
  virtual bool IsParallel() const { return true; }
  // Where reading elsewhere than behind the last reading has to begin decoding to get at `frame`: before it
  // where a jump is a decoding of what lies before. Whoever wants to be able to stop reads its way from there
  // in pieces.
  virtual std::int64_t FindStart(std::int64_t frame) const { return frame; }

  // Fills `destination`, channels interleaved, with whole frames from `firstFrame` on, all of which lie
  // within the audio. Throws when they can't be read.
  virtual void ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const = 0;
  // Fills one run per channel with the points of `frameCount` frames from `firstFrame`, a multiple of 64, on;
  // the last point may be of fewer than 64. The same as scanning what ReadInterleaved gives, which it
  // does unless a source has a faster way.
  virtual void ReadPeaks(std::int64_t firstFrame, std::int64_t frameCount,
                         std::span<const PeakRun> runs) const;

 private:
  SampleSourceProperties mProperties;
};

// The sound file at `path`, UTF-8. Uncompressed WAV, RF64, Wave64 and AIFF files of 16 and 24 bits and
// of floats are read without a decoder, by as many threads as ask; every other format is decoded by one at a
// time. Throws AudioFileError, also later while reading, when the file was cut short meanwhile.
// `cancelled` as for AudioFile.
std::shared_ptr<const SampleSource> OpenSampleSource(const std::string& path,
                                                     const std::atomic<bool>* cancelled = nullptr);

// What is in memory already.
std::shared_ptr<const SampleSource> MakeSampleSource(std::shared_ptr<const DecodedAudio> audio);

}  // namespace moxaudiotoolkit
