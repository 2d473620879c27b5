#include "LayoutPresets.h"

#include <moxcore/utility/ModuleHandle.h>
#include <moxcore/utility/ModuleResources.h>
#include <moxmediatypes/AudioChannels.h>
#include <moxmediaui/Module.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <any>
#include <stdexcept>
#include <string>
#include <vector>

namespace moxappsupport::presets {
namespace {

using namespace layout_presets;
using ::testing::ElementsAre;

std::vector<LayoutPreset> ParseList(std::string const& text) {
  return ParsePresetListText<AudioChannelLayoutPresetData>(text.data(), text.size());
}

std::string EmbeddedList() {
  moxcore::utility::ResourceBytes bytes;
  auto const module =
      moxcore::utility::ModuleHandle::FromAddress(reinterpret_cast<void const*>(&moxmediaui::Terminate));
  EXPECT_TRUE(moxcore::utility::GetBinaryFromModule(
      module, moxcore::utility::ResourceType("json"),
      moxcore::utility::ResourceName("AudioChannelLayoutPresets"), bytes));
  return std::string(bytes.begin(), bytes.end());
}

TEST(EmbeddedPresets, AreMonoStereoAndFiveOne) {
  EXPECT_THAT(ParseList(EmbeddedList()),
              ElementsAre(MakePreset("$$$/moxmediatypes/AudioChannelLayout/Mono=Mono", kMono, {0}, 2, 100),
                          MakePreset("$$$/moxmediatypes/AudioChannelLayout/Stereo=Stereo", kStereo,
                                     {100, 101}, 3, 200),
                          MakePreset("$$$/moxmediatypes/AudioChannelLayout/5.1=5.1", kFiveOne,
                                     {100, 101, 102, 103, 104, 105}, 2, 300)));
}

TEST(EmbeddedPresets, HoldTheLayoutsOfTheSameNames) {
  auto const presets = ParseList(EmbeddedList());
  EXPECT_EQ(presets.at(0).data.channelLayout, moxmediatypes::CreateMonoChannelLayout());
  EXPECT_EQ(presets.at(1).data.channelLayout, moxmediatypes::CreateStereoChannelLayout());
}

TEST(EmbeddedPresets, AreWrittenInTheirFormat) {
  auto const text = EmbeddedList();
  EXPECT_TRUE(text.starts_with("[\r\n\t{\r\n\t\t\"Flags\": 2,\r\n\t\t\"Guid\": \"c33cc6bf-"));
  EXPECT_TRUE(text.ends_with("\t\t\"Version\": 1\r\n\t}\r\n]\r\n"));
  EXPECT_EQ(text.find(' ' + std::string(1, ' ')), std::string::npos) << "indented by blanks";
  std::size_t versions = 0;
  for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; ++at) {
    EXPECT_EQ(text[at - 1], '\r');
  }
  for (std::size_t at = 0; (at = text.find("\"Version\": 1\r", at)) != std::string::npos; ++at) {
    ++versions;
  }
  EXPECT_EQ(versions, 3u);
  EXPECT_NE(
      text.find("\t\t\t\"audiochannellayout\": [{ \"channellabel\": 100 }, { \"channellabel\": 101 }]\r\n"),
      std::string::npos);
  for (auto const* key :
       {"\"Flags\"", "\"Guid\"", "\"Name\"", "\"PresetData\"", "\"SortOrder\"", "\"Type\""}) {
    EXPECT_LT(text.find(key), text.find("\"Version\"")) << key;
  }
}

TEST(PresetList, MayBeEmptyOrWrapped) {
  EXPECT_TRUE(ParseList("[]").empty());
  EXPECT_THAT(ParseList(R"({"SerializerWrappedObject":[)" + TextOf("Foo") + "]}"),
              ElementsAre(MakePreset("Foo")));
}

TEST(PresetList, KeepsElementsThatAreNoObjectsAsNilRecords) {
  EXPECT_THAT(ParseList("[5," + TextOf("Foo") + "]"), ElementsAre(LayoutPreset(), MakePreset("Foo")));
}

TEST(PresetList, MustBeAList) {
  for (auto const* text : {"{}", "5", "null", R"({"SerializerWrappedObject":{}})"}) {
    EXPECT_THROW(ParseList(text), std::bad_any_cast) << text;
  }
  EXPECT_THROW(ParseList("[{]"), std::runtime_error);
}

TEST(PresetList, FailsAsAWholeForOneBadElement) {
  EXPECT_THROW(ParseList("[" + TextOf("Foo") + ",{}]"), moxcore::serialization::missing_key_exception);
}

}  // namespace
}  // namespace moxappsupport::presets
