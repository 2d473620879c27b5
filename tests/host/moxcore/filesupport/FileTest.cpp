#include "support/ScratchFolder.h"

#include <moxcore/config/Errors.h>
#include <moxcore/filesupport/File.h>
#include <moxcore/filesupport/FileUtils.h>
#include <moxcore/filesupport/PlatformByteStream.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

namespace moxcore::filesupport {
namespace {

using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;
using tests::ScratchFolder;

File FileIn(ScratchFolder const& folder, std::string_view name) {
  return File(Dir(Utf8String(folder.Path().string())), name);
}

TEST(Paths, JoinWithOneSlash) {
  Dir const dir(Utf8String("/a/b//"));
  EXPECT_EQ(dir.FullPath(), "/a/b");
  EXPECT_EQ(Dir(dir, "c", false).FullPath(), "/a/b/c");
  EXPECT_EQ(Dir(dir, u"\u00e9", false).FullPath(), "/a/b/\u00e9");
  EXPECT_EQ(Dir(Dir(Utf8String("/")), "c", false).FullPath(), "/c");
  EXPECT_EQ(File(dir, "c.preset").FullPath(), "/a/b/c.preset");
}

TEST(Paths, TellFolderAndName) {
  File const file(Utf8String("/a/b.c"));
  EXPECT_EQ(file.GetParent().FullPath(), "/a");
  EXPECT_EQ(file.GetName(), "b.c");
  EXPECT_EQ(File(Utf8String("/b")).GetParent().FullPath(), "/");
  EXPECT_EQ(File(Utf8String("b")).GetParent().FullPath(), ".");
}

TEST(Files, CreateMakesAnEmptyFileAndTellsSo) {
  ScratchFolder const folder;
  EXPECT_TRUE(FileIn(folder, "a").Create(false));
  EXPECT_TRUE(FileIn(folder, "a").Exists());
  EXPECT_EQ(folder.Read("a"), "");
}

TEST(Files, CreateLeavesAFileThatIsThere) {
  ScratchFolder const folder;
  folder.Write("a", "content");
  EXPECT_FALSE(FileIn(folder, "a").Create(false));
  EXPECT_EQ(folder.Read("a"), "content");
}

TEST(Files, CreateEmptiesAFileOnRequest) {
  ScratchFolder const folder;
  folder.Write("a", "content");
  EXPECT_FALSE(FileIn(folder, "a").Create(true));
  EXPECT_EQ(folder.Read("a"), "");
}

TEST(Files, FailWithThePathAndTheReason) {
  ScratchFolder const folder;
  try {
    FileIn(folder, "no/such").Create(false);
    FAIL();
  } catch (config::mox_exception const& exception) {
    EXPECT_THAT(exception.what(), HasSubstr(folder / "no/such"));
    EXPECT_THAT(exception.what(), HasSubstr("No such file or directory"));
  }
}

TEST(Files, AreNeverAnotherFileBecauseOfANul) {
  ScratchFolder const folder;
  folder.Write("a", "content");
  File const file(Utf8String(folder / "a") + Utf8String("\0.preset", 8));
  EXPECT_FALSE(file.Exists());
  EXPECT_THROW(file.Create(true), config::mox_exception);
  EXPECT_THROW(file.Delete(), config::mox_exception);
  EXPECT_THROW(IPlatformByteStream(file, IPlatformByteStream::kRead), config::mox_exception);
  EXPECT_EQ(folder.Read("a"), "content");
}

TEST(Files, DeleteIsDoneWhenNothingIsThere) {
  ScratchFolder const folder;
  folder.Write("a", "content");
  FileIn(folder, "a").Delete();
  EXPECT_FALSE(folder.Has("a"));
  FileIn(folder, "a").Delete();
  FileIn(folder, "no/such").Delete();
}

TEST(Files, DeleteDoesNotFollowALink) {
  ScratchFolder const folder;
  folder.Write("a", "content");
  std::filesystem::create_symlink(folder / "a", folder / "link");
  FileIn(folder, "link").Delete();
  EXPECT_TRUE(folder.Has("a"));
  EXPECT_FALSE(folder.Has("link"));
}

TEST(Files, ExistOnlyAsRegularFiles) {
  ScratchFolder const folder;
  std::filesystem::create_directory(folder / "dir");
  EXPECT_FALSE(FileIn(folder, "dir").Exists());
  EXPECT_FALSE(FileIn(folder, "none").Exists());
}

TEST(ByteStream, ReadsBlockAfterBlock) {
  ScratchFolder const folder;
  folder.Write("a", "0123456789");
  IPlatformByteStream stream(FileIn(folder, "a"), 1);
  EXPECT_EQ(stream.Length(), 10u);
  std::string text(10, ' ');
  stream.ReadBlock(text.data(), 4);
  stream.ReadBlock(text.data() + 4, 6);
  EXPECT_EQ(text, "0123456789");
}

TEST(ByteStream, FailsAtTheEnd) {
  ScratchFolder const folder;
  folder.Write("a", "0123");
  IPlatformByteStream stream(FileIn(folder, "a"), 1);
  std::string text(5, ' ');
  EXPECT_THROW(stream.ReadBlock(text.data(), 5), config::mox_exception);
}

TEST(ByteStream, OpensNeitherFoldersNorPipesNorNothing) {
  ScratchFolder const folder;
  std::filesystem::create_directory(folder / "dir");
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  for (auto const* name : {"dir", "pipe", "none"}) {
    EXPECT_THROW(IPlatformByteStream(FileIn(folder, name), 1), config::mox_exception) << name;
  }
  folder.Write("a", "");
  EXPECT_THROW(IPlatformByteStream(FileIn(folder, "a"), 2), std::invalid_argument);
}

TEST(Directories, ListWhatIsInThem) {
  ScratchFolder const folder;
  folder.Write("file", "");
  std::filesystem::create_directory(folder / "dir");
  std::filesystem::create_symlink(folder / "file", folder / "link");
  std::vector<std::pair<std::string, DirEntryKind>> found;
  for (auto const& entry : Dir(Utf8String(folder.Path().string())).GetEntries()) {
    found.emplace_back(std::string(entry.name.begin(), entry.name.end()), entry.kind);
  }
  EXPECT_THAT(found, UnorderedElementsAre(std::pair(std::string("file"), DirEntryKind::kFile),
                                          std::pair(std::string("dir"), DirEntryKind::kDirectory),
                                          std::pair(std::string("link"), DirEntryKind::kOther)));
  EXPECT_THROW(Dir(Utf8String(folder / "none")).GetEntries(), config::mox_exception);
}

TEST(Directories, AreMadeAndDeleted) {
  ScratchFolder const folder;
  Dir const dir(Dir(Utf8String(folder.Path().string())), "dir", true);
  EXPECT_TRUE(dir.Exists());
  dir.Create();
  dir.Delete();
  EXPECT_FALSE(dir.Exists());
  dir.Delete();
  folder.Write("file", "");
  EXPECT_THROW(Dir(Utf8String(folder / "file")).Create(), config::mox_exception);
}

TEST(Directories, AreMadeWithTheirParents) {
  ScratchFolder const folder;
  EXPECT_TRUE(FileUtils::EnsureDirectoryExists(Utf8String(folder / "a/b/c")));
  EXPECT_TRUE(std::filesystem::is_directory(folder / "a/b/c"));
  EXPECT_EQ(std::filesystem::status(folder / "a").permissions(), std::filesystem::perms::owner_all);
  EXPECT_TRUE(FileUtils::EnsureDirectoryExists(Utf8String(folder / "a/b/c")));
}

TEST(Directories, CannotBeMadeBelowAFile) {
  ScratchFolder const folder;
  folder.Write("file", "");
  EXPECT_FALSE(FileUtils::EnsureDirectoryExists(Utf8String(folder / "file")));
  EXPECT_FALSE(FileUtils::EnsureDirectoryExists(Utf8String(folder / "file/a")));
  EXPECT_FALSE(FileUtils::EnsureDirectoryExists(Utf8String()));
}

}  // namespace
}  // namespace moxcore::filesupport
