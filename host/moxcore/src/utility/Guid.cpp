#include <moxcore/utility/Guid.h>

#include <cstring>
#include <random>
#include <string_view>

namespace moxcore {

namespace {

constexpr std::size_t kTextSize = 36;

constexpr bool IsDashPlace(std::size_t index) noexcept {
  return index == 8 || index == 13 || index == 18 || index == 23;
}

// 16 for anything but a hexadecimal digit.
constexpr unsigned DigitValue(char digit) noexcept {
  if (digit >= '0' && digit <= '9') {
    return static_cast<unsigned>(digit - '0');
  }
  if (digit >= 'a' && digit <= 'f') {
    return static_cast<unsigned>(digit - 'a' + 10);
  }
  return digit >= 'A' && digit <= 'F' ? static_cast<unsigned>(digit - 'A' + 10) : 16;
}

}  // namespace

Guid::Guid(Utf8String const& text) noexcept {
  if (text.size() != kTextSize) {
    return;
  }
  Bytes bytes{};
  std::size_t digits = 0;
  for (std::size_t i = 0; i < kTextSize; ++i) {
    if (IsDashPlace(i)) {
      if (text[i] != '-') {
        return;
      }
      continue;
    }
    auto const value = DigitValue(text[i]);
    if (value > 15) {
      return;
    }
    auto& byte = bytes[digits++ / 2];
    byte = static_cast<std::uint8_t>(byte << 4 | value);
  }
  mBytes = bytes;
}

Guid Guid::CreateUnique() {
  std::random_device system;
  Bytes bytes;
  for (std::size_t i = 0; i < bytes.size(); i += sizeof(std::uint32_t)) {
    std::uint32_t const word = system();
    std::memcpy(&bytes[i], &word, sizeof word);
  }
  bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0f) | 0x40);
  bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3f) | 0x80);
  return Guid(bytes);
}

Utf8String Guid::AsUTF8String() const {
  constexpr std::string_view kDigits = "0123456789abcdef";
  Utf8String text;
  text.reserve(kTextSize);
  for (auto const byte : mBytes) {
    if (IsDashPlace(text.size())) {
      text.push_back('-');
    }
    text.push_back(kDigits[byte >> 4]);
    text.push_back(kDigits[byte & 15]);
  }
  return text;
}

}  // namespace moxcore

std::size_t std::hash<moxcore::Guid>::operator()(moxcore::Guid const& guid) const noexcept {
  auto const& bytes = guid.GetBytes();
  return std::hash<std::string_view>()({reinterpret_cast<char const*>(bytes.data()), bytes.size()});
}
