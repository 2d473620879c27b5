#include "audio/WaveformFeed.h"

#include "audio/AudioDocument.h"

#include <moxaudiotoolkit/peaks/PeakPyramid.h>
#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>
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

// A sample position whose column is this one, counted from the sound's start.
double LeftOfPixel(std::int64_t pixel, double samplesPerPixel) {
  double const column = static_cast<double>(pixel);
  double left = column * samplesPerPixel;
  while (std::trunc(left / samplesPerPixel) > column) {
    left = std::nextafter(left, 0.0);
  }
  while (std::trunc(left / samplesPerPixel) < column) {
    left = std::nextafter(left, std::numeric_limits<double>::infinity());
  }
  return left;
}

// Runs of a length each, moved to the left by `shift` (to the right where it is negative), with what has come
// into them taken from runs of that length.
template <class Value>
std::vector<Value> Spliced(std::vector<Value> const& runs, std::vector<Value> const& fresh,
                           std::size_t length, std::int64_t shift) {
  auto const whole = static_cast<std::int64_t>(length);
  std::int64_t const added = std::abs(shift);
  std::int64_t const kept = whole - added;
  std::vector<Value> result(runs.size());
  auto old = runs.begin();
  auto news = fresh.begin();
  for (auto to = result.begin(); to != result.end(); to += whole, old += whole, news += added) {
    std::copy_n(shift > 0 ? old + shift : old, kept, shift > 0 ? to : to + added);
    std::copy_n(news, added, shift > 0 ? to + kept : to);
  }
  return result;
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

std::optional<WaveformFeed::NewColumns> WaveformFeed::ColumnsNewIn(Question const& question,
                                                                   Question const& before) const {
  Viewport const& view = question.view;
  bool const isScrolled = question.pyramid && question.pyramid == before.pyramid &&
                          (question.samples == nullptr) == (before.samples == nullptr) &&
                          question.pagesDone == before.pagesDone && question.detail == before.detail &&
                          view.SamplesPerPixel() == before.view.SamplesPerPixel() &&
                          view.Width() == before.view.Width();
  std::int64_t const shift = view.LeftPixel() - before.view.LeftPixel();
  if (!isScrolled || std::abs(shift) >= view.Width() || !mWindow.GetProblem().empty()) {
    return std::nullopt;
  }
  int const count = static_cast<int>(std::abs(shift));
  int const first = shift > 0 ? view.Width() - count : 0;
  return NewColumns{shift, first, count, LeftOfPixel(view.LeftPixel() + first, view.SamplesPerPixel())};
}

std::shared_ptr<WaveformFeed::Data> WaveformFeed::ScrolledData(Question const& question) {
  auto const columns = ColumnsNewIn(question, mDataQuestion);
  if (!columns || !mData || mData->GetType() != waveform::WaveformDataType::kPeaks) {
    return nullptr;
  }
  if (columns->count == 0) {
    return mData;
  }
  auto const fresh =
      waveform::QueryWaveform(*question.pyramid, &mWindow, columns->left, question.view.SamplesPerPixel(),
                              columns->count, {.detail = waveform::WaveformDetail::kPeaks});
  if (!mWindow.GetProblem().empty()) {
    return nullptr;
  }
  return std::make_shared<Data>(mData->GetProperties(),
                                Spliced(mData->GetWaveformBuffer(), fresh->GetWaveformBuffer(),
                                        mData->GetDataSlots() * 2, columns->shift * 2));
}

std::shared_ptr<WaveformFeed::Data> WaveformFeed::DataFor(AudioDocument const& document, Viewport const& view,
                                                          DetailChoice detail) {
  Question question = QuestionFor(document, view, detail);
  if (mData && question == mDataQuestion) {
    return mData;
  }
  if (auto scrolled = ScrolledData(question)) {
    mData = std::move(scrolled);
  } else {
    mData = question.pyramid
                ? waveform::QueryWaveform(*question.pyramid, &mWindow, view.Left(), view.SamplesPerPixel(),
                                          view.Width(), {.detail = DetailOf(detail)})
                : Silence(question.channels, view.Width());
    ++mGeneration;
  }
  mDataQuestion = std::move(question);
  return mData;
}

bool WaveformFeed::ScrollLevels(Question const& question) {
  auto const columns = ColumnsNewIn(question, mLevelsQuestion);
  if (!columns || mLevels.slots == 0) {
    return false;
  }
  if (columns->count == 0) {
    return true;
  }
  Levels const fresh = waveform::QueryColumnLevels(*question.pyramid, &mWindow, columns->left,
                                                   question.view.SamplesPerPixel(), columns->count);
  if (!mWindow.GetProblem().empty()) {
    return false;
  }
  mLevels.rms = Spliced(mLevels.rms, fresh.rms, mLevels.slots, columns->shift);
  mLevels.clipped = Spliced(mLevels.clipped, fresh.clipped, mLevels.slots, columns->shift);
  mLevels.known = Spliced(mLevels.known, fresh.known, mLevels.slots, columns->shift);
  return true;
}

WaveformFeed::Levels const& WaveformFeed::LevelsFor(AudioDocument const& document, Viewport const& view) {
  Question question = QuestionFor(document, view, DetailChoice::kPeaks);
  if (question == mLevelsQuestion) {
    return mLevels;
  }
  if (!ScrollLevels(question)) {
    mLevels = question.pyramid ? waveform::QueryColumnLevels(*question.pyramid, &mWindow, view.Left(),
                                                             view.SamplesPerPixel(), view.Width())
                               : Levels();
    ++mGeneration;
  }
  mLevelsQuestion = std::move(question);
  return mLevels;
}

void WaveformFeed::Settle() {
  mFetcher.Wait();
}

}  // namespace playground
