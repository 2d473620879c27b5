#include <moxcore/serialization/JSON.h>

#include <gtest/gtest.h>

#include <any>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace moxcore::serialization {
namespace {

using namespace std::string_literals;

JSONValue Parse(std::string_view text, JSONLimits limits = {}) {
  return JSONParse(text.data(), text.size(), limits);
}

template <class T>
T As(std::string_view text) {
  auto const value = Parse(text);
  if (value == nullptr) {
    ADD_FAILURE() << text;
    return T{};
  }
  return std::any_cast<T>(*value);
}

TEST(JSONRead, GivesWhatEachKindOfValueHolds) {
  EXPECT_EQ(As<bool>("true"), true);
  EXPECT_EQ(As<bool>(" false\r\n\t"), false);
  EXPECT_EQ(As<Utf8String>(R"("a")"), "a");
  EXPECT_EQ(As<JSONArray>("[1, 2]").size(), 2u);
  EXPECT_EQ(As<JSONObject>("{}").size(), 0u);
  auto const null = Parse("null");
  ASSERT_NE(null, nullptr);
  EXPECT_FALSE(null->has_value());
}

TEST(JSONRead, HoldsWholeNumbersFromZeroUpUnsignedAndOthersSigned) {
  EXPECT_EQ(As<std::uint64_t>("0"), 0u);
  EXPECT_EQ(As<std::uint64_t>("-0"), 0u);
  EXPECT_EQ(As<std::uint64_t>("18446744073709551615"), std::numeric_limits<std::uint64_t>::max());
  EXPECT_EQ(As<std::int64_t>("-1"), -1);
  EXPECT_EQ(As<std::int64_t>("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
}

TEST(JSONRead, HoldsAllOtherNumbersAsDoubles) {
  EXPECT_EQ(As<double>("100.5"), 100.5);
  EXPECT_EQ(As<double>("100.0"), 100.0);
  EXPECT_EQ(As<double>("1e2"), 100.0);
  EXPECT_EQ(As<double>("18446744073709551616"), 18446744073709551616.0);
  EXPECT_EQ(As<double>("-9223372036854775809"), -9223372036854775808.0);
  EXPECT_EQ(As<double>("0.1"), 0.1);
  EXPECT_EQ(As<double>("2.2250738585072011e-308"), 2.2250738585072011e-308);
  EXPECT_EQ(As<double>("1" + std::string(300, '0')), 1e300);
}

TEST(JSONRead, TakesNumbersThatAreTooSmallForZero) {
  EXPECT_EQ(As<double>("1e-400"), 0.0);
  EXPECT_EQ(As<double>("1e-99999999999"), 0.0);
  EXPECT_TRUE(std::signbit(As<double>("-0." + std::string(400, '0') + "1")));
}

TEST(JSONRead, RefusesNumbersThatNoDoubleHolds) {
  for (auto const& text :
       {"1e309"s, "-1e400"s, "1e99999999999"s, "1" + std::string(400, '0'), std::string(400, '9') + ".5"}) {
    EXPECT_EQ(Parse(text), nullptr) << text;
  }
}

TEST(JSONRead, RefusesWhatIsNotWellFormed) {
  for (auto const* text : {"",
                           " ",
                           "{",
                           "}",
                           "[",
                           "[1,]",
                           "[1 2]",
                           "{\"a\"}",
                           "{\"a\":}",
                           "{\"a\":1,}",
                           "{a:1}",
                           "{'a':1}",
                           "01",
                           "+1",
                           ".5",
                           "1.",
                           "1e",
                           "-",
                           "0x10",
                           "NaN",
                           "Infinity",
                           "-Infinity",
                           "nul",
                           "True",
                           "\"",
                           "\"\\x\"",
                           "\"\\u12g4\"",
                           "\"a\nb\"",
                           "1 2",
                           "{} {}",
                           "[1]]",
                           "// note\n1",
                           "/**/1",
                           "\xef\xbb\xbf{}"}) {
    EXPECT_EQ(Parse(text), nullptr) << text;
  }
}

TEST(JSONRead, UnescapesStrings) {
  EXPECT_EQ(As<Utf8String>(R"("\"\\\/\b\f\n\r\t\u00e9\ud83c\udfb5")"), "\"\\/\b\f\n\r\t\u00e9\U0001f3b5");
  EXPECT_EQ(As<Utf8String>(R"("a\u0000b")"), Utf8String("a\0b", 3));
  EXPECT_EQ(As<Utf8String>("\"\u00e9\ud7ff\ue000\uffff\U0010ffff\""), "\u00e9\ud7ff\ue000\uffff\U0010ffff");
}

TEST(JSONRead, RefusesStringsThatAreNoUtf8) {
  for (auto const* text : {"\"\x80\"", "\"\xc0\xaf\"", "\"\xe2\x82\"", "\"\xed\xa0\x80\"", "\"\xed\xb0\x80\"",
                           "\"\xf4\x90\x80\x80\"", "\"\xff\"", "{\"\xc3\":1}", "\"\xf4", "\"\xe2\x82",
                           R"("\ud800")", R"("\udc00")", R"("\ud800\u0041")", R"({"\udfff":1})"}) {
    EXPECT_EQ(Parse(text), nullptr) << text;
  }
}

TEST(JSONRead, AllowsOneNulBehindTheText) {
  EXPECT_NE(Parse("[1]\0"s), nullptr);
  EXPECT_NE(Parse("[1] \0"s), nullptr);
  EXPECT_EQ(Parse("[1]\0\0"s), nullptr);
  EXPECT_EQ(Parse("[1\0]"s), nullptr);
  EXPECT_EQ(Parse("[1]\0[2]"s), nullptr);
  EXPECT_EQ(Parse("\0"s), nullptr);
}

TEST(JSONRead, KeepsMembersInOrderOfTheirKeysAndTheLastOfEqualOnes) {
  auto const object = As<JSONObject>(R"({"b":1,"B":2,"a":3,"b":4,"":5})");
  std::string keys;
  for (auto const& [key, value] : object) {
    keys += "'" + std::string(key.begin(), key.end()) + "'";
  }
  EXPECT_EQ(keys, "'''B''a''b'");
  EXPECT_EQ(std::any_cast<std::uint64_t>(*object.at("b")), 4u);
}

TEST(JSONRead, ReadsTheGreatestDepthAndNoMore) {
  auto const nested = [](std::size_t depth) { return std::string(depth, '[') + std::string(depth, ']'); };
  EXPECT_NE(Parse(nested(256)), nullptr);
  EXPECT_EQ(Parse(nested(257)), nullptr);
  EXPECT_EQ(Parse(nested(1'000'000)), nullptr);
  EXPECT_EQ(Parse(std::string(1'000'000, '[')), nullptr);
  std::string objects;
  for (int i = 0; i < 257; ++i) {
    objects += "{\"a\":";
  }
  EXPECT_EQ(Parse(objects + "1" + std::string(257, '}')), nullptr);
}

TEST(JSONRead, StaysWithinTheMemoryItIsGiven) {
  std::string text = "[";
  for (int i = 0; i < 10'000; ++i) {
    text += "[],";
  }
  text += "1]";
  EXPECT_NE(Parse(text, {.treeBytes = 10'000'000}), nullptr);
  EXPECT_EQ(Parse(text, {.treeBytes = 100'000}), nullptr);
  EXPECT_EQ(Parse("\"" + std::string(1000, 'a') + "\"", {.treeBytes = 1000}), nullptr);
}

TEST(JSONRead, TellsWhatIsWrongAndWhere) {
  auto const offsetOf = [](std::string_view text, std::string_view fault) {
    try {
      JSONParseOrThrow(text.data(), text.size());
      ADD_FAILURE() << text << " was read";
      return std::size_t{0};
    } catch (parse_exception const& exception) {
      EXPECT_NE(std::string_view(exception.what()).find(fault), std::string_view::npos) << exception.what();
      return exception.GetOffset();
    }
  };
  EXPECT_EQ(offsetOf("[1,2,x]", "Invalid value"), 5u);
  EXPECT_EQ(offsetOf("", "empty"), 0u);
  EXPECT_EQ(offsetOf("[\0]"s, "NUL"), 1u);
  EXPECT_EQ(offsetOf("[\"long enough for a word \ufffd\xf4", "UTF-8"), 28u);
  EXPECT_EQ(offsetOf(std::string(300, '['), "too deep"), 256u);
  EXPECT_NE(JSONParseOrThrow("[]", 2), nullptr);
}

}  // namespace
}  // namespace moxcore::serialization
