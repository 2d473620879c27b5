#pragma once

#include <moxcore/string/String.h>

#include <cstdint>

namespace timecode_tests {

/// What a timecode field's value does, step by step over plain numbers of ticks, without a thought for
/// elegance. Numbers must stay far from the ends of 64 bits.
struct PlainTimecodeModel {
  static constexpr std::int64_t kNoTime = -101606400000000000;

  std::int64_t value = 0;
  std::int64_t minTime = 0;
  std::int64_t maxTime = 91445760000000000;
  std::int64_t offset = 0;
  std::int64_t rate = 8475667200;
  int format = 102;
  std::int64_t quantizeRate = 9223372036854775807;
  int quantizeFormat = 999;

  void SetTime(std::int64_t time);
  void SetMinTime(std::int64_t time);
  void SetMaxTime(std::int64_t time);
  void SetOffset(std::int64_t newOffset);
  void SetText(moxcore::Utf16String const& text);
  void Increment(int count, bool large);
  moxcore::Utf16String Text() const;

 private:
  void Clamp();
};

}  // namespace timecode_tests
