#include "../SystemReason.h"
#include "DurableFile.h"
#include "PeakPacking.h"
#include "PlainFile.h"

#include <moxaudiotoolkit/AudioFile.h>
#include <moxaudiotoolkit/peaks/PeakDataFile.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <iterator>
#include <limits>
#include <memory>
#include <stdexcept>
#include <system_error>

namespace moxaudiotoolkit {
namespace {

constexpr std::size_t kHeaderBytes1 = 20;
constexpr std::size_t kHeaderBytes2 = 24;
constexpr std::uint32_t kHas8Bits = 1;
constexpr std::int64_t kPairsPerReport = 4096;
constexpr std::size_t kBlockBytes =
    256 << 10;  // read at a time, and checked while it is in the processor's cache

std::uint32_t GetWord(std::span<const std::uint8_t> bytes, std::size_t at) {
  return std::uint32_t{bytes[at]} | std::uint32_t{bytes[at + 1]} << 8 | std::uint32_t{bytes[at + 2]} << 16 |
         std::uint32_t{bytes[at + 3]} << 24;
}

void PutWord(std::vector<std::uint8_t>& bytes, std::uint32_t word) {
  for (int shift = 0; shift < 32; shift += 8) {
    bytes.push_back(static_cast<std::uint8_t>(word >> shift));
  }
}

[[noreturn]] void Throw(AudioFileFault fault, const std::string& name, std::string_view literal,
                        const std::vector<std::string>& values = {}) {
  throw AudioFileError(fault, name, literal, values);
}

std::size_t CheckVersion(std::span<const std::uint8_t> bytes, const std::string& name) {
  if (bytes.empty()) {
    Throw(AudioFileFault::kEmpty, name, "$$$/moxaudiotoolkit/Error/Empty=The file is empty.");
  }
  if (bytes.size() < kHeaderBytes1) {
    Throw(AudioFileFault::kTruncated, name,
          "$$$/moxaudiotoolkit/Error/PeakHeader=The file is too short for a peak file.");
  }
  const std::uint32_t version = GetWord(bytes, 0);
  if (version == 0x01000000 || version == 0x02000000) {
    Throw(AudioFileFault::kNotAudio, name,
          "$$$/moxaudiotoolkit/Error/PeakByteOrder=The peak file is in the wrong byte order.");
  }
  if (version != 1 && version != 2) {
    Throw(AudioFileFault::kNotAudio, name,
          "$$$/moxaudiotoolkit/Error/PeakVersion=This is no peak file of version 1 or 2.");
  }
  if (version == 2 && bytes.size() < kHeaderBytes2) {
    Throw(AudioFileFault::kTruncated, name,
          "$$$/moxaudiotoolkit/Error/PeakHeader=The file is too short for a peak file.");
  }
  return version == 1 ? kHeaderBytes1 : kHeaderBytes2;
}

PeakData ParseHeader(std::span<const std::uint8_t> bytes, const std::string& name) {
  PeakData data;
  const std::size_t header = CheckVersion(bytes, name);
  data.version = header == kHeaderBytes1 ? 1 : 2;
  const std::uint32_t flags = GetWord(bytes, 4);
  const std::uint32_t rate = GetWord(bytes, 8);
  const std::uint32_t samplesPerPixel = GetWord(bytes, 12);
  const std::uint32_t channels = data.version == 1 ? 1 : GetWord(bytes, 20);
  if ((flags & ~kHas8Bits) != 0) {
    Throw(AudioFileFault::kDamaged, name,
          "$$$/moxaudiotoolkit/Error/PeakFlags=The peak file has flags that no one knows.");
  }
  if (rate < 1 || rate > static_cast<std::uint32_t>(kHighestSampleRate)) {
    Throw(AudioFileFault::kBadSampleRate, name,
          "$$$/moxaudiotoolkit/Error/SampleRate=The sample rate of @0 Hz makes no sense.",
          {std::to_string(static_cast<std::int32_t>(rate))});
  }
  if (channels < 1 || channels > static_cast<std::uint32_t>(kMostChannels)) {
    Throw(AudioFileFault::kBadChannelCount, name,
          "$$$/moxaudiotoolkit/Error/Channels=The file has @0 channels; from 1 to @1 can be read.",
          {std::to_string(static_cast<std::int32_t>(channels)), std::to_string(kMostChannels)});
  }
  if (samplesPerPixel < 1 ||
      samplesPerPixel > static_cast<std::uint32_t>(PeakPyramidFormat::kMostSamplesPerPoint)) {
    Throw(AudioFileFault::kDamaged, name,
          "$$$/moxaudiotoolkit/Error/PeakZoom=A peak of @0 samples makes no sense.",
          {std::to_string(static_cast<std::int32_t>(samplesPerPixel))});
  }
  data.has8Bits = (flags & kHas8Bits) != 0;
  data.sampleRate = static_cast<int>(rate);
  data.samplesPerPixel = static_cast<int>(samplesPerPixel);
  data.channelCount = static_cast<int>(channels);
  data.length = GetWord(bytes, 16);
  return data;
}

// Checks the pairs from the value `begin` on.
void CheckOrder(const PeakData& data, std::size_t begin, const std::string& name) {
  if (!ArePairsInOrder(data.values.data() + begin, (data.values.size() - begin) / 2)) {
    Throw(AudioFileFault::kDamaged, name,
          "$$$/moxaudiotoolkit/Error/PeakOrder=The peak file is damaged: a smallest value is above its "
          "largest.");
  }
}

// Whether the values of a file are those of memory, byte by byte.
bool AreAsInMemory(const PeakData& data) {
  return !data.has8Bits && std::endian::native == std::endian::little;
}

// Adds whole pairs, and checks them.
void AppendPairs(std::span<const std::uint8_t> bytes, PeakData& data, const std::string& name) {
  const std::size_t before = data.values.size();
  if (data.has8Bits) {
    std::ranges::transform(bytes, std::back_inserter(data.values), [](std::uint8_t byte) {
      return static_cast<std::int16_t>(static_cast<std::int8_t>(byte));
    });
  } else {
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
      data.values.push_back(static_cast<std::int16_t>(bytes[i] | bytes[i + 1] << 8));
    }
  }
  CheckOrder(data, before, name);
}

// The body has as many bytes as the header promises.
void CheckBody(const PeakData& data, std::uint64_t bytes, const std::string& name) {
  const std::uint64_t promised = std::uint64_t{data.length} * static_cast<std::uint64_t>(data.channelCount) *
                                 2 * (data.has8Bits ? 1 : 2);
  if (bytes < promised) {
    Throw(
        AudioFileFault::kTruncated, name,
        "$$$/moxaudiotoolkit/Error/PeaksCutShort=The peak file is cut short: it has @0 of @1 bytes of peaks.",
        {std::to_string(bytes), std::to_string(promised)});
  }
#ifndef MOX_SEEDED_BUG
  if (bytes > promised) {
    Throw(AudioFileFault::kDamaged, name,
          "$$$/moxaudiotoolkit/Error/PeaksTooMany=The peak file has @0 bytes of peaks where its header "
          "promises @1.",
          {std::to_string(bytes), std::to_string(promised)});
  }
#endif
}

std::size_t HeaderBytes(const PeakData& data) {
  return data.version == 1 ? kHeaderBytes1 : kHeaderBytes2;
}

// Why the data is no contents of a file; null when it is.
const char* WhatIsWrong(const PeakData& data) {
  if (data.version != 1 && data.version != 2) {
    return "Peak data has version 1 or 2";
  }
  if (data.channelCount < 1 || data.channelCount > kMostChannels ||
      (data.version == 1 && data.channelCount != 1)) {
    return "Peak data has from 1 to 256 channels, in version 1 but one";
  }
  if (data.sampleRate < 1 || data.samplesPerPixel < 1) {
    return "Peak data has a sample rate and samples per pixel";
  }
  if (data.values.size() != std::size_t{data.length} * static_cast<std::size_t>(data.channelCount) * 2) {
    return "Peak data has a pair for each place and channel";
  }
  return nullptr;
}

void Check(const PeakData& data) {
  if (const char* wrong = WhatIsWrong(data)) {
    throw std::invalid_argument(wrong);
  }
}

std::int16_t Rounded(float value, float scale) {
  const float scaled = value * scale;
  const float within = scaled > -scale ? (scaled < scale - 1.0F ? scaled : scale - 1.0F) : -scale;
  return static_cast<std::int16_t>(static_cast<int>(within + (within < 0.0F ? -0.5F : 0.5F)));
}

}  // namespace

PeakData ParsePeakData(std::span<const std::uint8_t> bytes, const std::string& name) {
  PeakData data = ParseHeader(bytes, name);
  const std::span<const std::uint8_t> body = bytes.subspan(HeaderBytes(data));
  CheckBody(data, body.size(), name);
  data.values.reserve(body.size() / (data.has8Bits ? 1 : 2));
  AppendPairs(body, data, name);
  return data;
}

PeakData ReadPeakData(const std::string& path, const std::atomic<bool>* cancelled) {
  PlainFile file(path);
  std::uint8_t head[kHeaderBytes2];
  const std::span<std::uint8_t> start =
      std::span(head).first(std::min<std::uint64_t>(kHeaderBytes2, file.GetSize()));
  file.Read(start);
  PeakData data = ParseHeader(start, path);
  const std::size_t header = HeaderBytes(data);
  const std::uint64_t bodyBytes = file.GetSize() - header;
  CheckBody(data, bodyBytes, path);
  const std::uint64_t values = bodyBytes / (data.has8Bits ? 1 : 2);
  if (values > kMostPeakValues) {
    Throw(
        AudioFileFault::kTooLong, path,
        "$$$/moxaudiotoolkit/Error/PeaksTooLong=The peak file is too large: it has @0 peaks; up to @1 can be "
        "read.",
        {std::to_string(values / 2), std::to_string(kMostPeakValues / 2)});
  }
  data.values.reserve(values);
  std::vector<std::uint8_t> block;
  // The start of the body has been read with the header of the other version.
  std::span<const std::uint8_t> kept = start.subspan(header);
  const auto read = [&](std::span<std::uint8_t> place) {
    std::ranges::copy(kept, place.data());
    file.Read(place.subspan(kept.size()));
    kept = {};
  };
  for (std::uint64_t done = 0; done < bodyBytes;) {
    if (cancelled != nullptr && cancelled->load(std::memory_order_relaxed)) {
      Throw(AudioFileFault::kCancelled, path,
            "$$$/moxaudiotoolkit/Error/Cancelled=The opening was cancelled.");
    }
    const auto size = static_cast<std::size_t>(std::min<std::uint64_t>(kBlockBytes, bodyBytes - done));
    if (AreAsInMemory(data)) {
      const std::size_t before = data.values.size();
      data.values.resize(before + size / 2);
      read({reinterpret_cast<std::uint8_t*>(data.values.data() + before), size});
      CheckOrder(data, before, path);
    } else {
      block.resize(size);
      read(block);
      AppendPairs(block, data, path);
    }
    done += size;
  }
  return data;
}

std::vector<std::uint8_t> MakePeakDataBytes(const PeakData& data) {
  Check(data);
  std::vector<std::uint8_t> bytes;
  bytes.reserve(kHeaderBytes2 + data.values.size() * 2);
  PutWord(bytes, static_cast<std::uint32_t>(data.version));
  PutWord(bytes, data.has8Bits ? kHas8Bits : 0);
  PutWord(bytes, static_cast<std::uint32_t>(data.sampleRate));
  PutWord(bytes, static_cast<std::uint32_t>(data.samplesPerPixel));
  PutWord(bytes, data.length);
  if (data.version == 2) {
    PutWord(bytes, static_cast<std::uint32_t>(data.channelCount));
  }
  for (const std::int16_t value : data.values) {
    const auto bits = static_cast<std::uint16_t>(value);
    bytes.push_back(static_cast<std::uint8_t>(bits));
    if (!data.has8Bits) {
      bytes.push_back(static_cast<std::uint8_t>(bits >> 8));
    }
  }
  return bytes;
}

void WritePeakData(const std::string& path, const PeakData& data) {
  const std::vector<std::uint8_t> bytes = MakePeakDataBytes(data);
  try {
    DurableFile file(path);
    file.Write(bytes);
    file.Commit();
  } catch (const std::system_error& error) {
    Throw(AudioFileFault::kNotWritable, path,
          "$$$/moxaudiotoolkit/Error/PeaksNotWritten=The peak file can't be written: @0.",
          {SystemReason(error.code().value())});
  }
}

PeakData MakePeakData(const PeakPyramid& pyramid, const PeakDataOptions& options) {
  const PeakPyramidFormat& format = pyramid.GetFormat();
  const std::int64_t samples = options.samplesPerPixel;
  if (samples < 1 || samples % format.samplesPerPoint != 0 ||
      samples > PeakPyramidFormat::kMostSamplesPerPoint) {
    throw std::invalid_argument("A pair of peak data is made of whole points");
  }
  const std::int64_t length = (format.frames + samples - 1) / samples;
  if (length > std::numeric_limits<std::uint32_t>::max()) {
    throw std::invalid_argument("Peak data can't hold so many pairs");
  }
  PeakData data{.version = options.version,
                .has8Bits = options.has8Bits,
                .sampleRate = format.sampleRate,
                .samplesPerPixel = options.samplesPerPixel,
                .channelCount = options.version == 1 ? 1 : format.channelCount,
                .length = static_cast<std::uint32_t>(length),
                .values = {}};
  const float scale = options.has8Bits ? 128.0F : 32768.0F;
  data.values.reserve(static_cast<std::size_t>(length * data.channelCount) * 2);
  for (std::int64_t i = 0; i < length; ++i) {
    if (i % kPairsPerReport == 0 && options.report &&
        !options.report(static_cast<double>(i) / static_cast<double>(length))) {
      Throw(AudioFileFault::kCancelled, {},
            "$$$/moxaudiotoolkit/Error/ExportCancelled=The export was cancelled.");
    }
    const auto range = [&](int channel) {
      return pyramid.GetRange(static_cast<std::size_t>(channel), i * samples, (i + 1) * samples);
    };
    for (int channel = 0; channel < data.channelCount; ++channel) {
      PeakPoint point = range(channel);
      for (int other = data.channelCount; other < format.channelCount; ++other) {
        const PeakPoint more = range(other);
        point.minimum = std::min(point.minimum, more.minimum);
        point.maximum = std::max(point.maximum, more.maximum);
      }
      data.values.push_back(Rounded(point.minimum, scale));
      data.values.push_back(Rounded(point.maximum, scale));
    }
  }
  Check(data);
  return data;
}

std::shared_ptr<const PeakPyramid> MakePeakPyramid(const PeakData& data, std::int64_t frames) {
  Check(data);
  const std::int64_t most = std::int64_t{data.length} * data.samplesPerPixel;
  if (frames != 0 && (frames > most || frames <= most - data.samplesPerPixel)) {
    throw std::invalid_argument("The peak data is of audio of another length");
  }
  auto pyramid = std::make_shared<PeakPyramid>(
      PeakPyramidFormat{.frames = frames != 0 ? frames : most,
                        .sampleRate = data.sampleRate,
                        .channelCount = data.channelCount,
                        .samplesPerPoint = data.samplesPerPixel,
                        .has16Bits = true,
                        .hasRms = false,
                        .clipLevel = data.has8Bits ? 127.0F / 128.0F : 32767.0F / 32768.0F});
  const auto channelCount = static_cast<std::size_t>(data.channelCount);
  const float scale = data.has8Bits ? 1.0F / 128.0F : 1.0F / 32768.0F;
  const auto pagePoints = static_cast<std::size_t>(PeakPyramid::kPointsPerPage);
  std::vector<float> values(2 * channelCount * pagePoints);
  std::vector<PeakRun> runs(channelCount);
  for (std::size_t channel = 0; channel < channelCount; ++channel) {
    float* own = values.data() + 2 * channel * pagePoints;
    runs[channel] = {.minimum = own, .maximum = own + pagePoints};
  }
  for (std::int64_t page = 0; page < pyramid->GetPageCount(); ++page) {
    const std::int16_t* pairs =
        data.values.data() + static_cast<std::size_t>(page) * pagePoints * channelCount * 2;
    const auto points = static_cast<std::size_t>(pyramid->GetPointsOfPage(page));
    for (std::size_t i = 0; i < points; ++i) {
      for (std::size_t channel = 0; channel < channelCount; ++channel, pairs += 2) {
        runs[channel].minimum[i] = static_cast<float>(pairs[0]) * scale;
        runs[channel].maximum[i] = static_cast<float>(pairs[1]) * scale;
      }
    }
    pyramid->SetPage(page, runs);
  }
  return pyramid;
}

}  // namespace moxaudiotoolkit
