#include "support/ScratchFolder.h"

#include <moxappsupport/LocalPresets.h>
#include <moxcore/config/Errors.h>
#include <moxcore/string/Encoding.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <set>
#include <string>

namespace moxappsupport::presets {
namespace {

using moxcore::Utf16String;
using moxcore::Utf8String;
using moxcore::filesupport::Dir;
using tests::ScratchFolder;

class UniqueName : public testing::Test {
 protected:
  std::string For(Utf16String const& name, Utf16String const& extension = u".preset") {
    auto const file = GetFileWithUniqueName(Dir(Utf8String(folder.Path().string())), name, extension);
    EXPECT_EQ(file.GetParent().FullPath(), Utf8String(folder.Path().string()));
    EXPECT_FALSE(file.Exists());
    return std::string(file.GetName());
  }

  ScratchFolder folder;
};

TEST_F(UniqueName, IsTheUsersNameWherePossible) {
  EXPECT_EQ(For(u"Mono"), "Mono.preset");
  EXPECT_EQ(For(u"5.1"), "5.1.preset");
  EXPECT_EQ(For(u"Stereo & mehr, f\u00fcr \U0001f3b5"), "Stereo & mehr, f\u00fcr \U0001f3b5.preset");
  EXPECT_TRUE(folder.Names().empty());
}

TEST_F(UniqueName, HasNothingThatAFileSystemReserves) {
  EXPECT_EQ(For(u"a/b\\c:d*e?f\"g<h>i|j"), "a_b_c_d_e_f_g_h_i_j.preset");
  EXPECT_EQ(For(Utf16String(u"a\0b\x1f\x7f\u0085", 6)), "a_b___.preset");
  EXPECT_EQ(For(u"../../etc/passwd"), "_._.._etc_passwd.preset");
  EXPECT_EQ(For(u".hidden"), "_hidden.preset");
}

TEST_F(UniqueName, IsNeverEmptyOrADot) {
  for (auto const* name : {u"", u" ", u".", u"..", u"...", u" . "}) {
    EXPECT_EQ(For(name), "_.preset");
  }
  EXPECT_EQ(For(u" Foo. ."), "Foo.preset");
}

TEST_F(UniqueName, IsNoDevice) {
  EXPECT_EQ(For(u"con"), "_con.preset");
  EXPECT_EQ(For(u"NUL.txt"), "_NUL.txt.preset");
  EXPECT_EQ(For(u"Lpt1"), "_Lpt1.preset");
  EXPECT_EQ(For(u"COM"), "COM.preset");
  EXPECT_EQ(For(u"Console"), "Console.preset");
}

TEST_F(UniqueName, HasANumberWhereAnotherHasTheName) {
  folder.Write("Foo.preset", "");
  EXPECT_EQ(For(u"Foo"), "Foo (2).preset");
  folder.Write("Foo (2).preset", "");
  EXPECT_EQ(For(u"Foo"), "Foo (3).preset");
  EXPECT_EQ(For(u"Foo", u".other"), "Foo.other");
}

TEST_F(UniqueName, AvoidsTheNamesOfDirectoriesAndLinks) {
  std::filesystem::create_directory(folder / "Dir.preset");
  std::filesystem::create_symlink(folder / "none", folder / "Link.preset");
  EXPECT_EQ(For(u"Dir"), "Dir (2).preset");
  EXPECT_EQ(For(u"Link"), "Link (2).preset");
}

TEST_F(UniqueName, AvoidsTwinsOfCase) {
  folder.Write("foo.preset", "");
  EXPECT_EQ(For(u"FOO"), "FOO (2).preset");
  folder.Write("\u00e9t\u00e9.preset", "");
  EXPECT_EQ(For(u"\u00c9T\u00c9"), "\u00c9T\u00c9 (2).preset");
}

TEST_F(UniqueName, AvoidsTwinsOfNormalisation) {
  folder.Write("e\u0301.preset", "");
  EXPECT_EQ(For(u"\u00e9"), "\u00e9 (2).preset");
  EXPECT_EQ(For(u"e\u0301"), "\u00e9 (2).preset");
  folder.Write("\u00fc.preset", "");
  EXPECT_EQ(For(u"U\u0308"), "\u00dc (2).preset");
}

TEST_F(UniqueName, HasAtMost255Bytes) {
  EXPECT_EQ(For(Utf16String(300, u'a')), std::string(248, 'a') + ".preset");
  folder.Write(std::string(248, 'a') + ".preset", "");
  EXPECT_EQ(For(Utf16String(300, u'a')), std::string(244, 'a') + " (2).preset");
}

TEST_F(UniqueName, IsCutBetweenCharacters) {
  Utf16String notes;
  for (int i = 0; i < 100; ++i) {
    notes += u"\U0001f3b5";
  }
  EXPECT_EQ(For(notes).size(), 248u + 7u);
  EXPECT_EQ(For(u"a" + notes).size(), 1u + 61u * 4u + 7u);
  EXPECT_EQ(For(Utf16String(247, u'a') + u". " + u"b"), std::string(247, 'a') + ".preset");
}

TEST_F(UniqueName, ReplacesHalvesOfSurrogatePairs) {
  EXPECT_EQ(For(Utf16String(1, u'\xd800') + u"a"), "\ufffda.preset");
}

TEST_F(UniqueName, NeedsRoomForAName) {
  EXPECT_THROW(For(u"a", Utf16String(255, u'x')), std::invalid_argument);
  EXPECT_THROW(For(u"a", Utf16String(300, u'x')), std::invalid_argument);
  EXPECT_EQ(For(u"ab", Utf16String(254, u'x')), "a" + std::string(254, 'x'));
}

TEST_F(UniqueName, NeedsADirectory) {
  EXPECT_THROW(GetFileWithUniqueName(Dir(Utf8String(folder / "none")), u"a", u".preset"),
               moxcore::config::mox_exception);
}

TEST_F(UniqueName, CanBeMadeWhateverTheText) {
  std::mt19937 random(3);
  for (int i = 0; i < 120; ++i) {
    Utf16String name;
    for (auto length = random() % 300; length > 0; --length) {
      name.push_back(static_cast<char16_t>(random() % 3 == 0 ? random() % 128 : random() % 65536));
    }
    auto const file = For(name);
    ASSERT_LE(file.size(), 255u);
    folder.Write(file, "x");
    ASSERT_EQ(folder.Read(file), "x");
  }
  EXPECT_EQ(folder.Names().size(), 120u);
}

}  // namespace
}  // namespace moxappsupport::presets
