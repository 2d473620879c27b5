#include "CountingSource.h"
#include "playback/Player.h"
#include "playback/SdlOutput.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

namespace playground {
namespace {

// SDL writes what it would play to a file, as fast as it is asked to.
class SdlOutputTest : public ::testing::Test {
 protected:
  SdlOutputTest() {
    setenv("SDL_AUDIODRIVER", "disk", 1);
    setenv("SDL_DISKAUDIODELAY", "1", 1);
    setenv("SDL_DISKAUDIOFILE", mPath.c_str(), 1);
  }
  ~SdlOutputTest() override {
    unsetenv("SDL_AUDIODRIVER");
    unsetenv("SDL_DISKAUDIODELAY");
    unsetenv("SDL_DISKAUDIOFILE");
    std::filesystem::remove(mPath);
  }

  // How many samples have been written so far.
  std::size_t PlayedCount() const {
    std::error_code error;
    std::uintmax_t const size = std::filesystem::file_size(mPath, error);
    return error ? 0 : static_cast<std::size_t>(size) / sizeof(float);
  }
  // The first samples that were written. A file that still grows may do so faster than it can be read: only
  // what it holds at the call counts.
  std::vector<float> Played(std::size_t atMost) const {
    std::vector<float> samples(std::min(PlayedCount(), atMost));
    std::ifstream stream(mPath, std::ios::binary);
    stream.read(reinterpret_cast<char*>(samples.data()),
                static_cast<std::streamsize>(samples.size() * sizeof(float)));
    EXPECT_EQ(static_cast<std::size_t>(stream.gcount()), samples.size() * sizeof(float));
    return samples;
  }
  static void PlayToTheEnd(Player& player) {
    while (player.IsPlaying()) {
      player.Update();
      std::this_thread::yield();
    }
  }

 private:
  std::string mPath =
      (std::filesystem::temp_directory_path() / ("played-" + std::to_string(getpid()) + ".raw")).string();
};

TEST_F(SdlOutputTest, WhatIsPlayedIsTheSoundBitForBit) {
  constexpr std::int64_t kFrames = 30000;
  auto const source = std::make_shared<CountingSource>(kFrames);
  Player player(NewSdlOutput());
  player.SetSource(source);
  // All of it is at hand before the first frame is asked for: a fast disk leaves no time to read.
  ASSERT_TRUE(player.WaitUntilRead());
  player.Play();
  ASSERT_FALSE(player.IsSilent()) << player.TroubleReason();
  PlayToTheEnd(player);
  EXPECT_EQ(player.Trouble(), PlayTrouble::kNone);
  player.Close();

  std::vector<float> const played = Played(kFrames * 20);
  auto const begin = std::find_if(played.begin(), played.end(), [](float sample) { return sample != 0.0f; });
  ASSERT_GE(played.end() - begin, kFrames * 2);
  for (std::int64_t i = 0; i < kFrames * 2; ++i) {
    ASSERT_EQ(begin[i], CountingSource::Sample(i / 2, static_cast<int>(i % 2))) << i;
  }
  EXPECT_TRUE(std::all_of(begin + kFrames * 2, played.end(), [](float sample) { return sample == 0.0f; }));
}

TEST_F(SdlOutputTest, ALoopIsPlayedWithoutASeam) {
  constexpr FrameRange kLoop{1000, 1777};
  Player player(NewSdlOutput());
  player.SetSource(std::make_shared<CountingSource>(5000));
  player.SetLoop(kLoop);
  player.MoveTo(kLoop.begin);
  ASSERT_TRUE(player.WaitUntilRead());
  player.Play();
  ASSERT_FALSE(player.IsSilent()) << player.TroubleReason();
  constexpr std::size_t kEnough = 40000;
  while (PlayedCount() < kEnough) {
    std::this_thread::yield();
  }
  player.Close();
  std::vector<float> const played = Played(kEnough);
  auto const begin = std::find_if(played.begin(), played.end(), [](float sample) { return sample != 0.0f; });
  std::int64_t const length = kLoop.end - kLoop.begin;
  ASSERT_GE(played.end() - begin, 18000);
  for (std::int64_t i = 0; i < 18000; ++i) {
    ASSERT_EQ(begin[i], CountingSource::Sample(kLoop.begin + i / 2 % length, static_cast<int>(i % 2))) << i;
  }
}

TEST_F(SdlOutputTest, ADriverThatIsNotThereIsNoDevice) {
  setenv("SDL_AUDIODRIVER", "nosuchdriver", 1);
  auto const output = NewSdlOutput();
  try {
    output->Open({.sampleRate = 48000, .channelCount = 2, .blockFrames = 512}, [](std::span<float>) {});
    FAIL() << "opened";
  } catch (AudioOutputError const& error) {
    EXPECT_NE(std::string(error.what()), "");
  }
  EXPECT_FALSE(output->IsOpen());
  EXPECT_FALSE(output->IsLost());
}

TEST_F(SdlOutputTest, ASilentDeviceIsOpenedAndGivenBackTimeAndAgain) {
  setenv("SDL_AUDIODRIVER", "dummy", 1);
  Player player(NewSdlOutput());
  for (int round = 0; round < 5; ++round) {
    player.SetSource(std::make_shared<CountingSource>(480000));
    player.Play();
    EXPECT_FALSE(player.IsSilent());
  }
}

}  // namespace
}  // namespace playground
