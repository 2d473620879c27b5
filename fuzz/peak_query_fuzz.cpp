// Views of peaks, of any range and zoom, compared with a look at each sample. The input: frames (3 bytes),
// channels (1), options (1), pages that are missing (1), then ten bytes for each view: its left edge (5), its
// zoom (3), its width (2).
#include <moxaudiotoolkit/peaks/PeakPyramid.h>
#include <moxaudiotoolkit/peaks/SampleSource.h>
#include <moxaudiotoolkit/waveform/QueryPyramid.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <vector>

namespace {

using namespace moxaudiotoolkit;

constexpr std::size_t kHeadBytes = 6;
constexpr std::size_t kViewBytes = 10;
constexpr int kMostViews = 4;
constexpr double kMostSamplesOfView = 30'000.0;
constexpr std::int64_t kMostSamples = 300'000;  // of all channels, so that a run is short
constexpr std::int64_t kFramesPerPage = PeakPyramid::kPointsPerPage * kSamplesPerPoint;

void Require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

std::uint64_t Number(const std::uint8_t* data, std::size_t size) {
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < size; ++i) {
    number |= std::uint64_t{data[i]} << (8 * i);
  }
  return number;
}

// A ramp that jumps, so that each sample tells its place.
class Ramp : public SampleSource {
 public:
  using SampleSource::SampleSource;

  float GetSample(std::int64_t frame, int channel) const {
    const auto mixed =
        static_cast<std::uint32_t>(frame) * 2654435761U + static_cast<std::uint32_t>(channel) * 977U;
    return static_cast<float>(static_cast<std::int16_t>(mixed >> 16)) / 32768.0F;
  }

  void ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const override {
    Require(firstFrame >= 0);
    const auto channelCount = static_cast<std::size_t>(GetProperties().channelCount);
    Require(firstFrame + static_cast<std::int64_t>(destination.size() / channelCount) <=
            GetProperties().frames);
    for (std::size_t i = 0; i < destination.size(); ++i) {
      destination[i] = GetSample(firstFrame + static_cast<std::int64_t>(i / channelCount),
                                 static_cast<int>(i % channelCount));
    }
  }
};

std::unique_ptr<PeakPyramid> Build(const Ramp& source, std::uint8_t missing) {
  auto pyramid = std::make_unique<PeakPyramid>(GetPeakPyramidFormat(source.GetProperties()));
  const auto points = static_cast<std::size_t>(PeakPyramid::kPointsPerPage);
  std::vector<float> values(3 * points * pyramid->GetChannelCount());
  std::vector<PeakRun> runs;
  for (std::size_t channel = 0; channel < pyramid->GetChannelCount(); ++channel) {
    float* own = values.data() + 3 * points * channel;
    runs.push_back({.minimum = own, .maximum = own + points, .sumOfSquares = own + 2 * points});
  }
  for (std::int64_t page = 0; page < pyramid->GetPageCount(); ++page) {
    if ((missing >> (page % 8) & 1) == 0) {
      const std::int64_t first = page * kFramesPerPage;
      source.ReadPeaks(first, std::min(kFramesPerPage, pyramid->GetFrameCount() - first), runs);
      pyramid->SetPage(page, runs);
    }
  }
  return pyramid;
}

// Every sample under a column is within its pair, whatever the zoom.
void CheckPeaks(const waveform::WaveformData& data, const Ramp& source, const PeakPyramid& pyramid,
                double viewLeft, double samplesPerPixel) {
  if (std::fabs(viewLeft / samplesPerPixel) > 1e15) {
    return;
  }
  const auto leftPixel = static_cast<std::int64_t>(viewLeft / samplesPerPixel);
  const auto width = static_cast<std::int64_t>(data.GetDataSlots());
  const SampleSourceProperties& properties = source.GetProperties();
  for (std::int64_t frame = 0; frame < properties.frames; frame += 1 + frame / 97) {
    const std::int64_t x =
        static_cast<std::int64_t>(static_cast<double>(frame) / samplesPerPixel) - leftPixel;
    if (x < 0 || x >= width || !pyramid.HasPage(frame / kFramesPerPage)) {
      continue;
    }
    for (int channel = 0; channel < properties.channelCount; ++channel) {
      const auto slot = static_cast<std::size_t>(channel * width + x) * 2;
      const float sample = source.GetSample(frame, channel);
      Require(data.GetWaveformBuffer()[slot] >= sample && data.GetWaveformBuffer()[slot + 1] <= sample);
    }
  }
}

void CheckSamples(const waveform::WaveformData& data, const Ramp& source, double viewLeft) {
  if (std::fabs(viewLeft) > 1e15) {
    return;
  }
  const std::int64_t first = static_cast<std::int64_t>(viewLeft) - 1 - 21;
  const std::size_t slots = data.GetDataSlots();
  for (int channel = 0; channel < source.GetProperties().channelCount; ++channel) {
    for (std::size_t i = 0; i < slots; ++i) {
      const std::int64_t frame = first + static_cast<std::int64_t>(i);
      const bool inside = frame >= 0 && frame < source.GetProperties().frames;
      Require(data.GetWaveformBuffer()[static_cast<std::size_t>(channel) * slots + i] ==
              (inside ? source.GetSample(frame, channel) : 0.0F));
    }
  }
}

void CheckView(const Ramp& source, const PeakPyramid& pyramid, waveform::SampleWindow* window,
               const std::uint8_t* view, std::uint8_t choice) {
  const double viewLeft = (static_cast<double>(Number(view, 5)) - 0x1p38) / 0x1p18;
  const double samplesPerPixel = std::exp2(static_cast<double>(Number(view + 5, 3)) / 0x1p19 - 8.0);
  const int widest = static_cast<int>(std::min(kMostSamplesOfView / samplesPerPixel + 1.0, 500.0));
  const int width = static_cast<int>(Number(view + 8, 2)) % (choice % 3 == 0 ? 500 : widest) + 1;
  const waveform::WaveformQueryOptions options{.detail = static_cast<waveform::WaveformDetail>(choice % 3),
                                               .joinColumns = (choice & 4) != 0};
  const auto data = waveform::QueryWaveform(pyramid, window, viewLeft, samplesPerPixel, width, options);
  Require(data->GetChannelCount() == pyramid.GetChannelCount());
  if (data->GetType() == waveform::WaveformDataType::kSamples) {
    CheckSamples(*data, source, viewLeft);
  } else {
    Require(data->GetType() == waveform::WaveformDataType::kPeaks);
    CheckPeaks(*data, source, pyramid, viewLeft, samplesPerPixel);
  }
  const waveform::ColumnLevels levels =
      waveform::QueryColumnLevels(pyramid, window, viewLeft, samplesPerPixel, width);
  Require(levels.slots == static_cast<std::size_t>(width));
  for (const float rms : levels.rms) {
    Require(rms >= 0.0F && rms <= 1.01F);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < kHeadBytes) {
    return 0;
  }
  const int channelCount = data[3] % 9 + 1;
  const auto source = std::make_shared<Ramp>(SampleSourceProperties{
      .frames = static_cast<std::int64_t>(Number(data, 3)) % (kMostSamples / channelCount),
      .sampleRate = 48000,
      .channelCount = channelCount,
      .integerBits = (data[4] & 8) != 0 ? 16 : 0});
  const auto pyramid = Build(*source, data[5]);
  waveform::SampleWindow window((data[4] & 16) != 0 ? nullptr : source);
  for (int view = 0;
       view < kMostViews && size >= kHeadBytes + (static_cast<std::size_t>(view) + 1) * kViewBytes; ++view) {
    CheckView(*source, *pyramid, &window, data + kHeadBytes + static_cast<std::size_t>(view) * kViewBytes,
              static_cast<std::uint8_t>(data[4] + view));
  }
  return 0;
}
