#include "audio/OverviewBar.h"
#include "audio/WaveformView.h"
#include "playground/StagedProgram.h"

#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/FailingSupplier.h>
#include <moxui/ui/NodeTree.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace playground {
namespace {

using moxui::testing::FailingSupplier;
using moxui::testing::Refusal;

// What a picture comes to without a part of the drawing.
enum class Effect {
  kNone,         // the same picture
  kOtherwise,    // drawn in another way, with as much to be seen
  kWithoutWave,  // the rest of it
};

// A part of the drawing that can't be had, at a scale of the screen.
struct Shortage {
  char const* name;
  Refusal refusal;
  float scale;
  Effect ofWave;
  Effect ofOverview;
};

void PrintTo(Shortage const& shortage, std::ostream* stream) {
  *stream << shortage.name << " at " << shortage.scale;
}

using Picture = std::vector<std::uint32_t>;

// Pictures have millions of pixels, most of them like the one before.
std::size_t CountColors(Picture const& picture) {
  std::unordered_set<std::uint32_t> colors;
  std::uint32_t const* before = nullptr;
  for (std::uint32_t const* pixel = picture.data(); pixel != picture.data() + picture.size(); ++pixel) {
    if (before == nullptr || *pixel != *before) {
      colors.insert(*pixel);
    }
    before = pixel;
  }
  return colors.size();
}

std::size_t CountEqual(Picture const& a, Picture const& b) {
  std::size_t count = 0;
  std::uint32_t const* other = b.data();
  for (std::uint32_t const* pixel = a.data(); pixel != a.data() + a.size(); ++pixel, ++other) {
    count += *pixel == *other ? 1 : 0;
  }
  return count;
}

void ExpectEffect(Picture const& whole, Picture const& poor, Effect effect) {
  if (effect == Effect::kNone || CountColors(whole) == 1) {
    EXPECT_EQ(CountEqual(whole, poor), whole.size());
    return;
  }
  EXPECT_LT(CountEqual(whole, poor), whole.size());
  if (effect == Effect::kOtherwise) {
    EXPECT_GE(CountColors(poor), CountColors(whole) / 2);
  } else {
    EXPECT_GE(CountColors(poor), 2u);
    EXPECT_GE(CountEqual(whole, poor), whole.size() / 3);
  }
}

class WaveformInNeed : public testing::TestWithParam<Shortage> {
 protected:
  // Draws a node, on wish without what is refused.
  Picture Draw(moxui::ui::UI_Node const& node, bool isInNeed) {
    auto const extent = node.UI_GetLocalRectF(false);
    auto const surface = supplier.NewOffscreenSurface(static_cast<int>(extent.width),
                                                      static_cast<int>(extent.height), GetParam().scale);
    moxui::scriber::Scriber scriber(&supplier, surface.Get());
    if (isInNeed) {
      supplier.Refuse(GetParam().refusal);
    }
    EXPECT_NO_THROW(moxui::ui::PaintNode(node, scriber));
    supplier.Allow(GetParam().refusal);
    auto const image = surface->GetImage();
    int const width = image->GetPixelWidth();
    Picture pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(image->GetPixelHeight()));
    image->CopyPixels(reinterpret_cast<std::uint8_t*>(pixels.data()), width * 4);
    return pixels;
  }

  FailingSupplier supplier{*moxui::scriber::GetRasterSupplier()};
  StagedProgram program;
};

TEST_P(WaveformInNeed, DrawsWhatItCanAndAllOfItOnceThereIsEnough) {
  for (std::size_t const state : {0u, 1u, 2u, 3u, 4u, 5u}) {
    SCOPED_TRACE(state);
    program.Audio().ShowState(state);
    program.Audio().Settle();
    for (auto const& [node, effect] :
         {std::pair<moxui::ui::UI_Node const*, Effect>(&program.Audio().Waveform(), GetParam().ofWave),
          {&program.Audio().Overview(), GetParam().ofOverview}}) {
      auto const whole = Draw(*node, false);
      ExpectEffect(whole, Draw(*node, true), effect);
      EXPECT_TRUE(Draw(*node, false) == whole);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Refusals, WaveformInNeed,
    testing::Values(Shortage{"Surface", Refusal::kOffscreenSurface, 1.5f, Effect::kNone, Effect::kOtherwise},
                    Shortage{"SurfaceAtOne", Refusal::kOffscreenSurface, 1.0f, Effect::kNone, Effect::kNone},
                    Shortage{"Layer", Refusal::kLayer, 1.5f, Effect::kNone, Effect::kNone},
                    Shortage{"Snapshot", Refusal::kSnapshot, 1.5f, Effect::kNone, Effect::kOtherwise},
                    Shortage{"Image", Refusal::kImage, 1.5f, Effect::kWithoutWave, Effect::kWithoutWave}),
    [](auto const& shortage) { return std::string(shortage.param.name); });

}  // namespace
}  // namespace playground
