#pragma once

#include "audio/AudioSession.h"
#include "audio/Transport.h"
#include "channels/ChannelDesk.h"
#include "curve/CurveSession.h"
#include "playback/SdlOutput.h"
#include "presets/WaveformPresets.h"
#include "program/Appearance.h"
#include "shell/EventLog.h"
#include "timecode/TimecodeBench.h"

#include <cstddef>

namespace playground {

// What the program knows apart from its views, which come and go with language and look.
struct ProgramState {
  AudioSession audio;
  Transport transport{audio, NewSdlOutput()};
  EventLog log;
  TimecodeBench timecode;
  ChannelDesk channels;
  CurveSession curve;
  WaveformPresets presets;
  Appearance appearance;
  std::size_t page = 0;
  std::size_t stateOfPage = 0;
};

}  // namespace playground
