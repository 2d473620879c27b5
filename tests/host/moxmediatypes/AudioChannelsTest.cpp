#include "support/Folders.h"

#include <moxcore/config/Catalogue.h>
#include <moxcore/config/Localizer.h>
#include <moxmediatypes/AudioChannels.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>

namespace moxmediatypes {
namespace {

using moxcore::Utf8String;
using moxcore::config::Localizer;
using ::testing::ElementsAre;

AudioChannelDescription Channel(std::uint32_t number) {
  return AudioChannelDescription(number);
}

TEST(AudioChannelLayouts, MonoHasOneChannelWithoutAName) {
  EXPECT_THAT(CreateMonoChannelLayout(), ElementsAre(Channel(0)));
}

TEST(AudioChannelLayouts, StereoIsLeftThenRight) {
  EXPECT_THAT(CreateStereoChannelLayout(), ElementsAre(Channel(100), Channel(101)));
}

TEST(AudioChannelLabels, OfFiveOneHaveTheirNumbers) {
  EXPECT_EQ(AudioChannelDescription(AudioChannelLabel::kUnnamed).GetNumber(), 0u);
  EXPECT_EQ(AudioChannelDescription(AudioChannelLabel::kLeft).GetNumber(), 100u);
  EXPECT_EQ(AudioChannelDescription(AudioChannelLabel::kRight).GetNumber(), 101u);
  EXPECT_EQ(AudioChannelDescription(AudioChannelLabel::kCenter).GetNumber(), 102u);
  EXPECT_EQ(AudioChannelDescription(AudioChannelLabel::kLowFrequency).GetNumber(), 103u);
  EXPECT_EQ(AudioChannelDescription(AudioChannelLabel::kLeftSurround).GetNumber(), 104u);
  EXPECT_EQ(AudioChannelDescription(AudioChannelLabel::kRightSurround).GetNumber(), 105u);
  EXPECT_EQ(AudioChannelDescription().GetNumber(), 0u);
}

TEST(AudioChannelLabels, HoldAnyNumberAndAreOrderedByIt) {
  EXPECT_EQ(Channel(0xffffffff).GetNumber(), 0xffffffffu);
  EXPECT_LT(Channel(0x7fffffff), Channel(0x80000000));
  EXPECT_NE(Channel(1), Channel(2));
}

TEST(AudioChannelLabels, OnOfferBeginWithTheOneWithoutAName) {
  auto const& all = GetSupportedAudioChannelDescriptions();
  ASSERT_EQ(all.size(), 31u + 16u);
  EXPECT_EQ(*all.begin(), Channel(0));
  for (std::uint32_t number = 100; number <= 105; ++number) {
    EXPECT_TRUE(all.contains(Channel(number))) << number;
  }
  EXPECT_EQ(*all.rbegin(), Channel(215));
}

TEST(AudioChannelLabels, HaveTextsThatTellThemApart) {
  for (bool const shortForm : {false, true}) {
    std::set<Utf8String> texts;
    for (auto const channel : GetSupportedAudioChannelDescriptions()) {
      auto const text = AudioChannelLabelDescription(channel.GetLabel(), shortForm);
      EXPECT_FALSE(text.empty()) << channel.GetNumber();
      EXPECT_TRUE(texts.insert(text).second) << text;
    }
  }
}

TEST(AudioChannelLabels, AreNamedInFullAndInShort) {
  EXPECT_EQ(AudioChannelLabelDescription(AudioChannelLabel::kLeft, false), "Left");
  EXPECT_EQ(AudioChannelLabelDescription(AudioChannelLabel::kLeft, true), "L");
  EXPECT_EQ(AudioChannelLabelDescription(AudioChannelLabel::kLowFrequency, false), "Low-Frequency Effects");
  EXPECT_EQ(AudioChannelLabelDescription(AudioChannelLabel::kLowFrequency, true), "LFE");
  EXPECT_EQ(AudioChannelLabelDescription(AudioChannelLabel::kUnnamed, false), "Unnamed");
  EXPECT_EQ(AudioChannelLabelDescription(AudioChannelLabel::kAmbisonic15, false), "Ambisonic Component 15");
  EXPECT_EQ(AudioChannelLabelDescription(AudioChannelLabel::kAmbisonic0, true), "ACN 0");
}

TEST(AudioChannelLabels, WithoutANameAreToldByTheirNumber) {
  EXPECT_EQ(AudioChannelLabelDescription(Channel(4294967295).GetLabel(), false), "Label 4294967295");
  EXPECT_EQ(AudioChannelLabelDescription(Channel(1).GetLabel(), true), "1");
  EXPECT_EQ(AudioChannelLabelDescription(Channel(216).GetLabel(), false), "Label 216");
}

TEST(AudioChannelLabels, FollowTheLanguage) {
  std::ostringstream text;
  text << std::ifstream(tests::SourceFolder() + "/resources/PO/de.po").rdbuf();
  Localizer::Get().AddCatalogue(moxcore::config::ParseCatalogue(text.str()));
  Localizer::Get().SetLanguage("de");
  EXPECT_EQ(AudioChannelLabelDescription(AudioChannelLabel::kLeftSurround, false), "Surround links");
  EXPECT_EQ(AudioChannelLabelDescription(AudioChannelLabel::kAmbisonic0, false), "Ambisonics-Komponente 0");
  std::set<Utf8String> texts;
  for (auto const channel : GetSupportedAudioChannelDescriptions()) {
    EXPECT_TRUE(texts.insert(AudioChannelLabelDescription(channel.GetLabel(), false)).second);
  }
  Localizer::Get().SetLanguage("");
}

}  // namespace
}  // namespace moxmediatypes
