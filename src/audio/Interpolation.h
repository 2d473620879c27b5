#pragma once

namespace moxmediaui {

/// A value between samples: a Hann-windowed sinc over the `count` taps at `data`, after removing their offset
/// so that a constant signal doesn't ring. The kernel's centre lies at tap (count - 1) / 2 + 0.5 +
/// `fraction`. 0 when there are no taps.
float InterpolateWithSinc(unsigned int count, float fraction, float const* data);

}  // namespace moxmediaui
