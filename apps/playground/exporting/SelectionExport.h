#pragma once

#include "exporting/FileExport.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace moxaudiotoolkit {
class PeakPyramid;
class SampleSource;
}  // namespace moxaudiotoolkit

namespace playground {

// What to write, and where.
struct ExportRequest {
  std::shared_ptr<moxaudiotoolkit::SampleSource const> source;
  std::int64_t begin = 0;  // frames, within the source; `end` is the first that isn't written
  std::int64_t end = 0;
  std::vector<std::size_t> channels;  // of the source, in the order of the file
  std::string path;                   // UTF-8; what is there is replaced
  std::uint32_t channelMask = 0;      // places of these channels, which a WAV file tells; 0: none
};

// A part of a sound into a WAV file, sample for sample: 16 or 24 bits where the source has no more, floats
// otherwise, RF64 beyond 4 GiB. Takes little memory whatever the length.
FileExport::Work ExportOfSelection(ExportRequest request);

// The peaks of a whole sound into a .dat file, of 256 samples a pair or more.
FileExport::Work ExportOfPeaks(std::shared_ptr<moxaudiotoolkit::PeakPyramid const> pyramid, std::string path,
                               bool has8Bits);

}  // namespace playground
