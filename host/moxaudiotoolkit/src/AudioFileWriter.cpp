#include "OpenSound.h"
#include "SystemReason.h"

#include <moxaudiotoolkit/AudioFile.h>
#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/AudioFileWriter.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <stdexcept>

namespace moxaudiotoolkit {
namespace {

constexpr std::size_t kChunkFloats = 1 << 14;  // written at a time

int SndfileFormat(AudioFileFormat format) {
  switch (format) {
    case AudioFileFormat::kWavInt16:
      return SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    case AudioFileFormat::kWavInt24:
      return SF_FORMAT_WAV | SF_FORMAT_PCM_24;
    case AudioFileFormat::kWavFloat:
      return SF_FORMAT_WAV | SF_FORMAT_FLOAT;
    case AudioFileFormat::kAiffInt16:
      return SF_FORMAT_AIFF | SF_FORMAT_PCM_16;
    case AudioFileFormat::kFlacInt16:
      return SF_FORMAT_FLAC | SF_FORMAT_PCM_16;
    case AudioFileFormat::kFlacInt24:
      return SF_FORMAT_FLAC | SF_FORMAT_PCM_24;
    case AudioFileFormat::kOggVorbis:
      return SF_FORMAT_OGG | SF_FORMAT_VORBIS;
    case AudioFileFormat::kOggOpus:
      return SF_FORMAT_OGG | SF_FORMAT_OPUS;
    case AudioFileFormat::kMp3:
      return SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III;
  }
  return 0;
}

// A file that comes to its name only once it is complete, and is gone otherwise.
class PendingFile {
 public:
  explicit PendingFile(const std::string& path) : mPath(path) {
    static std::atomic<unsigned> counter{0};
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    do {
      mTemporary = folder / (".audio-" + std::to_string(getpid()) + "-" + std::to_string(++counter) + ".tmp");
      mDescriptor = open(mTemporary.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    } while (mDescriptor < 0 && errno == EEXIST);
    if (mDescriptor < 0) {
      Throw(SystemReason(errno));
    }
  }

  ~PendingFile() {
    close(mDescriptor);
    if (!mCommitted) {
      unlink(mTemporary.c_str());
    }
  }

  PendingFile(const PendingFile&) = delete;
  PendingFile& operator=(const PendingFile&) = delete;

  int GetDescriptor() const { return mDescriptor; }

  void Commit() {
    if (fsync(mDescriptor) != 0 || std::rename(mTemporary.c_str(), mPath.c_str()) != 0) {
      Throw(SystemReason(errno));
    }
    mCommitted = true;
  }

  [[noreturn]] void Throw(const std::string& reason) const {
    throw AudioFileError(AudioFileFault::kNotWritable, mPath,
                         "$$$/moxaudiotoolkit/Error/CannotWrite=The sound file can't be written: @0.",
                         {reason});
  }

 private:
  std::string mPath;
  std::filesystem::path mTemporary;
  int mDescriptor = -1;
  bool mCommitted = false;
};

float WithinFullScale(float sample) {
  return sample > 1.0F ? 1.0F : sample < -1.0F ? -1.0F : sample == sample ? sample : 0.0F;
}

// False when not all could be written.
bool WriteSamples(SNDFILE* file, std::span<const std::vector<float>> channels, bool limited) {
  const std::size_t channelCount = channels.size();
  const std::size_t frames = channels.front().size();
  std::vector<float> chunk(std::max(kChunkFloats / channelCount, std::size_t{1}) * channelCount);
  for (std::size_t done = 0; done < frames;) {
    const std::size_t count = std::min(frames - done, chunk.size() / channelCount);
    for (std::size_t c = 0; c < channelCount; ++c) {
      for (std::size_t i = 0; i < count; ++i) {
        const float sample = channels[c][done + i];
        chunk[i * channelCount + c] = limited ? WithinFullScale(sample) : sample;
      }
    }
    const auto wanted = static_cast<sf_count_t>(count);
    if (sf_writef_float(file, chunk.data(), wanted) != wanted) {
      return false;
    }
    done += count;
  }
  return true;
}

}  // namespace

void WriteAudioFile(const std::string& path, AudioFileFormat format, int sampleRate,
                    std::span<const std::vector<float>> channels) {
  for (const std::vector<float>& channel : channels) {
    if (channel.size() != channels.front().size()) {
      throw std::invalid_argument("The channels of a sound file must be of the same length");
    }
  }
  SF_INFO info{};
  info.format = SndfileFormat(format);
  info.samplerate = sampleRate;
  info.channels = static_cast<int>(std::min<std::size_t>(channels.size(), kMostChannels + 1));
  if (info.channels > kMostChannels || sf_format_check(&info) == 0) {
    throw AudioFileError(
        AudioFileFault::kNotWritable, path,
        "$$$/moxaudiotoolkit/Error/FormatCannotHold=The format can't hold @0 channels at @1 Hz.",
        {std::to_string(channels.size()), std::to_string(sampleRate)});
  }
  PendingFile target(path);
  OpeningFault fault;
  OpenSound file = OpenSoundFile(target.GetDescriptor(), SFM_WRITE, info, fault);
  if (!file) {
    target.Throw(fault.text);
  }
  // Full scale is then 2^15 and 2^23, as in reading, so that a file that is read and written stays the same.
  sf_command(file.get(), SFC_SET_CLIPPING, nullptr, SF_TRUE);
  sf_command(file.get(), SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE);
  const bool written = WriteSamples(file.get(), channels, format != AudioFileFormat::kWavFloat);
  const std::string reason = sf_strerror(file.get());
  if (sf_close(file.release()) != 0 || !written) {
    target.Throw(reason);
  }
  target.Commit();
}

}  // namespace moxaudiotoolkit
