#include "SoundFileHandle.h"

#include "CutShort.h"
#include "SystemReason.h"

#include <moxaudiotoolkit/AudioFile.h>
#include <moxaudiotoolkit/AudioFileError.h>
#include <moxmediatypes/WaveChannelMask.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <iterator>
#include <span>

namespace moxaudiotoolkit {
namespace {

// Frames of MPEG layer III take bits from frames before them. Measured: 4096 frames are too few at times.
constexpr std::int64_t kMpegPreroll = 16384;

AudioFileFault FaultOfOpening(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
      return AudioFileFault::kNotFound;
    case ENXIO:
    case ENODEV:
      return AudioFileFault::kNotAFile;
    default:
      return AudioFileFault::kNotReadable;
  }
}

class Descriptor {
 public:
  explicit Descriptor(int number) : mNumber(number) {}
  ~Descriptor() { close(mNumber); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int Get() const { return mNumber; }

 private:
  int mNumber;
};

int OpenDescriptor(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos) {
    throw AudioFileError(AudioFileFault::kNotFound, path,
                         "$$$/moxaudiotoolkit/Error/NotAPath=The path is empty or not a path.");
  }
  // Without waiting: the opening of a pipe nobody writes to would never return.
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (descriptor < 0) {
    const int error = errno;
    throw AudioFileError(FaultOfOpening(error), path,
                         "$$$/moxaudiotoolkit/Error/CannotOpen=The file can't be opened: @0.",
                         {SystemReason(error)});
  }
  return descriptor;
}

std::int64_t SizeOfRegularFile(int descriptor, const std::string& path) {
  struct stat status {};
  if (fstat(descriptor, &status) != 0) {
    throw AudioFileError(AudioFileFault::kNotReadable, path,
                         "$$$/moxaudiotoolkit/Error/CannotRead=The file can't be read: @0.",
                         {SystemReason(errno)});
  }
  if (!S_ISREG(status.st_mode)) {
    throw AudioFileError(
        AudioFileFault::kNotAFile, path,
        S_ISDIR(status.st_mode)
            ? "$$$/moxaudiotoolkit/Error/Folder=This is a folder, not a sound file."
            : "$$$/moxaudiotoolkit/Error/Device=This is a pipe or a device, not a sound file.");
  }
  if (status.st_size == 0) {
    throw AudioFileError(AudioFileFault::kEmpty, path, "$$$/moxaudiotoolkit/Error/Empty=The file is empty.");
  }
  return status.st_size;
}

void CheckNotCutShort(const ReadBytesAt& readBytesAt, std::int64_t byteCount, const std::string& name) {
  if (IsCutShort(readBytesAt, byteCount)) {
    throw AudioFileError(AudioFileFault::kTruncated, name,
                         "$$$/moxaudiotoolkit/Error/CutShort=The file is cut short: its end is missing.");
  }
}

[[noreturn]] void ThrowOpeningError(const OpeningFault& fault, const std::string& name) {
  const std::string& text = fault.text;
  if (text.find("hannel") != std::string::npos) {
    throw AudioFileError(AudioFileFault::kBadChannelCount, name,
                         "$$$/moxaudiotoolkit/Error/ChannelCount=The number of channels is wrong: @0",
                         {text});
  }
  if (text.find("SF_INFO struct incomplete") != std::string::npos) {
    throw AudioFileError(
        AudioFileFault::kBadSampleRate, name,
        "$$$/moxaudiotoolkit/Error/ImpossibleHeader=The header gives an impossible sample rate or length.");
  }
  switch (fault.code) {
    case SF_ERR_UNRECOGNISED_FORMAT:
    case SF_ERR_UNSUPPORTED_ENCODING:
      throw AudioFileError(
          AudioFileFault::kNotAudio, name,
          "$$$/moxaudiotoolkit/Error/NotAudio=The file is not a sound file of a known format. @0", {text});
    case SF_ERR_SYSTEM:
      throw AudioFileError(AudioFileFault::kNotReadable, name,
                           "$$$/moxaudiotoolkit/Error/CannotRead=The file can't be read: @0.", {text});
    default:
      throw AudioFileError(AudioFileFault::kDamaged, name,
                           "$$$/moxaudiotoolkit/Error/Damaged=The sound file is damaged. @0", {text});
  }
}

std::string FormatName(int command, int format) {
  SF_FORMAT_INFO info{};
  info.format = format;
  if (sf_command(nullptr, command, &info, sizeof info) != 0 || info.name == nullptr) {
    return {};
  }
  return info.name;
}

int IntegerBits(int format) {
  switch (format & SF_FORMAT_SUBMASK) {
    case SF_FORMAT_PCM_S8:
    case SF_FORMAT_PCM_U8:
      return 8;
    case SF_FORMAT_PCM_16:
    case SF_FORMAT_ALAC_16:
      return 16;
    case SF_FORMAT_ALAC_20:
      return 20;
    case SF_FORMAT_PCM_24:
    case SF_FORMAT_ALAC_24:
      return 24;
    default:
      return 0;
  }
}

// libsndfile's names of the loudspeakers, by their bits in the mask of a WAV file.
constexpr std::array<int, moxmediatypes::kWavePlaceCount> kPlaces = {SF_CHANNEL_MAP_FRONT_LEFT,
                                                                     SF_CHANNEL_MAP_FRONT_RIGHT,
                                                                     SF_CHANNEL_MAP_FRONT_CENTER,
                                                                     SF_CHANNEL_MAP_LFE,
                                                                     SF_CHANNEL_MAP_REAR_LEFT,
                                                                     SF_CHANNEL_MAP_REAR_RIGHT,
                                                                     SF_CHANNEL_MAP_FRONT_LEFT_OF_CENTER,
                                                                     SF_CHANNEL_MAP_FRONT_RIGHT_OF_CENTER,
                                                                     SF_CHANNEL_MAP_REAR_CENTER,
                                                                     SF_CHANNEL_MAP_SIDE_LEFT,
                                                                     SF_CHANNEL_MAP_SIDE_RIGHT,
                                                                     SF_CHANNEL_MAP_TOP_CENTER,
                                                                     SF_CHANNEL_MAP_TOP_FRONT_LEFT,
                                                                     SF_CHANNEL_MAP_TOP_FRONT_CENTER,
                                                                     SF_CHANNEL_MAP_TOP_FRONT_RIGHT,
                                                                     SF_CHANNEL_MAP_TOP_REAR_LEFT,
                                                                     SF_CHANNEL_MAP_TOP_REAR_CENTER,
                                                                     SF_CHANNEL_MAP_TOP_REAR_RIGHT};

int PlaceOf(int name) {
  switch (name) {
    case SF_CHANNEL_MAP_LEFT:
      return 0;
    case SF_CHANNEL_MAP_RIGHT:
      return 1;
    case SF_CHANNEL_MAP_CENTER:
      return 2;
    default: {
      const auto* const found = std::ranges::find(kPlaces, name);
      return found == kPlaces.end() ? -1 : static_cast<int>(std::distance(kPlaces.begin(), found));
    }
  }
}

moxmediatypes::AudioChannelLayout LayoutOf(SNDFILE* file, int channelCount) {
  if (channelCount < 1 || channelCount > kMostChannels) {
    return {};
  }
  std::vector<int> places(static_cast<std::size_t>(channelCount));
  const auto size = static_cast<int>(places.size() * sizeof(int));
  if (sf_command(file, SFC_GET_CHANNEL_MAP_INFO, places.data(), size) != SF_TRUE) {
    return {};
  }
  std::ranges::transform(places, places.begin(), PlaceOf);
  const bool saysNothing = std::ranges::all_of(places, [](int place) { return place < 0; });
  return saysNothing ? moxmediatypes::AudioChannelLayout() : moxmediatypes::GetLayoutOfWavePlaces(places);
}

std::string FormatText(int format) {
  const std::string container = FormatName(SFC_GET_FORMAT_INFO, format & SF_FORMAT_TYPEMASK);
  const std::string encoding = FormatName(SFC_GET_FORMAT_INFO, format & SF_FORMAT_SUBMASK);
  return container.empty() || encoding.empty() ? container + encoding : container + ", " + encoding;
}

}  // namespace

// Bytes in memory with a position, as libsndfile's virtual files ask for.
struct SoundFileHandle::MemoryStream {
  Bytes bytes;
  sf_count_t position = 0;

  sf_count_t Size() const { return static_cast<sf_count_t>(bytes->size()); }

  sf_count_t Seek(sf_count_t offset, int whence) {
    const sf_count_t base = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? position : Size();
    sf_count_t target = 0;
    if (__builtin_add_overflow(base, offset, &target) || target < 0) {
      return -1;
    }
    position = target;
    return position;
  }

  sf_count_t Read(void* destination, sf_count_t count) {
    const sf_count_t available = std::clamp<sf_count_t>(count, 0, std::max<sf_count_t>(Size() - position, 0));
    if (available > 0) {
      std::memcpy(destination, bytes->data() + position, static_cast<std::size_t>(available));
      position += available;
    }
    return available;
  }
};

SoundFileHandle::SoundFileHandle(const std::string& path) {
  const Descriptor descriptor(OpenDescriptor(path));
  mHeader.byteCount = SizeOfRegularFile(descriptor.Get(), path);
  CheckNotCutShort(
      [&descriptor](std::int64_t offset, std::span<std::uint8_t> destination) {
        return pread(descriptor.Get(), destination.data(), destination.size(), offset) ==
               static_cast<ssize_t>(destination.size());
      },
      mHeader.byteCount, path);
  SF_INFO info{};
  OpeningFault fault;
  mFile = OpenSoundFile(descriptor.Get(), SFM_READ, info, fault);
  if (!mFile) {
    ThrowOpeningError(fault, path);
  }
  ReadHeader(info);
}

SoundFileHandle::SoundFileHandle(const Bytes& bytes, const std::string& name)
    : mStream(std::make_unique<MemoryStream>(MemoryStream{bytes})) {
  mHeader.byteCount = mStream->Size();
  if (bytes->empty()) {
    throw AudioFileError(AudioFileFault::kEmpty, name, "$$$/moxaudiotoolkit/Error/Empty=The file is empty.");
  }
  CheckNotCutShort(
      [&bytes](std::int64_t offset, std::span<std::uint8_t> destination) {
        if (offset > static_cast<std::int64_t>(bytes->size()) ||
            destination.size() > bytes->size() - static_cast<std::size_t>(offset)) {
          return false;
        }
        std::memcpy(destination.data(), bytes->data() + offset, destination.size());
        return true;
      },
      mHeader.byteCount, name);
  const SF_VIRTUAL_IO io{
      .get_filelen = [](void* stream) { return static_cast<MemoryStream*>(stream)->Size(); },
      .seek = [](sf_count_t offset, int whence,
                 void* stream) { return static_cast<MemoryStream*>(stream)->Seek(offset, whence); },
      .read = [](void* destination, sf_count_t count,
                 void* stream) { return static_cast<MemoryStream*>(stream)->Read(destination, count); },
      .write = [](const void*, sf_count_t, void*) { return sf_count_t{0}; },
      .tell = [](void* stream) { return static_cast<MemoryStream*>(stream)->position; },
  };
  SF_INFO info{};
  OpeningFault fault;
  mFile = OpenSoundStream(io, mStream.get(), info, fault);
  if (!mFile) {
    ThrowOpeningError(fault, name);
  }
  ReadHeader(info);
}

SoundFileHandle::~SoundFileHandle() = default;

void SoundFileHandle::ReadHeader(const SF_INFO& info) {
  mHeader.frames = info.frames;
  mHeader.sampleRate = info.samplerate;
  mHeader.channelCount = info.channels;
  // In Vorbis libsndfile goes to the right page, but may count from there a block too early or too late.
  mHeader.seekable = info.seekable != 0 && (info.format & SF_FORMAT_SUBMASK) != SF_FORMAT_VORBIS;
  mHeader.preroll = (info.format & SF_FORMAT_TYPEMASK) == SF_FORMAT_MPEG ? kMpegPreroll : 0;
  mHeader.format = FormatText(info.format);
  mHeader.integerBits = IntegerBits(info.format);
  mHeader.channelLayout = LayoutOf(mFile.get(), info.channels);
}

bool SoundFileHandle::Seek(std::int64_t frame) {
  return sf_seek(mFile.get(), frame, SEEK_SET) == frame;
}

std::int64_t SoundFileHandle::Read(float* destination, std::int64_t frameCount) {
  return std::max<std::int64_t>(sf_readf_float(mFile.get(), destination, frameCount), 0);
}

}  // namespace moxaudiotoolkit
