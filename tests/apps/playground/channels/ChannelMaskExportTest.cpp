#include "audio/ChannelGutter.h"
#include "audio/ExportBar.h"
#include "playground/SoundFiles.h"
#include "playground/TemporaryFolder.h"
#include "playground/channels/WorkedChannels.h"

#include <moxaudiotoolkit/AudioFile.h>
#include <moxui/platform/ModalResponder.h>
#include <moxui/ui/KeyboardEvent.h>

#include <filesystem>
#include <iterator>

namespace playground {
namespace {

using enum moxmediatypes::AudioChannelLabel;
using moxmediatypes::AudioChannelLayout;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class ChannelMaskExport : public testing::Test {
 protected:
  // Shows a sound of so many channels whose file says nothing of them.
  void Open(int channels) {
    program.Session().OpenFiles({WriteTone(folder.Path(), "tone.wav", channels).string()});
    program.Session().WaitForPeaks();
  }
  void OpenExported() {
    program.Session().OpenFiles({Path()});
    program.Session().WaitForPeaks();
  }
  std::string Path() const { return (folder.Path() / "out.wav").string(); }
  // Presses the shortcut; the file dialog, if it opens, is answered.
  void Export() {
    answers.Expect([this](moxui::platform::ModalRequest& request) {
      request.files->push_back(moxcore::Utf8String(Path()));
      return 1;
    });
    program.stage.Key(moxui::ui::KeyboardCode::kE, moxui::ui::ModKeys(moxui::ui::ModKey::kCommand));
    if (auto* const running = program.Session().Exports().Current()) {
      running->Wait();
      program.stage.AdvanceTime(200.0);
    }
  }
  ExportBar& Bar() { return program.Audio().Exporting(); }
  std::size_t FileCount() const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder.Path()), {}));
  }

  TemporaryFolder folder;
  moxui::testing::ModalAnswers answers;
  StagedProgram program;
};

TEST_F(ChannelMaskExport, NamesTheChannelsOfWhoeverReadsTheFile) {
  for (AudioChannelLayout const& layout :
       {AudioChannelLayout{kLeft, kRight},
        AudioChannelLayout{kLeft, kRight, kCenter, kLowFrequency, kLeftSurround, kRightSurround},
        AudioChannelLayout{kLeft, kRight, kCenter, kLowFrequency, kLeftRearSurround, kRightRearSurround,
                           kLeftSideSurround, kRightSideSurround}}) {
    Open(static_cast<int>(layout.size()));
    EXPECT_THAT(program.Session().Layout(), IsEmpty());
    ASSERT_TRUE(program.Session().SetLayout(layout));
    Export();
    EXPECT_EQ(Bar().Sentence(), "Exported out.wav.");
    EXPECT_EQ(moxaudiotoolkit::AudioFile(Path()).GetProperties().channelLayout, layout);
    OpenExported();
    EXPECT_EQ(program.Session().Layout(), layout);
    std::size_t const last = layout.size() - 1;
    EXPECT_EQ(program.Audio().Gutter().ItemName(last), layout_presets::LabelText(layout[last].GetNumber()));
    // And so is a copy of the copy.
    Export();
    EXPECT_EQ(moxaudiotoolkit::AudioFile(Path()).GetProperties().channelLayout, layout);
  }
}

TEST_F(ChannelMaskExport, SpeaksOfTheChannelsThatAreOn) {
  Open(6);
  program.Session().SetLayout({kRight, kLeft, kCenter, kLowFrequency, kLeftSurround, kRightSurround});
  program.Session().ToggleChannel(0);
  program.Session().ToggleChannel(3);
  Export();
  EXPECT_EQ(moxaudiotoolkit::AudioFile(Path()).GetProperties().channelLayout,
            (AudioChannelLayout{kLeft, kCenter, kLeftSurround, kRightSurround}));
}

TEST_F(ChannelMaskExport, SaysNothingWithoutALayout) {
  Open(6);
  Export();
  EXPECT_EQ(Bar().Sentence(), "Exported out.wav.");
  EXPECT_THAT(moxaudiotoolkit::AudioFile(Path()).GetProperties().channelLayout, IsEmpty());
  // One that names no channel is none.
  program.Session().SetLayout(AudioChannelLayout(6));
  Export();
  EXPECT_EQ(Bar().Sentence(), "Exported out.wav.");
  EXPECT_THAT(moxaudiotoolkit::AudioFile(Path()).GetProperties().channelLayout, IsEmpty());
}

struct RefusedOrder {
  char const* name;
  AudioChannelLayout layout;
  char const* reason;
  char const* german;
};

class ChannelMaskRefusal : public ChannelMaskExport, public testing::WithParamInterface<RefusedOrder> {};

TEST_P(ChannelMaskRefusal, IsToldBeforeAFileIsAskedForAndNothingIsWritten) {
  Open(static_cast<int>(GetParam().layout.size()));
  ASSERT_TRUE(program.Session().SetLayout(GetParam().layout));
  std::size_t const files = FileCount();
  Export();
  EXPECT_THAT(answers.GetRecords(), IsEmpty());
  EXPECT_EQ(FileCount(), files);
  EXPECT_TRUE(Bar().UI_IsShown());
  EXPECT_EQ(Bar().Sentence(),
            std::string("Not exported: no WAV file can have this channel layout. ") + GetParam().reason);
  EXPECT_EQ(To8(program.state.log.Lines().back().text), Bar().Sentence());
  AddGermanTexts();
  Appearance appearance;
  appearance.language.tag = "de";
  program.shell.SetAppearance(appearance);
  Export();
  program.stage.PaintFrame();
  EXPECT_THAT(Bar().Sentence(), HasSubstr("Nicht exportiert"));
  EXPECT_THAT(Bar().Sentence(), HasSubstr(GetParam().german));
  program.stage.Click(program.stage.CenterOf(Bar().Button()));
  EXPECT_FALSE(Bar().UI_IsShown());
  EXPECT_EQ(FileCount(), files);
}

INSTANTIATE_TEST_SUITE_P(
    Layouts, ChannelMaskRefusal,
    testing::Values(RefusedOrder{"Unnamed",
                                 {kLeft, kUnnamed, kRight},
                                 "Channel 2 has no label while others have.",
                                 "Kanal 2 hat keinen Namen"},
                    RefusedOrder{"NoPlace",
                                 {kLeft, kRight, kLowFrequency2},
                                 "A WAV file has no place for Low-Frequency Effects 2 (channel 3).",
                                 "(Kanal 3) keinen Platz"},
                    RefusedOrder{"Twice",
                                 {kLeft, kRight, kLeft},
                                 "In a WAV file Left (channel 3) and Left (channel 1) have the same place.",
                                 "(Kanal 1) denselben Platz"},
                    RefusedOrder{"Order",
                                 {kRight, kLeft},
                                 "A WAV file keeps Left (channel 2) before Right (channel 1).",
                                 "vor Rechts (Kanal 1)"}),
    [](auto const& refusal) { return std::string(refusal.param.name); });

TEST_F(ChannelMaskExport, RefusalIsForgottenByTheNextExport) {
  Open(2);
  program.Session().SetLayout({kRight, kLeft});
  Export();
  EXPECT_THAT(Bar().Sentence(), HasSubstr("Not exported"));
  program.Session().SetLayout({kLeft, kRight});
  // The answer of before is still there.
  program.stage.Key(moxui::ui::KeyboardCode::kE, moxui::ui::ModKeys(moxui::ui::ModKey::kCommand));
  program.Session().Exports().Current()->Wait();
  program.stage.AdvanceTime(200.0);
  EXPECT_EQ(Bar().Sentence(), "Exported out.wav.");
}

TEST_F(ChannelMaskExport, NumbersOfARefusalAreThoseOfTheSound) {
  Open(4);
  program.Session().SetLayout({kUnnamed, kCenter, kRight, kLeft});
  program.Session().ToggleChannel(0);
  Export();
  EXPECT_THAT(Bar().Sentence(), HasSubstr("Right (channel 3) before Center (channel 2)"));
}

TEST_F(ChannelMaskExport, PeaksNeedNoMask) {
  Open(2);
  program.Session().SetLayout({kRight, kLeft});
  EXPECT_EQ(ExportProblem(program.Session(), ExportKind::kPeaks8), "");
  EXPECT_NE(ExportProblem(program.Session(), ExportKind::kWave), "");
}

// The channels page shows what the file says.
TEST_F(ChannelMaskExport, PopupShowsTheLayoutOfTheFile) {
  Open(2);
  program.Session().SetLayout({kLeft, kRight});
  Export();
  OpenExported();
  program.shell.View().ShowPage(FindPage("channels"));
  EXPECT_EQ(program.Channels().Table().Popup(LayoutUse::kSound).GetShownText(), u"Stereo");
}

}  // namespace
}  // namespace playground
