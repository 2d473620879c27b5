#include "audio/SampleFetcher.h"
#include "audio/WaveformView.h"
#include "playground/MadeUpSound.h"
#include "playground/SoundFiles.h"
#include "playground/StagedProgram.h"
#include "playground/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace playground {
namespace {

constexpr std::int64_t kFrames = 48000 * 60;
constexpr std::int64_t kClick = 48000 * 30;

std::shared_ptr<MadeUpSound> CompressedSound() {
  auto sound = std::make_shared<MadeUpSound>(
      moxaudiotoolkit::SampleSourceProperties{.frames = kFrames, .sampleRate = 48000, .channelCount = 2},
      MadeUpSound::Clicks{{kClick, 0.5f}, {kClick + 3, -0.25f}});
  sound->SetParallel(false);
  return sound;
}

// A sound that only a decoder can read, on the page.
class FetchedSamplesOnThePage : public testing::Test {
 protected:
  FetchedSamplesOnThePage() {
    moxaudiotoolkit::FilePeaksOptions options;
    options.open = [this](std::string const&) { return sound; };
    program.Session().SetPeaksOptions(options);
    program.Session().OpenFiles({WriteBytes(folder.Path(), "sound.flac", "x").string()});
    program.Session().WaitForPeaks();
  }
  ~FetchedSamplesOnThePage() override { sound->OpenAll(); }

  void Show(std::int64_t begin, std::int64_t end) {
    program.Session().ChangeView(
        [=](Viewport& view) { view.Show(static_cast<double>(begin), static_cast<double>(end)); });
  }
  WaveformView& Waveform() { return program.Audio().Waveform(); }
  int ColumnOf(std::int64_t frame) {
    return static_cast<int>(program.Session().View().ColumnOf(static_cast<double>(frame)));
  }

  std::shared_ptr<MadeUpSound> sound = CompressedSound();
  TemporaryFolder folder;
  StagedProgram program;
};

TEST_F(FetchedSamplesOnThePage, PeaksStandForThemUntilTheyHaveCome) {
  sound->CloseFrom(0);  // reading on this thread would never end
  Show(kClick - 2000, kClick + 2000);
  auto const fromPeaks = program.Picture();
  // A point of 64 samples about the click.
  EXPECT_GT(
      Waveform().AmplitudeAt(0, ColumnOf(kClick - 8) - 1) + Waveform().AmplitudeAt(0, ColumnOf(kClick + 8)),
      0.0f);
  sound->OpenAll();
  program.Audio().Settle();
  EXPECT_FALSE(program.Picture() == fromPeaks);
  EXPECT_EQ(Waveform().AmplitudeAt(0, ColumnOf(kClick - 16)), 0.0f);
  EXPECT_EQ(Waveform().AmplitudeAt(0, ColumnOf(kClick + 16)), 0.0f);
  EXPECT_GT(Waveform().AmplitudeAt(0, ColumnOf(kClick)), 0.2f);
}

TEST_F(FetchedSamplesOnThePage, AreDrawnAsThoseOfASoundThatIsReadAtOnce) {
  Show(kClick - 40, kClick + 40);
  program.Picture();
  program.Audio().Settle();
  auto const fetched = program.Picture();
  sound = CompressedSound();
  sound->SetParallel(true);
  program.Session().RestartPeaks();
  program.Session().WaitForPeaks();
  EXPECT_EQ(program.Picture(), fetched);
}

TEST_F(FetchedSamplesOnThePage, ScrollingWithinThemReadsNothing) {
  Show(kClick - 2000, kClick + 2000);
  program.Picture();
  program.Audio().Settle();
  auto const before = sound->FramesRead();
  EXPECT_GT(before, 0);
  Show(kClick - 1500, kClick + 2500);
  program.Picture();
  program.Audio().Settle();
  EXPECT_EQ(sound->FramesRead(), before);
}

TEST_F(FetchedSamplesOnThePage, WideViewsReadNone) {
  program.Session().ChangeView([](Viewport& view) { view.ShowAll(); });
  program.Picture();
  program.Audio().Settle();
  EXPECT_EQ(sound->FramesRead(), 0);
}

TEST_F(FetchedSamplesOnThePage, NewestWishCountsAndTheProgramMayEndMeanwhile) {
  sound->CloseFrom(kClick + 100'000);
  Show(kClick + 200'000, kClick + 201'000);
  program.Picture();
  sound->WaitForAReader();
  Show(kClick, kClick + 1000);
  program.Picture();
  sound->OpenAll();
  program.Audio().Settle();
  EXPECT_GT(Waveform().AmplitudeAt(0, 0), 0.2f);
  sound->CloseFrom(kClick + 100'000);
  Show(kClick + 300'000, kClick + 301'000);
  program.Picture();
  sound->WaitForAReader();
  sound->OpenAll();
}

TEST(SampleFetcher, GivesNothingForWhatCannotBeReadAndDoesNotAskAgain) {
  class Broken : public MadeUpSound {
   public:
    using MadeUpSound::MadeUpSound;
    void ReadInterleaved(std::int64_t, std::span<float>) const override {
      ++attempts;
      throw std::runtime_error("broken");
    }
    mutable std::atomic<int> attempts{0};
  };
  auto const sound = std::make_shared<Broken>(
      moxaudiotoolkit::SampleSourceProperties{.frames = kFrames, .sampleRate = 48000, .channelCount = 2},
      MadeUpSound::Clicks{});
  SampleFetcher fetcher([] {});
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(fetcher.Get(sound, 1000, 2000), nullptr);
    fetcher.Wait();
  }
  EXPECT_EQ(sound->attempts, 1);
}

TEST(SampleFetcher, ReadsItsWayToWhereAJumpIsNotToBeHad) {
  class Tape : public MadeUpSound {
   public:
    using MadeUpSound::MadeUpSound;
    std::int64_t FindStart(std::int64_t) const override { return 0; }
    void ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const override {
      jumped = jumped || (firstFrame != 0 && firstFrame != next);
      next = firstFrame + static_cast<std::int64_t>(destination.size()) / 2;
      MadeUpSound::ReadInterleaved(firstFrame, destination);
    }
    mutable std::int64_t next = 0;
    mutable bool jumped = false;
  };
  auto const sound = std::make_shared<Tape>(
      moxaudiotoolkit::SampleSourceProperties{.frames = kFrames, .sampleRate = 48000, .channelCount = 2},
      MadeUpSound::Clicks{{kClick, 0.5f}});
  SampleFetcher fetcher([] {});
  for (std::int64_t const place : {kClick, kClick + 500'000, std::int64_t{0}, kClick}) {
    fetcher.Get(sound, place, place + 1000);
    fetcher.Wait();
    ASSERT_NE(fetcher.Get(sound, place, place + 1000), nullptr);
  }
  EXPECT_FALSE(sound->jumped);
  std::vector<float> read(2);
  fetcher.Get(sound, kClick, kClick + 1000)->ReadInterleaved(kClick, read);
  EXPECT_EQ(read[1], 0.5f);
}

TEST(SampleFetcher, ReadsNoMoreThanItKeeps) {
  MadeUpSound const endless({.frames = std::int64_t{1} << 40, .sampleRate = 48000, .channelCount = 2}, {});
  std::shared_ptr<MadeUpSound const> const sound(&endless, [](MadeUpSound const*) {});
  SampleFetcher fetcher([] {});
  EXPECT_EQ(fetcher.Get(sound, 0, SampleFetcher::kMostFloats), nullptr);
  fetcher.Wait();
  EXPECT_EQ(endless.FramesRead(), 0);
  EXPECT_EQ(fetcher.Get(sound, 0, SampleFetcher::kMostFloats / 2), nullptr);
  fetcher.Wait();
  EXPECT_NE(fetcher.Get(sound, 0, SampleFetcher::kMostFloats / 2), nullptr);
  EXPECT_EQ(endless.FramesRead(), SampleFetcher::kMostFloats / 2);
}

TEST(SampleFetcher, TakesTheLastFramesAndNothingBeyond) {
  auto const sound = CompressedSound();
  SampleFetcher fetcher([] {});
  EXPECT_EQ(fetcher.Get(nullptr, 0, 10), nullptr);
  EXPECT_EQ(fetcher.Get(sound, kFrames + 5, kFrames + 10), nullptr);
  fetcher.Get(sound, kFrames - 10, kFrames + 1000);
  fetcher.Wait();
  auto const samples = fetcher.Get(sound, kFrames - 10, kFrames + 1000);
  ASSERT_NE(samples, nullptr);
  std::vector<float> read(2);
  samples->ReadInterleaved(kFrames - 1, read);
  EXPECT_THROW(samples->ReadInterleaved(0, read), std::out_of_range);
}

}  // namespace
}  // namespace playground
