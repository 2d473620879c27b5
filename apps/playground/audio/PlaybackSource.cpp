#include "audio/PlaybackSource.h"

#include "audio/AudioDocument.h"
#include "program/Localized.h"

#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <mutex>
#include <stdexcept>
#include <string>
#include <utility>

namespace playground {
namespace {

class OwnDecoder : public moxaudiotoolkit::SampleSource {
 public:
  OwnDecoder(moxaudiotoolkit::SampleSourceProperties const& properties, std::string path)
      : SampleSource(properties), mPath(std::move(path)) {}

  bool IsParallel() const override { return false; }

  void ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const override {
    std::lock_guard const lock(mMutex);
    if (!mSource) {
      auto source = moxaudiotoolkit::OpenSampleSource(mPath);
      auto const& now = source->GetProperties();
      auto const& then = GetProperties();
      if (now.frames != then.frames || now.channelCount != then.channelCount ||
          now.sampleRate != then.sampleRate) {
        throw std::runtime_error(
            Text("$$$/playground/transport/fileChanged=The file has become another one."));
      }
      mSource = std::move(source);
    }
    mSource->ReadInterleaved(firstFrame, destination);
  }

 private:
  std::string mPath;
  mutable std::mutex mMutex;
  mutable std::shared_ptr<SampleSource const> mSource;
};

}  // namespace

std::shared_ptr<moxaudiotoolkit::SampleSource const> PlaybackSource(AudioDocument const& document) {
  auto const& source = document.Source();
  if (!source || source->IsParallel() || document.Path().empty()) {
    return source;
  }
  return std::make_shared<OwnDecoder>(source->GetProperties(), document.Path());
}

}  // namespace playground
