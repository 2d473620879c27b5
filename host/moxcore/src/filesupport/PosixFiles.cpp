#include "PosixFiles.h"

#include <moxcore/config/Errors.h>

#include <dirent.h>
#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <system_error>
#include <thread>
#include <utility>

namespace moxcore::filesupport::posix {

namespace {

constexpr char const* kCannotRead =
    "$$$/moxcore/filesupport/Error/CannotRead=The file '@0' can't be read: @1#{comment} @1 is the system's "
    "reason";
constexpr char const* kCannotWrite =
    "$$$/moxcore/filesupport/Error/CannotWrite=The file '@0' can't be written: @1#{comment} @1 is the "
    "system's "
    "reason";
constexpr char const* kCannotUseFolder =
    "$$$/moxcore/filesupport/Error/CannotUseFolder=The folder '@0' can't be used: @1#{comment} @1 is the "
    "system's "
    "reason";

// The system takes no more bytes at once than about this.
constexpr std::uint64_t kLongestTransfer = std::uint64_t{1} << 30;

[[noreturn]] void Throw(char const* literal, Utf8String const& path, int error) {
  config::ThrowError(config::ErrorLevel::kError, __FILE__, __LINE__, literal, false, std::string_view(path),
                     std::string_view(std::generic_category().message(error)));
}

// Runs a call until it isn't interrupted.
template <class Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) {
    result = call();
  }
  return result;
}

template <class Call>
auto Checked(char const* literal, Utf8String const& path, Call call) {
  auto const result = Uninterrupted(call);
  if (result < 0) {
    Throw(literal, path, errno);
  }
  return result;
}

// A path with a NUL inside would name another file.
char const* Name(char const* literal, Utf8String const& path) {
  if (path.find('\0') != Utf8String::npos) {
    Throw(literal, path, EINVAL);
  }
  return path.c_str();
}

class Descriptor {
 public:
  Descriptor(char const* literal, Utf8String const& path, int flags, mode_t mode = 0)
      : mDescriptor(Checked(literal, path, [&, name = Name(literal, path)] {
          return open(name, flags | O_CLOEXEC | O_NOCTTY, mode);
        })) {}
  ~Descriptor() { posix::Close(mDescriptor); }
  Descriptor(Descriptor const&) = delete;
  Descriptor& operator=(Descriptor const&) = delete;

  int Get() const noexcept { return mDescriptor; }
  int Release() noexcept { return std::exchange(mDescriptor, -1); }
  // Tells of a failure that the system kept to itself while it wrote. The descriptor is gone even then.
  void Close(char const* literal, Utf8String const& path) {
    if (close(Release()) != 0 && errno != EINTR) {
      Throw(literal, path, errno);
    }
  }

 private:
  int mDescriptor;
};

Target TargetOf(mode_t mode) noexcept {
  if (S_ISREG(mode)) {
    return Target::kFile;
  }
  return S_ISDIR(mode) ? Target::kDirectory : Target::kOther;
}

DirEntryKind KindOf(int directory, dirent const& entry) noexcept {
  if (entry.d_type != DT_UNKNOWN) {
    return entry.d_type == DT_REG   ? DirEntryKind::kFile
           : entry.d_type == DT_DIR ? DirEntryKind::kDirectory
                                    : DirEntryKind::kOther;
  }
  // Some file systems don't tell kinds in their lists.
  struct stat status;
  if (fstatat(directory, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) != 0) {
    return DirEntryKind::kOther;
  }
  auto const target = TargetOf(status.st_mode);
  return target == Target::kFile        ? DirEntryKind::kFile
         : target == Target::kDirectory ? DirEntryKind::kDirectory
                                        : DirEntryKind::kOther;
}

}  // namespace

Target TargetOf(Utf8String const& path) noexcept {
  struct stat status;
  if (path.find('\0') != Utf8String::npos || stat(path.c_str(), &status) != 0) {
    return Target::kNothing;
  }
  return TargetOf(status.st_mode);
}

bool MakeFile(Utf8String const& path, bool truncate) {
  auto const* const name = Name(kCannotWrite, path);
  auto const made =
      Uninterrupted([&] { return open(name, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOCTTY, 0666); });
  if (made >= 0) {
    Close(made);
    return true;
  }
  if (errno != EEXIST) {
    Throw(kCannotWrite, path, errno);
  }
  if (truncate) {
    Descriptor(kCannotWrite, path, O_WRONLY | O_TRUNC | O_NONBLOCK).Close(kCannotWrite, path);
  }
  return false;
}

bool RemoveFile(Utf8String const& path) {
  if (unlink(Name(kCannotWrite, path)) == 0) {
    return true;
  }
  if (errno != ENOENT && errno != ENOTDIR) {
    Throw(kCannotWrite, path, errno);
  }
  return false;
}

bool MakeDirectory(Utf8String const& path, unsigned mode) {
  if (mkdir(Name(kCannotUseFolder, path), mode) == 0) {
    return true;
  }
  auto const error = errno;
  if (error != EEXIST || TargetOf(path) != Target::kDirectory) {
    Throw(kCannotUseFolder, path, error);
  }
  return false;
}

void RemoveDirectory(Utf8String const& path) {
  if (rmdir(Name(kCannotUseFolder, path)) != 0 && errno != ENOENT) {
    Throw(kCannotUseFolder, path, errno);
  }
}

std::vector<DirEntry> ListDirectory(Utf8String const& path) {
  struct Closing {
    void operator()(DIR* directory) const { closedir(directory); }
  };
  std::unique_ptr<DIR, Closing> const directory(opendir(Name(kCannotUseFolder, path)));
  if (directory == nullptr) {
    Throw(kCannotUseFolder, path, errno);
  }
  std::vector<DirEntry> entries;
  for (;;) {
    errno = 0;
    auto const* const entry = readdir(directory.get());
    if (entry == nullptr) {
      if (errno != 0) {
        Throw(kCannotUseFolder, path, errno);
      }
      return entries;
    }
    std::string_view const name(entry->d_name);
    if (name != "." && name != "..") {
      entries.push_back({Utf8String(name), KindOf(dirfd(directory.get()), *entry)});
    }
  }
}

int Open(Utf8String const& path, std::uint64_t& length) {
  // Without waiting: a pipe would have the caller wait for who writes to it.
  Descriptor descriptor(kCannotRead, path, O_RDONLY | O_NONBLOCK);
  struct stat status;
  Checked(kCannotRead, path, [&] { return fstat(descriptor.Get(), &status); });
  if (!S_ISREG(status.st_mode)) {
    Throw(kCannotRead, path, S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
  }
  length = static_cast<std::uint64_t>(status.st_size);
  return descriptor.Release();
}

void Close(int descriptor) noexcept {
  if (descriptor >= 0) {
    close(descriptor);
  }
}

void Read(int descriptor, void* buffer, std::uint64_t size, Utf8String const& path) {
  auto* to = static_cast<char*>(buffer);
  while (size > 0) {
    auto const count =
        Checked(kCannotRead, path, [&] { return read(descriptor, to, std::min(size, kLongestTransfer)); });
    if (count == 0) {
      Throw(kCannotRead, path, EIO);
    }
    to += count;
    size -= static_cast<std::uint64_t>(count);
  }
}

void Write(Utf8String const& path, std::string_view text) {
  Descriptor descriptor(kCannotWrite, path, O_WRONLY | O_CREAT | O_TRUNC, 0666);
  while (!text.empty()) {
    auto const size = std::min<std::uint64_t>(text.size(), kLongestTransfer);
    auto const count =
        Checked(kCannotWrite, path, [&] { return write(descriptor.Get(), text.data(), size); });
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  descriptor.Close(kCannotWrite, path);
}

void Replace(Utf8String const& target, Utf8String const& temporary) {
  Descriptor descriptor(kCannotWrite, temporary, O_RDONLY | O_NOFOLLOW);
  struct stat status;
  if (lstat(Name(kCannotWrite, target), &status) == 0 && S_ISREG(status.st_mode)) {
    // Where it isn't allowed, the content counts for more than the permissions.
    (void)!fchmod(descriptor.Get(), status.st_mode & 0777);
  }
  Checked(kCannotWrite, target, [&] { return fsync(descriptor.Get()); });
  descriptor.Close(kCannotWrite, target);
  Checked(kCannotWrite, target, [&] { return std::rename(temporary.c_str(), target.c_str()); });
}

void SyncDirectory(Utf8String const& path) {
  Descriptor const descriptor(kCannotUseFolder, path, O_RDONLY | O_DIRECTORY);
  Checked(kCannotUseFolder, path, [&] { return fsync(descriptor.Get()); });
}

std::int64_t SecondsSinceWritten(Utf8String const& path) noexcept {
  struct stat status;
  if (lstat(path.c_str(), &status) != 0) {
    return 0;
  }
  return std::max<std::int64_t>(0, std::time(nullptr) - status.st_mtime);
}

int LockDirectory(Utf8String const& path, std::chrono::milliseconds patience) noexcept {
  constexpr std::chrono::milliseconds kPause{2};
  if (path.find('\0') != Utf8String::npos) {
    return -1;
  }
  auto const descriptor = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) {
    return descriptor;
  }
  auto const end = std::chrono::steady_clock::now() + patience;
  while (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
    if ((errno != EWOULDBLOCK && errno != EINTR) || std::chrono::steady_clock::now() >= end) {
      close(descriptor);
      return -1;
    }
    std::this_thread::sleep_for(kPause);
  }
  return descriptor;
}

Utf8String HomeDirectory() {
  if (auto const* const home = std::getenv("HOME"); home != nullptr && home[0] == '/') {
    return home;
  }
  std::array<char, 4096> buffer;
  passwd entry;
  passwd* found = nullptr;
  if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || found == nullptr ||
      found->pw_dir == nullptr) {
    return {};
  }
  return found->pw_dir;
}

}  // namespace moxcore::filesupport::posix
