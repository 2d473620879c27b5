#pragma once

#include <cstddef>
#include <memory>
#include <string>

namespace moxaudiotoolkit {
class DecodedAudio;
}

namespace playground {

// A sound that is open: its samples, and what to call it.
struct AudioDocument {
  std::string path;    // empty for the sound that the program makes itself
  std::string format;  // container and encoding in words, as the file's reader calls them
  std::shared_ptr<moxaudiotoolkit::DecodedAudio const> audio;

  std::size_t ChannelCount() const;
  // The file's name without its folder.
  std::string Title() const;
  // Format, channels, rate and length in one line.
  std::string Summary() const;
};

// Why a file couldn't be opened, for the user.
struct OpenFailure {
  std::string file;
  std::string reason;

  // Both in one sentence.
  std::string Sentence() const;
};

// Sounds that would take more memory than this aren't opened.
inline constexpr std::size_t kMemoryLimit = std::size_t{4} << 30;

// The sound that the program makes itself.
AudioDocument DemoDocument();

// Opens and decodes a file, its path in UTF-8. Null, with the reason in `failure`, when that can't be done;
// never throws for what is wrong with the file.
std::unique_ptr<AudioDocument> OpenAudioDocument(std::string const& path, OpenFailure& failure);

}  // namespace playground
