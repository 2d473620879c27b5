// Pictures that are kept, cut to pieces and painted by several threads, against one plain drawing.
#include "audio/AudioSession.h"
#include "audio/ChannelStrips.h"
#include "audio/LevelGrid.h"
#include "audio/WaveformPainter.h"
#include "playground/audio/PaintedWaveforms.h"
#include "program/AppearanceState.h"

#include <moxmediaui/WaveformDraw.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace playground {
namespace {

struct PlainCase {
  char const* name;
  double samplesPerPixel;
  float scale;
  int columns;
  int rows;
  std::function<void(WaveformSettings&)> change;
};

void PrintTo(PlainCase const& plain, std::ostream* stream) {
  *stream << plain.name;
}

class PlainPictures : public testing::TestWithParam<PlainCase> {
 protected:
  PlainPictures() {
    session.AddDocument(Noise(3, 120'000));
    session.ChangeSettings([](WaveformSettings& settings) {
      // What the program adds to what the library draws.
      settings.rms = false;
      settings.clipMarks = false;
    });
    session.ChangeSettings(GetParam().change);
    session.ChangeView([](Viewport& view) {
      view.SetWidth(GetParam().columns);
      view.Show(4700.3, 4700.3 + GetParam().samplesPerPixel * GetParam().columns);
    });
  }

  void SelectColumns(double first, double last) {
    auto const sample = [this](double column) {
      return static_cast<std::int64_t>(session.View().SampleAt(column));
    };
    session.ChangeSelection(
        [&](SampleSelection& selection) { selection.Select(sample(first), sample(last)); });
  }

  std::vector<std::uint32_t> Painted() const {
    Canvas canvas(GetParam().columns, GetParam().rows, GetParam().scale);
    painter->Draw(canvas.Draw(), {0.0f, 0.0f, static_cast<float>(GetParam().columns) / GetParam().scale,
                                  static_cast<float>(GetParam().rows) / GetParam().scale});
    return canvas.Pixels();
  }

  // All columns and channels by one drawing, as images.
  std::vector<std::uint32_t> DrawnPlainly() const {
    WaveformSettings const& settings = session.Settings();
    Viewport const& view = session.View();
    double const scale = settings.drawScale.value_or(GetParam().scale);
    moxui::RectT<int> const rect{0, 0, GetParam().columns, GetParam().rows};
    moxmediaui::WaveformDraw draw;
    Apply(settings, PaletteOf(CurrentAppearance().theme), draw);
    draw.SetViewRange(view.Left(), view.SamplesPerPixel());
    if (auto const strips = LayOutStrips(settings, 3, rect.height, scale, session.DrawsSamples())) {
      draw.SetHorizontalGridlinePositions(AmplitudeGrid(settings, *strips, 3, scale));
    }
    draw.SetVerticalGridlinePositions(
        TimeGrid(settings, view, session.Current().SampleRate(), GetParam().scale));
    moxui::RectT<int> ignored;
    draw.SetSelection(rect, session.Selection().Left(), session.Selection().Width(), ignored);
    Canvas canvas(rect.width, rect.height);
    // Rows between selected curves are left as they were.
    canvas.Draw().GetSurface()->FillRect(moxui::RectT<float>(rect), draw.GetBackgroundColor());
    draw.Draw(&canvas.Draw(), painter->DataFor(view), rect, static_cast<float>(scale));
    return canvas.Pixels();
  }

  AudioSession session;
  std::unique_ptr<WaveformPainter> painter = std::make_unique<WaveformPainter>(session, [] {});
};

TEST_P(PlainPictures, AreThoseThatArePaintedInPieces) {
  ASSERT_EQ(DifferenceOf(Painted(), DrawnPlainly(), GetParam().columns), "");
  SelectColumns(GetParam().columns * 0.3, GetParam().columns * 0.7);
  auto const selected = Painted();
  ASSERT_EQ(DifferenceOf(selected, DrawnPlainly(), GetParam().columns), "");
  SelectColumns(GetParam().columns * 0.31, GetParam().columns * 0.68);
  auto const painted = Painted();
  ASSERT_EQ(DifferenceOf(painted, DrawnPlainly(), GetParam().columns), "");
  EXPECT_NE(painted, selected);
  session.ChangeView([](Viewport& view) { view.ScrollBy(5.0); });
  ASSERT_EQ(DifferenceOf(Painted(), DrawnPlainly(), GetParam().columns), "");
  SelectColumns(-90.0, -40.0);
  ASSERT_EQ(DifferenceOf(Painted(), DrawnPlainly(), GetParam().columns), "");
}

PlainCase Plain(
    char const* name, double samplesPerPixel, float scale, int columns, int rows,
    std::function<void(WaveformSettings&)> change = [](WaveformSettings&) {}) {
  return {name, samplesPerPixel, scale, columns, rows, std::move(change)};
}

void Bend(WaveformSettings& settings) {
  settings.fadeDirection = FadeDirection::kIn;
  settings.fadeStart = 4000;
  settings.fadeEnd = 40'000;
  settings.fadeAmount = 3.0;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PlainPictures,
    testing::Values(Plain("Samples", 0.3, 1.0f, 240, 92), Plain("SamplesAtTwo", 0.1, 2.0f, 240, 122),
                    // 35 units of 1.2 rows in floats, 34 in doubles.
                    Plain("SamplesInFortyTwoRows", 0.3, 1.2f, 240, 42),
                    Plain("SamplesInThirtyRows", 0.3, 1.2f, 240, 30,
                          [](WaveformSettings& settings) {
                            settings.centerlines = false;
                            settings.drawScale = 1.2;
                          }),
                    Plain("WideSamples", 0.7, 1.5f, 1300, 92),
                    Plain("SamplesWithGain", 0.3, 1.0f, 240, 92,
                          [](WaveformSettings& settings) {
                            settings.gainDecibel = 6.0;
                            settings.dividers = false;
                          }),
                    Plain("SamplesAtTheBottom", 0.3, 1.0f, 240, 94,
                          [](WaveformSettings& settings) { settings.alignBottom = true; }),
                    Plain("LayeredSamples", 0.3, 1.0f, 240, 93,
                          [](WaveformSettings& settings) { settings.layered = true; }),
                    Plain("FadedSamples", 0.3, 1.0f, 240, 92, Bend), Plain("Peaks", 17.0, 1.0f, 240, 92),
                    Plain("WidePeaks", 17.0, 1.5f, 1300, 92),
                    Plain("PeaksAtTheBottom", 17.0, 1.2f, 240, 94,
                          [](WaveformSettings& settings) {
                            settings.alignBottom = true;
                            settings.gainDecibel = 6.0;
                          }),
                    Plain("LayeredPeaks", 17.0, 1.0f, 700, 93,
                          [](WaveformSettings& settings) { settings.layered = true; }),
                    Plain("FadedPeaks", 17.0, 1.0f, 700, 92, Bend),
                    Plain("RectifiedPeaks", 17.0, 2.0f, 700, 130,
                          [](WaveformSettings& settings) {
                            settings.peakStyle = PeakStyle::kRectified;
                            settings.enabledChannels[1] = false;
                          })),
    [](auto const& plain) { return std::string(plain.param.name); });

}  // namespace
}  // namespace playground
