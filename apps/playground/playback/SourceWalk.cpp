#include "playback/SourceWalk.h"

#include <algorithm>
#include <cmath>

namespace playground {

void SourceWalk::MoveTo(double position) {
  mPosition = std::clamp(position, 0.0, static_cast<double>(mFrames));
  Resume();
}

void SourceWalk::SetStep(double step) {
  mStep = std::clamp(step, -kLargestStep, kLargestStep);
  Resume();
}

// A walk that had ended may go on with another direction, loop or place.
void SourceWalk::Resume() {
  if (mStep < 0.0) {
    mPosition = std::min(mPosition, static_cast<double>(std::max<std::int64_t>(mFrames - 1, 0)));
  }
  mEnded = mFrames < 1 || (mStep > 0.0 && mPosition >= Bound());
}

void SourceWalk::SetLoop(std::optional<FrameRange> loop) {
  if (loop) {
    loop->begin = std::clamp<std::int64_t>(loop->begin, 0, mFrames);
    loop->end = std::clamp<std::int64_t>(loop->end, 0, mFrames);
    if (loop->begin >= loop->end) {
      loop.reset();
    }
  }
  mLoop = loop;
}

void SourceWalk::SetStop(std::optional<std::int64_t> stop) {
  mStop = stop;
}

bool SourceWalk::GoesRound() const {
  return mLoop && (mStep > 0.0 ? mPosition < static_cast<double>(mLoop->end)
                               : mPosition >= static_cast<double>(mLoop->begin));
}

// Forward: the first position that is no longer played. Backward: the last one that still is.
double SourceWalk::Bound() const {
  if (GoesRound()) {
    return static_cast<double>(mStep > 0.0 ? mLoop->end : mLoop->begin);
  }
  if (mStep < 0.0) {
    return 0.0;
  }
  bool const stops = mStop && !mLoop && mPosition < static_cast<double>(*mStop);
  return static_cast<double>(stops ? std::min(*mStop, mFrames) : mFrames);
}

std::int64_t SourceWalk::FramesToTurn() const {
  if (mEnded) {
    return 0;
  }
  double const distance = Bound() - mPosition;
  double const steps = mStep > 0.0 ? std::ceil(distance / mStep) : std::floor(distance / mStep) + 1.0;
  return std::max<std::int64_t>(static_cast<std::int64_t>(steps), 1);
}

// From beyond the loop to where that is in it, however many rounds are between.
void SourceWalk::Wrap() {
  auto const begin = static_cast<double>(mLoop->begin);
  double const length = static_cast<double>(mLoop->end) - begin;
  double offset = std::fmod(mPosition - begin, length);
  if (offset < 0.0) {
    offset += length;
  }
  // Sums of steps that aren't whole may round up to the length itself.
  mPosition = offset < length ? begin + offset : begin;
}

void SourceWalk::Skip(std::int64_t count) {
  if (count < 1 || mEnded) {
    return;
  }
  bool const turns = count >= FramesToTurn();
  if (turns && !GoesRound()) {
    mPosition = Bound();
    mEnded = true;
    return;
  }
  mPosition += static_cast<double>(count) * mStep;
  if (turns) {
    Wrap();
  }
}

std::int64_t SourceWalk::FrameAfter(std::int64_t index) const {
  if (mLoop && index + 1 == mLoop->end && GoesRound() && index >= mLoop->begin) {
    return mLoop->begin;
  }
  return std::min(index + 1, mFrames - 1);
}

}  // namespace playground
