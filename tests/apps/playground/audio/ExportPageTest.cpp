#include "audio/EditBar.h"
#include "audio/ExportBar.h"
#include "audio/GlyphButton.h"
#include "playground/SoundFiles.h"
#include "playground/StagedProgram.h"
#include "playground/TemporaryFolder.h"
#include "playground/playback/CountingSource.h"
#include "program/Localized.h"
#include "properties/PropertyPanel.h"
#include "properties/PropertyRow.h"

#include <moxaudiotoolkit/peaks/PeakBuilder.h>
#include <moxaudiotoolkit/peaks/PeakDataFile.h>
#include <moxaudiotoolkit/peaks/SampleSource.h>
#include <moxcore/threads/Executor.h>
#include <moxui/platform/ModalResponder.h>
#include <moxui/ui/KeyboardEvent.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <semaphore>
#include <string>

namespace playground {
namespace {

using moxui::ui::KeyboardCode;
using moxui::ui::ModKeys;
using testing::HasSubstr;

// Answers menus and file dialogs.
class Answers : public moxui::platform::ModalResponder {
 public:
  Answers() : mBefore(SetModalResponder(this)) {}
  ~Answers() override { SetModalResponder(mBefore); }
  std::optional<int> Answer(moxui::platform::ModalRequest& request) override {
    if (request.kind == moxui::platform::ModalKind::kMenu) {
      items = *request.menuItems;
      return menuId;
    }
    ++dialogs;
    title = request.title;
    if (path.empty()) {
      return 0;
    }
    request.files->push_back(moxcore::Utf8String(path));
    return 1;
  }

  int menuId = 0;
  std::string path;
  int dialogs = 0;
  moxcore::Utf16String title;
  std::vector<moxui::ui::OS_MenuItem> items;

 private:
  ModalResponder* mBefore;
};

moxaudiotoolkit::PeakData PeaksOfOneSize(std::uint32_t length, std::int16_t size) {
  moxaudiotoolkit::PeakData data{
      .sampleRate = 48000, .samplesPerPixel = 256, .channelCount = 1, .length = length, .values = {}};
  for (std::uint32_t i = 0; i < length; ++i) {
    data.values.insert(data.values.end(), {static_cast<std::int16_t>(-size), size});
  }
  return data;
}

class ExportPage : public testing::Test {
 protected:
  void Open(std::filesystem::path const& path) {
    program.Session().OpenFiles({path.string()});
    program.Session().WaitForPeaks();
  }
  void PressExport() { program.stage.Key(KeyboardCode::kE, ModKeys(moxui::ui::ModKey::kCommand)); }
  void Finish() {
    program.Session().Exports().Current()->Wait();
    program.stage.AdvanceTime(200.0);
  }
  std::string Path(std::string const& name) { return (folder.Path() / name).string(); }
  ExportBar& Bar() { return program.Audio().Exporting(); }

  TemporaryFolder folder;
  Answers answers;
  StagedProgram program;
};

TEST_F(ExportPage, KeyExportsTheSelectionSampleForSample) {
  Open(WriteTone(folder.Path(), "tone.wav"));
  program.Session().ChangeSelection([](SampleSelection& selection) { selection.Select(6'000, 2'000); });
  answers.path = Path("part.wav");
  PressExport();
  EXPECT_EQ(answers.title, u"Export the selection");
  EXPECT_TRUE(Bar().UI_IsShown());
  Finish();
  EXPECT_EQ(Bar().Sentence(), "Exported part.wav.");
  auto const whole = moxaudiotoolkit::OpenSampleSource(Path("tone.wav"));
  auto const part = moxaudiotoolkit::OpenSampleSource(Path("part.wav"));
  ASSERT_EQ(part->GetProperties().frames, 4'000);
  EXPECT_EQ(part->GetProperties().integerBits, 16);
  std::vector<float> expected(8'000);
  std::vector<float> written(8'000);
  whole->ReadInterleaved(2'000, expected);
  part->ReadInterleaved(0, written);
  EXPECT_EQ(written, expected);
  program.stage.PaintFrame();
  program.stage.Click(program.stage.CenterOf(Bar().Button()));
  EXPECT_FALSE(Bar().UI_IsShown());
}

TEST_F(ExportPage, WithoutASelectionTheWholeSoundIsExported) {
  Open(WriteTone(folder.Path(), "tone.wav"));
  answers.path = Path("all.wav");
  PressExport();
  EXPECT_EQ(answers.title, u"Export the whole sound");
  Finish();
  EXPECT_EQ(moxaudiotoolkit::OpenSampleSource(Path("all.wav"))->GetProperties().frames,
            program.Session().Current().Frames());
}

TEST_F(ExportPage, ChannelsThatAreOffStayOutAndTheDialogSaysSo) {
  answers.path = Path("some.wav");
  program.Session().ToggleChannel(1);
  program.Session().ToggleChannel(4);
  PressExport();
  EXPECT_EQ(answers.title, u"Export the whole sound, 4 of 6 channels");
  Finish();
  EXPECT_EQ(moxaudiotoolkit::OpenSampleSource(Path("some.wav"))->GetProperties().channelCount, 4);
  for (std::size_t channel = 0; channel < 6; ++channel) {
    if (program.Session().IsChannelEnabled(channel)) {
      program.Session().ToggleChannel(channel);
    }
  }
  EXPECT_FALSE(CanExport(program.Session(), ExportKind::kWave));
  PressExport();
  EXPECT_EQ(answers.dialogs, 1);
}

TEST_F(ExportPage, GivingUpTheDialogExportsNothing) {
  PressExport();
  EXPECT_EQ(answers.dialogs, 1);
  EXPECT_EQ(program.Session().Exports().Current(), nullptr);
  EXPECT_FALSE(Bar().UI_IsShown());
}

TEST_F(ExportPage, NoOtherBeginsWhileOneRunsAndCancellingItLeavesNothing) {
  auto const source = std::make_shared<CountingSource>(1'000'000);
  moxaudiotoolkit::PeakBuilder builder(source);
  builder.Wait();
  program.Session().AddDocument({"held", source, builder.GetPyramid()});
  source->Hold();
  answers.path = Path("held.wav");
  PressExport();
  EXPECT_FALSE(CanExport(program.Session(), ExportKind::kWave));
  answers.path = Path("other.wav");
  PressExport();
  EXPECT_EQ(answers.dialogs, 1);
  EXPECT_THAT(Bar().Sentence(), HasSubstr("Exporting held.wav"));
  program.stage.PaintFrame();
  program.stage.Click(program.stage.CenterOf(Bar().Button()));
  source->LetThrough();
  Finish();
  EXPECT_EQ(Bar().Sentence(), "The export of held.wav was cancelled.");
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
  EXPECT_TRUE(CanExport(program.Session(), ExportKind::kWave));
}

TEST_F(ExportPage, AFullPoolHoldsNoExportUp) {
  auto const pool = moxcore::threads::GetCPUBoundExecutor();
  // Tasks that were let go may still be waking when the test is over.
  auto const end = std::make_shared<std::counting_semaphore<>>(0);
  for (int i = 0; i < pool->GetThreadCount(); ++i) {
    pool->Execute([end] { end->acquire(); });
  }
  answers.path = Path("all.wav");
  PressExport();
  Finish();
  EXPECT_EQ(Bar().Sentence(), "Exported all.wav.");
  end->release(pool->GetThreadCount());
}

TEST_F(ExportPage, FailureIsToldWithItsReason) {
  answers.path = Path("gone/out.wav");
  PressExport();
  Finish();
  EXPECT_THAT(Bar().Sentence(), HasSubstr("out.wav could not be exported"));
  EXPECT_THAT(Bar().Sentence(), HasSubstr("there is no such file"));
  EXPECT_THAT(To8(program.state.log.Lines().back().text), HasSubstr("out.wav could not be exported"));
}

TEST_F(ExportPage, ButtonOffersWhatCanBeExported) {
  answers.menuId = 3;
  answers.path = Path("peaks.dat");
  program.stage.Click(program.stage.CenterOf(program.Audio().Edit().ExportButton()));
  ASSERT_EQ(answers.items.size(), 4u);
  EXPECT_EQ(answers.items[0].text, u"Whole sound as WAV...");
  EXPECT_TRUE(answers.items[0].isEnabled);
  EXPECT_EQ(answers.title, u"Export the peaks");
  Finish();
  EXPECT_TRUE(moxaudiotoolkit::ReadPeakData(Path("peaks.dat")).has8Bits);
}

TEST_F(ExportPage, AnExportOutlivesAnotherAppearance) {
  answers.path = Path("all.wav");
  PressExport();
  Appearance light = program.state.appearance;
  light.theme = ThemeChoice::kLight;
  program.shell.SetAppearance(light);
  Finish();
  EXPECT_EQ(Bar().Sentence(), "Exported all.wav.");
}

// Peak files

TEST_F(ExportPage, PeakFileIsShownWithoutItsSound) {
  answers.menuId = 2;
  answers.path = Path("peaks.dat");
  program.stage.Click(program.stage.CenterOf(program.Audio().Edit().ExportButton()));
  Finish();
  Open(Path("peaks.dat"));
  AudioDocument const& document = program.Session().Current();
  EXPECT_EQ(document.Title(), "peaks.dat");
  EXPECT_EQ(document.ChannelCount(), 6u);
  EXPECT_EQ(document.SampleRate(), 48000);
  EXPECT_EQ(document.Source(), nullptr);
  EXPECT_THAT(document.Summary(), HasSubstr("Peaks without a sound, one for 256 samples"));
  EXPECT_FALSE(CanExport(program.Session(), ExportKind::kWave));
  EXPECT_TRUE(CanExport(program.Session(), ExportKind::kPeaks16));
  EXPECT_FALSE(program.Audio().Panel().FindRow("rms")->UI_IsEnabled()) << "such a file has no RMS";
  // The zoom ends where the peaks do.
  program.Session().ChangeView([](Viewport& view) { view.ZoomAt(0.0, 1e9); });
  EXPECT_EQ(program.Session().View().SamplesPerPixel(), 256.0);
  EXPECT_FALSE(program.Session().DrawsSamples());
  for (std::size_t state = 0; state < 5; ++state) {
    program.Audio().ShowState(state);
    program.Picture();
  }
  program.Session().ShowDocument(0);
  EXPECT_TRUE(program.Audio().Panel().FindRow("rms")->UI_IsEnabled());
  program.Session().ChangeView([](Viewport& view) { view.ZoomAt(0.0, 1e9); });
  EXPECT_EQ(program.Session().View().SamplesPerPixel(), 1.0 / Viewport::kMostColumnsPerSample);
}

TEST_F(ExportPage, PeakFilesAreReadOnAnotherThreadAndCanBeGivenUp) {
  moxaudiotoolkit::WritePeakData(Path("peaks.dat"), PeaksOfOneSize(500, 100));
  program.Session().OpenFiles({Path("peaks.dat")});
  EXPECT_EQ(program.Session().Opening().size(), 1u);
  EXPECT_EQ(program.Session().Documents().size(), 1u);
  program.Session().CancelOpening();
  program.Session().WaitForPeaks();
  EXPECT_EQ(program.Session().Documents().size(), 1u);
  EXPECT_EQ(program.Audio().FailureText(), "");
}

TEST_F(ExportPage, PeakFileThatChangesIsShownAnew) {
  moxaudiotoolkit::WritePeakData(Path("peaks.dat"), PeaksOfOneSize(5'000, 100));
  Open(Path("peaks.dat"));
  auto const before = program.Picture();
  moxaudiotoolkit::WritePeakData(Path("peaks.dat"), PeaksOfOneSize(5'000, 30'000));
  program.Session().PollForChanges();
  program.Session().WaitForPeaks();
  EXPECT_FALSE(program.Picture() == before);
  EXPECT_EQ(program.Session().Documents().size(), 2u);
  // Half as many of twice the size are as long, and end the zoom earlier.
  moxaudiotoolkit::PeakData coarse = PeaksOfOneSize(2'500, 30'000);
  coarse.samplesPerPixel *= 2;
  moxaudiotoolkit::WritePeakData(Path("peaks.dat"), coarse);
  program.Session().PollForChanges();
  program.Session().WaitForPeaks();
  program.Session().ChangeView([](Viewport& view) { view.ZoomAt(0.0, 1e9); });
  EXPECT_EQ(program.Session().View().SamplesPerPixel(), 512.0);
  // One that can't be read keeps the picture of the one before.
  WriteBytes(folder.Path(), "peaks.dat", "no peaks");
  program.Session().PollForChanges();
  program.Session().WaitForPeaks();
  EXPECT_EQ(program.Session().Current().Frames(), 1'280'000);
  EXPECT_THAT(program.Session().Current().Problem(), HasSubstr("too short"));
}

TEST_F(ExportPage, SmallAndEmptyPeakFilesAreDrawnAtEachState) {
  for (std::uint32_t const length : {0u, 1u, 10u}) {
    moxaudiotoolkit::WritePeakData(Path("peaks.dat"), PeaksOfOneSize(length, 30'000));
    Open(Path("peaks.dat"));
    EXPECT_EQ(program.Session().Current().Frames(), length * 256);
    for (std::size_t state = 0; state < 5; ++state) {
      program.Audio().ShowState(state);
      program.Picture();
    }
    EXPECT_EQ(program.Audio().FailureText(), "");
  }
}

TEST_F(ExportPage, BadPeakFilesAreToldOfLikeOtherFiles) {
  WriteBytes(folder.Path(), "text.dat", "this is no peak file at all, but long enough");
  WriteBytes(folder.Path(), "empty.DAT", "");
  Open(Path("text.dat"));
  EXPECT_THAT(program.Audio().FailureText(), HasSubstr("text.dat"));
  EXPECT_EQ(program.Session().Documents().size(), 1u);
  Open(Path("empty.DAT"));
  EXPECT_THAT(program.Audio().FailureText(), HasSubstr("empty"));
  Open(Path("missing.dat"));
  EXPECT_THAT(program.Audio().FailureText(), HasSubstr("missing.dat"));
}

}  // namespace
}  // namespace playground
