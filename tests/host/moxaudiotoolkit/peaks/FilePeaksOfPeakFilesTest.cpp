#include "../TemporaryFolder.h"

#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/peaks/FilePeaks.h>
#include <moxaudiotoolkit/peaks/PeakCache.h>
#include <moxaudiotoolkit/peaks/PeakDataFile.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace moxaudiotoolkit {
namespace {

using State = FilePeaks::State;

// Peaks of files that hold nothing else, as FilePeaks reads them on its thread.
class FilePeaksOfPeakFiles : public ::testing::Test {
 protected:
  std::string Write(std::int16_t loudest, std::uint32_t pairs = 20'000) const {
    PeakData data{.sampleRate = 48000,
                  .samplesPerPixel = 256,
                  .channelCount = 1,
                  .length = pairs,
                  .values = PeakValues(2 * std::size_t{pairs}, 0)};
    data.values[pairs / 2 * 2 + 1] = loudest;
    WritePeakData(mFolder / "a.dat", data);
    return mFolder / "a.dat";
  }

  static std::shared_ptr<const PeakPyramid> Read(const std::string& path,
                                                 const std::atomic<bool>& cancelled) {
    return MakePeakPyramid(ReadPeakData(path, &cancelled));
  }

  static float Loudest(const FilePeaks& peaks) {
    const auto pyramid = peaks.GetPyramid();
    return pyramid->GetRange(0, 0, pyramid->GetFrameCount()).maximum;
  }

  testing::TemporaryFolder mFolder;
};

TEST_F(FilePeaksOfPeakFiles, AreReadWithoutASourceAndWithoutTheCache) {
  const auto cache = std::make_shared<PeakCache>(mFolder / "cache");
  std::atomic<int> changes = 0;
  FilePeaks peaks(Write(16384), {.cache = cache, .onChange = [&] { ++changes; }, .readPeaks = Read});
  peaks.Wait();
  EXPECT_EQ(peaks.GetState(), State::kDone);
  EXPECT_EQ(peaks.GetSource(), nullptr);
  EXPECT_EQ(Loudest(peaks), 0.5F);
  EXPECT_EQ(peaks.GetProgress(), 1.0);
  EXPECT_GT(changes, 0);
  EXPECT_FALSE(std::filesystem::exists(mFolder / "cache"));
}

TEST_F(FilePeaksOfPeakFiles, TellWhyTheyCannotBeRead) {
  const std::string path = mFolder / "a.dat";
  std::ofstream(path) << "no peaks";
  FilePeaks peaks(path, {.readPeaks = Read});
  peaks.Wait();
  EXPECT_EQ(peaks.GetState(), State::kFailed);
  EXPECT_NE(peaks.GetReason(), "");
  EXPECT_EQ(peaks.GetPyramid(), nullptr);
}

TEST_F(FilePeaksOfPeakFiles, AreReadAnewWhenTheyHaveChanged) {
  FilePeaks peaks(Write(16384), {.readPeaks = Read});
  peaks.Wait();
  Write(8192, 10'000);
  while (!peaks.PollForChange()) {
    std::this_thread::yield();
  }
  peaks.Wait();
  EXPECT_EQ(Loudest(peaks), 0.25F);
}

// Held up until it is cancelled, while another thread looks.
TEST_F(FilePeaksOfPeakFiles, CanBeCancelledRestartedAndLookedAtMeanwhile) {
  std::atomic<bool> holdsUp = true;
  std::atomic<bool> isReading = false;
  FilePeaks peaks(Write(16384),
                  {.readPeaks = [&](const std::string& path, const std::atomic<bool>& cancelled) {
                    isReading = true;
                    while (holdsUp && !cancelled) {
                      std::this_thread::yield();
                    }
                    return Read(path, cancelled);
                  }});
  std::atomic<bool> ends = false;
  std::thread looker([&] {
    while (!ends) {
      if (const auto pyramid = peaks.GetPyramid()) {
        EXPECT_TRUE(pyramid->IsComplete());
      }
      static_cast<void>(peaks.GetProblem());
    }
  });
  while (!isReading) {
    std::this_thread::yield();
  }
  peaks.Cancel();
  peaks.Wait();
  EXPECT_EQ(peaks.GetState(), State::kCancelled);
  holdsUp = false;
  peaks.Restart();
  peaks.Wait();
  EXPECT_EQ(peaks.GetState(), State::kDone);
  EXPECT_EQ(Loudest(peaks), 0.5F);
  ends = true;
  looker.join();
}

TEST_F(FilePeaksOfPeakFiles, DestructionEndsTheReading) {
  std::atomic<bool> isReading = false;
  {
    FilePeaks peaks(Write(1), {.readPeaks = [&](const std::string& path, const std::atomic<bool>& cancelled) {
                      isReading = true;
                      while (!cancelled) {
                        std::this_thread::yield();
                      }
                      return Read(path, cancelled);
                    }});
    while (!isReading) {
      std::this_thread::yield();
    }
  }
  EXPECT_TRUE(isReading);
}

}  // namespace
}  // namespace moxaudiotoolkit
