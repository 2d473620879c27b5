#include <moxcore/config/Localizer.h>
#include <moxcore/string/TextOperations.h>
#include <moxui/controls/NumberFormat.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

namespace moxui::controls {
namespace {

using moxcore::Utf16String;

constexpr double kFirstWithExponent = 1e15;
constexpr char16_t kFigureSpace = u'\u2007';  // as wide as a digit
constexpr char16_t kMinusSign = u'\u2212';

struct Signs {
  Utf16String decimal;
  Utf16String group;
};

Signs SignsOf(NumberFormat const& format) {
  if (format.noLocalization && !format.normal) {
    return {.decimal = u".", .group = u","};
  }
  auto const& localizer = moxcore::config::Localizer::Get();
  return {.decimal = localizer.GetUTF16String("$$$/moxui/Number/DecimalSign=.#{comment} before decimals"),
          .group = localizer.GetUTF16String("$$$/moxui/Number/GroupSign=,#{comment} between thousands")};
}

Utf16String Widened(std::string_view text) {
  return {text.begin(), text.end()};
}

/// The digits of a magnitude, a point between whole ones and decimals.
std::string Digits(double magnitude, int places) {
  char digits[64];
  bool const isLarge = magnitude >= kFirstWithExponent;
  auto const made = isLarge
                        ? std::to_chars(digits, digits + sizeof digits, magnitude)
                        : std::to_chars(digits, digits + sizeof digits, magnitude, std::chars_format::fixed,
                                        std::clamp(places, 0, kMostDecimalPlaces));
  return {digits, made.ptr};
}

bool HasExponent(std::string_view digits) {
  return digits.find('e') != std::string_view::npos;
}

Utf16String Grouped(std::string_view whole, Utf16String const& group) {
  Utf16String grouped;
  for (std::size_t i = 0; i < whole.size(); ++i) {
    if (i > 0 && (whole.size() - i) % 3 == 0) {
      grouped += group;
    }
    grouped += static_cast<char16_t>(whole[i]);
  }
  return grouped;
}

Utf16String Unsigned(std::string digits, NumberFormat const& format) {
  Signs const signs = SignsOf(format);
  std::size_t const point = std::min(digits.find('.'), digits.size());
  if (format.noTrailingZeros && !format.normal && point < digits.size() && !HasExponent(digits)) {
    std::size_t const last = digits.find_last_not_of('0');
    digits.resize(last == point ? point : last + 1);
  }
  std::string_view const all = digits;
  std::string_view const whole = all.substr(0, point);
  bool const isGrouped = format.useSeparator && !format.normal && !HasExponent(all);
  Utf16String text = isGrouped ? Grouped(whole, signs.group) : Widened(whole);
  if (point < all.size()) {
    text += signs.decimal + Widened(all.substr(point + 1));
  }
  return text;
}

Utf16String Signed(double value, NumberFormat const& format) {
  std::string const digits = Digits(std::abs(value), format.decimalPlaces);
  bool const isZero = digits.find_first_of("123456789") == std::string::npos;
  Utf16String sign;
  if (value < 0.0 && !isZero) {
    sign = u"-";
  } else if (format.alwaysSign && !format.normal) {
    sign = u"+";
  } else if (format.padSign && !format.normal) {
    sign = kFigureSpace;
  }
  return sign + Unsigned(digits, format);
}

bool IsBlank(char16_t unit) {
  return unit == u' ' || unit == u'\t' || unit == u'\u00A0' || unit == u'\u2009' || unit == kFigureSpace ||
         unit == u'\u202F' || unit == u'\'' || unit == u'\u2019';
}

Utf16String WithoutBlanks(Utf16String text) {
  std::erase_if(text, IsBlank);
  return text;
}

std::size_t Count(Utf16String const& text, char16_t unit) {
  return static_cast<std::size_t>(std::ranges::count(text, unit));
}

/// Which of point and comma separates the decimals of a typed number; 0 for neither. One that may be either
/// stands between thousands where three decimals wouldn't be shown.
char16_t FindDecimalSign(Utf16String const& text, NumberFormat const& format) {
  std::size_t const points = Count(text, u'.');
  std::size_t const commas = Count(text, u',');
  if (points > 0 && commas > 0) {
    return text.find_last_of(u'.') > text.find_last_of(u',') ? u'.' : u',';
  }
  if (points + commas != 1) {
    return 0;  // the same sign several times stands between thousands
  }
  char16_t const sign = points == 1 ? u'.' : u',';
  std::size_t const place = text.find(sign);
  bool const mayBeGroup = text.size() - place == 4 && place >= 1 && place <= 3 && text.front() != u'0';
  bool const showsGroups = (format.useSeparator && !format.normal) || format.decimalPlaces < 3;
  bool const isGroup = mayBeGroup && showsGroups && Utf16String(1, sign) == SignsOf(format).group;
  return isGroup ? char16_t(0) : sign;
}

/// Whether the signs between thousands stand where they do.
bool HasWholeGroups(std::string_view whole, char group) {
  std::size_t const first = whole.find(group);
  if (first == std::string_view::npos) {
    return true;
  }
  if (first == 0 || first > 3) {
    return false;
  }
  for (std::size_t i = first; i < whole.size(); ++i) {
    if ((whole[i] == group) != ((i - first) % 4 == 0)) {
      return false;
    }
  }
  return (whole.size() - first) % 4 == 0;
}

std::optional<double> ReadDigits(std::string_view digits) {
  double value = 0.0;
  auto const read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  bool const isWhole = read.ec == std::errc() && read.ptr == digits.data() + digits.size();
  return isWhole && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

}  // namespace

Utf16String FormatNumber(double value, NumberFormat const& format, NumberRange const& range) {
  if (!std::isfinite(value)) {
    return {};
  }
  Utf16String text = Signed(value, format);
  if (format.leadingSpaces && !format.normal) {
    std::size_t widest = text.size();
    for (double const end : {range.minimum, range.maximum}) {
      if (std::abs(end) < kFirstWithExponent) {
        widest = std::max(widest, Signed(end, format).size());
      }
    }
    text.insert(0, widest - text.size(), kFigureSpace);
  }
  return text;
}

std::optional<double> ParseNumber(Utf16String const& typed, NumberFormat const& format,
                                  Utf16String const& label) {
  constexpr std::size_t kLongest = 400;  // more than any number that can be shown
  Utf16String text = typed.substr(0, kLongest + 1);
  moxcore::string::ConvertFullWidthAndIdeographicCharacters(text);
  text = WithoutBlanks(std::move(text));
  Utf16String const unit = WithoutBlanks(label);
  if (!unit.empty() && text.ends_with(unit)) {
    text.resize(text.size() - unit.size());
  }
  if (text.empty() || text.size() > kLongest) {
    return std::nullopt;
  }
  bool const isNegative = text.front() == u'-' || text.front() == kMinusSign;
  if (isNegative || text.front() == u'+') {
    text.erase(0, 1);
  }
  // What follows begins with a digit or a sign of decimals: no second sign, no word.
  bool const begins = !text.empty() && (text.front() == u'.' || text.front() == u',' ||
                                        (text.front() >= u'0' && text.front() <= u'9'));
  bool const isPlain = std::ranges::all_of(text, [](char16_t one) { return one < 0x80; });
  if (!begins || !isPlain) {
    return std::nullopt;
  }
  char16_t const decimal = FindDecimalSign(text, format);
  std::string const digits(text.begin(), text.end());
  std::size_t const point = decimal != 0 ? digits.find(static_cast<char>(decimal)) : std::string::npos;
  std::string whole = digits.substr(0, point);
  char const group = decimal == u'.' || (decimal == 0 && Count(text, u',') > 0) ? ',' : '.';
  if (!HasWholeGroups(whole, group)) {
    return std::nullopt;
  }
  std::erase(whole, group);
  std::string const rest = point == std::string::npos ? std::string() : "." + digits.substr(point + 1);
  auto const magnitude = ReadDigits((whole.empty() ? "0" : whole) + (rest == "." ? std::string() : rest));
  if (!magnitude || (whole.empty() && rest == ".")) {
    return std::nullopt;
  }
  return isNegative ? -*magnitude : *magnitude;
}

double AddSteps(double value, double steps, double increment) {
  constexpr double kParts = 1e9;
  constexpr double kLargest = 1e6;  // beyond, the parts are below a double's own
  double const sum = value + steps * increment;
  return std::abs(sum) < kLargest ? std::round(sum * kParts) / kParts : sum;
}

}  // namespace moxui::controls
