#include "audio/WaveformFeed.h"

#include "audio/AudioDocument.h"

#include <moxaudiotoolkit/peaks/PeakPyramid.h>
#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <utility>
#include <vector>

namespace playground {
namespace {

namespace waveform = moxaudiotoolkit::waveform;

waveform::WaveformDetail DetailOf(DetailChoice choice) {
  switch (choice) {
    case DetailChoice::kPeaks:
      return waveform::WaveformDetail::kPeaks;
    case DetailChoice::kSamples:
      return waveform::WaveformDetail::kSamples;
    case DetailChoice::kAutomatic:
      break;
  }
  return waveform::WaveformDetail::kAutomatic;
}

// Channels without anything in them, until there are peaks.
std::shared_ptr<WaveformFeed::Data> Silence(std::size_t channels, int width) {
  auto const columns = static_cast<std::size_t>(width);
  return std::make_shared<WaveformFeed::Data>(
      waveform::WaveformDataProperties{waveform::WaveformDataType::kPeaks, columns, channels},
      std::vector<float>(channels * columns * 2));
}

}  // namespace

WaveformFeed::WaveformFeed(std::function<void()> arrived) : mFetcher(std::move(arrived)) {}
WaveformFeed::~WaveformFeed() = default;

// The samples that an answer is made from; null where peaks do, or must do.
WaveformFeed::SamplesOf WaveformFeed::SamplesFor(AudioDocument const& document, Viewport const& view,
                                                 DetailChoice detail) {
  auto const& pyramid = document.Pyramid();
  auto const& source = document.Source();
  bool const takesSamples = pyramid && source &&
                            (detail == DetailChoice::kSamples ||
                             view.SamplesPerPixel() < static_cast<double>(pyramid->GetSamplesPerPoint(0)));
  if (!takesSamples) {
    return nullptr;
  }
  double const floats = view.VisibleSamples() * static_cast<double>(document.ChannelCount());
  if (source->IsParallel() && floats <= kMostFloatsAtOnce) {
    return source;
  }
  // A column takes in the first sample of the next one.
  double const reach = view.SamplesPerPixel() + waveform::kLeadInSamples + waveform::kLeadOutSamples;
  return mFetcher.Get(source, static_cast<std::int64_t>(view.Left() - reach),
                      static_cast<std::int64_t>(view.Left() + view.VisibleSamples() + 2.0 * reach));
}

WaveformFeed::Question WaveformFeed::QuestionFor(AudioDocument const& document, Viewport const& view,
                                                 DetailChoice detail) {
  auto const& pyramid = document.Pyramid();
  Question question{pyramid,
                    SamplesFor(document, view, detail),
                    pyramid ? pyramid->GetPagesDone() : 0,
                    document.ChannelCount(),
                    view,
                    detail};
  if (mWindow.GetSource() != question.samples.get()) {
    mWindow = waveform::SampleWindow(question.samples);
  }
  return question;
}

std::shared_ptr<WaveformFeed::Data> WaveformFeed::DataFor(AudioDocument const& document, Viewport const& view,
                                                          DetailChoice detail) {
  Question question = QuestionFor(document, view, detail);
  if (!mData || !(question == mDataQuestion)) {
    mData = question.pyramid
                ? waveform::QueryWaveform(*question.pyramid, &mWindow, view.Left(), view.SamplesPerPixel(),
                                          view.Width(), {.detail = DetailOf(detail)})
                : Silence(question.channels, view.Width());
    mDataQuestion = std::move(question);
  }
  return mData;
}

WaveformFeed::Levels const& WaveformFeed::LevelsFor(AudioDocument const& document, Viewport const& view) {
  Question question = QuestionFor(document, view, DetailChoice::kPeaks);
  if (!(question == mLevelsQuestion)) {
    mLevels = question.pyramid ? waveform::QueryColumnLevels(*question.pyramid, &mWindow, view.Left(),
                                                             view.SamplesPerPixel(), view.Width())
                               : Levels();
    mLevelsQuestion = std::move(question);
  }
  return mLevels;
}

void WaveformFeed::Settle() {
  mFetcher.Wait();
}

}  // namespace playground
