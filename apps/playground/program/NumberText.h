#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace playground {

// A finite decimal number that fills the whole text, whatever the locale; nothing for anything else.
std::optional<double> NumberFromText(std::string_view text);
std::optional<std::int64_t> IntegerFromText(std::string_view text);

// The number with at most `decimals` places, without trailing zeros: 1.5, 2, -0.25.
std::string TextFromNumber(double number, int decimals);

}  // namespace playground
