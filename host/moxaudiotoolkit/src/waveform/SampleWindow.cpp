#include <moxaudiotoolkit/peaks/SampleSource.h>
#include <moxaudiotoolkit/waveform/QueryPyramid.h>

#include <algorithm>
#include <exception>
#include <utility>

namespace moxaudiotoolkit::waveform {
namespace {

// Read at least and in multiples of that many frames, so that a slow scrolling doesn't read at each step.
constexpr std::int64_t kStep = 1024;

}  // namespace

SampleWindow::SampleWindow(std::shared_ptr<const SampleSource> source) : mSource(std::move(source)) {}

std::optional<std::span<const float>> SampleWindow::Read(std::int64_t begin, std::int64_t end) {
  if (mSource == nullptr) {
    return std::nullopt;
  }
  const SampleSourceProperties& properties = mSource->GetProperties();
  if (begin < 0 || begin > end || end > properties.frames) {
    mProblem = "There are no such samples";
    return std::nullopt;
  }
  const auto channelCount = static_cast<std::size_t>(properties.channelCount);
  const auto floats = [channelCount](std::int64_t frames) {
    return static_cast<std::size_t>(frames) * channelCount;
  };
  mProblem.clear();
  if (begin < mBegin || end > mEnd) {
    const std::int64_t newBegin = begin / kStep * kStep;
    const std::int64_t newEnd = std::min((end + kStep - 1) / kStep * kStep, properties.frames);
    const std::int64_t keptBegin = std::max(newBegin, mBegin);
    const std::int64_t keptEnd = std::max(std::min(newEnd, mEnd), keptBegin);
    try {
      std::vector<float> samples(floats(newEnd - newBegin));
      const auto read = [&](std::int64_t first, std::int64_t last) {
        if (first < last) {
          mSource->ReadInterleaved(
              first, std::span(samples).subspan(floats(first - newBegin), floats(last - first)));
        }
      };
      if (keptBegin < keptEnd) {
        std::copy_n(mSamples.begin() + static_cast<std::ptrdiff_t>(floats(keptBegin - mBegin)),
                    floats(keptEnd - keptBegin),
                    samples.begin() + static_cast<std::ptrdiff_t>(floats(keptBegin - newBegin)));
        read(newBegin, keptBegin);
        read(keptEnd, newEnd);
      } else {
        read(newBegin, newEnd);
      }
      mSamples = std::move(samples);
      mBegin = newBegin;
      mEnd = newEnd;
    } catch (const std::exception& error) {
      mProblem = error.what();
      return std::nullopt;
    }
  }
  return std::span<const float>(mSamples).subspan(floats(begin - mBegin), floats(end - begin));
}

}  // namespace moxaudiotoolkit::waveform
