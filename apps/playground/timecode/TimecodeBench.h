#pragma once

#include "shell/EventLog.h"
#include "timecode/BenchSettings.h"

#include <functional>

namespace playground {

// What the timecode page's bench knows apart from its views, which come and go with language and look.
class TimecodeBench {
 public:
  // Hears of a change, with what was before.
  using Listener = std::function<void(BenchSettings const& before)>;

  BenchSettings const& Settings() const { return mSettings; }
  // Calls `change` and tells the listener if anything became different.
  void Change(std::function<void(BenchSettings&)> const& change);
  // The field has come to a time by itself.
  void NoteTime(moxmediaui::TickTime time, bool hasTime);
  // All as in a new one; the time stays.
  void Reset();
  // What came over the stations.
  EventLog& Messages() { return mMessages; }

  // One listener, the pane that is open. A newer owner's takes the place of an older one's.
  void SetListener(void const* owner, Listener listener);
  void RemoveListener(void const* owner);

  // The bench begins with an hour, two minutes and three seconds: a time of which each part is seen.
  static constexpr moxmediaui::TickTime kFirstTime{(3600 + 2 * 60 + 3) * moxmediatypes::kTicksPerSecond};

 private:
  static BenchSettings FirstSettings();

  BenchSettings mSettings = FirstSettings();
  EventLog mMessages;
  void const* mListenerOwner = nullptr;
  Listener mListener;
};

}  // namespace playground
