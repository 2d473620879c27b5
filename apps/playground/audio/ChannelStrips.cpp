#include "audio/ChannelStrips.h"

#include "audio/WaveformSettings.h"

#include <moxmediaui/AudioDataDrawBase.h>

namespace playground {

double ChannelStrips::Centre() const {
  // NOLINTNEXTLINE(bugprone-integer-division): the middle of the middle row
  return height / 2 + 0.5;
}

std::optional<ChannelStrips> LayOutStrips(WaveformSettings const& settings, int channelCount, int rows,
                                          double scale, bool drawsSamples) {
  ChannelStrips strips;
  // The renderer's own arithmetic: that of doubles rounds some strips otherwise.
  if (channelCount < 1 || !moxmediaui::AudioDataDrawBase::CalculateScaledChannelBounds(
                              rows, static_cast<float>(scale), channelCount, settings.layered,
                              settings.centerlines, strips.height, strips.stride)) {
    return std::nullopt;
  }
  if (settings.layered) {
    strips.stride = 0;
  }
  if (settings.alignBottom && !drawsSamples) {
    strips.top = rows - ((channelCount - 1) * strips.stride + strips.height);
  }
  return strips;
}

}  // namespace playground
