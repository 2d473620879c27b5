#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace playground {

class AudioSession;

// The selection, or where nothing is selected the place of the cursor, in times and samples.
std::string SelectionText(AudioSession const& session);

// An amplitude in decibels below full scale.
std::string DecibelText(double amplitude);

// The line below the waveform: time, sample and each channel's level under the pointer, else the selection.
// `amplitude` gives what the picture shows at a column.
std::string AudioReadOut(AudioSession const& session, std::optional<int> column,
                         std::function<float(std::size_t channel, int column)> const& amplitude);

}  // namespace playground
