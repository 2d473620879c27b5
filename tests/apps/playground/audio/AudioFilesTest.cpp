#include "playground/SoundFiles.h"
#include "playground/StagedProgram.h"
#include "playground/TemporaryFolder.h"

#include <moxui/ui/UI_DragDropHandler.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <limits>
#include <string>
#include <thread>

namespace playground {
namespace {

using testing::HasSubstr;
namespace DropEffect = moxui::ui::DropEffect;

class AudioFiles : public testing::Test {
 protected:
  int Drop(std::vector<std::filesystem::path> const& paths) {
    moxui::ui::TransferData data;
    for (auto const& path : paths) {
      data.files.push_back(moxcore::Utf8String(path.string()));
    }
    int const effect = program.stage.Drop({600.0f, 400.0f}, data, DropEffect::kCopy);
    program.Session().WaitForPeaks();
    program.stage.PaintFrame();
    return effect;
  }
  std::filesystem::path const& Folder() { return folder.Path(); }

  TemporaryFolder folder;
  StagedProgram program;
};

TEST_F(AudioFiles, DroppedOneIsShown) {
  EXPECT_EQ(Drop({WriteTone(Folder(), "tone.wav")}), DropEffect::kCopy);
  EXPECT_EQ(program.Session().Current().Title(), "tone.wav");
  EXPECT_EQ(program.Session().Current().ChannelCount(), 2u);
  EXPECT_EQ(program.Audio().FailureText(), "");
  EXPECT_EQ(program.Audio().Sounds().GetShownText(), u"tone.wav");
}

TEST_F(AudioFiles, SeveralAreOpenedAndTheFirstIsShown) {
  Drop({WriteTone(Folder(), "a.wav"), WriteTone(Folder(), "b.wav", 1)});
  EXPECT_EQ(program.Session().Current().Title(), "a.wav");
  ASSERT_EQ(program.Session().Documents().size(), 3u);
  program.Session().ShowDocument(2);
  EXPECT_EQ(program.Audio().Sounds().GetShownText(), u"b.wav");
}

TEST_F(AudioFiles, BadOneIsToldOfAndTheGoodOneIsShown) {
  Drop({WriteBytes(Folder(), "notes.txt", "not a sound"), WriteTone(Folder(), "tone.wav")});
  EXPECT_EQ(program.Session().Current().Title(), "tone.wav");
  EXPECT_THAT(program.Audio().FailureText(), HasSubstr("notes.txt"));
}

TEST_F(AudioFiles, MessageOfABadOneChangesThePictureAndCanBeDismissed) {
  auto const before = program.Picture();
  Drop({Folder() / "missing.wav"});
  EXPECT_THAT(program.Audio().FailureText(), HasSubstr("missing.wav"));
  EXPECT_FALSE(program.Picture() == before);
  program.Session().ForgetFailures();
  EXPECT_EQ(program.Audio().FailureText(), "");
  EXPECT_EQ(program.Picture(), before);
}

TEST_F(AudioFiles, MessageCountsFurtherBadOnes) {
  Drop({Folder() / "a.wav", Folder() / "b.wav", Folder() / "c.wav"});
  EXPECT_THAT(program.Audio().FailureText(), HasSubstr("2 more"));
}

TEST_F(AudioFiles, DragOverShowsThatADropIsWelcome) {
  auto const before = program.Picture();
  moxui::ui::TransferData data;
  data.files.push_back("x.wav");
  EXPECT_EQ(program.stage.DragOver({600.0f, 400.0f}, data, DropEffect::kCopy), DropEffect::kCopy);
  EXPECT_FALSE(program.Picture() == before);
  program.stage.DragAway(data);
  EXPECT_EQ(program.Picture(), before);
}

TEST_F(AudioFiles, DroppedTextIsRefused) {
  moxui::ui::TransferData data;
  data.text = u"hello";
  EXPECT_EQ(program.stage.DragOver({600.0f, 400.0f}, data, DropEffect::kCopy), DropEffect::kNone);
}

TEST_F(AudioFiles, DropOnAnotherPageShowsTheAudioPage) {
  program.shell.View().ShowPage(FindPage("slider"));
  Drop({WriteTone(Folder(), "tone.wav")});
  EXPECT_EQ(program.state.page, FindPage("audio"));
  EXPECT_EQ(program.Session().Current().Title(), "tone.wav");
}

TEST_F(AudioFiles, HundredsOfChannelsAreDrawn) {
  constexpr int kChannels = 250;
  Drop({WriteFloats(Folder(), "many.wav", kChannels, std::vector<float>(kChannels * 100, 0.5f))});
  EXPECT_EQ(program.Session().Current().ChannelCount(), 250u);
  EXPECT_EQ(program.Audio().FailureText(), "");
  program.Picture();
}

TEST_F(AudioFiles, ChannelsThatDoNotFitAreSaidNotTo) {
  program.stage.GetTree().SetSize({960.0f, 600.0f});
  auto const path = WriteFloats(Folder(), "many.wav", 250, std::vector<float>(250 * 100, 0.5f));
  Drop({path});
  EXPECT_FALSE(program.Audio().ChannelsFit());
  program.Session().ChangeSettings([](WaveformSettings& settings) { settings.layered = true; });
  EXPECT_TRUE(program.Audio().ChannelsFit());
}

TEST_F(AudioFiles, SamplesThatAreNoNumbersAreDrawn) {
  float const nan = std::numeric_limits<float>::quiet_NaN();
  float const infinity = std::numeric_limits<float>::infinity();
  std::vector<float> samples;
  for (int i = 0; i < 2000; ++i) {
    samples.insert(samples.end(), {nan, infinity, -infinity, 1e38f});
  }
  Drop({WriteFloats(Folder(), "wild.wav", 1, samples)});
  EXPECT_EQ(program.Audio().FailureText(), "");
  for (std::size_t state = 0; state < 5; ++state) {
    program.Audio().ShowState(state);
    program.Picture();
  }
}

TEST_F(AudioFiles, SoundOfOneSampleIsDrawnAtEachState) {
  Drop({WriteFloats(Folder(), "one.wav", 1, {0.5f})});
  EXPECT_EQ(program.Audio().FailureText(), "");
  for (std::size_t state = 0; state < 5; ++state) {
    program.Audio().ShowState(state);
    program.Picture();
  }
}

TEST_F(AudioFiles, ViewBeginsAnewWithAnotherSound) {
  program.Audio().ShowState(2);
  Drop({WriteTone(Folder(), "tone.wav")});
  EXPECT_TRUE(program.Session().View().ShowsAll());
  EXPECT_TRUE(program.Session().Selection().IsEmpty());
}

TEST_F(AudioFiles, FileThatShrinksWhileItIsReadIsOpenedOrRefusedForAReason) {
  TemporaryFolder const place;
  auto const path = WriteTone(place.Path(), "shrinking.wav", 8);
  auto const length = std::filesystem::file_size(path);
  auto const whole = place.Path() / "whole.wav";
  std::filesystem::copy_file(path, whole);
  std::atomic<bool> ends = false;
  std::thread shrinks([&] {
    for (std::uintmax_t kept = length; !ends; kept = kept > 997 ? kept - 997 : length) {
      std::filesystem::resize_file(path, kept);
    }
  });
  for (int i = 0; i < 40; ++i) {
    AudioSession session;
    session.OpenFiles({path.string()});
    session.WaitForPeaks();
    ASSERT_EQ(session.Documents().size() + session.Failures().size(), 2u);
    if (session.Failures().empty()) {
      EXPECT_EQ(session.Current().ChannelCount(), 8u);
      EXPECT_EQ(session.Current().Problem().empty(), session.Current().Progress() == 1.0);
    } else {
      EXPECT_NE(session.Failures().front().reason, "");
    }
  }
  ends = true;
  shrinks.join();
  std::filesystem::copy_file(whole, path, std::filesystem::copy_options::overwrite_existing);
  AudioSession session;
  session.OpenFiles({path.string()});
  session.WaitForPeaks();
  EXPECT_TRUE(session.Failures().empty());
}

}  // namespace
}  // namespace playground
