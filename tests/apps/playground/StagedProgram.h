#pragma once

#include "audio/AudioPage.h"
#include "channels/ChannelsPage.h"
#include "controls/ControlPage.h"
#include "playground/playback/ManualDevice.h"
#include "shell/Shell.h"
#include "support/ScratchFolder.h"
#include "timecode/TimecodePage.h"

#include <moxui/testing/Stage.h>

#include <string_view>

namespace playground {

// The program on a stage in place of a window, with a sound device under the test's hand and presets of its
// own.
class StagedProgram {
 public:
  explicit StagedProgram(std::string_view page = "audio", Appearance const& appearance = {},
                         moxui::ExtentT<float> size = {1200.0f, 800.0f});
  ~StagedProgram();

  AudioPage& Audio() const;
  ControlPage& Controls() const;
  TimecodePage& Timecode() const;
  ChannelsPage& Channels() const;
  AudioSession& Session() { return state.audio; }
  // A point of a node's, in the tree's coordinates, by shares of its extent.
  static moxui::PointT<float> PointIn(moxui::ui::UI_Node const& node, float x, float y = 0.5f);
  // The sample at such a point of the waveform.
  double SampleAt(moxui::PointT<float> point) const;
  moxui::platform::Pixels Picture() { return stage.TakePicture(); }

  // In place of the folder of the user's own presets.
  tests::ScratchFolder presets;
  ManualDevice device;
  ProgramState state;
  moxui::testing::Stage stage;
  Shell shell;

 private:
  ProgramState& Begun(std::string_view page, Appearance const& appearance);
};

}  // namespace playground
