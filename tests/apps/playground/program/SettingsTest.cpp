#include "playground/TemporaryFolder.h"
#include "program/Settings.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace playground {
namespace {

Settings Unusual() {
  Settings settings;
  settings.windowWidth = 1234;
  settings.windowHeight = 777;
  settings.page = "popup";
  settings.appearance = {ThemeChoice::kLight, LookChoice::kClassic, LanguageChoice::kPseudo, true, 1.25};
  settings.rulerCountsSamples = true;
  settings.layouts = {moxmediatypes::AudioChannelLayout{moxmediatypes::AudioChannelDescription(0xFFFFFFFFu)},
                      moxmediatypes::CreateStereoChannelLayout(),
                      {},
                      moxmediatypes::CreateMonoChannelLayout()};
  return settings;
}

TEST(Settings, ComeBackAsTheyWereWritten) {
  EXPECT_EQ(SettingsFromText(TextFromSettings(Unusual())), Unusual());
}

TEST(Settings, ComeBackFromAFileInANewFolder) {
  TemporaryFolder folder;
  auto const path = folder.Path() / "a" / "b" / "playground.ini";
  ASSERT_TRUE(SaveSettings(path, Unusual()));
  EXPECT_EQ(LoadSettings(path), Unusual());
}

TEST(Settings, LeaveNothingElseBesideTheirFile) {
  TemporaryFolder folder;
  ASSERT_TRUE(SaveSettings(folder.Path() / "playground.ini", Unusual()));
  ASSERT_TRUE(SaveSettings(folder.Path() / "playground.ini", Settings()));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

TEST(Settings, AreTheDefaultsWithoutAFile) {
  TemporaryFolder folder;
  EXPECT_EQ(LoadSettings(folder.Path() / "none.ini"), Settings());
  EXPECT_EQ(LoadSettings(folder.Path()), Settings());
  EXPECT_EQ(LoadSettings({}), Settings());
}

TEST(Settings, TakeWhatIsGoodFromADamagedFile) {
  std::string text =
      "width=99999999999999999999\nheight=\npage=../../etc\ntheme=light\nlook\n=\n==\nscale=nan\n";
  text += std::string(3, '\0') + "\xff\xfe\n";
  text += "right-to-left=perhaps\r\nlanguage=pseudo";
  Settings expected;
  expected.appearance.theme = ThemeChoice::kLight;
  expected.appearance.language = LanguageChoice::kPseudo;
  EXPECT_EQ(SettingsFromText(text), expected);
}

TEST(Settings, KeepTheWindowWithinSensibleBounds) {
  EXPECT_EQ(SettingsFromText("width=1\nheight=1\n").windowWidth, kSmallestWindowWidth);
  EXPECT_EQ(SettingsFromText("width=1\nheight=1\n").windowHeight, kSmallestWindowHeight);
  EXPECT_EQ(SettingsFromText("width=1000000\n").windowWidth, kLargestWindowEdge);
  EXPECT_EQ(SettingsFromText("width=-5\n").windowWidth, Settings().windowWidth);
}

TEST(Settings, TakeNoLayoutButAWholeOne) {
  for (char const* const value : {"", " ", "100  101", "100,101", "left right", "-1", "4294967296", "1.5"}) {
    Settings const settings = SettingsFromText("layout-other=" + std::string(value) + "\n");
    EXPECT_EQ(settings.layouts, ChannelDesk::Layouts()) << value;
  }
}

TEST(Settings, RememberLayoutsThatLeaveRoomForTheRest) {
  Settings settings = Unusual();
  for (auto& layout : settings.layouts) {
    layout.assign(1024, moxmediatypes::AudioChannelDescription(0xFFFFFFFFu));
  }
  EXPECT_EQ(SettingsFromText(TextFromSettings(settings)), settings);
  TemporaryFolder folder;
  ASSERT_TRUE(SaveSettings(folder.Path() / "playground.ini", settings));
  EXPECT_EQ(LoadSettings(folder.Path() / "playground.ini"), settings);
  settings.layouts[0].emplace_back();
  Settings const read = SettingsFromText(TextFromSettings(settings));
  EXPECT_TRUE(read.layouts[0].empty());
  EXPECT_EQ(read.layouts[1], settings.layouts[1]);
  EXPECT_TRUE(SettingsFromText(TextFromSettings({}) + "layout-wave=0" + std::string(2048, ' ') + "\n") ==
              Settings());
}

TEST(Settings, AreNotReadWithoutBounds) {
  TemporaryFolder folder;
  auto const path = folder.Path() / "huge.ini";
  std::ofstream(path) << "theme=light\n" << std::string(1 << 20, 'x') << "\nlook=classic\n";
  Settings const settings = LoadSettings(path);
  EXPECT_EQ(settings.appearance.theme, ThemeChoice::kLight);
  EXPECT_EQ(settings.appearance.look, LookChoice::kV7);
}

TEST(Settings, ThatCannotBeWrittenSaySo) {
  TemporaryFolder folder;
  std::ofstream(folder.Path() / "file") << "x";
  EXPECT_FALSE(SaveSettings(folder.Path() / "file" / "playground.ini", Settings()));
  EXPECT_FALSE(SaveSettings({}, Settings()));
}

}  // namespace
}  // namespace playground
