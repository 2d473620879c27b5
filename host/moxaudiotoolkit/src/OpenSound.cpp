#include "OpenSound.h"

#include "SystemReason.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <mutex>
#include <shared_mutex>

namespace moxaudiotoolkit {
namespace {

// libsndfile leaves the reason of a failure in variables of the whole process, which every opening sets. So
// what can't be opened is tried once more with no other opening beside it.
template <class Open>
OpenSound OpenOrTell(const Open& open, SF_INFO& info, OpeningFault& fault) {
  static std::shared_mutex openings;
  const SF_INFO asked = info;
  {
    const std::shared_lock lock(openings);
    if (OpenSound file{open(info)}) {
      return file;
    }
  }
  const std::unique_lock lock(openings);
  info = asked;
  OpenSound file{open(info)};
  if (!file) {
    fault = {.code = sf_error(nullptr), .text = sf_strerror(nullptr)};
  }
  return file;
}

}  // namespace

OpenSound OpenSoundFile(int descriptor, int mode, SF_INFO& info, OpeningFault& fault) {
  int error = 0;
  OpenSound file = OpenOrTell(
      [&](SF_INFO& filled) -> SNDFILE* {
        // It gets one of its own to close: told to leave one open, it closes it all the same where it fails,
        // and by then the number may be that of another thread's file.
        const int own = fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
        if (own < 0 || lseek(own, 0, SEEK_SET) < 0) {
          error = errno;
          if (own >= 0) {
            close(own);
          }
          return nullptr;
        }
        error = 0;
        return sf_open_fd(own, mode, &filled, SF_TRUE);
      },
      info, fault);
  if (!file && error != 0) {
    fault = {.code = SF_ERR_SYSTEM, .text = SystemReason(error)};
  }
  return file;
}

OpenSound OpenSoundStream(SF_VIRTUAL_IO io, void* stream, SF_INFO& info, OpeningFault& fault) {
  return OpenOrTell(
      [&](SF_INFO& filled) -> SNDFILE* {
        io.seek(0, SEEK_SET, stream);
        return sf_open_virtual(&io, SFM_READ, &filled, stream);
      },
      info, fault);
}

}  // namespace moxaudiotoolkit
