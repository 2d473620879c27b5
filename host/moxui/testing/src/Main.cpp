#include <moxui/platform/Application.h>
#include <moxui/platform/Fonts.h>
#include <moxui/testing/ComparePicture.h>
#include <moxui/testing/Main.h>

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace moxui::testing {

namespace {

namespace fs = std::filesystem;

/// Points the font look-up at one family, so that pictures don't depend on what else a machine has. Gives the
/// file it wrote, which is to be removed at the end.
fs::path PinFonts() {
  fs::path const family = "/usr/share/fonts/truetype/open-sans";
  if (std::getenv("FONTCONFIG_FILE") != nullptr || !fs::exists(family)) {
    return {};
  }
  fs::path const folder = fs::temp_directory_path();
  fs::path path = folder / ("mox_fonts_" + std::to_string(getpid()) + ".conf");
  std::ofstream file(path);
  file << "<?xml version=\"1.0\"?>\n<!DOCTYPE fontconfig SYSTEM \"fonts.dtd\">\n<fontconfig>\n<dir>"
       << family.string() << "</dir>\n<cachedir>" << (folder / "mox_font_cache").string()
       << "</cachedir>\n</fontconfig>\n";
  file.close();
  setenv("FONTCONFIG_FILE", path.c_str(), 1);
  return path;
}

}  // namespace

int Main(int argc, char** argv, std::string const& goldenFolder, TestRunner runTests) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  setenv("QT_SCALE_FACTOR", "1", 0);
  fs::path const fontFile = PinFonts();
  SetGoldenFolder(goldenFolder);
  int result = 1;
  {
    auto const application = platform::Application::Create(argc, argv);
    // Tests of what happens without any font say so.
    bool const needsFonts = std::getenv("MOX_TEST_WITHOUT_FONTS") == nullptr;
    if (needsFonts && !platform::FontsAvailable()) {
      std::cerr << "No font is installed that text can be drawn with: pictures would show none.\n";
    } else {
      result = runTests(argc, argv);
    }
  }
  std::error_code error;
  if (!fontFile.empty()) {
    fs::remove(fontFile, error);
  }
  return result;
}

}  // namespace moxui::testing
