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
  if (channelCount < 1 || !(scale > 0.0) ||
      !moxmediaui::AudioDataDrawBase::CalculateVerticalChannelBounds(
          static_cast<int>(rows / scale), channelCount, settings.layered, settings.centerlines, strips.height,
          strips.stride)) {
    return std::nullopt;
  }
  strips.height = static_cast<int>(strips.height * scale);
  strips.stride = settings.layered ? 0 : static_cast<int>(strips.stride * scale);
  if (settings.alignBottom && !drawsSamples) {
    strips.top = rows - ((channelCount - 1) * strips.stride + strips.height);
  }
  return strips;
}

}  // namespace playground
