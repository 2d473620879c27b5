#include "DurableFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace moxaudiotoolkit {
namespace {

[[noreturn]] void Throw() {
  throw std::system_error(errno, std::generic_category());
}

void SyncFolder(const std::string& folder) {
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) {
    Throw();
  }
  const int result = fsync(descriptor);
  const int error = errno;
  close(descriptor);
  if (result != 0) {
    throw std::system_error(error, std::generic_category());
  }
}

}  // namespace

DurableFile::DurableFile(const std::string& path) : mPath(path) {
  static std::atomic<unsigned> sCounter{0};
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  mFolder = folder.empty() ? "." : folder.string();
  do {
    mTemporary =
        mFolder + "/." + std::to_string(getpid()) + "-" + std::to_string(++sCounter) + std::string(kEnding);
    mDescriptor = open(mTemporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0666);
  } while (mDescriptor < 0 && errno == EEXIST);
  if (mDescriptor < 0) {
    Throw();
  }
}

DurableFile::~DurableFile() {
  if (mDescriptor >= 0) {
    close(mDescriptor);
  }
  if (!mCommitted) {
    unlink(mTemporary.c_str());
  }
}

void DurableFile::Reserve(std::int64_t size) {
  if (size > 0 && fallocate(mDescriptor, FALLOC_FL_KEEP_SIZE, 0, size) != 0 &&
      (errno == ENOSPC || errno == EFBIG || errno == EDQUOT)) {
    Throw();
  }
}

void DurableFile::Write(std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(mDescriptor, bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) {
      Throw();
    }
    if (written > 0) {
      bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
  }
}

void DurableFile::WriteAtStart(std::span<const std::uint8_t> bytes) {
  if (lseek(mDescriptor, 0, SEEK_SET) < 0) {
    Throw();
  }
  Write(bytes);
}

void DurableFile::Commit() {
  struct stat status;
  if (lstat(mPath.c_str(), &status) == 0 && S_ISREG(status.st_mode)) {
    // Where it isn't allowed, the content counts for more than the permissions.
    (void)!fchmod(mDescriptor, status.st_mode & 0777);
  }
  if (fsync(mDescriptor) != 0) {
    Throw();
  }
  const int descriptor = mDescriptor;
  mDescriptor = -1;
  if (close(descriptor) != 0 || std::rename(mTemporary.c_str(), mPath.c_str()) != 0) {
    Throw();
  }
  mCommitted = true;
  SyncFolder(mFolder);
}

}  // namespace moxaudiotoolkit
