// Opens bytes as a sound file, reads here and there, decodes the whole and asks for views of it. The first
// three bytes choose the view, so that a seed is three bytes and a sound file.
#include <moxaudiotoolkit/AudioFile.h>
#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/DecodedAudio.h>
#include <moxaudiotoolkit/waveform/QueryWaveform.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

namespace {

using namespace moxaudiotoolkit;

constexpr std::size_t kMemoryLimit = 16 << 20;
constexpr std::size_t kChoiceBytes = 3;

void Require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

void ReadSome(AudioFile& file, std::uint8_t choice) {
  const AudioFileProperties& properties = file.GetProperties();
  Require(properties.frames >= 0 && properties.channelCount >= 1 && properties.channelCount <= kMostChannels);
  std::vector<float> samples(static_cast<std::size_t>(properties.channelCount) * 100);
  for (const std::int64_t first :
       {properties.frames / 256 * choice, std::int64_t{0}, properties.frames - 1}) {
    if (first >= 0) {
      file.ReadInterleaved(first, samples);
    }
  }
  for (const float sample : samples) {
    Require(std::fabs(sample) <= kLargestSample);
  }
}

void QuerySome(const DecodedAudio& audio, std::uint8_t leftChoice, std::uint8_t zoomChoice) {
  const double viewLeft = (leftChoice - 32) / 192.0 * static_cast<double>(audio.GetFrameCount());
  const double samplesPerPixel = std::exp2(zoomChoice / 12.0 - 4.0);
  const auto data = waveform::QueryWaveform(audio, viewLeft, samplesPerPixel, 200);
  Require(data->GetType() != waveform::WaveformDataType::kNone);
  Require(data->GetChannelCount() == audio.GetChannelCount());
  if (data->GetType() == waveform::WaveformDataType::kPeaks) {
    const std::vector<float>& pairs = data->GetWaveformBuffer();
    for (std::size_t i = 0; i < pairs.size(); i += 2) {
      Require(pairs[i] >= pairs[i + 1]);
    }
  }
}

}  // namespace

// libvorbis' structures are lost by libsndfile 1.2 when it refuses an Ogg file.
extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions() {
  return "leak:vorbis_info_init\n";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < kChoiceBytes) {
    return 0;
  }
  std::unique_ptr<AudioFile> file;
  try {
    file = std::make_unique<AudioFile>(std::vector<std::uint8_t>(data + kChoiceBytes, data + size), "fuzz");
    ReadSome(*file, data[0]);
  } catch (const AudioFileError&) {
  }
  if (file != nullptr) {
    try {
      QuerySome(*DecodeAudioFile(*file, kMemoryLimit), data[1], data[2]);
    } catch (const AudioFileError&) {
    }
  }
  return 0;
}
