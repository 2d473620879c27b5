#include "playback/Player.h"

#include "program/SteadyTime.h"

#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <utility>

namespace playground {
namespace {

// Beyond these rates devices refuse; the walk's step then makes up for the difference.
constexpr int kLowestOutputRate = 8000;
constexpr int kHighestOutputRate = 192000;
constexpr int kBlocksPerSecond = 100;
constexpr double kNanoseconds = 1e9;

AudioFormat WantedFormat(int rate) {
  // Powers of two, which every driver takes: 512 frames at 48 kHz.
  auto const frames = std::bit_ceil(static_cast<unsigned>(std::max(rate / kBlocksPerSecond, 128)));
  return {.sampleRate = rate, .channelCount = 2, .blockFrames = static_cast<int>(frames)};
}

}  // namespace

Player::Player(std::unique_ptr<AudioOutput> output) : mOutput(std::move(output)) {}

Player::~Player() {
  Close();
}

void Player::Close() {
  Pause();
  mOutput->Close();
  mEngine.reset();
  mMarks.clear();
}

void Player::SetSource(std::shared_ptr<moxaudiotoolkit::SampleSource const> source) {
  Close();
  mSource = std::move(source);
  mWalk = SourceWalk(mSource ? mSource->GetProperties().frames : 0);
  mEnabled.clear();
  ForgetTrouble();
}

void Player::ForgetTrouble() {
  mTrouble = PlayTrouble::kNone;
  mReason.clear();
}

void Player::Tell(PlayTrouble trouble, std::string reason) {
  mTrouble = trouble;
  mReason = std::move(reason);
}

void Player::SetEnabledChannels(std::vector<bool> const& enabled) {
  if (enabled == mEnabled) {
    return;
  }
  mEnabled = enabled;
  if (mEngine) {
    mEngine->reader->SetMix(Mix());
  }
}

std::vector<StereoGain> Player::Mix() const {
  return StereoMix(static_cast<std::size_t>(mSource->GetProperties().channelCount), mEnabled);
}

int Player::WantedRate() const {
  return std::clamp(mSource->GetProperties().sampleRate, kLowestOutputRate, kHighestOutputRate);
}

double Player::StepOf(double speed) const {
  int const rate = mFormat.sampleRate > 0 ? mFormat.sampleRate : WantedRate();
  return speed * mSource->GetProperties().sampleRate / rate;
}

void Player::MakeEngine() {
  if (mEngine && !mEngine->reader->Failure()) {
    return;
  }
  // The output asks the engine's renderer, and so goes before it.
  mOutput->Close();
  mEngine = std::make_unique<Engine>();
  mMarks.clear();
  mClock = {};
  mMoves = mEngine->renderer.Move(mWalk);
  mEngine->reader.emplace(mSource, Mix(), mEngine->store,
                          [&renderer = mEngine->renderer] { return renderer.Whereabouts(); });
  mLateBlocks = 0;
}

bool Player::WaitUntilRead() {
  if (!mSource) {
    return false;
  }
  // A reader that has failed by now has its answer; only playing tries it again.
  if (!mEngine) {
    MakeEngine();
  }
  return mEngine->reader->WaitUntilRead();
}

bool Player::OpenOutput() {
  if (mOutput->IsOpen() && !mOutput->IsLost()) {
    return true;
  }
  try {
    mFormat =
        mOutput->Open(WantedFormat(WantedRate()),
                      [&renderer = mEngine->renderer](std::span<float> pairs) { renderer.Render(pairs); });
    return true;
  } catch (AudioOutputError const& error) {
    mFormat = {};
    GoSilent(PlayTrouble::kNoDevice, error.what());
    return false;
  }
}

bool Player::StartOutput() {
  try {
    mClock.Begin(mFormat.sampleRate, mOutput->Latency());
    mEngine->renderer.Rest();
    mOutput->Start();
    return true;
  } catch (AudioOutputError const& error) {
    GoSilent(PlayTrouble::kNoDevice, error.what());
    return false;
  }
}

void Player::GoSilent(PlayTrouble trouble, std::string reason) {
  mOutput->Close();
  mFormat = {};
  mIsSilent = true;
  mSilentSince = SteadyTime();
  mWalk.SetStep(StepOf(mSpeed));
  Tell(trouble, std::move(reason));
}

void Player::Play(double speed, std::optional<std::int64_t> stop) {
  if (!mSource || mSource->GetProperties().frames < 1 || !(speed != 0.0)) {
    return;
  }
  if (mIsPlaying) {
    if (speed != mSpeed) {
      StandAt(SteadyTime());
      mSpeed = speed;
      mWalk.SetStep(StepOf(mSpeed));
      TellChange();
    }
    return;
  }
  ForgetTrouble();
  MakeEngine();
  mIsSilent = false;
  mSpeed = speed;
  bool const opened = OpenOutput();
  double const place = mWalk.Position();
  bool const isAtEnd = speed > 0.0 && place >= static_cast<double>(mWalk.Frames());
  mWalk.SetStop(stop);
  mWalk.SetStep(StepOf(speed));
  mWalk.MoveTo(!isAtEnd ? place : mWalk.Loop() ? static_cast<double>(mWalk.Loop()->begin) : 0.0);
  mMoves = mEngine->renderer.Move(mWalk);
  mIsPlaying = true;
  mSilentSince = SteadyTime();
  if (opened && StartOutput()) {
    mEngine->reader->SetRunning(true);
  }
}

// Tells the renderer of another step, loop or end.
void Player::TellChange() {
  if (mEngine) {
    mEngine->renderer.Change(mWalk);
    mEngine->reader->Wake();
  }
}

// What was told last goes on from what is heard now.
void Player::StandAt(std::int64_t now) {
  mWalk.MoveTo(WalkAt(now).Position());
  mSilentSince = now;
}

void Player::SetLoop(std::optional<FrameRange> loop) {
  SourceWalk changed = mWalk;
  changed.SetLoop(loop);
  if (changed.Loop() != mWalk.Loop()) {
    StandAt(SteadyTime());
    mWalk.SetLoop(loop);
    TellChange();
  }
}

void Player::MoveTo(std::int64_t frame, std::optional<std::int64_t> stop) {
  mWalk.SetStop(stop);
  mWalk.MoveTo(static_cast<double>(frame));
  mSilentSince = SteadyTime();
  if (mEngine) {
    mMoves = mEngine->renderer.Move(mWalk);
    mEngine->reader->Wake();
  }
}

void Player::PlayPiece(FrameRange piece) {
  SetLoop(std::nullopt);
  if (!mIsPlaying) {
    MoveTo(piece.begin);
    Play(1.0, piece.end);
    return;
  }
  mSpeed = 1.0;
  mWalk.SetStep(StepOf(mSpeed));
  MoveTo(piece.begin, piece.end);
}

void Player::StopOutput() {
  if (!mIsSilent) {
    mOutput->Stop();
  }
  if (mEngine) {
    mEngine->reader->SetRunning(false);
  }
  mIsPlaying = false;
  mIsSilent = false;
}

void Player::Pause() {
  if (!mIsPlaying) {
    return;
  }
  std::int64_t const now = SteadyTime();
  StandAt(now);
  StopOutput();
  // Between two frames nothing can be told apart: it goes on with a whole one.
  mWalk.MoveTo(std::floor(mWalk.Position()));
  mMoves = mEngine->renderer.Move(mWalk);
  mEngine->reader->Wake();
}

// Fetches what the renderer has noted and forgets what was heard.
void Player::Hear(std::int64_t now) {
  std::size_t const known = mMarks.size();
  mEngine->renderer.FetchMarks(mMarks);
  for (std::size_t i = known; i < mMarks.size(); ++i) {
    if (mMarks[i].count > 0) {
      mClock.Asked(mMarks[i].outputFrame, mMarks[i].count, mMarks[i].time);
    }
  }
  std::int64_t const heard = mClock.FrameAt(now);
  auto const later = std::find_if(mMarks.begin(), mMarks.end(),
                                  [heard](PlayMark const& mark) { return mark.outputFrame > heard; });
  if (later - mMarks.begin() > 1) {
    mMarks.erase(mMarks.begin(), later - 1);
  }
}

SourceWalk Player::WalkAt(std::int64_t now) {
  SourceWalk walk = mWalk;
  if (!mIsPlaying) {
    return walk;
  }
  if (mIsSilent) {
    double const seconds = static_cast<double>(now - mSilentSince) / kNanoseconds;
    walk.Skip(static_cast<std::int64_t>(std::floor(seconds * WantedRate())));
    return walk;
  }
  Hear(now);
  std::int64_t const heard = mClock.FrameAt(now);
  // Until the latest jump comes through, it is told as if it had.
  if (mMarks.empty() || mMarks.front().outputFrame > heard || mMarks.front().moves != mMoves) {
    return walk;
  }
  PlayMark const& mark = mMarks.front();
  walk = mark.walk;
  if (!mark.stands) {
    walk.Skip(heard - mark.outputFrame);
  }
  return walk;
}

double Player::Position() {
  return WalkAt(SteadyTime()).Position();
}

bool Player::Update() {
  if (!mIsPlaying) {
    return false;
  }
  SourceWalk const walk = WalkAt(SteadyTime());
  if (auto const failure = mEngine->reader->Failure()) {
    Pause();
    Tell(PlayTrouble::kReadFailed, *failure);
    return true;
  }
  if (walk.HasEnded()) {
    StopOutput();
    mWalk.MoveTo(walk.Position());
    mMoves = mEngine->renderer.Move(mWalk);
    return true;
  }
  if (mIsSilent) {
    return false;
  }
  if (mOutput->IsLost()) {
    mWalk.MoveTo(walk.Position());
    mEngine->reader->SetRunning(false);
    GoSilent(PlayTrouble::kDeviceLost, {});
    return true;
  }
  int const late = mEngine->renderer.LateBlocks();
  bool const isNew = late > mLateBlocks && mTrouble != PlayTrouble::kTooSlow;
  if (late > mLateBlocks) {
    mLateBlocks = late;
    Tell(PlayTrouble::kTooSlow, {});
  }
  return isNew;
}

}  // namespace playground
