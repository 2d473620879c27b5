#include "MadeUpSources.h"

#include <moxaudiotoolkit/peaks/PeakPyramid.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <stdexcept>

namespace moxaudiotoolkit {
namespace {

using testing::BuildPyramid;
using testing::NoiseSource;
using testing::PointOfSamples;
using testing::SparseSource;

constexpr std::int64_t kFramesPerPage = PeakPyramid::kPointsPerPage * kSamplesPerPoint;

void ExpectSame(const PeakPoint& point, const PeakPoint& expected) {
  EXPECT_EQ(point.minimum, expected.minimum);
  EXPECT_EQ(point.maximum, expected.maximum);
  EXPECT_NEAR(point.rms, expected.rms, expected.rms * 0.01F);
  EXPECT_EQ(point.clipped, expected.clipped);
  EXPECT_EQ(point.known, expected.known);
}

void ExpectAllPointsAreThoseOfTheSamples(const SampleSource& source) {
  const auto pyramid = BuildPyramid(source);
  ASSERT_TRUE(pyramid->IsComplete());
  for (int level = 0; level < PeakPyramid::kLevelCount; ++level) {
    const std::int64_t samples = pyramid->GetSamplesPerPoint(level);
    const std::int64_t count = pyramid->GetPointCount(level);
    ASSERT_EQ(count, (pyramid->GetFrameCount() + samples - 1) / samples);
    for (int channel = 0; channel < source.GetProperties().channelCount; ++channel) {
      // The ends and some between.
      for (std::int64_t i = 0;
           i<count; i += i + 7> count - 3 || i < 3 ? 1 : std::max<std::int64_t>(count / 40, 1)) {
        SCOPED_TRACE(::testing::Message() << "level " << level << " channel " << channel << " point " << i);
        ExpectSame(pyramid->GetPoint(level, static_cast<std::size_t>(channel), i),
                   PointOfSamples(source, channel, i * samples,
                                  std::min((i + 1) * samples, pyramid->GetFrameCount())));
      }
    }
  }
}

TEST(PeakPyramid, HoldsThePeaksOfFloatsAtEveryLevel) {
  ExpectAllPointsAreThoseOfTheSamples(NoiseSource(kFramesPerPage + 5000, 2));
}

TEST(PeakPyramid, HoldsThePeaksOf16BitsAtEveryLevel) {
  ExpectAllPointsAreThoseOfTheSamples(NoiseSource(kFramesPerPage + 4097, 1, 16));
}

TEST(PeakPyramid, HoldsThePeaksOfAnyNumberOfChannels) {
  for (const int channelCount : {3, 4, 6, 8, 11}) {
    ExpectAllPointsAreThoseOfTheSamples(NoiseSource(1000, channelCount));
    ExpectAllPointsAreThoseOfTheSamples(NoiseSource(1001, channelCount, 16));
  }
}

TEST(PeakPyramid, KeepsTheLastPointOfAFewSamples) {
  for (const std::int64_t frames : {1, 63, 64, 65, 127, 128, 129, 255, 257, 4095, 4097}) {
    ExpectAllPointsAreThoseOfTheSamples(NoiseSource(frames, 2));
  }
}

TEST(PeakPyramid, KeepsSamplesBeyondFullScale) {
  const NoiseSource source(20000, 1, 0, 70.0F);
  const auto pyramid = BuildPyramid(source);
  ExpectSame(pyramid->GetRange(0, 0, 20000), PointOfSamples(source, 0, 0, 20000));
  EXPECT_GT(pyramid->GetRange(0, 0, 20000).maximum, 60.0F);
  EXPECT_TRUE(pyramid->GetRange(0, 0, 20000).clipped);
}

TEST(PeakPyramid, TellsClippedSamplesOf16BitsFromLoudOnes) {
  const SampleSourceProperties properties{
      .frames = 1000, .sampleRate = 48000, .channelCount = 1, .integerBits = 16};
  const SparseSource source(properties,
                            {{10, 32766.0F / 32768.0F}, {200, 32767.0F / 32768.0F}, {500, -1.0F}});
  const auto pyramid = BuildPyramid(source);
  EXPECT_FALSE(pyramid->GetRange(0, 0, 64).clipped);
  EXPECT_TRUE(pyramid->GetRange(0, 192, 256).clipped);
  EXPECT_TRUE(pyramid->GetRange(0, 448, 512).clipped);
  EXPECT_FALSE(pyramid->GetRange(0, 640, 1000).clipped);
}

TEST(PeakPyramid, AnswersRangesOfWholePointsExactly) {
  const NoiseSource source(3 * kFramesPerPage + 777, 2);
  const auto pyramid = BuildPyramid(source);
  std::mt19937_64 random(1);
  for (int i = 0; i < 60; ++i) {
    std::int64_t begin =
        static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(source.GetProperties().frames)) / 64 *
        64;
    std::int64_t end = std::min<std::int64_t>(
        begin + static_cast<std::int64_t>(1 + random() % (i % 2 == 0 ? 50 : 9000)) * 64,
        source.GetProperties().frames);
    SCOPED_TRACE(::testing::Message() << begin << " to " << end);
    ExpectSame(pyramid->GetRange(1, begin, end), PointOfSamples(source, 1, begin, end));
  }
  ExpectSame(pyramid->GetRange(0, -5, source.GetProperties().frames + 5),
             PointOfSamples(source, 0, 0, source.GetProperties().frames));
}

TEST(PeakPyramid, IsSilentAndKnownOutsideTheAudio) {
  const auto pyramid = BuildPyramid(NoiseSource(1000, 1));
  EXPECT_EQ(pyramid->GetRange(0, 1000, 2000), PeakPoint{.known = true});
  EXPECT_EQ(pyramid->GetRange(0, -10, 0), PeakPoint{.known = true});
  EXPECT_EQ(pyramid->GetRange(0, 500, 500), PeakPoint{.known = true});
}

TEST(PeakPyramid, OfNothingIsComplete) {
  const PeakPyramid pyramid({.frames = 0, .sampleRate = 48000, .channelCount = 2});
  EXPECT_TRUE(pyramid.IsComplete());
  EXPECT_EQ(pyramid.GetProgress(), 1.0);
  EXPECT_EQ(pyramid.GetRange(0, 0, 100), PeakPoint{.known = true});
}

TEST(PeakPyramid, TellsWhatIsNotKnownYet) {
  const NoiseSource source(2 * kFramesPerPage, 1);
  const auto whole = BuildPyramid(source);
  PeakPyramid half(GetPeakPyramidFormat(source.GetProperties()));
  std::vector<float> values(3 * static_cast<std::size_t>(PeakPyramid::kPointsPerPage));
  const PeakRun run{values.data(), values.data() + PeakPyramid::kPointsPerPage,
                    values.data() + 2 * PeakPyramid::kPointsPerPage};
  source.ReadPeaks(kFramesPerPage, kFramesPerPage, std::span(&run, 1));
  half.SetPage(1, std::span(&run, 1));

  EXPECT_EQ(half.GetProgress(), 0.5);
  EXPECT_FALSE(half.IsComplete());
  EXPECT_FALSE(half.HasPage(0));
  EXPECT_TRUE(half.HasPage(1));
  EXPECT_EQ(half.GetRange(0, 0, kFramesPerPage), PeakPoint{});
  EXPECT_EQ(half.GetRange(0, kFramesPerPage, 2 * kFramesPerPage),
            whole->GetRange(0, kFramesPerPage, 2 * kFramesPerPage));
  EXPECT_FALSE(half.GetRange(0, 0, 2 * kFramesPerPage).known);
  EXPECT_EQ(half.GetRange(0, 0, 2 * kFramesPerPage).maximum,
            whole->GetRange(0, kFramesPerPage, 2 * kFramesPerPage).maximum);
  EXPECT_FALSE(half.GetPoint(PeakPyramid::kLevelCount - 1, 0, 0).known);
}

TEST(PeakPyramid, TakesEachPageOnce) {
  PeakPyramid pyramid({.frames = 64, .sampleRate = 48000, .channelCount = 1});
  float value = 0.5F;
  const PeakRun run{&value, &value, &value};
  pyramid.SetPage(0, std::span(&run, 1));
  EXPECT_THROW(pyramid.SetPage(0, std::span(&run, 1)), std::invalid_argument);
  EXPECT_THROW(pyramid.SetPage(1, std::span(&run, 1)), std::invalid_argument);
  EXPECT_THROW(pyramid.SetPage(0, {}), std::invalid_argument);
}

TEST(PeakPyramid, RefusesFormatsThatMakeNoSense) {
  const PeakPyramidFormat good{.frames = 10, .sampleRate = 48000, .channelCount = 1};
  for (const auto change :
       {+[](PeakPyramidFormat& f) { f.frames = -1; },
        +[](PeakPyramidFormat& f) { f.frames = PeakPyramidFormat::kMostFrames + 1; },
        +[](PeakPyramidFormat& f) { f.sampleRate = 0; }, +[](PeakPyramidFormat& f) { f.channelCount = 0; },
        +[](PeakPyramidFormat& f) { f.channelCount = 257; },
        +[](PeakPyramidFormat& f) { f.samplesPerPoint = 0; }}) {
    PeakPyramidFormat bad = good;
    change(bad);
    EXPECT_THROW(PeakPyramid{bad}, std::invalid_argument);
  }
  const PeakPyramid pyramid(good);
  EXPECT_THROW(pyramid.GetPoint(0, 1, 0), std::out_of_range);
  EXPECT_THROW(pyramid.GetPoint(0, 0, 1), std::out_of_range);
  EXPECT_THROW(pyramid.GetPoint(PeakPyramid::kLevelCount, 0, 0), std::out_of_range);
  EXPECT_THROW(pyramid.GetRange(1, 0, 1), std::out_of_range);
}

TEST(PeakPyramid, TakesSixBytesForAPointOf16BitsAndAThirdMoreAbove) {
  const auto pyramid = BuildPyramid(NoiseSource(8 * kFramesPerPage, 2, 16));
  const double finest = 8.0 * PeakPyramid::kPointsPerPage * 2 * 6;
  EXPECT_LT(static_cast<double>(pyramid->GetMemorySize()), finest * 1.36);
  EXPECT_GT(static_cast<double>(pyramid->GetMemorySize()), finest * 1.3);
}

// The clicks are where they are, and nowhere else, from the whole down to the finest point.
void ExpectClicksAtTheirPlaces(const SparseSource& source) {
  const auto pyramid = BuildPyramid(source);
  const std::int64_t frames = source.GetProperties().frames;
  for (const auto& [frame, value] : source.GetClicks()) {
    SCOPED_TRACE(frame);
    for (int level = PeakPyramid::kLevelCount - 1; level >= 0; --level) {
      const PeakPoint point = pyramid->GetPoint(level, 0, frame / pyramid->GetSamplesPerPoint(level));
      EXPECT_GE(point.maximum, std::max(value, 0.0F)) << level;
      EXPECT_LE(point.minimum, std::min(value, 0.0F)) << level;
    }
    const std::int64_t begin = frame / 64 * 64;
    EXPECT_EQ(pyramid->GetRange(0, begin, std::min(begin + 64, frames)).maximum, std::max(value, 0.0F));
    EXPECT_EQ(pyramid->GetRange(0, begin - 640000, begin), PeakPoint{.known = true});
    EXPECT_EQ(pyramid->GetRange(0, begin + 64, begin + 640000), PeakPoint{.known = true});
  }
  EXPECT_EQ(pyramid->GetRange(0, 0, frames).maximum, 0.75F);
  EXPECT_EQ(pyramid->GetRange(0, 0, frames).minimum, -0.5F);
}

TEST(PeakPyramid, IsExactOver12HoursAndAHalfAt48Kilohertz) {
  const std::int64_t frames = 45000LL * 48000 + 17;  // beyond 2^31
  ExpectClicksAtTheirPlaces(SparseSource(
      {.frames = frames, .sampleRate = 48000, .channelCount = 1},
      {{0, 0.5F}, {(1LL << 31) - 1, 0.25F}, {(1LL << 31) + 1000000, -0.5F}, {frames - 1, 0.75F}}));
}

TEST(PeakPyramid, IsExactOver24HoursAt192Kilohertz) {
  const std::int64_t frames = 86400LL * 192000 + 1;
  ExpectClicksAtTheirPlaces(SparseSource({.frames = frames, .sampleRate = 192000, .channelCount = 1},
                                         {{1, 0.5F},
                                          {(1LL << 32) + 5000000, 0.25F},
                                          {(1LL << 33) + 1, -0.5F},
                                          {12345678901, 0.125F},
                                          {frames - 1, 0.75F}}));
}

TEST(PeakPyramid, TakesNextToNothingForSilence) {
  const SparseSource source({.frames = 7200LL * 192000, .sampleRate = 192000, .channelCount = 1},
                            {{99, 0.5F}});
  EXPECT_LT(BuildPyramid(source)->GetMemorySize(), 4U << 20);
}

}  // namespace
}  // namespace moxaudiotoolkit
