#include "PosixFiles.h"

#include <moxcore/filesupport/PlatformByteStream.h>

#include <stdexcept>

namespace moxcore::filesupport {

IPlatformByteStream::IPlatformByteStream(File const& file, std::uint32_t flags) : mFile(file) {
  if (flags != kRead) {
    throw std::invalid_argument("byte streams are for reading");
  }
  mDescriptor = posix::Open(file.FullPath(), mLength);
}

IPlatformByteStream::~IPlatformByteStream() {
  posix::Close(mDescriptor);
}

void IPlatformByteStream::ReadBlock(void* buffer, std::uint64_t size) {
  posix::Read(mDescriptor, buffer, size, mFile.FullPath());
}

}  // namespace moxcore::filesupport
