#include "support/ScratchFolder.h"

#include <moxappsupport/LocalPresets.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace moxappsupport::presets {
namespace {

using moxcore::Utf8String;
using moxcore::filesupport::Dir;
using moxcore::filesupport::File;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tests::ScratchFolder;

// An environment variable for the time of a test.
class Variable {
 public:
  Variable(char const* name, char const* value) : mName(name) {
    if (auto const* const before = std::getenv(name)) {
      mBefore = before;
    }
    Set(value);
  }
  ~Variable() { Set(mBefore.has_value() ? mBefore->c_str() : nullptr); }
  Variable(Variable const&) = delete;
  Variable& operator=(Variable const&) = delete;

 private:
  void Set(char const* value) { value == nullptr ? unsetenv(mName) : setenv(mName, value, 1); }

  char const* mName;
  std::optional<std::string> mBefore;
};

TEST(LocalPresetsBaseDir, IsInTheUsersDataDirectory) {
  Variable const own("MOX_PRESETS_DIR", nullptr);
  Variable const data("XDG_DATA_HOME", "/data/of/me");
  EXPECT_EQ(GetLocalPresetsBaseDir().FullPath(), "/data/of/me/moxmediaui/Presets");
}

TEST(LocalPresetsBaseDir, IsAtHomeByDefault) {
  Variable const own("MOX_PRESETS_DIR", nullptr);
  Variable const home("HOME", "/me");
  for (auto const* value : {static_cast<char const*>(nullptr), "", "relative/path"}) {
    Variable const data("XDG_DATA_HOME", value);
    EXPECT_EQ(GetLocalPresetsBaseDir().FullPath(), "/me/.local/share/moxmediaui/Presets");
  }
}

TEST(LocalPresetsBaseDir, IsWhereTheEnvironmentSays) {
  Variable const data("XDG_DATA_HOME", "/data");
  Variable const own("MOX_PRESETS_DIR", "/portable/presets");
  EXPECT_EQ(GetLocalPresetsBaseDir().FullPath(), "/portable/presets");
  Variable const relative("MOX_PRESETS_DIR", "presets");
  EXPECT_EQ(GetLocalPresetsBaseDir().FullPath(), "/data/moxmediaui/Presets");
}

TEST(LocalPresetsBaseDir, IsWhereItWasSet) {
  Variable const own("MOX_PRESETS_DIR", "/portable");
  SetLocalPresetsBaseDir(Dir(Utf8String("/set")));
  EXPECT_EQ(GetLocalPresetsBaseDir().FullPath(), "/set");
  SetLocalPresetsBaseDir(std::nullopt);
  EXPECT_EQ(GetLocalPresetsBaseDir().FullPath(), "/portable");
}

class Collected : public testing::Test {
 protected:
  std::vector<std::string> Collect(char16_t const* extension = u".preset") {
    EXPECT_TRUE(CollectFiles(Dir(Utf8String(folder.Path().string())), extension, files));
    std::vector<std::string> names;
    for (auto const& file : files) {
      EXPECT_EQ(file.GetParent().FullPath(), Utf8String(folder.Path().string()));
      names.emplace_back(file.GetName());
    }
    return names;
  }

  ScratchFolder folder;
  std::vector<File> files;
};

TEST_F(Collected, FilesHaveExactlyTheExtension) {
  for (auto const* name : {"a.preset", "b.PRESET", "c.preset~", "d.presets", "preset", "e.xpreset",
                           "f.a.preset", "g preset", ".hidden.preset", "h.mox-tmp"}) {
    folder.Write(name, "x");
  }
  EXPECT_THAT(Collect(), ElementsAre(".hidden.preset", "a.preset", "f.a.preset"));
  EXPECT_THAT(Collect(u".presets"), ElementsAre("d.presets"));
}

TEST_F(Collected, FilesComeInOrderOfTheBytesOfTheirNames) {
  for (auto const* name :
       {"b.preset", "Z.preset", "\u00e9.preset", "a.preset", "\xff.preset", "a b.preset"}) {
    folder.Write(name, "x");
  }
  EXPECT_THAT(Collect(),
              ElementsAre("Z.preset", "a b.preset", "a.preset", "b.preset", "\u00e9.preset", "\xff.preset"));
}

TEST_F(Collected, FilesAreRegularOnes) {
  auto const target = folder.Write("a.preset", "x");
  std::filesystem::create_directory(folder / "dir.preset");
  std::filesystem::create_symlink(target, folder / "link.preset");
  std::filesystem::create_symlink(folder / "none", folder / "dangling.preset");
  ASSERT_EQ(mkfifo((folder / "pipe.preset").c_str(), 0600), 0);
  EXPECT_THAT(Collect(), ElementsAre("a.preset"));
}

TEST_F(Collected, FilesOfNoDirectoryAreAFailure) {
  files.emplace_back(Utf8String("before"));
  EXPECT_FALSE(CollectFiles(Dir(Utf8String(folder / "none")), u".preset", files));
  EXPECT_THAT(files, IsEmpty());
}

}  // namespace
}  // namespace moxappsupport::presets
