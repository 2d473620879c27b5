#include "audio/AudioDocument.h"

#include "audio/TimeRuler.h"
#include "audio/Viewport.h"
#include "program/Localized.h"
#include "program/NumberText.h"

#include <moxaudiotoolkit/DemoSound.h>
#include <moxaudiotoolkit/peaks/PeakBuilder.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>
#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <filesystem>
#include <utility>

namespace playground {
namespace {

using moxaudiotoolkit::PeakPyramid;
using moxaudiotoolkit::SampleSource;
using moxaudiotoolkit::SampleSourceProperties;

SampleSourceProperties PropertiesOf(SampleSource const* source, PeakPyramid const* pyramid) {
  if (source != nullptr) {
    return source->GetProperties();
  }
  if (pyramid != nullptr) {
    auto const& format = pyramid->GetFormat();
    return {.frames = format.frames, .sampleRate = format.sampleRate, .channelCount = format.channelCount};
  }
  return {};
}

bool IsAnotherSound(SampleSourceProperties const& a, SampleSourceProperties const& b) {
  return a.frames != b.frames || a.sampleRate != b.sampleRate || a.channelCount != b.channelCount ||
         a.format != b.format || a.channelLayout != b.channelLayout;
}

}  // namespace

AudioDocument::AudioDocument() = default;
AudioDocument::~AudioDocument() = default;
AudioDocument::AudioDocument(AudioDocument&&) noexcept = default;
AudioDocument& AudioDocument::operator=(AudioDocument&&) noexcept = default;

AudioDocument::AudioDocument(std::string path, moxaudiotoolkit::FilePeaksOptions options)
    : mPath(path),
      mPeaks(std::make_unique<moxaudiotoolkit::FilePeaks>(std::move(path), std::move(options))),
      mState(State::kOpening) {}

AudioDocument::AudioDocument(std::string title, std::shared_ptr<moxaudiotoolkit::SampleSource const> source,
                             std::shared_ptr<moxaudiotoolkit::PeakPyramid const> pyramid)
    : mTitle(std::move(title)), mSource(std::move(source)), mPyramid(std::move(pyramid)) {}

std::string AudioDocument::Title() const {
  if (!mPath.empty()) {
    return std::filesystem::path(mPath).filename().string();
  }
  return mTitle.empty() ? Text("$$$/playground/audio/demoTitle=Demo sound") : mTitle;
}

std::size_t AudioDocument::ChannelCount() const {
  return static_cast<std::size_t>(PropertiesOf(mSource.get(), mPyramid.get()).channelCount);
}

std::int64_t AudioDocument::Frames() const {
  return PropertiesOf(mSource.get(), mPyramid.get()).frames;
}

int AudioDocument::SampleRate() const {
  return PropertiesOf(mSource.get(), mPyramid.get()).sampleRate;
}

double AudioDocument::Duration() const {
  return ChannelCount() == 0 ? 0.0 : static_cast<double>(Frames()) / SampleRate();
}

double AudioDocument::FinestZoom() const {
  // Peaks alone tell nothing of what lies between them.
  return mPyramid && !mSource ? mPyramid->GetFormat().samplesPerPoint : 1.0 / Viewport::kMostColumnsPerSample;
}

moxmediatypes::AudioChannelLayout AudioDocument::Layout() const {
  return PropertiesOf(mSource.get(), mPyramid.get()).channelLayout;
}

std::string AudioDocument::FormatName() const {
  if (mPyramid && !mSource) {
    return Text("$$$/playground/audio/peaksOnly=Peaks without a sound, one for @0 samples",
                {std::to_string(mPyramid->GetFormat().samplesPerPoint)});
  }
  std::string const format = PropertiesOf(mSource.get(), mPyramid.get()).format;
  return format.empty() ? Text("$$$/playground/audio/demoFormat=Synthesised") : format;
}

std::string AudioDocument::Summary() const {
  std::size_t const channels = ChannelCount();
  if (channels == 0) {
    return {};
  }
  std::string const count =
      channels == 1 ? Text("$$$/playground/audio/oneChannel=1 channel")
                    : Text("$$$/playground/audio/channels=@0 channels", {std::to_string(channels)});
  return Text("$$$/playground/audio/summary=@0, @1, @2 kHz, @3",
              {FormatName(), count, TextFromNumber(SampleRate() / 1000.0, 3), TimeText(Duration(), 0.001)});
}

double AudioDocument::Progress() const {
  return mPyramid ? mPyramid->GetProgress() : 0.0;
}

OpenFailure AudioDocument::Failure() const {
  return {mPath, mPeaks ? mPeaks->GetReason() : std::string()};
}

bool AudioDocument::Refresh() {
  if (!mPeaks) {
    return false;
  }
  auto const before = PropertiesOf(mSource.get(), mPyramid.get());
  double const finestBefore = FinestZoom();
  mState = mPeaks->GetState();
  mProblem = mPeaks->GetProblem();
  // The two change together; what comes between two looks belongs to another file.
  do {
    mSource = mPeaks->GetSource();
    mPyramid = mPeaks->GetPyramid();
  } while (mSource != mPeaks->GetSource());
  return IsAnotherSound(before, PropertiesOf(mSource.get(), mPyramid.get())) || FinestZoom() != finestBefore;
}

void AudioDocument::Cancel() {
  if (mPeaks) {
    mPeaks->Cancel();
  }
}

void AudioDocument::Restart() {
  if (mPeaks) {
    mPeaks->Restart();
  }
}

bool AudioDocument::PollForChange() {
  return mPeaks && mPeaks->PollForChange();
}

void AudioDocument::WaitForPeaks() {
  if (mPeaks) {
    mPeaks->Wait();
  }
}

std::string OpenFailure::Sentence() const {
  return Text("$$$/playground/open/failed=@0: @1", {file, reason});
}

AudioDocument DemoDocument() {
  // The same at each call, and some work to make.
  static auto const kSource = moxaudiotoolkit::MakeSampleSource(moxaudiotoolkit::SynthesiseDemoSound());
  static auto const kPyramid = [] {
    moxaudiotoolkit::PeakBuilder builder(kSource);
    builder.Wait();
    return builder.GetPyramid();
  }();
  return {{}, kSource, kPyramid};
}

}  // namespace playground
