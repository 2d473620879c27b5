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
  // Moves the playhead, or, where there is none, the cursor.
  void GoTo(double sample);
  // The same under a hand that scrubs: the sound from there on is heard for a moment, while the playhead
  // stands. What was playing goes on after EndScrub.
  void ScrubTo(double sample);
  void EndScrub();
  // How long a moment is, in seconds.
  static constexpr double kScrubSeconds = 0.08;

  // Looks what has become of it; to be called for each frame of the picture while something is heard.
  void Tick();
  bool NeedsTicks() const { return IsPlaying() || mScrubbed; }
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
  std::int64_t Within(double sample) const;
  void HearAt(std::int64_t sample);
  void EndHearing();
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
  bool mCreeps = false;                   // a shuttle key is down while playback is held still
  std::optional<std::int64_t> mScrubbed;  // what is heard for a moment is from here
  std::optional<double> mSpeedAfterScrub;
  void const* mListenerOwner = nullptr;
  std::function<void()> mListener;
};

}  // namespace playground
