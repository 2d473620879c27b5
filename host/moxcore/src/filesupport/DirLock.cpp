#include "PosixFiles.h"

#include <moxcore/filesupport/DirLock.h>

namespace moxcore::filesupport {

DirLock::DirLock(Dir const& dir, std::chrono::milliseconds patience) noexcept
    : mDescriptor(posix::LockDirectory(dir.FullPath(), patience)) {}

DirLock::~DirLock() {
  posix::Close(mDescriptor);
}

}  // namespace moxcore::filesupport
