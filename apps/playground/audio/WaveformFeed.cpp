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

std::shared_ptr<WaveformFeed::Data> WaveformFeed::DataFor(AudioDocument const& document, Viewport const& view,
                                                          DetailChoice detail) {
  auto const& pyramid = document.Pyramid();
  Question question{pyramid, document.Source(), pyramid ? pyramid->GetPagesDone() : 0, view, detail};
  if (mData && question == mQuestion) {
    return mData;
  }
  if (mWindow.GetSource() != question.source.get()) {
    mWindow = waveform::SampleWindow(question.source);
  }
  mData = pyramid ? waveform::QueryWaveform(*pyramid, &mWindow, view.Left(), view.SamplesPerPixel(),
                                            view.Width(), {.detail = DetailOf(detail)})
                  : Silence(document.ChannelCount(), view.Width());
  mQuestion = std::move(question);
  return mData;
}

}  // namespace playground
