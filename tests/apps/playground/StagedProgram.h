#pragma once

#include "audio/AudioPage.h"
#include "channels/ChannelsPage.h"
#include "controls/ControlPage.h"
#include "curve/CurvePage.h"
#include "playground/PresetFolder.h"
#include "playground/playback/ManualDevice.h"
#include "shell/Shell.h"
#include "timecode/TimecodePage.h"

#include <moxui/testing/Stage.h>

#include <string_view>

namespace playground {

// The program on a stage in place of a window, with a sound device under the test's hand.
class StagedProgram {
  // The library runs as long as there are views.
  struct Library {
    Library();
    ~Library();
  };

 public:
  explicit StagedProgram(std::string_view page = "audio", Appearance const& appearance = {},
                         moxui::ExtentT<float> size = {1200.0f, 800.0f});
  ~StagedProgram();

  AudioPage& Audio() const;
  ControlPage& Controls() const;
  TimecodePage& Timecode() const;
  CurvePage& Curve() const;
  ChannelsPage& Channels() const;
  AudioSession& Session() { return state.audio; }
  // A point of a node's, in the tree's coordinates, by shares of its extent.
  static moxui::PointT<float> PointIn(moxui::ui::UI_Node const& node, float x, float y = 0.5f);
  // The sample at such a point of the waveform.
  double SampleAt(moxui::PointT<float> point) const;
  moxui::platform::Pixels Picture() { return stage.TakePicture(); }

  PresetFolder presets;
  Library library;
  ManualDevice device;
  ProgramState state;
  moxui::testing::Stage stage;
  Shell shell;

 private:
  static ProgramState& Begun(ProgramState& state, std::string_view page, Appearance const& appearance);
};

}  // namespace playground
