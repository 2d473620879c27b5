#include "audio/AudioSession.h"

#include "audio/PeakFile.h"

#include <algorithm>
#include <utility>

namespace playground {

AudioSession::AudioSession() : mBell([this] { TakeNews(); }) {
  mDocuments.push_back(DemoDocument());
  Begin(0);
}

AudioDocument const& AudioSession::Current() const {
  static AudioDocument const kNone;
  return mCurrent < mDocuments.size() ? mDocuments[mCurrent] : kNone;
}

bool AudioSession::DrawsSamples() const {
  return Current().Source() && HasSound() && mSettings.detail != DetailChoice::kPeaks &&
         (mSettings.detail == DetailChoice::kSamples || mView.SamplesPerPixel() < 1.0);
}

void AudioSession::Begin(std::size_t index) {
  LeaveCurrent();
  mCurrent = index;
  AudioDocument const& document = Current();
  std::int64_t const frames = document.Frames();
  mView.SetFrames(frames, document.FinestZoom());
  mSelection.SetFrames(frames);
  mSettings.SetChannelCount(document.ChannelCount());
  mSettings.fadeStart = 0;
  mSettings.fadeEnd = frames;
  ReturnToPlace();
  if (document.CurrentState() == AudioDocument::State::kFailed) {
    ForgetFailuresOf(document.Path());  // it stands below the waveform from now on
  }
}

void AudioSession::SetListener(void const* owner, std::function<void(SessionChanges)> listener) {
  mListenerOwner = owner;
  mListener = std::move(listener);
}

void AudioSession::RemoveListener(void const* owner) {
  if (owner == mListenerOwner) {
    SetListener(nullptr, {});
  }
}

void AudioSession::Tell(SessionChanges changes) {
  if (mListener && !changes.IsEmpty()) {
    auto const listener = mListener;  // it may be replaced while it runs
    listener(changes);
  }
}

void AudioSession::ShowDocument(std::size_t index) {
  if (index <= mDocuments.size() && index != mCurrent) {
    Begin(index);
    Tell(SessionChange::kDocument);
  }
}

void AudioSession::OpenFiles(std::vector<std::string> const& paths) {
  if (paths.empty()) {
    return;
  }
  mFailures.clear();
  mShowsNextOpened = true;
  moxaudiotoolkit::FilePeaksOptions options = mPeaksOptions;
  options.onChange = mBell.Rope();
  for (std::string const& path : paths) {
    options.readPeaks = IsPeakFile(path) ? ReadPeakFile : nullptr;
    mOpening.emplace_back(path, options);
  }
  Tell(SessionChange::kFailures | SessionChange::kPeaks);
}

// Another document; no sound goes on being shown where none is.
void AudioSession::Join(AudioDocument document) {
  bool const showsNone = mCurrent == mDocuments.size();
  mDocuments.push_back(std::move(document));
  if (showsNone) {
    mPlaces.erase(mCurrent);
    mCurrent = mDocuments.size();
  }
}

void AudioSession::AddDocument(AudioDocument document) {
  Join(std::move(document));
  ShowDocument(mDocuments.size() - 1);
}

// Files that are open by now join the documents, up to the first that isn't.
SessionChanges AudioSession::TakeOpened() {
  SessionChanges changes;
  while (!mOpening.empty()) {
    AudioDocument& next = mOpening.front();
    next.Refresh();
    if (next.ChannelCount() > 0) {
      Join(std::move(next));
      if (std::exchange(mShowsNextOpened, false)) {
        Begin(mDocuments.size() - 1);
      }
      changes.Set(SessionChange::kDocument);
    } else if (next.CurrentState() == AudioDocument::State::kFailed) {
      mFailures.push_back(next.Failure());
      Hear(mFailures.back());
      changes.Set(SessionChange::kFailures);
    } else {
      break;
    }
    mOpening.erase(mOpening.begin());
  }
  return changes;
}

// A document that couldn't be read to its end is told of once for each reason.
SessionChanges AudioSession::TakeUnread(std::size_t index) {
  using State = AudioDocument::State;
  AudioDocument const& document = mDocuments[index];
  SessionChanges changes;
  if (document.CurrentState() == State::kDone && mUnread.erase(index) > 0 &&
      ForgetFailuresOf(document.Path())) {
    changes.Set(SessionChange::kFailures);
  }
  if (document.CurrentState() != State::kFailed) {
    return changes;
  }
  OpenFailure const failure = document.Failure();
  if (mUnread.contains(index) && mUnread[index] == failure.reason) {
    return changes;
  }
  mUnread[index] = failure.reason;
  if (index != mCurrent) {
    ForgetFailuresOf(failure.file);
    mFailures.push_back(failure);
    changes.Set(SessionChange::kFailures);
  }
  Hear(failure);
  return changes;
}

void AudioSession::Hear(OpenFailure const& failure) {
  if (mFailureFunction) {
    mFailureFunction(failure);
  }
}

bool AudioSession::ForgetFailuresOf(std::string const& file) {
  return std::erase_if(mFailures, [&file](OpenFailure const& failure) { return failure.file == file; }) > 0;
}

void AudioSession::ForgetGivenUp() {
  std::erase_if(mGivenUp, [](AudioDocument& document) {
    document.Refresh();
    return document.CurrentState() == AudioDocument::State::kFailed ||
           document.CurrentState() == AudioDocument::State::kCancelled ||
           document.CurrentState() == AudioDocument::State::kDone;
  });
}

void AudioSession::TakeNews() {
  ForgetGivenUp();
  SessionChanges changes = TakeOpened();
  for (std::size_t i = 0; i < mDocuments.size(); ++i) {
    bool const isAnother = mDocuments[i].Refresh();
    if (isAnother && i == mCurrent) {
      Begin(i);
      changes.Set(SessionChange::kDocument);
    }
    changes.Set(TakeUnread(i));
  }
  changes.Set(SessionChange::kPeaks);
  Tell(changes);
}

void AudioSession::WaitForOpening() {
  while (!mOpening.empty()) {
    mBell.WaitAndAnswer();
  }
}

void AudioSession::WaitForPeaks() {
  WaitForOpening();
  for (AudioDocument& document : mDocuments) {
    document.WaitForPeaks();
  }
  TakeNews();
}

void AudioSession::CancelOpening() {
  // An opening that hangs would have the window hang with it if it were waited for.
  for (AudioDocument& document : mOpening) {
    document.Cancel();
    mGivenUp.push_back(std::move(document));
  }
  mOpening.clear();
  ForgetGivenUp();
  Tell(SessionChange::kPeaks);
}

void AudioSession::CancelPeaks() {
  if (mCurrent < mDocuments.size()) {
    mDocuments[mCurrent].Cancel();
  }
}

void AudioSession::RestartPeaks() {
  if (mCurrent < mDocuments.size()) {
    mUnread.erase(mCurrent);  // whoever wants it read again wants to hear of it again
    mDocuments[mCurrent].Restart();
    TakeNews();
  }
}

void AudioSession::PollForChanges() {
  bool hasChanged = false;
  for (AudioDocument& document : mDocuments) {
    hasChanged = document.PollForChange() || hasChanged;
  }
  if (hasChanged) {
    TakeNews();
  }
}

void AudioSession::Export(ExportKind kind, std::string const& path) {
  mExporter.Start(*this, kind, path);
  Tell(SessionChange::kExport);
}

void AudioSession::DismissExport() {
  mExporter.Dismiss();
  Tell(SessionChange::kExport);
}

void AudioSession::ForgetFailures() {
  if (!mFailures.empty()) {
    mFailures.clear();
    Tell(SessionChange::kFailures);
  }
}

std::vector<OpenFailure> AudioSession::UnreadDocuments() const {
  std::vector<OpenFailure> failures;
  for (AudioDocument const& document : mDocuments) {
    if (document.CurrentState() == AudioDocument::State::kFailed) {
      failures.push_back(document.Failure());
    }
  }
  return failures;
}

bool AudioSession::IsReading() const {
  using State = AudioDocument::State;
  return !mOpening.empty() ||
         std::any_of(mDocuments.begin(), mDocuments.end(), [](AudioDocument const& document) {
           State const state = document.CurrentState();
           return state != State::kDone && state != State::kCancelled && state != State::kFailed;
         });
}

void AudioSession::ChangeSettings(std::function<void(WaveformSettings&)> const& change) {
  WaveformSettings const before = mSettings;
  change(mSettings);
  if (!(mSettings == before)) {
    Tell(SessionChange::kSettings);
  }
}

moxmediatypes::AudioChannelLayout AudioSession::Layout() const {
  auto const chosen = mLayouts.find(mCurrent);
  // A file may have become another one since.
  return chosen != mLayouts.end() && chosen->second.size() == Current().ChannelCount() ? chosen->second
                                                                                       : Current().Layout();
}

bool AudioSession::SetLayout(moxmediatypes::AudioChannelLayout layout) {
  if (!HasSound() || layout.size() != Current().ChannelCount()) {
    return false;
  }
  if (layout != Layout()) {
    mLayouts[mCurrent] = std::move(layout);
    Tell(SessionChange::kLayout);
  }
  return true;
}

bool AudioSession::IsChannelEnabled(std::size_t channel) const {
  return channel < mSettings.enabledChannels.size() && mSettings.enabledChannels[channel];
}

void AudioSession::ToggleChannel(std::size_t channel) {
  if (channel < mSettings.enabledChannels.size()) {
    ChangeSettings([channel](WaveformSettings& settings) {
      settings.enabledChannels[channel] = !settings.enabledChannels[channel];
    });
  }
}

}  // namespace playground
