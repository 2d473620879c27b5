#pragma once

#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/peaks/PeakValues.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace moxaudiotoolkit {

class PeakPyramid;

// The contents of a .dat peak file, as other tools for waveforms on the web and on the desk read and write
// them: pairs of the smallest and the largest of each `samplesPerPixel` samples.
struct PeakData {
  int version = 2;  // 1, which knows but one channel, or 2
  bool has8Bits = false;
  int sampleRate = 0;
  int samplesPerPixel = 0;
  int channelCount = 0;
  std::uint32_t length = 0;  // pairs of each channel
  // For each place, for each channel: smallest, largest. In units of 2^-15, or of 2^-7 with 8 bits.
  PeakValues values;

  bool operator==(const PeakData&) const = default;
};

// In a file that is read, smallest and largest counted each: 1 GiB in memory, which holds two channels for 47
// hours at 48 kHz and 64 samples a pair.
inline constexpr std::uint64_t kMostPeakValues = std::uint64_t{1} << 29;

// Throw AudioFileError: kNotFound, kNotReadable, kNotAFile and kEmpty like AudioFile; kNotAudio for a file
// of another kind or byte order; kTruncated when it is shorter than its header says and kDamaged when it is
// longer or contradicts itself; kBadChannelCount, kBadSampleRate. Memory is taken for the bytes that are
// there. A file's may be sparse and cost nobody anything: kTooLong beyond kMostPeakValues. `cancelled` as for
// AudioFile.
PeakData ReadPeakData(const std::string& path, const std::atomic<bool>* cancelled = nullptr);
PeakData ParsePeakData(std::span<const std::uint8_t> bytes, const std::string& name);

// Little-endian, whatever the machine. Throws std::invalid_argument when the data contradicts itself.
std::vector<std::uint8_t> MakePeakDataBytes(const PeakData& data);
// Replaces the file once all is on the disk. Throws AudioFileError (kNotWritable) otherwise, and leaves the
// old one as it was.
void WritePeakData(const std::string& path, const PeakData& data);

struct PeakDataOptions {
  int samplesPerPixel = 256;  // a multiple of the pyramid's samples per point
  int version = 2;            // version 1 takes the peaks of all channels together
  bool has8Bits = false;
  // Is told now and then how far the making is, from 0 to 1; false when it is to end.
  std::function<bool(double done)> report = nullptr;
};

// Peaks are rounded to the nearest value and those beyond full scale limited. The last pair holds what is
// left. Throws std::invalid_argument for other options than those named and for more pairs than a file can
// hold, AudioFileError (kCancelled) when a report had it end; what the pyramid doesn't know yet is silence.
PeakData MakePeakData(const PeakPyramid& pyramid, const PeakDataOptions& options = {});

// A pyramid whose finest points are the pairs, without RMS. `frames` is the length of the audio where that is
// known, which must be of that many pairs; with 0 the last pair counts as whole.
std::shared_ptr<const PeakPyramid> MakePeakPyramid(const PeakData& data, std::int64_t frames = 0);

}  // namespace moxaudiotoolkit
