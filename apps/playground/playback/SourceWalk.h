#pragma once

#include <cstdint>
#include <optional>

namespace playground {

// Frames from `begin` up to but not including `end`.
struct FrameRange {
  std::int64_t begin = 0;
  std::int64_t end = 0;

  bool operator==(FrameRange const&) const = default;
};

// The way that playback takes through the frames of a sound: from a position on by equal steps, forward or
// backward, round a loop once it has come to it, and up to an end. A plain value: a copy tells where playback
// will be after any number of steps. Positions lie between frames where the step isn't whole.
class SourceWalk {
 public:
  SourceWalk() = default;
  explicit SourceWalk(std::int64_t frames) : mFrames(frames) {}

  std::int64_t Frames() const { return mFrames; }
  // The frame to be played next; where the walk has ended, the end that it came to.
  double Position() const { return mPosition; }
  double Step() const { return mStep; }
  std::optional<FrameRange> const& Loop() const { return mLoop; }
  // The walk goes no further: there is no frame to be played.
  bool HasEnded() const { return mEnded; }

  // Goes on from another place, within 0 and the number of frames. What is backward from the end begins at
  // the last frame.
  void MoveTo(double position);
  // Frames of the sound for each that is played; backward below 0, never 0. At most kLargestStep either way.
  void SetStep(double step);
  // What is walked round, cut to the sound; an empty range is none. A walk that is beyond the loop's far end
  // doesn't come to it.
  void SetLoop(std::optional<FrameRange> loop);
  // Where a walk forward ends before the sound does, as long as there is no loop to go round.
  void SetStop(std::optional<std::int64_t> stop);

  // Frames to be played before the next turn or end; 0 once it has ended.
  std::int64_t FramesToTurn() const;
  // Whether the walk is where it goes round the loop from.
  bool GoesRound() const;
  // Goes on by so many frames, over turns.
  void Skip(std::int64_t count);
  // The frame that is heard after frame `index`, with which positions between them are interpolated.
  std::int64_t FrameAfter(std::int64_t index) const;

  bool operator==(SourceWalk const&) const = default;

  static constexpr double kLargestStep = 1024.0;

 private:
  double Bound() const;
  void Wrap();
  void Resume();

  std::int64_t mFrames = 0;
  double mPosition = 0.0;
  double mStep = 1.0;
  std::optional<FrameRange> mLoop;
  std::optional<std::int64_t> mStop;
  bool mEnded = false;
};

}  // namespace playground
