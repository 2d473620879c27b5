#pragma once

#include "audio/WaveformPalette.h"
#include "audio/WaveformSettings.h"
#include "program/Appearance.h"

#include <moxcore/utility/RecycledMemory.h>
#include <moxui/geometry/RectT.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace moxui::scriber {
class Scriber;
}

namespace playground {

// From `first` up to but not including `last`.
struct ColumnSpan {
  std::int64_t first = 0;
  std::int64_t last = 0;

  bool IsEmpty() const { return first >= last; }
  bool operator==(ColumnSpan const&) const = default;
};

// What the columns of a waveform's picture look like, but for where they are in the sound. Columns of equal
// looks can stay as they were painted.
struct WaveformLook {
  WaveformSettings settings = {};
  ThemeChoice theme = ThemeChoice::kDark;
  std::uint64_t generation = 0;  // of the waveform's data
  int columns = 0;
  int rows = 0;
  float scale = 1.0f;
  bool isGrowing = false;
  bool gainIsSelections = false;  // in all columns
  // Where curves are cut, if any are drawn: their parts look otherwise at their ends, and to a rounding in
  // all columns.
  ColumnSpan curveCut = {};
  // Where columns depend on the place of the view to a fraction of a column: that place.
  std::optional<double> left = {};

  bool operator==(WaveformLook const&) const = default;
};

// What of a picture is tied to columns, all counted from the left edge of the view.
struct WaveformPlace {
  std::int64_t leftPixel = 0;  // columns between the sound's start and the view
  ColumnSpan selected = {};
  std::vector<std::int32_t> grid = {};
};

// The columns that a selection covers in a view, as the waveform draws it.
ColumnSpan SelectedColumns(Viewport const& view, std::int64_t left, std::int64_t width);

// The pixels of a waveform, kept from one frame to the next: a view that is scrolled moves them and has only
// the columns painted that have come into it, a selection those at its ends. What comes out is the same as
// when all is painted.
class WaveformPicture {
 public:
  // A part that is to be painted, some columns of a band: a surface whose units are columns and rows of the
  // view, clipped to it, and its pixels, opaque, which may be written in the surface's stead.
  struct Piece {
    moxui::scriber::Scriber& scriber;
    ColumnSpan columns;
    int band = 0;
    std::int64_t firstRow = 0;
    std::int64_t endRow = 0;
    std::uint32_t* viewPixels = nullptr;  // of the view's first column and row
    int pixelsPerRow = 0;                 // from row to row
  };
  using PaintFunction = std::function<void(Piece const& piece)>;

  // How what has to be painted is cut to pieces.
  struct Cut {
    int columnsAtOnce = 1;                  // at most
    std::vector<std::int64_t> bands = {0};  // the first row of each, from 0 on
  };

  // Whether there is nothing to paint.
  bool IsUpToDate(WaveformLook const& look, WaveformPlace const& place) const;
  // Brings the picture up to date. `paint` is called for one piece after the other, on this thread and on
  // others at the same time. False where there is no surface to be had. What `paint` throws leaves an empty
  // picture.
  bool Update(WaveformLook const& look, WaveformPlace const& place, Cut const& cut,
              PaintFunction const& paint);
  // Draws columns of the picture, pixel by pixel, at `destination`; false when there is no image to be had.
  bool Draw(moxui::scriber::Scriber& scriber, ColumnSpan columns,
            moxui::RectT<float> const& destination) const;

  // Columns that were painted so far.
  std::int64_t ColumnsPainted() const { return mColumnsPainted; }

 private:
  bool CanMoveTo(WaveformLook const& look, WaveformPlace const& place) const;
  void Move(std::int64_t shift);
  std::vector<ColumnSpan> ChangedColumns(WaveformPlace const& place) const;
  struct Part {
    ColumnSpan columns;
    int band = 0;
    std::int64_t firstRow = 0;
    std::int64_t endRow = 0;
  };
  std::vector<Part> PartsOf(std::vector<ColumnSpan> const& spans, Cut const& cut) const;
  bool Paint(Part const& part, PaintFunction const& paint) const;
  int Stride() const;
  std::uint32_t* ViewPixels() const;

  std::optional<WaveformLook> mLook;  // nothing: nothing is painted
  WaveformPlace mPlace;
  // Wider than the view, which begins at column mOffset, so that most steps of a scrolling move no pixel.
  std::shared_ptr<moxcore::utility::RecycledMemory> mPixels;
  int mOffset = 0;
  std::int64_t mColumnsPainted = 0;
};

}  // namespace playground
