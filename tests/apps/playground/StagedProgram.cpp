#include "playground/StagedProgram.h"

#include "audio/WaveformView.h"
#include "program/AppearanceState.h"

#include <moxmediaui/Module.h>
#include <moxui/scriber/RasterSupplier.h>

#include <stdexcept>

namespace playground {

ProgramState& StagedProgram::Begun(ProgramState& state, std::string_view page, Appearance const& appearance) {
  state.appearance = appearance;
  state.page = FindPage(page);
  return state;
}

StagedProgram::Library::Library() {
  moxmediaui::Initialize(moxui::scriber::GetRasterSupplier());
}

StagedProgram::Library::~Library() {
  moxmediaui::Terminate();
}

StagedProgram::StagedProgram(std::string_view page, Appearance const& appearance, moxui::ExtentT<float> size)
    : stage(size), shell(Begun(state, page, appearance), stage.GetTree()) {
  state.transport.UseOutput(device.MakeOutput());
  stage.PaintFrame();
}

StagedProgram::~StagedProgram() {
  ApplyAppearance({});
}

AudioPage& StagedProgram::Audio() const {
  return dynamic_cast<AudioPage&>(*shell.View().GetPage());
}

ControlPage& StagedProgram::Controls() const {
  return dynamic_cast<ControlPage&>(*shell.View().GetPage());
}

ChannelsPage& StagedProgram::Channels() const {
  return dynamic_cast<ChannelsPage&>(*shell.View().GetPage());
}

TimecodePage& StagedProgram::Timecode() const {
  return dynamic_cast<TimecodePage&>(*shell.View().GetPage());
}

CurvePage& StagedProgram::Curve() const {
  return dynamic_cast<CurvePage&>(*shell.View().GetPage());
}

moxui::PointT<float> StagedProgram::PointIn(moxui::ui::UI_Node const& node, float x, float y) {
  moxui::RectT<float> const own = node.UI_GetLocalRectF(false);
  moxui::RectT<float> const inTree = node.UI_ConvertRectTo(nullptr, own);
  return {inTree.left + own.width * x, inTree.top + own.height * y};
}

double StagedProgram::SampleAt(moxui::PointT<float> point) const {
  moxui::ui::UI_Node const& waveform = Audio().Waveform();
  float const left = waveform.UI_ConvertRectTo(nullptr, waveform.UI_GetLocalRectF(false)).left;
  return state.audio.View().SampleAt(point.x - left);
}

}  // namespace playground
