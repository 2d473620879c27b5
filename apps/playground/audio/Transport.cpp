#include "audio/Transport.h"

#include "audio/PlaybackSource.h"
#include "playback/Player.h"
#include "program/Localized.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace playground {
namespace {

constexpr double kFastest = 8.0;
constexpr double kCreep = 0.25;

}  // namespace

Transport::Transport(AudioSession& session, std::unique_ptr<AudioOutput> output)
    : mSession(session),
      mPlayer(std::make_unique<Player>(std::move(output))),
      mSelection(session.Selection()) {}

Transport::~Transport() = default;

void Transport::UseOutput(std::unique_ptr<AudioOutput> output) {
  mScrubbed.reset();
  mPlayer = std::make_unique<Player>(std::move(output));
  mDocumentSource.reset();
  SetState(State::kStopped);
}

void Transport::SetListener(void const* owner, std::function<void()> listener) {
  mListenerOwner = owner;
  mListener = std::move(listener);
  if (owner != nullptr) {
    TakeDocument();
  }
}

void Transport::RemoveListener(void const* owner) {
  if (owner == mListenerOwner) {
    SetListener(nullptr, {});
    EndHearing();
    mSpeedAfterScrub.reset();
    mPlayer->Close();
    mState = State::kStopped;
  }
}

void Transport::Tell() {
  if (mListener) {
    auto const listener = mListener;  // it may be replaced while it runs
    listener();
  }
}

void Transport::SetState(State state) {
  mState = state;
  Tell();
}

double Transport::Speed() const {
  return IsPlaying() ? mPlayer->Speed() : 1.0;
}

double Transport::Position() const {
  if (!IsActive()) {
    return static_cast<double>(mSession.Selection().Left());
  }
  return mScrubbed ? static_cast<double>(*mScrubbed) : mPlayer->Position();
}

std::string Transport::TroubleText() const {
  std::string const& reason = mPlayer->TroubleReason();
  switch (mPlayer->Trouble()) {
    case PlayTrouble::kNoDevice:
      return Text("$$$/playground/transport/noDevice=No sound device: @0", {reason});
    case PlayTrouble::kDeviceLost:
      return Text("$$$/playground/transport/deviceLost=The sound device has gone; playing unheard");
    case PlayTrouble::kTooSlow:
      return Text("$$$/playground/transport/tooSlow=Reading was too slow: there were gaps");
    case PlayTrouble::kReadFailed:
      return Text("$$$/playground/transport/readFailed=Playback stopped: @0", {reason});
    case PlayTrouble::kNone:
      break;
  }
  return {};
}

void Transport::Begin(double speed) {
  TakeDocument();
  EndHearing();
  if (!mPlayer->HasSource() || mSession.Current().Frames() < 1) {
    return;
  }
  SampleSelection const& selection = mSession.Selection();
  std::optional<std::int64_t> stop;
  if (mState == State::kStopped) {
    std::int64_t const right = selection.Left() + selection.Width();
    mPlayer->MoveTo(speed > 0.0 ? selection.Left() : right);
    if (!selection.IsEmpty() && speed > 0.0) {
      stop = right;
    }
  }
  TakeLoop();
  mPlayer->SetEnabledChannels(mSession.Settings().enabledChannels);
  mPlayer->Play(speed, stop);
  SetState(mPlayer->IsPlaying() ? State::kPlaying : State::kStopped);
}

void Transport::Pause() {
  mPlayer->Pause();
  SetState(State::kPaused);
}

void Transport::PlayOrPause() {
  if (IsPlaying()) {
    Pause();
  } else {
    Begin(1.0);
  }
}

void Transport::Stop() {
  EndHearing();
  mSpeedAfterScrub.reset();
  if (IsActive()) {
    mPlayer->Pause();
    SetState(State::kStopped);
  }
}

void Transport::PutCursor(std::int64_t sample) {
  mSession.ChangeSelection([sample](SampleSelection& selection) { selection.PlaceAt(sample); },
                           ViewStep::kSelect);
  mSession.ChangeView([sample](Viewport& view) { view.Reveal(static_cast<double>(sample)); },
                      ViewStep::kSelect);
}

void Transport::ToStart() {
  if (mSession.HasSound()) {
    PutCursor(0);
    MoveTo(0.0);
  }
}

void Transport::ToEnd() {
  if (mSession.HasSound()) {
    auto const end = mSession.Current().Frames();
    PutCursor(end);
    MoveTo(static_cast<double>(end));
  }
}

void Transport::SetLoops(bool loops) {
  if (loops != mLoops) {
    mLoops = loops;
    TakeLoop();
    Tell();
  }
}

void Transport::Shuttle(int direction) {
  double const way = direction < 0 ? -1.0 : 1.0;
  if (mStillIsHeld) {
    mCreeps = true;
    Begin(way * kCreep);
    return;
  }
  double const speed = Speed();
  bool const goesThatWay = IsPlaying() && speed * way > 0.0;
  Begin(goesThatWay ? way * std::clamp(std::abs(speed) * 2.0, 1.0, kFastest) : way);
}

void Transport::ReleaseShuttle() {
  if (mCreeps) {
    mCreeps = false;
    if (IsPlaying()) {
      Pause();
    }
  }
}

void Transport::HoldStill(bool held) {
  mStillIsHeld = held;
  if (held && IsPlaying()) {
    Pause();
  } else if (!held) {
    ReleaseShuttle();
  }
}

void Transport::MoveTo(double sample) {
  if (IsActive()) {
    EndHearing();
    mPlayer->MoveTo(Within(sample));
    Tell();
  }
}

void Transport::GoTo(double sample) {
  if (IsActive()) {
    MoveTo(sample);
  } else if (mSession.HasSound()) {
    PutCursor(Within(sample));
  }
}

// The sample nearest to a place, within the sound.
std::int64_t Transport::Within(double sample) const {
  auto const frames = static_cast<double>(mSession.Current().Frames());
  return static_cast<std::int64_t>(std::clamp(std::round(sample), 0.0, frames));
}

void Transport::ScrubTo(double sample) {
  if (IsPlaying()) {
    mSpeedAfterScrub = mPlayer->Speed();
    Pause();
  }
  if (!mSession.HasSound()) {
    return;
  }
  if (!IsActive()) {
    PutCursor(Within(sample));
  }
  HearAt(Within(sample));
}

void Transport::EndScrub() {
  if (auto const speed = std::exchange(mSpeedAfterScrub, std::nullopt)) {
    Begin(*speed);
  }
}

// One moment takes the place of another without a pause of the device.
void Transport::HearAt(std::int64_t sample) {
  TakeDocument();
  std::int64_t const frames = mSession.Current().Frames();
  if (mPlayer->HasSource() && sample < frames) {
    auto const moment = static_cast<std::int64_t>(kScrubSeconds * mSession.Current().SampleRate());
    mPlayer->SetEnabledChannels(mSession.Settings().enabledChannels);
    mScrubbed = sample;
    mPlayer->PlayPiece({sample, std::min(sample + std::max<std::int64_t>(moment, 1), frames)});
  } else {
    EndHearing();
    mPlayer->MoveTo(sample);
  }
  Tell();
}

void Transport::EndHearing() {
  if (auto const sample = std::exchange(mScrubbed, std::nullopt)) {
    mPlayer->Pause();
    mPlayer->MoveTo(*sample);
    TakeLoop();
  }
}

void Transport::Tick() {
  if (mScrubbed && mPlayer->Update()) {
    if (!mPlayer->IsPlaying()) {
      EndHearing();
    }
    Tell();
  }
  if (!IsPlaying() || !mPlayer->Update()) {
    return;
  }
  if (mPlayer->IsPlaying()) {
    Tell();
  } else {
    // What couldn't be read further is left where it is; what has ended begins at the cursor again.
    SetState(mPlayer->Trouble() == PlayTrouble::kReadFailed ? State::kPaused : State::kStopped);
  }
}

bool Transport::WaitUntilRead() {
  return mPlayer->WaitUntilRead();
}

void Transport::SessionChanged(SessionChanges changes) {
  if (changes.HasAny(SessionChange::kDocument | SessionChange::kPeaks)) {
    TakeDocument();
  }
  if (changes.HasAny(SessionChange::kDocument | SessionChange::kSelection)) {
    TakeSelection();
  }
  if (changes.Has(SessionChange::kSettings)) {
    mPlayer->SetEnabledChannels(mSession.Settings().enabledChannels);
  }
}

void Transport::TakeDocument() {
  auto const& source = mSession.Current().Source();
  if (source == mDocumentSource) {
    return;
  }
  mDocumentSource = source;
  mScrubbed.reset();
  mSpeedAfterScrub.reset();
  mPlayer->SetSource(PlaybackSource(mSession.Current()));
  mSelection = mSession.Selection();
  SetState(State::kStopped);
}

void Transport::TakeSelection() {
  SampleSelection const& selection = mSession.Selection();
  bool const isPut = selection.IsEmpty() && selection.Head() != mSelection.Head();
  mSelection = selection;
  TakeLoop();
  if (isPut && IsPlaying()) {
    MoveTo(static_cast<double>(selection.Head()));
  } else if (isPut && mState == State::kPaused) {
    SetState(State::kStopped);
  }
}

void Transport::TakeLoop() {
  if (mScrubbed) {
    return;  // a moment goes round nothing
  }
  if (!mLoops) {
    mPlayer->SetLoop(std::nullopt);
    return;
  }
  SampleSelection const& selection = mSession.Selection();
  FrameRange const whole{0, mSession.Current().Frames()};
  mPlayer->SetLoop(selection.IsEmpty() ? whole
                                       : FrameRange{selection.Left(), selection.Left() + selection.Width()});
}

}  // namespace playground
