#include "shell/EventLog.h"

#include "program/Localized.h"

#include <utility>

namespace playground {

void EventLog::Add(std::string_view text) {
  moxcore::Utf16String line = To16(text);
  if (!mLines.empty() && mLines.back().text == line) {
    ++mLines.back().count;
  } else {
    mLines.push_back({std::move(line), 1});
    if (mLines.size() > kMostLines) {
      mLines.pop_front();
    }
  }
  if (mListener) {
    mListener();
  }
}

void EventLog::SetListener(void const* owner, std::function<void()> listener) {
  mListenerOwner = owner;
  mListener = std::move(listener);
}

void EventLog::RemoveListener(void const* owner) {
  if (owner == mListenerOwner) {
    SetListener(nullptr, {});
  }
}

void EventLog::Clear() {
  mLines.clear();
  if (mListener) {
    mListener();
  }
}

}  // namespace playground
