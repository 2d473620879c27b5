// Timecode texts of the host's media types, against the digits alone that they are made of.
#include "Figure.h"

#include <moxcore/string/String.h>
#include <moxmediatypes/Timecode.h>

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace moxmediatypes;
using bench::DoNotOptimize;

constexpr std::size_t kTimes = 1000;
constexpr FrameRate kRate = FrameRate::k2997;
constexpr TimeDisplay kDisplay(TimeDisplay::kTimecode2997Drop);

// Random times of a day, not on frame boundaries, and what stands for them.
struct Sample {
  std::vector<TickTime> times;
  std::vector<moxcore::Utf16String> texts;
  std::vector<std::string> plainTexts;                 // the same in 8-bit units
  std::vector<std::array<unsigned, 4>> fieldsOfTexts;  // hours, minutes, seconds, frames
};

constexpr std::size_t kDigitsOfField = 2;
constexpr std::size_t kUnitsOfField = 3;  // with its separator
constexpr std::size_t kTextSize = 11;

Sample MakeSample() {
  Sample sample;
  std::mt19937_64 random(1);
  std::uniform_int_distribution<std::int64_t> ticks(0, 86'400 * kTicksPerSecond - 1);
  for (std::size_t i = 0; i < kTimes; ++i) {
    sample.times.emplace_back(ticks(random));
    sample.texts.push_back(TimeToTimecode(sample.times.back(), kRate, kDisplay));
    sample.plainTexts.emplace_back(sample.texts.back().begin(), sample.texts.back().end());
    std::array<unsigned, 4> fields{};
    for (std::size_t field = 0; field < fields.size(); ++field) {
      const char* digits = sample.plainTexts.back().data() + field * kUnitsOfField;
      std::from_chars(digits, digits + kDigitsOfField, fields[field]);
    }
    sample.fieldsOfTexts.push_back(fields);
  }
  return sample;
}

void WriteTwoDigits(char* place, unsigned number) {
  if (number < 10) {
    *place++ = '0';
  }
  std::to_chars(place, place + kDigitsOfField, number);
}

moxcore::Utf16String FieldsAsText(const std::array<unsigned, 4>& fields) {
  std::array<char, kTextSize + 1> units;
  units.fill(';');
  for (std::size_t field = 0; field < fields.size(); ++field) {
    WriteTwoDigits(units.data() + field * kUnitsOfField, fields[field]);
  }
  return {units.data(), units.data() + kTextSize};
}

unsigned FieldsOfText(const std::string& text) {
  unsigned sum = 0;
  for (std::size_t field = 0; field < 4; ++field) {
    unsigned number = 0;
    const char* digits = text.data() + field * kUnitsOfField;
    std::from_chars(digits, text.data() + text.size(), number);
    sum += number;
  }
  return sum;
}

}  // namespace

int main(int argc, char** argv) {
  bench::Figures figures(argc, argv);
  const Sample sample = MakeSample();
  figures.Compare({.name = "timecode_format",
                   .numerator =
                       [&] {
                         for (const TickTime& time : sample.times) {
                           DoNotOptimize(TimeToTimecode(time, kRate, kDisplay).data());
                         }
                       },
                   .denominator =
                       [&] {
                         for (const auto& fields : sample.fieldsOfTexts) {
                           DoNotOptimize(FieldsAsText(fields).data());
                         }
                       },
                   .bar = 4,
                   .unit = "ns",
                   .numeratorRuns = kTimes,
                   .denominatorRuns = kTimes});
  figures.Compare({.name = "timecode_parse",
                   .numerator =
                       [&] {
                         for (const auto& text : sample.texts) {
                           DoNotOptimize(TimecodeToTime(text, kRate, kDisplay).GetTicks());
                         }
                       },
                   .denominator =
                       [&] {
                         for (const auto& text : sample.plainTexts) {
                           DoNotOptimize(FieldsOfText(text));
                         }
                       },
                   .bar = 5,
                   .unit = "ns",
                   .numeratorRuns = kTimes,
                   .denominatorRuns = kTimes});
  return figures.Result();
}
