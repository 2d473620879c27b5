#pragma once

#include <moxmediatypes/AudioChannels.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace moxaudiotoolkit {

// Files beyond these are refused: no such recording exists, so that the header must be wrong.
inline constexpr int kMostChannels = 256;
inline constexpr int kHighestSampleRate = 10'000'000;

// Every sample read lies within plus and minus this value, +96 dB above full scale: infinities and larger
// values are set to it, and what is not a number to 0, so that arithmetic on samples stays harmless.
inline constexpr float kLargestSample = 65536.0F;

struct AudioFileProperties {
  std::int64_t frames = 0;  // samples per channel
  int sampleRate = 0;       // frames per second
  int channelCount = 0;
  std::string format;     // container and encoding in words, for display
  double duration = 0.0;  // seconds
  bool jumpsFast =
      true;             // false where a jump is a decoding of all that lies before, if that was never decoded
  int integerBits = 0;  // of whole-number samples kept without loss; 0 for all others
  // What the channels are for; empty where the file doesn't say. Else there is one for each of them.
  moxmediatypes::AudioChannelLayout channelLayout;
};

// A sound file, open for reading: WAV, AIFF, FLAC, Ogg Vorbis, Opus, MP3 and what else of that kind can be
// decoded. Samples are floats with full scale 1.0, whatever the file holds; files of any length are read
// piece by piece. Contents are never trusted: memory is taken for samples that were read, not for those that
// a header promises. Every range gives the samples that a reading of the whole would; in a few encodings (Ogg
// Vorbis, old telephone codecs) a jump costs a decoding from the start, in Ogg Vorbis only to where the file
// was never decoded before. Operations throw AudioFileError. Not
// for use from two threads at once.
class AudioFile {
 public:
  // Opens the file at `path`, UTF-8. Where the length of a sound isn't told by its header it is decoded to
  // its end, which is given up (kCancelled) once `cancelled` is true; it isn't looked at later.
  explicit AudioFile(const std::string& path, const std::atomic<bool>* cancelled = nullptr);
  // Opens a file that is held in memory; `name` stands for it in errors.
  AudioFile(std::vector<std::uint8_t> bytes, const std::string& name);
  ~AudioFile();
  AudioFile(AudioFile&&) noexcept;
  AudioFile& operator=(AudioFile&&) noexcept;

  const AudioFileProperties& GetProperties() const;
  // The path or name as given.
  const std::string& GetName() const;

  // The same file once more, for another thread or another place. Both know what the other has decoded, and
  // so where they can jump. Throws as the constructor does.
  AudioFile OpenAgain() const;
  // Where decoding has to begin to get at `frame`, as far as is known by now: there itself where jumps are
  // fast.
  std::int64_t FindStart(std::int64_t frame) const;
  // How many frames were decoded so far for what was read, and on the way there.
  std::int64_t GetDecodedFrames() const;

  // Reads frames from `firstFrame` on into `destination`, channels interleaved, as many whole frames as it
  // holds. Returns the number of frames read, smaller only where the file ends. A file that ends before its
  // promised length, or shrinks while it is read, is a kTruncated error. Throws std::out_of_range when
  // `firstFrame` is negative; from the end of the file on there are 0 frames.
  std::int64_t ReadInterleaved(std::int64_t firstFrame, std::span<float> destination);
  // The same, as one vector per channel. At most `frameCount` frames.
  std::vector<std::vector<float>> ReadChannels(std::int64_t firstFrame, std::int64_t frameCount);

 private:
  class Reader;
  explicit AudioFile(std::unique_ptr<Reader> reader);

  std::unique_ptr<Reader> mReader;
};

}  // namespace moxaudiotoolkit
