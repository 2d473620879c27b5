#pragma once

#include "PlainPeakRenderer.h"

#include <vector>

namespace audio_tests {

/// Peak data of a view.
std::shared_ptr<moxmediaui::WaveformData> MakePeaks(int channels, int slots, std::vector<float> pairs);

/// Sample data of so many channels with equal runs.
std::shared_ptr<moxmediaui::WaveformData> MakeSamples(int channels, std::vector<float> const& run);

/// What drawing a view really puts on the surface.
std::vector<PeakPicture> DrawPeaks(OpenWaveformDraw const& draw, PeakView const& view);

/// Empty if equal; else a text that names the first pixel that differs.
std::string FindDifference(std::vector<PeakPicture> const& actual, std::vector<PeakPicture> const& expected);

}  // namespace audio_tests
