#include "program/HexColor.h"

#include <gtest/gtest.h>

namespace playground {
namespace {

TEST(HexColor, ReadsTheCustomaryForms) {
  EXPECT_EQ(ColorFromHex("#FF0000"), (moxui::ColorRGBA{1, 0, 0, 1}));
  EXPECT_EQ(ColorFromHex(" 0f0 "), (moxui::ColorRGBA{0, 1, 0, 1}));
  EXPECT_EQ(ColorFromHex("#0000ff00"), (moxui::ColorRGBA{0, 0, 1, 0}));
  EXPECT_EQ(ColorFromHex("#F00F"), (moxui::ColorRGBA{1, 0, 0, 1}));
}

TEST(HexColor, RefusesEverythingElse) {
  for (char const* text :
       {"", "#", "#12", "#12345", "#GGGGGG", "-12345", "#1234567", "#123456789", "##123", "red"}) {
    EXPECT_FALSE(ColorFromHex(text).has_value()) << text;
  }
}

TEST(HexColor, ComesBackAsItWasWritten) {
  for (std::string const text : {"#1B1B1D", "#4DA3FF", "#FFE60080"}) {
    EXPECT_EQ(HexFromColor(ColorFromHex(text).value()), text);
  }
}

}  // namespace
}  // namespace playground
