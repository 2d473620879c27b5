#pragma once

#include <span>
#include <string>
#include <vector>

namespace moxaudiotoolkit {

enum class AudioFileFormat {
  kWavInt16,
  kWavInt24,
  kWavFloat,
  kAiffInt16,
  kFlacInt16,
  kFlacInt24,
  kOggVorbis,
  kOggOpus,  // 8, 12, 16, 24 or 48 kHz
  kMp3,      // one or two channels
};

// Writes one vector of samples per channel, all of the same length, to the file at `path` (UTF-8), replacing
// what is there once all is written: a failure leaves the old file as it was. Samples beyond full scale are
// limited in every format but kWavFloat. Throws AudioFileError (kNotWritable) when the format can't hold the
// channels or the rate or the file can't be written, std::invalid_argument when the lengths differ.
void WriteAudioFile(const std::string& path, AudioFileFormat format, int sampleRate,
                    std::span<const std::vector<float>> channels);

}  // namespace moxaudiotoolkit
