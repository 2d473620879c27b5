#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace moxaudiotoolkit {

struct SampleSourceProperties;

enum class WaveSampleType { kInt16, kInt24, kFloat32 };

struct WaveFormat {
  WaveSampleType type = WaveSampleType::kFloat32;
  int sampleRate = 0;       // 1 to kHighestSampleRate
  int channelCount = 0;     // 1 to kMostChannels
  std::int64_t frames = 0;  // samples per channel
  // Places of the channels' loudspeakers, as in moxmediatypes/WaveChannelMask.h; 0 tells of none.
  std::uint32_t channelMask = 0;
};

// The smallest type that keeps every sample of a source as it is: 16 or 24 bits where samples are whole
// numbers of no more, else floats.
WaveSampleType GetExactWaveType(const SampleSourceProperties& properties);

// All that stands in a WAV file (RIFF WAVE, Microsoft 1994; channels beyond two, and those that have
// places, as WAVE_FORMAT_EXTENSIBLE) before its samples; as RF64 (EBU Tech 3306) where the file is longer
// than the 32 bits of its sizes can say.
std::vector<std::uint8_t> MakeWaveHeader(const WaveFormat& format);

// A WAV file that is written piece by piece, as many frames as the format says. It takes its name, replacing
// what is there, once all is on the disk; until then, and after a failure, the old file stands as it was and
// nothing else is left. All throw AudioFileError (kNotWritable) with the system's reason, the constructor
// also when the disk has no room for the whole.
class WaveFileWriter {
 public:
  // `path` is UTF-8. Throws AudioFileError too when a file can't hold that many channels, that rate or
  // length.
  WaveFileWriter(const std::string& path, const WaveFormat& format);
  ~WaveFileWriter();
  WaveFileWriter(const WaveFileWriter&) = delete;
  WaveFileWriter& operator=(const WaveFileWriter&) = delete;

  // The next frames, channels interleaved. Whole-number types take the nearest value and limit what is beyond
  // full scale. Throws std::invalid_argument for a part of a frame and for more frames than there are to be.
  void Write(std::span<const float> samples);
  // Throws std::logic_error when frames are missing.
  void Commit();

 private:
  class File;
  std::unique_ptr<File> mFile;
};

}  // namespace moxaudiotoolkit
