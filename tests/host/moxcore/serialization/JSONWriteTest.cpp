#include <moxcore/serialization/JSON.h>

#include <gtest/gtest.h>

#include <any>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <string_view>

namespace moxcore::serialization {
namespace {

Utf8String Again(std::string_view text, bool pretty = false) {
  auto const value = JSONParse(text.data(), text.size());
  return value == nullptr ? Utf8String("malformed") : GetJSONUTF8String(*value, pretty);
}

TEST(JSONWrite, WritesMembersInOrderOfTheirKeys) {
  EXPECT_EQ(Again(R"( { "b" : [ 1 , -2 , 0.5 ] , "a" : { } , "c" : [ ] , "d" : null , "e" : true } )"),
            R"({"a":{},"b":[1,-2,0.5],"c":[],"d":null,"e":true})");
}

TEST(JSONWrite, BreaksLinesOnRequest) {
  EXPECT_EQ(Again(R"({"a":{},"b":[1,{"c":[]}]})", true),
            "{\n\t\"a\": {},\n\t\"b\": [\n\t\t1,\n\t\t{\n\t\t\t\"c\": []\n\t\t}\n\t]\n}");
}

TEST(JSONWrite, EscapesOnlyWhatMustBe) {
  Utf8String const text("\"\\/\b\f\n\r\t\x01\x1f\x7f\u00e9\u2028\U0001f3b5\0e", 22);
  EXPECT_EQ(GetJSONUTF8String(text),
            "\"\\\"\\\\/\\b\\f\\n\\r\\t\\u0001\\u001f\x7f\u00e9\u2028\U0001f3b5\\u0000e\"");
  EXPECT_EQ(GetJSONString(text), GetJSONUTF8String(text, false));
}

TEST(JSONWrite, KeepsAPointOrAnExponentInDoubles) {
  EXPECT_EQ(GetJSONUTF8String(40.0), "40.0");
  EXPECT_EQ(GetJSONUTF8String(-0.0), "-0.0");
  EXPECT_EQ(GetJSONUTF8String(0.1), "0.1");
  EXPECT_EQ(GetJSONUTF8String(1e300), "1e+300");
  EXPECT_EQ(GetJSONUTF8String(std::uint64_t{40}), "40");
  EXPECT_EQ(GetJSONUTF8String(std::int64_t{40}), "40");
  EXPECT_EQ(GetJSONUTF8String(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
  EXPECT_EQ(GetJSONUTF8String(std::numeric_limits<std::uint64_t>::max()), "18446744073709551615");
}

TEST(JSONWrite, ReadsBackEveryDoubleBitForBit) {
  std::mt19937_64 random(7);
  for (int i = 0; i < 20'000; ++i) {
    auto const value = std::bit_cast<double>(random());
    if (!std::isfinite(value)) {
      continue;
    }
    auto const text = GetJSONUTF8String(value);
    auto const read = JSONParse(text.data(), text.size());
    ASSERT_NE(read, nullptr) << text;
    ASSERT_EQ(std::bit_cast<std::uint64_t>(std::any_cast<double>(*read)), std::bit_cast<std::uint64_t>(value))
        << text;
  }
}

TEST(JSONWrite, RefusesWhatNoTextHolds) {
  EXPECT_THROW(GetJSONUTF8String(std::nan("")), std::invalid_argument);
  EXPECT_THROW(GetJSONUTF8String(std::numeric_limits<double>::infinity()), std::invalid_argument);
  EXPECT_THROW(GetJSONUTF8String(Utf8String("\xff")), std::invalid_argument);
  EXPECT_THROW(GetJSONUTF8String(Utf8String("\xed\xa0\x80")), std::invalid_argument);
  EXPECT_EQ(GetJSONUTF8String(Utf8String("\xef\xbf\xbd")), "\"\xef\xbf\xbd\"");
}

TEST(JSONWrite, RefusesTypesThatAreNotOfTheModel) {
  EXPECT_THROW(GetJSONUTF8String(5), std::bad_any_cast);
  EXPECT_THROW(GetJSONUTF8String(std::string("a")), std::bad_any_cast);
  EXPECT_THROW(GetJSONUTF8String(JSONArray{nullptr}), std::bad_any_cast);
}

TEST(JSONWrite, WritesTheGreatestDepthAndNoMore) {
  auto const nested = [](std::size_t depth) {
    std::any value = JSONArray();
    for (std::size_t i = 1; i < depth; ++i) {
      value = JSONArray{MakeJSONValue(std::move(value))};
    }
    return value;
  };
  EXPECT_EQ(GetJSONUTF8String(nested(256)), (std::string(256, '[') + std::string(256, ']')).c_str());
  EXPECT_THROW(GetJSONUTF8String(nested(257)), std::invalid_argument);
}

TEST(JSONWrite, RefusesAnObjectInsideItself) {
  auto const object = MakeJSONValue(JSONObject());
  AddToObject(*object, "self", object, false);
  EXPECT_THROW(GetJSONUTF8String(*object), std::invalid_argument);
  *object = std::any();
}

}  // namespace
}  // namespace moxcore::serialization
