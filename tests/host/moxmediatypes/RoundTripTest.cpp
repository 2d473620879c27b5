// Every frame of 25 hours at every rate, and every millisecond: the text is the one that a counter of wheels
// shows, and denotes the time again.
#include "AllRates.h"
#include "LiteralTimecode.h"

#include <moxcore/threads/Executor.h>
#include <moxmediatypes/Timecode.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <mutex>
#include <random>
#include <string>
#include <tuple>

namespace moxmediatypes {
namespace {

constexpr int kHours = 25;

// The sanitizers make everything slower some fifteen times: there only each so many-th time is converted, and
// all that are about a minute's end; of the many codes whose labels are alike only in each so many-th hour.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr std::int64_t kStride = 61;
constexpr int kHourStride = 6;
#else
constexpr std::int64_t kStride = 1;
constexpr int kHourStride = 1;
#endif

// Every so many-th time is tried as a negative one and from within its frame, too.
constexpr std::int64_t kVariantStride = 53;

// Counts what differs, from all threads, and keeps the first.
class Differences {
 public:
  void Add(TickTime time, const moxcore::Utf16String& got, std::u16string_view wanted) {
    if (mCount++ == 0) {
      const std::lock_guard lock(mMutex);
      mFirst = std::to_string(time.GetTicks()) + " ticks: " + std::string(got.begin(), got.end()) + " for " +
               std::string(wanted.begin(), wanted.end());
    }
  }
  std::int64_t GetCount() const { return mCount; }
  std::string GetFirst() const { return mFirst; }

 private:
  std::atomic<std::int64_t> mCount = 0;
  std::mutex mMutex;
  std::string mFirst;
};

struct Format {
  FrameRate rate;
  TimeDisplay display;
  std::int64_t ticksPerUnit;
};

void CheckUnit(std::int64_t unit, std::u16string_view wanted, const Format& format,
               Differences& differences) {
  const TickTime time(unit * format.ticksPerUnit);
  const auto text = TimeToTimecode(time, format.rate, format.display);
  if (text != wanted || TimecodeToTime(text, format.rate, format.display) != time) {
    differences.Add(time, text, wanted);
  }
  if (unit % kVariantStride != 0 || unit == 0) {
    return;
  }
  const TickTime last = time + TickTime(format.ticksPerUnit - 1);
  const auto within = TimeToTimecode(last, format.rate, format.display);
  if (within != wanted) {
    differences.Add(last, within, wanted);
  }
  for (const std::int64_t into : {std::int64_t{0}, format.ticksPerUnit - 1}) {
    const TickTime before = -time + TickTime(into);
    const auto negative = TimeToTimecode(before, format.rate, format.display);
    if (negative != u"-" + moxcore::Utf16String(wanted) ||
        TimecodeToTime(negative, format.rate, format.display) != -time) {
      differences.Add(before, negative, wanted);
    }
  }
}

// A count in decimal digits that goes up by one; of film, in feet and frames.
class CountWheels {
 public:
  CountWheels(std::int64_t count, int framesPerFoot) : mFramesPerFoot(framesPerFoot) {
    mFrames = framesPerFoot > 0 ? static_cast<int>(count % framesPerFoot) : 0;
    const std::string digits = std::to_string(framesPerFoot > 0 ? count / framesPerFoot : count);
    mText.assign(digits.begin(), digits.end());
    if (framesPerFoot > 0) {
      mText += u"+00";
      ShowFrames();
    }
  }

  void Turn() {
    if (mFramesPerFoot > 0 && ++mFrames < mFramesPerFoot) {
      ShowFrames();
      return;
    }
    mFrames = 0;
    std::size_t place = mText.size();
    if (mFramesPerFoot > 0) {
      ShowFrames();
      place -= 3;
    }
    while (place > 0 && mText[place - 1] == u'9') {
      mText[--place] = u'0';
    }
    if (place == 0) {
      mText.insert(mText.begin(), u'1');
    } else {
      ++mText[place - 1];
    }
  }

  std::u16string_view Text() const { return mText; }

 private:
  void ShowFrames() {
    mText[mText.size() - 2] = static_cast<char16_t>(u'0' + mFrames / 10);
    mText[mText.size() - 1] = static_cast<char16_t>(u'0' + mFrames % 10);
  }

  int mFramesPerFoot;
  int mFrames;
  std::u16string mText;
};

void CheckHourOfCounts(int hour, std::int64_t unitsPerHour, int framesPerFoot, const Format& format,
                       Differences& differences) {
  const std::int64_t first = hour * unitsPerHour;
  CountWheels wheels(first, framesPerFoot);
  for (std::int64_t unit = first; unit < first + unitsPerHour; ++unit, wheels.Turn()) {
    if (unit % kStride == 0) {
      CheckUnit(unit, wheels.Text(), format, differences);
    }
  }
}

// As many frames as the wheels take from one hour to the next; each hour begins with a tenth minute, so
// that all are alike.
std::int64_t FramesPerHour(const Format& format) {
  std::int64_t frames = 0;
  for (LabelWheels wheels(format.rate, format.display, 0); wheels.GetHour() == 0; wheels.Turn()) {
    ++frames;
  }
  return frames;
}

void CheckHourOfLabels(int hour, std::int64_t framesPerHour, std::int64_t stride, const Format& format,
                       Differences& differences) {
  std::int64_t unit = hour * framesPerHour;
  for (LabelWheels wheels(format.rate, format.display, hour); wheels.GetHour() == hour; wheels.Turn()) {
    if (unit % stride == 0 || wheels.IsAboutMinute()) {
      CheckUnit(unit, wheels.Text(), format, differences);
    }
    ++unit;
  }
}

template <class Check>
void CheckAllHours(Check check) {
  using namespace moxcore::threads;
  AsyncExecuteTaskOnAllThreads(check, kHours, GetCPUBoundExecutor())->Wait();
}

class EveryFrame : public testing::TestWithParam<std::tuple<FrameRate, int>> {
 protected:
  Format format{std::get<0>(GetParam()), TimeDisplay(std::get<1>(GetParam())),
                std::get<0>(GetParam()).GetTicksPerFrame()};
  Differences differences;
};

class EveryLabel : public EveryFrame {};

TEST_P(EveryLabel, IsThatOfTheWheelsAndIsReadBack) {
  const std::int64_t framesPerHour = FramesPerHour(format);
  CheckAllHours([&](int hour) { CheckHourOfLabels(hour, framesPerHour, kStride, format, differences); });
  EXPECT_EQ(differences.GetCount(), 0) << differences.GetFirst();
}

// Timecode is labelled in two ways, whatever the code: without dropped labels, and with them at the rates
// that have any.
INSTANTIATE_TEST_SUITE_P(AtEveryRate, EveryLabel,
                         testing::Combine(testing::ValuesIn(kAllRates), testing::Values(103)));
INSTANTIATE_TEST_SUITE_P(OfDropFrame, EveryLabel,
                         testing::Combine(testing::Values(FrameRate::k2997, FrameRate::k5994),
                                          testing::Values(102)));

class LabelsOfEveryMinute : public EveryFrame {};

// All about the minutes' ends, and some between.
TEST_P(LabelsOfEveryMinute, AreThoseOfTheWheelsAndAreReadBack) {
  const std::int64_t framesPerHour = FramesPerHour(format);
  CheckAllHours([&](int hour) {
    if (hour % kHourStride == 0) {
      CheckHourOfLabels(hour, framesPerHour, 1009, format, differences);
    }
  });
  EXPECT_EQ(differences.GetCount(), 0) << differences.GetFirst();
}

INSTANTIATE_TEST_SUITE_P(OfEveryCode, LabelsOfEveryMinute,
                         testing::Combine(testing::ValuesIn(kAllRates),
                                          testing::Values(100, 101, 102, 104, 105, 106, 107, 108, 110, 113,
                                                          999)));

class EveryFrameCount : public EveryFrame {};

TEST_P(EveryFrameCount, IsThatOfTheWheelsAndIsReadBack) {
  const std::int64_t framesPerHour = 3600 * LiteralFramesPerSecond(format.rate);
  const int framesPerFoot = GetFramesPerFoot(format.display);
  CheckAllHours(
      [&](int hour) { CheckHourOfCounts(hour, framesPerHour, framesPerFoot, format, differences); });
  EXPECT_EQ(differences.GetCount(), 0) << differences.GetFirst();
}

INSTANTIATE_TEST_SUITE_P(AtEveryRate, EveryFrameCount,
                         testing::Combine(testing::ValuesIn(kAllRates), testing::Values(109, 111, 112)));

TEST(RoundTrip, ReadsBackEveryMillisecond) {
  const Format format{FrameRate::PerSecond(48000), TimeDisplay(201), 254'016'000};
  Differences differences;
  CheckAllHours([&](int hour) { CheckHourOfCounts(hour, 3'600'000, 0, format, differences); });
  EXPECT_EQ(differences.GetCount(), 0) << differences.GetFirst();
}

class SamplesOfEveryStratum : public testing::TestWithParam<int> {};

// 25 hours in strata of equal length, and of each one sample by chance.
TEST_P(SamplesOfEveryStratum, AreReadBack) {
  constexpr std::int64_t kStrata = 200'000;
  const FrameRate rate = FrameRate::PerSecond(GetParam());
  const Format format{rate, TimeDisplay(200), rate.GetTicksPerFrame()};
  const std::int64_t samplesPerStratum = std::int64_t{kHours} * 3600 * GetParam() / kStrata;
  std::mt19937_64 random(GetParam());
  std::uniform_int_distribution<std::int64_t> within(0, samplesPerStratum - 1);
  Differences differences;
  for (std::int64_t stratum = 0; stratum < kStrata; ++stratum) {
    const std::int64_t sample = stratum * samplesPerStratum + within(random);
    const std::string text = std::to_string(sample);
    CheckUnit(sample, std::u16string(text.begin(), text.end()), format, differences);
  }
  EXPECT_EQ(differences.GetCount(), 0) << differences.GetFirst();
}

INSTANTIATE_TEST_SUITE_P(AtUsualRates, SamplesOfEveryStratum,
                         testing::Values(8000, 22050, 44100, 48000, 96000, 192000));

}  // namespace
}  // namespace moxmediatypes
