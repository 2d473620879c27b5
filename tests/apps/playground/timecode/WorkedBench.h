#pragma once

#include "playground/StagedProgram.h"
#include "properties/PropertyPanel.h"
#include "properties/PropertyRow.h"
#include "shell/TabStrip.h"
#include "timecode/BenchPane.h"
#include "timecode/CountedField.h"
#include "timecode/RadialDial.h"

#include <moxui/platform/Application.h>
#include <moxui/platform/CursorControl.h>
#include <moxui/ui/KeyboardEvent.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace playground {

// The bench of the timecode page, worked by hand.
class WorkedBench : public ::testing::Test {
 protected:
  WorkedBench() { ShowBench(); }

  void ShowBench() {
    program.shell.View().GetPage()->ShowState(2);
    program.stage.PaintFrame();
  }
  BenchPane& Bench() { return program.Timecode().Bench(); }
  CountedField& Field() { return Bench().Field(); }
  CountedField& Follower() { return Bench().Follower(); }
  TimecodeBench& Told() { return program.state.timecode; }
  void Change(std::function<void(BenchSettings&)> const& change) { Told().Change(change); }
  static moxcore::Utf16String TextOf(CountedField const& field) { return field.GetTextControl()->GetValue(); }
  moxui::PointT<float> At(moxui::ui::UI_Node const& node) { return program.stage.CenterOf(node); }

  // The control in a row of the panel, brought into sight.
  moxui::ui::UI_Node& ControlOf(std::string_view property) {
    PropertyRow* const row = Bench().Panel().FindRow(property);
    moxui::ui::UI_Node& control = *row->ChildGet(row->ChildSize() - 1);
    control.UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
    return control;
  }
  void PressKeyOn(std::string_view property, moxui::ui::KeyboardCode code) {
    ControlOf(property);
    EXPECT_TRUE(program.stage.Key(code)) << property;
  }
  std::vector<moxcore::Utf16String> TakeMessages() {
    std::vector<moxcore::Utf16String> texts;
    for (EventLog::Line const& line : Told().Messages().Lines()) {
      texts.push_back(line.text);
    }
    Told().Messages().Clear();
    return texts;
  }
  static bool IsCursorShown() { return moxui::platform::Application::Get()->GetCursor().IsCursorShown(); }
  // The next press is no double click.
  void Rest() { program.stage.AdvanceTime(1000.0); }

  StagedProgram program{"timecode"};
};

}  // namespace playground
