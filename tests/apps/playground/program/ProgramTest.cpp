#include "playground/ProgramRun.h"
#include "playground/SoundFiles.h"
#include "playground/TemporaryFolder.h"
#include "program/RenderPages.h"
#include "program/Settings.h"
#include "shell/Page.h"

#include <moxui/platform/PaintTarget.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

namespace playground {
namespace {

using moxaudiotoolkit::AudioFileFormat;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
namespace fs = std::filesystem;

class Program : public testing::Test {
 protected:
  std::string Out(std::string const& name = "pictures") { return (folder.Path() / name).string(); }
  fs::path const& Folder() { return folder.Path(); }

  TemporaryFolder folder;
};

TEST_F(Program, ListsItsPages) {
  ProgramRun const run({"--list"}, Folder());
  EXPECT_EQ(run.code, 0);
  for (PageDescriptor const& page : AllPages()) {
    EXPECT_THAT(run.output, HasSubstr(std::string(page.name) + "\n"));
  }
}

TEST_F(Program, TellsItsOptionsAndVersion) {
  EXPECT_THAT(ProgramRun({"--help"}, Folder()).output, HasSubstr("--render DIR"));
  EXPECT_THAT(ProgramRun({"--version"}, Folder()).output, HasSubstr("0.1.0"));
}

TEST_F(Program, EndsWithTwoWhenItIsNotUnderstood) {
  ProgramRun const unknown({"--sideways"}, Folder());
  EXPECT_EQ(unknown.code, 2);
  EXPECT_THAT(unknown.errors, HasSubstr("--sideways"));
  EXPECT_THAT(unknown.output, IsEmpty());
  ProgramRun const page({"--page", "nowhere", "--render", Out()}, Folder());
  EXPECT_EQ(page.code, 2);
  EXPECT_THAT(page.errors, HasSubstr("audio"));
  EXPECT_FALSE(fs::exists(Out()));
}

TEST_F(Program, RendersEveryPageAndState) {
  ProgramRun const run({"--render", Out()}, Folder());
  EXPECT_EQ(run.code, 0) << run.errors;
  std::size_t expected = 0;
  for (PageDescriptor const& page : AllPages()) {
    for (PageState const& state : page.states) {
      ++expected;
      EXPECT_TRUE(
          fs::exists(fs::path(Out()) / (std::string(page.name) + "-" + std::string(state.name) + ".png")));
    }
  }
  EXPECT_EQ(static_cast<std::size_t>(std::distance(fs::directory_iterator(Out()), {})), expected);
}

TEST_F(Program, RendersOnePageAtAScale) {
  ProgramRun const run(
      {"--render", Out(), "--page", "popup", "--scale", "1.25", "--theme", "light", "--look", "classic"},
      Folder());
  EXPECT_EQ(run.code, 0) << run.errors;
  moxui::platform::Pixels pixels;
  ASSERT_TRUE(moxui::platform::LoadPNG(moxcore::Utf8String(Out() + "/popup-normal.png"), pixels));
  EXPECT_EQ(pixels.width, static_cast<int>(std::lround(kPictureWidth * 1.25)));
  EXPECT_EQ(pixels.height, static_cast<int>(std::lround(kPictureHeight * 1.25)));
  EXPECT_FALSE(fs::exists(Out() + "/audio-whole.png"));
}

TEST_F(Program, RendersTheSamePicturesEachTime) {
  ASSERT_EQ(ProgramRun({"--render", Out("a"), "--page", "audio"}, Folder()).code, 0);
  ASSERT_EQ(ProgramRun({"--render", Out("b"), "--page", "audio"}, Folder()).code, 0);
  for (auto const& entry : fs::directory_iterator(Out("a"))) {
    moxui::platform::Pixels a;
    moxui::platform::Pixels b;
    ASSERT_TRUE(moxui::platform::LoadPNG(moxcore::Utf8String(entry.path().string()), a));
    ASSERT_TRUE(
        moxui::platform::LoadPNG(moxcore::Utf8String(Out("b") + "/" + entry.path().filename().string()), b));
    EXPECT_EQ(a, b) << entry.path().filename();
  }
}

TEST_F(Program, TellsOfABadFileInTheLanguageAskedFor) {
  std::string const file = WriteBytes(Folder(), "leer.dat", "").string();
  ProgramRun const run({"--render", Out(), "--page", "audio", "--language", "de", file}, Folder());
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.errors, HasSubstr("Die Datei ist leer."));
}

TEST_F(Program, NamesASoundThatCannotBeReadToItsEndOnceAndRendersTheOthers) {
  auto const whole = WriteTone(Folder(), "whole.flac", AudioFileFormat::kFlacInt16, 60);
  auto const cut = WriteTruncated(whole, fs::file_size(whole) / 2);
  ProgramRun const run(
      {"--render", Out(), "--page", "audio", "--language", "de", cut.string(), whole.string()}, Folder());
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.errors, HasSubstr("playground: " + cut.string() + ": "));
  EXPECT_EQ(run.errors.find("truncated-"), run.errors.rfind("truncated-")) << run.errors;
  EXPECT_THAT(run.errors, Not(HasSubstr("/whole.flac")));
  EXPECT_TRUE(fs::exists(Out() + "/audio-2-whole.png"));
}

TEST_F(Program, RendersEachOfSeveralSounds) {
  auto const one = WriteTone(Folder(), "one.wav");
  auto const two = WriteTone(Folder(), "two.wav", 1);
  ProgramRun const run({"--render", Out(), "--page", "audio", one.string(), two.string()}, Folder());
  EXPECT_EQ(run.code, 0) << run.errors;
  EXPECT_TRUE(fs::exists(Out() + "/audio-whole.png"));
  EXPECT_TRUE(fs::exists(Out() + "/audio-2-whole.png"));
  EXPECT_FALSE(fs::exists(Out() + "/audio-3-whole.png"));
}

TEST_F(Program, NamesABadFileAndShowsTheOthers) {
  auto const good = WriteTone(Folder(), "good.wav");
  auto const bad = Folder() / "missing.wav";
  ProgramRun const run({"--render", Out(), "--page", "audio", bad.string(), good.string()}, Folder());
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.errors, HasSubstr("missing.wav"));
  EXPECT_THAT(run.errors, Not(HasSubstr("good.wav")));
  EXPECT_TRUE(fs::exists(Out() + "/audio-whole.png"));
}

// Files that can't be opened or read to their end; each is made in a folder that is given.
struct BadFile {
  char const* name;
  fs::path (*make)(fs::path const& folder);
};

class ProgramWithABadFile : public testing::TestWithParam<BadFile> {};

TEST_P(ProgramWithABadFile, SaysWhyAndEndsWithOne) {
  TemporaryFolder folder;
  fs::path const path = GetParam().make(folder.Path());
  ProgramRun const run({"--render", (folder.Path() / "pictures").string(), "--page", "audio", path.string()},
                       folder.Path());
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.errors, HasSubstr(path.filename().string()));
  EXPECT_GT(run.errors.size(), path.string().size() + 20) << "no reason given";
  EXPECT_TRUE(fs::exists(folder.Path() / "pictures" / "audio-whole.png"));
}

INSTANTIATE_TEST_SUITE_P(
    Files, ProgramWithABadFile,
    testing::Values(
        BadFile{"Missing", [](fs::path const& folder) { return folder / "missing.wav"; }},
        BadFile{"Empty", [](fs::path const& folder) { return WriteBytes(folder, "empty.wav", ""); }},
        BadFile{"Directory",
                [](fs::path const& folder) {
                  fs::create_directory(folder / "folder.wav");
                  return folder / "folder.wav";
                }},
        BadFile{"Text", [](fs::path const& folder) { return WriteBytes(folder, "a.wav", "hello"); }},
        BadFile{"Picture",
                [](fs::path const& folder) {
                  moxui::platform::Pixels const pixels{1, 1, {0, 0, 0, 255}};
                  moxui::platform::SavePNG(pixels, moxcore::Utf8String((folder / "a.png").string()));
                  return folder / "a.png";
                }},
        BadFile{"TruncatedHeader",
                [](fs::path const& folder) { return WriteTruncated(WriteTone(folder, "a.wav"), 20); }},
        BadFile{"TruncatedSamples",
                [](fs::path const& folder) { return WriteTruncated(WriteTone(folder, "a.wav"), 1001); }},
        BadFile{"NoChannels",
                [](fs::path const& folder) {
                  return WriteFloats(folder, "a.wav", 0, {0.0f, 0.5f});
                }},
        BadFile{"TooManyChannels",
                [](fs::path const& folder) {
                  return WriteFloats(folder, "a.wav", 1000, std::vector<float>(2000));
                }},
        BadFile{"Unreadable",
                [](fs::path const& folder) {
                  // Permissions don't keep the superuser out; a link to itself does.
                  if (geteuid() == 0) {
                    fs::create_symlink("a.wav", folder / "a.wav");
                    return folder / "a.wav";
                  }
                  auto const path = WriteTone(folder, "a.wav");
                  fs::permissions(path, fs::perms::none);
                  return path;
                }},
        BadFile{"RateOfZero", [](fs::path const& folder) { return WriteHeader(folder, "a.wav", 0, 8000); }},
        BadFile{"AbsurdRate",
                [](fs::path const& folder) { return WriteHeader(folder, "a.wav", 0x7FFFFFFF, 8000); }},
        BadFile{"LargestRate",
                [](fs::path const& folder) { return WriteHeader(folder, "a.wav", 0xFFFFFFFF, 8000); }},
        // The header of these is good: what is wrong with them shows as they are read.
        BadFile{"FlacCutShort",
                [](fs::path const& folder) {
                  auto const whole = WriteTone(folder, "a.flac", AudioFileFormat::kFlacInt16, 60);
                  return WriteTruncated(whole, fs::file_size(whole) / 2);
                }},
        BadFile{"FlacDamagedInTheMiddle",
                [](fs::path const& folder) {
                  return Damage(WriteTone(folder, "a.flac", AudioFileFormat::kFlacInt16, 60), 0.4, 0.6);
                }},
        BadFile{"FlacThatPromisesMore",
                [](fs::path const& folder) {
                  return PromiseFlacFrames(WriteTone(folder, "a.flac", AudioFileFormat::kFlacInt16, 1),
                                           10'000'000);
                }},
        BadFile{"OggDamagedInTheMiddle",
                [](fs::path const& folder) {
                  return Damage(WriteTone(folder, "a.ogg", AudioFileFormat::kOggVorbis, 60), 0.4, 0.6);
                }}),
    [](auto const& file) { return std::string(file.param.name); });

TEST_F(Program, ShowsWhatIsThereWhenTheHeaderTellsOfFarMore) {
  for (std::uint32_t const size : {0xFFFFFFFFu, 0xFFFFFFF0u, 0x7FFFFFF0u}) {
    auto const path = WriteHeader(Folder(), "long.wav", 8000, size);
    ProgramRun const run({"--render", Out(), "--page", "audio", path.string()}, Folder());
    EXPECT_EQ(run.code, 0) << size << run.errors;
    EXPECT_TRUE(fs::exists(Out() + "/audio-whole.png"));
  }
}

TEST_F(Program, DrawsInfiniteSamples) {
  std::vector<float> samples(4000, std::numeric_limits<float>::infinity());
  std::fill(samples.begin(), samples.begin() + 2000, -std::numeric_limits<float>::infinity());
  auto const path = WriteFloats(Folder(), "inf.wav", 1, samples);
  ProgramRun const run({"--render", Out(), "--page", "audio", path.string()}, Folder());
  EXPECT_EQ(run.code, 0) << run.errors;
}

TEST_F(Program, SaysThatThereIsNoFont) {
  auto const none = WriteBytes(Folder(), "fonts.conf", "<fontconfig/>");
  for (std::vector<std::string> const& arguments :
       {std::vector<std::string>{"--render", Out()}, std::vector<std::string>{"--autoquit"}}) {
    ProgramRun const run(arguments, Folder(), ProgramRun::Display::kOffscreen,
                         {"FONTCONFIG_FILE=" + none.string()});
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.errors, HasSubstr("There is no font to write with."));
    EXPECT_FALSE(fs::exists(Out())) << "pictures without a word on them";
  }
  EXPECT_EQ(
      ProgramRun({"--list"}, Folder(), ProgramRun::Display::kOffscreen, {"FONTCONFIG_FILE=" + none.string()})
          .code,
      0);
}

TEST_F(Program, ComplainsInTheLanguageAskedForFromTheStart) {
  auto const none = WriteBytes(Folder(), "fonts.conf", "<fontconfig/>");
  ProgramRun const noFont({"--render", Out(), "--language", "de"}, Folder(), ProgramRun::Display::kOffscreen,
                          {"FONTCONFIG_FILE=" + none.string()});
  EXPECT_THAT(noFont.errors, HasSubstr("Es gibt keine Schrift"));
  EXPECT_THAT(ProgramRun({"--language", "de"}, Folder(), ProgramRun::Display::kNone).errors,
              HasSubstr("Es gibt keine Anzeige"));
  EXPECT_THAT(ProgramRun({"--language", "de", "--sideways"}, Folder()).errors,
              HasSubstr("Unbekannte Option \"--sideways\""));
  EXPECT_THAT(ProgramRun({"--page", "nowhere", "--language=de"}, Folder()).errors,
              HasSubstr("Es gibt keine Seite \"nowhere\""));
}

TEST_F(Program, ComplainsInTheLanguageOfTheSettings) {
  fs::create_directories(Folder() / "config" / "moxmediaui");
  WriteBytes(Folder() / "config" / "moxmediaui", "playground.ini", "language=de\n");
  EXPECT_THAT(ProgramRun({}, Folder(), ProgramRun::Display::kNone).errors,
              HasSubstr("Es gibt keine Anzeige"));
}

TEST_F(Program, DrawsSamplesThatAreNoNumbers) {
  auto const path =
      WriteFloats(Folder(), "nan.wav", 1, std::vector<float>(4000, std::numeric_limits<float>::quiet_NaN()));
  ProgramRun const run({"--render", Out(), "--page", "audio", path.string()}, Folder());
  EXPECT_EQ(run.code, 0) << run.errors;
}

TEST_F(Program, SaysWhenTheFolderCannotBeMade) {
  WriteBytes(Folder(), "file", "x");
  ProgramRun const run({"--render", Out("file"), "--page", "popup"}, Folder());
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.errors, HasSubstr("file"));
}

TEST_F(Program, OpensItsWindowPaintsAndQuits) {
  ProgramRun const run({"--autoquit"}, Folder());
  EXPECT_EQ(run.code, 0) << run.errors;
}

TEST_F(Program, OpensItsWindowWithABadFileAndDamagedSettings) {
  fs::create_directories(Folder() / "config" / "moxmediaui");
  WriteBytes(Folder() / "config" / "moxmediaui", "playground.ini",
             std::string("width=\0page=!!\nscale=9", 22));
  ProgramRun const run({"--autoquit", (Folder() / "missing.wav").string()}, Folder());
  EXPECT_EQ(run.code, 1) << run.errors;
  EXPECT_THAT(run.errors, HasSubstr("missing.wav"));
}

TEST_F(Program, ReadsItsFilesBeforeItQuitsUnwatched) {
  auto const whole = WriteTone(Folder(), "whole.flac", AudioFileFormat::kFlacInt16, 2);
  ProgramRun const good({"--autoquit", whole.string()}, Folder());
  EXPECT_EQ(good.code, 0) << good.errors;
  auto const cut = WriteTruncated(whole, fs::file_size(whole) / 2);
  ProgramRun const run({"--autoquit", "--page", "slider", whole.string(), cut.string()}, Folder());
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.errors, HasSubstr("playground: " + cut.string() + ": "));
  EXPECT_EQ(run.errors.find("truncated-"), run.errors.rfind("truncated-")) << run.errors;
}

TEST_F(Program, KeepsItsPresetsInTheirFolderAndRendersWithoutThem) {
  std::vector<std::string> const variables{"MOX_PRESETS_DIR=" + (Folder() / "presets").string()};
  ProgramRun const render({"--render", Out(), "--page", "presets"}, Folder(), ProgramRun::Display::kOffscreen,
                          variables);
  EXPECT_EQ(render.code, 0) << render.errors;
  EXPECT_FALSE(fs::exists(Folder() / "presets"));
  EXPECT_FALSE(fs::exists(Folder() / "data"));
  ProgramRun const window({"--autoquit", "--page", "presets"}, Folder(), ProgramRun::Display::kOffscreen,
                          variables);
  EXPECT_EQ(window.code, 0) << window.errors;
  EXPECT_TRUE(fs::exists(Folder() / "presets" / "WaveformView" / "Standard.preset"));
}

TEST_F(Program, SaysThatThereIsNoDisplay) {
  ProgramRun const run({}, Folder(), ProgramRun::Display::kNone);
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.errors, HasSubstr("--render"));
}

TEST_F(Program, TakesADisplayThatIsNotThereForNone) {
  // The name of a display of Wayland whose socket isn't there, or that no plugin speaks to.
  std::vector<std::string> const wayland{"WAYLAND_DISPLAY=wayland-of-nobody"};
  ProgramRun const run({"--language", "de"}, Folder(), ProgramRun::Display::kNone, wayland);
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.errors, HasSubstr("Es gibt keine Anzeige"));
  ProgramRun const quiet({"--autoquit", "--or-render", Out(), "--page", "popup"}, Folder(),
                         ProgramRun::Display::kNone, wayland);
  EXPECT_EQ(quiet.code, 0) << quiet.errors;
  EXPECT_TRUE(fs::exists(Out() + "/popup-normal.png"));
}

TEST_F(Program, RendersInsteadWhereThereIsNoDisplayAndSaysWhere) {
  std::vector<std::string> const arguments{"--or-render", Out(), "--page", "popup",
                                           (Folder() / "missing.wav").string()};
  ProgramRun const run(arguments, Folder(), ProgramRun::Display::kNone);
  EXPECT_EQ(run.code, 1) << "pictures are of whole sounds";
  EXPECT_THAT(run.errors, HasSubstr("There is no display"));
  EXPECT_THAT(run.errors, HasSubstr("\"" + Out() + "\""));
  EXPECT_TRUE(fs::exists(Out() + "/popup-normal.png"));
}

TEST_F(Program, RendersNothingWhereThereIsADisplay) {
  ProgramRun const run({"--or-render", Out(), "--autoquit"}, Folder());
  EXPECT_EQ(run.code, 0) << run.errors;
  EXPECT_FALSE(fs::exists(Out()));
}

TEST_F(Program, RendersWhereItWasToldToWhateverElseItMight) {
  ProgramRun const run({"--or-render", Out("else"), "--render", Out(), "--page", "popup"}, Folder(),
                       ProgramRun::Display::kNone, {"QT_QPA_PLATFORM="});
  EXPECT_EQ(run.code, 0) << run.errors;
  EXPECT_TRUE(fs::exists(Out() + "/popup-normal.png"));
  EXPECT_FALSE(fs::exists(Out("else")));
}

TEST_F(Program, RendersWithoutADisplay) {
  ProgramRun const run({"--render", Out(), "--page", "popup"}, Folder(), ProgramRun::Display::kNone);
  EXPECT_EQ(run.code, 0) << run.errors;
}

}  // namespace
}  // namespace playground
