#pragma once

#include "audio/SampleFetcher.h"
#include "audio/Viewport.h"
#include "audio/WaveformSettings.h"

#include <moxaudiotoolkit/waveform/QueryPyramid.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace moxaudiotoolkit {
class PeakPyramid;
class SampleSource;
}  // namespace moxaudiotoolkit

namespace playground {

class AudioDocument;

// What a view of a sound is drawn from: peaks, or samples where they can be told apart. Samples that take
// long to read come later; meanwhile the finest peaks stand for them. The last answers are kept until another
// question is asked or more of the sound is known; of a view that is scrolled only new columns are asked for.
class WaveformFeed {
 public:
  using Data = moxaudiotoolkit::waveform::WaveformData;
  using Levels = moxaudiotoolkit::waveform::ColumnLevels;

  // Of a view, over all channels, that is read at once, on the main thread: about a millisecond's work for
  // 16-bit files in the page cache.
  static constexpr double kMostFloatsAtOnce = 1 << 19;

  // `arrived` is called on the main thread when samples have come and an answer is another one.
  explicit WaveformFeed(std::function<void()> arrived);
  ~WaveformFeed();

  // Never null.
  std::shared_ptr<Data> DataFor(AudioDocument const& document, Viewport const& view, DetailChoice detail);
  // What stands beside the peaks of the view's columns.
  Levels const& LevelsFor(AudioDocument const& document, Viewport const& view);
  // Another number as soon as a column of the sound that was in view before would show something else in an
  // answer than in the one before.
  std::uint64_t Generation() const { return mGeneration; }
  // Returns when the answer to the last question is the last one.
  void Settle();

 private:
  using SamplesOf = std::shared_ptr<moxaudiotoolkit::SampleSource const>;
  // What an answer depends on.
  struct Question {
    std::shared_ptr<moxaudiotoolkit::PeakPyramid const> pyramid;
    SamplesOf samples;
    std::int64_t pagesDone = 0;
    std::size_t channels = 0;
    Viewport view;
    DetailChoice detail = DetailChoice::kAutomatic;

    bool operator==(Question const&) const = default;
  };

  Question QuestionFor(AudioDocument const& document, Viewport const& view, DetailChoice detail);
  SamplesOf SamplesFor(AudioDocument const& document, Viewport const& view, DetailChoice detail);

  // The columns that are in view of `question` but weren't in that of `before`; nothing where more than the
  // place of the view is another.
  struct NewColumns {
    std::int64_t shift = 0;  // of the view, to the right
    int first = 0;
    int count = 0;
    double left = 0.0;  // the sample position to ask from
  };
  std::optional<NewColumns> ColumnsNewIn(Question const& question, Question const& before) const;
  std::shared_ptr<Data> ScrolledData(Question const& question);
  bool ScrollLevels(Question const& question);

  std::uint64_t mGeneration = 0;
  Question mDataQuestion;
  std::shared_ptr<Data> mData;
  Question mLevelsQuestion;
  Levels mLevels;
  moxaudiotoolkit::waveform::SampleWindow mWindow{nullptr};
  SampleFetcher mFetcher;
};

}  // namespace playground
