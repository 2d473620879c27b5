#include "CountingSource.h"
#include "HandClock.h"
#include "ManualDevice.h"
#include "playback/Player.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>

namespace playground {
namespace {

constexpr int kBlock = 480;  // 10 ms
constexpr double kBlockSeconds = 0.01;

class PlayPositionTest : public ::testing::Test {
 protected:
  PlayPositionTest() : player(device.MakeOutput()) {
    device.latency = 2 * kBlockSeconds;
    player.SetSource(std::make_shared<CountingSource>(4800000));
  }

  void Begin(double speed = 1.0) {
    player.Play(speed);
    ASSERT_TRUE(player.WaitUntilRead());
  }
  void PlayBlocks(int count) {
    for (int i = 0; i < count; ++i) {
      ASSERT_TRUE(player.WaitUntilRead());
      device.Pull(kBlock);
      clock.Advance(kBlockSeconds);
    }
  }

  HandClock clock;
  ManualDevice device;
  Player player;
};

TEST_F(PlayPositionTest, IsWhatWasAskedForALatencyAgo) {
  Begin();
  PlayBlocks(10);
  EXPECT_EQ(player.Position(), 8.0 * kBlock);
  clock.Advance(0.0025);
  EXPECT_EQ(player.Position(), 8.25 * kBlock) << "between blocks it goes by the clock";
}

TEST_F(PlayPositionTest, StandsUntilTheFirstFrameIsHeard) {
  player.MoveTo(777);
  Begin();
  PlayBlocks(2);
  EXPECT_EQ(player.Position(), 777.0);
  clock.Advance(1.0 / 48000.0);
  EXPECT_EQ(player.Position(), 778.0);
}

TEST_F(PlayPositionTest, NeverPassesWhatWasAskedFor) {
  Begin();
  PlayBlocks(3);
  clock.Advance(5.0);
  EXPECT_EQ(player.Position(), 3.0 * kBlock);
}

TEST_F(PlayPositionTest, AJumpIsToldAtOnceAndNotTakenBack) {
  Begin();
  PlayBlocks(10);
  player.MoveTo(1000000);
  EXPECT_EQ(player.Position(), 1000000.0);
  PlayBlocks(1);
  EXPECT_EQ(player.Position(), 1000000.0) << "not heard yet";
  PlayBlocks(2);
  EXPECT_EQ(player.Position(), 1000000.0 + kBlock);
}

TEST_F(PlayPositionTest, TurnsWhereTheLoopIsHeardToTurn) {
  player.SetLoop(FrameRange{0, kBlock * 3 / 2});
  Begin();
  PlayBlocks(3);
  EXPECT_EQ(player.Position(), kBlock);
  clock.Advance(kBlockSeconds * 0.75);
  EXPECT_EQ(player.Position(), kBlock * 0.25);
}

TEST_F(PlayPositionTest, ChangesOfSpeedAreToldWhenTheyAreHeard) {
  Begin();
  PlayBlocks(4);
  player.Play(4.0);
  EXPECT_EQ(player.Position(), 2.0 * kBlock);
  PlayBlocks(2);
  EXPECT_EQ(player.Position(), 4.0 * kBlock);
  PlayBlocks(2);
  EXPECT_EQ(player.Position(), 12.0 * kBlock);
}

TEST_F(PlayPositionTest, RunsEvenlyThoughTheOutputAsksInFitsAndStarts) {
  Begin();
  PlayBlocks(4);
  // Up to 4 ms late or early, then several at once.
  constexpr std::array<double, 8> kLateness{0.004, -0.003, 0.0, 0.002, -0.004, 0.003, -0.001, 0.001};
  double before = player.Position();
  double lateness = 0.0;
  for (int i = 0; i < 400; ++i) {
    double const next = kLateness[static_cast<std::size_t>(i) % kLateness.size()];
    double const wait = kBlockSeconds + next - lateness;
    lateness = next;
    for (int part = 0; part < 4; ++part) {
      clock.Advance(wait / 4.0);
      double const now = player.Position();
      EXPECT_NEAR(now - before, wait / 4.0 * 48000.0, 0.05 * wait / 4.0 * 48000.0 + 1.0);
      before = now;
    }
    ASSERT_TRUE(player.WaitUntilRead());
    device.Pull(kBlock);
  }
}

TEST_F(PlayPositionTest, FollowsADeviceWhoseClockIsFast) {
  Begin();
  // By a ten-thousandth: after 20 seconds that is 96 frames.
  for (int i = 0; i < 2000; ++i) {
    ASSERT_TRUE(player.WaitUntilRead());
    device.Pull(kBlock);
    clock.Advance(kBlockSeconds * 0.9999);
  }
  EXPECT_NEAR(player.Position(), 1998.0 * kBlock, 8.0);
}

TEST_F(PlayPositionTest, NeverGoesBackWhileItPlaysForward) {
  Begin();
  double before = 0.0;
  for (int i = 0; i < 200; ++i) {
    ASSERT_TRUE(player.WaitUntilRead());
    device.Pull(i % 7 == 0 ? kBlock * 3 : kBlock / 2);
    clock.Advance(i % 5 == 0 ? 0.0 : 0.013);
    double const now = player.Position();
    EXPECT_GE(now, before);
    before = now;
  }
  EXPECT_GT(before, 0.0);
}

TEST_F(PlayPositionTest, PausesAtWhatIsHeard) {
  Begin(-8.0);
  player.MoveTo(400000);
  PlayBlocks(5);
  player.Pause();
  EXPECT_EQ(player.Position(), 400000.0 - 3 * kBlock * 8);
}

}  // namespace
}  // namespace playground
