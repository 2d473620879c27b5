// Texts by chance, read by the library and by the letter of the rules.
#include "AllRates.h"
#include "LiteralTimecode.h"

#include <moxmediatypes/Timecode.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <string_view>

namespace moxmediatypes {
namespace {

constexpr int kTexts = 300'000;
constexpr std::array<int, 8> kCodes = {102, 103, 106, 109, 111, 112, 200, 201};

class Chance {
 public:
  explicit Chance(std::uint64_t seed) : mRandom(seed) {}

  std::size_t Below(std::size_t count) { return mRandom() % count; }
  template <class Values>
  auto OneOf(const Values& values) {
    return values[Below(std::size(values))];
  }
  char16_t Unit() { return static_cast<char16_t>(mRandom()); }

 private:
  std::mt19937_64 mRandom;
};

// Mostly of what times are written with, and of any length up to that of a number beyond all bounds.
std::u16string RandomText(Chance& chance) {
  constexpr std::u16string_view kTimeUnits = u"0123456789012345678901234567890000::;;..,,+-+ \t";
  std::u16string text;
  const std::size_t length = chance.Below(8) == 0 ? chance.Below(40) : chance.Below(13);
  const bool isWild = chance.Below(16) == 0;
  while (text.size() < length) {
    text += isWild && chance.Below(4) == 0 ? chance.Unit() : chance.OneOf(kTimeUnits);
  }
  return text;
}

FrameRate RandomRate(Chance& chance) {
  constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
  constexpr std::array<std::int64_t, 8> kOdd = {0, -1, 1, 2, 5292000, kMost - 1, kMost, 254'016'000'000};
  return chance.Below(4) == 0 ? FrameRate(chance.OneOf(kOdd)) : chance.OneOf(kAllRates);
}

TEST(RandomTexts, AreReadByTheLetterOfTheRules) {
  Chance chance(20);
  int readable = 0;
  for (int i = 0; i < kTexts; ++i) {
    const std::u16string text = RandomText(chance);
    const FrameRate rate = RandomRate(chance);
    const TimeDisplay display(chance.OneOf(kCodes));
    const TickTime time = TimecodeToTime(text, rate, display);
    const auto literal = ReadLiterally(text, rate, display);
    readable += literal ? 1 : 0;
    ASSERT_EQ(time.GetTicks(), literal.value_or(TickTime::kInvalid).GetTicks())
        << testing::PrintToString(text) << " at " << rate.GetTicksPerFrame() << " in " << display.GetType();
  }
  EXPECT_GT(readable, kTexts / 4) << "most texts should be worth reading";
}

// Whatever is read is shown as a text that is read as the same time.
TEST(RandomTexts, AreReadAgainAsTheyAreShown) {
  Chance chance(21);
  for (int i = 0; i < kTexts; ++i) {
    const std::u16string text = RandomText(chance);
    const FrameRate rate = RandomRate(chance);
    const TimeDisplay display(chance.OneOf(kCodes));
    const TickTime time = TimecodeToTime(text, rate, display);
    const bool isAnEnd = time.GetTicks() == std::numeric_limits<std::int64_t>::max() ||
                         time.GetTicks() == std::numeric_limits<std::int64_t>::min();
    if (!isAnEnd) {
      const auto shown = TimeToTimecode(time.IsInvalid() ? TickTime() : time, rate, display);
      ASSERT_EQ(TimecodeToTime(shown, rate, display), time.IsInvalid() ? TickTime() : time)
          << testing::PrintToString(text) << " at " << rate.GetTicksPerFrame();
    }
  }
}

// Each rate and each time that 64 bits can hold.
TEST(RandomTimes, AreShownForEveryRate) {
  Chance chance(22);
  std::mt19937_64 random(23);
  for (int i = 0; i < kTexts; ++i) {
    const TickTime time(static_cast<std::int64_t>(random()) >> chance.Below(64));
    const FrameRate rate(static_cast<std::int64_t>(random()) >> chance.Below(64));
    const TimeDisplay display(chance.OneOf(kCodes));
    const auto shown = TimeToTimecode(time, rate, display);
    const TickTime back = TimecodeToTime(shown, rate, display);
    ASSERT_FALSE(shown.empty());
    if (!rate.IsValid() && display.GetType() != 201) {
      ASSERT_EQ(back, TickTime());
      continue;
    }
    const FrameRate unit = display.GetType() == 201 ? FrameRate(254'016'000) : rate;
    // The frame that contains the time begins at or before it, and by less than a frame; the first frame of
    // all may begin before the range does.
    ASSERT_TRUE(back <= time || back.GetTicks() == std::numeric_limits<std::int64_t>::min());
    ASSERT_LE((time - back).GetTicks(), unit.GetTicksPerFrame() - 1);
    ASSERT_GE(time.GetTicks() - back.GetTicks(), 0);
  }
}

}  // namespace
}  // namespace moxmediatypes
