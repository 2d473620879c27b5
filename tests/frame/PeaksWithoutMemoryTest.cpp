#include "CountedAllocations.h"

#include <moxcore/utility/MemoryRecycler.h>
#include <moxmediaui/WaveformDraw.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/RecordingSupplier.h>

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <vector>

namespace {

using moxmediaui::WaveformData;
using moxmediaui::WaveformDataType;

TEST(PeaksWithoutMemory, ThePicturesAllocationFailureIsRaisedAndTheNextPictureIsDrawn) {
  constexpr int kColumns = 100;
  constexpr int kRows = 51;
  moxui::testing::RecordingSupplier supplier;
  auto const surface = supplier.NewOffscreenSurface(kColumns, kRows, 1.0f);
  moxui::scriber::Scriber scriber(&supplier, surface.Get());
  auto const peaks = std::make_shared<WaveformData>(
      moxmediaui::WaveformDataProperties{WaveformDataType::kPeaks, kColumns, 1},
      std::vector<float>(kColumns * 2, 0.5f));
  moxmediaui::WaveformDraw const draw;
  auto const drawPeaks = [&] { draw.Draw(&scriber, peaks, {0, 0, kColumns, kRows}, 1.0f); };

  moxcore::utility::MemoryRecycler::ReleaseRetained();
  {
    // The pixels are the one large block.
    frame_tests::FailingAllocation const failing(0, kColumns * kRows * 4);
    EXPECT_THROW(drawPeaks(), std::bad_alloc);
  }
  EXPECT_TRUE(supplier.GetCallsOf(0).empty());
  EXPECT_TRUE(supplier.GetCalls("NewImage").empty());

  drawPeaks();
  ASSERT_EQ(supplier.GetCalls("DrawImage").size(), 1u);
  EXPECT_EQ(supplier.GetCalls("DrawImage")[0].image.height, kRows);
}

}  // namespace
