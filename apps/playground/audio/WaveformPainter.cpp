#include "audio/WaveformPainter.h"

#include "audio/AudioSession.h"
#include "audio/ChannelStrips.h"
#include "audio/LevelGrid.h"
#include "audio/LevelOverlay.h"
#include "program/AppearanceState.h"
#include "program/InParallel.h"
#include "program/Localized.h"
#include "shell/Painting.h"

#include <moxaudiotoolkit/peaks/PeakPyramid.h>
#include <moxcore/config/Errors.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace playground {
namespace {

namespace waveform = moxaudiotoolkit::waveform;
using moxui::RectT;

// Columns of peaks that are painted at once: what is painted of them stays in the second-level cache.
constexpr int kColumnsAtOnce = 192;

bool ShowsPeaks(DrawnWaveform const& drawn) {
  return drawn.data->GetType() == waveform::WaveformDataType::kPeaks;
}

// Whether the gain of all columns is another than it would be without the selection: samples have none
// wherever something is selected, peaks have none outside what is selected in the view.
bool HasGainOfSelection(DrawnWaveform const& drawn, SampleSelection const& selection,
                        ColumnSpan const& selected) {
  if (drawn.settings.gainDecibel == 0.0) {
    return false;
  }
  return ShowsPeaks(drawn) ? !selected.IsEmpty() && !drawn.settings.gainWholeRange : !selection.IsEmpty();
}

// Whether the picture is cut to a band for each channel.
bool HasBandsOfChannels(DrawnWaveform const& drawn) {
  return !ShowsPeaks(drawn) && drawn.strips && !drawn.settings.layered;
}

// Those lines of a grid that are in some rows: others would be stroked for nothing.
std::vector<std::int32_t> GridWithin(std::vector<std::int32_t> positions, std::int64_t first,
                                     std::int64_t end) {
  std::erase_if(positions, [=](std::int32_t y) { return y < first || y >= end; });
  return positions;
}

// Behind the end of the sound there are no samples: a curve and dots at zero would tell of some.
void PaintSamples(moxui::scriber::Scriber& scriber, DrawnWaveform const& drawn,
                  moxmediaui::WaveformDraw const& draw) {
  moxui::scriber::SurfaceInterface& surface = *scriber.GetSurface();
  auto const nothing = std::make_shared<WaveformFeed::Data>(
      waveform::WaveformDataProperties{.channelCount = drawn.data->GetChannelCount()}, std::vector<float>());
  auto const height = static_cast<float>(drawn.rows);
  auto const drawWithin = [&](std::shared_ptr<WaveformFeed::Data> const& data, int first, int last) {
    surface.SaveState();
    surface.ClipToRect({static_cast<float>(first), 0.0f, static_cast<float>(last - first), height});
    draw.Draw(&scriber, data, {0, 0, drawn.columns, drawn.rows}, drawn.scale);
    surface.RestoreState();
  };
  drawWithin(drawn.data, 0, drawn.end);
  drawWithin(nothing, drawn.end, drawn.columns);
}

// What all threads that paint curves need is worked out by all of them, rather than by each.
void WorkOutCurve(moxmediaui::WaveformDraw& draw, int columns) {
  constexpr int kPointsAtOnce = 256;
  int const points = columns + 1;  // one more than columns
  draw.ReserveCurve(points);
  InParallel((points + kPointsAtOnce - 1) / kPointsAtOnce, [&](int part) {
    draw.WorkOutCurve(part * kPointsAtOnce, std::min((part + 1) * kPointsAtOnce, points));
  });
}

// All but the RMS and marks, on a surface whose pixels are the columns.
void PaintWave(moxui::scriber::Scriber& scriber, DrawnWaveform const& drawn,
               moxmediaui::WaveformDraw const& draw) {
  RectT<int> const rect{0, 0, drawn.columns, drawn.rows};
  bool const showsPeaks = ShowsPeaks(drawn);
  if (!drawn.strips || (!showsPeaks && draw.GetSelectionWidth() > 0)) {
    // Rows between selected curves are left as they were, and all of them where the channels don't fit.
    scriber.GetSurface()->FillRect(RectT<float>(rect), draw.GetBackgroundColor());
  }
  if (!showsPeaks && drawn.end < drawn.columns) {
    PaintSamples(scriber, drawn, draw);
  } else {
    draw.Draw(&scriber, drawn.data, rect, drawn.scale);
  }
}

void PaintMarks(moxui::scriber::Scriber& scriber, DrawnWaveform const& drawn) {
  if (drawn.strips && drawn.settings.clipMarks) {
    DrawClipMarks(scriber, drawn);
  }
  if (drawn.strips && drawn.isGrowing) {
    DrawUnread(scriber, drawn.levels, drawn.draw.GetBackgroundColor(), drawn.columns, drawn.rows);
  }
}

}  // namespace

WaveformPainter::WaveformPainter(AudioSession const& session, std::function<void()> arrived)
    : mSession(session), mFeed(std::move(arrived)) {}

WaveformPainter::~WaveformPainter() = default;

std::shared_ptr<WaveformFeed::Data> WaveformPainter::DataFor(Viewport const& view) {
  return mFeed.DataFor(mSession.Current(), view, mSession.Settings().detail);
}

WaveformFeed::Levels const& WaveformPainter::LevelsFor(Viewport const& view) {
  return mFeed.LevelsFor(mSession.Current(), view);
}

void WaveformPainter::PrepareDraw(Viewport const& view, int rows, float scale) {
  WaveformSettings const& settings = mSession.Settings();
  AudioDocument const& document = mSession.Current();
  Apply(settings, PaletteOf(CurrentAppearance().theme), mDraw);
  mDraw.SetViewRange(view.Left(), view.SamplesPerPixel());
  double const drawScale = settings.drawScale.value_or(scale);
  auto const channels = static_cast<int>(document.ChannelCount());
  auto const strips = LayOutStrips(settings, channels, rows, drawScale, mSession.DrawsSamples());
  mDraw.SetHorizontalGridlinePositions(strips ? AmplitudeGrid(settings, *strips, channels, drawScale)
                                              : std::vector<std::int32_t>());
  mDraw.SetVerticalGridlinePositions(TimeGrid(settings, view, document.SampleRate(), scale));
  mDraw.SetPaintedColumns(0, view.Width());
  RectT<int> ignored;
  mDraw.SetSelection({0, 0, view.Width(), rows}, mSession.Selection().Left(), mSession.Selection().Width(),
                     ignored);
}

DrawnWaveform WaveformPainter::Gather(Viewport const& view, int rows, float scale) {
  static waveform::ColumnLevels const kNoLevels;
  WaveformSettings const& settings = mSession.Settings();
  auto const& pyramid = mSession.Current().Pyramid();
  bool const isGrowing = pyramid && !pyramid->IsComplete();
  auto const data = DataFor(view);
  bool const needsLevels = settings.rms || settings.clipMarks || isGrowing;
  waveform::ColumnLevels const& levels = needsLevels ? LevelsFor(view) : kNoLevels;
  return {.draw = mDraw,
          .settings = settings,
          .data = data,
          .levels = levels,
          .rms = RmsPairs(settings, *data, levels),
          .columns = view.Width(),
          .rows = rows,
          .scale = static_cast<float>(settings.drawScale.value_or(scale)),
          .isGrowing = isGrowing,
          .strips = LayOutStrips(settings, static_cast<int>(mSession.Current().ChannelCount()), rows,
                                 settings.drawScale.value_or(scale), mSession.DrawsSamples()),
          .end = static_cast<int>(std::ceil(std::clamp(view.ColumnOf(static_cast<double>(view.Frames())), 0.0,
                                                       static_cast<double>(view.Width()))))};
}

void WaveformPainter::Draw(moxui::scriber::Scriber& scriber, RectT<float> const& own) {
  moxui::scriber::SurfaceInterface& surface = *scriber.GetSurface();
  float const scale = surface.GetScale();
  int const columns = static_cast<int>(std::lround(own.width * scale));
  int const rows = static_cast<int>(std::lround(own.height * scale));
  if (columns < 1 || rows < 1) {
    return;
  }
  Viewport view = mSession.View();
  if (view.Width() != columns) {
    view.StretchTo(columns);
  }
  surface.SaveState();
  surface.ClipToRect(own);
  try {
    if (!DrawPicture(scriber, view, rows, scale)) {
      DrawInPlace(scriber, own, view);
    }
  } catch (moxcore::config::mox_exception const&) {
    // No memory for what the drawing needs: an exception out of a paint would end the program for a picture.
    surface.FillRect(own, mDraw.GetBackgroundColor());
    DrawLabel(&scriber, Text16("$$$/playground/audio/notDrawn=The waveform can't be drawn at the moment."),
              own, moxui::scriber::TextAlignment::kCenter, moxui::ui::FontIndex::kText,
              InkOn(mDraw.GetBackgroundColor()));
  }
  surface.RestoreState();
}

bool WaveformPainter::DrawPicture(moxui::scriber::Scriber& scriber, Viewport const& view, int rows,
                                  float scale) {
  RectT<float> const damage = scriber.GetSurface()->GetClipBounds();
  int const columns = view.Width();
  auto const first = static_cast<int>(std::clamp(std::floor(damage.left * scale), 0.0f, columns * 1.0f));
  auto const last = static_cast<int>(std::clamp(std::ceil(damage.Right() * scale), 0.0f, columns * 1.0f));
  if (last <= first) {
    return true;
  }
  PrepareDraw(view, rows, scale);
  DrawnWaveform drawn = Gather(view, rows, scale);
  SampleSelection const& selection = mSession.Selection();
  ColumnSpan const selected = SelectedColumns(view, selection.Left(), selection.Width());
  bool const showsPeaks = ShowsPeaks(drawn);
  bool const isFaded = drawn.settings.fadeDirection != FadeDirection::kNone;
  WaveformLook const look{.settings = drawn.settings,
                          .theme = CurrentAppearance().theme,
                          .generation = mFeed.Generation(),
                          .columns = columns,
                          .rows = rows,
                          .scale = scale,
                          .isGrowing = drawn.isGrowing,
                          .gainIsSelections = HasGainOfSelection(drawn, selection, selected),
                          .curveCut = showsPeaks ? ColumnSpan() : selected,
                          // Curves through samples, and fades, lie at fractions of columns.
                          .left = showsPeaks && !isFaded ? std::nullopt : std::optional(view.Left())};
  WaveformPlace const place{view.LeftPixel(), selected, mDraw.GetVerticalGridlinePositions()};
  if (!mPicture.IsUpToDate(look, place)) {
    PrepareForPieces(drawn);
  }
  bool const isUpToDate = mPicture.Update(
      look, place, CutOf(drawn), [&](WaveformPicture::Piece const& piece) { PaintPiece(piece, drawn); });
  auto const left = static_cast<float>(first);
  auto const width = static_cast<float>(last - first);
  return isUpToDate && mPicture.Draw(scriber, {first, last},
                                     {left / scale, 0.0f, width / scale, static_cast<float>(rows) / scale});
}

void WaveformPainter::DrawInPlace(moxui::scriber::Scriber& scriber, RectT<float> const& own, Viewport view) {
  int const rows = static_cast<int>(std::lround(own.height));
  int const columns = static_cast<int>(std::lround(own.width));
  if (columns < 1 || rows < 1) {
    return;
  }
  if (columns != view.Width()) {
    view.StretchTo(columns);
  }
  PrepareDraw(view, rows, 1.0f);
  DrawnWaveform const drawn = Gather(view, rows, 1.0f);
  PaintWave(scriber, drawn, mDraw);
  PaintMarks(scriber, drawn);
}

void WaveformPainter::PrepareForPieces(DrawnWaveform& drawn) {
  drawn.data = mDraw.WithFade(drawn.data);
  if (drawn.rms) {
    drawn.rms = mDraw.WithFade(drawn.rms);
  }
  mDraw.SetFadeInfo(moxmediaui::FadeType::kNone, 0, 0, true, 0.0f);
  if (!ShowsPeaks(drawn)) {
    WorkOutCurve(mDraw, drawn.columns);
  }
}

WaveformPicture::Cut WaveformPainter::CutOf(DrawnWaveform const& drawn) {
  if (ShowsPeaks(drawn)) {
    return {.columnsAtOnce = kColumnsAtOnce};
  }
  // A curve is drawn from one edge of the view to the other: its points hang together. Channels don't.
  WaveformPicture::Cut cut{.columnsAtOnce = drawn.columns};
  if (HasBandsOfChannels(drawn)) {
    for (std::size_t channel = 1; channel < drawn.data->GetChannelCount(); ++channel) {
      cut.bands.push_back(static_cast<std::int64_t>(channel) * drawn.strips->stride);
    }
  }
  return cut;
}

void WaveformPainter::PaintPiece(WaveformPicture::Piece const& piece, DrawnWaveform const& drawn) {
  auto const draw = mDraws.Take(mDraw);
  draw->SetPaintedColumns(static_cast<int>(piece.columns.first), static_cast<int>(piece.columns.last));
  draw->SetPeakTarget({.pixels = piece.viewPixels, .pixelsPerRow = piece.pixelsPerRow});
  if (HasBandsOfChannels(drawn)) {
    draw->SetPaintedChannels(piece.band, piece.band + 1);
    draw->SetHorizontalGridlinePositions(
        GridWithin(mDraw.GetHorizontalGridlinePositions(), piece.firstRow, piece.endRow));
  }
  PaintWave(piece.scriber, drawn, *draw);
  if (drawn.strips) {
    PaintRms(piece, drawn, *draw);
  }
  PaintMarks(piece.scriber, drawn);
}

}  // namespace playground
