#include <moxcore/serialization/JSON.h>

#include <gtest/gtest.h>

#include <any>
#include <cstdint>
#include <memory>
#include <string_view>

namespace moxcore::serialization {
namespace {

JSONValue Parse(std::string_view text) {
  return JSONParse(text.data(), text.size());
}

TEST(JSONValues, AddMembersWhereThereAreNone) {
  std::any object;
  EXPECT_TRUE(AddToObject(object, "b", std::uint64_t{1}, false));
  EXPECT_TRUE(AddToObject(object, "a", Utf8String("x"), false));
  EXPECT_EQ(GetJSONUTF8String(object), R"({"a":"x","b":1})");
}

TEST(JSONValues, ReplaceMembersOnlyWhenAsked) {
  std::any object = JSONObject();
  AddToObject(object, "a", std::uint64_t{1}, false);
  EXPECT_FALSE(AddToObject(object, "a", std::uint64_t{2}, false));
  EXPECT_EQ(GetJSONUTF8String(object), R"({"a":1})");
  EXPECT_TRUE(AddToObject(object, "a", std::uint64_t{3}, true));
  EXPECT_EQ(GetJSONUTF8String(object), R"({"a":3})");
}

TEST(JSONValues, AppendToArrays) {
  std::any array;
  AppendToArray(array, std::uint64_t{1});
  AppendToArray(array, JSONObject());
  EXPECT_EQ(GetJSONUTF8String(array), "[1,{}]");
}

TEST(JSONValues, RefuseToAddToAnythingElse) {
  std::any number = std::uint64_t{1};
  EXPECT_THROW(AddToObject(number, "a", std::any(), false), std::bad_any_cast);
  EXPECT_THROW(AppendToArray(number, std::any()), std::bad_any_cast);
  std::any array = JSONArray();
  EXPECT_THROW(AddToObject(array, "a", std::any(), false), std::bad_any_cast);
}

TEST(JSONValues, FindMembersByTheirExactKeys) {
  auto const object = Parse(R"({"Flags":1,"null":null})");
  EXPECT_TRUE(ObjectHasProperty(*object, "Flags"));
  EXPECT_TRUE(ObjectHasProperty(*object, "null"));
  EXPECT_FALSE(ObjectHasProperty(*object, "flags"));
  EXPECT_TRUE(ObjectHasProperty(*object, "fLAGS", true));
  EXPECT_FALSE(ObjectHasProperty(*object, "fLAG", true));
  EXPECT_FALSE(ObjectHasProperty(std::uint64_t{1}, "Flags"));
  ASSERT_NE(GetVariantInObject(*object, "Flags"), nullptr);
  EXPECT_EQ(std::any_cast<std::uint64_t>(*GetVariantInObject(*object, "Flags")), 1u);
  EXPECT_EQ(GetVariantInObject(*object, "Flag"), nullptr);
  EXPECT_EQ(GetVariantInObject(std::any_cast<JSONObject const&>(*object), "x"), nullptr);
  EXPECT_THROW(GetVariantInObject(std::any(true), "x"), std::bad_any_cast);
}

TEST(JSONValues, NameTheRequiredKeyThatIsAbsent) {
  auto const object = Parse(R"({"a":1})");
  EXPECT_EQ(std::any_cast<std::uint64_t>(GetRequiredInObject(*object, "a")), 1u);
  try {
    GetRequiredInObject(*object, "b");
    FAIL();
  } catch (missing_key_exception const& exception) {
    EXPECT_EQ(exception.GetKey(), "b");
    EXPECT_NE(std::string_view(exception.what()).find("b"), std::string_view::npos);
  }
}

TEST(JSONValues, ShareTheMembersOfCopies) {
  auto const object = Parse(R"({"a":{"b":1}})");
  std::any const copy = *object;
  EXPECT_EQ(GetVariantInObject(copy, "a"), GetVariantInObject(*object, "a"));
}

// The stack of a thread would be long gone.
TEST(JSONValues, EndWithoutRecursion) {
  JSONValue value = MakeJSONValue(JSONArray());
  for (int i = 0; i < 300'000; ++i) {
    value = i % 2 == 0 ? MakeJSONValue(JSONArray{std::move(value)})
                       : MakeJSONValue(JSONObject{{"a", std::move(value)}});
  }
  std::weak_ptr<std::any> const root = value;
  value.reset();
  EXPECT_TRUE(root.expired());
}

TEST(JSONValues, EndWhatAValueHoldsThatIsNoTree) {
  auto const held = std::make_shared<int>(1);
  auto value = MakeJSONValue(JSONArray{MakeJSONValue(JSONArray{MakeJSONValue(held)})});
  EXPECT_EQ(held.use_count(), 2);
  value.reset();
  EXPECT_EQ(held.use_count(), 1);
}

}  // namespace
}  // namespace moxcore::serialization
