#include "audio/AudioSession.h"
#include "audio/WaveformPainter.h"
#include "audio/WaveformPicture.h"
#include "playground/audio/PaintedWaveforms.h"

#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace playground {
namespace {

constexpr int kColumns = 40;
constexpr int kRows = 4;

// Paints each column in a colour that tells its place in the sound.
class Stripes {
 public:
  bool Show(std::int64_t leftPixel, WaveformPlace place = {}) {
    place.leftPixel = leftPixel;
    std::int64_t const before = mPicture.ColumnsPainted();
    bool const isShown = mPicture.Update(look, place, cut, [&](WaveformPicture::Piece const& piece) {
      EXPECT_EQ(piece.scriber.GetSurface()->GetClipBounds().left, static_cast<float>(piece.columns.first));
      for (int x = 0; x < kColumns; ++x) {
        piece.scriber.GetSurface()->FillRect({static_cast<float>(x), 0.0f, 1.0f, kRows},
                                             ColorAt(leftPixel + x));
      }
    });
    painted = mPicture.ColumnsPainted() - before;
    return isShown;
  }

  std::vector<std::uint32_t> Pixels() const {
    Canvas canvas(kColumns, kRows);
    EXPECT_TRUE(mPicture.Draw(canvas.Draw(), {0, kColumns}, {0.0f, 0.0f, kColumns, kRows}));
    return canvas.Pixels();
  }

  static std::vector<std::uint32_t> Expected(std::int64_t leftPixel) {
    Stripes stripes;
    stripes.Show(leftPixel);
    EXPECT_EQ(stripes.painted, kColumns);
    return stripes.Pixels();
  }

  WaveformPicture& Picture() { return mPicture; }

  WaveformLook look{.columns = kColumns, .rows = kRows};
  WaveformPicture::Cut cut{.columnsAtOnce = 16};
  std::int64_t painted = 0;  // columns, by the last Show

 private:
  static moxui::ColorRGBA ColorAt(std::int64_t pixel) {
    auto const part = [pixel](int shift) { return static_cast<float>(pixel >> shift & 0x3F) / 63.0f; };
    return {part(0), part(6), part(12), 1.0f};
  }

  WaveformPicture mPicture;
};

TEST(WaveformPicture, ScrollingPaintsWhatComesIntoViewAndTheEdges) {
  Stripes stripes;
  stripes.Show(1000);
  EXPECT_EQ(stripes.painted, kColumns);
  for (std::int64_t const left : {1003, 1003, 1002, 990, 1005}) {
    stripes.Show(left);
    EXPECT_EQ(stripes.Pixels(), Stripes::Expected(left)) << left;
  }
  EXPECT_EQ(stripes.painted, 15 + 4);
  stripes.Show(1005);
  EXPECT_EQ(stripes.painted, 0);
}

TEST(WaveformPicture, ScrollsOnAndOnInBothDirections) {
  std::mt19937 random(1);
  Stripes stripes;
  std::int64_t left = 100'000;
  stripes.Show(left);
  for (int i = 0; i < 3000; ++i) {
    int const step = static_cast<int>(random() % 39);
    left += i / 500 % 2 == 0 ? step : -step;
    stripes.Show(left);
    if (i % 50 == 0) {
      ASSERT_EQ(stripes.Pixels(), Stripes::Expected(left)) << i;
      ASSERT_LE(stripes.painted, step + 4);
    }
  }
}

TEST(WaveformPicture, AJumpOrAnotherLookPaintsAll) {
  Stripes stripes;
  stripes.Show(0);
  stripes.Show(kColumns);
  EXPECT_EQ(stripes.painted, kColumns);
  EXPECT_EQ(stripes.Pixels(), Stripes::Expected(kColumns));
  stripes.look.generation = 2;
  stripes.Show(kColumns);
  EXPECT_EQ(stripes.painted, kColumns);
}

TEST(WaveformPicture, AGridThatMovesWithTheColumnsStays) {
  Stripes stripes;
  stripes.Show(0, {.grid = {10, 30}});
  stripes.Show(5, {.grid = {5, 25, 39}});
  EXPECT_EQ(stripes.painted, 5 + 4);
  stripes.Show(6, {.grid = {5, 25, 39}});
  EXPECT_EQ(stripes.painted, kColumns);
}

TEST(WaveformPicture, ASelectionPaintsWhatIsBetweenItsEnds) {
  Stripes stripes;
  stripes.Show(0);
  stripes.Show(0, {.selected = {10, 20}});
  EXPECT_EQ(stripes.painted, 10);
  stripes.Show(0, {.selected = {10, 23}});
  EXPECT_EQ(stripes.painted, 3);
  stripes.Show(0, {.selected = {12, 21}});
  EXPECT_EQ(stripes.painted, 4);
  stripes.Show(2, {.selected = {10, 19}});
  EXPECT_EQ(stripes.painted, 2 + 4);
  stripes.Show(2);
  EXPECT_EQ(stripes.painted, 9);
}

TEST(WaveformPicture, IsUpToDateUntilThereIsSomethingToPaint) {
  Stripes stripes;
  EXPECT_FALSE(stripes.Picture().IsUpToDate(stripes.look, {}));
  stripes.Show(5, {.selected = {1, 2}});
  EXPECT_TRUE(stripes.Picture().IsUpToDate(stripes.look, {.leftPixel = 5, .selected = {1, 2}}));
  EXPECT_FALSE(stripes.Picture().IsUpToDate(stripes.look, {.leftPixel = 5, .selected = {1, 3}}));
  EXPECT_FALSE(stripes.Picture().IsUpToDate(stripes.look, {.leftPixel = 6, .selected = {1, 2}}));
  stripes.look.curveCut = {1, 2};
  EXPECT_FALSE(stripes.Picture().IsUpToDate(stripes.look, {.leftPixel = 5, .selected = {1, 2}}));
}

TEST(WaveformPicture, APaintingThatFailsLeavesNothingBehind) {
  Stripes stripes;
  stripes.Show(0);
  auto const fail = [](WaveformPicture::Piece const&) { throw std::runtime_error("no"); };
  EXPECT_THROW(stripes.Picture().Update(stripes.look, {.leftPixel = 3}, stripes.cut, fail),
               std::runtime_error);
  stripes.Show(3);
  EXPECT_EQ(stripes.painted, kColumns);
}

// A way to show a waveform.
struct Manner {
  char const* name;
  float scale;
  std::function<void(WaveformSettings&)> change;
};

void PrintTo(Manner const& manner, std::ostream* stream) {
  *stream << manner.name;
}

class KeptPictures : public testing::TestWithParam<Manner> {
 protected:
  static constexpr float kWidth = 240.0f;
  static constexpr float kHeight = 60.0f;

  KeptPictures() {
    session.AddDocument(Noise(3, 80'000));
    session.ChangeSettings(GetParam().change);
    session.ChangeView([](Viewport& view) { view.SetWidth(static_cast<int>(kWidth * GetParam().scale)); });
    Zoom(70.0);
  }

  void Zoom(double samplesPerPixel) {
    session.ChangeView([=](Viewport& view) {
      double const left = view.Left();
      view.Show(left, left + samplesPerPixel * view.Width());
    });
  }

  static std::vector<std::uint32_t> PictureBy(WaveformPainter& painter) {
    float const scale = GetParam().scale;
    Canvas canvas(static_cast<int>(kWidth * scale), static_cast<int>(kHeight * scale), scale);
    painter.Draw(canvas.Draw(), {0.0f, 0.0f, kWidth, kHeight});
    return canvas.Pixels();
  }

  // One that has painted nothing before.
  std::vector<std::uint32_t> WholePicture() const {
    WaveformPainter painter(session, [] {});
    return PictureBy(painter);
  }

  AudioSession session;
};

TEST_P(KeptPictures, AreTheSameAsNewOnes) {
  WaveformPainter kept(session, [] {});
  std::mt19937 random(2);
  for (int i = 0; i < 160; ++i) {
    SCOPED_TRACE(testing::Message() << "step " << i);
    if (i % 40 == 39) {
      Zoom(std::vector{0.7, 4.0, 63.0, 200.0}[static_cast<std::size_t>(i / 40)]);
    }
    double const columns = static_cast<double>(random() % 2000) / 40.0 - (i % 80 < 40 ? 10.0 : 40.0);
    session.ChangeView([columns](Viewport& view) { view.ScrollBy(columns); });
    if (i % 7 == 0) {
      auto const from = static_cast<std::int64_t>(session.View().SampleAt(random() % 400));
      auto const length = static_cast<std::int64_t>(random() % (i % 2 == 0 ? 3 : 5000));
      session.ChangeSelection([=](SampleSelection& selection) { selection.Select(from, from + length); });
    }
    ASSERT_EQ(PictureBy(kept), WholePicture());
  }
}

TEST_P(KeptPictures, AreOthersWhereTheSoundIs) {
  WaveformPainter kept(session, [] {});
  auto const before = PictureBy(kept);
  session.ChangeView([](Viewport& view) { view.ScrollBy(17.0); });
  EXPECT_NE(PictureBy(kept), before);
}

Manner With(char const* name, std::function<void(WaveformSettings&)> change, float scale = 1.0f) {
  return {name, scale, std::move(change)};
}

INSTANTIATE_TEST_SUITE_P(
    Manners, KeptPictures,
    testing::Values(
        With("Plain", [](WaveformSettings&) {}),
        With(
            "AtTwo", [](WaveformSettings&) {}, 2.0f),
        With(
            "AtOneAndAHalf", [](WaveformSettings&) {}, 1.5f),
        With("Layered", [](WaveformSettings& settings) { settings.layered = true; }),
        With("Rectified", [](WaveformSettings& settings) { settings.peakStyle = PeakStyle::kRectified; }),
        With("FewMarks", [](WaveformSettings& settings) { settings.rms = false; }),
        With("ChannelOff", [](WaveformSettings& settings) { settings.enabledChannels[1] = false; }),
        With("Gain", [](WaveformSettings& settings) { settings.gainDecibel = -6.0; }),
        With("GainEverywhere",
             [](WaveformSettings& settings) {
               settings.gainDecibel = 6.0;
               settings.gainWholeRange = true;
             }),
        With("AtTheBottom", [](WaveformSettings& settings) { settings.alignBottom = true; }),
        With("Faded", [](WaveformSettings& settings) { settings.fadeDirection = FadeDirection::kIn; }),
        With("GridOfPixels", [](WaveformSettings& settings) { settings.timeGridSpacing = 24; }),
        With("GridOfSamples", [](WaveformSettings& settings) { settings.rulerUnit = RulerUnit::kSamples; })),
    [](auto const& manner) { return std::string(manner.param.name); });

TEST(WaveformPainter, ScrollingPaintsFewColumns) {
  AudioSession session;
  session.AddDocument(Noise(2, 200'000));
  session.ChangeView([](Viewport& view) {
    view.SetWidth(400);
    view.Show(0.0, 40'000.0);
  });
  WaveformPainter painter(session, [] {});
  auto const draw = [&] {
    Canvas canvas(400, 50);
    painter.Draw(canvas.Draw(), {0.0f, 0.0f, 400.0f, 50.0f});
  };
  draw();
  std::int64_t const before = painter.Picture().ColumnsPainted();
  for (int i = 0; i < 10; ++i) {
    session.ChangeView([](Viewport& view) { view.ScrollBy(3.25); });
    draw();
  }
  EXPECT_LE(painter.Picture().ColumnsPainted() - before, 33 + 10 * 4);
}

TEST(WaveformPainter, DrawsNoSamplesBehindTheEnd) {
  AudioSession session;
  session.AddDocument(Noise(1, 6));
  session.ChangeView([](Viewport& view) {
    view.SetWidth(600);
    view.ShowAll();
  });
  ASSERT_GT(session.View().VisibleSamples(), 7.0);
  session.ChangeSettings([](WaveformSettings& settings) {
    settings.detail = DetailChoice::kSamples;
    settings.timeGrid = false;
  });
  WaveformPainter painter(session, [] {});
  Canvas canvas(600, 51);
  painter.Draw(canvas.Draw(), {0.0f, 0.0f, 600.0f, 51.0f});
  auto const end = static_cast<int>(session.View().ColumnOf(6.0));
  ASSERT_LT(end, 500);
  for (int y = 0; y < 51; ++y) {
    auto const row = canvas.Pixels().begin() + static_cast<std::ptrdiff_t>(y) * 600;
    EXPECT_EQ(std::count(row + end + 1, row + 600, row[599]), 599 - end) << y;
  }
}

}  // namespace
}  // namespace playground
