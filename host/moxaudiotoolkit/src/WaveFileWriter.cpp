#include "SystemReason.h"
#include "peaks/DurableFile.h"

#include <moxaudiotoolkit/AudioFile.h>
#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/WaveFileWriter.h>
#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace moxaudiotoolkit {
namespace {

constexpr std::uint64_t kLargest32 = std::numeric_limits<std::uint32_t>::max();
constexpr std::int64_t kMostFrames = std::int64_t{1} << 48;
constexpr std::uint64_t kExtensibleTag = 0xFFFE;
// What follows the tag in a sub-format's GUID.
constexpr std::array<std::uint8_t, 14> kSubFormatTail{0x00, 0x00, 0x00, 0x00, 0x10, 0x00, 0x80,
                                                      0x00, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71};

std::uint64_t BytesOf(WaveSampleType type) {
  return type == WaveSampleType::kInt16 ? 2 : type == WaveSampleType::kInt24 ? 3 : 4;
}

std::uint64_t DataSize(const WaveFormat& format) {
  return static_cast<std::uint64_t>(format.frames) * static_cast<std::uint64_t>(format.channelCount) *
         BytesOf(format.type);
}

class Bytes {
 public:
  void Add(std::string_view tag) { mBytes.insert(mBytes.end(), tag.begin(), tag.end()); }
  void Add(std::uint64_t value, int count) {
    for (int i = 0; i < count; ++i) {
      mBytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    }
  }
  void Add(std::span<const std::uint8_t> bytes) { mBytes.insert(mBytes.end(), bytes.begin(), bytes.end()); }
  std::vector<std::uint8_t> Take() { return std::move(mBytes); }

 private:
  std::vector<std::uint8_t> mBytes;
};

void AddFormat(Bytes& bytes, const WaveFormat& format) {
  const bool isFloat = format.type == WaveSampleType::kFloat32;
  const bool extensible = format.channelCount > 2 || format.channelMask != 0;
  const auto rate = static_cast<std::uint64_t>(format.sampleRate);
  const std::uint64_t frameSize = static_cast<std::uint64_t>(format.channelCount) * BytesOf(format.type);
  const std::uint64_t bits = 8 * BytesOf(format.type);
  const std::uint64_t tag = isFloat ? 3 : 1;
  bytes.Add("fmt ");
  bytes.Add(extensible ? 40 : isFloat ? 18 : 16, 4);
  bytes.Add(extensible ? kExtensibleTag : tag, 2);
  bytes.Add(static_cast<std::uint64_t>(format.channelCount), 2);
  bytes.Add(rate, 4);
  bytes.Add(std::min(rate * frameSize, kLargest32), 4);
  bytes.Add(frameSize, 2);
  bytes.Add(bits, 2);
  if (extensible) {
    bytes.Add(22, 2);
    bytes.Add(bits, 2);  // that count
    bytes.Add(format.channelMask, 4);
    bytes.Add(tag, 2);
    bytes.Add(kSubFormatTail);
  } else if (isFloat) {
    bytes.Add(0, 2);  // no more to come
  }
  if (isFloat) {
    bytes.Add("fact");
    bytes.Add(4, 4);
    bytes.Add(std::min(static_cast<std::uint64_t>(format.frames), kLargest32), 4);
  }
}

void EncodeIntegers(std::span<const float> samples, WaveSampleType type, std::vector<std::uint8_t>& bytes) {
  const float fullScale = type == WaveSampleType::kInt16 ? 32768.0F : 8388608.0F;
  const int count = static_cast<int>(BytesOf(type));
  std::uint8_t* byte = bytes.data();
  for (const float sample : samples) {
    const long value = std::lrint(std::clamp(sample * fullScale, -fullScale, fullScale - 1.0F));
    for (int i = 0; i < count; ++i) {
      *byte++ = static_cast<std::uint8_t>(value >> (8 * i));
    }
  }
}

void EncodeFloats(std::span<const float> samples, std::vector<std::uint8_t>& bytes) {
  std::uint8_t* byte = bytes.data();
  for (const float sample : samples) {
    const auto value = std::bit_cast<std::uint32_t>(sample);
    for (int i = 0; i < 4; ++i) {
      *byte++ = static_cast<std::uint8_t>(value >> (8 * i));
    }
  }
}

[[noreturn]] void ThrowNotWritable(const std::string& path, const std::system_error& error) {
  throw AudioFileError(AudioFileFault::kNotWritable, path,
                       "$$$/moxaudiotoolkit/Error/CannotWrite=The sound file can't be written: @0.",
                       {SystemReason(error.code().value())});
}

void Check(const std::string& path, const WaveFormat& format) {
  if (format.channelCount < 1 || format.channelCount > kMostChannels || format.sampleRate < 1 ||
      format.sampleRate > kHighestSampleRate || format.frames < 0 || format.frames > kMostFrames) {
    throw AudioFileError(
        AudioFileFault::kNotWritable, path,
        "$$$/moxaudiotoolkit/Error/FormatCannotHold=The format can't hold @0 channels at @1 Hz.",
        {std::to_string(format.channelCount), std::to_string(format.sampleRate)});
  }
}

}  // namespace

WaveSampleType GetExactWaveType(const SampleSourceProperties& properties) {
  if (properties.integerBits < 1 || properties.integerBits > 24) {
    return WaveSampleType::kFloat32;
  }
  return properties.integerBits <= 16 ? WaveSampleType::kInt16 : WaveSampleType::kInt24;
}

std::vector<std::uint8_t> MakeWaveHeader(const WaveFormat& format) {
  const std::uint64_t dataSize = DataSize(format);
  const std::uint64_t padded = dataSize + dataSize % 2;
  Bytes body;
  AddFormat(body, format);
  const std::vector<std::uint8_t> chunks = body.Take();
  // Behind the first eight bytes: the kind, the chunks, the head of the data and the data.
  const std::uint64_t riffSize = 4 + chunks.size() + 8 + padded;
  const bool isLong = riffSize > kLargest32;
  Bytes header;
  header.Add(isLong ? "RF64" : "RIFF");
  header.Add(isLong ? kLargest32 : riffSize, 4);
  header.Add("WAVE");
  if (isLong) {
    constexpr std::uint64_t kLongSizes = 28;
    header.Add("ds64");
    header.Add(kLongSizes, 4);
    header.Add(riffSize + 8 + kLongSizes, 8);
    header.Add(dataSize, 8);
    header.Add(static_cast<std::uint64_t>(format.frames), 8);
    header.Add(0, 4);  // no further sizes
  }
  header.Add(chunks);
  header.Add("data");
  header.Add(isLong ? kLargest32 : dataSize, 4);
  return header.Take();
}

class WaveFileWriter::File {
 public:
  File(const std::string& path, const WaveFormat& format)
      : mPath(path), mFormat(format), mFramesLeft(format.frames), mFile(path) {
    const std::vector<std::uint8_t> header = MakeWaveHeader(format);
    mFile.Reserve(static_cast<std::int64_t>(header.size() + DataSize(format)));
    mFile.Write(header);
  }

  const std::string& GetPath() const { return mPath; }

  void Write(std::span<const float> samples) {
    const auto channels = static_cast<std::size_t>(mFormat.channelCount);
    const auto frames = static_cast<std::int64_t>(samples.size() / channels);
    if (samples.size() % channels != 0 || frames > mFramesLeft) {
      throw std::invalid_argument("Not the frames that a WAV file was to have");
    }
    mBytes.resize(samples.size() * BytesOf(mFormat.type));
    if (mFormat.type == WaveSampleType::kFloat32) {
      EncodeFloats(samples, mBytes);
    } else {
      EncodeIntegers(samples, mFormat.type, mBytes);
    }
    mFile.Write(mBytes);
    mFramesLeft -= frames;
  }

  void Commit() {
    if (mFramesLeft > 0) {
      throw std::logic_error("A WAV file without all of its frames");
    }
    if (DataSize(mFormat) % 2 != 0) {
      mFile.Write(std::array<std::uint8_t, 1>{});  // chunks begin at even places
    }
    mFile.Commit();
  }

 private:
  std::string mPath;
  WaveFormat mFormat;
  std::int64_t mFramesLeft;
  DurableFile mFile;
  std::vector<std::uint8_t> mBytes;
};

WaveFileWriter::WaveFileWriter(const std::string& path, const WaveFormat& format) {
  Check(path, format);
  try {
    mFile = std::make_unique<File>(path, format);
  } catch (const std::system_error& error) {
    ThrowNotWritable(path, error);
  }
}

WaveFileWriter::~WaveFileWriter() = default;

void WaveFileWriter::Write(std::span<const float> samples) {
  try {
    mFile->Write(samples);
  } catch (const std::system_error& error) {
    ThrowNotWritable(mFile->GetPath(), error);
  }
}

void WaveFileWriter::Commit() {
  try {
    mFile->Commit();
  } catch (const std::system_error& error) {
    ThrowNotWritable(mFile->GetPath(), error);
  }
}

}  // namespace moxaudiotoolkit
