#include "FileNames.h"

#include <moxcore/string/Encoding.h>

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <optional>

namespace moxappsupport::presets {

namespace {

using moxcore::Utf16String;
using moxcore::Utf8String;

// Nothing if the text is no UTF-8.
std::optional<Utf8String> Mapped(Utf8String const& text, int options) {
  struct Freeing {
    void operator()(utf8proc_uint8_t* memory) const { std::free(memory); }
  };
  utf8proc_uint8_t* result = nullptr;
  auto const length = utf8proc_map(
      reinterpret_cast<utf8proc_uint8_t const*>(text.data()), static_cast<utf8proc_ssize_t>(text.size()),
      &result, static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE | options));
  std::unique_ptr<utf8proc_uint8_t, Freeing> const owner(result);
  if (length < 0) {
    return std::nullopt;
  }
  return Utf8String(reinterpret_cast<char const*>(result), static_cast<std::size_t>(length));
}

bool IsReserved(char32_t character) {
  constexpr std::u32string_view kReserved = U"/\\:*?\"<>|";
  return character < 0x20 || (character >= 0x7f && character < 0xa0) ||
         kReserved.find(character) != std::u32string_view::npos;
}

bool IsBlankOrDot(char unit) {
  return unit == ' ' || unit == '.';
}

void TrimEnd(Utf8String& text) {
  while (!text.empty() && IsBlankOrDot(text.back())) {
    text.pop_back();
  }
}

// Some systems take these for devices, with any ending.
bool NamesADevice(Utf8String const& stem) {
  Utf8String word = stem.substr(0, stem.find('.'));
  TrimEnd(word);
  std::ranges::transform(word, word.begin(), [](char unit) {
    return unit >= 'a' && unit <= 'z' ? static_cast<char>(unit - 32) : unit;
  });
  constexpr std::array<std::string_view, 6> kDevices = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
  if (std::ranges::find(kDevices, std::string_view(word)) != kDevices.end()) {
    return true;
  }
  return word.size() == 4 && (word.starts_with("COM") || word.starts_with("LPT")) && word[3] >= '0' &&
         word[3] <= '9';
}

}  // namespace

Utf8String SafeStem(Utf16String const& text) {
  Utf8String stem;
  for (std::size_t position = 0; position < text.size();) {
    auto const character = moxcore::string::NextCharacter(text, position);
    moxcore::string::AppendCharacter(stem, IsReserved(character) ? U'_' : character);
  }
  stem = Mapped(stem, 0).value_or(stem);
  TrimEnd(stem);
  stem.erase(0, std::min(stem.find_first_not_of(' '), stem.size()));
  if (stem.starts_with('.')) {
    // It would be hidden.
    stem.front() = '_';
  }
  if (stem.empty() || NamesADevice(stem)) {
    stem.insert(0, 1, '_');
  }
  return stem;
}

Utf8String ShortenedStem(Utf8String const& stem, std::size_t bytes) {
  if (stem.size() <= bytes) {
    return stem;
  }
  auto end = bytes;
  while (end > 0 && (static_cast<unsigned char>(stem[end]) & 0xc0) == 0x80) {
    --end;
  }
  auto shortened = stem.substr(0, end);
  TrimEnd(shortened);
  return shortened;
}

Utf8String FoldedName(Utf8String const& name) {
  if (std::ranges::all_of(name, [](char unit) { return static_cast<unsigned char>(unit) < 0x80; })) {
    auto folded = name;
    std::ranges::transform(folded, folded.begin(), [](char unit) {
      return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit + 32) : unit;
    });
    return folded;
  }
  return Mapped(name, UTF8PROC_CASEFOLD).value_or(name);
}

}  // namespace moxappsupport::presets
