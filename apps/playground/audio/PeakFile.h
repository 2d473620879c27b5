#pragma once

#include <atomic>
#include <memory>
#include <string>

namespace moxaudiotoolkit {
class PeakPyramid;
}

namespace playground {

// Whether a file's name is that of a peak file (.dat), whatever the case.
bool IsPeakFile(std::string const& path);

// A waveform without its sound: the peaks that a .dat file holds. Throws what moxaudiotoolkit::ReadPeakData
// does, kCancelled soon after `cancelled` has become true.
std::shared_ptr<moxaudiotoolkit::PeakPyramid const> ReadPeakFile(std::string const& path,
                                                                 std::atomic<bool> const& cancelled);

}  // namespace playground
