#include <moxaccelerate/utility/Set.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace moxaccelerate::utility {
namespace {

constexpr std::uint32_t kBefore = 0xDEADBEEF;

TEST(Set, WritesNothingForACountOfZero) {
  std::uint32_t word = kBefore;
  Set(0, &word, 1);
  EXPECT_EQ(word, kBefore);
}

TEST(Set, AcceptsNullForACountOfZero) {
  std::uint32_t* nothing = nullptr;
  Set(0, nothing, 1);
  EXPECT_EQ(nothing, nullptr);
}

TEST(Set, WritesAllFourBytesOfTheValue) {
  std::vector<std::uint32_t> words(3, kBefore);
  Set(words.size(), words.data(), 0x80FF017EU);
  EXPECT_EQ(words, std::vector<std::uint32_t>(3, 0x80FF017EU));
}

TEST(Set, FillsExactlyTheCountAtEveryAlignmentOfAWord) {
  for (std::size_t offset = 0; offset < 16; ++offset) {
    for (std::size_t count = 1; count < 140; ++count) {
      std::vector<std::uint32_t> words(offset + count + 16, kBefore);
      Set(count, words.data() + offset, 0x01020304U);
      for (std::size_t i = 0; i < words.size(); ++i) {
        const bool inside = i >= offset && i < offset + count;
        ASSERT_EQ(words[i], inside ? 0x01020304U : kBefore) << "offset " << offset << ", count " << count;
      }
    }
  }
}

TEST(Set, FillsAWholePicture) {
  std::vector<std::uint32_t> words(3840 * 1080 + 2, kBefore);
  Set(words.size() - 2, words.data() + 1, 0xFF336699U);
  EXPECT_EQ(words.front(), kBefore);
  EXPECT_EQ(words.back(), kBefore);
  EXPECT_EQ(std::vector<std::uint32_t>(words.begin() + 1, words.end() - 1),
            std::vector<std::uint32_t>(words.size() - 2, 0xFF336699U));
}

}  // namespace
}  // namespace moxaccelerate::utility
