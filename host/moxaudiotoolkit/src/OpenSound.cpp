#include "OpenSound.h"

#include "SystemReason.h"

#include <fcntl.h>

#include <cerrno>
#include <mutex>

namespace moxaudiotoolkit {
namespace {

// libsndfile keeps the reason of a failure, and what it noted on the way, in variables of the whole process.
// So one opening waits for the other.
template <class Open>
OpenSound OpenOrTell(const Open& open, OpeningFault& fault) {
  static std::mutex openings;
  const std::lock_guard lock(openings);
  OpenSound file{open()};
  if (!file) {
    fault = {.code = sf_error(nullptr), .text = sf_strerror(nullptr)};
  }
  return file;
}

}  // namespace

OpenSound OpenSoundFile(int descriptor, int mode, SF_INFO& info, OpeningFault& fault) {
  // It gets one of its own to close: told to leave one open, it closes it all the same where it fails, and by
  // then the number may be that of another thread's file.
  const int own = fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
  if (own < 0) {
    fault = {.code = SF_ERR_SYSTEM, .text = SystemReason(errno)};
    return nullptr;
  }
  return OpenOrTell([&] { return sf_open_fd(own, mode, &info, SF_TRUE); }, fault);
}

OpenSound OpenSoundStream(SF_VIRTUAL_IO io, void* stream, SF_INFO& info, OpeningFault& fault) {
  return OpenOrTell([&] { return sf_open_virtual(&io, SFM_READ, &info, stream); }, fault);
}

}  // namespace moxaudiotoolkit
