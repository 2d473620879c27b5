#pragma once

#include "playback/AudioOutput.h"
#include "playback/BlockReader.h"
#include "playback/BlockStore.h"
#include "playback/PlayClock.h"
#include "playback/SourceWalk.h"
#include "playback/StereoRenderer.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace playground {

enum class PlayTrouble {
  kNone,
  kNoDevice,    // there is nothing to play on: the position moves in silence
  kDeviceLost,  // the device went away while it played: the same
  kTooSlow,     // reading didn't keep up, and there were gaps
  kReadFailed,  // the sound couldn't be read any further: playback has stopped
};

// Plays a sound, from any frame, at any speed either way, round a loop, on an output, and knows which frame
// is being heard. Reading runs on a thread of its own, and the output asks on one of its own; both begin with
// the first Play and end with Close or the player. All calls belong to one thread, and none waits for a file
// but WaitUntilRead, and those that end the reading. Without an output that works playback goes on in
// silence; the output is tried again at the next Play.
class Player {
 public:
  explicit Player(std::unique_ptr<AudioOutput> output);
  ~Player();
  Player(Player const&) = delete;
  Player& operator=(Player const&) = delete;

  // Stops, and stands at the beginning of another sound, without a loop; null is none.
  void SetSource(std::shared_ptr<moxaudiotoolkit::SampleSource const> source);
  bool HasSource() const { return mSource != nullptr; }
  // Takes effect with the next frame that is made, playing or not.
  void SetLoop(std::optional<FrameRange> loop);
  // The channels that are heard; those beyond the vector are.
  void SetEnabledChannels(std::vector<bool> const& enabled);

  // From where it stands: the end leads to the beginning, of the loop if there is one. `speed` is that of the
  // sound, 1 as it was recorded, below 0 backward, never 0. `stop` ends playback before the sound does,
  // unless there is a loop. While it plays, only the speed changes.
  void Play(double speed = 1.0, std::optional<std::int64_t> stop = std::nullopt);
  // Stands at the frame that is being heard.
  void Pause();
  // Goes on from another frame, playing or not; an earlier stop is forgotten.
  void MoveTo(std::int64_t frame, std::optional<std::int64_t> stop = std::nullopt);
  // Plays these frames once, at the speed of the recording, whatever is playing; the loop is forgotten.
  void PlayPiece(FrameRange piece);
  bool IsPlaying() const { return mIsPlaying; }
  double Speed() const { return mSpeed; }
  // Playback goes on without being heard.
  bool IsSilent() const { return mIsPlaying && mIsSilent; }
  // The frame that is being heard, or from where playback would go on.
  double Position();

  // Sees to what has happened meanwhile; to be called some times a second while it plays. True if it has
  // stopped, or there is a new trouble.
  bool Update();
  PlayTrouble Trouble() const { return mTrouble; }
  // The reason, as the output or the file told it; may be empty.
  std::string const& TroubleReason() const { return mReason; }
  void ForgetTrouble();

  // Has what Play would begin with read, and returns once it is; false if that failed.
  bool WaitUntilRead();
  // Stops, gives the output back and ends all threads. It can be played again.
  void Close();

 private:
  // What one sound is played with.
  struct Engine {
    BlockStore store;
    StereoRenderer renderer{store};
    std::optional<BlockReader> reader;
  };

  void MakeEngine();
  bool OpenOutput();
  bool StartOutput();
  void GoSilent(PlayTrouble trouble, std::string reason);
  void StopOutput();
  void Hear(std::int64_t now);
  SourceWalk WalkAt(std::int64_t now);
  double StepOf(double speed) const;
  int WantedRate() const;
  void Tell(PlayTrouble trouble, std::string reason);
  void TellChange();
  void StandAt(std::int64_t now);
  std::vector<StereoGain> Mix() const;

  std::unique_ptr<AudioOutput> mOutput;
  std::shared_ptr<moxaudiotoolkit::SampleSource const> mSource;
  std::unique_ptr<Engine> mEngine;
  std::vector<bool> mEnabled;

  // As last told from here: where it stands when it doesn't play, and else where it began to.
  SourceWalk mWalk;
  double mSpeed = 1.0;
  bool mIsPlaying = false;
  bool mIsSilent = false;
  std::int64_t mSilentSince = 0;  // mWalk is of this time

  AudioFormat mFormat;
  PlayClock mClock;
  std::vector<PlayMark> mMarks;  // from the one that is being heard on
  std::uint64_t mMoves = 0;
  int mLateBlocks = 0;

  PlayTrouble mTrouble = PlayTrouble::kNone;
  std::string mReason;
};

}  // namespace playground
