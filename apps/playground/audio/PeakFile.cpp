#include "audio/PeakFile.h"

#include "program/Localized.h"

#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/peaks/PeakDataFile.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>

#include <algorithm>
#include <cctype>
#include <exception>
#include <filesystem>
#include <new>

namespace playground {

bool IsPeakFile(std::string const& path) {
  std::string ending = std::filesystem::path(path).extension().string();
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return ending == ".dat";
}

std::optional<AudioDocument> OpenPeakFile(std::string const& path, OpenFailure& failure) {
  failure = {path, {}};
  try {
    auto const data = moxaudiotoolkit::ReadPeakData(path);
    return AudioDocument(std::filesystem::path(path).filename().string(), nullptr,
                         moxaudiotoolkit::MakePeakPyramid(data));
  } catch (moxaudiotoolkit::AudioFileError const& error) {
    failure.reason = error.GetReason();
  } catch (std::bad_alloc const&) {
    failure.reason = Text("$$$/playground/open/memory=There is not enough memory.");
  } catch (std::exception const& error) {
    failure.reason = error.what();
  }
  return std::nullopt;
}

}  // namespace playground
