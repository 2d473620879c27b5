#include "audio/OverviewBar.h"
#include "audio/WaveformView.h"
#include "playground/StagedProgram.h"

#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/FailingSupplier.h>
#include <moxui/ui/NodeTree.h>

#include <gtest/gtest.h>

#include <ostream>

namespace playground {
namespace {

using moxui::testing::FailingSupplier;
using moxui::testing::Refusal;

// A part of the drawing that can't be had, at a scale of the screen.
struct Shortage {
  char const* name;
  Refusal refusal;
  float scale;
};

void PrintTo(Shortage const& shortage, std::ostream* stream) {
  *stream << shortage.name << " at " << shortage.scale;
}

class WaveformInNeed : public testing::TestWithParam<Shortage> {
 protected:
  // Draws a node without what is refused.
  void Draw(moxui::ui::UI_Node const& node, FailingSupplier& supplier) {
    auto const extent = node.UI_GetLocalRectF(false);
    auto const surface =
        supplier.NewOffscreenSurface(static_cast<int>(extent.width * GetParam().scale),
                                     static_cast<int>(extent.height * GetParam().scale), GetParam().scale);
    moxui::scriber::Scriber scriber(&supplier, surface.Get());
    supplier.Refuse(GetParam().refusal);
    moxui::ui::PaintNode(node, scriber);
    supplier.Allow(GetParam().refusal);
  }

  StagedProgram program;
};

TEST_P(WaveformInNeed, DrawsWhatItCanAndRaisesNothing) {
  FailingSupplier supplier(*moxui::scriber::GetRasterSupplier());
  for (std::size_t const state : {0u, 1u, 2u, 3u, 4u, 5u}) {
    program.Audio().ShowState(state);
    EXPECT_NO_THROW(Draw(program.Audio().Waveform(), supplier)) << state;
    EXPECT_NO_THROW(Draw(program.Audio().Overview(), supplier)) << state;
  }
  program.Picture();
}

INSTANTIATE_TEST_SUITE_P(Refusals, WaveformInNeed,
                         testing::Values(Shortage{"Surface", Refusal::kOffscreenSurface, 1.5f},
                                         Shortage{"SurfaceAtOne", Refusal::kOffscreenSurface, 1.0f},
                                         Shortage{"Layer", Refusal::kLayer, 1.5f},
                                         Shortage{"Snapshot", Refusal::kSnapshot, 1.5f},
                                         Shortage{"Image", Refusal::kImage, 1.5f}),
                         [](auto const& shortage) { return std::string(shortage.param.name); });

}  // namespace
}  // namespace playground
