// Reads bytes as a .dat peak file, writes what it read and makes a pyramid of it.
#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/peaks/PeakDataFile.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

using namespace moxaudiotoolkit;

constexpr std::size_t kMostValues = 1 << 16;  // of which a pyramid is made

void Require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  PeakData peaks;
  try {
    peaks = ParsePeakData({data, size}, "fuzz");
  } catch (const AudioFileError&) {
    return 0;
  }
  const std::vector<std::uint8_t> bytes = MakePeakDataBytes(peaks);
  Require(std::equal(bytes.begin(), bytes.end(), data, data + size));
  if (peaks.values.size() > kMostValues) {
    return 0;
  }
  const auto pyramid = MakePeakPyramid(peaks);
  Require(pyramid->IsComplete());
  const PeakPoint whole = pyramid->GetRange(0, 0, pyramid->GetFrameCount());
  Require(whole.known && whole.minimum <= whole.maximum);
  const PeakData back = MakePeakData(
      *pyramid,
      {.samplesPerPixel = peaks.samplesPerPixel, .version = peaks.version, .has8Bits = peaks.has8Bits});
  Require(back == peaks);
  return 0;
}
