#pragma once

#include <moxaudiotoolkit/AudioFileWriter.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace playground {

// Files that are good, and files that are bad in every way that a user may come upon.

// A tone of a second, 16 bits.
std::filesystem::path WriteTone(std::filesystem::path const& folder, std::string const& name,
                                int channels = 2);
// The same tone for `seconds` in another format.
std::filesystem::path WriteTone(std::filesystem::path const& folder, std::string const& name,
                                moxaudiotoolkit::AudioFileFormat format, int seconds);
// A WAV file of 32-bit floats, whatever they are, and with any number of channels in its header.
std::filesystem::path WriteFloats(std::filesystem::path const& folder, std::string const& name, int channels,
                                  std::vector<float> const& samples);
// A WAV file of 16-bit silence, mono, whose header says whatever it is told of rate and length.
std::filesystem::path WriteHeader(std::filesystem::path const& folder, std::string const& name,
                                  std::uint32_t rate, std::uint32_t dataSize);
std::filesystem::path WriteBytes(std::filesystem::path const& folder, std::string const& name,
                                 std::string const& bytes);
// Makes nonsense of a file between two of its bytes, told by shares of its length.
std::filesystem::path Damage(std::filesystem::path const& path, double from, double to);
// Sets the number of frames that the header of a FLAC file promises.
std::filesystem::path PromiseFlacFrames(std::filesystem::path const& path, std::uint32_t frames);
// The first part of another file.
std::filesystem::path WriteTruncated(std::filesystem::path const& whole, std::uintmax_t length);

}  // namespace playground
