#pragma once

#include <memory>

namespace moxaudiotoolkit {
class SampleSource;
}

namespace playground {

class AudioDocument;

// What a document's sound is played from; null without a sound. A file that only a decoder can read gets one
// of its own, opened by the thread that reads first, so that playback and the picture don't make one decoder
// jump to and fro.
std::shared_ptr<moxaudiotoolkit::SampleSource const> PlaybackSource(AudioDocument const& document);

}  // namespace playground
