#include "RawSource.h"

#include "../HarmlessSamples.h"
#include "../SystemReason.h"
#include "BlockScan.h"

#include <moxaudiotoolkit/AudioFile.h>
#include <moxaudiotoolkit/AudioFileError.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cstring>
#include <utility>
#include <vector>

namespace moxaudiotoolkit {
namespace {

// Read at a time: stays in the second level of the processor's cache.
constexpr std::size_t kBlockBytes = 256 << 10;
constexpr std::int64_t kProbeFrames = 64;

std::int16_t Swapped(std::int16_t value) {
  return static_cast<std::int16_t>(__builtin_bswap16(static_cast<std::uint16_t>(value)));
}

// A number of bytes in the native order of 16-bit numbers, in place.
std::span<const std::int16_t> AsShorts(std::span<std::uint8_t> bytes, bool bigEndian) {
  const std::span<std::int16_t> shorts(reinterpret_cast<std::int16_t*>(bytes.data()), bytes.size() / 2);
  if (bigEndian == (std::endian::native == std::endian::little)) {
    std::ranges::transform(shorts, shorts.begin(), Swapped);
  }
  return shorts;
}

void ConvertInt24(std::span<const std::uint8_t> bytes, bool bigEndian, float* destination) {
  const std::size_t lowest = bigEndian ? 2 : 0;
  const std::size_t highest = 2 - lowest;
  for (std::size_t i = 0; i < bytes.size() / 3; ++i) {
    const std::uint8_t* sample = &bytes[i * 3];
    const auto value =
        static_cast<std::int32_t>(std::uint32_t{sample[lowest]} << 8 | std::uint32_t{sample[1]} << 16 |
                                  std::uint32_t{sample[highest]} << 24);
    destination[i] = static_cast<float>(value >> 8) * (1.0F / 8388608.0F);
  }
}

void ConvertFloats(std::span<const std::uint8_t> bytes, bool bigEndian, float* destination) {
  std::memcpy(destination, bytes.data(), bytes.size());
  const std::size_t count = bytes.size() / sizeof(float);
  if (bigEndian == (std::endian::native == std::endian::little)) {
    for (std::size_t i = 0; i < count; ++i) {
      destination[i] = std::bit_cast<float>(__builtin_bswap32(std::bit_cast<std::uint32_t>(destination[i])));
    }
  }
  MakeHarmless({destination, count});
}

void Convert(const RawLayout& layout, std::span<std::uint8_t> bytes, float* destination) {
  switch (layout.encoding) {
    case RawEncoding::kInt16:
      return ConvertInt16(AsShorts(bytes, layout.bigEndian), destination);
    case RawEncoding::kInt24:
      return ConvertInt24(bytes, layout.bigEndian, destination);
    case RawEncoding::kFloat32:
      return ConvertFloats(bytes, layout.bigEndian, destination);
  }
}

// Aligned for numbers, without a first filling.
struct Buffer {
  explicit Buffer(std::size_t size) : bytes(std::make_unique_for_overwrite<std::uint8_t[]>(size)) {}
  std::unique_ptr<std::uint8_t[]> bytes;
};

int IntegerBits(RawEncoding encoding) {
  return encoding == RawEncoding::kInt16 ? 16 : encoding == RawEncoding::kInt24 ? 24 : 0;
}

}  // namespace

RawSource::RawSource(const SampleSourceProperties& properties, const RawLayout& layout, std::string name,
                     int descriptor)
    : SampleSource(properties), mLayout(layout), mName(std::move(name)), mDescriptor(descriptor) {}

RawSource::~RawSource() {
  close(mDescriptor);
}

std::shared_ptr<const RawSource> RawSource::Open(AudioFile& file) {
  const int descriptor = open(file.GetName().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  struct stat status {};
  if (descriptor < 0) {
    return nullptr;
  }
  std::optional<RawLayout> layout;
  if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
    layout = FindRawLayout(
        [descriptor](std::int64_t offset, std::span<std::uint8_t> destination) {
          return offset >= 0 && pread(descriptor, destination.data(), destination.size(), offset) ==
                                    static_cast<ssize_t>(destination.size());
        },
        status.st_size);
  }
  const AudioFileProperties& properties = file.GetProperties();
  if (!layout || layout->frames != properties.frames || layout->channelCount != properties.channelCount) {
    close(descriptor);
    return nullptr;
  }
  const SampleSourceProperties own{.frames = properties.frames,
                                   .sampleRate = properties.sampleRate,
                                   .channelCount = properties.channelCount,
                                   .integerBits = IntegerBits(layout->encoding),
                                   .format = properties.format,
                                   .channelLayout = properties.channelLayout};
  const std::shared_ptr<const RawSource> source(new RawSource(own, *layout, file.GetName(), descriptor));
  return source->AgreesWith(file) ? source : nullptr;
}

// The decoder has the last word on what a header means.
bool RawSource::AgreesWith(AudioFile& file) const {
  const SampleSourceProperties& properties = GetProperties();
  const auto channelCount = static_cast<std::size_t>(properties.channelCount);
  const std::int64_t count = std::min(kProbeFrames, properties.frames);
  std::vector<float> decoded(static_cast<std::size_t>(count) * channelCount);
  std::vector<float> read(decoded.size());
  for (const std::int64_t first : {std::int64_t{0}, properties.frames / 2, properties.frames - count}) {
    const auto frames = static_cast<std::size_t>(std::min(count, properties.frames - first));
    const std::span<float> there = std::span(decoded).first(frames * channelCount);
    const std::span<float> here = std::span(read).first(frames * channelCount);
    file.ReadInterleaved(first, there);
    ReadInterleaved(first, here);
    if (!std::ranges::equal(there, here)) {
      return false;
    }
  }
  return true;
}

void RawSource::ReadBytes(std::int64_t firstFrame, std::span<std::uint8_t> destination) const {
  std::int64_t offset = mLayout.dataOffset + firstFrame * mLayout.GetFrameSize();
  while (!destination.empty()) {
    const ssize_t got = pread(mDescriptor, destination.data(), destination.size(), offset);
    if (got < 0 && errno == EINTR) {
      continue;
    }
    if (got < 0) {
      throw AudioFileError(AudioFileFault::kNotReadable, mName,
                           "$$$/moxaudiotoolkit/Error/CannotRead=The file can't be read: @0.",
                           {SystemReason(errno)});
    }
    if (got == 0) {
      throw AudioFileError(AudioFileFault::kTruncated, mName,
                           "$$$/moxaudiotoolkit/Error/CutShort=The file is cut short: its end is missing.");
    }
    destination = destination.subspan(static_cast<std::size_t>(got));
    offset += got;
  }
}

void RawSource::ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const {
  const auto sampleSize = static_cast<std::size_t>(mLayout.GetSampleSize());
  const auto channelCount = static_cast<std::size_t>(mLayout.channelCount);
  const std::size_t blockFrames = std::max(kBlockBytes / (sampleSize * channelCount), std::size_t{1});
  const std::size_t frames = destination.size() / channelCount;
  const Buffer buffer(std::min(frames, blockFrames) * sampleSize * channelCount);
  for (std::size_t done = 0; done < frames;) {
    const std::size_t count = std::min(frames - done, blockFrames);
    const std::span<std::uint8_t> bytes(buffer.bytes.get(), count * channelCount * sampleSize);
    ReadBytes(firstFrame + static_cast<std::int64_t>(done), bytes);
    Convert(mLayout, bytes, destination.data() + done * channelCount);
    done += count;
  }
}

void RawSource::ReadPeaks(std::int64_t firstFrame, std::int64_t frameCount,
                          std::span<const PeakRun> runs) const {
  const auto sampleSize = static_cast<std::size_t>(mLayout.GetSampleSize());
  const std::size_t channelCount = runs.size();
  const auto frames = static_cast<std::size_t>(frameCount);
  // Whole points at a time.
  const std::size_t blockPoints = std::max<std::size_t>(
      kBlockBytes / (sampleSize * channelCount * static_cast<std::size_t>(kSamplesPerPoint)), 1);
  const std::size_t blockFrames = blockPoints * static_cast<std::size_t>(kSamplesPerPoint);
  const Buffer buffer(std::min(frames, blockFrames) * sampleSize * channelCount);
  const bool isShort = mLayout.encoding == RawEncoding::kInt16;
  std::vector<float> converted(isShort ? 0 : std::min(frames, blockFrames) * channelCount);
  for (std::size_t done = 0; done < frames; done += blockFrames) {
    const std::size_t count = std::min(frames - done, blockFrames);
    const std::span<std::uint8_t> bytes(buffer.bytes.get(), count * channelCount * sampleSize);
    ReadBytes(firstFrame + static_cast<std::int64_t>(done), bytes);
    const std::size_t firstPoint = done / static_cast<std::size_t>(kSamplesPerPoint);
    if (isShort) {
      ScanInt16(AsShorts(bytes, mLayout.bigEndian), runs, firstPoint);
    } else {
      Convert(mLayout, bytes, converted.data());
      ScanFloats(std::span(converted).first(count * channelCount), runs, firstPoint);
    }
  }
}

}  // namespace moxaudiotoolkit
