#include "support/Folders.h"

#include <moxcore/config/Catalogue.h>
#include <moxcore/config/Localizer.h>
#include <moxmediatypes/TimeDisplay.h>

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

namespace moxmediatypes {
namespace {

using moxcore::config::Localizer;

constexpr std::array<int, 17> kCodes = {100, 101, 102, 103, 104, 105, 106, 107, 108,
                                        109, 110, 111, 112, 113, 200, 201, 999};

TEST(TimeDisplayDescription, NamesAFormatForAMenu) {
  EXPECT_EQ(TimeDisplayDescription(TimeDisplay(102), true), u"Timecode 29.97 fps, Drop-Frame");
  EXPECT_EQ(TimeDisplayDescription(TimeDisplay(103), true), u"Timecode 29.97 fps, Non-Drop-Frame");
  EXPECT_EQ(TimeDisplayDescription(TimeDisplay(110), true), u"Timecode 23.976 fps");
  EXPECT_EQ(TimeDisplayDescription(TimeDisplay(109), true), u"Frames");
  EXPECT_EQ(TimeDisplayDescription(TimeDisplay(112), true), u"Feet + Frames, 35 mm");
  EXPECT_EQ(TimeDisplayDescription(TimeDisplay(200), true), u"Audio Samples");
}

TEST(TimeDisplayDescription, HasShortNamesForNarrowPlaces) {
  EXPECT_EQ(TimeDisplayDescription(TimeDisplay(102), false), u"29.97 DF");
  EXPECT_EQ(TimeDisplayDescription(TimeDisplay(111), false), u"16 mm");
  EXPECT_EQ(TimeDisplayDescription(TimeDisplay(201), false), u"ms");
}

TEST(TimeDisplayDescription, TellsAllFormatsApart) {
  for (const bool longForm : {false, true}) {
    std::set<moxcore::Utf16String> names;
    for (const int code : kCodes) {
      const auto name = TimeDisplayDescription(TimeDisplay(code), longForm);
      EXPECT_FALSE(name.empty()) << code;
      EXPECT_TRUE(names.insert(name).second) << code;
    }
  }
}

TEST(TimeDisplayDescription, CallsACodeWithoutMeaningUnknown) {
  for (const int code : {-1, 0, 99, 114, 1000}) {
    EXPECT_EQ(TimeDisplayDescription(TimeDisplay(code), true), u"Unknown Format");
    EXPECT_EQ(TimeDisplayDescription(TimeDisplay(code), false), u"Unknown");
  }
}

// The catalogue as the module adds it.
class GermanDescriptions : public testing::Test {
 protected:
  GermanDescriptions() {
    std::ostringstream text;
    text << std::ifstream(tests::SourceFolder() + "/resources/PO/de.po").rdbuf();
    Localizer::Get().AddCatalogue(moxcore::config::ParseCatalogue(text.str()));
    Localizer::Get().SetLanguage("de");
  }
  ~GermanDescriptions() override { Localizer::Get().SetLanguage(""); }
};

TEST_F(GermanDescriptions, FollowTheLanguage) {
  EXPECT_EQ(TimeDisplayDescription(TimeDisplay(102), true), u"Timecode 29,97 fps, Drop-Frame");
  EXPECT_EQ(TimeDisplayDescription(TimeDisplay(109), true), u"Bilder");
  EXPECT_EQ(TimeDisplayDescription(TimeDisplay(112), true), u"Fuß + Bilder, 35 mm");
  Localizer::Get().SetLanguage("");
  EXPECT_EQ(TimeDisplayDescription(TimeDisplay(109), true), u"Frames");
}

}  // namespace
}  // namespace moxmediatypes
