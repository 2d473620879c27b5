#include "LayoutPresets.h"

#include <moxcore/serialization/JSON.h>

#include <gtest/gtest.h>

#include <any>
#include <stdexcept>
#include <string>

namespace moxappsupport::presets {
namespace {

using namespace layout_presets;
using moxcore::serialization::missing_key_exception;

LayoutPreset Parse(std::string const& text) {
  return ParsePresetText<AudioChannelLayoutPresetData>(text.data(), text.size());
}

std::string Written(LayoutPreset const& preset) {
  return std::string(moxcore::serialization::GetJSONUTF8String(PresetToJSON(preset), false));
}

std::string MissingKey(std::string const& text) {
  try {
    Parse(text);
    return "none";
  } catch (missing_key_exception const& exception) {
    return std::string(exception.GetKey());
  }
}

std::string WithLabel(std::string_view label) {
  return TextOf("a", kUser, R"({"audiochannellayout":[{"channellabel":)" + std::string(label) + "}]}");
}

TEST(PresetText, HoldsEveryField) {
  auto const preset =
      Parse(TextOf("Foo", kUser, R"({"audiochannellayout":[{"channellabel":101},{"channellabel":0}]})",
                   R"(,"Version":1,"Flags":3,"SortOrder":200)"));
  EXPECT_EQ(preset, MakePreset("Foo", kUser, {101, 0}, 3, 200));
}

TEST(PresetText, WithoutFlagsAndSortOrderHasBothZeroAndIsWrittenWithoutThem) {
  auto const preset = Parse(TextOf("Foo"));
  EXPECT_EQ(preset.flags, 0u);
  EXPECT_EQ(preset.sortOrder, 0u);
  EXPECT_EQ(Written(preset),
            std::string(R"({"Guid":")") + kUser +
                R"(","Name":"Foo","PresetData":{"audiochannellayout":[{"channellabel":100}]},"Type":")" +
                kType + R"(","Version":1})");
}

TEST(PresetText, IsWrittenWithFlagsAndSortOrderThatAreNotZero) {
  auto const text = Written(MakePreset("Foo", kUser, {100}, 4294967295, 7));
  EXPECT_NE(text.find(R"("Flags":4294967295,)"), std::string::npos) << text;
  EXPECT_NE(text.find(R"("SortOrder":7,)"), std::string::npos) << text;
}

TEST(PresetText, ReadsAsTheSamePreset) {
  for (auto const& preset : {MakePreset("Foo"), MakePreset("$$$/a/b=c", kMono, {0}, 2, 100),
                             MakePreset("\"\u00e9\n\U0001f3b5", kOther, {4294967295, 0, 7}, 1, 4294967295)}) {
    EXPECT_EQ(Parse(Written(preset)), preset);
  }
}

TEST(PresetText, MayHaveAnyVersionOrNone) {
  auto const preset = Parse(TextOf("Foo"));
  for (auto const* version : {"1", "2", "0", "-1", "1.5", "\"x\"", "null", "[]"}) {
    EXPECT_EQ(Parse(TextOf("Foo", kUser, R"({"audiochannellayout":[{"channellabel":100}]})",
                           R"(,"Version":)" + std::string(version))),
              preset)
        << version;
  }
}

TEST(PresetText, KeepsTheLow32BitsOfNumbers) {
  auto const label = [](std::string_view text) {
    return Parse(WithLabel(text)).data.channelLayout.at(0).GetNumber();
  };
  EXPECT_EQ(label("4294967295"), 4294967295u);
  EXPECT_EQ(label("4294967296"), 0u);
  EXPECT_EQ(label("4294967297"), 1u);
  EXPECT_EQ(label("-1"), 4294967295u);
  EXPECT_EQ(label("18446744073709551615"), 4294967295u);
  auto const preset = Parse(TextOf("a", kUser, R"({"audiochannellayout":[{"channellabel":100}]})",
                                   R"(,"Flags":4294967299,"SortOrder":-2)"));
  EXPECT_EQ(preset.flags, 3u);
  EXPECT_EQ(preset.sortOrder, 4294967294u);
}

TEST(PresetText, AcceptsNoOtherNumbers) {
  for (auto const* label :
       {"\"100\"", "100.5", "100.0", "1e2", "18446744073709551616", "true", "null", "[]", "{}"}) {
    EXPECT_THROW(Parse(WithLabel(label)), std::bad_any_cast) << label;
  }
  for (auto const* more : {R"(,"Flags":"2")", R"(,"Flags":2.0)", R"(,"Flags":null)", R"(,"SortOrder":[])"}) {
    EXPECT_THROW(Parse(TextOf("a", kUser, R"({"audiochannellayout":[{"channellabel":100}]})", more)),
                 std::bad_any_cast)
        << more;
  }
}

TEST(PresetText, MustHaveChannels) {
  try {
    Parse(TextOf("a", kUser, R"({"audiochannellayout":[]})"));
    FAIL();
  } catch (std::invalid_argument const& exception) {
    EXPECT_STREQ(exception.what(), "invalid audiochannellayout");
  }
  EXPECT_EQ(Parse(WithLabel("5")).data, Layout({5}));
}

TEST(PresetText, WithoutChannelsCanBeWritten) {
  auto const text = Written(MakePreset("a", kUser, {}));
  EXPECT_NE(text.find(R"("PresetData":{"audiochannellayout":[]})"), std::string::npos) << text;
  EXPECT_THROW(Parse(text), std::invalid_argument);
}

TEST(PresetText, NamesTheKeyThatIsAbsent) {
  std::string const data = R"("PresetData":{"audiochannellayout":[{"channellabel":100}]})";
  std::string const guid = R"("Guid":")" + std::string(kUser) + "\"";
  std::string const type = R"("Type":")" + std::string(kType) + "\"";
  std::string const name = R"("Name":"a")";
  EXPECT_EQ(MissingKey("{" + guid + "," + type + "," + name + "," + data + "}"), "none");
  EXPECT_EQ(MissingKey("{" + type + "," + name + "," + data + "}"), "Guid");
  EXPECT_EQ(MissingKey("{" + guid + "," + name + "," + data + "}"), "Type");
  EXPECT_EQ(MissingKey("{" + guid + "," + type + "," + data + "}"), "Name");
  EXPECT_EQ(MissingKey("{" + guid + "," + type + "," + name + "}"), "PresetData");
  EXPECT_EQ(MissingKey(TextOf("a", kUser, "{}")), "audiochannellayout");
  EXPECT_EQ(MissingKey(TextOf("a", kUser, R"({"audiochannellayout":[{"channellabel":1},{}]})")),
            "channellabel");
  EXPECT_EQ(MissingKey("{}"), "Guid");
}

TEST(PresetText, MustHaveTheRightTypes) {
  for (auto const* data : {"[]", "1", "null", "\"x\"", R"({"audiochannellayout":{}})",
                           R"({"audiochannellayout":1})", R"({"audiochannellayout":null})",
                           R"({"audiochannellayout":[1]})", R"({"audiochannellayout":[[]]})"}) {
    EXPECT_THROW(Parse(TextOf("a", kUser, data)), std::bad_any_cast) << data;
  }
  auto const valid = TextOf("a");
  for (auto const* key : {"Guid", "Type", "Name"}) {
    auto text = valid;
    auto const at = text.find("\"" + std::string(key) + "\":") + std::string(key).size() + 3;
    text.replace(at, text.find('"', at + 1) + 1 - at, "5");
    EXPECT_THROW(Parse(text), std::bad_any_cast) << text;
  }
}

TEST(PresetText, WithAMalformedGuidHasTheNilOne) {
  EXPECT_TRUE(Parse(TextOf("a", "no guid")).guid.IsNil());
  EXPECT_EQ(Parse(TextOf("a", "11111111-2222-4333-8444-55555555555A")).guid.AsUTF8String(),
            "11111111-2222-4333-8444-55555555555a");
}

TEST(PresetText, ThatHoldsNoObjectHasTheNilGuid) {
  for (auto const* text : {"5", "\"x\"", "[]", "null", "true", "1.5", R"({"SerializerWrappedObject":5})",
                           R"({"SerializerWrappedObject":null})"}) {
    EXPECT_EQ(Parse(text), LayoutPreset()) << text;
  }
}

TEST(PresetText, MayBeWrapped) {
  EXPECT_EQ(Parse(R"({"SerializerWrappedObject":)" + TextOf("Foo") + "}"), MakePreset("Foo"));
  EXPECT_EQ(Parse(R"({"Guid":5,"SerializerWrappedObject":)" + TextOf("Foo") + R"(,"Zzz":[]})"),
            MakePreset("Foo"));
  EXPECT_EQ(MissingKey(R"({"serializerwrappedobject":)" + TextOf("Foo") + "}"), "Guid");
}

TEST(PresetText, IsNotWellFormedIfItIsNoJson) {
  for (auto const& text :
       {std::string(), std::string("{"), std::string("no"), TextOf("a") + "x", TextOf("a").substr(0, 50),
        std::string("\xff\xfe{\0}\0", 6), TextOf("\xff"), std::string(100'000, '['),
        TextOf("a", kUser, std::string(300, '[') + std::string(300, ']'))}) {
    try {
      Parse(text);
      ADD_FAILURE() << text;
    } catch (std::runtime_error const& exception) {
      EXPECT_STREQ(exception.what(), "JSON not well-formed");
    }
  }
}

TEST(PresetText, MayIncludeTheNulAtItsEnd) {
  auto const text = TextOf("Foo");
  EXPECT_EQ(ParsePresetText<AudioChannelLayoutPresetData>(text.c_str(), text.size() + 1), MakePreset("Foo"));
}

TEST(PresetText, MayHaveItsMembersInAnyOrderAndTwice) {
  EXPECT_EQ(Parse(R"({"PresetData":{"x":1,"audiochannellayout":[{"y":[],"channellabel":100}]},"Name":"no",)"
                  R"("Version":9,"Type":")" +
                  std::string(kType) + R"(","Name":"Foo","Guid":")" + kUser + R"(","More":{"a":[1,2]}})"),
            MakePreset("Foo"));
}

TEST(PresetText, MayBeLongByItsName) {
  std::string const name(32 << 20, 'n');
  EXPECT_EQ(Parse(TextOf(name)).name.size(), name.size());
}

// The reader's memory is bounded, but not for what a user could make.
TEST(PresetText, MayHaveManyChannelsButNoFloodOfValues) {
  std::string channels = R"({"audiochannellayout":[{"channellabel":1})";
  for (int i = 1; i < 50'000; ++i) {
    channels += R"(,{"channellabel":1})";
  }
  EXPECT_EQ(Parse(TextOf("a", kUser, channels + "]}")).data.channelLayout.size(), 50'000u);
  std::string flood = "[1";
  for (int i = 0; i < 2'000'000; ++i) {
    flood += ",1";
  }
  EXPECT_THROW(Parse(TextOf("a", kUser, channels + R"(],"flood":)" + flood + "]}")), std::runtime_error);
}

}  // namespace
}  // namespace moxappsupport::presets
