#pragma once

#include <moxmediatypes/FrameRate.h>

#include <array>

namespace moxmediatypes {

inline constexpr std::array<FrameRate, 10> kAllRates = {
    FrameRate::k15, FrameRate::k23976, FrameRate::k24, FrameRate::k25,   FrameRate::k2997,
    FrameRate::k30, FrameRate::k48,    FrameRate::k50, FrameRate::k5994, FrameRate::k60};

}  // namespace moxmediatypes
