#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace moxaudiotoolkit::testing {

// Bytes of sound files put together by hand, so that their headers can be wrong.
class ByteWriter {
 public:
  ByteWriter& Text(std::string_view text);
  ByteWriter& Little(std::uint64_t value, std::size_t size);
  ByteWriter& Big(std::uint64_t value, std::size_t size);
  ByteWriter& BigDouble(double value);
  ByteWriter& Fill(std::size_t count, std::uint8_t value);

  std::vector<std::uint8_t> bytes;
};

struct WavHeader {
  std::uint16_t channels = 1;
  std::uint32_t rate = 48000;
  std::uint16_t bits = 16;
  std::uint32_t dataBytes = 200;  // that the header promises
};

// A WAV file of 16-bit samples with 200 zero bytes of data, or as many as given.
std::vector<std::uint8_t> WavBytes(const WavHeader& header, std::size_t dataBytes = 200);

struct CafHeader {
  double rate = 48000.0;
  std::uint64_t dataBytes = 200;  // that the header promises
};

// A CAF file of one channel of 16-bit samples, big-endian, with 200 zero bytes of data, or as many as given.
std::vector<std::uint8_t> CafBytes(const CafHeader& header, std::size_t dataBytes = 200);

// Sets the number of frames in the header of a FLAC file; 0 stands for a stream of unknown length.
void SetFlacFrames(std::vector<std::uint8_t>& flac, std::uint64_t frames);

// `channelCount` channels of tones, each of another pitch, at most 0.8 of full scale.
std::vector<std::vector<float>> Tones(std::size_t channelCount, std::size_t frames);

}  // namespace moxaudiotoolkit::testing
