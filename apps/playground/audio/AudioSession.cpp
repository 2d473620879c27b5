#include "audio/AudioSession.h"

#include <moxaudiotoolkit/DecodedAudio.h>

#include <utility>

namespace playground {

AudioSession::AudioSession() {
  mDocuments.push_back(DemoDocument());
  Begin(0);
}

AudioDocument const& AudioSession::Current() const {
  static AudioDocument const kNone;
  return mCurrent < mDocuments.size() ? mDocuments[mCurrent] : kNone;
}

bool AudioSession::DrawsSamples() const {
  return HasSound() && mSettings.detail != DetailChoice::kPeaks &&
         (mSettings.detail == DetailChoice::kSamples || mView.SamplesPerPixel() < 1.0);
}

void AudioSession::Begin(std::size_t index) {
  mCurrent = index;
  AudioDocument const& document = Current();
  std::int64_t const frames = document.audio ? document.audio->GetFrameCount() : 0;
  mView.SetFrames(frames);
  mSelection.SetFrames(frames);
  mSettings.SetChannelCount(document.ChannelCount());
  mSettings.fadeStart = 0;
  mSettings.fadeEnd = frames;
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

bool AudioSession::OpenFiles(std::vector<std::string> const& paths) {
  if (paths.empty()) {
    return true;
  }
  std::size_t const first = mDocuments.size();
  mFailures.clear();
  for (std::string const& path : paths) {
    OpenFailure failure;
    if (auto document = OpenAudioDocument(path, failure)) {
      mDocuments.push_back(std::move(*document));
    } else {
      mFailures.push_back(std::move(failure));
    }
  }
  SessionChanges changes = SessionChange::kFailures;
  if (mDocuments.size() > first) {
    Begin(first);
    changes.Set(SessionChange::kDocument);
  }
  bool const allWentWell = mFailures.empty();
  Tell(changes);
  return allWentWell;
}

void AudioSession::ForgetFailures() {
  if (!mFailures.empty()) {
    mFailures.clear();
    Tell(SessionChange::kFailures);
  }
}

void AudioSession::ChangeView(std::function<void(Viewport&)> const& change) {
  Viewport const before = mView;
  change(mView);
  if (!(mView == before)) {
    Tell(SessionChange::kView);
  }
}

void AudioSession::ChangeSelection(std::function<void(SampleSelection&)> const& change) {
  SampleSelection const before = mSelection;
  change(mSelection);
  if (!(mSelection == before)) {
    Tell(SessionChange::kSelection);
  }
}

void AudioSession::ChangeSettings(std::function<void(WaveformSettings&)> const& change) {
  WaveformSettings const before = mSettings;
  change(mSettings);
  if (!(mSettings == before)) {
    Tell(SessionChange::kSettings);
  }
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
