#include "../SoundBytes.h"
#include "../TemporaryFolder.h"
#include "MadeUpSources.h"

#include <moxaudiotoolkit/AudioFileWriter.h>
#include <moxaudiotoolkit/peaks/FilePeaks.h>
#include <moxaudiotoolkit/peaks/PeakCache.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <thread>

namespace moxaudiotoolkit {
namespace {

namespace fs = std::filesystem;

using testing::TemporaryFolder;
using State = FilePeaks::State;

class FilePeaksTest : public ::testing::Test {
 protected:
  // A mono file with one loud sample.
  std::string Write(float loudest, std::size_t frames = 300'000, const std::string& name = "a.wav") const {
    std::vector<std::vector<float>> samples(1, std::vector<float>(frames));
    samples[0][frames / 3] = loudest;
    WriteAudioFile(mFolder / name, AudioFileFormat::kWavInt16, 48000, samples);
    return mFolder / name;
  }

  static float Loudest(const FilePeaks& peaks) {
    return peaks.GetPyramid()->GetRange(0, 0, peaks.GetPyramid()->GetFrameCount()).maximum;
  }

  std::size_t CountEntries() const {
    return fs::exists(mFolder / "cache")
               ? static_cast<std::size_t>(std::distance(fs::directory_iterator(mFolder / "cache"), {}))
               : 0;
  }

  TemporaryFolder mFolder;
  std::shared_ptr<const PeakCache> mCache = std::make_shared<PeakCache>(mFolder / "cache");
};

TEST_F(FilePeaksTest, BuildsOnceAndTakesTheSecondFromTheCache) {
  const std::string path = Write(0.5F);
  {
    FilePeaks first(path, {.cache = mCache});
    first.Wait();
    EXPECT_EQ(first.GetState(), State::kDone);
    EXPECT_EQ(first.GetProblem(), "");
    EXPECT_FALSE(first.CameFromCache());
    EXPECT_EQ(first.GetProgress(), 1.0);
    EXPECT_EQ(Loudest(first), 0.5F);
    EXPECT_EQ(first.GetSource()->GetProperties().frames, 300'000);
  }
  EXPECT_EQ(CountEntries(), 1U);
  FilePeaks second(path, {.cache = mCache});
  second.Wait();
  EXPECT_EQ(second.GetState(), State::kDone);
  EXPECT_TRUE(second.CameFromCache());
  EXPECT_EQ(Loudest(second), 0.5F);
}

TEST_F(FilePeaksTest, WorksWithoutACache) {
  FilePeaks peaks(Write(0.25F));
  peaks.Wait();
  EXPECT_EQ(peaks.GetState(), State::kDone);
  EXPECT_EQ(Loudest(peaks), 0.25F);
}

TEST_F(FilePeaksTest, KnowsAFileAgainUnderAnotherName) {
  const std::string path = Write(0.5F);
  FilePeaks(path, {.cache = mCache}).Wait();
  fs::rename(path, mFolder / "b.wav");
  FilePeaks moved(mFolder / "b.wav", {.cache = mCache});
  moved.Wait();
  EXPECT_TRUE(moved.CameFromCache());
}

// The time and all blocks that the key looks at are the same: only the whole tells.
TEST_F(FilePeaksTest, RebuildsWhenTheWholeFileIsNotThatOfTheEntry) {
  const std::string path = Write(0.5F, 3'000'000);
  FilePeaks(path, {.cache = mCache}).Wait();
  const auto time = fs::last_write_time(path);
  {
    std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(44 + 2 * 123'456);
    file.write("\0\x60", 2);
  }
  fs::last_write_time(path, time);
  std::atomic<int> changes{0};
  FilePeaks peaks(path, {.cache = mCache, .onChange = [&] { ++changes; }});
  peaks.Wait();
  EXPECT_EQ(peaks.GetState(), State::kDone);
  EXPECT_FALSE(peaks.CameFromCache());
  EXPECT_EQ(Loudest(peaks), 0.75F);
  EXPECT_GE(changes, 3);
  FilePeaks again(path, {.cache = mCache});
  again.Wait();
  EXPECT_TRUE(again.CameFromCache());
  EXPECT_EQ(Loudest(again), 0.75F);
}

TEST_F(FilePeaksTest, NoticesAFileThatChangesUnderTheView) {
  const std::string path = Write(0.5F);
  FilePeaks peaks(path, {.cache = mCache});
  peaks.Wait();
  EXPECT_FALSE(peaks.PollForChange());
  Write(0.25F, 400'000);
  EXPECT_TRUE(peaks.PollForChange());
  EXPECT_NE(peaks.GetPyramid(), nullptr);
  peaks.Wait();
  EXPECT_EQ(peaks.GetState(), State::kDone);
  EXPECT_EQ(peaks.GetPyramid()->GetFrameCount(), 400'000);
  EXPECT_EQ(Loudest(peaks), 0.25F);
  EXPECT_FALSE(peaks.PollForChange());
}

TEST_F(FilePeaksTest, ReadsAFileThatIsBeingWrittenToItsEndBeforeItBeginsAnew) {
  const std::string path = Write(0.5F);
  const auto gated = std::make_shared<testing::GatedSource>(OpenSampleSource(path));
  FilePeaks peaks(path, {.threadCount = 1, .open = [&](const std::string&) { return gated; }});
  const auto grow = [&] { std::ofstream(path, std::ios::app) << "more"; };
  grow();
  EXPECT_FALSE(peaks.PollForChange());
  grow();
  EXPECT_FALSE(peaks.PollForChange());
  EXPECT_TRUE(peaks.PollForChange()) << "it stands still";
  gated->OpenUpTo(300'000);
  peaks.Wait();
  EXPECT_EQ(peaks.GetState(), State::kDone);
  grow();
  EXPECT_TRUE(peaks.PollForChange()) << "nothing is interrupted";
  peaks.Wait();
  EXPECT_FALSE(peaks.PollForChange());
}

TEST_F(FilePeaksTest, KeepsThePictureOfAFileThatVanishesAndTakesItsSuccessor) {
  const std::string path = Write(0.5F);
  FilePeaks peaks(path);
  peaks.Wait();
  fs::remove(path);
  EXPECT_TRUE(peaks.PollForChange());
  peaks.Wait();
  EXPECT_EQ(peaks.GetState(), State::kFailed);
  EXPECT_NE(peaks.GetProblem(), "");
  EXPECT_EQ(Loudest(peaks), 0.5F);
  EXPECT_FALSE(peaks.PollForChange());
  Write(0.125F);
  EXPECT_TRUE(peaks.PollForChange());
  peaks.Wait();
  EXPECT_EQ(peaks.GetState(), State::kDone);
  EXPECT_EQ(peaks.GetProblem(), "");
  EXPECT_EQ(Loudest(peaks), 0.125F);
}

TEST_F(FilePeaksTest, TellsWhyAFileCannotBeOpened) {
  FilePeaks none(mFolder / "none.wav", {.cache = mCache});
  none.Wait();
  EXPECT_EQ(none.GetState(), State::kFailed);
  EXPECT_NE(none.GetProblem(), "");
  EXPECT_EQ(none.GetPyramid(), nullptr);
  EXPECT_EQ(none.GetProgress(), 0.0);
}

TEST_F(FilePeaksTest, TellsTheSourceBeforeThePeaksAndTheReasonWithoutTheName) {
  FilePeaks missing(mFolder / "missing.wav");
  missing.Wait();
  EXPECT_EQ(missing.GetReason(), "The file can't be opened: there is no such file or folder.");
  EXPECT_NE(missing.GetProblem(), missing.GetReason());
  const auto gated =
      std::make_shared<testing::GatedSource>(std::make_shared<testing::NoiseSource>(300'000, 2));
  std::atomic<bool> open = false;
  FilePeaks* looked = nullptr;
  std::atomic<bool> sourceCameFirst = false;
  {
    FilePeaks peaks(Write(0.5F),
                    {.onChange =
                         [&] {
                           open.wait(false);
                           if (looked->GetSource() != nullptr && looked->GetPyramid() == nullptr) {
                             sourceCameFirst = true;
                           }
                         },
                     .open = [&](const std::string&) { return gated; }});
    looked = &peaks;
    open = true;
    open.notify_all();
    gated->OpenUpTo(300'000);
    peaks.Wait();
    EXPECT_EQ(peaks.GetState(), State::kDone);
    EXPECT_EQ(peaks.GetSource(), gated);
  }
  EXPECT_TRUE(sourceCameFirst);
}

TEST_F(FilePeaksTest, BeginsAnewAfterACancelAndWhileItWorks) {
  const auto gated =
      std::make_shared<testing::GatedSource>(std::make_shared<testing::NoiseSource>(2'000'000, 1));
  FilePeaks peaks(Write(0.5F), {.cache = mCache, .open = [&](const std::string&) { return gated; }});
  peaks.Restart();  // in the middle: returns though nothing can be read
  peaks.Cancel();
  gated->OpenUpTo(2'000'000);
  peaks.Wait();
  EXPECT_EQ(peaks.GetState(), State::kCancelled);
  EXPECT_EQ(CountEntries(), 0U);
  peaks.Restart();
  peaks.Wait();
  EXPECT_EQ(peaks.GetState(), State::kDone);
  EXPECT_EQ(peaks.GetProgress(), 1.0);
  EXPECT_EQ(CountEntries(), 1U);
  peaks.Restart();
  peaks.Wait();
  EXPECT_TRUE(peaks.CameFromCache());
}

TEST_F(FilePeaksTest, WorksOnWhereNothingCanBeKept) {
  mFolder.Write("cache", {1});
  FilePeaks peaks(Write(0.5F), {.cache = mCache});
  peaks.Wait();
  EXPECT_EQ(peaks.GetState(), State::kDone);
  EXPECT_NE(peaks.GetProblem(), "");
  EXPECT_EQ(Loudest(peaks), 0.5F);
}

TEST_F(FilePeaksTest, RebuildsADamagedEntry) {
  const std::string path = Write(0.5F);
  FilePeaks(path, {.cache = mCache}).Wait();
  const std::string entry = mCache->GetEntryPath(MakePeakCacheKey(path));
  ASSERT_EQ(truncate(entry.c_str(), 100), 0);
  FilePeaks peaks(path, {.cache = mCache});
  peaks.Wait();
  EXPECT_EQ(peaks.GetState(), State::kDone);
  EXPECT_FALSE(peaks.CameFromCache());
  EXPECT_EQ(Loudest(peaks), 0.5F);
  EXPECT_GT(fs::file_size(entry), 100U);
}

TEST_F(FilePeaksTest, CancelAtAnyMomentLeavesNoThreadAndNoPartialEntry) {
  const std::string path = Write(0.5F, 1'500'000);
  int cancelled = 0;
  // At once, and then later and later, by one thread and by two.
  for (int i = 0; i < 18; ++i) {
    FilePeaks peaks(path, {.cache = mCache, .threadCount = 1 + i % 2});
    const double share = i / 2 / 8.0;  // NOLINT(bugprone-integer-division): each share twice
    while (peaks.GetProgress() < share && peaks.GetState() <= State::kStoring) {
      std::this_thread::yield();
    }
    peaks.Cancel();
    peaks.Wait();
    const State state = peaks.GetState();
    EXPECT_TRUE(state == State::kCancelled || state == State::kDone);
    EXPECT_LE(CountEntries(), 1U);
    cancelled += state == State::kCancelled ? 1 : 0;
    if (CountEntries() > 0) {
      const PeakCacheKey key = MakePeakCacheKey(path);
      EXPECT_NE(mCache->Load(key, peaks.GetPyramid()->GetFormat()).pyramid, nullptr);
      mCache->Remove(key);
    }
  }
  EXPECT_GT(cancelled, 0);
}

TEST_F(FilePeaksTest, TwoThatBuildTheSameAgree) {
  const std::string path = Write(0.5F, 1'000'000);
  FilePeaks first(path, {.cache = mCache});
  FilePeaks second(path, {.cache = mCache});
  first.Wait();
  second.Wait();
  EXPECT_EQ(first.GetState(), State::kDone);
  EXPECT_EQ(second.GetState(), State::kDone);
  EXPECT_EQ(CountEntries(), 1U);
  EXPECT_NE(mCache->Load(MakePeakCacheKey(path), first.GetPyramid()->GetFormat()).pyramid, nullptr);
}

}  // namespace
}  // namespace moxaudiotoolkit
