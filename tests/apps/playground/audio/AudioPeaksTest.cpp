#include "audio/ChannelGutter.h"
#include "audio/OverviewBar.h"
#include "audio/PeakProgress.h"
#include "audio/WaveformView.h"
#include "playground/MadeUpSound.h"
#include "playground/SoundFiles.h"
#include "playground/StagedProgram.h"
#include "playground/TemporaryFolder.h"

#include <moxaudiotoolkit/peaks/PeakCache.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace playground {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;
using State = AudioDocument::State;

constexpr std::int64_t kMinute = 48000 * 60;
// Of a pyramid's page.
constexpr std::int64_t kPage = moxaudiotoolkit::PeakPyramid::kPointsPerPage * 64;

// Sounds that are read from files in a folder, with a cache in another.
class AudioPeaks : public testing::Test {
 protected:
  AudioPeaks() { Keep(CacheFolder()); }

  void Keep(fs::path const& cacheFolder) {
    options.cache = std::make_shared<moxaudiotoolkit::PeakCache>(cacheFolder.string());
    Session().SetPeaksOptions(options);
  }
  // A file for which a made-up sound stands.
  fs::path Begin(std::shared_ptr<MadeUpSound> const& sound) {
    options.open = [sound](std::string const&) { return sound; };
    options.threadCount = 1;
    Session().SetPeaksOptions(options);
    fs::path const path = WriteBytes(folder.Path(), "long.wav", "stands for a long file");
    Session().OpenFiles({path.string()});
    return path;
  }
  // Returns when a sound that has begun, and is closed somewhere, has been read up to there.
  void WaitUntilHeldUp(MadeUpSound const& sound) {
    Session().WaitForOpening();
    sound.WaitForAReader();
    // Its reader begins a moment before the pyramid is handed out.
    for (Session().Refresh(); Current().CurrentState() == State::kOpening; Session().Refresh()) {
      std::this_thread::yield();
    }
  }
  static std::shared_ptr<MadeUpSound> Sound(std::int64_t frames, MadeUpSound::Clicks clicks) {
    return std::make_shared<MadeUpSound>(
        moxaudiotoolkit::SampleSourceProperties{.frames = frames, .sampleRate = 48000, .channelCount = 2},
        std::move(clicks));
  }
  fs::path CacheFolder() const { return folder.Path() / "cache"; }
  std::size_t CountEntries() const {
    return fs::exists(CacheFolder())
               ? static_cast<std::size_t>(std::distance(fs::directory_iterator(CacheFolder()), {}))
               : 0;
  }
  AudioSession& Session() { return program.Session(); }
  AudioDocument const& Current() { return Session().Current(); }
  PeakProgress& Progress() { return program.Audio().Progress(); }
  moxui::platform::Pixels Picture() { return program.Picture(); }

  TemporaryFolder folder;
  moxaudiotoolkit::FilePeaksOptions options;
  StagedProgram program;
};

TEST_F(AudioPeaks, OpeningReturnsBeforeTheFileIsReadAndShowsWhatTheHeaderTells) {
  auto const sound = Sound(10 * kMinute, {{kMinute, 0.5f}});
  sound->CloseFrom(0);
  Begin(sound);
  EXPECT_EQ(Session().Documents().size(), 1u);
  EXPECT_THAT(Progress().Report().text, HasSubstr("long.wav"));
  Session().WaitForOpening();
  EXPECT_EQ(Current().Title(), "long.wav");
  EXPECT_EQ(Current().Frames(), 10 * kMinute);
  EXPECT_EQ(Current().ChannelCount(), 2u);
  EXPECT_EQ(Session().View().Frames(), 10 * kMinute);
  EXPECT_TRUE(Progress().UI_IsShown());
  Picture();
  sound->OpenAll();
  Session().WaitForPeaks();
  EXPECT_EQ(Current().CurrentState(), State::kDone);
  EXPECT_FALSE(Progress().UI_IsShown());
}

TEST_F(AudioPeaks, NoSoundStaysShownWhenOthersJoin) {
  auto const sound = Sound(kMinute, {});
  options.open = [sound](std::string const&) { return sound; };
  Session().SetPeaksOptions(options);
  Session().OpenFiles({WriteBytes(folder.Path(), "a.wav", "x").string()});
  Session().WaitForOpening();
  sound->CloseFrom(0);
  // Of two the first is shown; the other joins while no sound is.
  Session().AddDocument(DemoDocument());
  Session().ShowDocument(Session().Documents().size());
  ASSERT_FALSE(Session().HasSound());
  Session().AddDocument(DemoDocument());
  EXPECT_TRUE(Session().HasSound());
  EXPECT_EQ(Session().View().Frames(), Current().Frames());
  Session().ShowDocument(Session().Documents().size());
  Session().OpenFiles(
      {WriteBytes(folder.Path(), "b.wav", "x").string(), WriteBytes(folder.Path(), "c.wav", "x").string()});
  Session().WaitForOpening();
  EXPECT_EQ(Current().Title(), "b.wav");
  EXPECT_EQ(Session().View().Frames(), kMinute);
  sound->OpenAll();
}

TEST_F(AudioPeaks, OverviewIsVeiledWhereNothingIsReadYet) {
  auto const sound = Sound(8 * kPage, {});
  sound->CloseFrom(4 * kPage);
  Begin(sound);
  WaitUntilHeldUp(*sound);
  auto const growing = Picture();
  sound->OpenAll();
  Session().WaitForPeaks();
  auto const whole = Picture();
  OverviewBar const& overview = program.Audio().Overview();
  auto const columnAt = [&](moxui::platform::Pixels const& picture, float share) {
    auto const x = static_cast<std::ptrdiff_t>(StagedProgram::PointIn(overview, share).x);
    std::vector<std::uint8_t> column;
    for (float down = 0.1f; down < 0.9f; down += 0.02f) {
      auto const y = static_cast<std::ptrdiff_t>(StagedProgram::PointIn(overview, share, down).y);
      auto const pixel = picture.bytes.begin() + (y * picture.width + x) * 4;
      column.insert(column.end(), pixel, pixel + 4);
    }
    return column;
  };
  EXPECT_EQ(columnAt(growing, 0.25f), columnAt(whole, 0.25f));
  EXPECT_NE(columnAt(growing, 0.75f), columnAt(whole, 0.75f));
}

TEST_F(AudioPeaks, PictureGrowsWithWhatHasBeenRead) {
  auto const sound = Sound(8 * kPage, {{kPage, 0.9f}, {7 * kPage, 0.9f}});
  sound->CloseFrom(4 * kPage);
  Begin(sound);
  WaitUntilHeldUp(*sound);
  EXPECT_EQ(Current().CurrentState(), State::kBuilding);
  EXPECT_EQ(Current().Progress(), 0.5);
  EXPECT_EQ(Progress().Report().text, "Reading the sound: 50 %");
  EXPECT_EQ(Progress().Bar().UI_GetAccessibleRole(), moxui::ui::AccessibleRole::kProgress);
  EXPECT_EQ(Progress().Bar().UI_GetAccessibleValue(), "50 %");
  EXPECT_EQ(Progress().Bar().UI_GetAccessibleRange()->value, 0.5);
  auto const& view = Session().View();
  auto const amplitude = [&](std::int64_t frame) {
    return program.Audio().Waveform().AmplitudeAt(
        0, static_cast<int>(view.ColumnOf(static_cast<double>(frame))));
  };
  EXPECT_GT(amplitude(kPage), 0.4f);
  EXPECT_EQ(amplitude(7 * kPage), 0.0f);
  auto const half = Picture();
  auto const& waveform = program.Audio().Waveform();
  moxui::RectT<int> const rect(waveform.UI_ConvertRectTo(nullptr, waveform.UI_GetLocalRectF(false)));
  auto const column = [&](double share) {
    std::vector<std::uint8_t> bytes;
    for (int y = rect.top; y < rect.Bottom(); ++y) {
      auto const x = rect.left + static_cast<int>(share * rect.width);
      auto const at = (static_cast<std::ptrdiff_t>(y) * half.width + x) * 4;
      bytes.insert(bytes.end(), half.bytes.begin() + at, half.bytes.begin() + at + 4);
    }
    return bytes;
  };
  EXPECT_NE(column(0.3), column(0.8)) << "silence that was read looks otherwise than what wasn't";
  sound->OpenAll();
  Session().WaitForPeaks();
  EXPECT_GT(amplitude(7 * kPage), 0.4f);
  EXPECT_FALSE(Picture() == half);
}

TEST_F(AudioPeaks, CancelInTheMiddleKeepsWhatIsThereAndCanBeTakenBack) {
  auto const sound = Sound(8 * kPage, {{kPage, 0.9f}});
  sound->CloseFrom(4 * kPage);
  Begin(sound);
  WaitUntilHeldUp(*sound);
  program.stage.PaintFrame();
  EXPECT_EQ(Progress().Button().GetTextLabel(), u"Cancel");
  program.stage.Click(program.stage.CenterOf(Progress().Button()));
  sound->OpenAll();
  Session().WaitForPeaks();
  EXPECT_EQ(Current().CurrentState(), State::kCancelled);
  EXPECT_GE(Current().Progress(), 0.5);
  EXPECT_LT(Current().Progress(), 1.0);
  EXPECT_THAT(Progress().Report().text, HasSubstr("Stopped at"));
  EXPECT_EQ(CountEntries(), 0u) << "a part must not be kept as the whole";
  program.stage.PaintFrame();
  EXPECT_EQ(Progress().Button().GetTextLabel(), u"Read again");
  program.stage.Click(program.stage.CenterOf(Progress().Button()));
  Session().WaitForPeaks();
  EXPECT_EQ(Current().CurrentState(), State::kDone);
  EXPECT_EQ(Current().Progress(), 1.0);
}

TEST_F(AudioPeaks, OpeningIsGivenUp) {
  auto const sound = Sound(8 * kPage, {});
  // What is given up may begin to wait when this test is over.
  auto const isOpen = std::make_shared<std::atomic<bool>>(false);
  options.open = [isOpen, sound](std::string const&) {
    isOpen->wait(false);
    return sound;
  };
  Session().SetPeaksOptions(options);
  Session().OpenFiles({WriteBytes(folder.Path(), "slow.ogg", "x").string()});
  EXPECT_EQ(Progress().Report().action, ProgressReport::Action::kCancelOpening);
  program.stage.PaintFrame();
  program.stage.Click(program.stage.CenterOf(Progress().Button()));
  EXPECT_THAT(Session().Opening(), IsEmpty());
  EXPECT_FALSE(Progress().UI_IsShown());
  *isOpen = true;
  isOpen->notify_all();
  Session().WaitForPeaks();
  EXPECT_EQ(Session().Documents().size(), 1u);
}

TEST_F(AudioPeaks, ProgramMayEndInTheMiddle) {
  for (std::int64_t const closed : {std::int64_t{0}, kPage, 5 * kPage}) {
    auto const sound = Sound(8 * kPage, {});
    sound->CloseFrom(closed);
    auto ending = std::make_unique<StagedProgram>();
    moxaudiotoolkit::FilePeaksOptions endless;
    endless.open = [sound](std::string const&) { return sound; };
    ending->Session().SetPeaksOptions(endless);
    ending->Session().OpenFiles({WriteBytes(folder.Path(), "long.wav", "x").string()});
    ending->Session().WaitForOpening();
    sound->WaitForAReader();
    sound->OpenAll();
    ending.reset();
    EXPECT_EQ(sound.use_count(), 2) << "this one and that of the options; no thread holds another";
  }
}

TEST_F(AudioPeaks, SecondOpeningComesFromTheCache) {
  auto const path = WriteTone(folder.Path(), "tone.wav");
  Session().OpenFiles({path.string()});
  Session().WaitForPeaks();
  EXPECT_EQ(CountEntries(), 1u);
  auto const first = Picture();
  StagedProgram second;
  second.Session().SetPeaksOptions(options);
  second.Session().OpenFiles({path.string()});
  second.Session().WaitForPeaks();
  EXPECT_TRUE(second.Session().Current().CameFromCache());
  EXPECT_EQ(second.Picture(), first);
}

TEST_F(AudioPeaks, DamagedEntryIsBuiltAnew) {
  auto const path = WriteTone(folder.Path(), "tone.wav");
  Session().OpenFiles({path.string()});
  Session().WaitForPeaks();
  for (auto const& entry : fs::directory_iterator(CacheFolder())) {
    std::fstream file(entry.path(), std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(-3, std::ios::end);
    file.put('\x55');
  }
  auto const first = Picture();
  StagedProgram second;
  second.Session().SetPeaksOptions(options);
  second.Session().OpenFiles({path.string()});
  second.Session().WaitForPeaks();
  EXPECT_FALSE(second.Session().Current().CameFromCache());
  EXPECT_EQ(second.Session().Current().CurrentState(), State::kDone);
  EXPECT_EQ(second.Picture(), first);
  EXPECT_EQ(CountEntries(), 1u);
}

TEST_F(AudioPeaks, WorksWhereNothingCanBeKeptAndSaysSoInALine) {
  Keep(WriteBytes(folder.Path(), "no-folder", "a file in the folder's place"));
  Session().OpenFiles({WriteTone(folder.Path(), "tone.wav").string()});
  Session().WaitForPeaks();
  EXPECT_EQ(Current().CurrentState(), State::kDone);
  EXPECT_EQ(Current().Progress(), 1.0);
  EXPECT_EQ(program.Audio().FailureText(), "");
  EXPECT_TRUE(Progress().UI_IsShown());
  EXPECT_NE(Progress().Report().text, "");
  EXPECT_EQ(Progress().Report().action, ProgressReport::Action::kNone);
  EXPECT_FALSE(Progress().Button().UI_IsShown());
}

TEST_F(AudioPeaks, FolderOfTheCacheMayVanish) {
  auto const path = WriteTone(folder.Path(), "tone.wav");
  Session().OpenFiles({path.string()});
  Session().WaitForPeaks();
  fs::remove_all(CacheFolder());
  Session().OpenFiles({path.string()});
  Session().WaitForPeaks();
  EXPECT_EQ(Current().CurrentState(), State::kDone);
  EXPECT_EQ(Current().Problem(), "");
  EXPECT_EQ(CountEntries(), 1u);
}

TEST_F(AudioPeaks, FileThatChangesIsReadAnew) {
  auto const path = WriteFloats(folder.Path(), "changing.wav", 1, std::vector<float>(8000, 0.25f));
  Session().OpenFiles({path.string()});
  Session().WaitForPeaks();
  Session().ChangeView([](Viewport& view) { view.Show(1000.0, 3000.0); });
  auto const before = Picture();
  WriteFloats(folder.Path(), "changing.wav", 1, std::vector<float>(8000, 0.75f));
  fs::last_write_time(path, fs::last_write_time(path) + std::chrono::seconds(2));
  program.stage.AdvanceTime(1100.0);
  Session().WaitForPeaks();
  EXPECT_EQ(program.Audio().Waveform().AmplitudeAt(0, 10), 0.75f);
  EXPECT_FALSE(Picture() == before);
  EXPECT_EQ(Session().View().Left(), 1000.0) << "a sound of the same length is looked at where it was";
}

TEST_F(AudioPeaks, FileThatBecomesAnotherSoundIsShownFromTheStart) {
  auto const path = WriteFloats(folder.Path(), "changing.wav", 1, std::vector<float>(8000, 0.25f));
  Session().OpenFiles({path.string()});
  Session().WaitForPeaks();
  Session().ChangeView([](Viewport& view) { view.Show(1000.0, 3000.0); });
  WriteFloats(folder.Path(), "changing.wav", 2, std::vector<float>(4000, 0.75f));
  program.stage.AdvanceTime(1100.0);
  Session().WaitForPeaks();
  EXPECT_EQ(Current().ChannelCount(), 2u);
  EXPECT_EQ(Session().View().Frames(), 2000);
  EXPECT_TRUE(Session().View().ShowsAll());
  EXPECT_EQ(program.Audio().Gutter().ItemCount(), 2u);
  Picture();
}

TEST_F(AudioPeaks, FileThatVanishesKeepsItsPictureAndItsSuccessorIsTaken) {
  auto const path = WriteTone(folder.Path(), "tone.wav");
  Session().OpenFiles({path.string()});
  Session().WaitForPeaks();
  fs::rename(path, folder.Path() / "elsewhere.wav");
  program.stage.AdvanceTime(1100.0);
  Session().WaitForPeaks();
  EXPECT_EQ(Current().CurrentState(), State::kFailed);
  EXPECT_EQ(Current().ChannelCount(), 2u);
  EXPECT_THAT(Progress().Report().text, HasSubstr("tone.wav"));
  EXPECT_GT(program.Audio().Waveform().AmplitudeAt(0, 10), 0.3f);
  fs::rename(folder.Path() / "elsewhere.wav", path);
  program.stage.AdvanceTime(1100.0);
  Session().WaitForPeaks();
  EXPECT_EQ(Current().CurrentState(), State::kDone);
  EXPECT_FALSE(Progress().UI_IsShown());
}

TEST_F(AudioPeaks, ChangeIsSeenAsSoonAsTheWindowIsActive) {
  auto const path = WriteFloats(folder.Path(), "changing.wav", 1, std::vector<float>(8000, 0.25f));
  Session().OpenFiles({path.string()});
  Session().WaitForPeaks();
  program.Audio().Waveform().UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kByCode);
  program.stage.Deactivate();
  WriteFloats(folder.Path(), "changing.wav", 1, std::vector<float>(9000, 0.75f));
  program.stage.Activate();
  Session().WaitForPeaks();
  EXPECT_EQ(Current().Frames(), 9000);
}

TEST_F(AudioPeaks, TwoDocumentsOfOneFileAreReadSideBySide) {
  auto const path = WriteTone(folder.Path(), "tone.wav").string();
  Session().OpenFiles({path, path});
  Session().WaitForPeaks();
  ASSERT_EQ(Session().Documents().size(), 3u);
  auto const first = Picture();
  Session().ShowDocument(2);
  EXPECT_EQ(Picture(), first);
  EXPECT_EQ(CountEntries(), 1u);
}

TEST_F(AudioPeaks, FailuresAreToldByReasonAndName) {
  auto const folderPath = folder.Path() / "sub";
  fs::create_directory(folderPath);
  Session().OpenFiles({(folder.Path() / "missing.wav").string(), folderPath.string(),
                       WriteBytes(folder.Path(), "empty.wav", "").string(),
                       WriteBytes(folder.Path(), "notes.txt", "not a sound").string()});
  Session().WaitForOpening();
  auto const& failures = Session().Failures();
  ASSERT_EQ(failures.size(), 4u);
  EXPECT_EQ(failures[0].reason, "The file can't be opened: there is no such file or folder.");
  EXPECT_EQ(failures[1].reason, "This is a folder, not a sound file.");
  EXPECT_EQ(failures[2].reason, "The file is empty.");
  EXPECT_THAT(failures[3].reason, HasSubstr("not a sound file of a known format"));
  EXPECT_THAT(failures[3].Sentence(), HasSubstr("notes.txt: "));
  EXPECT_EQ(Session().CurrentIndex(), 0u);
}

TEST_F(AudioPeaks, BadFileLeavesTheViewOfTheSoundThatIsShown) {
  Session().ChangeView([](Viewport& view) { view.Show(1000.0, 3000.0); });
  Session().OpenFiles({(folder.Path() / "missing.wav").string()});
  Session().WaitForOpening();
  EXPECT_EQ(Session().View().Left(), 1000.0);
}

}  // namespace
}  // namespace playground
