#include "playground/SoundFiles.h"

#include <cmath>
#include <cstring>
#include <fstream>
#include <iterator>

namespace playground {
namespace {

constexpr int kRate = 8000;

void Append(std::string& bytes, std::uint32_t value, int size) {
  for (int i = 0; i < size; ++i) {
    bytes.push_back(static_cast<char>((value >> (8 * i)) & 0xFFu));
  }
}

// The first 44 bytes of a WAV file.
std::string Header(std::uint32_t encoding, std::uint32_t bits, std::uint32_t channels, std::uint32_t rate,
                   std::uint32_t dataSize) {
  std::uint32_t const frame = channels * bits / 8;
  std::string bytes = "RIFF";
  Append(bytes, 36 + dataSize, 4);
  bytes += "WAVEfmt ";
  Append(bytes, 16, 4);
  Append(bytes, encoding, 2);
  Append(bytes, channels, 2);
  Append(bytes, rate, 4);
  Append(bytes, rate * frame, 4);
  Append(bytes, frame, 2);
  Append(bytes, bits, 2);
  bytes += "data";
  Append(bytes, dataSize, 4);
  return bytes;
}

std::vector<float> Tone(int frames) {
  std::vector<float> tone(static_cast<std::size_t>(frames));
  for (int i = 0; i < frames; ++i) {
    tone[static_cast<std::size_t>(i)] = 0.5f * std::sin(static_cast<float>(i) * 0.1f);
  }
  return tone;
}

// Writes over what stands in a file from a byte on.
void Overwrite(std::filesystem::path const& path, std::uintmax_t from, std::string const& bytes) {
  std::fstream stream(path, std::ios::binary | std::ios::in | std::ios::out);
  stream.seekp(static_cast<std::streamoff>(from));
  stream << bytes;
}

}  // namespace

std::filesystem::path WriteTone(std::filesystem::path const& folder, std::string const& name, int channels) {
  std::filesystem::path const path = folder / name;
  moxaudiotoolkit::WriteAudioFile(
      path.string(), moxaudiotoolkit::AudioFileFormat::kWavInt16, kRate,
      std::vector<std::vector<float>>(static_cast<std::size_t>(channels), Tone(kRate)));
  return path;
}

std::filesystem::path WriteTone(std::filesystem::path const& folder, std::string const& name,
                                moxaudiotoolkit::AudioFileFormat format, int seconds) {
  std::filesystem::path const path = folder / name;
  moxaudiotoolkit::WriteAudioFile(path.string(), format, kRate,
                                  std::vector<std::vector<float>>{Tone(kRate * seconds)});
  return path;
}

std::filesystem::path WriteFloats(std::filesystem::path const& folder, std::string const& name, int channels,
                                  std::vector<float> const& samples) {
  constexpr std::uint32_t kFloats = 3;
  auto const dataSize = static_cast<std::uint32_t>(samples.size() * sizeof(float));
  std::string bytes = Header(kFloats, 32, static_cast<std::uint32_t>(channels), kRate, dataSize);
  for (float const sample : samples) {
    std::uint32_t bits = 0;
    std::memcpy(&bits, &sample, sizeof bits);
    Append(bytes, bits, 4);
  }
  return WriteBytes(folder, name, bytes);
}

std::filesystem::path WriteHeader(std::filesystem::path const& folder, std::string const& name,
                                  std::uint32_t rate, std::uint32_t dataSize) {
  constexpr std::uint32_t kIntegers = 1;
  return WriteBytes(folder, name, Header(kIntegers, 16, 1, rate, dataSize) + std::string(8000, '\0'));
}

std::filesystem::path WriteBytes(std::filesystem::path const& folder, std::string const& name,
                                 std::string const& bytes) {
  std::filesystem::path const path = folder / name;
  std::ofstream(path, std::ios::binary) << bytes;
  return path;
}

std::filesystem::path Damage(std::filesystem::path const& path, double from, double to) {
  auto const size = static_cast<double>(std::filesystem::file_size(path));
  Overwrite(path, static_cast<std::uintmax_t>(size * from),
            std::string(static_cast<std::size_t>(size * (to - from)), '\x55'));
  return path;
}

std::filesystem::path PromiseFlacFrames(std::filesystem::path const& path, std::uint32_t frames) {
  constexpr std::uintmax_t kPlace = 22;  // the lower 32 of the 36 bits in the stream information
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) {
    bytes.push_back(static_cast<char>((frames >> shift) & 0xFFu));
  }
  Overwrite(path, kPlace, bytes);
  return path;
}

std::filesystem::path WriteTruncated(std::filesystem::path const& whole, std::uintmax_t length) {
  std::filesystem::path const path = whole.parent_path() / ("truncated-" + whole.filename().string());
  std::filesystem::copy_file(whole, path);
  std::filesystem::resize_file(path, length);
  return path;
}

}  // namespace playground
