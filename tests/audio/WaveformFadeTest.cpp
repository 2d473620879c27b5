#include "PeakPictures.h"
#include "PlainPeakRenderer.h"

#include <moxcore/config/Errors.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/RecordingSupplier.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <vector>

namespace {

using audio_tests::FindDifference;
using audio_tests::OpenWaveformDraw;
using audio_tests::PeakView;
using moxmediaui::FadeType;

TEST(WaveformFade, AFadeOutIsKeptOneSampleEarlier) {
  OpenWaveformDraw draw;
  draw.SetFadeInfo(FadeType::kOut, 100, 200, true, 0.0f);
  EXPECT_EQ(draw.GetFadeStart(), 99);
  EXPECT_EQ(draw.GetFadeEnd(), 199);
  draw.SetFadeInfo(FadeType::kIn, 100, 200, true, 0.0f);
  EXPECT_EQ(draw.GetFadeStart(), 100);
  EXPECT_EQ(draw.GetFadeEnd(), 200);
  EXPECT_EQ(draw.GetFadeType(), FadeType::kIn);
  constexpr auto kLeast = std::numeric_limits<std::int64_t>::min();
  draw.SetFadeInfo(FadeType::kOut, kLeast, kLeast, true, 0.0f);
  EXPECT_EQ(draw.GetFadeStart(), kLeast);
}

TEST(WaveformFade, WithoutAmountItIsAStraightLine) {
  OpenWaveformDraw draw;
  EXPECT_EQ(draw.GetFadeValue(0.5f, 0.0f), 0.5f);
  EXPECT_EQ(draw.GetFadeValue(0.0f, 0.0f), 0.0f);
  EXPECT_EQ(draw.GetFadeValue(1.0f, 0.0f), 1.0f);
}

TEST(WaveformFade, ARaisedCosineIsHalfInTheMiddle) {
  OpenWaveformDraw draw;
  draw.SetFadeInfo(FadeType::kIn, 0, 100, false, 1.0f);
  EXPECT_FLOAT_EQ(draw.GetFadeValue(0.5f, 0.0f), 0.5f);
  EXPECT_EQ(draw.GetFadeValue(0.0f, 0.0f), 0.0f);
  EXPECT_FLOAT_EQ(draw.GetFadeValue(1.0f, 0.0f), 1.0f);
  draw.SetFadeInfo(FadeType::kIn, 0, 100, false, 0.0f);
  EXPECT_FLOAT_EQ(draw.GetFadeValue(0.0f, 0.0f), 1.0f);
  EXPECT_FLOAT_EQ(draw.GetFadeValue(0.25f, 0.0f), 1.0f);
}

TEST(WaveformFade, AnAmountBendsTheCurveBetweenTheSameEnds) {
  OpenWaveformDraw draw;
  for (float const amount : {3.0f, -3.0f}) {
    draw.SetFadeInfo(FadeType::kIn, 0, 100, true, amount);
    float const floor = std::pow(2.7182817f, -amount);
    EXPECT_NEAR(draw.GetFadeValue(0.0f, floor), 0.0f, 1e-6);
    EXPECT_NEAR(draw.GetFadeValue(1.0f, floor), 1.0f, 1e-6);
    EXPECT_EQ(draw.GetFadeValue(0.5f, floor) > 0.5f, amount > 0.0f);
  }
}

TEST(WaveformFade, TheMiddlesOfBentCurves) {
  OpenWaveformDraw draw;
  draw.SetFadeInfo(FadeType::kIn, 0, 100, true, 3.0f);
  EXPECT_NEAR(draw.GetFadeValue(0.5f, std::pow(2.7182817f, -3.0f)), 0.81757f, 1e-5);
  draw.SetFadeInfo(FadeType::kIn, 0, 100, false, 2.0f);
  EXPECT_NEAR(draw.GetFadeValue(0.5f, 0.0f), 0.14645f, 1e-5);
}

// e to the minus amount is 1, or no float any more.
TEST(WaveformFade, AnAmountBeyondWhatFloatsCanBendIsAStraightLine) {
  OpenWaveformDraw draw;
  for (float const amount : {1e-8f, -1e-8f, -100.0f, -1e30f}) {
    draw.SetFadeInfo(FadeType::kIn, 0, 100, true, amount);
    float const floor = std::pow(2.7182817f, -amount);
    for (float const position : {0.0f, 0.25f, 1.0f}) {
      EXPECT_EQ(draw.GetFadeValue(position, floor), position) << amount;
    }
  }
  draw.SetFadeInfo(FadeType::kIn, 0, 100, true, 1000.0f);
  EXPECT_EQ(draw.GetFadeValue(0.0f, 0.0f), 0.0f);
  EXPECT_EQ(draw.GetFadeValue(0.5f, 0.0f), 1.0f);
}

/// Takes note of the values that are drawn, and draws none.
class NotedValues : public moxmediaui::WaveformDraw {
 public:
  std::vector<float> ValuesOf(std::shared_ptr<moxmediaui::WaveformData> const& data, int columns) {
    moxui::testing::RecordingSupplier supplier;
    moxui::scriber::SurfaceP const surface = supplier.NewOffscreenSurface(100, 100, 1.0f);
    moxui::scriber::Scriber scriber(&supplier, surface.Get());
    mValues.clear();
    Draw(&scriber, data, {0, 0, columns, 50}, 1.0f);
    return mValues;
  }

 private:
  bool DoDrawWaveform(moxmediaui::Scriber*, moxmediaui::WaveformDataProperties const& properties,
                      moxmediaui::RectT<int> const&, float const* data, int, int, bool, float,
                      moxmediaui::RectT<int>, int, int, float) const override {
    bool const hasPairs = properties.type == moxmediaui::WaveformDataType::kPeaks;
    mValues.assign(data, data + properties.dataSlots * properties.channelCount * (hasPairs ? 2 : 1));
    return true;
  }

  mutable std::vector<float> mValues;
};

// Columns 0 to 9: column 3 is a third of the way.
TEST(DrawnFade, APeakTakesTheBentCurvesValue) {
  auto const data = audio_tests::MakePeaks(1, 10, std::vector<float>(20, 0.5f));
  NotedValues draw;
  draw.SetEnabledChannels({true});
  draw.SetFadeInfo(FadeType::kIn, 0, 10, true, 3.0f);
  auto const values = draw.ValuesOf(data, 10);
  ASSERT_EQ(values.size(), 20u);
  // 1 - (e^-1 - e^-3) / (1 - e^-3)
  EXPECT_NEAR(values[6], 0.5f * 0.66524f, 1e-5);
  EXPECT_EQ(values[7], values[6]);
  EXPECT_NEAR(values[0], 0.0f, 1e-6);
  EXPECT_NEAR(values[18], 0.5f, 1e-6);
  EXPECT_EQ(data->GetWaveformBuffer(), std::vector<float>(20, 0.5f));
}

TEST(DrawnFade, APeakTakesTheCosinesValue) {
  NotedValues draw;
  draw.SetEnabledChannels({true});
  draw.SetFadeInfo(FadeType::kIn, 0, 10, false, 2.0f);
  auto const values = draw.ValuesOf(audio_tests::MakePeaks(1, 10, std::vector<float>(20, 1.0f)), 10);
  // (1 - cos(pi / 9)) / 2
  EXPECT_NEAR(values.at(6), 0.030154f, 1e-5);
  EXPECT_NEAR(values.at(18), 1.0f, 1e-6);
}

// Index 22 holds the sample at position 0: that at 3 is three tenths of the way.
TEST(DrawnFade, ASampleTakesTheCurvesValueThatBendsDown) {
  NotedValues draw;
  draw.SetEnabledChannels({true});
  draw.SetFadeInfo(FadeType::kIn, 0, 10, true, -3.0f);
  auto const values = draw.ValuesOf(audio_tests::MakeSamples(1, std::vector<float>(60, 1.0f)), 10);
  // 1 - (e^0.9 - e^3) / (1 - e^3)
  EXPECT_NEAR(values.at(22 + 3), 0.076476f, 1e-5);
  EXPECT_NEAR(values.at(22), 0.0f, 1e-6);
  EXPECT_NEAR(values.at(22 + 10), 1.0f, 1e-6);
  EXPECT_EQ(values.at(21), 1.0f);
  EXPECT_EQ(values.at(22 + 11), 1.0f);
}

TEST(DrawnFade, WhatWasFadedOnceIsDrawnInPiecesWithoutAFade) {
  NotedValues draw;
  draw.SetEnabledChannels({true, false});
  draw.SetFadeInfo(FadeType::kOut, 2, 9, true, 3.0f);
  for (auto const& data : {audio_tests::MakePeaks(2, 10, std::vector<float>(40, 0.5f)),
                           audio_tests::MakeSamples(2, std::vector<float>(60, 0.5f))}) {
    auto const faded = draw.WithFade(data);
    EXPECT_NE(faded, data);
    EXPECT_EQ(faded->GetProperties(), data->GetProperties());
    EXPECT_EQ(faded->GetWaveformBuffer(), draw.ValuesOf(data, 10));
    EXPECT_NE(faded->GetWaveformBuffer(), data->GetWaveformBuffer());
  }
}

TEST(DrawnFade, WithoutAFadeTheDataIsItself) {
  OpenWaveformDraw draw;
  auto const data = audio_tests::MakePeaks(1, 10, std::vector<float>(20, 0.5f));
  draw.SetFadeInfo(FadeType::kIn, 0, 10, true, 3.0f);
  EXPECT_EQ(draw.WithFade(data), data) << "nothing said of channels";
  draw.SetEnabledChannels({true});
  EXPECT_NE(draw.WithFade(data), data);
  auto const nothing = std::make_shared<moxmediaui::WaveformData>();
  EXPECT_EQ(draw.WithFade(nothing), nothing);
  draw.SetFadeInfo(FadeType::kNone, 0, 10, true, 3.0f);
  EXPECT_EQ(draw.WithFade(data), data);
  EXPECT_THROW(draw.WithFade(nullptr), moxcore::config::mox_exception);
}

/// Peaks whose values are what a fade is expected to leave of a constant.
class FadedPeaks : public ::testing::Test {
 protected:
  static constexpr int kColumns = 20;

  FadedPeaks() {
    mDraw.SetEnabledChannels({true, false});
    mView.rect = {0, 0, kColumns, 201};
    mView.channels = 2;
    mView.slots = kColumns;
    mView.pairs.assign(2 * 2 * kColumns, 0.8f);
  }

  /// Draws with the fade, and without it values that it should have left in the first channel.
  std::string Compare(std::vector<float> const& gains) {
    auto const actual = audio_tests::DrawPeaks(mDraw, mView);
    PeakView faded = mView;
    for (std::size_t column = 0; column < gains.size(); ++column) {
      faded.pairs[column * 2] *= gains[column];
      faded.pairs[column * 2 + 1] *= gains[column];
    }
    return FindDifference(actual, audio_tests::DrawPeaksPlainly(mDraw, {}, faded));
  }

  OpenWaveformDraw mDraw;
  PeakView mView;
};

// Columns 0 to pixel(10) - 1 = 9, over a span of 9; the disabled channel is left alone.
TEST_F(FadedPeaks, AFadeInRunsFromTheViewsFirstColumn) {
  mDraw.SetFadeInfo(FadeType::kIn, -100, 10, true, 0.0f);
  std::vector<float> gains(kColumns, 1.0f);
  for (int column = 0; column <= 9; ++column) {
    gains[static_cast<std::size_t>(column)] = static_cast<float>(column) / 9.0f;
  }
  EXPECT_EQ(Compare(gains), "");
  gains[4] = 0.0f;
  EXPECT_NE(Compare(gains), "");
}

// Start 5 is kept as 4: columns 5 to 19, over a span of 14.
TEST_F(FadedPeaks, AFadeOutRunsToTheViewsLastColumn) {
  mDraw.SetFadeInfo(FadeType::kOut, 5, 1000, true, 0.0f);
  std::vector<float> gains(kColumns, 1.0f);
  for (int column = 5; column < kColumns; ++column) {
    gains[static_cast<std::size_t>(column)] = (14.0f - static_cast<float>(column - 5)) / 14.0f;
  }
  EXPECT_EQ(Compare(gains), "");
}

TEST_F(FadedPeaks, AnUnknownTypeFadesOut) {
  mDraw.SetFadeInfo(static_cast<FadeType>(7), 4, 1000, true, 0.0f);
  std::vector<float> gains(kColumns, 1.0f);
  for (int column = 5; column < kColumns; ++column) {
    gains[static_cast<std::size_t>(column)] = (14.0f - static_cast<float>(column - 5)) / 14.0f;
  }
  EXPECT_EQ(Compare(gains), "");
}

TEST_F(FadedPeaks, AFadeOfOneColumnIsNone) {
  mDraw.SetFadeInfo(FadeType::kIn, -100, 1, true, 0.0f);  // first and last are both 0
  EXPECT_EQ(Compare({}), "");
}

TEST_F(FadedPeaks, FadesNeedAnEnabledChannelAndALength) {
  mDraw.SetFadeInfo(FadeType::kIn, 10, 10, true, 0.0f);
  EXPECT_EQ(Compare({}), "");
  mDraw.SetFadeInfo(FadeType::kNone, 0, 10, true, 0.0f);
  EXPECT_EQ(Compare({}), "");
  mDraw.SetEnabledChannels({});
  mDraw.SetFadeInfo(FadeType::kIn, 0, 10, true, 0.0f);
  EXPECT_EQ(Compare({}), "");
}

// Beyond the view the curve goes on where it can't be seen.
TEST_F(FadedPeaks, FadesBeyondTheViewStayInsideTheBuffer) {
  mDraw.SetFadeInfo(FadeType::kIn, 0, 1000, true, 0.0f);
  std::vector<float> gains(kColumns, 1.0f);
  for (int column = 0; column < kColumns; ++column) {
    gains[static_cast<std::size_t>(column)] = static_cast<float>(column) / 999.0f;
  }
  EXPECT_EQ(Compare(gains), "");
  mDraw.SetFadeInfo(FadeType::kOut, -980, 1000, true, 0.0f);  // first column -980, last 19
  for (int column = 0; column < kColumns; ++column) {
    gains[static_cast<std::size_t>(column)] = (999.0f - static_cast<float>(column + 980)) / 999.0f;
  }
  EXPECT_EQ(Compare(gains), "");
  mDraw.SetFadeInfo(FadeType::kIn, -1000, -100, true, 0.0f);
  EXPECT_EQ(Compare({}), "");
  constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
  mDraw.SetFadeInfo(FadeType::kOut, -kMost, kMost, true, 0.0f);
  EXPECT_EQ(Compare(std::vector<float>(kColumns, 0.0f)), "");  // its end is all that is seen of it
}

}  // namespace
