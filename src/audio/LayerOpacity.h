#pragma once

#include <moxmediaui/WaveformDraw.h>

namespace moxmediaui {

/// How strong a wave is where something else is to be seen through it.
constexpr float GetOpacityBase(bool layered, LayeredChannelDrawingStyle style) {
  if (!layered) {
    return 0.9f;
  }
  return style == LayeredChannelDrawingStyle::kFirstStrong ? 0.6f : 0.7f;
}

/// Whether a channel that shares its strip lets the others shine through.
constexpr bool IsSeeThrough(bool layered, LayeredChannelDrawingStyle style, int channel) {
  return layered && (style != LayeredChannelDrawingStyle::kFirstStrong || channel != 0);
}

}  // namespace moxmediaui
