#include "../TemporaryFolder.h"
#include "MadeUpSources.h"

#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/peaks/PeakCache.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <thread>
#include <vector>

namespace moxaudiotoolkit {
namespace {

namespace fs = std::filesystem;

using testing::BuildPyramid;
using testing::NoiseSource;
using testing::ReadBytes;
using testing::SparseSource;
using testing::TemporaryFolder;

constexpr PeakCacheKey kKey{.size = 1000, .modified = 2000, .blockHash = 3000};

// RMS of upper levels goes through that of the finest once more.
void ExpectSamePoint(const PeakPoint& point, const PeakPoint& expected) {
  ASSERT_EQ(point.minimum, expected.minimum);
  ASSERT_EQ(point.maximum, expected.maximum);
  ASSERT_NEAR(point.rms, expected.rms, 0.003F * expected.rms);
  ASSERT_EQ(point.clipped, expected.clipped);
}

void ExpectSamePyramid(const PeakPyramid& pyramid, const PeakPyramid& expected) {
  ASSERT_EQ(pyramid.GetFormat(), expected.GetFormat());
  ASSERT_TRUE(pyramid.IsComplete());
  for (int level = 0; level < PeakPyramid::kLevelCount; ++level) {
    for (std::size_t channel = 0; channel < expected.GetChannelCount(); ++channel) {
      for (std::int64_t i = 0; i < expected.GetPointCount(level); i += 1 + i / 50) {
        ExpectSamePoint(pyramid.GetPoint(level, channel, i), expected.GetPoint(level, channel, i));
      }
      const std::int64_t last = expected.GetPointCount(level) - 1;
      ExpectSamePoint(pyramid.GetPoint(level, channel, last), expected.GetPoint(level, channel, last));
    }
  }
  const std::int64_t last = expected.GetPointCount(0) - 1;
  EXPECT_EQ(pyramid.GetPoint(0, 0, last), expected.GetPoint(0, 0, last));
}

class PeakCacheTest : public ::testing::Test {
 protected:
  std::size_t CountFiles() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(mFolder.GetPath()), {}));
  }

  TemporaryFolder mFolder;
  PeakCache mCache{mFolder.GetPath()};
};

TEST_F(PeakCacheTest, GivesBackWhatWasStored) {
  std::vector<std::shared_ptr<const SampleSource>> sources{
      std::make_shared<NoiseSource>(700'001, 2, 16), std::make_shared<NoiseSource>(300'017, 3, 0, 5.0F),
      std::make_shared<NoiseSource>(1, 1),
      std::make_shared<SparseSource>(
          SampleSourceProperties{.frames = 30'000'001, .sampleRate = 96000, .channelCount = 2},
          SparseSource::Clicks{{5'000'000, 0.3F}})};
  for (const auto& source : sources) {
    const auto pyramid = BuildPyramid(*source);
    EXPECT_EQ(mCache.Store(kKey, 77, *pyramid), "");
    const PeakCache::Entry entry = mCache.Load(kKey, pyramid->GetFormat());
    EXPECT_EQ(entry.problem, "");
    EXPECT_EQ(entry.fileHash, 77U);
    ASSERT_NE(entry.pyramid, nullptr);
    ExpectSamePyramid(*entry.pyramid, *pyramid);
  }
  EXPECT_EQ(CountFiles(), 1U) << "an entry replaces the one before and leaves nothing else";
}

TEST_F(PeakCacheTest, KeepsPeaksOfNoAudio) {
  const auto pyramid = BuildPyramid(NoiseSource(0, 1));
  EXPECT_EQ(mCache.Store(kKey, 1, *pyramid), "");
  EXPECT_NE(mCache.Load(kKey, pyramid->GetFormat()).pyramid, nullptr);
}

TEST_F(PeakCacheTest, HasNoEntryForAnotherSound) {
  const auto pyramid = BuildPyramid(NoiseSource(5000, 1));
  mCache.Store(kKey, 77, *pyramid);
  for (const PeakCacheKey& other : {PeakCacheKey{1001, 2000, 3000}, {1000, 2001, 3000}, {1000, 2000, 3001}}) {
    const PeakCache::Entry entry = mCache.Load(other, pyramid->GetFormat());
    EXPECT_EQ(entry.pyramid, nullptr);
    EXPECT_EQ(entry.problem, "");
  }
  // The same name, as a hash may give it.
  const PeakCacheKey other{1, 2, 3};
  fs::copy(mCache.GetEntryPath(kKey), mCache.GetEntryPath(other));
  EXPECT_EQ(mCache.Load(other, pyramid->GetFormat()).problem, "The kept peaks are of another sound.");
  EXPECT_FALSE(fs::exists(mCache.GetEntryPath(other)));
}

TEST_F(PeakCacheTest, HasNoEntryOfAnotherFormat) {
  const auto pyramid = BuildPyramid(NoiseSource(5000, 1));
  mCache.Store(kKey, 77, *pyramid);
  PeakPyramidFormat other = pyramid->GetFormat();
  other.frames = 5001;
  EXPECT_EQ(mCache.Load(kKey, other).pyramid, nullptr);
}

class DamagedPeakCacheTest : public PeakCacheTest {
 protected:
  DamagedPeakCacheTest() {
    mCache.Store(kKey, 77, *mPyramid);
    mGood = ReadBytes(mCache.GetEntryPath(kKey));
  }

  PeakCache::Entry LoadBytes(const std::vector<std::uint8_t>& bytes) {
    mFolder.Write(fs::path(mCache.GetEntryPath(kKey)).filename().string(), bytes);
    return mCache.Load(kKey, mPyramid->GetFormat());
  }

  std::shared_ptr<const PeakPyramid> mPyramid = BuildPyramid(NoiseSource(3000, 2, 16));
  std::vector<std::uint8_t> mGood;
};

TEST_F(DamagedPeakCacheTest, RefusesAnEntryWithAnyByteChanged) {
  for (std::size_t i = 0; i < mGood.size(); ++i) {
    auto bad = mGood;
    bad[i] ^= 1U << (i % 8);
    const PeakCache::Entry entry = LoadBytes(bad);
    ASSERT_EQ(entry.pyramid, nullptr) << "byte " << i;
    ASSERT_NE(entry.problem, "");
    ASSERT_FALSE(fs::exists(mCache.GetEntryPath(kKey)));
  }
}

TEST_F(DamagedPeakCacheTest, RefusesAnEntryOfAnyOtherLength) {
  for (std::size_t size = 0; size < mGood.size(); size += 1 + size / 9) {
    EXPECT_EQ(LoadBytes({mGood.begin(), mGood.begin() + static_cast<std::ptrdiff_t>(size)}).problem,
              "The kept peaks are cut short.");
  }
  auto longer = mGood;
  longer.push_back(0);
  EXPECT_EQ(LoadBytes(longer).problem, "The kept peaks are damaged.");
}

TEST_F(DamagedPeakCacheTest, TellsForeignFilesOtherByteOrdersAndVersionsApart) {
  EXPECT_EQ(LoadBytes(std::vector<std::uint8_t>(500, 'x')).problem, "The kept peaks are of a foreign kind.");
  auto swapped = mGood;
  std::reverse(swapped.begin(), swapped.begin() + 8);
  EXPECT_EQ(LoadBytes(swapped).problem, "The kept peaks are in the wrong byte order.");
  auto newer = mGood;
  newer[8] = 2;
  EXPECT_EQ(LoadBytes(newer).problem, "The kept peaks are of another version.");
}

TEST_F(DamagedPeakCacheTest, IsNotStoppedByAFolderInPlaceOfAnEntry) {
  fs::remove(mCache.GetEntryPath(kKey));
  fs::create_directory(mCache.GetEntryPath(kKey));
  const PeakCache::Entry entry = mCache.Load(kKey, mPyramid->GetFormat());
  EXPECT_EQ(entry.pyramid, nullptr);
  EXPECT_NE(entry.problem, "");
}

TEST_F(PeakCacheTest, RefusesAPyramidThatIsNotComplete) {
  const PeakPyramid part(PeakPyramidFormat{.frames = 1000, .sampleRate = 48000, .channelCount = 1});
  EXPECT_NE(mCache.Store(kKey, 1, part), "");
  EXPECT_EQ(CountFiles(), 0U);
}

TEST_F(PeakCacheTest, TheLeastRecentlyUsedLeaveFirst) {
  const auto pyramid = BuildPyramid(NoiseSource(200'000, 1));
  mCache.Store(kKey, 1, *pyramid);
  const auto size = fs::file_size(mCache.GetEntryPath(kKey));
  fs::remove(mCache.GetEntryPath(kKey));
  const PeakCache small(mFolder.GetPath(), size * 3 + size / 2);
  const auto key = [](std::int64_t i) { return PeakCacheKey{i, i, 0}; };
  const auto age = [&](std::int64_t i, int minutes) {
    fs::last_write_time(small.GetEntryPath(key(i)),
                        fs::file_time_type::clock::now() - std::chrono::minutes(minutes));
  };
  for (std::int64_t i = 1; i <= 3; ++i) {
    EXPECT_EQ(small.Store(key(i), 1, *pyramid), "");
    age(i, static_cast<int>(100 - i));
  }
  EXPECT_NE(small.Load(key(1), pyramid->GetFormat()).pyramid, nullptr);  // used just now
  EXPECT_EQ(small.Store(key(4), 1, *pyramid), "");
  EXPECT_TRUE(fs::exists(small.GetEntryPath(key(1))));
  EXPECT_FALSE(fs::exists(small.GetEntryPath(key(2))));
  EXPECT_TRUE(fs::exists(small.GetEntryPath(key(3))));
  EXPECT_TRUE(fs::exists(small.GetEntryPath(key(4))));
}

TEST_F(PeakCacheTest, DeletesWhatAKilledProcessLeftAndNothingElse) {
  mFolder.Write(".1-1.pending", {1});
  mFolder.Write(".1-2.pending", {1});
  mFolder.Write("notes.txt", {1});
  fs::last_write_time(mFolder / ".1-1.pending", fs::file_time_type::clock::now() - std::chrono::hours(2));
  fs::last_write_time(mFolder / "notes.txt", fs::file_time_type::clock::now() - std::chrono::hours(2));
  mCache.Store(kKey, 1, *BuildPyramid(NoiseSource(100, 1)));
  EXPECT_FALSE(fs::exists(mFolder / ".1-1.pending"));
  EXPECT_TRUE(fs::exists(mFolder / ".1-2.pending"));
  EXPECT_TRUE(fs::exists(mFolder / "notes.txt"));
}

TEST_F(PeakCacheTest, TellsWhyNothingCanBeKept) {
  const auto pyramid = BuildPyramid(NoiseSource(100'000, 1));
  mFolder.Write("file", {1});
  EXPECT_NE(PeakCache(mFolder / "file").Store(kKey, 1, *pyramid), "");
  EXPECT_EQ(PeakCache(mFolder / "file").Load(kKey, pyramid->GetFormat()).pyramid, nullptr);
  EXPECT_NE(PeakCache("").Store(kKey, 1, *pyramid), "");
  EXPECT_EQ(PeakCache("").Load(kKey, pyramid->GetFormat()).pyramid, nullptr);
  EXPECT_NE(PeakCache(mFolder.GetPath(), 100).Store(kKey, 1, *pyramid), "") << "larger than the limit";
  EXPECT_EQ(CountFiles(), 1U);
}

TEST_F(PeakCacheTest, MakesItsFolderAgainWhenThatHasVanished) {
  const PeakCache cache(mFolder / "a/b");
  const auto pyramid = BuildPyramid(NoiseSource(100, 1));
  EXPECT_EQ(cache.Store(kKey, 1, *pyramid), "");
  fs::remove_all(mFolder / "a");
  EXPECT_EQ(cache.Load(kKey, pyramid->GetFormat()).problem, "");
  EXPECT_EQ(cache.Store(kKey, 1, *pyramid), "");
  EXPECT_NE(cache.Load(kKey, pyramid->GetFormat()).pyramid, nullptr);
}

// A limit on the size of files stops writing in the middle, as a full disk does.
TEST_F(PeakCacheTest, AFullDiskLeavesTheOldEntryAndNothingElse) {
  const auto small = BuildPyramid(NoiseSource(1000, 1));
  const auto large = BuildPyramid(NoiseSource(1'000'000, 1));
  ASSERT_EQ(mCache.Store(kKey, 1, *small), "");
  const pid_t child = fork();
  if (child == 0) {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{20'000, 20'000};
    setrlimit(RLIMIT_FSIZE, &limit);
    _exit(mCache.Store(kKey, 2, *large).empty() ? 1 : 0);
  }
  int status = -1;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  EXPECT_EQ(CountFiles(), 1U);
  EXPECT_NE(mCache.Load(kKey, small->GetFormat()).pyramid, nullptr);
}

TEST_F(PeakCacheTest, ProcessesAndThreadsThatStoreTheSameEntryNeverTearIt) {
  const auto pyramid = BuildPyramid(NoiseSource(200'000, 1, 16));
  std::vector<pid_t> children;
  for (int i = 0; i < 2; ++i) {
    children.push_back(fork());
    if (children.back() == 0) {
      for (int n = 0; n < 15; ++n) {
        mCache.Store(kKey, 5, *pyramid);
      }
      _exit(0);
    }
  }
  std::vector<std::thread> threads;
  for (int i = 0; i < 2; ++i) {
    threads.emplace_back([&] {
      for (int n = 0; n < 15; ++n) {
        EXPECT_EQ(mCache.Store(kKey, 5, *pyramid), "");
      }
    });
  }
  for (int n = 0; n < 60; ++n) {
    EXPECT_EQ(mCache.Load(kKey, pyramid->GetFormat()).problem, "");
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  for (const pid_t child : children) {
    int status = 0;
    waitpid(child, &status, 0);
  }
  EXPECT_NE(mCache.Load(kKey, pyramid->GetFormat()).pyramid, nullptr);
  EXPECT_EQ(CountFiles(), 1U);
}

TEST_F(PeakCacheTest, TheKeyTellsFilesApart) {
  std::vector<std::uint8_t> bytes(100'000, 7);
  const std::string path = mFolder.Write("a", bytes);
  const PeakCacheKey key = MakePeakCacheKey(path);
  EXPECT_EQ(key.size, 100'000);
  EXPECT_EQ(MakePeakCacheKey(path), key);
  const auto time = fs::last_write_time(path);
  for (const std::size_t place : {std::size_t{0}, bytes.size() - 1}) {
    auto other = bytes;
    other[place] = 8;
    mFolder.Write("a", other);
    fs::last_write_time(path, time);
    const PeakCacheKey changed = MakePeakCacheKey(path);
    EXPECT_EQ(changed.modified, key.modified);
    EXPECT_NE(changed.blockHash, key.blockHash);
  }
  mFolder.Write("a", bytes);
  fs::last_write_time(path, time + std::chrono::nanoseconds(1));
  EXPECT_EQ(MakePeakCacheKey(path).modified, key.modified + 1);
  EXPECT_EQ(MakePeakCacheKey(path).blockHash, key.blockHash);
  EXPECT_THROW(MakePeakCacheKey(mFolder / "none"), AudioFileError);
}

TEST_F(PeakCacheTest, TheHashOfAFileTellsEveryByte) {
  std::vector<std::uint8_t> bytes(3'000'000, 7);
  const std::atomic<bool> go{false};
  const auto hash = HashFile(mFolder.Write("a", bytes), go);
  ASSERT_TRUE(hash);
  EXPECT_EQ(HashFile(mFolder / "a", go), hash);
  for (const std::size_t place : {0, 1'048'576, 1'500'001, 2'999'999}) {
    auto other = bytes;
    other[place] ^= 1;
    EXPECT_NE(HashFile(mFolder.Write("a", other), go), hash);
  }
  bytes.push_back(0);
  EXPECT_NE(HashFile(mFolder.Write("a", bytes), go), hash);
  const std::atomic<bool> stop{true};
  EXPECT_EQ(HashFile(mFolder / "a", stop), std::nullopt);
}

TEST(PeakCacheDirectory, FollowsTheRulesForCaches) {
  const char* const cache = getenv("XDG_CACHE_HOME");
  const std::string before = cache != nullptr ? cache : "";
  setenv("XDG_CACHE_HOME", "/somewhere", 1);
  EXPECT_EQ(PeakCache::GetDefaultDirectory(), "/somewhere/moxmediaui/peaks");
  setenv("XDG_CACHE_HOME", "not/absolute", 1);
  EXPECT_EQ(PeakCache::GetDefaultDirectory(), std::string(getenv("HOME")) + "/.cache/moxmediaui/peaks");
  unsetenv("XDG_CACHE_HOME");
  EXPECT_EQ(PeakCache::GetDefaultDirectory(), std::string(getenv("HOME")) + "/.cache/moxmediaui/peaks");
  if (cache != nullptr) {
    setenv("XDG_CACHE_HOME", before.c_str(), 1);
  }
}

}  // namespace
}  // namespace moxaudiotoolkit
