#include "SoundBytes.h"

#include <bit>
#include <cmath>

namespace moxaudiotoolkit::testing {

ByteWriter& ByteWriter::Text(std::string_view text) {
  bytes.insert(bytes.end(), text.begin(), text.end());
  return *this;
}

ByteWriter& ByteWriter::Little(std::uint64_t value, std::size_t size) {
  for (std::size_t i = 0; i < size; ++i) {
    bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
  }
  return *this;
}

ByteWriter& ByteWriter::Big(std::uint64_t value, std::size_t size) {
  for (std::size_t i = size; i > 0; --i) {
    bytes.push_back(static_cast<std::uint8_t>(value >> (8 * (i - 1))));
  }
  return *this;
}

ByteWriter& ByteWriter::BigDouble(double value) {
  return Big(std::bit_cast<std::uint64_t>(value), 8);
}

ByteWriter& ByteWriter::Fill(std::size_t count, std::uint8_t value) {
  bytes.insert(bytes.end(), count, value);
  return *this;
}

std::vector<std::uint8_t> WavBytes(const WavHeader& header, std::size_t dataBytes) {
  const std::uint32_t frameBytes = header.channels == 0 ? 2U : header.channels * 2U;
  ByteWriter writer;
  writer.Text("RIFF").Little(36 + dataBytes, 4).Text("WAVEfmt ").Little(16, 4).Little(1, 2);
  writer.Little(header.channels, 2).Little(header.rate, 4).Little(std::uint64_t{header.rate} * frameBytes, 4);
  writer.Little(frameBytes, 2).Little(header.bits, 2);
  writer.Text("data").Little(header.dataBytes, 4).Fill(dataBytes, 0);
  return writer.bytes;
}

std::vector<std::uint8_t> CafBytes(const CafHeader& header, std::size_t dataBytes) {
  ByteWriter writer;
  writer.Text("caff").Big(1, 2).Big(0, 2).Text("desc").Big(32, 8).BigDouble(header.rate).Text("lpcm");
  writer.Big(0, 4).Big(2, 4).Big(1, 4).Big(1, 4).Big(16, 4);
  writer.Text("data").Big(header.dataBytes + 4, 8).Big(0, 4).Fill(dataBytes, 0);
  return writer.bytes;
}

void SetFlacFrames(std::vector<std::uint8_t>& flac, std::uint64_t frames) {
  constexpr std::size_t kLowestByte = 25;  // the 36 bits end here, in the stream information
  flac.at(kLowestByte - 4) =
      static_cast<std::uint8_t>((flac.at(kLowestByte - 4) & 0xF0U) | (frames >> 32 & 0xFU));
  for (std::size_t i = 0; i < 4; ++i) {
    flac.at(kLowestByte - i) = static_cast<std::uint8_t>(frames >> (8 * i));
  }
}

std::vector<std::vector<float>> Tones(std::size_t channelCount, std::size_t frames) {
  std::vector<std::vector<float>> channels(channelCount, std::vector<float>(frames));
  for (std::size_t c = 0; c < channelCount; ++c) {
    for (std::size_t i = 0; i < frames; ++i) {
      channels[c][i] = 0.8F * std::sin(0.01F * static_cast<float>(c + 2) * static_cast<float>(i % 100000));
    }
  }
  return channels;
}

}  // namespace moxaudiotoolkit::testing
