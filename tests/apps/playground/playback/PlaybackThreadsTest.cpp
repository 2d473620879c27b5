#include "CountingSource.h"
#include "ManualDevice.h"
#include "playback/Player.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <random>
#include <thread>
#include <vector>

namespace playground {
namespace {

// The frame that a sample of the left side is from; below 0 for silence.
std::int64_t FrameOf(float sample) {
  return static_cast<std::int64_t>(sample) - 1;
}

// An output with a thread of its own that asks without pause.
class HastyOutput : public AudioOutput {
 public:
  // Of all that was asked for: samples that are neither silence nor a frame's.
  explicit HastyOutput(std::atomic<int>& wrong) : mWrong(wrong) {}
  ~HastyOutput() override { HastyOutput::Close(); }

  AudioFormat Open(AudioFormat const& wanted, PullFunction pull) override {
    Close();
    mPull = std::move(pull);
    mIsOpen = true;
    return wanted;
  }
  void Close() override {
    Stop();
    mIsOpen = false;
  }
  bool IsOpen() const override { return mIsOpen; }
  void Start() override {
    mRuns = true;
    mThread = std::thread([this] {
      std::vector<float> pairs(2 * 256);
      while (mRuns) {
        mPull(pairs);
        for (std::size_t i = 0; i < pairs.size(); i += 2) {
          std::int64_t const frame = FrameOf(pairs[i]);
          bool const isRight = frame < 0 ? pairs[i] == 0.0f && pairs[i + 1] == 0.0f
                                         : pairs[i] == CountingSource::Sample(frame, 0) &&
                                               pairs[i + 1] == CountingSource::Sample(frame, 1);
          mWrong += isRight ? 0 : 1;
        }
        std::this_thread::yield();
      }
    });
  }
  void Stop() override {
    mRuns = false;
    if (mThread.joinable()) {
      mThread.join();
    }
  }
  double Latency() const override { return 0.01; }
  bool IsLost() const override { return false; }

 private:
  std::atomic<int>& mWrong;
  PullFunction mPull;
  bool mIsOpen = false;
  std::atomic<bool> mRuns{false};
  std::thread mThread;
};

TEST(PlaybackThreads, ThreeOfThemAtOncePlayWholeFramesOnly) {
  std::atomic<int> wrong{0};
  Player player(std::make_unique<HastyOutput>(wrong));
  constexpr int kFrames = 900000;
  std::mt19937 random(11);
  auto const number = [&](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
  for (int sound = 0; sound < 3; ++sound) {
    player.SetSource(std::make_shared<CountingSource>(kFrames, 2, 48000, sound != 1));
    constexpr double kSpeeds[] = {1.0, 2.0, 4.0, 8.0, -1.0, -2.0, -8.0};
    for (int i = 0; i < 400; ++i) {
      switch (number(0, 5)) {
        case 0:
          player.MoveTo(number(0, kFrames));
          break;
        case 1: {
          int const begin = number(0, kFrames);
          player.SetLoop(FrameRange{begin, begin + number(0, 5000)});
          break;
        }
        case 2:
          player.Play(kSpeeds[number(0, 6)]);
          break;
        case 3:
          player.Pause();
          player.Play(kSpeeds[number(0, 6)]);
          break;
        case 4:
          EXPECT_TRUE(player.WaitUntilRead());
          break;
        default:
          player.Update();
          EXPECT_GE(player.Position(), 0.0);
          EXPECT_LE(player.Position(), static_cast<double>(kFrames));
          break;
      }
    }
  }
  player.Close();
  EXPECT_EQ(wrong, 0);
}

TEST(PlaybackThreads, ClosingInTheMiddleOfAReadingLeavesNothingBehind) {
  for (int round = 0; round < 20; ++round) {
    auto const source = std::make_shared<CountingSource>(10'000'000);
    std::atomic<int> wrong{0};
    {
      Player player(std::make_unique<HastyOutput>(wrong));
      player.SetSource(source);
      player.Play(round % 2 == 0 ? 8.0 : 1.0);
      while (source->ReadCount() < round) {
        std::this_thread::yield();
      }
    }
    EXPECT_EQ(source.use_count(), 1);
    EXPECT_EQ(wrong, 0);
  }
}

TEST(PlaybackThreads, ChannelsAreSwitchedWhileTheyArePlayed) {
  std::atomic<int> wrong{0};
  Player player(std::make_unique<HastyOutput>(wrong));
  player.SetSource(std::make_shared<CountingSource>(100000));
  player.SetLoop(FrameRange{0, 100000});
  player.Play();
  for (int i = 0; i < 200; ++i) {
    player.SetEnabledChannels({i % 2 == 0, true});
    EXPECT_TRUE(player.WaitUntilRead());
  }
  player.SetEnabledChannels({true, true});
  EXPECT_TRUE(player.WaitUntilRead());
  EXPECT_TRUE(player.IsPlaying());
}

}  // namespace
}  // namespace playground
