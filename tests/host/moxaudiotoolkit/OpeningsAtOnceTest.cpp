#include "SoundBytes.h"
#include "TemporaryFolder.h"

#include <moxaudiotoolkit/AudioFile.h>
#include <moxaudiotoolkit/AudioFileError.h>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace moxaudiotoolkit {
namespace {

using ::testing::IsEmpty;
using testing::TemporaryFolder;
using testing::WavBytes;

std::vector<std::uint8_t> NoSound() {
  std::string const text = "Once upon a time there was a sound.";
  return {text.begin(), text.end()};
}

std::vector<std::uint8_t> HalfAHeader() {
  std::vector<std::uint8_t> bytes = WavBytes({});
  bytes.resize(20);
  return bytes;
}

// What opening a file says, each thing once; nothing for a good one.
std::set<std::string> ReasonsOf(const std::string& path, int openings) {
  std::set<std::string> reasons;
  for (int i = 0; i < openings; ++i) {
    try {
      const AudioFile file(path);
    } catch (const AudioFileError& error) {
      reasons.insert(error.GetReason());
    }
  }
  return reasons;
}

TEST(OpeningsAtOnce, EachTellsItsOwnReason) {
  const TemporaryFolder folder;
  const std::vector<std::string> paths = {folder.Write("text", NoSound()),
                                          folder.Write("half", HalfAHeader()),
                                          folder.Write("good", WavBytes({}))};
  std::vector<std::set<std::string>> alone;
  for (const std::string& path : paths) {
    alone.push_back(ReasonsOf(path, 1));
  }
  ASSERT_EQ(alone[0].size(), 1u);
  ASSERT_EQ(alone[1].size(), 1u);
  ASSERT_NE(alone[0], alone[1]);
  ASSERT_THAT(alone[2], IsEmpty());
  std::vector<std::set<std::string>> together(paths.size());
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < paths.size(); ++i) {
    threads.emplace_back([&, i] { together[i] = ReasonsOf(paths[i], 1500); });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(together, alone);
}

// A number that is closed twice may be another file's by then.
TEST(OpeningsAtOnce, OneThatFailsClosesNoFileOfOthers) {
  const TemporaryFolder folder;
  const std::string bad = folder.Write("text", NoSound());
  std::atomic<bool> hasEnded = false;
  int lost = 0;
  std::thread others([&] {
    while (!hasEnded) {
      const int descriptor = open("/dev/null", O_RDONLY | O_CLOEXEC);
      std::this_thread::yield();
      lost += close(descriptor) != 0;
    }
  });
  ReasonsOf(bad, 3000);
  hasEnded = true;
  others.join();
  EXPECT_EQ(lost, 0);
}

TEST(OpeningsAtOnce, OneThatFailsLeavesNoFileOpen) {
  const TemporaryFolder folder;
  const std::string bad = folder.Write("text", NoSound());
  const int before = dup(0);
  close(before);
  ReasonsOf(bad, 10);
  const int after = dup(0);
  close(after);
  EXPECT_EQ(after, before);
}

}  // namespace
}  // namespace moxaudiotoolkit
