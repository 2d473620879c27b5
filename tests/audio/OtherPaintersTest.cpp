#include "PeakPictures.h"

#include <moxmediaui/WaveformDrawBase.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/RecordingSupplier.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <ostream>
#include <stdexcept>
#include <tuple>
#include <vector>

namespace {

using moxmediaui::RectT;
using moxmediaui::WaveformData;
using moxmediaui::WaveformDataProperties;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Field;

/// What a painter was asked for, and how many backgrounds had been painted by then.
struct PaintCall {
  moxmediaui::Scriber* scriber = nullptr;
  WaveformDataProperties properties;
  RectT<int> rect;
  float const* data = nullptr;
  std::vector<float> values;
  int firstColumn = 0;
  int columnCount = 0;
  bool selected = false;
  float gain = 0.0f;
  RectT<int> region;
  int channelHeight = 0;
  int channelStride = 0;
  float centre = 0.0f;
  std::size_t backgrounds = 0;
};

/// Notes what it is asked to paint, and paints nothing.
class NotingPainter : public moxmediaui::WaveformDrawBase {
 public:
  explicit NotingPainter(moxui::testing::RecordingSupplier const& supplier) : mSupplier(supplier) {}

  float GetAmplitudeFromPixelOffset(std::uint64_t, std::int64_t,
                                    std::shared_ptr<WaveformData>) const override {
    return 0.0f;
  }

  mutable std::vector<PaintCall> calls;
  bool hasPainted = true;  // what it says
  std::size_t fadedSize = 400;

 private:
  std::tuple<float, std::vector<float>> HandleGain(std::shared_ptr<WaveformData>) const override {
    return {0.5f, {9.0f, 9.0f}};
  }
  void HandleFades(WaveformDataProperties const&, float, std::vector<float>& buffer) const override {
    buffer.assign(fadedSize, 0.125f);
  }
  bool DoDrawWaveform(moxmediaui::Scriber* scriber, WaveformDataProperties const& properties,
                      RectT<int> const& rect, float const* data, int firstColumn, int columnCount,
                      bool selected, float gain, RectT<int> region, int channelHeight, int channelStride,
                      float centre) const override {
    calls.push_back({scriber,
                     properties,
                     rect,
                     data,
                     {data, data + 2},
                     firstColumn,
                     columnCount,
                     selected,
                     gain,
                     region,
                     channelHeight,
                     channelStride,
                     centre,
                     mSupplier.GetCalls("ClipToPath").size()});
    return hasPainted;
  }

  moxui::testing::RecordingSupplier const& mSupplier;
};

/// One thing of all calls, in order.
template <typename Value>
std::vector<Value> Of(std::vector<PaintCall> const& calls, Value PaintCall::*member) {
  std::vector<Value> values;
  for (PaintCall const& call : calls) {
    values.push_back(call.*member);
  }
  return values;
}

/// Two channels of which the samples 10 to 30 are selected.
class OtherPainters : public ::testing::Test {
 protected:
  OtherPainters() {
    RectT<int> ignored;
    mPainter.SetEnabledChannels({true, true});
    mPainter.SetSelection(mRect, 10, 20, ignored);
  }
  void Draw() { mPainter.Draw(&mScriber, mData, mRect, 1.0f); }

  RectT<int> const mRect{0, 0, 100, 101};
  std::shared_ptr<WaveformData> mData = audio_tests::MakePeaks(2, 100, std::vector<float>(400, 0.25f));
  moxui::testing::RecordingSupplier mSupplier;
  moxui::scriber::SurfaceP mSurface = mSupplier.NewOffscreenSurface(100, 101, 1.0f);
  moxui::scriber::Scriber mScriber{&mSupplier, mSurface.Get()};
  NotingPainter mPainter{mSupplier};
};

// Strips of 49 rows, the centre in the middle of row 24, stand 50 apart.
TEST_F(OtherPainters, PaintTheColumnsLeftOfASelectionThoseRightOfItAndItsOwn) {
  Draw();
  ASSERT_EQ(mPainter.calls.size(), 3u);
  EXPECT_THAT(Of(mPainter.calls, &PaintCall::firstColumn), ElementsAre(0, 30, 10));
  EXPECT_THAT(Of(mPainter.calls, &PaintCall::columnCount), ElementsAre(10, 70, 20));
  EXPECT_THAT(Of(mPainter.calls, &PaintCall::selected), ElementsAre(false, false, true));
  EXPECT_THAT(Of(mPainter.calls, &PaintCall::region),
              ElementsAre(RectT<int>{0, 0, 10, 49}, RectT<int>{30, 0, 70, 49}, RectT<int>{10, 0, 20, 49}));
  EXPECT_THAT(mPainter.calls, Each(Field(&PaintCall::scriber, &mScriber)));
  EXPECT_THAT(mPainter.calls, Each(Field(&PaintCall::properties, mData->GetProperties())));
  EXPECT_THAT(mPainter.calls, Each(Field(&PaintCall::rect, mRect)));
  EXPECT_THAT(mPainter.calls, Each(Field(&PaintCall::data, mData->GetWaveformBuffer().data())));
  EXPECT_THAT(mPainter.calls, Each(Field(&PaintCall::channelHeight, 49)));
  EXPECT_THAT(mPainter.calls, Each(Field(&PaintCall::channelStride, 50)));
  EXPECT_THAT(mPainter.calls, Each(Field(&PaintCall::centre, 24.5f)));
}

// The samples that come with the gain are nothing that is drawn.
TEST_F(OtherPainters, TheirGainHoldsOutsideTheSelectionOnlyIfItIsThatOfTheWholeRange) {
  Draw();
  EXPECT_THAT(Of(mPainter.calls, &PaintCall::gain), ElementsAre(1.0f, 1.0f, 0.5f));
  mPainter.calls.clear();
  mPainter.SetGainWholeRange(true);
  Draw();
  EXPECT_THAT(Of(mPainter.calls, &PaintCall::gain), ElementsAre(0.5f, 0.5f, 0.5f));
  EXPECT_THAT(mPainter.calls, Each(Field(&PaintCall::data, mData->GetWaveformBuffer().data())));
}

// The selection has one for each channel.
TEST_F(OtherPainters, EachRegionHasItsBackgroundBeforeItsWave) {
  Draw();
  EXPECT_THAT(Of(mPainter.calls, &PaintCall::backgrounds), ElementsAre(1u, 2u, 4u));
  std::vector<RectT<float>> clips;
  for (auto const& call : mSupplier.GetCalls("ClipToPath")) {
    auto const& segment = call.path.at(0);
    clips.push_back({segment.points[0].x, segment.points[0].y, segment.numbers[0], segment.numbers[1]});
  }
  EXPECT_THAT(clips, ElementsAre(RectT<float>{0, 0, 10, 101}, RectT<float>{30, 0, 70, 101},
                                 RectT<float>{10, 50, 20, 49}, RectT<float>{10, 0, 20, 49}));
}

TEST_F(OtherPainters, WhatTheySayOfTheirSuccessStopsNothing) {
  Draw();
  auto const calls = mSupplier.GetCallsOf(0);
  ASSERT_EQ(mPainter.calls.size(), 3u);
  mPainter.calls.clear();
  mPainter.hasPainted = false;
  mSupplier.Clear();
  Draw();
  EXPECT_EQ(mPainter.calls.size(), 3u);
  EXPECT_EQ(mSupplier.GetCallsOf(0), calls);
}

TEST_F(OtherPainters, PaintWhatTheirFadeLeavesAndTheWaveformItselfIfItLeavesNothing) {
  mPainter.SetFadeInfo(moxmediaui::FadeType::kIn, 0, 100, true, 0.0f);
  Draw();
  ASSERT_EQ(mPainter.calls.size(), 3u);
  EXPECT_THAT(mPainter.calls, Each(Field(&PaintCall::values, ElementsAre(0.125f, 0.125f))));
  EXPECT_EQ(mPainter.WithFade(mData)->GetWaveformBuffer(), std::vector<float>(400, 0.125f));

  mPainter.calls.clear();
  mPainter.fadedSize = 0;
  Draw();
  ASSERT_EQ(mPainter.calls.size(), 3u);
  EXPECT_THAT(mPainter.calls, Each(Field(&PaintCall::data, mData->GetWaveformBuffer().data())));
  EXPECT_EQ(mPainter.WithFade(mData), mData);
}

// Which is no waveform any more that anyone else could draw.
TEST_F(OtherPainters, PaintAFadedBufferOfAnySize) {
  mPainter.SetFadeInfo(moxmediaui::FadeType::kIn, 0, 100, true, 0.0f);
  mPainter.fadedSize = 500;
  Draw();
  ASSERT_EQ(mPainter.calls.size(), 3u);
  EXPECT_THAT(mPainter.calls, Each(Field(&PaintCall::values, ElementsAre(0.125f, 0.125f))));
  EXPECT_THROW(mPainter.WithFade(mData), std::invalid_argument);
}

}  // namespace
