#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace playground {

class AudioSession;

// The selection, or where nothing is selected the place of the cursor, in times and samples.
std::string SelectionText(AudioSession const& session);

// What the picture shows of a channel at a column; full scale is 1.0.
struct ShownLevel {
  float amplitude = 0.0f;
  float rms = 0.0f;
};

// An amplitude in decibels relative to full scale, without the unit.
std::string DecibelNumber(double amplitude);

// The line below the waveform: time, sample and each channel's level under the pointer, else the selection.
// Where it doesn't fit it is told in fewer words, then without what matters least.
std::string AudioReadOut(AudioSession const& session, std::optional<int> column,
                         std::function<ShownLevel(std::size_t channel, int column)> const& level,
                         std::function<bool(std::string const& line)> const& fits);

}  // namespace playground
