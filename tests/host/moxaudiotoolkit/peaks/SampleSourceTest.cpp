#include "../SoundBytes.h"
#include "../TemporaryFolder.h"
#include "MadeUpSources.h"

#include <moxaudiotoolkit/AudioFile.h>
#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/AudioFileWriter.h>
#include <moxaudiotoolkit/DecodedAudio.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace moxaudiotoolkit {
namespace {

using testing::BuildPyramid;
using testing::ByteWriter;
using testing::PointOfSamples;
using testing::TemporaryFolder;
using testing::Tones;

class SampleSourceTest : public ::testing::Test {
 protected:
  // The source gives what the decoder gives, and its peaks are those of its samples.
  void ExpectLikeTheDecoder(const std::string& path) {
    const auto source = OpenSampleSource(path);
    AudioFile file(path);
    const auto& properties = source->GetProperties();
    ASSERT_EQ(properties.frames, file.GetProperties().frames);
    ASSERT_EQ(properties.channelCount, file.GetProperties().channelCount);
    std::vector<float> expected(static_cast<std::size_t>(properties.frames * properties.channelCount));
    std::vector<float> samples(expected.size());
    file.ReadInterleaved(0, expected);
    source->ReadInterleaved(0, samples);
    EXPECT_EQ(samples, expected);
    const auto pyramid = BuildPyramid(*source);
    for (int channel = 0; channel < properties.channelCount; ++channel) {
      for (std::int64_t i = 0; i < pyramid->GetPointCount(0); ++i) {
        const PeakPoint point = pyramid->GetPoint(0, static_cast<std::size_t>(channel), i);
        const PeakPoint there =
            PointOfSamples(*source, channel, i * 64, std::min(i * 64 + 64, properties.frames));
        ASSERT_EQ(point.minimum, there.minimum);
        ASSERT_EQ(point.maximum, there.maximum);
        ASSERT_NEAR(point.rms, there.rms, 0.01F * there.rms);
        ASSERT_EQ(point.clipped, there.clipped);
      }
    }
  }

  std::string WriteSparse(const std::string& name, const ByteWriter& head, std::int64_t size) {
    const std::string path = mFolder.Write(name, head.bytes);
    EXPECT_EQ(truncate(path.c_str(), size), 0);
    return path;
  }

  void PutShort(const std::string& path, std::int64_t offset, std::int16_t value) {
    const int descriptor = open(path.c_str(), O_WRONLY);
    EXPECT_EQ(pwrite(descriptor, &value, sizeof value, offset), static_cast<ssize_t>(sizeof value));
    close(descriptor);
  }

  // Two channels of silence with a click of a half at `frame` of the right one. The files are far too long to
  // be read whole.
  void ExpectClick(const std::string& path, std::int64_t frames, std::int64_t frame) {
    const auto source = OpenSampleSource(path);
    ASSERT_EQ(source->GetProperties().frames, frames);
    EXPECT_TRUE(source->IsParallel());
    float values[2][3][4] = {};
    const PeakRun runs[] = {{values[0][0], values[0][1], values[0][2]},
                            {values[1][0], values[1][1], values[1][2]}};
    const std::int64_t point = frame / kSamplesPerPoint;
    source->ReadPeaks((point - 1) * kSamplesPerPoint,
                      std::min<std::int64_t>(4 * kSamplesPerPoint, frames - (point - 1) * kSamplesPerPoint),
                      runs);
    EXPECT_EQ(values[1][1][0], 0.0F);
    EXPECT_EQ(values[1][1][1], 0.5F);
    EXPECT_EQ(values[0][1][1], 0.0F);
    float samples[6] = {};
    source->ReadInterleaved(frame - 1, samples);
    EXPECT_EQ(std::vector<float>(samples, samples + 6), (std::vector<float>{0, 0, 0, 0.5F, 0, 0}));
  }

  TemporaryFolder mFolder;
};

TEST_F(SampleSourceTest, ReadsPlainSamplesWithoutADecoder) {
  for (const std::size_t channelCount : {1, 2, 3, 6, 8}) {
    for (const auto& [name, format] : {std::pair{"a.wav", AudioFileFormat::kWavInt16},
                                       {"b.wav", AudioFileFormat::kWavInt24},
                                       {"c.wav", AudioFileFormat::kWavFloat},
                                       {"d.aiff", AudioFileFormat::kAiffInt16}}) {
      SCOPED_TRACE(name);
      WriteAudioFile(mFolder / name, format, 48000, Tones(channelCount, 3001));
      EXPECT_TRUE(OpenSampleSource(mFolder / name)->IsParallel());
      ExpectLikeTheDecoder(mFolder / name);
    }
  }
}

TEST_F(SampleSourceTest, DecodesEverythingElse) {
  for (const auto& [name, format] :
       {std::pair{"a.flac", AudioFileFormat::kFlacInt16}, {"b.ogg", AudioFileFormat::kOggVorbis}}) {
    WriteAudioFile(mFolder / name, format, 48000, Tones(2, 5001));
    EXPECT_FALSE(OpenSampleSource(mFolder / name)->IsParallel());
    ExpectLikeTheDecoder(mFolder / name);
  }
}

TEST_F(SampleSourceTest, KnowsTheBitsOfWholeNumbers) {
  const auto bits = [this](const std::string& name, AudioFileFormat format) {
    WriteAudioFile(mFolder / name, format, 48000, Tones(1, 100));
    return OpenSampleSource(mFolder / name)->GetProperties().integerBits;
  };
  EXPECT_EQ(bits("a.wav", AudioFileFormat::kWavInt16), 16);
  EXPECT_EQ(bits("b.wav", AudioFileFormat::kWavInt24), 24);
  EXPECT_EQ(bits("c.wav", AudioFileFormat::kWavFloat), 0);
  EXPECT_EQ(bits("d.flac", AudioFileFormat::kFlacInt16), 16);
  EXPECT_EQ(bits("e.ogg", AudioFileFormat::kOggVorbis), 0);
}

TEST_F(SampleSourceTest, KeepsFloatsBeyondFullScale) {
  std::vector<std::vector<float>> samples(1, std::vector<float>(200));
  samples[0][70] = 3.5F;
  samples[0][71] = -2.25F;
  WriteAudioFile(mFolder / "loud.wav", AudioFileFormat::kWavFloat, 48000, samples);
  const auto pyramid = BuildPyramid(*OpenSampleSource(mFolder / "loud.wav"));
  EXPECT_EQ(pyramid->GetPoint(0, 0, 1).maximum, 3.5F);
  EXPECT_EQ(pyramid->GetPoint(0, 0, 1).minimum, -2.25F);
  EXPECT_TRUE(pyramid->GetPoint(0, 0, 1).clipped);
}

TEST_F(SampleSourceTest, ReadsRF64OfMoreThanFourGigabytes) {
  const std::int64_t frames = (std::int64_t{5} << 30) / 4;
  ByteWriter head;
  head.Text("RF64").Little(0xFFFFFFFF, 4).Text("WAVE");
  head.Text("ds64").Little(28, 4).Little(static_cast<std::uint64_t>(frames * 4 + 72), 8);
  head.Little(static_cast<std::uint64_t>(frames * 4), 8)
      .Little(static_cast<std::uint64_t>(frames), 8)
      .Little(0, 4);
  head.Text("fmt ")
      .Little(16, 4)
      .Little(1, 2)
      .Little(2, 2)
      .Little(48000, 4)
      .Little(192000, 4)
      .Little(4, 2)
      .Little(16, 2);
  head.Text("data").Little(0xFFFFFFFF, 4);
  const auto dataOffset = static_cast<std::int64_t>(head.bytes.size());
  const std::string path = WriteSparse("big.rf64", head, dataOffset + frames * 4);
  const std::int64_t frame = frames - 100;
  PutShort(path, dataOffset + frame * 4 + 2, 16384);
  ExpectClick(path, frames, frame);
}

TEST_F(SampleSourceTest, ReadsWave64OfMoreThanFourGigabytes) {
  const std::int64_t frames = (std::int64_t{9} << 29) / 4;
  const auto tail = [](ByteWriter& writer) {
    for (const int byte : {0xF3, 0xAC, 0xD3, 0x11, 0x8C, 0xD1, 0x00, 0xC0, 0x4F, 0x8E, 0xDB, 0x8A}) {
      writer.Little(static_cast<std::uint64_t>(byte), 1);
    }
  };
  ByteWriter head;
  head.Text("riff");
  for (const int byte : {0x2E, 0x91, 0xCF, 0x11, 0xA5, 0xD6, 0x28, 0xDB, 0x04, 0xC1, 0x00, 0x00}) {
    head.Little(static_cast<std::uint64_t>(byte), 1);
  }
  head.Little(static_cast<std::uint64_t>(frames * 4 + 104), 8).Text("wave");
  tail(head);
  head.Text("fmt ");
  tail(head);
  head.Little(40, 8).Little(1, 2).Little(2, 2).Little(48000, 4).Little(192000, 4).Little(4, 2).Little(16, 2);
  head.Text("data");
  tail(head);
  head.Little(static_cast<std::uint64_t>(frames * 4 + 24), 8);
  const auto dataOffset = static_cast<std::int64_t>(head.bytes.size());
  const std::string path = WriteSparse("big.w64", head, dataOffset + frames * 4);
  const std::int64_t frame = frames - 77;
  PutShort(path, dataOffset + frame * 4 + 2, 16384);
  ExpectClick(path, frames, frame);
}

TEST_F(SampleSourceTest, TellsThatTheFileWasCutShortMeanwhile) {
  WriteAudioFile(mFolder / "a.wav", AudioFileFormat::kWavInt16, 48000, Tones(1, 100000));
  const auto source = OpenSampleSource(mFolder / "a.wav");
  ASSERT_EQ(truncate((mFolder / "a.wav").c_str(), 1000), 0);
  std::vector<float> samples(1000);
  try {
    source->ReadInterleaved(50000, samples);
    FAIL() << "read from beyond the end";
  } catch (const AudioFileError& error) {
    EXPECT_EQ(error.GetFault(), AudioFileFault::kTruncated);
  }
}

TEST_F(SampleSourceTest, RefusesWhatIsNoSoundFile) {
  EXPECT_THROW(OpenSampleSource(mFolder / "none.wav"), AudioFileError);
  EXPECT_THROW(OpenSampleSource(mFolder.Write("text.wav", {'h', 'e', 'l', 'l', 'o'})), AudioFileError);
}

TEST_F(SampleSourceTest, SurvivesHeadersWithAnyByteChanged) {
  WriteAudioFile(mFolder / "a.wav", AudioFileFormat::kWavInt16, 48000, Tones(2, 200));
  const auto good = testing::ReadBytes(mFolder / "a.wav");
  int opened = 0;
  for (std::size_t i = 0; i < 44; ++i) {
    for (const int value : {0x00, 0x01, 0x7F, 0xFF}) {
      auto bad = good;
      bad[i] = static_cast<std::uint8_t>(value);
      try {
        ExpectLikeTheDecoder(mFolder.Write("bad.wav", bad));
        ++opened;
      } catch (const AudioFileError&) {
      }
    }
  }
  EXPECT_GT(opened, 0);
}

TEST_F(SampleSourceTest, IsMadeFromWhatIsInMemory) {
  const auto audio = std::make_shared<const DecodedAudio>(44100, Tones(3, 1000));
  const auto source = MakeSampleSource(audio);
  EXPECT_EQ(source->GetProperties().sampleRate, 44100);
  const auto pyramid = BuildPyramid(*source);
  for (std::size_t channel = 0; channel < 3; ++channel) {
    EXPECT_EQ(pyramid->GetRange(channel, 64, 640).maximum, audio->GetPeaks(channel, 64, 640).maximum);
    EXPECT_EQ(pyramid->GetRange(channel, 64, 640).minimum, audio->GetPeaks(channel, 64, 640).minimum);
  }
  EXPECT_THROW(MakeSampleSource(nullptr), std::invalid_argument);
}

}  // namespace
}  // namespace moxaudiotoolkit
