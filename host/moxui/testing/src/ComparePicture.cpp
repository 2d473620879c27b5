#include <moxui/testing/ComparePicture.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <utility>

namespace moxui::testing {

namespace {

namespace fs = std::filesystem;

constexpr int kChannels = 4;

std::string& GoldenFolder() {
  static std::string folder = ".";
  return folder;
}

int PixelDifference(platform::Pixels const& a, platform::Pixels const& b, std::size_t pixel) {
  int largest = 0;
  for (std::size_t channel = pixel * kChannels; channel < (pixel + 1) * kChannels; ++channel) {
    largest =
        std::max(largest, std::abs(static_cast<int>(a.bytes[channel]) - static_cast<int>(b.bytes[channel])));
  }
  return largest;
}

std::string FromEnvironment(char const* name) {
  char const* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

/// The actual picture faded to a quarter, red where it differs.
platform::Pixels DrawDifference(platform::Pixels const& actual, platform::Pixels const& expected,
                                int tolerance) {
  platform::Pixels drawn = actual;
  for (std::size_t pixel = 0; pixel * kChannels < drawn.bytes.size(); ++pixel) {
    auto* const bytes = drawn.bytes.data() + pixel * kChannels;
    bool const differs = PixelDifference(actual, expected, pixel) > tolerance;
    for (int channel = 0; channel < 3; ++channel) {
      bytes[channel] = differs ? (channel == 2 ? 255 : 0) : static_cast<std::uint8_t>(bytes[channel] / 4);
    }
    bytes[3] = 255;
  }
  return drawn;
}

std::string Save(platform::Pixels const& pixels, fs::path const& path) {
  std::error_code error;
  fs::create_directories(path.parent_path(), error);
  auto const text = path.string();
  bool const saved = platform::SavePNG(pixels, moxcore::Utf8String(text));
  return saved ? text : text + " (could not be written)";
}

}  // namespace

PictureDifference FindDifference(platform::Pixels const& actual, platform::Pixels const& expected) {
  PictureDifference difference;
  if (actual.width != expected.width || actual.height != expected.height) {
    difference.sizesDiffer = true;
    return difference;
  }
  for (int y = 0; y < actual.height; ++y) {
    for (int x = 0; x < actual.width; ++x) {
      auto const pixel =
          static_cast<std::size_t>(y) * static_cast<std::size_t>(actual.width) + static_cast<std::size_t>(x);
      int const one = PixelDifference(actual, expected, pixel);
      if (one > 0) {
        ++difference.differingPixels;
        difference.largestDifference = std::max(difference.largestDifference, one);
        difference.area = difference.area.Union({x, y, 1, 1});
      }
    }
  }
  return difference;
}

std::string ComparePicture(platform::Pixels const& actual, std::string const& goldenPath, int tolerance) {
  fs::path const golden(goldenPath);
  if (FromEnvironment("MOX_UPDATE_GOLDENS") == "1") {
    std::string const saved = Save(actual, golden);
    return saved == golden.string() ? "" : "golden " + saved;
  }
  std::string const outName = FromEnvironment("MOX_PICTURE_OUT");
  fs::path const out = outName.empty() ? fs::temp_directory_path() / "mox_pictures" : fs::path(outName);
  std::string const stem = golden.stem().string();
  std::ostringstream report;
  platform::Pixels expected;
  if (!platform::LoadPNG(moxcore::Utf8String(goldenPath), expected)) {
    report << "no golden picture at " << goldenPath << "; the actual one is "
           << Save(actual, out / (stem + ".actual.png")) << " (MOX_UPDATE_GOLDENS=1 takes it over)";
    return report.str();
  }
  PictureDifference const difference = FindDifference(actual, expected);
  if (!difference.sizesDiffer && difference.largestDifference <= tolerance) {
    return "";
  }
  report << golden.filename().string() << ": ";
  if (difference.sizesDiffer) {
    report << actual.width << " by " << actual.height << " pixels where " << expected.width << " by "
           << expected.height << " are expected";
  } else {
    report << difference.differingPixels << " pixels differ, by up to " << difference.largestDifference
           << " of 255, within (" << difference.area.left << ", " << difference.area.top << ", "
           << difference.area.width << ", " << difference.area.height << "); differences: "
           << Save(DrawDifference(actual, expected, tolerance), out / (stem + ".difference.png"));
  }
  report << "; actual: " << Save(actual, out / (stem + ".actual.png")) << "; expected: " << goldenPath;
  return report.str();
}

void SetGoldenFolder(std::string folder) {
  GoldenFolder() = std::move(folder);
}

std::string GoldenPath(std::string const& name) {
  return (fs::path(GoldenFolder()) / name).string();
}

}  // namespace moxui::testing
