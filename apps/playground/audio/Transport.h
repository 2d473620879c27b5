#pragma once

#include "audio/AudioSession.h"
#include "audio/SampleSelection.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace moxaudiotoolkit {
class SampleSource;
}

namespace playground {

class AudioOutput;
class Player;

// What the user does to playback of a session's current sound. Playback begins at the cursor, or at the
// selection, which ends it or, with the loop on, is gone round; without a selection the loop is the whole
// sound. Putting the cursor somewhere while it plays moves playback there. It outlives the page, which it
// plays for: when no page listens any more it stops and ends its threads.
class Transport {
 public:
  enum class State {
    kStopped,  // the next play begins at the cursor or selection
    kPaused,   // ... where this one was left
    kPlaying,
  };

  Transport(AudioSession& session, std::unique_ptr<AudioOutput> output);
  ~Transport();
  Transport(Transport const&) = delete;
  Transport& operator=(Transport const&) = delete;
  // Another output, for whoever wants to hear it otherwise.
  void UseOutput(std::unique_ptr<AudioOutput> output);

  State CurrentState() const { return mState; }
  bool IsPlaying() const { return mState == State::kPlaying; }
  // Playing or paused: there is a playhead apart from the cursor.
  bool IsActive() const { return mState != State::kStopped; }
  bool Loops() const { return mLoops; }
  // As times the speed of the recording, below 0 backward; 1 while it doesn't play.
  double Speed() const;
  // The sample that is heard, or at which playback is going to begin.
  double Position() const;
  // What has gone wrong, in one line; empty when all is well.
  std::string TroubleText() const;

  // With a sound only; else they do nothing.
  void PlayOrPause();
  // The playhead goes; the cursor stays.
  void Stop();
  void ToStart();
  void ToEnd();
  void SetLoops(bool loops);
  // The keys J (below 0) and L: plays that way, and each time faster, up to eight times. While the key K is
  // held slowly, until the key is released.
  void Shuttle(int direction);
  void ReleaseShuttle();
  // The key K: stands.
  void HoldStill(bool held);
  // Moves the playhead, playing or paused.
  void MoveTo(double sample);

  // Looks what has become of it; to be called for each frame of the picture while it plays.
  void Tick();
  // Returns once what is played next has been read; false if that failed. For whoever has no time to lose.
  bool WaitUntilRead();
  // The session has changed so.
  void SessionChanged(SessionChanges changes);
  // One listener hears of all that can be seen but the position.
  void SetListener(void const* owner, std::function<void()> listener);
  void RemoveListener(void const* owner);

 private:
  void Begin(double speed);
  void Pause();
  void PutCursor(std::int64_t sample);
  void TakeDocument();
  void TakeSelection();
  void TakeLoop();
  void SetState(State state);
  void Tell();

  AudioSession& mSession;
  std::unique_ptr<Player> mPlayer;
  std::shared_ptr<moxaudiotoolkit::SampleSource const> mDocumentSource;  // as the document gave it
  SampleSelection mSelection;                                            // as last seen
  State mState = State::kStopped;
  bool mLoops = false;
  bool mStillIsHeld = false;
  bool mCreeps = false;  // a shuttle key is down while playback is held still
  void const* mListenerOwner = nullptr;
  std::function<void()> mListener;
};

}  // namespace playground
