#pragma once

#include <moxcore/filesupport/File.h>
#include <moxcore/utility/Noncopyable.h>

#include <cstdint>

namespace moxcore::filesupport {

// The bytes of an open file, from its beginning on. Pipes, devices and directories can't be opened. Failures
// are mox_exceptions.
class IPlatformByteStream : utility::noncopyable {
 public:
  static constexpr std::uint32_t kRead = 1;

  // `flags` is kRead; anything else throws std::invalid_argument.
  IPlatformByteStream(File const& file, std::uint32_t flags);
  ~IPlatformByteStream();

  // The length of the file when it was opened.
  std::uint64_t Length() const noexcept { return mLength; }
  // Reads the next `size` bytes; fewer are an error.
  void ReadBlock(void* buffer, std::uint64_t size);

 private:
  File mFile;
  int mDescriptor = -1;
  std::uint64_t mLength = 0;
};

}  // namespace moxcore::filesupport
