#pragma once

#include "audio/Viewport.h"
#include "audio/WaveformSettings.h"

#include <moxaudiotoolkit/waveform/QueryPyramid.h>

#include <cstdint>
#include <memory>

namespace moxaudiotoolkit {
class PeakPyramid;
class SampleSource;
}  // namespace moxaudiotoolkit

namespace playground {

class AudioDocument;

// What a view of a sound is drawn from: peaks, or samples where they can be told apart. The last answer is
// kept until another question is asked or more of the sound is known.
class WaveformFeed {
 public:
  using Data = moxaudiotoolkit::waveform::WaveformData;

  // Never null.
  std::shared_ptr<Data> DataFor(AudioDocument const& document, Viewport const& view, DetailChoice detail);

 private:
  // What an answer depends on.
  struct Question {
    std::shared_ptr<moxaudiotoolkit::PeakPyramid const> pyramid;
    std::shared_ptr<moxaudiotoolkit::SampleSource const> source;
    std::int64_t pagesDone = 0;
    Viewport view;
    DetailChoice detail = DetailChoice::kAutomatic;

    bool operator==(Question const&) const = default;
  };

  Question mQuestion;
  std::shared_ptr<Data> mData;
  moxaudiotoolkit::waveform::SampleWindow mWindow{nullptr};
};

}  // namespace playground
