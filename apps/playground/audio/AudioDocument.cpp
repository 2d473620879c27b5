#include "audio/AudioDocument.h"

#include "audio/TimeRuler.h"
#include "program/Localized.h"
#include "program/NumberText.h"

#include <moxaudiotoolkit/AudioFile.h>
#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/DecodedAudio.h>
#include <moxaudiotoolkit/DemoSound.h>

#include <exception>
#include <filesystem>
#include <new>

namespace playground {
std::size_t AudioDocument::ChannelCount() const {
  return audio ? audio->GetChannelCount() : 0;
}

std::string AudioDocument::Title() const {
  return path.empty() ? Text("$$$/playground/audio/demoTitle=Demo sound")
                      : std::filesystem::path(path).filename().string();
}

std::string AudioDocument::Summary() const {
  if (!audio) {
    return {};
  }
  std::size_t const channels = ChannelCount();
  std::string const count =
      channels == 1 ? Text("$$$/playground/audio/oneChannel=1 channel")
                    : Text("$$$/playground/audio/channels=@0 channels", {std::to_string(channels)});
  return Text("$$$/playground/audio/summary=@0, @1, @2 kHz, @3",
              {path.empty() ? Text("$$$/playground/audio/demoFormat=Synthesised") : format, count,
               TextFromNumber(audio->GetSampleRate() / 1000.0, 3), TimeText(audio->GetDuration(), 0.001)});
}

std::string OpenFailure::Sentence() const {
  return Text("$$$/playground/open/failed=@0: @1", {file, reason});
}

AudioDocument DemoDocument() {
  // The same at each call, and some work to make.
  static auto const kSound = moxaudiotoolkit::SynthesiseDemoSound();
  return {.path = {}, .format = {}, .audio = kSound};
}

std::unique_ptr<AudioDocument> OpenAudioDocument(std::string const& path, OpenFailure& failure) {
  failure = {path, {}};
  try {
    moxaudiotoolkit::AudioFile file(path);
    auto document = std::make_unique<AudioDocument>();
    document->path = path;
    document->format = file.GetProperties().format;
    document->audio = moxaudiotoolkit::DecodeAudioFile(file, kMemoryLimit);
    return document;
  } catch (moxaudiotoolkit::AudioFileError const& error) {
    failure.reason = error.GetReason();
  } catch (std::bad_alloc const&) {
    failure.reason = Text("$$$/playground/open/memory=There is not enough memory.");
  } catch (std::exception const& error) {
    failure.reason = error.what();
  }
  return nullptr;
}

}  // namespace playground
