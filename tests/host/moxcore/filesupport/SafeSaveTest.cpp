#include "support/ScratchFolder.h"

#include <moxcore/config/Errors.h>
#include <moxcore/filesupport/FileUtils.h>
#include <moxcore/filesupport/SafeSave.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace moxcore::filesupport {
namespace {

using ::testing::ElementsAre;
using tests::ScratchFolder;

File FileIn(ScratchFolder const& folder, std::string_view name) {
  return File(Dir(Utf8String(folder.Path().string())), name);
}

TEST(SafeSave, ReplacesTheTargetOnCommit) {
  ScratchFolder const folder;
  folder.Write("a", "old");
  SafeSave save(FileIn(folder, "a"));
  FileUtils::SimpleWriteStringToFile(save.GetTempFile().FullPath(), "new");
  EXPECT_EQ(folder.Read("a"), "old");
  save.Commit();
  EXPECT_EQ(folder.Read("a"), "new");
  EXPECT_THAT(folder.Names(), ElementsAre("a"));
}

TEST(SafeSave, MakesTheTargetIfThereIsNone) {
  ScratchFolder const folder;
  SafeSave save(FileIn(folder, "a"));
  FileUtils::SimpleWriteStringToFile(save.GetTempFile().FullPath(), "new");
  save.Commit();
  EXPECT_EQ(folder.Read("a"), "new");
}

TEST(SafeSave, LeavesTheTargetWithoutACommit) {
  ScratchFolder const folder;
  folder.Write("a", "old");
  {
    SafeSave save(FileIn(folder, "a"));
    FileUtils::SimpleWriteStringToFile(save.GetTempFile().FullPath(), "new");
    EXPECT_EQ(folder.Names().size(), 2u);
  }
  EXPECT_EQ(folder.Read("a"), "old");
  EXPECT_THAT(folder.Names(), ElementsAre("a"));
}

TEST(SafeSave, WritesBesideTheTargetUnderANameOfItsOwn) {
  ScratchFolder const folder;
  std::string const longest(255, 'n');
  SafeSave first(FileIn(folder, longest));
  SafeSave second(FileIn(folder, longest));
  EXPECT_EQ(first.GetTempFile().GetParent(), Dir(Utf8String(folder.Path().string())));
  EXPECT_TRUE(first.GetTempFile().GetName().ends_with(SafeSave::kEnding));
  EXPECT_NE(first.GetTempFile(), second.GetTempFile());
  FileUtils::SimpleWriteStringToFile(first.GetTempFile().FullPath(), "first");
  FileUtils::SimpleWriteStringToFile(second.GetTempFile().FullPath(), "second");
  second.Commit();
  first.Commit();
  EXPECT_EQ(folder.Read(longest), "first");
}

TEST(SafeSave, KeepsThePermissionsOfTheTarget) {
  ScratchFolder const folder;
  folder.Write("a", "old");
  std::filesystem::permissions(folder / "a", std::filesystem::perms::owner_read);
  SafeSave save(FileIn(folder, "a"));
  FileUtils::SimpleWriteStringToFile(save.GetTempFile().FullPath(), "new");
  save.Commit();
  EXPECT_EQ(std::filesystem::status(folder / "a").permissions(), std::filesystem::perms::owner_read);
}

TEST(SafeSave, ReplacesALinkAndNotWhatItMeans) {
  ScratchFolder const folder;
  folder.Write("far", "far");
  std::filesystem::create_symlink(folder / "far", folder / "a");
  SafeSave save(FileIn(folder, "a"));
  FileUtils::SimpleWriteStringToFile(save.GetTempFile().FullPath(), "new");
  save.Commit();
  EXPECT_EQ(folder.Read("far"), "far");
  EXPECT_EQ(folder.Read("a"), "new");
  EXPECT_FALSE(std::filesystem::is_symlink(folder / "a"));
}

TEST(SafeSave, FailsWhereThereIsNothingToCommit) {
  ScratchFolder const folder;
  folder.Write("a", "old");
  SafeSave save(FileIn(folder, "a"));
  EXPECT_THROW(save.Commit(), config::mox_exception);
  EXPECT_EQ(folder.Read("a"), "old");
}

TEST(SafeSave, FailsOverAFolderAndLeavesNothing) {
  ScratchFolder const folder;
  std::filesystem::create_directory(folder / "a");
  {
    SafeSave save(FileIn(folder, "a"));
    FileUtils::SimpleWriteStringToFile(save.GetTempFile().FullPath(), "new");
    EXPECT_THROW(save.Commit(), config::mox_exception);
  }
  EXPECT_THAT(folder.Names(), ElementsAre("a"));
}

TEST(SafeSave, FailsInAFolderThatVanished) {
  ScratchFolder const folder;
  std::filesystem::create_directory(folder / "dir");
  std::optional<SafeSave> save;
  save.emplace(File(Utf8String(folder / "dir/a")));
  FileUtils::SimpleWriteStringToFile(save->GetTempFile().FullPath(), "new");
  std::filesystem::remove_all(folder / "dir");
  EXPECT_THROW(save->Commit(), config::mox_exception);
  save.reset();
  EXPECT_TRUE(folder.Names().empty());
}

// A file that was written to so long ago.
void WriteAged(ScratchFolder const& folder, std::string_view name, std::chrono::hours age) {
  folder.Write(name, "left");
  std::filesystem::last_write_time(folder / name, std::filesystem::file_time_type::clock::now() - age);
}

TEST(SafeSaveLeftovers, AreDeletedOnceNoSaveCanBeUnderWay) {
  ScratchFolder const folder;
  std::string const old = ".11111111-2222-4333-8444-555555555555.mox-tmp";
  std::string const young = ".99999999-2222-4333-8444-555555555555.mox-tmp";
  WriteAged(folder, old, std::chrono::hours(25));
  WriteAged(folder, young, std::chrono::hours(23));
  SafeSave save(FileIn(folder, "a"));
  FileUtils::SimpleWriteStringToFile(save.GetTempFile().FullPath(), "new");
  SafeSave::DeleteLeftovers(Dir(Utf8String(folder.Path().string())));
  save.Commit();
  EXPECT_THAT(folder.Names(), ElementsAre(young, "a"));
}

TEST(SafeSaveLeftovers, AreToldFromWhatAUserKeeps) {
  ScratchFolder const folder;
  std::vector<std::string> const names = {".11111111-2222-4333-8444-55555555555.mox-tmp",
                                          ".A1111111-2222-4333-8444-555555555555.mox-tmp",
                                          ".mox-tmp",
                                          "11111111-2222-4333-8444-555555555555.mox-tmp",
                                          "a.mox-tmp",
                                          "a.preset"};
  for (auto const& name : names) {
    WriteAged(folder, name, std::chrono::hours(1000));
  }
  std::filesystem::create_directory(folder / ".22222222-2222-4333-8444-555555555555.mox-tmp");
  std::filesystem::create_symlink(folder / "a.preset",
                                  folder / ".33333333-2222-4333-8444-555555555555.mox-tmp");
  SafeSave::DeleteLeftovers(Dir(Utf8String(folder.Path().string())));
  EXPECT_EQ(folder.Names().size(), names.size() + 2);
}

TEST(SafeSaveLeftovers, OfNoFolderAreNone) {
  ScratchFolder const folder;
  SafeSave::DeleteLeftovers(Dir(Utf8String(folder / "none")));
  EXPECT_TRUE(folder.Names().empty());
}

TEST(WriteString, WritesTheWholeTextAnew) {
  ScratchFolder const folder;
  std::string const text(3 << 20, 'x');
  FileUtils::SimpleWriteStringToFile(Utf8String(folder / "a"), text);
  EXPECT_EQ(folder.Read("a"), text);
  FileUtils::SimpleWriteStringToFile(Utf8String(folder / "a"), "short");
  EXPECT_EQ(folder.Read("a"), "short");
  EXPECT_THROW(FileUtils::SimpleWriteStringToFile(Utf8String(folder / "no/such"), "x"),
               config::mox_exception);
}

TEST(WriteString, FailsOnAFullMedium) {
  if (!std::filesystem::exists("/dev/full")) {
    return;
  }
  EXPECT_THROW(FileUtils::SimpleWriteStringToFile("/dev/full", "x"), config::mox_exception);
}

}  // namespace
}  // namespace moxcore::filesupport
