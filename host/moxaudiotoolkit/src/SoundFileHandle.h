#pragma once

#include "OpenSound.h"

#include <moxmediatypes/AudioChannels.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace moxaudiotoolkit {

// What libsndfile says of a file as a whole, unchecked.
struct SoundFileHeader {
  std::int64_t frames = 0;
  int sampleRate = 0;
  int channelCount = 0;
  bool seekable = false;  // sample by sample
  std::int64_t preroll =
      0;  // frames to decode before a place until samples are those of a decoding from the start
  std::string format;
  int integerBits = 0;         // of whole-number samples kept without loss; 0 for all others
  std::int64_t byteCount = 0;  // of the file
  moxmediatypes::AudioChannelLayout channelLayout;  // empty where the file doesn't say
};

// One opening of a sound file by libsndfile, from a path or from memory. Throws AudioFileError where it can't
// be opened; says nothing about whether the header is sensible.
class SoundFileHandle {
 public:
  using Bytes = std::shared_ptr<const std::vector<std::uint8_t>>;

  explicit SoundFileHandle(const std::string& path);
  SoundFileHandle(const Bytes& bytes, const std::string& name);
  ~SoundFileHandle();
  SoundFileHandle(const SoundFileHandle&) = delete;
  SoundFileHandle& operator=(const SoundFileHandle&) = delete;

  const SoundFileHeader& GetHeader() const { return mHeader; }
  // False when the file couldn't be moved to `frame`; the position is unknown then.
  bool Seek(std::int64_t frame);
  // Reads the next frames, at most `frameCount`, interleaved. 0 at the end and after an error.
  std::int64_t Read(float* destination, std::int64_t frameCount);

 private:
  struct MemoryStream;

  void ReadHeader(const SF_INFO& info);

  std::unique_ptr<MemoryStream> mStream;
  OpenSound mFile;  // reads the stream
  SoundFileHeader mHeader;
};

}  // namespace moxaudiotoolkit
