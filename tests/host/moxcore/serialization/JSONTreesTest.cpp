// Trees of any form: written, read and written again.
#include <moxcore/serialization/JSON.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <any>
#include <bit>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <random>

namespace moxcore::serialization {
namespace {

class AnyTree {
 public:
  explicit AnyTree(unsigned seed) : mRandom(seed) {}

  std::any Value(int depth) {
    switch (Below(depth > 0 ? 8 : 6)) {
      case 0:
        return {};
      case 1:
        return Below(2) == 0;
      case 2:
        return Integer();
      case 3:
        return -1 - static_cast<std::int64_t>(Integer() >> 1);
      case 4:
        return Real();
      case 5:
        return Text();
      case 6:
        return Array(depth);
      default:
        return Object(depth);
    }
  }

 private:
  std::uint64_t Below(std::uint64_t limit) { return mRandom() % limit; }
  std::uint64_t Integer() { return mRandom() >> Below(64); }

  double Real() {
    auto const value = std::bit_cast<double>(mRandom());
    return std::isfinite(value) ? value : 40.0;
  }

  Utf8String Text() {
    constexpr char const* kPieces[] = {"a",    "\"",     "\\",     "/",      "\n",        "\x01",
                                       "\x7f", "\u00e9", "\u2028", "\ufffd", "\U0001f3b5"};
    Utf8String text;
    for (auto length = Below(6); length > 0; --length) {
      auto const piece = Below(std::size(kPieces) + 1);
      text += piece == std::size(kPieces) ? Utf8String(1, '\0') : Utf8String(kPieces[piece]);
    }
    return text;
  }

  std::any Array(int depth) {
    JSONArray array;
    for (auto count = Below(5); count > 0; --count) {
      array.push_back(MakeJSONValue(Value(depth - 1)));
    }
    return array;
  }

  std::any Object(int depth) {
    JSONObject object;
    for (auto count = Below(5); count > 0; --count) {
      object.insert_or_assign(Text(), MakeJSONValue(Value(depth - 1)));
    }
    return object;
  }

  std::mt19937_64 mRandom;
};

bool AreEqual(std::any const& a, std::any const& b) {
  if (a.type() != b.type()) {
    return false;
  }
  auto const same = [](JSONValue const& one, JSONValue const& other) { return AreEqual(*one, *other); };
  if (auto const* const array = std::any_cast<JSONArray>(&a)) {
    return std::ranges::equal(*array, std::any_cast<JSONArray const&>(b), same);
  }
  if (auto const* const object = std::any_cast<JSONObject>(&a)) {
    return std::ranges::equal(*object, std::any_cast<JSONObject const&>(b),
                              [&](auto const& one, auto const& other) {
                                return one.first == other.first && same(one.second, other.second);
                              });
  }
  if (auto const* const real = std::any_cast<double>(&a)) {
    return std::bit_cast<std::uint64_t>(*real) == std::bit_cast<std::uint64_t>(std::any_cast<double>(b));
  }
  return !a.has_value() || GetJSONUTF8String(a) == GetJSONUTF8String(b);
}

TEST(JSONTrees, AreReadAsTheyWereWrittenAndWrittenAsTheyWereRead) {
  AnyTree trees(17);
  for (int i = 0; i < 3000; ++i) {
    auto const tree = trees.Value(5);
    for (bool const pretty : {false, true}) {
      auto const text = GetJSONUTF8String(tree, pretty);
      auto const read = JSONParse(text.data(), text.size());
      ASSERT_NE(read, nullptr) << text;
      ASSERT_TRUE(AreEqual(tree, *read)) << text;
      ASSERT_EQ(GetJSONUTF8String(*read, pretty), text);
    }
  }
}

TEST(JSONTrees, AreNeverReadFromTextsThatWereCutOff) {
  AnyTree trees(23);
  for (int i = 0; i < 200; ++i) {
    auto const text = GetJSONUTF8String(JSONArray{MakeJSONValue(trees.Value(3))});
    for (std::size_t length = 0; length < text.size(); ++length) {
      ASSERT_EQ(JSONParse(text.data(), length), nullptr) << text.substr(0, length);
    }
  }
}

}  // namespace
}  // namespace moxcore::serialization
