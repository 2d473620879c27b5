#include "playback/AudioOutput.h"

namespace playground {

AudioOutput::~AudioOutput() = default;

}  // namespace playground
