#include <moxcore/utility/Guid.h>

#include <gtest/gtest.h>

#include <unordered_set>

namespace moxcore {
namespace {

TEST(Guid, IsNilByDefault) {
  EXPECT_TRUE(Guid().IsNil());
  EXPECT_EQ(Guid().AsUTF8String(), "00000000-0000-0000-0000-000000000000");
}

TEST(Guid, ReadsEitherCaseAndWritesLowerCase) {
  Guid const guid(Utf8String("01234567-89AB-cdef-FEDC-BA9876543210"));
  EXPECT_EQ(guid.AsUTF8String(), "01234567-89ab-cdef-fedc-ba9876543210");
  EXPECT_EQ(guid.GetBytes()[0], 0x01);
  EXPECT_EQ(guid.GetBytes()[15], 0x10);
}

TEST(Guid, IsNilFromAMalformedText) {
  for (auto const* text :
       {"", "0", "01234567-89ab-cdef-fedc-ba987654321", "01234567-89ab-cdef-fedc-ba98765432100",
        "01234567x89ab-cdef-fedc-ba9876543210", "0123456g-89ab-cdef-fedc-ba9876543210",
        "{1234567-89ab-cdef-fedc-ba987654321}", "0123456789abcdeffedcba98765432100000",
        "01234567-89ab-cdef-fedc-ba98765432 0", "-1234567-89ab-cdef-fedc-ba9876543210"}) {
    EXPECT_TRUE(Guid(Utf8String(text)).IsNil()) << text;
  }
}

TEST(Guid, OrdersAsUnsignedBytesFirstByteFirst) {
  Guid const low(Utf8String("7f000000-0000-0000-0000-0000000000ff"));
  Guid const high(Utf8String("80000000-0000-0000-0000-000000000000"));
  EXPECT_LT(low, high);
  EXPECT_LT(Guid(), low);
  EXPECT_LT(Guid(Utf8String("00000000-0000-0000-0000-000000000001")),
            Guid(Utf8String("00000000-0000-0000-0000-000000000002")));
}

TEST(Guid, CreatesUniqueOnes) {
  std::unordered_set<Guid> made;
  for (int i = 0; i < 200; ++i) {
    auto const guid = Guid::CreateUnique();
    EXPECT_FALSE(guid.IsNil());
    auto const text = guid.AsUTF8String();
    EXPECT_EQ(text[14], '4');
    EXPECT_NE(Utf8String("89ab").find(text[19]), Utf8String::npos);
    EXPECT_EQ(Guid(text), guid);
    made.insert(guid);
  }
  EXPECT_EQ(made.size(), 200u);
}

}  // namespace
}  // namespace moxcore
