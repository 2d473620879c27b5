#pragma once

#include <moxaudiotoolkit/waveform/QueryWaveform.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace moxaudiotoolkit {
class PeakPyramid;
class SampleSource;
}  // namespace moxaudiotoolkit

namespace moxaudiotoolkit::waveform {

// Samples of a source for views, with those of the last view kept (in 24 MiB at most), so that scrolling
// reads only what is new. Belongs to one view: not for use from two threads at once.
class SampleWindow {
 public:
  // `source` may be null: nothing can be read then.
  explicit SampleWindow(std::shared_ptr<const SampleSource> source);

  // Frames from `begin` up to but not including `end`, which lie within the audio, channels interleaved.
  // Valid until the next call. Nothing when they can't be read. Those up to `reach` are about to be asked
  // for.
  std::optional<std::span<const float>> Read(std::int64_t begin, std::int64_t end, std::int64_t reach);
  bool HasSource() const { return mSource != nullptr; }
  const SampleSource* GetSource() const { return mSource.get(); }
  // Why the last reading failed; empty when it didn't.
  const std::string& GetProblem() const { return mProblem; }

 private:
  std::size_t FloatsOf(std::int64_t frames) const;
  std::pair<std::int64_t, std::int64_t> GetHeldWith(std::int64_t begin, std::int64_t end) const;
  void MakeRoom(std::int64_t begin, std::int64_t end);
  void ReadInto(std::int64_t begin, std::int64_t end);

  std::shared_ptr<const SampleSource> mSource;
  // Frames from mBegin to mEnd stand in the buffer from mOffset on. It is longer than that, so that most
  // steps of a scrolling move nothing.
  std::int64_t mBegin = 0;
  std::int64_t mEnd = 0;
  std::unique_ptr<float[]> mSamples;
  std::size_t mCapacity = 0;
  std::size_t mOffset = 0;
  std::string mProblem;
};

// The same as QueryWaveform of decoded audio, for audio of any length.
//
// Columns as wide as a finest point of the pyramid or wider come from the pyramid. They are made of points no
// longer than a quarter of the column, or finest ones, and take in every point that holds one of their
// samples, so that no peak is missing and which points belong to a column doesn't change while the view
// scrolls. Narrower columns, and samples, are read through `window` and exact. Where the window is null or
// can't read, the pyramid's finest points stand for samples, and for peaks instead of samples. What the
// pyramid doesn't know yet is silence.
std::shared_ptr<WaveformData> QueryWaveform(const PeakPyramid& pyramid, SampleWindow* window, double viewLeft,
                                            double samplesPerPixel, int pixelWidth,
                                            const WaveformQueryOptions& options = {});

// What stands beside the peaks of each column: the value of channel c, column x at c * slots + x.
struct ColumnLevels {
  std::size_t slots = 0;
  std::vector<float> rms;
  std::vector<std::uint8_t> clipped;  // 1 where a sample reaches full scale
  std::vector<std::uint8_t> known;  // 1 where all of the column has been read; columns outside the audio too
};

// Of the same columns as QueryWaveform with detail kPeaks, without the sample by which columns join. Empty
// for a view that means nothing.
ColumnLevels QueryColumnLevels(const PeakPyramid& pyramid, SampleWindow* window, double viewLeft,
                               double samplesPerPixel, int pixelWidth);

}  // namespace moxaudiotoolkit::waveform
