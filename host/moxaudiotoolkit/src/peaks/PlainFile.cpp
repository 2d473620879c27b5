#include "PlainFile.h"

#include "../SystemReason.h"

#include <moxaudiotoolkit/AudioFileError.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace moxaudiotoolkit {
namespace {

[[noreturn]] void ThrowUnreadable(const std::string& path, AudioFileFault fault, int error) {
  throw AudioFileError(fault, path, "$$$/moxaudiotoolkit/Error/CannotRead=The file can't be read: @0.",
                       {SystemReason(error)});
}

int Open(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos) {
    ThrowUnreadable(path, AudioFileFault::kNotFound, ENOENT);
  }
  // Without waiting: the opening of a pipe nobody writes to would never return.
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (descriptor < 0) {
    const int error = errno;
    const bool none = error == ENOENT || error == ENOTDIR || error == ENAMETOOLONG || error == ELOOP;
    ThrowUnreadable(path, none ? AudioFileFault::kNotFound : AudioFileFault::kNotReadable, error);
  }
  return descriptor;
}

}  // namespace

PlainFile::PlainFile(const std::string& path) : mPath(path), mDescriptor(Open(path)) {
  struct stat status {};
  const int result = fstat(mDescriptor, &status);
  const int error = errno;
  if (result == 0 && S_ISREG(status.st_mode)) {
    mSize = static_cast<std::uint64_t>(status.st_size);
    return;
  }
  close(mDescriptor);
  if (result != 0) {
    ThrowUnreadable(path, AudioFileFault::kNotReadable, error);
  }
  throw AudioFileError(AudioFileFault::kNotAFile, path,
                       "$$$/moxaudiotoolkit/Error/NotAFile=This is a folder or a device, not a file.");
}

PlainFile::~PlainFile() {
  close(mDescriptor);
}

void PlainFile::Read(std::span<std::uint8_t> destination) {
  while (!destination.empty()) {
    const ssize_t got = read(mDescriptor, destination.data(), destination.size());
    if (got < 0 && errno != EINTR) {
      ThrowUnreadable(mPath, AudioFileFault::kNotReadable, errno);
    }
    if (got == 0) {
      throw AudioFileError(AudioFileFault::kTruncated, mPath,
                           "$$$/moxaudiotoolkit/Error/CutShort=The file is cut short: its end is missing.");
    }
    destination = destination.subspan(got > 0 ? static_cast<std::size_t>(got) : 0);
  }
}

}  // namespace moxaudiotoolkit
