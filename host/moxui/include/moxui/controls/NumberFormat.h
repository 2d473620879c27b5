#pragma once

#include <moxcore/string/String.h>

#include <optional>

namespace moxui::controls {

inline constexpr int kMostDecimalPlaces = 15;

/// How a control shows a number. A plain value.
struct NumberFormat {
  int decimalPlaces = 0;         ///< 0 to kMostDecimalPlaces
  bool normal = false;           ///< as plain as can be: the other switches count as off
  bool alwaysSign = false;       ///< a plus before what isn't negative, zero too
  bool padSign = false;          ///< room for a sign before what has none
  bool leadingSpaces = false;    ///< as many characters as the longest number of the range has
  bool noTrailingZeros = false;  ///< no zeros at the end of the decimals
  bool useSeparator = false;     ///< between thousands
  bool noLocalization = false;   ///< a point and commas, whatever the language has

  friend bool operator==(NumberFormat const&, NumberFormat const&) = default;
};

/// The ends between which numbers of a control lie.
struct NumberRange {
  double minimum = 0.0;
  double maximum = 0.0;

  friend bool operator==(NumberRange const&, NumberRange const&) = default;
};

/// A number as text, rounded to its places; what rounds to zero has no minus. Blanks that stand for digits or
/// a sign are as wide as digits. From 10^15 on it has an exponent. Infinities and not-a-number give an empty
/// text.
moxcore::Utf16String FormatNumber(double value, NumberFormat const& format, NumberRange const& range);

/// A number that was typed, in full-width characters too, or nothing. Both a point and the language's own
/// sign separate decimals; separators of thousands, and blanks anywhere, are taken for what they are. A
/// `label` behind the number may be there or not. Only finite numbers are read.
std::optional<double> ParseNumber(moxcore::Utf16String const& text, NumberFormat const& format,
                                  moxcore::Utf16String const& label);

/// A value that was stepped, without the last bits that tenths and such leave behind.
double AddSteps(double value, double steps, double increment);

}  // namespace moxui::controls
