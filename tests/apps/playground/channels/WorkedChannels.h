#pragma once

#include "channelconfig/LayoutDialogFixture.h"
#include "playground/StagedProgram.h"
#include "program/Localized.h"
#include "support/Folders.h"

#include <moxcore/config/Catalogue.h>
#include <moxcore/config/Localizer.h>
#include <moxui/testing/ModalAnswers.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace playground {

// The program's German texts, as the program itself has them.
inline void AddGermanTexts() {
  for (char const* const folder : {"/resources", "/apps/playground/resources"}) {
    std::ostringstream text;
    text << std::ifstream(tests::SourceFolder() + folder + "/PO/de.po").rdbuf();
    moxcore::config::Localizer::Get().AddCatalogue(moxcore::config::ParseCatalogue(text.str()));
  }
}

// The channels page, worked by hand; its presets are those of the program and what a test writes.
class WorkedChannels : public ::testing::Test {
 protected:
  using OpenEditor = layout_presets::OpenEditor;

  ChannelsPage& Page() { return program.Channels(); }
  moxui::controls::UI_Popup& Popup(LayoutUse use) { return Page().Table().Popup(use); }
  std::vector<std::string> Items(LayoutUse use) {
    std::vector<std::string> texts;
    for (auto const& item : Popup(use).GetItems()) {
      texts.push_back(item.isSeparator ? "-" : To8(item.text));
    }
    return texts;
  }
  std::string Shown(LayoutUse use) { return To8(Popup(use).GetShownText()); }
  std::string Names(LayoutUse use) { return To8(Page().Table().Names(use)); }
  void Choose(LayoutUse use, moxcore::Utf16String const& item) {
    answers.ExpectItem(item);
    program.stage.Click(program.stage.CenterOf(Popup(use)));
  }
  // Chooses "Custom...", drives the editor, and answers what opens from it.
  void Edit(LayoutUse use, std::function<void(OpenEditor&)> drive,
            std::vector<std::function<void()>> const& then = {}) {
    answers.ExpectItem(u"Custom...");
    answers.ExpectDriven([drive = std::move(drive)](moxui::testing::Stage& stage) {
      OpenEditor editor(stage);
      drive(editor);
    });
    for (auto const& answer : then) {
      answer();
    }
    program.stage.Click(program.stage.CenterOf(Popup(use)));
  }
  std::function<void()> ThenChoose(moxcore::Utf16String item) {
    return [this, item = std::move(item)] { answers.ExpectItem(item); };
  }
  std::function<void()> ThenDrive(std::function<void(moxui::testing::Stage&)> drive) {
    return [this, drive = std::move(drive)] { answers.ExpectDriven(drive); };
  }
  // As another process would write it.
  void Write(std::string const& file, std::string const& text) {
    std::filesystem::create_directories(program.presets.Base() / "AudioChannelLayout");
    program.presets.Base().Write("AudioChannelLayout/" + file, text);
  }
  static std::string PresetText(std::string const& name, std::vector<std::uint32_t> const& labels,
                                char const* guid = layout_presets::kUser) {
    std::string data;
    for (auto const label : labels) {
      data += (data.empty() ? "" : ",") + ("{\"channellabel\":" + std::to_string(label)) + "}";
    }
    return layout_presets::TextOf(name, guid, "{\"audiochannellayout\":[" + data + "]}");
  }
  void PressReload() { program.stage.Click(program.stage.CenterOf(Page().ReloadButton())); }
  std::vector<std::string> Skipped() {
    std::vector<std::string> lines;
    for (EventLog::Line const& line : Page().SkippedFiles().Lines()) {
      lines.push_back(To8(line.text));
    }
    return lines;
  }
  std::vector<std::string> Log() {
    std::vector<std::string> lines;
    for (EventLog::Line const& line : program.state.log.Lines()) {
      lines.push_back(To8(line.text));
    }
    return lines;
  }
  void Show(std::string_view page) {
    program.shell.View().ShowPage(FindPage(page));
    program.stage.PaintFrame();
  }

  moxui::testing::ModalAnswers answers;
  StagedProgram program{"channels"};
};

}  // namespace playground
