#include "LiteralTimecode.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace moxmediatypes {

namespace {

__extension__ typedef __int128 Wide;  // NOLINT(modernize-use-using): only so is it no warning

// Beyond anything that the range holds, yet small enough to be multiplied.
constexpr Wide kPlenty = Wide{1000} * 1'000'000'000 * 1'000'000'000;

bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

// White space becomes blanks and what isn't ASCII becomes a question mark, which no text may have.
std::string Plain(std::u16string_view text) {
  static const std::u16string kSpaces =
      u"\t\n\v\f\r \u0085\u00a0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200a"
      u"\u2028\u2029\u202f\u205f\u3000";
  std::string plain;
  for (const char16_t unit : text) {
    const bool isSpace = kSpaces.find(unit) != std::u16string::npos;
    plain += isSpace ? ' ' : unit != 0 && unit < 0x7f ? static_cast<char>(unit) : '?';
  }
  const std::size_t begin = plain.find_first_not_of(' ');
  return begin == std::string::npos ? "" : plain.substr(begin, plain.find_last_not_of(' ') + 1 - begin);
}

// Nothing for a text with anything but digits; 0 for an empty one.
std::optional<Wide> Number(const std::string& text) {
  Wide number = 0;
  for (const char digit : text) {
    if (!IsDigit(digit)) {
      return std::nullopt;
    }
    number = std::min(number * 10 + (digit - '0'), kPlenty);
  }
  return number;
}

std::vector<std::string> Split(const std::string& text, const std::string& separators) {
  std::vector<std::string> parts(1);
  for (const char character : text) {
    if (separators.find(character) != std::string::npos) {
      parts.emplace_back();
    } else {
      parts.back() += character;
    }
  }
  return parts;
}

TickTime Ticks(Wide units, bool negative, std::int64_t ticksPerUnit) {
  using Limits = std::numeric_limits<std::int64_t>;
  const Wide ticks = std::min(units, Wide{1} << 63) * ticksPerUnit * (negative ? -1 : 1);
  return TickTime(
      static_cast<std::int64_t>(std::max<Wide>(std::min<Wide>(ticks, Limits::max()), Limits::min())));
}

// Hours, minutes, seconds and frames.
std::optional<std::vector<std::string>> TimecodeParts(std::string text) {
  const std::size_t digits = static_cast<std::size_t>(std::ranges::find_if_not(text, IsDigit) - text.begin());
  const std::size_t rest = text.size() - digits;
  if (digits > 0 && text.find_first_not_of('.', digits) == std::string::npos) {
    if (rest > 3) {
      return std::nullopt;
    }
    text = text.substr(0, digits);
    for (std::size_t i = 0; i < rest; ++i) {
      text += "00";
    }
    while (text.size() < 8) {
      text = "0" + text;
    }
    const std::size_t hours = text.size() - 6;
    return {
        {text.substr(0, hours), text.substr(hours, 2), text.substr(hours + 2, 2), text.substr(hours + 4)}};
  }
  std::vector<std::string> parts = Split(text, ":;.,");
  if (parts.size() > 4) {
    return std::nullopt;
  }
  parts.insert(parts.begin(), 4 - parts.size(), "");
  return parts;
}

std::optional<Wide> TimecodeUnits(const std::string& text, FrameRate rate, TimeDisplay display) {
  const auto parts = TimecodeParts(text);
  if (!parts) {
    return std::nullopt;
  }
  std::array<Wide, 4> counts{};
  for (std::size_t i = 0; i < counts.size(); ++i) {
    const auto number = Number((*parts)[i]);
    if (!number) {
      return std::nullopt;
    }
    counts[i] = *number;
  }
  auto& [hours, minutes, seconds, frames] = counts;
  const std::int64_t base = LiteralFramesPerSecond(rate);
  if (base == 0) {
    return 0;
  }
  seconds += frames / base;
  frames %= base;
  minutes += seconds / 60;
  seconds %= 60;
  hours += minutes / 60;
  minutes %= 60;
  const std::int64_t dropped = LiteralDroppedLabels(rate, display);
  if (minutes % 10 != 0 && seconds == 0 && frames < dropped) {
    frames = dropped;
  }
  const Wide allMinutes = hours * 60 + minutes;
  return (allMinutes * 60 + seconds) * base + frames - dropped * (allMinutes - allMinutes / 10);
}

std::optional<Wide> FeetUnits(const std::string& text, int framesPerFoot) {
  const std::vector<std::string> parts = Split(text, "+");
  if (parts.size() > 2) {
    return std::nullopt;
  }
  const auto feet = parts.size() == 2 ? Number(parts.front()) : Wide{0};
  const auto frames = Number(parts.back());
  return feet && frames ? std::optional(*feet * framesPerFoot + *frames) : std::nullopt;
}

}  // namespace

std::int64_t LiteralFramesPerSecond(FrameRate rate) {
  const Wide ticks = rate.GetTicksPerFrame();
  if (ticks <= 0 || ticks == std::numeric_limits<std::int64_t>::max()) {
    return 0;
  }
  const Wide nearest = (Wide{2} * 254'016'000'000 + ticks) / (2 * ticks);
  return static_cast<std::int64_t>(std::max<Wide>(nearest, 1));
}

std::int64_t LiteralDroppedLabels(FrameRate rate, TimeDisplay display) {
  if (display.GetType() != 102 && display.GetType() != 106) {
    return 0;
  }
  return rate.GetTicksPerFrame() == 8'475'667'200 ? 2 : rate.GetTicksPerFrame() == 4'237'833'600 ? 4 : 0;
}

LabelWheels::LabelWheels(FrameRate rate, TimeDisplay display, int hour)
    : mFramesPerSecond(LiteralFramesPerSecond(rate)),
      mDropped(LiteralDroppedLabels(rate, display)),
      mHour(hour) {
  mText.fill(mDropped > 0 ? u';' : u':');
  Show(0, mHour);
  Show(3, 0);
  Show(6, 0);
  Show(9, 0);
}

void LabelWheels::Show(std::size_t place, std::int64_t number) {
  mText[place] = static_cast<char16_t>(u'0' + number / 10);
  mText[place + 1] = static_cast<char16_t>(u'0' + number % 10);
}

void LabelWheels::Turn() {
  if (++mFrame == mFramesPerSecond) {
    mFrame = 0;
    if (++mSecond == 60) {
      mSecond = 0;
      if (++mMinute == 60) {
        mMinute = 0;
        Show(0, ++mHour);
      }
      Show(3, mMinute);
      if (mMinute % 10 != 0) {
        mFrame = mDropped;
      }
    }
    Show(6, mSecond);
  }
  Show(9, mFrame);
}

std::optional<TickTime> ReadLiterally(std::u16string_view text, FrameRate rate, TimeDisplay display) {
  std::string entry = Plain(text);
  const bool negative = entry.starts_with('-');
  if (negative || entry.starts_with('+')) {
    entry.erase(0, 1);
  }
  if (std::ranges::none_of(entry, IsDigit)) {
    return std::nullopt;
  }
  const int code = display.GetType();
  const bool isFeet = code == 111 || code == 112;
  const bool isCount = code == 109 || code == 200 || code == 201;
  const std::optional<Wide> units = isFeet    ? FeetUnits(entry, code == 111 ? 40 : 16)
                                    : isCount ? Number(entry)
                                              : TimecodeUnits(entry, rate, display);
  if (!units) {
    return std::nullopt;
  }
  if (code == 201) {
    return Ticks(*units, negative, 254'016'000);
  }
  return LiteralFramesPerSecond(rate) == 0 ? TickTime() : Ticks(*units, negative, rate.GetTicksPerFrame());
}

}  // namespace moxmediatypes
