#pragma once

#include "playground/PresetFolder.h"
#include "playground/StagedProgram.h"
#include "presets/PresetsPage.h"
#include "properties/PropertyPanel.h"
#include "properties/PropertyRow.h"

#include <moxui/controls/UI_PictureButton.h>
#include <moxui/controls/UI_Popup.h>
#include <moxui/testing/ModalAnswers.h>
#include <moxui/ui/KeyboardEvent.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace playground {

// The presets page under the hand, over a folder of the test's.
class WorkedPresets : public ::testing::Test {
 protected:
  using Popup = moxui::controls::UI_Popup;
  using Button = moxui::controls::UI_PictureButton;

  // Ends the program and begins it again.
  void Restart(Appearance const& appearance = {}) {
    mProgram.reset();
    mProgram = std::make_unique<StagedProgram>("presets", appearance);
  }
  StagedProgram& Program() {
    if (!mProgram) {
      Restart();
    }
    return *mProgram;
  }
  PresetsPage& Page() { return dynamic_cast<PresetsPage&>(*Program().shell.View().GetPage()); }
  moxui::testing::Stage& Stage() { return Program().stage; }
  WaveformSettings const& Settings() { return Program().Session().Settings(); }

  template <class Control>
  Control& Part(std::size_t index) {
    return dynamic_cast<Control&>(*Page().Picker().GetContentView()->ChildGet(index));
  }
  Popup& Presets() { return Part<Popup>(0); }
  Button& SaveButton() { return Part<Button>(1); }
  Button& DeleteButton() { return Part<Button>(2); }
  moxcore::Utf16String Shown() { return Presets().GetShownText(); }
  std::vector<moxcore::Utf16String> Items() {
    std::vector<moxcore::Utf16String> texts;
    for (auto const& item : Presets().GetItems()) {
      texts.push_back(item.isSeparator ? u"-" : item.text);
    }
    return texts;
  }

  void ClickOn(moxui::ui::UI_Node const& node) {
    Stage().Click(Stage().CenterOf(node));
    Stage().AdvanceTime(1000.0);
    EXPECT_TRUE(answers.AllUsed());
  }
  void Choose(moxcore::Utf16String const& item) {
    answers.ExpectItem(item);
    ClickOn(Presets());
  }
  // What the user does in the boxes that will open, in their order.
  void WillTypeAndAccept(moxcore::Utf16String const& name) {
    answers.ExpectDriven([name](moxui::testing::Stage& box) {
      box.Type(name);
      box.Key(moxui::ui::KeyboardCode::kReturn);
    });
  }
  void WillAccept() {
    answers.ExpectDriven([](moxui::testing::Stage& box) { box.Key(moxui::ui::KeyboardCode::kReturn); });
  }
  void WillDismiss() {
    answers.ExpectDriven([](moxui::testing::Stage& box) { box.Key(moxui::ui::KeyboardCode::kEscape); });
  }
  void SaveAs(moxcore::Utf16String const& name) {
    WillTypeAndAccept(name);
    ClickOn(SaveButton());
  }
  std::vector<std::string> Boxes() const {
    std::vector<std::string> texts;
    for (auto const& record : answers.GetRecords()) {
      if (record.kind == moxui::platform::ModalKind::kMessageBox) {
        texts.emplace_back(record.text.begin(), record.text.end());
      }
    }
    return texts;
  }

  // Changes a toggle of the page's panel by the space bar.
  void Flip(std::string_view property) {
    PropertyRow* const row = Page().Panel().FindRow(property);
    row->ChildGet(0)->UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
    EXPECT_TRUE(Stage().Key(moxui::ui::KeyboardCode::kSpace)) << property;
  }

  std::filesystem::path Folder() const { return folder.Base().Path() / "WaveformView"; }
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (auto const& entry : std::filesystem::directory_iterator(Folder())) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  void Write(std::string const& name, std::string const& text) const {
    std::filesystem::create_directories(Folder());
    std::ofstream(Folder() / name, std::ios::binary) << text;
  }
  std::vector<moxcore::Utf16String> Skipped() {
    std::vector<moxcore::Utf16String> texts;
    for (EventLog::Line const& line : Page().Skipped().Lines()) {
      texts.push_back(line.text);
    }
    return texts;
  }

  PresetFolder folder;
  moxui::testing::ModalAnswers answers;

 private:
  std::unique_ptr<StagedProgram> mProgram;
};

}  // namespace playground
