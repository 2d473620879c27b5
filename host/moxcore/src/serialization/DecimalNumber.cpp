#include "DecimalNumber.h"

#include <charconv>
#include <cstdint>
#include <system_error>

namespace moxcore::serialization {

namespace {

template <class Number>
std::optional<Number> Whole(std::string_view text) {
  Number number{};
  auto const read = std::from_chars(text.data(), text.data() + text.size(), number);
  return read.ec == std::errc() && read.ptr == text.data() + text.size() ? std::optional(number)
                                                                         : std::nullopt;
}

// Whether a number that no double can hold is too small rather than too large: by the power of ten of its
// first digit that isn't 0.
bool IsTooSmall(std::string_view text) {
  auto const exponentAt = text.find_first_of("eE");
  auto const digits = text.substr(0, exponentAt);
  auto const point = digits.find('.');
  auto const first = digits.find_first_of("123456789");
  if (first == std::string_view::npos) {
    return true;
  }
  auto power = static_cast<std::int64_t>(point == std::string_view::npos ? digits.size() : point) -
               static_cast<std::int64_t>(first);
  if (exponentAt != std::string_view::npos) {
    auto exponent = text.substr(exponentAt + 1);
    exponent.remove_prefix(exponent.starts_with('+') ? 1 : 0);
    auto const value = Whole<std::int32_t>(exponent);
    if (!value.has_value()) {
      return exponent.starts_with('-');
    }
    power += *value;
  }
  return power < 0;
}

std::optional<std::any> Double(std::string_view text) {
  double number = 0;
  auto const read = std::from_chars(text.data(), text.data() + text.size(), number);
  if (read.ec == std::errc::result_out_of_range) {
    if (!IsTooSmall(text)) {
      return std::nullopt;
    }
    number = text.starts_with('-') ? -0.0 : 0.0;
  }
  return std::any(number);
}

}  // namespace

std::optional<std::any> NumberFromText(std::string_view text) {
  if (text.find_first_of(".eE") != std::string_view::npos) {
    return Double(text);
  }
  if (text.starts_with('-')) {
    auto const number = Whole<std::int64_t>(text);
    if (!number.has_value()) {
      return Double(text);
    }
    return *number == 0 ? std::any(std::uint64_t{0}) : std::any(*number);
  }
  auto const number = Whole<std::uint64_t>(text);
  return number.has_value() ? std::optional(std::any(*number)) : Double(text);
}

void AppendDouble(Utf8String& text, double value) {
  char buffer[32];
  auto const written = std::to_chars(buffer, buffer + sizeof buffer, value);
  std::string_view const digits(buffer, static_cast<std::size_t>(written.ptr - buffer));
  text.append(digits);
  if (digits.find_first_of(".e") == std::string_view::npos) {
    text.append(".0");
  }
}

}  // namespace moxcore::serialization
