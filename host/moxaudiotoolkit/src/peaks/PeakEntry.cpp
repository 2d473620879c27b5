#include "PeakEntry.h"

#include "Hash.h"
#include "PeakRunReader.h"

#include <moxaudiotoolkit/AudioFile.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <vector>

namespace moxaudiotoolkit {
namespace {

constexpr std::uint64_t kMagic = 0x534B414550584F4D;  // "MOXPEAKS" where the lowest byte comes first
constexpr std::uint32_t kVersion = 1;
constexpr std::uint32_t kConstant = 0;
constexpr std::uint32_t kValues = 1;

struct EntryHeader {
  std::uint64_t magic = kMagic;
  std::uint32_t version = kVersion;
  std::uint32_t flags = 0;
  std::int64_t size = 0;
  std::int64_t modified = 0;
  std::uint64_t blockHash = 0;
  std::uint64_t fileHash = 0;
  std::int64_t frames = 0;
  std::int32_t sampleRate = 0;
  std::int32_t channelCount = 0;
  std::int32_t samplesPerPoint = 0;
  float clipLevel = 0.0F;
  std::uint64_t bodyBytes = 0;
  std::uint64_t bodyHash = 0;
  std::uint64_t headerHash = 0;  // of all before it
};
static_assert(sizeof(EntryHeader) == kEntryHeaderBytes);

using HeaderBytes = std::array<std::uint8_t, kEntryHeaderBytes>;

std::uint64_t HashOfHeader(const EntryHeader& header) {
  const auto bytes = std::bit_cast<HeaderBytes>(header);
  return HashBytes(std::span(bytes).first(kEntryHeaderBytes - sizeof(std::uint64_t)), kMagic);
}

EntryHeader MakeHeader(const PeakPyramidFormat& format, const PeakCacheKey& key) {
  return {.flags = (format.has16Bits ? 1U : 0U) | (format.hasRms ? 2U : 0U),
          .size = key.size,
          .modified = key.modified,
          .blockHash = key.blockHash,
          .frames = format.frames,
          .sampleRate = format.sampleRate,
          .channelCount = format.channelCount,
          .samplesPerPoint = format.samplesPerPoint,
          .clipLevel = format.clipLevel};
}

// Byte by byte but for what is told by the contents.
bool IsOfSameSound(const EntryHeader& header, const EntryHeader& expected) {
  return header.flags == expected.flags && header.size == expected.size &&
         header.modified == expected.modified && header.blockHash == expected.blockHash &&
         header.frames == expected.frames && header.sampleRate == expected.sampleRate &&
         header.channelCount == expected.channelCount && header.samplesPerPoint == expected.samplesPerPoint &&
         header.clipLevel == expected.clipLevel;
}

EntryFault CheckHeader(const EntryHeader& header, const EntryHeader& expected, std::uint64_t byteCount) {
  if (header.magic == __builtin_bswap64(kMagic)) {
    return EntryFault::kOtherByteOrder;
  }
  if (header.magic != kMagic) {
    return EntryFault::kForeign;
  }
  if (header.version != kVersion) {
    return EntryFault::kOtherVersion;
  }
  if (header.headerHash != HashOfHeader(header)) {
    return EntryFault::kDamaged;
  }
  if (!IsOfSameSound(header, expected)) {
    return EntryFault::kOtherSound;
  }
  if (header.bodyBytes != byteCount - kEntryHeaderBytes) {
    return header.bodyBytes > byteCount - kEntryHeaderBytes ? EntryFault::kCutShort : EntryFault::kDamaged;
  }
  return EntryFault::kNone;
}

// The finest points of one page, as they come from an entry.
class PageReader {
 public:
  PageReader(const ReadNextBytes& readNextBytes, std::uint64_t bodyBytes, PeakPyramid& pyramid)
      : mReadNextBytes(readNextBytes), mBytesLeft(bodyBytes), mPyramid(pyramid) {
    const auto points =
        static_cast<std::size_t>(std::min(PeakPyramid::kPointsPerPage, pyramid.GetPointCount(0)));
    mValues.resize(3 * points * pyramid.GetChannelCount());
    for (std::size_t channel = 0; channel < pyramid.GetChannelCount(); ++channel) {
      float* own = mValues.data() + 3 * points * channel;
      mRuns.push_back({.minimum = own, .maximum = own + points, .sumOfSquares = own + 2 * points});
    }
  }

  EntryFault ReadAll() {
    for (std::int64_t page = 0; page < mPyramid.GetPageCount(); ++page) {
      const auto points = static_cast<std::size_t>(mPyramid.GetPointsOfPage(page));
      for (const PeakRun& run : mRuns) {
        const bool last = page + 1 == mPyramid.GetPageCount();
        if (const EntryFault fault = ReadChannel(run, points, last); fault != EntryFault::kNone) {
          return fault;
        }
      }
      mPyramid.SetPage(page, mRuns);
    }
    return mBytesLeft == 0 ? EntryFault::kNone : EntryFault::kDamaged;
  }

  std::uint64_t GetHash() const { return mHash; }

 private:
  bool ReadPiece(std::size_t size) {
    mPiece.resize(size);
    if (size > mBytesLeft || !mReadNextBytes(mPiece)) {
      return false;
    }
    mBytesLeft -= size;
    mHash = HashBytes(mPiece, mHash);
    return true;
  }

  float FramesOfPoint(std::size_t point, std::size_t points, bool lastPage) const {
    const PeakPyramidFormat& format = mPyramid.GetFormat();
    const std::int64_t rest = format.frames % format.samplesPerPoint;
    return static_cast<float>(lastPage && point + 1 == points && rest != 0 ? rest : format.samplesPerPoint);
  }

  EntryFault ReadChannel(const PeakRun& run, std::size_t points, bool lastPage) {
    std::uint32_t kind = 0;
    if (!ReadPiece(sizeof kind)) {
      return EntryFault::kCutShort;
    }
    std::memcpy(&kind, mPiece.data(), sizeof kind);
    if (kind == kConstant) {
      return ReadConstant(run, points, lastPage);
    }
    if (kind != kValues) {
      return EntryFault::kDamaged;
    }
    const PeakPyramidFormat& format = mPyramid.GetFormat();
    const std::size_t valueSize = format.has16Bits ? sizeof(std::int16_t) : sizeof(float);
    const std::size_t squareSize = format.hasRms ? sizeof(std::uint16_t) : 0;
    if (!ReadPiece(points * (2 * valueSize + squareSize))) {
      return EntryFault::kCutShort;
    }
    const std::uint8_t* bytes = mPiece.data();
    TakeValues(bytes, points, run.minimum);
    TakeValues(bytes + points * valueSize, points, run.maximum);
    for (std::size_t i = 0; i < points && format.hasRms; ++i) {
      std::uint16_t code = 0;
      std::memcpy(&code, bytes + 2 * points * valueSize + i * sizeof code, sizeof code);
      run.sumOfSquares[i] = DecodeMeanSquare(code) * FramesOfPoint(i, points, lastPage);
    }
    // What is not a number is in no order.
    bool sound = true;
    for (std::size_t i = 0; i < points; ++i) {
      sound = sound & (run.minimum[i] <= run.maximum[i]) & (run.minimum[i] >= -kLargestSample) &
              (run.maximum[i] <= kLargestSample);
    }
    return sound ? EntryFault::kNone : EntryFault::kDamaged;
  }

  EntryFault ReadConstant(const PeakRun& run, std::size_t points, bool lastPage) {
    float value = 0.0F;
    if (!ReadPiece(sizeof value)) {
      return EntryFault::kCutShort;
    }
    std::memcpy(&value, mPiece.data(), sizeof value);
    if (!(value >= -kLargestSample && value <= kLargestSample)) {
      return EntryFault::kDamaged;
    }
#ifdef MOX_SEEDED_BUG
    points = static_cast<std::size_t>(PeakPyramid::kPointsPerPage);
#endif
    std::fill_n(run.minimum, points, value);
    std::fill_n(run.maximum, points, value);
    for (std::size_t i = 0; i < points; ++i) {
      run.sumOfSquares[i] = value * value * FramesOfPoint(i, points, lastPage);
    }
    return EntryFault::kNone;
  }

  void TakeValues(const std::uint8_t* bytes, std::size_t points, float* destination) const {
    if (!mPyramid.GetFormat().has16Bits) {
      std::memcpy(destination, bytes, points * sizeof(float));
      return;
    }
    for (std::size_t i = 0; i < points; ++i) {
      std::int16_t value = 0;
      std::memcpy(&value, bytes + i * sizeof value, sizeof value);
      destination[i] = static_cast<float>(value) * (1.0F / 32768.0F);
    }
  }

  const ReadNextBytes& mReadNextBytes;
  std::uint64_t mBytesLeft;
  PeakPyramid& mPyramid;
  std::vector<float> mValues;
  std::vector<PeakRun> mRuns;
  std::vector<std::uint8_t> mPiece;
  std::uint64_t mHash = 0;
};

// Pieces as PageReader reads them.
class PageWriter {
 public:
  explicit PageWriter(const std::function<void(std::span<const std::uint8_t>)>& write) : mWrite(write) {}

  void WriteChannel(const PeakStretch& stretch, bool has16Bits) {
    if (stretch.kind == PeakStretch::Kind::kConstant) {
      WritePiece(&kConstant, sizeof kConstant);
      WritePiece(&stretch.constant, sizeof stretch.constant);
      return;
    }
    WritePiece(&kValues, sizeof kValues);
    const auto points = static_cast<std::size_t>(stretch.end - stretch.begin);
    const std::size_t valueBytes = points * (has16Bits ? sizeof(std::int16_t) : sizeof(float));
    const std::size_t squareBytes = stretch.squares != nullptr ? points * sizeof(std::uint16_t) : 0;
    mPiece.resize(2 * valueBytes + squareBytes);
    std::memcpy(mPiece.data(), stretch.minimum, valueBytes);
    std::memcpy(mPiece.data() + valueBytes, stretch.maximum, valueBytes);
    if (squareBytes != 0) {
      std::memcpy(mPiece.data() + 2 * valueBytes, stretch.squares, squareBytes);
    }
    WritePiece(mPiece.data(), mPiece.size());
  }

  std::uint64_t GetHash() const { return mHash; }
  std::uint64_t GetByteCount() const { return mByteCount; }

 private:
  void WritePiece(const void* data, std::size_t size) {
    const std::span<const std::uint8_t> bytes(static_cast<const std::uint8_t*>(data), size);
    mHash = HashBytes(bytes, mHash);
    mByteCount += size;
    mWrite(bytes);
  }

  const std::function<void(std::span<const std::uint8_t>)>& mWrite;
  std::vector<std::uint8_t> mPiece;
  std::uint64_t mHash = 0;
  std::uint64_t mByteCount = 0;
};

}  // namespace

EntryPeaks ReadEntry(const ReadNextBytes& readNextBytes, std::uint64_t byteCount, const PeakCacheKey& key,
                     const PeakPyramidFormat& format) {
  HeaderBytes bytes{};
  if (byteCount < kEntryHeaderBytes || !readNextBytes(bytes)) {
    return {.fault = EntryFault::kCutShort};
  }
  const auto header = std::bit_cast<EntryHeader>(bytes);
  if (const EntryFault fault = CheckHeader(header, MakeHeader(format, key), byteCount);
      fault != EntryFault::kNone) {
    return {.fault = fault};
  }
  const auto pyramid = std::make_shared<PeakPyramid>(format);
  PageReader reader(readNextBytes, header.bodyBytes, *pyramid);
  if (const EntryFault fault = reader.ReadAll(); fault != EntryFault::kNone) {
    return {.fault = fault};
  }
  if (reader.GetHash() != header.bodyHash) {
    return {.fault = EntryFault::kDamaged};
  }
  return {.fileHash = header.fileHash, .pyramid = pyramid};
}

HeaderBytes WriteEntry(const PeakPyramid& pyramid, const PeakCacheKey& key, std::uint64_t fileHash,
                       const std::function<void(std::span<const std::uint8_t>)>& write) {
  PageWriter writer(write);
  for (std::int64_t page = 0; page < pyramid.GetPageCount(); ++page) {
    for (std::size_t channel = 0; channel < pyramid.GetChannelCount(); ++channel) {
      writer.WriteChannel(PeakRunReader(pyramid, channel, 0).GetStretch(page * PeakPyramid::kPointsPerPage),
                          pyramid.GetFormat().has16Bits);
    }
  }
  EntryHeader header = MakeHeader(pyramid.GetFormat(), key);
  header.fileHash = fileHash;
  header.bodyBytes = writer.GetByteCount();
  header.bodyHash = writer.GetHash();
  header.headerHash = HashOfHeader(header);
  return std::bit_cast<HeaderBytes>(header);
}

}  // namespace moxaudiotoolkit
