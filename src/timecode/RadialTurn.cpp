#include "RadialTurn.h"

#include <charconv>
#include <system_error>

namespace moxmediaui {

std::uint32_t ReadHideCursorDelay(std::string_view text) {
  std::uint32_t delay = 0;
  auto const result = std::from_chars(text.data(), text.data() + text.size(), delay);
  return result.ec == std::errc() ? delay : 0;
}

}  // namespace moxmediaui
