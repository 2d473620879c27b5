#pragma once

#include <moxcore/string/String.h>

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>

namespace moxcore {

// 128 bits that name an object; nil, all zero, names none. Ordered as 16 unsigned bytes, the first one first.
class Guid {
 public:
  using Bytes = std::array<std::uint8_t, 16>;

  // Nil.
  constexpr Guid() noexcept = default;
  explicit constexpr Guid(Bytes const& bytes) noexcept : mBytes(bytes) {}
  // Reads 8-4-4-4-12 hexadecimal digits of either case; any other text gives nil.
  explicit Guid(Utf8String const& text) noexcept;

  // A new one, from the system's random numbers (RFC 9562, version 4).
  static Guid CreateUnique();

  bool IsNil() const noexcept { return *this == Guid(); }
  // Lower case, 8-4-4-4-12.
  Utf8String AsUTF8String() const;
  Bytes const& GetBytes() const noexcept { return mBytes; }

  friend bool operator==(Guid const&, Guid const&) noexcept = default;
  friend std::strong_ordering operator<=>(Guid const&, Guid const&) noexcept = default;

 private:
  Bytes mBytes{};
};

}  // namespace moxcore

template <>
struct std::hash<moxcore::Guid> {
  std::size_t operator()(moxcore::Guid const& guid) const noexcept;
};
