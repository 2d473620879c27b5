#include "program/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

namespace playground {
namespace {

template <class T>
std::optional<T> Whole(std::string_view text) {
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) {
      return std::nullopt;
    }
  }
  T value{};
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) {
    return std::nullopt;
  }
  return value;
}

}  // namespace

std::optional<double> NumberFromText(std::string_view text) {
  auto const value = Whole<double>(text);
  return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<std::int64_t> IntegerFromText(std::string_view text) {
  return Whole<std::int64_t>(text);
}

std::string TextFromNumber(double number, int decimals) {
  std::array<char, 400> buffer;
  auto const [end, error] =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::fixed, decimals);
  if (error != std::errc()) {
    return {};
  }
  std::string text(buffer.data(), end);
  if (text.find('.') != std::string::npos) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) {
      text.pop_back();
    }
  }
  return text == "-0" ? "0" : text;
}

}  // namespace playground
