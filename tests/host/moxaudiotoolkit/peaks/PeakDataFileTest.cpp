#include "../SoundBytes.h"
#include "../TemporaryFolder.h"
#include "MadeUpSources.h"

#include <moxaudiotoolkit/peaks/PeakDataFile.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>

namespace moxaudiotoolkit {
namespace {

using testing::BuildPyramid;
using testing::ByteWriter;
using testing::NoiseSource;
using testing::TemporaryFolder;

using Bytes = std::vector<std::uint8_t>;

// A file of version 2: two channels of three pairs.
ByteWriter Head(std::uint64_t version = 2, std::uint64_t flags = 0, std::uint64_t rate = 44100,
                std::uint64_t samplesPerPixel = 512, std::uint64_t length = 3, std::uint64_t channels = 2) {
  ByteWriter writer;
  writer.Little(version, 4).Little(flags, 4).Little(rate, 4).Little(samplesPerPixel, 4).Little(length, 4);
  if (version == 2) {
    writer.Little(channels, 4);
  }
  return writer;
}

Bytes WithBody(ByteWriter head, std::size_t bytes = 24) {
  head.Fill(bytes, 0);
  return head.bytes;
}

void ExpectRefused(const Bytes& bytes, AudioFileFault fault) {
  try {
    ParsePeakData(bytes, "a.dat");
    FAIL() << "accepted";
  } catch (const AudioFileError& error) {
    EXPECT_EQ(error.GetFault(), fault) << error.what();
    EXPECT_EQ(error.GetSoundFile(), "a.dat");
    EXPECT_FALSE(error.GetReason().empty());
  }
}

TEST(PeakDataFile, ReadsVersion2With16Bits) {
  ByteWriter writer = Head();
  for (const int value : {-100, 200, -32768, 32767, 0, 0, 5, 6, -7, -6, 1, 1}) {
    writer.Little(static_cast<std::uint64_t>(value), 2);
  }
  const PeakData data = ParsePeakData(writer.bytes, "a.dat");
  EXPECT_EQ(data,
            (PeakData{2, false, 44100, 512, 2, 3, {-100, 200, -32768, 32767, 0, 0, 5, 6, -7, -6, 1, 1}}));
  EXPECT_EQ(MakePeakDataBytes(data), writer.bytes);
}

TEST(PeakDataFile, ReadsVersion2With8Bits) {
  ByteWriter writer = Head(2, 1);
  for (const int value : {-100, 100, -128, 127, 0, 0, 5, 6, -7, -6, 1, 1}) {
    writer.Little(static_cast<std::uint64_t>(value), 1);
  }
  const PeakData data = ParsePeakData(writer.bytes, "a.dat");
  EXPECT_EQ(data, (PeakData{2, true, 44100, 512, 2, 3, {-100, 100, -128, 127, 0, 0, 5, 6, -7, -6, 1, 1}}));
  EXPECT_EQ(MakePeakDataBytes(data), writer.bytes);
}

TEST(PeakDataFile, ReadsVersion1WhoseBodyBeginsAtByte20) {
  ByteWriter writer = Head(1, 0, 48000, 256, 2);
  EXPECT_EQ(writer.bytes.size(), 20U);
  for (const int value : {-3, 4, -1, 32000}) {
    writer.Little(static_cast<std::uint64_t>(value), 2);
  }
  const PeakData data = ParsePeakData(writer.bytes, "a.dat");
  EXPECT_EQ(data, (PeakData{1, false, 48000, 256, 1, 2, {-3, 4, -1, 32000}}));
  EXPECT_EQ(MakePeakDataBytes(data), writer.bytes);
  ByteWriter small = Head(1, 1, 48000, 256, 1);
  small.Little(0x80, 1).Little(0x7F, 1);
  EXPECT_EQ(ParsePeakData(small.bytes, "a.dat").values, (PeakValues{-128, 127}));
}

TEST(PeakDataFile, ReadsAFileOfNoPairs) {
  EXPECT_TRUE(ParsePeakData(Head(2, 0, 44100, 512, 0).bytes, "a.dat").values.empty());
}

TEST(PeakDataFile, RefusesEmptyAndForeignFiles) {
  ExpectRefused({}, AudioFileFault::kEmpty);
  ExpectRefused(WithBody(Head(0)), AudioFileFault::kNotAudio);
  ExpectRefused(WithBody(Head(3)), AudioFileFault::kNotAudio);
  ExpectRefused(WithBody(ByteWriter().Text("RIFF")), AudioFileFault::kNotAudio);
}

TEST(PeakDataFile, RefusesTheOtherByteOrder) {
  ByteWriter writer;
  writer.Big(2, 4).Big(0, 4).Big(44100, 4).Big(512, 4).Big(3, 4).Big(2, 4);
  ExpectRefused(WithBody(writer), AudioFileFault::kNotAudio);
  try {
    ParsePeakData(WithBody(writer), "a.dat");
  } catch (const AudioFileError& error) {
    EXPECT_NE(error.GetReason().find("byte order"), std::string::npos);
  }
}

TEST(PeakDataFile, RefusesFilesCutShortAtAnyByte) {
  const Bytes whole = WithBody(Head());
  for (std::size_t size = 1; size < whole.size(); ++size) {
    ExpectRefused(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)),
                  AudioFileFault::kTruncated);
  }
}

TEST(PeakDataFile, RefusesHostileHeaders) {
  ExpectRefused(WithBody(Head(2, 0, 44100, 512, 0xFFFFFFFF, 256)), AudioFileFault::kTruncated);
  ExpectRefused(WithBody(Head(2, 0, 44100, 512, 3, 0)), AudioFileFault::kBadChannelCount);
  ExpectRefused(WithBody(Head(2, 0, 44100, 512, 3, 257)), AudioFileFault::kBadChannelCount);
  ExpectRefused(WithBody(Head(2, 0, 44100, 512, 3, 0x80000000)), AudioFileFault::kBadChannelCount);
  ExpectRefused(WithBody(Head(2, 0, 0)), AudioFileFault::kBadSampleRate);
  ExpectRefused(WithBody(Head(2, 0, 0xFFFFFFFF)), AudioFileFault::kBadSampleRate);
  ExpectRefused(WithBody(Head(2, 0, 44100, 0)), AudioFileFault::kDamaged);
  ExpectRefused(WithBody(Head(2, 0, 44100, 0x80000001)), AudioFileFault::kDamaged);
  ExpectRefused(WithBody(Head(2, 2)), AudioFileFault::kDamaged);
  ExpectRefused(WithBody(Head(), 25), AudioFileFault::kDamaged);
  ByteWriter swapped = Head(1, 0, 48000, 256, 1);
  swapped.Little(5, 2).Little(4, 2);
  ExpectRefused(swapped.bytes, AudioFileFault::kDamaged);
}

TEST(PeakDataFile, IsWrittenAndReadBack) {
  const TemporaryFolder folder;
  const PeakData data{2, false, 48000, 256, 1, 2, {-5, 6, -7, 8}};
  WritePeakData(folder / "a.dat", data);
  EXPECT_EQ(ReadPeakData(folder / "a.dat"), data);
  const PeakData other{1, true, 8000, 64, 1, 1, {-1, 1}};
  WritePeakData(folder / "a.dat", other);
  EXPECT_EQ(ReadPeakData(folder / "a.dat"), other);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.GetPath()), {}), 1)
      << "nothing is left over";
}

TEST(PeakDataFile, TellsWhyItCannotBeReadOrWritten) {
  const TemporaryFolder folder;
  const auto fault = [](const auto& work) {
    try {
      work();
    } catch (const AudioFileError& error) {
      return error.GetFault();
    }
    return AudioFileFault::kTooLong;
  };
  EXPECT_EQ(fault([&] { ReadPeakData(folder / "none.dat"); }), AudioFileFault::kNotFound);
  EXPECT_EQ(fault([&] { ReadPeakData(folder.GetPath()); }), AudioFileFault::kNotAFile);
  const PeakData data{1, true, 8000, 64, 1, 1, {-1, 1}};
  EXPECT_EQ(fault([&] { WritePeakData(folder / "none/a.dat", data); }), AudioFileFault::kNotWritable);
  PeakData wrong = data;
  wrong.length = 2;
  EXPECT_THROW(MakePeakDataBytes(wrong), std::invalid_argument);
  wrong = data;
  wrong.channelCount = 2;
  EXPECT_THROW(MakePeakDataBytes(wrong), std::invalid_argument);
}

// A sparse file keeps what its header promises, and takes no room on the disk.
TEST(PeakDataFile, RefusesMoreThanFitsIntoReasonableMemory) {
  const TemporaryFolder folder;
  for (const bool has8Bits : {false, true}) {
    const auto pairs = static_cast<std::uint32_t>(kMostPeakValues / 2 / 256 + 1);
    const Bytes head = Head(2, has8Bits ? 1 : 0, 48000, 256, pairs, 256).bytes;
    std::ofstream(folder / "a.dat", std::ios::binary)
        .write(reinterpret_cast<const char*>(head.data()), static_cast<std::streamsize>(head.size()));
    std::filesystem::resize_file(folder / "a.dat",
                                 head.size() + std::uint64_t{pairs} * 256 * 2 * (has8Bits ? 1 : 2));
    try {
      ReadPeakData(folder / "a.dat");
      FAIL() << "accepted";
    } catch (const AudioFileError& error) {
      EXPECT_EQ(error.GetFault(), AudioFileFault::kTooLong) << error.what();
    }
  }
}

TEST(PeakDataFile, ReadingIsGivenUp) {
  const TemporaryFolder folder;
  WritePeakData(folder / "a.dat", {2, false, 48000, 256, 1, 1, {-5, 6}});
  std::atomic<bool> cancelled{false};
  EXPECT_EQ(ReadPeakData(folder / "a.dat", &cancelled).length, 1U);
  cancelled = true;
  try {
    ReadPeakData(folder / "a.dat", &cancelled);
    FAIL() << "went on";
  } catch (const AudioFileError& error) {
    EXPECT_EQ(error.GetFault(), AudioFileFault::kCancelled);
  }
}

TEST(PeakDataFile, HoldsThePeaksOfAPyramidRoundedToTheNearest) {
  const NoiseSource source(10'000, 2, 0, 1.2F);
  const auto pyramid = BuildPyramid(source);
  for (const bool has8Bits : {false, true}) {
    const float scale = has8Bits ? 128.0F : 32768.0F;
    const PeakData data = MakePeakData(*pyramid, {.samplesPerPixel = 192, .has8Bits = has8Bits});
    ASSERT_EQ(data.length, 53U);
    for (std::int64_t i = 0; i < 53; ++i) {
      for (int channel = 0; channel < 2; ++channel) {
        const PeakPoint point =
            testing::PointOfSamples(source, channel, i * 192, std::min<std::int64_t>(i * 192 + 192, 10'000));
        const auto slot = static_cast<std::size_t>((i * 2 + channel) * 2);
        EXPECT_EQ(data.values[slot], std::lround(std::clamp(point.minimum * scale, -scale, scale - 1.0F)));
        EXPECT_EQ(data.values[slot + 1],
                  std::lround(std::clamp(point.maximum * scale, -scale, scale - 1.0F)));
      }
    }
  }
}

TEST(PeakDataFile, RoundsSmallValuesOf8BitsToTheNearestAndNotTowardsZero) {
  const testing::SparseSource source({.frames = 64, .sampleRate = 48000, .channelCount = 1},
                                     {{3, 0.9F / 128.0F}, {5, -0.6F / 128.0F}});
  const PeakData data = MakePeakData(*BuildPyramid(source), {.samplesPerPixel = 64, .has8Bits = true});
  EXPECT_EQ(data.values, (PeakValues{-1, 1}));
}

TEST(PeakDataFile, Version1TakesThePeaksOfAllChannelsTogether) {
  const testing::SparseSource source({.frames = 64, .sampleRate = 48000, .channelCount = 3},
                                     {{3, 0.25F}, {9, -0.125F}});
  const PeakData data = MakePeakData(*BuildPyramid(source), {.samplesPerPixel = 64, .version = 1});
  EXPECT_EQ(data.channelCount, 1);
  EXPECT_EQ(data.values, (PeakValues{-12288, 24576}));
}

TEST(PeakDataFile, TakesWholePointsOnly) {
  const auto pyramid = BuildPyramid(NoiseSource(1000, 1));
  EXPECT_THROW(MakePeakData(*pyramid, {.samplesPerPixel = 100}), std::invalid_argument);
  EXPECT_THROW(MakePeakData(*pyramid, {.samplesPerPixel = 0}), std::invalid_argument);
  EXPECT_THROW(MakePeakData(*pyramid, {.version = 3}), std::invalid_argument);
}

TEST(PeakDataFile, IsMadeAsFarAsItsReportAllows) {
  const auto pyramid = BuildPyramid(NoiseSource(64 * 4096 * 3, 1));
  std::vector<double> reports;
  PeakDataOptions options{.samplesPerPixel = 64};
  options.report = [&](double done) {
    reports.push_back(done);
    return true;
  };
  EXPECT_EQ(MakePeakData(*pyramid, options), MakePeakData(*pyramid, {.samplesPerPixel = 64}));
  EXPECT_EQ(reports, (std::vector{0.0, 1.0 / 3.0, 2.0 / 3.0}));
  options.report = [](double done) { return done < 0.3; };
  try {
    MakePeakData(*pyramid, options);
    FAIL() << "made";
  } catch (const AudioFileError& error) {
    EXPECT_EQ(error.GetFault(), AudioFileFault::kCancelled);
  }
}

TEST(PeakDataFile, BecomesAPyramid) {
  const NoiseSource source(3'000'000, 2, 16);
  const auto finest = BuildPyramid(source);
  const PeakData data = MakePeakData(*finest, {.samplesPerPixel = 128});
  const auto pyramid = MakePeakPyramid(data, 3'000'000);
  EXPECT_TRUE(pyramid->IsComplete());
  EXPECT_EQ(pyramid->GetFrameCount(), 3'000'000);
  EXPECT_EQ(pyramid->GetSamplesPerPoint(0), 128);
  std::mt19937_64 random(3);
  for (int i = 0; i < 100; ++i) {
    const auto begin = static_cast<std::int64_t>(random() % 23000) * 128;
    const auto end =
        std::min<std::int64_t>(begin + static_cast<std::int64_t>(1 + random() % 5000) * 128, 3'000'000);
    const PeakPoint point = pyramid->GetRange(1, begin, end);
    const PeakPoint expected = finest->GetRange(1, begin, end);
    EXPECT_EQ(point.minimum, expected.minimum);
    EXPECT_EQ(point.maximum, expected.maximum);
    EXPECT_EQ(point.clipped, expected.clipped);
    EXPECT_EQ(point.rms, 0.0F);
  }
  EXPECT_EQ(MakePeakData(*pyramid, {.samplesPerPixel = 128}), data);
  EXPECT_EQ(MakePeakPyramid(data)->GetFrameCount(), 128LL * data.length);
  EXPECT_THROW(MakePeakPyramid(data, 3'000'100), std::invalid_argument);
  EXPECT_THROW(MakePeakPyramid(data, 100), std::invalid_argument);
}

}  // namespace
}  // namespace moxaudiotoolkit
