#pragma once

#include "OpenWaveformDraw.h"

#include <moxui/testing/RecordedCall.h>

#include <memory>
#include <random>
#include <string_view>
#include <vector>

namespace audio_tests {

std::shared_ptr<moxmediaui::WaveformData> MakeData(std::vector<std::vector<float>> const& channels);
/// So many samples of noise for each channel.
std::vector<std::vector<float>> MakeChannels(std::mt19937& random, int channels, int count);

/// What drawing really calls: of the layers, of makers of pens and paths for them, and of images.
std::vector<moxui::testing::RecordedCall> RecordSamples(OpenWaveformDraw const& draw,
                                                        std::shared_ptr<moxmediaui::WaveformData> const& data,
                                                        moxmediaui::RectT<int> const& rect,
                                                        float scale = 1.0f);

/// The points of all curves, one curve after the other.
std::vector<moxmediaui::PointT<float>> CurvePoints(std::vector<moxui::testing::RecordedCall> const& calls);

/// Those of an operation.
std::vector<moxui::testing::RecordedCall> Only(std::string_view operation,
                                               std::vector<moxui::testing::RecordedCall> calls);

}  // namespace audio_tests
