#include "Canvas.h"

#include <moxui/scriber/Drawing.h>
#include <moxui/scriber/FontNames.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace moxui::scriber {
namespace {

constexpr char const* kWithoutFonts = "MOX_TEST_WITHOUT_FONTS";

// Runs itself once more in an environment that has no font.
TEST(NoFonts, NewFontIsNullAndTextsAreLeftOut) {
  if (std::getenv(kWithoutFonts) != nullptr) {
    EXPECT_EQ(Supplier().NewFont("", "", 12), nullptr);
    EXPECT_EQ(Supplier().NewFont("Open Sans", "Bold", 12), nullptr);
    EXPECT_FALSE(utils::ValidateFontName("Open Sans").empty());
    Canvas canvas(60, 20);
    utils::DrawString(&canvas.GetScriber(), u"text", {0, 0, 60, 20}, TextAlignment::kLeft, "Open Sans", 12,
                      ColorRGBAFixed::White);
    EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 0);
    return;
  }
  auto const folder = std::filesystem::temp_directory_path() / "moxui_no_fonts";
  std::filesystem::create_directories(folder / "fonts");
  std::ofstream(folder / "fonts.conf")
      << "<?xml version=\"1.0\"?>\n<fontconfig><dir>" << (folder / "fonts").string() << "</dir><cachedir>"
      << (folder / "cache").string() << "</cachedir></fontconfig>\n";
  std::string const program = std::filesystem::read_symlink("/proc/self/exe").string();
  std::string const command = std::string(kWithoutFonts) + "=1 FONTCONFIG_FILE='" +
                              (folder / "fonts.conf").string() + "' '" + program +
                              "' --gtest_filter=NoFonts.* > '" + (folder / "output").string() + "' 2>&1";
  int const result = std::system(command.c_str());
  std::ifstream output(folder / "output");
  EXPECT_EQ(result, 0) << output.rdbuf();
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace moxui::scriber
