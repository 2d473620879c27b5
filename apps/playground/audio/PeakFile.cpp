#include "audio/PeakFile.h"

#include <moxaudiotoolkit/peaks/PeakDataFile.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace playground {

bool IsPeakFile(std::string const& path) {
  std::string ending = std::filesystem::path(path).extension().string();
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return ending == ".dat";
}

std::shared_ptr<moxaudiotoolkit::PeakPyramid const> ReadPeakFile(std::string const& path,
                                                                 std::atomic<bool> const& cancelled) {
  return moxaudiotoolkit::MakePeakPyramid(moxaudiotoolkit::ReadPeakData(path, &cancelled));
}

}  // namespace playground
