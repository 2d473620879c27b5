#pragma once

#include <moxcore/string/String.h>

#include <any>
#include <optional>
#include <string_view>

namespace moxcore::serialization {

// A number of JSON's form as the value model holds it: std::uint64_t from 0 up, std::int64_t below, double if
// it has a point or an exponent or doesn't fit. Nothing if it is beyond the largest double; what is too small
// for one is 0.
std::optional<std::any> NumberFromText(std::string_view text);

// The fewest digits that read as the same double, with a point or an exponent among them. `value` is finite.
void AppendDouble(Utf8String& text, double value);

}  // namespace moxcore::serialization
