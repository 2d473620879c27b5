#pragma once

#include <moxcore/string/String.h>

#include <deque>
#include <functional>
#include <string_view>

namespace playground {

// What controls have told: one line a message, the newest last. Equal lines in a row are counted rather than
// repeated.
class EventLog {
 public:
  struct Line {
    moxcore::Utf16String text;
    int count = 1;
  };
  static constexpr std::size_t kMostLines = 500;

  void Add(std::string_view text);
  void Clear();
  std::deque<Line> const& Lines() const { return mLines; }

  // One listener, the view that shows it. A newer owner's takes the place of an older one's.
  void SetListener(void const* owner, std::function<void()> listener);
  // Nothing happens once another owner listens.
  void RemoveListener(void const* owner);

 private:
  std::deque<Line> mLines;
  void const* mListenerOwner = nullptr;
  std::function<void()> mListener;
};

}  // namespace playground
