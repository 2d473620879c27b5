#pragma once

#include <cstdint>
#include <string_view>

namespace moxmediaui {

/// How long the pointer stays hidden after a turn, in milliseconds, from a diagnostic setting: its digits up
/// to the first other character; 0 without any, and for numbers beyond 4294967295.
std::uint32_t ReadHideCursorDelay(std::string_view text);

}  // namespace moxmediaui
