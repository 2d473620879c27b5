#include "LayoutPresets.h"

#include <moxcore/utility/ModuleHandle.h>
#include <moxcore/utility/ModuleResources.h>
#include <moxmediatypes/AudioChannels.h>
#include <moxmediaui/Module.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <any>
#include <atomic>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

// A payload that tells on which thread it was read.
namespace {

struct Traveller {
  std::uint64_t number = 0;
  std::thread::id thread;
};

}  // namespace

template <>
struct moxcore::serialization::JSONConvert<Traveller> {
  static Traveller FromJSON(std::any const& value) {
    return {std::any_cast<std::uint64_t>(value), std::this_thread::get_id()};
  }
  static std::any ToJSON(Traveller const& traveller) { return traveller.number; }
};

namespace moxappsupport::presets {
namespace {

using namespace layout_presets;
using ::testing::ElementsAre;

std::vector<LayoutPreset> ParseList(std::string const& text) {
  return ParsePresetListText<AudioChannelLayoutPresetData>(text.data(), text.size());
}

std::string ListOf(std::size_t count, std::size_t bad = ~std::size_t{0}) {
  std::string text = "[";
  for (std::size_t i = 0; i < count; ++i) {
    text += (i == 0 ? "" : ",") + TextOf("p", kUser, i == bad ? "\"bad\"" : std::to_string(i));
  }
  return text + "]";
}

std::vector<Preset<Traveller>> ParseTravellers(std::string const& text) {
  return ParsePresetListText<Traveller>(text.data(), text.size());
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

TEST(PresetList, IsReadOnTheCallingThreadUpTo512Elements) {
  auto const presets = ParseTravellers(ListOf(512));
  ASSERT_EQ(presets.size(), 512u);
  for (std::size_t i = 0; i < presets.size(); ++i) {
    EXPECT_EQ(presets[i].data.number, i);
    EXPECT_EQ(presets[i].data.thread, std::this_thread::get_id());
  }
}

TEST(PresetList, KeepsItsOrderOnManyThreads) {
  auto const presets = ParseTravellers(ListOf(513));
  ASSERT_EQ(presets.size(), 513u);
  for (std::size_t i = 0; i < presets.size(); ++i) {
    EXPECT_EQ(presets[i].data.number, i);
  }
  // What is behind the 16 chunks of 32.
  EXPECT_EQ(presets[512].data.thread, std::this_thread::get_id());
}

TEST(PresetList, ThrowsWhatAnElementThrowsOnAnyThread) {
  for (std::size_t const bad : {0u, 31u, 300u, 511u, 512u}) {
    EXPECT_THROW(ParseTravellers(ListOf(513, bad)), std::bad_any_cast) << bad;
    EXPECT_THROW(ParseTravellers(ListOf(512, std::min<std::size_t>(bad, 511))), std::bad_any_cast) << bad;
  }
}

}  // namespace
}  // namespace moxappsupport::presets
