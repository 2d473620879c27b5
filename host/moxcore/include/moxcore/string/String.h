#pragma once

#include <moxcore/string/STLAllocator.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace moxcore {

// The host's texts: UTF-8 in 8-bit units, UTF-16 in 16-bit units, both on the host's heap.
using Utf8String = std::basic_string<char, std::char_traits<char>, STLAllocator<char>>;
using Utf16String = std::basic_string<char16_t, std::char_traits<char16_t>, STLAllocator<char16_t>>;

}  // namespace moxcore

template <>
struct std::hash<moxcore::Utf8String> {
  std::size_t operator()(moxcore::Utf8String const& text) const noexcept {
    return std::hash<std::string_view>()(text);
  }
};

template <>
struct std::hash<moxcore::Utf16String> {
  std::size_t operator()(moxcore::Utf16String const& text) const noexcept {
    return std::hash<std::u16string_view>()(text);
  }
};
