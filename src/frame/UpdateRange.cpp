#include <moxmediaui/Module.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace moxmediaui::utility {

void GetUpdateRange(int oldStart, int oldWidth, int newStart, int newWidth, int& updateStart,
                    int& updateWidth) {
  std::int64_t const oldEnd = std::int64_t{oldStart} + oldWidth;
  std::int64_t const newEnd = std::int64_t{newStart} + newWidth;
  std::int64_t const widthDifference = std::abs(std::int64_t{oldWidth} - newWidth);
  std::int64_t start = 0;
  std::int64_t width = 0;
  if (oldWidth == 0) {
    start = newStart;
    width = newWidth;
  } else if (newWidth == 0) {
    start = oldStart;
    width = oldWidth;
  } else if (oldEnd == newEnd) {
    start = oldWidth > newWidth ? oldStart : newStart;
    width = widthDifference;
  } else if (oldStart == newStart) {
    start = oldWidth > newWidth ? newEnd : oldEnd;
    width = widthDifference;
  } else {
    start = std::min(oldStart, newStart);
    width = std::max(oldEnd, newEnd) - start;
  }
  updateStart = static_cast<int>(start);
  updateWidth = static_cast<int>(width);
}

}  // namespace moxmediaui::utility
