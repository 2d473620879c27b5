#include <moxcore/string/NumberText.h>
#include <moxcore/string/String.h>

#include <gtest/gtest.h>

#include <string>

namespace moxcore::string {
namespace {

TEST(NumberText, WritesDecimalTextWithATerminatingNul) {
  char narrow[kUInt32TextSize];
  EXPECT_EQ(ConvertUInt32ToBufferT(0, narrow), 1u);
  EXPECT_STREQ(narrow, "0");
  EXPECT_EQ(ConvertUInt32ToBufferT(4294967295u, narrow), 10u);
  EXPECT_STREQ(narrow, "4294967295");
  char16_t wide[kUInt64TextSize];
  EXPECT_EQ(ConvertUInt64ToBufferT(18446744073709551615u, wide), 20u);
  EXPECT_EQ(Utf16String(wide), u"18446744073709551615");
  EXPECT_EQ(ConvertUInt64ToBufferT(10, wide), 2u);
  EXPECT_EQ(Utf16String(wide), u"10");
}

TEST(NumberText, AgreesWithTheStandardLibraryAroundPowersOfTen) {
  char buffer[kUInt64TextSize];
  for (std::uint64_t power = 1; power < 10000000000000000000u; power *= 10) {
    for (auto const value : {power - 1, power, power + 1}) {
      EXPECT_EQ(ConvertUInt64ToBufferT(value, buffer), std::to_string(value).size());
      EXPECT_EQ(std::string(buffer), std::to_string(value));
    }
  }
}

}  // namespace
}  // namespace moxcore::string
