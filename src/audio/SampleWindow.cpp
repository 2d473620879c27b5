#include "SampleWindow.h"

#include <algorithm>

namespace moxmediaui {

void CopySampleWindow(float const* samples, std::size_t count, std::int64_t start,
                      std::vector<float>& window) {
  auto const size = static_cast<std::int64_t>(window.size());
  auto const end = static_cast<std::int64_t>(count);
  if (start >= 0 && start <= end - size) {
    std::copy_n(samples + start, size, window.begin());
    return;
  }
  std::int64_t const held = std::clamp(start, -size, end);  // beyond that every window is the same
  for (std::int64_t i = 0; i < size; ++i) {
    window[static_cast<std::size_t>(i)] = samples[std::clamp<std::int64_t>(held + i, 0, end - 1)];
  }
}

}  // namespace moxmediaui
