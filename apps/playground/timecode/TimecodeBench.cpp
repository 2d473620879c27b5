#include "timecode/TimecodeBench.h"

#include <utility>

namespace playground {

BenchSettings TimecodeBench::FirstSettings() {
  BenchSettings settings;
  settings.time = kFirstTime;
  settings.offersFormats = true;
  return settings;
}

void TimecodeBench::Change(std::function<void(BenchSettings&)> const& change) {
  BenchSettings const before = mSettings;
  change(mSettings);
  if (mListener && !(mSettings == before)) {
    auto const listener = mListener;  // it may be replaced while it runs
    listener(before);
  }
}

void TimecodeBench::NoteTime(moxmediaui::TickTime time, bool hasTime) {
  mSettings.time = time;
  mSettings.hasTime = hasTime;
}

void TimecodeBench::Reset() {
  Change([](BenchSettings& settings) {
    auto const time = settings.time;
    settings = FirstSettings();
    settings.time = time;
  });
}

void TimecodeBench::SetListener(void const* owner, Listener listener) {
  mListenerOwner = owner;
  mListener = std::move(listener);
}

void TimecodeBench::RemoveListener(void const* owner) {
  if (owner == mListenerOwner) {
    SetListener(nullptr, {});
  }
}

}  // namespace playground
