#include "CountingSource.h"
#include "HandClock.h"
#include "ManualDevice.h"
#include "playback/Player.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <numeric>
#include <vector>

namespace playground {
namespace {

using Frames = std::vector<std::int64_t>;
constexpr std::int64_t kSilence = -1;

class PlayerTest : public ::testing::Test {
 protected:
  PlayerTest() : player(device.MakeOutput()) {}

  CountingSource& Open(std::int64_t frames, int channelCount = 2, int sampleRate = 48000) {
    source = std::make_shared<CountingSource>(frames, channelCount, sampleRate);
    player.SetSource(source);
    return *source;
  }

  // The frames of the sound that the next frames of the output are; kSilence for silence.
  Frames Heard(int count) {
    EXPECT_TRUE(player.WaitUntilRead());
    return Pulled(count);
  }
  Frames Pulled(int count) {
    std::vector<float> const pairs = device.Pull(count);
    Frames frames;
    for (std::size_t i = 0; i + 1 < pairs.size(); i += 2) {
      auto const frame = static_cast<std::int64_t>(pairs[i]) - 1;
      frames.push_back(pairs[i] == 0.0f ? kSilence : frame);
      EXPECT_EQ(pairs[i], frame < 0 ? 0.0f : CountingSource::Sample(frame, 0));
      EXPECT_EQ(pairs[i + 1], frame < 0 ? 0.0f : CountingSource::Sample(frame, 1));
    }
    return frames;
  }
  // `count` frames from `first` on, by `step`.
  static Frames From(std::int64_t first, std::int64_t count, std::int64_t step = 1) {
    Frames frames;
    for (std::int64_t i = 0; i < count; ++i) {
      frames.push_back(first + i * step);
    }
    return frames;
  }
  static Frames Joined(std::vector<Frames> const& parts) {
    Frames frames;
    for (Frames const& part : parts) {
      frames.insert(frames.end(), part.begin(), part.end());
    }
    return frames;
  }

  HandClock clock;
  ManualDevice device;
  std::shared_ptr<CountingSource> source;
  Player player;
};

TEST_F(PlayerTest, PlaysEveryFrameOnceAndThenSilence) {
  Open(20000);
  player.Play();
  Frames heard;
  while (heard.size() < 21000) {
    Frames const block = Heard(700);
    heard.insert(heard.end(), block.begin(), block.end());
  }
  EXPECT_EQ(heard, Joined({From(0, 20000), Frames(heard.size() - 20000, kSilence)}));
}

TEST_F(PlayerTest, MonoGoesToBothSides) {
  Open(1000, 1);
  player.Play();
  ASSERT_TRUE(player.WaitUntilRead());
  std::vector<float> const pairs = device.Pull(1000);
  for (std::int64_t frame = 0; frame < 1000; ++frame) {
    auto const i = static_cast<std::size_t>(frame) * 2;
    ASSERT_EQ(pairs[i], CountingSource::Sample(frame, 0));
    ASSERT_EQ(pairs[i + 1], CountingSource::Sample(frame, 0));
  }
}

TEST_F(PlayerTest, BeginsAtThePlaceItWasMovedTo) {
  Open(100000);
  player.MoveTo(54321);
  player.Play();
  EXPECT_EQ(Heard(512), From(54321, 512));
}

TEST_F(PlayerTest, JumpsWhilePlayingWithTheNextBlock) {
  Open(1000000);
  player.Play();
  EXPECT_EQ(Heard(512), From(0, 512));
  player.MoveTo(700000);
  EXPECT_EQ(Heard(512), From(700000, 512));
  player.MoveTo(3);
  EXPECT_EQ(Heard(512), From(3, 512));
}

TEST_F(PlayerTest, GoesRoundALoopExactly) {
  Open(100000);
  player.SetLoop(FrameRange{4000, 4500});
  player.MoveTo(3900);
  player.Play();
  EXPECT_EQ(Heard(1600), Joined({From(3900, 600), From(4000, 500), From(4000, 500)}));
}

TEST_F(PlayerTest, GoesRoundALoopOfOneFrame) {
  Open(100000);
  player.SetLoop(FrameRange{4096, 4097});
  player.MoveTo(4094);
  player.Play();
  EXPECT_EQ(Heard(5), (Frames{4094, 4095, 4096, 4096, 4096}));
}

TEST_F(PlayerTest, LoopOverMoreThanIsKeptAtHand) {
  constexpr std::int64_t kFrames = 1000000;
  static_assert(kFrames > static_cast<std::int64_t>(BlockStore::kSlots) * BlockStore::kFrames);
  Open(kFrames);
  player.SetLoop(FrameRange{10, kFrames - 10});
  player.MoveTo(kFrames - 310);
  player.Play();
  EXPECT_EQ(Heard(600), Joined({From(kFrames - 310, 300), From(10, 300)}));
}

TEST_F(PlayerTest, LoopOfTheWholeSoundTurnsAtItsEnds) {
  Open(5000);
  player.SetLoop(FrameRange{0, 5000});
  player.MoveTo(4990);
  player.Play();
  EXPECT_EQ(Heard(30), Joined({From(4990, 10), From(0, 20)}));
  player.Play(-1.0);
  EXPECT_EQ(Heard(30), Joined({From(20, 21, -1), From(4999, 9, -1)}));
}

TEST_F(PlayerTest, ChangesOfTheLoopTakeEffectAtTheNextFrame) {
  Open(100000);
  player.SetLoop(FrameRange{1000, 2000});
  player.MoveTo(1500);
  player.Play();
  EXPECT_EQ(Heard(100), From(1500, 100));
  player.SetLoop(FrameRange{1200, 1650});
  EXPECT_EQ(Heard(100), Joined({From(1600, 50), From(1200, 50)}));
  player.SetLoop(std::nullopt);
  EXPECT_EQ(Heard(1000), From(1250, 1000));
}

TEST_F(PlayerTest, ALoopThatIsAlreadyBehindIsNotComeTo) {
  Open(100000);
  player.MoveTo(5000);
  player.Play();
  EXPECT_EQ(Heard(100), From(5000, 100));
  player.SetLoop(FrameRange{1000, 2000});
  EXPECT_EQ(Heard(100), From(5100, 100));
}

TEST_F(PlayerTest, LoopsAreCutToTheSoundAndEmptyOnesAreNone) {
  Open(1000);
  player.SetLoop(FrameRange{900, 5000});
  player.MoveTo(990);
  player.Play();
  EXPECT_EQ(Heard(20), Joined({From(990, 10), From(900, 10)}));
  player.SetLoop(FrameRange{950, 950});
  player.MoveTo(990);
  EXPECT_EQ(Heard(20), Joined({From(990, 10), Frames(10, kSilence)}));
}

TEST_F(PlayerTest, StopsWhereItIsTold) {
  Open(100000);
  player.MoveTo(100);
  player.Play(1.0, 350);
  EXPECT_EQ(Heard(400), Joined({From(100, 250), Frames(150, kSilence)}));
  clock.Advance(1.0);
  EXPECT_TRUE(player.Update());
  EXPECT_FALSE(player.IsPlaying());
  EXPECT_EQ(player.Position(), 350.0);
}

TEST_F(PlayerTest, PlaysPiecesOneInPlaceOfTheOther) {
  Open(20000);
  player.SetLoop(FrameRange{0, 10});
  player.PlayPiece({5000, 5040});
  EXPECT_EQ(Heard(30), From(5000, 30));
  player.PlayPiece({9000, 9020});
  EXPECT_EQ(Heard(30), Joined({From(9000, 20), Frames(10, kSilence)})) << "round no loop";
  player.PlayPiece({100, 120});
  EXPECT_EQ(Heard(10), From(100, 10)) << "after one that has come to its end";
  EXPECT_TRUE(player.IsPlaying());
}

TEST_F(PlayerTest, PlaysAPieceAtTheSpeedOfTheRecordingWhateverWasPlaying) {
  Open(20000);
  player.MoveTo(10000);
  player.Play(-2.0);
  Heard(10);
  player.PlayPiece({300, 310});
  EXPECT_EQ(Heard(12), Joined({From(300, 10), Frames(2, kSilence)}));
  EXPECT_EQ(player.Speed(), 1.0);
}

TEST_F(PlayerTest, EndsWhenTheEndHasBeenHeard) {
  device.latency = 0.010;
  Open(480);
  player.Play();
  EXPECT_EQ(Heard(512).back(), kSilence);
  clock.Advance(0.019);
  EXPECT_FALSE(player.Update());
  EXPECT_TRUE(player.IsPlaying());
  clock.Advance(0.002);
  EXPECT_TRUE(player.Update());
  EXPECT_FALSE(player.IsPlaying());
  EXPECT_FALSE(device.IsStarted());
  EXPECT_EQ(player.Position(), 480.0);
  player.Play();
  EXPECT_EQ(Heard(3), From(0, 3)) << "the end leads to the beginning";
}

TEST_F(PlayerTest, PlaysBackwardToTheFirstFrame) {
  Open(10000);
  player.MoveTo(9000);
  player.Play(-1.0);
  EXPECT_EQ(Heard(9100), Joined({From(9000, 9001, -1), Frames(99, kSilence)}));
  clock.Advance(1.0);
  EXPECT_TRUE(player.Update());
  EXPECT_EQ(player.Position(), 0.0);
}

TEST_F(PlayerTest, BackwardFromTheEndBeginsAtTheLastFrame) {
  Open(10000);
  player.MoveTo(10000);
  player.Play(-1.0);
  EXPECT_EQ(Heard(5), From(9999, 5, -1));
}

TEST_F(PlayerTest, BackwardGoesRoundALoop) {
  Open(10000);
  player.SetLoop(FrameRange{1000, 1010});
  player.MoveTo(1003);
  player.Play(-1.0);
  EXPECT_EQ(Heard(10), Joined({From(1003, 4, -1), From(1009, 6, -1)}));
}

TEST_F(PlayerTest, ShuttlesAtWholeSpeedsOverWholeFrames) {
  Open(1000000);
  player.MoveTo(500000);
  player.Play(2.0);
  EXPECT_EQ(Heard(100), From(500000, 100, 2));
  player.Play(8.0);
  EXPECT_EQ(Heard(2000), From(500200, 2000, 8));
  player.Play(-4.0);
  EXPECT_EQ(Heard(2000), From(516200, 2000, -4));
}

TEST_F(PlayerTest, FastLoopsKeepTheirPhase) {
  Open(100000);
  player.SetLoop(FrameRange{100, 105});
  player.MoveTo(100);
  player.Play(2.0);
  EXPECT_EQ(Heard(6), (Frames{100, 102, 104, 101, 103, 100}));
}

TEST_F(PlayerTest, SlowPlaybackInterpolatesLinearlyAlsoOverTheSeamOfALoop) {
  Open(100000);
  player.SetLoop(FrameRange{4094, 4096});  // ends with a block
  player.MoveTo(4094);
  player.Play(0.5);
  ASSERT_TRUE(player.WaitUntilRead());
  std::vector<float> const pairs = device.Pull(4);
  std::vector<float> left;
  for (std::size_t i = 0; i < pairs.size(); i += 2) {
    left.push_back(pairs[i]);
  }
  EXPECT_THAT(left, ::testing::ElementsAre(4095.0f, 4095.5f, 4096.0f, 4095.5f));
}

TEST_F(PlayerTest, SlowPlaybackInterpolatesOverTheEdgesOfBlocks) {
  Open(100000);
  player.MoveTo(4095);
  player.Play(0.25);
  ASSERT_TRUE(player.WaitUntilRead());
  std::vector<float> const pairs = device.Pull(6);
  EXPECT_EQ(pairs[0], 4096.0f);
  EXPECT_EQ(pairs[2], 4096.25f);
  EXPECT_EQ(pairs[6], 4096.75f);
  EXPECT_EQ(pairs[8], 4097.0f);
}

TEST_F(PlayerTest, GoesOnFromWhereItPaused) {
  Open(100000);
  player.Play();
  EXPECT_EQ(Heard(480), From(0, 480));
  clock.Advance(0.005);
  player.Pause();
  EXPECT_FALSE(device.IsStarted());
  EXPECT_TRUE(device.Pull(10).empty());
  EXPECT_EQ(player.Position(), 240.0) << "the frame that was being heard";
  clock.Advance(5.0);
  EXPECT_EQ(player.Position(), 240.0);
  player.Play();
  EXPECT_EQ(Heard(10), From(240, 10));
}

TEST_F(PlayerTest, OtherRateOfTheOutputIsMadeUpFor) {
  device.rate = 24000;
  Open(100000);
  player.Play();
  EXPECT_EQ(device.Wanted().sampleRate, 48000);
  EXPECT_EQ(Heard(100), From(0, 100, 2));
}

TEST_F(PlayerTest, RatesThatNoDeviceTakesAreAskedForWithinReason) {
  Open(100000, 2, 4000);
  player.Play();
  EXPECT_EQ(device.Wanted().sampleRate, 8000);
  ASSERT_TRUE(player.WaitUntilRead());
  std::vector<float> const pairs = device.Pull(3);
  EXPECT_EQ(pairs[2], CountingSource::Sample(0, 0) + 0.5f);
  EXPECT_EQ(pairs[4], CountingSource::Sample(1, 0));
}

TEST_F(PlayerTest, PositionsFarIntoALongRecordingAreExact) {
  constexpr std::int64_t kFrames = std::int64_t{24} * 3600 * 192000;
  Open(kFrames, 2, 192000);
  player.MoveTo(kFrames - 5);
  player.SetLoop(FrameRange{kFrames - 5, kFrames});
  player.Play();
  ASSERT_TRUE(player.WaitUntilRead());
  std::vector<float> const pairs = device.Pull(7);
  for (std::int64_t i = 0; i < 7; ++i) {
    EXPECT_EQ(pairs[static_cast<std::size_t>(i) * 2], CountingSource::Sample(kFrames - 5 + i % 5, 0));
  }
  clock.Advance(3.0 / 192000.0);
  EXPECT_EQ(player.Position(), static_cast<double>(kFrames - 2));
}

TEST_F(PlayerTest, DecoderThatJumpsBackReadsSeveralBlocksAtOnce) {
  source = std::make_shared<CountingSource>(1000000, 2, 48000, false);
  player.SetSource(source);
  player.MoveTo(900000);
  player.Play(-1.0);
  EXPECT_EQ(Heard(9000), From(900000, 9000, -1));
  int const ahead = (48000 * 3 / 4 + 4095) / 4096;
  EXPECT_LT(source->ReadCount(), ahead / 2);
}

TEST_F(PlayerTest, DisabledChannelsAreNotHeard) {
  Open(100000);
  player.SetEnabledChannels({false, true});
  player.Play();
  ASSERT_TRUE(player.WaitUntilRead());
  std::vector<float> pairs = device.Pull(2);
  EXPECT_EQ(pairs[0], 0.0f);
  EXPECT_EQ(pairs[3], CountingSource::Sample(1, 1));
  player.SetEnabledChannels({true, false});
  ASSERT_TRUE(player.WaitUntilRead());
  pairs = device.Pull(2);
  EXPECT_EQ(pairs[0], CountingSource::Sample(2, 0)) << "while it plays";
  EXPECT_EQ(pairs[1], 0.0f);
}

TEST_F(PlayerTest, AnEmptySoundAndNoneAreNotPlayed) {
  player.Play();
  EXPECT_FALSE(player.IsPlaying());
  Open(0);
  player.Play();
  EXPECT_FALSE(player.IsPlaying());
  EXPECT_FALSE(device.IsOpen());
}

TEST_F(PlayerTest, OutputIsOpenedOnceForASoundAndGivenBack) {
  Open(1000);
  player.Play();
  player.Pause();
  player.Play();
  EXPECT_EQ(device.OpenCount(), 1);
  Open(2000);
  EXPECT_FALSE(device.IsOpen());
  EXPECT_FALSE(player.IsPlaying());
  player.Play();
  EXPECT_EQ(Heard(3), From(0, 3));
  player.Close();
  EXPECT_FALSE(device.IsOpen());
  player.Play();
  EXPECT_EQ(Heard(3), From(0, 3)) << "it can be played again";
}

}  // namespace
}  // namespace playground
