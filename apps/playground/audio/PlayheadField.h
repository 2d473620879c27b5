#pragma once

#include "audio/ViewDrag.h"

#include <moxcore/messaging/Message.h>
#include <moxmediaui/HotTimecodeControl.h>

#include <optional>

namespace playground {

class StationEar;
class Transport;

// Where the playhead is, in samples or, by its context menu, in milliseconds, at the rate of the sound. Who
// drags it hears the sound that he comes by, and what he was playing goes on from where he lets go. Moves of
// the cursor are steps of the session's history, a drag one of them.
class PlayheadField : public moxmediaui::UI_HotTimecodeControl {
 public:
  PlayheadField(AudioSession& session, Transport& transport);
  ~PlayheadField() override;

  // Takes over the rate and length of the sound.
  void TakeDocument();
  // Shows where the playhead is, without a word to anybody, unless the field is being worked.
  void ShowPosition();

 private:
  moxmediaui::FrameRate SampleRate() const;
  std::int64_t SampleOf(moxmediaui::TickTime time) const;
  void Hear(moxcore::messaging::Message const& message);
  void HearTime(moxmediaui::TickTime time, bool isSettled);

  AudioSession& mSession;
  Transport& mTransport;
  moxcore::utility::IntrusivePtr<StationEar> mEar;
  std::optional<ViewDrag> mDrag;
  moxmediaui::TickTime mKnown;  // the time that the transport knows of
};

}  // namespace playground
