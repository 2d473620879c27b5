// Texts as a user might enter them, read as times, against the letter of the rules; what was read is shown
// and read again. The input: format (1 byte), rate (1; 8 more for one of its own), then the text in UTF-16.
#include "LiteralTimecode.h"

#include <moxmediatypes/Timecode.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

namespace {

using namespace moxmediatypes;

constexpr std::array<int, 12> kCodes = {102, 103, 106, 107, 101, 109, 111, 112, 200, 201, 999, -1};
constexpr std::array<FrameRate, 12> kRates = {FrameRate::k2997,
                                              FrameRate::k5994,
                                              FrameRate::k25,
                                              FrameRate::k23976,
                                              FrameRate::k15,
                                              FrameRate::k60,
                                              FrameRate::k48,
                                              FrameRate::k50,
                                              FrameRate::kInvalid,
                                              FrameRate(0),
                                              FrameRate::PerSecond(48000),
                                              FrameRate(1)};

void Require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

// The bytes of the input, from its begin; zero beyond its end.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : mData(data), mSize(size) {}

  template <class Value>
  Value Take() {
    Value value{};
    if (mSize >= sizeof value) {
      std::memcpy(&value, mData, sizeof value);
      mData += sizeof value;
      mSize -= sizeof value;
    } else {
      mSize = 0;
    }
    return value;
  }
  bool IsEmpty() const { return mSize == 0; }

 private:
  const std::uint8_t* mData;
  std::size_t mSize;
};

void CheckShown(TickTime time, FrameRate rate, TimeDisplay display) {
  using Limits = std::numeric_limits<std::int64_t>;
  const auto shown = TimeToTimecode(time, rate, display);
  Require(!shown.empty());
  // At the ends of the range the frame isn't whole.
  if (time.GetTicks() != Limits::min() && time.GetTicks() != Limits::max()) {
    Require(TimecodeToTime(shown, rate, display) == time);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  const TimeDisplay display(kCodes[input.Take<std::uint8_t>() % kCodes.size()]);
  const std::size_t choice = input.Take<std::uint8_t>() % (kRates.size() + 1);
  const FrameRate rate = choice < kRates.size() ? kRates[choice] : FrameRate(input.Take<std::int64_t>());
  std::u16string text;
  while (!input.IsEmpty()) {
    text += static_cast<char16_t>(input.Take<std::uint16_t>());
  }
  const TickTime time = TimecodeToTime(text, rate, display);
  const auto literal = ReadLiterally(text, rate, display);
  Require(time == literal.value_or(TickTime::kInvalid));
  if (literal) {
    CheckShown(time, rate, display);
  }
  return 0;
}
