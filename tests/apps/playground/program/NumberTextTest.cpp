#include "program/NumberText.h"

#include <gtest/gtest.h>

namespace playground {
namespace {

TEST(NumberText, ReadsWholeTextsOnly) {
  EXPECT_EQ(NumberFromText("1.5"), 1.5);
  EXPECT_EQ(NumberFromText("+2"), 2.0);
  for (char const* text : {"", " 1", "1 ", "1,5", "nan", "inf", "0x10", "+-1", "1e999"}) {
    EXPECT_FALSE(NumberFromText(text).has_value()) << text;
  }
}

TEST(NumberText, WritesNoNeedlessZeros) {
  EXPECT_EQ(TextFromNumber(1.5, 4), "1.5");
  EXPECT_EQ(TextFromNumber(2.0, 4), "2");
  EXPECT_EQ(TextFromNumber(-0.00001, 2), "0");
  EXPECT_EQ(TextFromNumber(1000.0, 0), "1000");
}

}  // namespace
}  // namespace playground
