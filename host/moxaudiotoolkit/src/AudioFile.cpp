#include "HarmlessSamples.h"
#include "PlaceMarks.h"
#include "SoundFileHandle.h"

#include <moxaudiotoolkit/AudioFile.h>
#include <moxaudiotoolkit/AudioFileError.h>

#include <algorithm>
#include <limits>
#include <optional>
#include <stdexcept>
#include <utility>

namespace moxaudiotoolkit {
namespace {

constexpr std::size_t kChunkFloats = 1 << 14;  // read at a time: stays in the processor's cache

// No encoding holds more frames in a byte: FLAC, the densest, reaches about 5000 for silence.
constexpr std::int64_t kMostFramesPerByte = 1 << 16;
constexpr std::int64_t kMostFrames = std::int64_t{1} << 53;

std::int64_t MostFramesIn(std::int64_t byteCount) {
  return byteCount > kMostFrames / kMostFramesPerByte ? kMostFrames : byteCount * kMostFramesPerByte;
}

std::int64_t ChunkFrames(int channelCount) {
  return static_cast<std::int64_t>(kChunkFloats) / channelCount;
}

void CheckHeader(const SoundFileHeader& header, const std::string& name) {
  if (header.channelCount < 1 || header.channelCount > kMostChannels) {
    throw AudioFileError(
        AudioFileFault::kBadChannelCount, name,
        "$$$/moxaudiotoolkit/Error/Channels=The file has @0 channels; from 1 to @1 can be read.",
        {std::to_string(header.channelCount), std::to_string(kMostChannels)});
  }
  if (header.sampleRate < 1 || header.sampleRate > kHighestSampleRate) {
    throw AudioFileError(AudioFileFault::kBadSampleRate, name,
                         "$$$/moxaudiotoolkit/Error/SampleRate=The sample rate of @0 Hz makes no sense.",
                         {std::to_string(header.sampleRate)});
  }
  const bool known = header.frames != std::numeric_limits<std::int64_t>::max();
  if (header.frames < 0 || (known && header.frames > MostFramesIn(header.byteCount))) {
    throw AudioFileError(
        AudioFileFault::kDamaged, name,
        "$$$/moxaudiotoolkit/Error/Frames=The file claims @0 frames, which its @1 bytes can't hold.",
        {std::to_string(header.frames), std::to_string(header.byteCount)});
  }
}

}  // namespace

class AudioFile::Reader {
 public:
  Reader(std::string name, SoundFileHandle::Bytes bytes, const std::atomic<bool>* cancelled,
         std::shared_ptr<PlaceMarks> marks)
      : mName(std::move(name)), mBytes(std::move(bytes)), mMarks(std::move(marks)) {
    Reopen();
    const SoundFileHeader& header = mHandle->GetHeader();
    CheckHeader(header, mName);
    mSeekable = header.seekable;
    mProperties.sampleRate = header.sampleRate;
    mProperties.channelCount = header.channelCount;
    mProperties.format = header.format;
    mProperties.jumpsFast = header.seekable;
    mProperties.integerBits = header.integerBits;
    mProperties.channelLayout = header.channelLayout;
    // Streams are written before their length is known; only their end tells it.
    const bool known = header.frames != std::numeric_limits<std::int64_t>::max();
    mProperties.frames = known ? header.frames : CountFrames(MostFramesIn(header.byteCount), cancelled);
    mProperties.duration = static_cast<double>(mProperties.frames) / mProperties.sampleRate;
    if (!mSeekable && !mMarks) {
      mMarks = std::make_shared<PlaceMarks>(mProperties.channelCount);
    }
  }

  std::unique_ptr<Reader> OpenAgain() const {
    return std::make_unique<Reader>(mName, mBytes, nullptr, mMarks);
  }
  std::int64_t GetDecodedFrames() const { return mDecodedFrames; }

  std::int64_t FindStart(std::int64_t frame) const {
    if (mSeekable) {
      return frame;
    }
    const auto mark = mMarks->FindMark(frame);
    return mark ? *mark + PlaceMarks::kSearchFrames : 0;
  }

  const AudioFileProperties& GetProperties() const { return mProperties; }
  const std::string& GetName() const { return mName; }
  // Of the file, as it was opened.
  std::int64_t GetByteCount() const { return mHandle->GetHeader().byteCount; }

  // Reads exactly these frames, which must lie within the file.
  void Read(std::int64_t firstFrame, float* destination, std::int64_t frameCount) {
    MoveTo(firstFrame);
    std::int64_t done = 0;
    while (done < frameCount) {
      const std::int64_t got =
          Decode(destination + done * mProperties.channelCount, frameCount - done, firstFrame + done);
      if (got == 0) {
        ThrowTruncated(firstFrame + done);
      }
      done += got;
    }
    mPosition = firstFrame + frameCount;
  }

 private:
  void Reopen() {
    mHandle.reset();
    if (mBytes) {
      mHandle.emplace(mBytes, mName);
    } else {
      mHandle.emplace(mName);
    }
    mPosition = 0;
  }

  // The next frames, of which the first is `frame`.
  std::int64_t Decode(float* destination, std::int64_t frameCount, std::int64_t frame) {
    const std::int64_t got = mHandle->Read(destination, frameCount);
    mDecodedFrames += got;
    if (mMarks) {
      mMarks->Note(frame, {destination, static_cast<std::size_t>(got * mProperties.channelCount)});
    }
    return got;
  }

  void MoveTo(std::int64_t frame) {
    const std::int64_t start = std::max<std::int64_t>(frame - mHandle->GetHeader().preroll, 0);
    if (!mSeekable) {
      JumpToMark(frame);
    }
    if (!mPosition || *mPosition > frame || (mSeekable && *mPosition < start)) {
      StartFrom(start);
    }
    std::vector<float> skipped(*mPosition < frame ? kChunkFloats : 0);
    while (*mPosition < frame) {
      const std::int64_t wanted = std::min(frame - *mPosition, ChunkFrames(mProperties.channelCount));
      const std::int64_t got = Decode(skipped.data(), wanted, *mPosition);
      if (got == 0) {
        ThrowTruncated(*mPosition);
      }
      *mPosition += got;
    }
  }

  // Goes to a place before `frame` that was decoded earlier, if that is nearer; where it can't be found the
  // position is unknown.
  void JumpToMark(std::int64_t frame) {
    const auto mark = mMarks->FindMark(frame);
    const bool isNearer = mark && (!mPosition || *mPosition > frame || *mPosition < *mark);
    if (!isNearer) {
      return;
    }
    mPosition.reset();
    if (!mHandle->Seek(std::max<std::int64_t>(*mark - PlaceMarks::kFarthestMiss, 0))) {
      return;
    }
    const auto channelCount = static_cast<std::size_t>(mProperties.channelCount);
    std::vector<float> around(static_cast<std::size_t>(PlaceMarks::kSearchFrames) * channelCount);
    std::int64_t count = 0;
    while (count < PlaceMarks::kSearchFrames) {
      const std::int64_t got = mHandle->Read(around.data() + static_cast<std::size_t>(count) * channelCount,
                                             PlaceMarks::kSearchFrames - count);
      if (got == 0) {
        break;
      }
      count += got;
    }
    mDecodedFrames += count;
    const auto place = mMarks->FindIn(
        std::span<const float>(around).first(static_cast<std::size_t>(count) * channelCount), *mark);
    if (place) {
      mPosition = *mark - *place + count;
    }
  }

  // Winds to this frame or, where that can't be, to the beginning.
  void StartFrom(std::int64_t frame) {
    if (mSeekable && mHandle->Seek(frame)) {
      mPosition = frame;
    } else {
      ReopenUnchanged();
    }
  }

  // Another file may stand at the path by now; its channels wouldn't fit what callers were told.
  void ReopenUnchanged() {
    Reopen();
    const SoundFileHeader& header = mHandle->GetHeader();
    if (header.channelCount != mProperties.channelCount || header.sampleRate != mProperties.sampleRate) {
      mPosition.reset();
      throw AudioFileError(AudioFileFault::kDamaged, mName,
                           "$$$/moxaudiotoolkit/Error/Replaced=The file was replaced while it was read.");
    }
  }

  std::int64_t CountFrames(std::int64_t most, const std::atomic<bool>* cancelled) {
    std::vector<float> skipped(kChunkFloats);
    std::int64_t count = 0;
    while (const std::int64_t got = mHandle->Read(skipped.data(), ChunkFrames(mProperties.channelCount))) {
      count += got;
      if (count > most) {
        throw AudioFileError(AudioFileFault::kDamaged, mName,
                             "$$$/moxaudiotoolkit/Error/Endless=The sound never ends.");
      }
      if (cancelled != nullptr && *cancelled) {
        throw AudioFileError(AudioFileFault::kCancelled, mName,
                             "$$$/moxaudiotoolkit/Error/Cancelled=The opening was cancelled.");
      }
    }
    Reopen();
    return count;
  }

  [[noreturn]] void ThrowTruncated(std::int64_t frame) {
    mPosition.reset();
    throw AudioFileError(
        AudioFileFault::kTruncated, mName,
        "$$$/moxaudiotoolkit/Error/Truncated=The sound ends or can't be decoded after @0 of @1 frames.",
        {std::to_string(frame), std::to_string(mProperties.frames)});
  }

  std::string mName;
  SoundFileHandle::Bytes mBytes;
  std::optional<SoundFileHandle> mHandle;
  bool mSeekable = false;
  std::optional<std::int64_t> mPosition;  // frame that comes next; unknown after an error
  std::int64_t mDecodedFrames = 0;
  std::shared_ptr<PlaceMarks> mMarks;  // null where jumps are exact
  AudioFileProperties mProperties;
};

AudioFile::AudioFile(const std::string& path, const std::atomic<bool>* cancelled)
    : mReader(std::make_unique<Reader>(path, nullptr, cancelled, nullptr)) {}

AudioFile::AudioFile(std::vector<std::uint8_t> bytes, const std::string& name)
    : mReader(std::make_unique<Reader>(
          name, std::make_shared<const std::vector<std::uint8_t>>(std::move(bytes)), nullptr, nullptr)) {}

AudioFile::AudioFile(std::unique_ptr<Reader> reader) : mReader(std::move(reader)) {}

AudioFile::~AudioFile() = default;
AudioFile::AudioFile(AudioFile&&) noexcept = default;
AudioFile& AudioFile::operator=(AudioFile&&) noexcept = default;

AudioFile AudioFile::OpenAgain() const {
  return AudioFile(mReader->OpenAgain());
}

std::int64_t AudioFile::FindStart(std::int64_t frame) const {
  return mReader->FindStart(frame);
}

std::int64_t AudioFile::GetDecodedFrames() const {
  return mReader->GetDecodedFrames();
}

const AudioFileProperties& AudioFile::GetProperties() const {
  return mReader->GetProperties();
}

const std::string& AudioFile::GetName() const {
  return mReader->GetName();
}

std::int64_t AudioFile::ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) {
  if (firstFrame < 0) {
    throw std::out_of_range("Sound is read from frame 0 on, not from " + std::to_string(firstFrame));
  }
  const AudioFileProperties& properties = GetProperties();
  const auto channelCount = static_cast<std::size_t>(properties.channelCount);
  const auto room = static_cast<std::int64_t>(destination.size() / channelCount);
  const std::int64_t count = std::min(room, std::max<std::int64_t>(properties.frames - firstFrame, 0));
  if (count > 0) {
    mReader->Read(firstFrame, destination.data(), count);
    MakeHarmless(destination.first(static_cast<std::size_t>(count) * channelCount));
  }
  return count;
}

std::vector<std::vector<float>> AudioFile::ReadChannels(std::int64_t firstFrame, std::int64_t frameCount) {
  const AudioFileProperties& properties = GetProperties();
  const auto channelCount = static_cast<std::size_t>(properties.channelCount);
  const std::int64_t available =
      std::max<std::int64_t>(properties.frames - std::max<std::int64_t>(firstFrame, 0), 0);
  const auto total = static_cast<std::size_t>(std::clamp<std::int64_t>(frameCount, 0, available));
  std::vector<std::vector<float>> channels(channelCount);
  // A sample to a byte of the file is what uncompressed sound needs at most; more is taken as it comes.
  const std::size_t surely =
      std::min(total, static_cast<std::size_t>(mReader->GetByteCount()) / channelCount);
  for (std::vector<float>& samples : channels) {
    samples.reserve(surely);
  }
  std::vector<float> chunk(static_cast<std::size_t>(ChunkFrames(properties.channelCount)) * channelCount);
  std::size_t done = 0;
  do {
    const std::size_t wanted = std::min(total - done, chunk.size() / channelCount);
    const auto got = static_cast<std::size_t>(ReadInterleaved(firstFrame + static_cast<std::int64_t>(done),
                                                              std::span(chunk).first(wanted * channelCount)));
    for (std::size_t c = 0; c < channelCount; ++c) {
      std::vector<float>& samples = channels[c];
      if (samples.capacity() < done + got) {
        samples.reserve(std::min(total, std::max(done + got, samples.capacity() * 2)));
      }
      samples.resize(done + got);
      for (std::size_t i = 0; i < got; ++i) {
        samples[done + i] = chunk[i * channelCount + c];
      }
    }
    done += got;
  } while (done < total);
  return channels;
}

}  // namespace moxaudiotoolkit
