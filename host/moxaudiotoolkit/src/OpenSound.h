#pragma once

#include <sndfile.h>

#include <memory>
#include <string>

namespace moxaudiotoolkit {

struct SoundCloser {
  void operator()(SNDFILE* file) const { sf_close(file); }
};
using OpenSound = std::unique_ptr<SNDFILE, SoundCloser>;

// Why a file could not be opened, in libsndfile's terms: SF_ERR_SYSTEM and the like.
struct OpeningFault {
  int code = SF_ERR_NO_ERROR;
  std::string text;
};

// The file behind `descriptor`, from where that stands, for reading or writing (SFM_READ, SFM_WRITE). The
// descriptor stays the caller's, who may close it at once. Null, and the reason in `fault`, where it can't be
// opened.
OpenSound OpenSoundFile(int descriptor, int mode, SF_INFO& info, OpeningFault& fault);

// The same for what `io` reads from `stream`, which has to live as long as what is opened.
OpenSound OpenSoundStream(SF_VIRTUAL_IO io, void* stream, SF_INFO& info, OpeningFault& fault);

}  // namespace moxaudiotoolkit
