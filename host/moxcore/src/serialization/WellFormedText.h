#pragma once

#include <cstddef>
#include <string_view>

namespace moxcore::serialization {

// How many bytes of a text, from its beginning on, are well-formed UTF-8.
std::size_t WellFormedSize(std::string_view text) noexcept;

}  // namespace moxcore::serialization
