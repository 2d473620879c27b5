#include <moxcore/string/String.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <new>
#include <string>
#include <unordered_set>
#include <vector>

namespace moxcore {
namespace {

TEST(STLAllocator, ServesContainersAndComparesEqual) {
  std::vector<int, STLAllocator<int>> numbers(1000, 7);
  EXPECT_EQ(numbers.back(), 7);
  EXPECT_TRUE(STLAllocator<int>() == STLAllocator<char>());
}

TEST(STLAllocator, ThrowsOnASizeThatOverflows) {
  STLAllocator<std::uint64_t> allocator;
  EXPECT_THROW((void)allocator.allocate(SIZE_MAX / 4), std::bad_array_new_length);
}

TEST(String, HashesLikeAnyText) {
  std::unordered_set<Utf8String> const narrow{"a", "b", "a"};
  EXPECT_EQ(narrow.size(), 2u);
  std::unordered_set<Utf16String> const wide{u"a", u"b", u"a"};
  EXPECT_EQ(wide.size(), 2u);
}

}  // namespace
}  // namespace moxcore
