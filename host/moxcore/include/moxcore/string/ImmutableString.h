#pragma once

#include <moxcore/string/String.h>

#include <compare>
#include <cstddef>
#include <functional>
#include <string_view>

namespace moxcore {

// An interned UTF-8 text: equal texts are one object for the life of the process, so that copies, comparison
// and hashing cost no more than those of a pointer. The order is that of the texts' addresses: steady within
// a run, not alphabetical and not the same in the next. All operations may be called on any thread and inside
// static initialisation of any unit.
//
// Interned texts are never freed: for names, not for contents.
class ImmutableString {
 public:
  // The empty text.
  constexpr ImmutableString() noexcept = default;

  static ImmutableString Create(std::string_view text);
  // For constants that are made while a module loads.
  static ImmutableString _PrivateCreateStatic(char const* text);

  Utf8String ToUTF8String() const { return Utf8String(AsView()); }
  std::string_view AsView() const noexcept;
  // Ends with a NUL.
  char const* data() const noexcept;
  std::size_t size() const noexcept { return AsView().size(); }
  bool empty() const noexcept { return mEntry == nullptr; }

  friend bool operator==(ImmutableString, ImmutableString) noexcept = default;
  friend std::strong_ordering operator<=>(ImmutableString a, ImmutableString b) noexcept {
    return std::compare_three_way()(a.mEntry, b.mEntry);
  }

  struct Entry;

 private:
  friend std::hash<ImmutableString>;
  explicit constexpr ImmutableString(Entry const* entry) noexcept : mEntry(entry) {}

  Entry const* mEntry = nullptr;
};

}  // namespace moxcore

template <>
struct std::hash<moxcore::ImmutableString> {
  std::size_t operator()(moxcore::ImmutableString text) const noexcept {
    return std::hash<void const*>()(text.mEntry);
  }
};
