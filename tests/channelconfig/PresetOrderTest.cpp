#include "LayoutPresets.h"

#include <moxcore/config/Catalogue.h>
#include <moxcore/config/Localizer.h>
#include <moxcore/string/Encoding.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace moxappsupport::presets {
namespace {

using namespace layout_presets;
using ::testing::ElementsAre;

std::vector<std::string> Sorted(std::vector<LayoutPreset> presets) {
  std::mt19937 random(5);
  std::ranges::shuffle(presets, random);
  std::ranges::sort(presets, PresetLess);
  std::vector<std::string> names;
  for (auto const& preset : presets) {
    names.emplace_back(LocalizedPresetName(preset));
  }
  return names;
}

TEST(PresetOrder, HasThoseOfTheProgramFirst) {
  EXPECT_THAT(Sorted({MakePreset("A", kUser, {0}, 0, 0), MakePreset("M", kMono, {0}, 2, 100),
                      MakePreset("S", kStereo, {0}, 3, 200), MakePreset("F", kFiveOne, {0}, 2, 300)}),
              ElementsAre("M", "S", "F", "A"));
}

TEST(PresetOrder, HasNoPlaceForTheDefaultBit) {
  EXPECT_THAT(Sorted({MakePreset("B", kUser, {0}, 1, 0), MakePreset("A", kOther, {0}, 0, 0)}),
              ElementsAre("A", "B"));
  EXPECT_FALSE(PresetLess(MakePreset("A", kUser, {0}, 3, 5), MakePreset("A", kOther, {0}, 2, 5)));
  EXPECT_FALSE(PresetLess(MakePreset("A", kUser, {0}, 2, 5), MakePreset("A", kOther, {0}, 3, 5)));
}

TEST(PresetOrder, IsThatOfSortOrderBeforeNames) {
  EXPECT_THAT(Sorted({MakePreset("A", kUser, {0}, 0, 4294967295), MakePreset("B", kUser, {0}, 0, 1),
                      MakePreset("C", kUser, {0}, 0, 0)}),
              ElementsAre("C", "B", "A"));
}

TEST(PresetOrder, ComparesNamesByTheirUnits) {
  EXPECT_THAT(
      Sorted({MakePreset("a"), MakePreset("Z"), MakePreset(""), MakePreset("ab"), MakePreset("\u00e4")}),
      ElementsAre("", "Z", "a", "ab", "\u00e4"));
  // Beyond 16 bits a character begins with a surrogate, which is less than what ends the first 16 bits.
  EXPECT_THAT(Sorted({MakePreset("\uff5e"), MakePreset("\U0001f3b5"), MakePreset("\ud7ff"),
                      MakePreset("\U0001f3b6")}),
              ElementsAre("\ud7ff", "\U0001f3b5", "\U0001f3b6", "\uff5e"));
}

TEST(PresetOrder, AgreesWithUtf16OnAnyNames) {
  std::mt19937 random(11);
  auto const name = [&] {
    std::string text;
    for (auto length = random() % 4; length > 0; --length) {
      constexpr char const* kPieces[] = {"a",      "Z",          "\x80",       "\u00e9",  "\ufffd",
                                         "\ue000", "\U0001f3b5", "\U00010000", "\xf0\x9f"};
      text += kPieces[random() % std::size(kPieces)];
    }
    return text;
  };
  for (int i = 0; i < 20'000; ++i) {
    auto const a = name();
    auto const b = name();
    EXPECT_EQ(PresetLess(MakePreset(a), MakePreset(b)),
              moxcore::string::UTF8to16(a) < moxcore::string::UTF8to16(b))
        << a << " and " << b;
  }
}

TEST(PresetOrder, IsThatOfTheNamesInTheUsersLanguage) {
  auto& localizer = moxcore::config::Localizer::Get();
  localizer.AddCatalogue(moxcore::config::ParseCatalogue(
      "msgid \"\"\nmsgstr \"Language: xx\\n\"\n\nmsgctxt \"$$$/t/A\"\nmsgid \"A\"\nmsgstr \"Zz\"\n"));
  std::vector<LayoutPreset> const presets = {MakePreset("$$$/t/A=A"), MakePreset("B")};
  EXPECT_THAT(Sorted(presets), ElementsAre("A", "B"));
  localizer.SetLanguage("xx");
  EXPECT_THAT(Sorted(presets), ElementsAre("B", "Zz"));
  localizer.SetLanguage("");
}

TEST(PresetCopy, HasANewGuidAndTheNameOfACopy) {
  auto const preset = MakePreset("$$$/t/Mono=Mono", kMono, {0, 5}, 3, 100);
  auto const copy = MakePresetCopy(preset);
  EXPECT_FALSE(copy.guid.IsNil());
  EXPECT_NE(copy.guid, preset.guid);
  EXPECT_NE(MakePresetCopy(preset).guid, copy.guid);
  EXPECT_EQ(copy.name, "Mono copy");
  auto expected = preset;
  expected.guid = copy.guid;
  expected.name = copy.name;
  EXPECT_EQ(copy, expected);
}

TEST(PresetCopy, TakesTheNameAsItStands) {
  EXPECT_EQ(MakePresetCopy(MakePreset("@0 @1")).name, "@0 @1 copy");
}

TEST(PresetRecords, AreEmptyAtFirst) {
  LayoutPreset const preset;
  EXPECT_TRUE(preset.guid.IsNil());
  EXPECT_TRUE(preset.type.IsNil());
  EXPECT_EQ(preset.name, "");
  EXPECT_EQ(preset.flags, 0u);
  EXPECT_EQ(preset.sortOrder, 0u);
  EXPECT_TRUE(preset.data.channelLayout.empty());
}

}  // namespace
}  // namespace moxappsupport::presets
