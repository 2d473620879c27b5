// Sounds whose header is good, and that can't be read to their end.
#include "audio/PeakProgress.h"
#include "playground/SoundFiles.h"
#include "playground/StagedProgram.h"
#include "playground/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace playground {
namespace {

namespace fs = std::filesystem;
using moxaudiotoolkit::AudioFileFormat;
using State = AudioDocument::State;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class UnreadSounds : public testing::Test {
 protected:
  UnreadSounds() {
    Session().SetFailureFunction([this](OpenFailure const& failure) { heard.push_back(failure.Sentence()); });
  }
  AudioSession& Session() { return program.Session(); }
  std::string Whole(std::string const& name = "whole.flac") {
    return WriteTone(folder.Path(), name, AudioFileFormat::kFlacInt16, 2).string();
  }
  std::string Cut() {
    fs::path const whole = Whole("all-of-it.flac");
    return WriteTruncated(whole, fs::file_size(whole) / 2).string();
  }
  void Open(std::vector<std::string> const& paths) {
    Session().OpenFiles(paths);
    Session().WaitForPeaks();
  }
  // The page looks once a second whether files have changed.
  void Poll() {
    program.stage.AdvanceTime(1100.0);
    Session().WaitForPeaks();
  }
  std::string ShownBelow() { return program.Audio().Progress().Report().text; }

  TemporaryFolder folder;
  std::vector<std::string> heard;
  StagedProgram program;
};

TEST_F(UnreadSounds, SecondOneIsToldOfOnceAndByThePageToo) {
  std::string const cut = Cut();
  Open({Whole(), cut});
  ASSERT_THAT(Session().Documents(), SizeIs(3));
  EXPECT_EQ(Session().Current().Title(), "whole.flac");
  ASSERT_EQ(Session().Documents()[2].CurrentState(), State::kFailed);
  OpenFailure const failure = Session().Documents()[2].Failure();
  EXPECT_NE(failure.reason, "");
  ASSERT_THAT(heard, ElementsAre(cut + ": " + failure.reason));
  EXPECT_EQ(program.Audio().FailureText(), heard.front());
  Session().Refresh();
  Session().WaitForPeaks();
  EXPECT_THAT(heard, SizeIs(1));
  EXPECT_THAT(Session().Failures(), SizeIs(1));
}

TEST_F(UnreadSounds, LineThatTellsOfOneAppearsInThePicture) {
  Open({Whole(), Cut()});
  EXPECT_THAT(program.Audio().FailureText(), Not(IsEmpty()));
  auto const with = program.Picture();
  Session().ForgetFailures();
  EXPECT_FALSE(program.Picture() == with);
  EXPECT_EQ(program.Audio().FailureText(), "");
  Session().WaitForPeaks();
  EXPECT_EQ(program.Audio().FailureText(), "") << "what was dismissed stays so";
}

TEST_F(UnreadSounds, OneThatIsShownIsToldOfBelowItsWaveformAlone) {
  std::string const cut = Cut();
  Open({cut, Whole()});
  EXPECT_THAT(heard, ElementsAre(HasSubstr(cut)));
  EXPECT_EQ(program.Audio().FailureText(), "");
  EXPECT_THAT(ShownBelow(), HasSubstr("truncated-"));
  Session().ShowDocument(2);
  EXPECT_EQ(program.Audio().FailureText(), "") << "it has been told";
}

TEST_F(UnreadSounds, LineGoesWhenTheSoundIsShown) {
  Open({Whole(), Cut()});
  EXPECT_NE(program.Audio().FailureText(), "");
  Session().ShowDocument(2);
  EXPECT_EQ(program.Audio().FailureText(), "");
  EXPECT_THAT(ShownBelow(), HasSubstr("truncated-"));
  EXPECT_THAT(Session().UnreadDocuments(), SizeIs(1));
}

TEST_F(UnreadSounds, OneThatFailsWhenItIsReadAgainIsToldOfAgain) {
  Open({Cut()});
  EXPECT_THAT(heard, SizeIs(1));
  Session().RestartPeaks();
  Session().WaitForPeaks();
  ASSERT_THAT(heard, SizeIs(2));
  EXPECT_EQ(heard[0], heard[1]);
}

TEST_F(UnreadSounds, OneThatIsReadAgainAndLeftIsToldOfAgain) {
  Open({Cut(), Whole()});
  Session().RestartPeaks();
  Session().ShowDocument(2);
  Session().WaitForPeaks();
  EXPECT_THAT(heard, SizeIs(2));
}

TEST_F(UnreadSounds, OneThatVanishesIsToldOfUntilItIsBack) {
  std::string const vanishing = Whole("vanishing.flac");
  Open({Whole(), vanishing});
  EXPECT_THAT(heard, IsEmpty());
  fs::path const elsewhere = folder.Path() / "elsewhere.flac";
  fs::rename(vanishing, elsewhere);
  Poll();
  EXPECT_THAT(heard, ElementsAre(HasSubstr("vanishing.flac: ")));
  EXPECT_THAT(program.Audio().FailureText(), HasSubstr("vanishing.flac"));
  Poll();
  EXPECT_THAT(heard, SizeIs(1));
  fs::rename(elsewhere, vanishing);
  Poll();
  EXPECT_EQ(program.Audio().FailureText(), "");
  fs::rename(vanishing, elsewhere);
  Poll();
  EXPECT_THAT(heard, SizeIs(2));
}

TEST_F(UnreadSounds, OneThatChangesAndFailsForTheSameReasonIsToldOfOnce) {
  std::string const cut = Cut();
  Open({Whole(), cut});
  fs::last_write_time(cut, fs::last_write_time(cut) + std::chrono::seconds(2));
  Poll();
  ASSERT_EQ(Session().Documents()[2].CurrentState(), State::kFailed);
  EXPECT_THAT(heard, SizeIs(1));
  EXPECT_THAT(Session().Failures(), SizeIs(1));
}

TEST_F(UnreadSounds, SessionTellsWhetherItReads) {
  Session().OpenFiles({Whole()});
  EXPECT_TRUE(Session().IsReading());
  Session().WaitForOpening();
  Session().WaitForPeaks();
  EXPECT_FALSE(Session().IsReading());
  Open({Cut()});
  EXPECT_FALSE(Session().IsReading()) << "what has failed is not being read";
}

}  // namespace
}  // namespace playground
