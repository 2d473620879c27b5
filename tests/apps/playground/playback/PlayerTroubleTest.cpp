#include "CountingSource.h"
#include "HandClock.h"
#include "ManualDevice.h"
#include "playback/Player.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace playground {
namespace {

class PlayerTroubleTest : public ::testing::Test {
 protected:
  PlayerTroubleTest() : player(device.MakeOutput()) { player.SetSource(source); }
  ~PlayerTroubleTest() override { source->LetThrough(); }

  HandClock clock;
  ManualDevice device;
  std::shared_ptr<CountingSource> source = std::make_shared<CountingSource>(480000);
  Player player;
};

TEST_F(PlayerTroubleTest, WithoutADeviceThePositionMovesInSilence) {
  device.refusal = "No sound card";
  player.MoveTo(1000);
  player.Play();
  EXPECT_TRUE(player.IsPlaying());
  EXPECT_TRUE(player.IsSilent());
  EXPECT_EQ(player.Trouble(), PlayTrouble::kNoDevice);
  EXPECT_EQ(player.TroubleReason(), "No sound card");
  clock.Advance(1.0);
  EXPECT_FALSE(player.Update());
  EXPECT_EQ(player.Position(), 49000.0);
  player.Play(-2.0);
  clock.Advance(0.25);
  EXPECT_EQ(player.Position(), 25000.0);
}

TEST_F(PlayerTroubleTest, SilenceGoesRoundLoopsAndEnds) {
  device.refusal = "No sound card";
  player.SetLoop(FrameRange{0, 48000});
  player.Play();
  clock.Advance(10.25);
  EXPECT_EQ(player.Position(), 12000.0);
  player.SetLoop(std::nullopt);
  clock.Advance(60.0);
  EXPECT_TRUE(player.Update());
  EXPECT_FALSE(player.IsPlaying());
  EXPECT_EQ(player.Position(), 480000.0);
}

TEST_F(PlayerTroubleTest, DeviceThatDoesNotStartIsNone) {
  device.refusesToStart = true;
  player.Play();
  EXPECT_TRUE(player.IsSilent());
  EXPECT_EQ(player.TroubleReason(), "busy");
}

TEST_F(PlayerTroubleTest, NextPlayTriesTheDeviceAgain) {
  device.refusal = "No sound card";
  player.Play();
  player.Pause();
  device.refusal.clear();
  player.Play();
  EXPECT_FALSE(player.IsSilent());
  EXPECT_TRUE(device.IsStarted());
  EXPECT_EQ(player.Trouble(), PlayTrouble::kNone);
}

TEST_F(PlayerTroubleTest, LossInTheMiddleGoesOnInSilenceFromWhatWasHeard) {
  player.Play();
  ASSERT_TRUE(player.WaitUntilRead());
  device.Pull(4800);
  clock.Advance(0.05);
  device.Lose();
  EXPECT_TRUE(player.Update());
  EXPECT_EQ(player.Trouble(), PlayTrouble::kDeviceLost);
  EXPECT_TRUE(player.IsPlaying());
  EXPECT_FALSE(device.IsOpen());
  EXPECT_EQ(player.Position(), 2400.0);
  clock.Advance(0.5);
  EXPECT_FALSE(player.Update()) << "told once";
  EXPECT_EQ(player.Position(), 26400.0);
  player.Pause();
  player.Play();
  EXPECT_TRUE(device.IsStarted());
  ASSERT_TRUE(player.WaitUntilRead());
  EXPECT_EQ(device.Pull(1)[0], CountingSource::Sample(26400, 0));
}

TEST_F(PlayerTroubleTest, ReadErrorStopsWithTheReason) {
  source->FailFrom(4096 * 3);
  player.Play();
  EXPECT_FALSE(player.WaitUntilRead());
  EXPECT_FALSE(player.WaitUntilRead()) << "what was read before is played all the same";
  device.Pull(480);
  clock.Advance(0.005);
  EXPECT_TRUE(player.Update());
  EXPECT_FALSE(player.IsPlaying());
  EXPECT_EQ(player.Trouble(), PlayTrouble::kReadFailed);
  EXPECT_EQ(player.TroubleReason(), "The file was cut short.");
  EXPECT_EQ(player.Position(), 240.0);
  source->FailFrom(INT64_MAX);
  player.Play();
  EXPECT_EQ(player.Trouble(), PlayTrouble::kNone);
  ASSERT_TRUE(player.WaitUntilRead());
  EXPECT_EQ(device.Pull(1)[0], CountingSource::Sample(240, 0)) << "it is tried again";
}

TEST_F(PlayerTroubleTest, SlowReadingLeavesAGapButNoFrameOut) {
  player.Play();
  ASSERT_TRUE(player.WaitUntilRead());
  source->Hold();
  std::vector<float> heard;
  std::vector<float> block;
  do {
    block = device.Pull(500);
    clock.Advance(500.0 / 48000.0);
    heard.insert(heard.end(), block.begin(), block.end());
  } while (block.back() != 0.0f);
  std::size_t sounding = 0;
  while (heard[sounding * 2] != 0.0f) {
    ++sounding;
  }
  EXPECT_TRUE(player.Update());
  EXPECT_EQ(player.Trouble(), PlayTrouble::kTooSlow);
  EXPECT_TRUE(player.IsPlaying());
  device.Pull(500);
  clock.Advance(0.5);
  double const stood = player.Position();
  EXPECT_EQ(stood, static_cast<double>(sounding)) << "the playhead stands in the gap";
  source->LetThrough();
  ASSERT_TRUE(player.WaitUntilRead());
  EXPECT_EQ(device.Pull(1)[0], CountingSource::Sample(static_cast<std::int64_t>(sounding), 0));
}

TEST_F(PlayerTroubleTest, GapRightAfterAJumpIsNoTrouble) {
  source->Hold();
  player.Play();
  EXPECT_EQ(device.Pull(100), std::vector<float>(200, 0.0f));
  EXPECT_FALSE(player.Update());
  EXPECT_EQ(player.Trouble(), PlayTrouble::kNone);
  EXPECT_EQ(player.Position(), 0.0);
  source->LetThrough();
  ASSERT_TRUE(player.WaitUntilRead());
  EXPECT_EQ(device.Pull(1)[0], CountingSource::Sample(0, 0)) << "no frame is lost for it";
}

}  // namespace
}  // namespace playground
