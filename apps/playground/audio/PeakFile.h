#pragma once

#include "audio/AudioDocument.h"

#include <optional>
#include <string>

namespace playground {

// Whether a file's name is that of a peak file (.dat), whatever the case.
bool IsPeakFile(std::string const& path);

// A waveform without its sound: the peaks that a .dat file holds. Nothing, with the reason in `failure`, when
// that can't be read; never throws for what is wrong with the file.
std::optional<AudioDocument> OpenPeakFile(std::string const& path, OpenFailure& failure);

}  // namespace playground
