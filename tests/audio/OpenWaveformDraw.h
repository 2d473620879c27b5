#pragma once

#include <moxmediaui/WaveformDraw.h>

namespace audio_tests {

/// A WaveformDraw whose protected operations a test may call.
class OpenWaveformDraw : public moxmediaui::WaveformDraw {
 public:
  using AudioDataDrawBase::DrawBackground;
  using AudioDataDrawBase::DrawCenterLines;
  using AudioDataDrawBase::DrawDividerLines;
  using AudioDataDrawBase::DrawGridLines;
  using AudioDataDrawBase::GetChannelColor;
  using AudioDataDrawBase::GetChannelOffsets;
  using AudioDataDrawBase::GetChannelRect;
  using AudioDataDrawBase::GetColorWithinSelection;
  using AudioDataDrawBase::GetDrawCenterLines;
  using AudioDataDrawBase::GetDrawGridLines;
  using AudioDataDrawBase::GetPixelPositionFromSample;
  using AudioDataDrawBase::GetSampleFromPixelPosition;
  using AudioDataDrawBase::IsAnyChannelDisabled;
  using AudioDataDrawBase::IsAnyChannelEnabled;
  using AudioDataDrawBase::IsChannelEnabled;
  using WaveformDrawBase::GetFadeValue;
  using WaveformDrawBase::GetInterp;
  using WaveformDrawBase::GetWaveformColor;
};

}  // namespace audio_tests
