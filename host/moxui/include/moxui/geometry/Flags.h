#pragma once

namespace moxui {

/// A set of bits in an unsigned integer T.
template <typename T>
class Flags {
 public:
  constexpr Flags() = default;
  constexpr Flags(T bits)
      : mBits(bits) {}  // NOLINT(google-explicit-constructor): a set of bits is its number

  constexpr T Bits() const { return mBits; }
  constexpr bool Has(Flags flags) const { return (mBits & flags.mBits) == flags.mBits; }
  constexpr bool HasAny(Flags flags) const { return (mBits & flags.mBits) != 0; }
  constexpr bool IsEmpty() const { return mBits == 0; }
  constexpr void Set(Flags flags, bool on = true) {
    mBits = static_cast<T>(on ? (mBits | flags.mBits) : (mBits & ~flags.mBits));
  }
  friend constexpr Flags operator|(Flags a, Flags b) { return Flags(static_cast<T>(a.mBits | b.mBits)); }
  friend constexpr Flags operator&(Flags a, Flags b) { return Flags(static_cast<T>(a.mBits & b.mBits)); }
  friend constexpr bool operator==(Flags, Flags) = default;

 private:
  T mBits{};
};

}  // namespace moxui
