#include "support/ScratchFolder.h"

#include <moxcore/filesupport/DirLock.h>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <future>
#include <optional>
#include <string>
#include <thread>

namespace moxcore::filesupport {
namespace {

using std::chrono::milliseconds;
using tests::ScratchFolder;

Dir DirOf(ScratchFolder const& folder) {
  return Dir(Utf8String(folder.Path().string()));
}

TEST(DirLock, HasOneHolder) {
  ScratchFolder const folder;
  {
    DirLock const first(DirOf(folder));
    EXPECT_TRUE(first.IsHeld());
    EXPECT_FALSE(DirLock(DirOf(folder), milliseconds(0)).IsHeld());
  }
  EXPECT_TRUE(DirLock(DirOf(folder), milliseconds(0)).IsHeld());
  EXPECT_TRUE(folder.Names().empty());
}

TEST(DirLock, IsForEachDirectoryItsOwn) {
  ScratchFolder const one;
  ScratchFolder const other;
  DirLock const first(DirOf(one));
  EXPECT_TRUE(DirLock(DirOf(other), milliseconds(0)).IsHeld());
}

TEST(DirLock, IsWaitedFor) {
  ScratchFolder const folder;
  std::optional<DirLock> first;
  first.emplace(DirOf(folder));
  std::promise<void> asks;
  auto second = std::async(std::launch::async, [&] {
    asks.set_value();
    return DirLock(DirOf(folder), std::chrono::minutes(1)).IsHeld();
  });
  asks.get_future().wait();
  first.reset();
  EXPECT_TRUE(second.get());
}

TEST(DirLock, IsNotHeldWhereThereIsNoDirectory) {
  ScratchFolder const folder;
  folder.Write("file", "");
  EXPECT_FALSE(DirLock(Dir(Utf8String(folder / "none"))).IsHeld());
  EXPECT_FALSE(DirLock(Dir(Utf8String(folder / "file"))).IsHeld());
  EXPECT_FALSE(DirLock(Dir()).IsHeld());
  EXPECT_FALSE(DirLock(Dir(Utf8String(folder.Path().string()) + Utf8String("\0x", 2))).IsHeld());
}

TEST(DirLock, EndsWithTheProcessThatHoldsIt) {
  ScratchFolder const folder;
  auto const child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    DirLock const held(DirOf(folder));
    _exit(held.IsHeld() ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
  EXPECT_TRUE(DirLock(DirOf(folder), milliseconds(0)).IsHeld());
}

}  // namespace
}  // namespace moxcore::filesupport
