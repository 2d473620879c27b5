#include "audio/WaveformPicture.h"

#include "audio/Viewport.h"
#include "program/InParallel.h"

#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace playground {
namespace {

using moxui::RectT;

// Columns beside the view: so far it is scrolled before pixels have to be moved.
constexpr int kSpareColumns = 512;
// Next to the edges of a view columns may look otherwise than in its middle: a mark that began outside isn't
// seen to go on, and a selection narrower than a column is widened there.
constexpr std::int64_t kEdge = 2;

void AddSpan(std::vector<ColumnSpan>& spans, ColumnSpan span, std::int64_t columns) {
  span = {std::clamp<std::int64_t>(span.first, 0, columns), std::clamp<std::int64_t>(span.last, 0, columns)};
  if (!span.IsEmpty()) {
    spans.push_back(span);
  }
}

// The same columns, each once, from left to right.
std::vector<ColumnSpan> Merged(std::vector<ColumnSpan> spans) {
  std::ranges::sort(spans, {}, &ColumnSpan::first);
  std::vector<ColumnSpan> merged;
  for (ColumnSpan const& span : spans) {
    if (!merged.empty() && span.first <= merged.back().last) {
      merged.back().last = std::max(merged.back().last, span.last);
    } else {
      merged.push_back(span);
    }
  }
  return merged;
}

std::vector<std::int64_t> ColumnsWithin(std::vector<std::int32_t> const& grid, std::int64_t shift,
                                        ColumnSpan within) {
  std::vector<std::int64_t> columns;
  for (std::int32_t const position : grid) {
    if (std::int64_t const x = position - shift; x >= within.first && x < within.last) {
      columns.push_back(x);
    }
  }
  return columns;
}

}  // namespace

ColumnSpan SelectedColumns(Viewport const& view, std::int64_t left, std::int64_t width) {
  double const begin = static_cast<double>(left);
  double const end = static_cast<double>(left + width);
  std::int64_t const first = view.PixelOf(begin);
  std::int64_t const last = view.PixelOf(end);
  if (width < 1 || first > view.Width() || last < 0) {
    return {};
  }
  ColumnSpan span{std::max<std::int64_t>(first, 0), std::min<std::int64_t>(last, view.Width())};
  // However short it is it stays visible.
  if (span.IsEmpty() && begin < view.Left() + view.VisibleSamples() && end > view.Left()) {
    span.last = span.first + 1;
  }
  // It may begin in a column of which the view has a part only, behind the last one that is drawn.
  return span.IsEmpty() || span.first >= view.Width() ? ColumnSpan{} : span;
}

int WaveformPicture::Stride() const {
  return mLook ? mLook->columns + kSpareColumns : 0;
}

std::uint32_t* WaveformPicture::ViewPixels() const {
  return reinterpret_cast<std::uint32_t*>(mPixels->data()) + mOffset;
}

// Whether all that isn't in ChangedColumns can stay, moved by what the view has moved.
bool WaveformPicture::CanMoveTo(WaveformLook const& look, WaveformPlace const& place) const {
  std::int64_t const shift = place.leftPixel - mPlace.leftPixel;
  if (!(mLook == look) || std::abs(shift) >= look.columns || mPixels.use_count() > 1) {
    return false;
  }
  ColumnSpan const common{std::max<std::int64_t>(-shift, 0) + kEdge,
                          std::min(look.columns - shift, std::int64_t{look.columns}) - kEdge};
  return ColumnsWithin(place.grid, 0, common) == ColumnsWithin(mPlace.grid, shift, common);
}

std::vector<ColumnSpan> WaveformPicture::ChangedColumns(WaveformPlace const& place) const {
  std::int64_t const columns = mLook->columns;
  std::int64_t const shift = place.leftPixel - mPlace.leftPixel;
  std::vector<ColumnSpan> spans;
  if (shift != 0) {
    AddSpan(spans, {0, std::max<std::int64_t>(-shift, 0) + kEdge}, columns);
    AddSpan(spans, {std::min(columns - shift, columns) - kEdge, columns}, columns);
  }
  ColumnSpan const before{mPlace.selected.first - shift, mPlace.selected.last - shift};
  auto const addBetween = [&](std::int64_t a, std::int64_t b) {
    if (a != b) {
      AddSpan(spans, {std::min(a, b), std::max(a, b)}, columns);
    }
  };
  if (mPlace.selected.IsEmpty() || place.selected.IsEmpty()) {
    ColumnSpan const& only = mPlace.selected.IsEmpty() ? place.selected : before;
    addBetween(only.first, only.last);
  } else {
    addBetween(before.first, place.selected.first);
    addBetween(before.last, place.selected.last);
  }
  return Merged(std::move(spans));
}

bool WaveformPicture::IsUpToDate(WaveformLook const& look, WaveformPlace const& place) const {
  return CanMoveTo(look, place) && ChangedColumns(place).empty();
}

void WaveformPicture::Move(std::int64_t shift) {
  std::int64_t const offset = mOffset + shift;
  std::int64_t const columns = mLook->columns;
  if (offset >= 0 && offset + columns <= Stride()) {
    mOffset = static_cast<int>(offset);
    return;
  }
  // All spare columns come to stand on the side that the view moves to.
  int const moved = shift > 0 ? 0 : kSpareColumns;
  std::int64_t const kept = columns - std::abs(shift);
  std::int64_t const from = shift > 0 ? offset : mOffset;
  std::int64_t const to = shift > 0 ? moved : moved - shift;
  for (std::int64_t row = 0; row < mLook->rows; ++row) {
    std::uint32_t* const pixels = ViewPixels() - mOffset + row * Stride();
    std::memmove(pixels + to, pixels + from, static_cast<std::size_t>(kept) * sizeof(std::uint32_t));
  }
  mOffset = moved;
}

std::vector<WaveformPicture::Part> WaveformPicture::PartsOf(std::vector<ColumnSpan> const& spans,
                                                            Cut const& cut) const {
  std::vector<Part> parts;
  for (ColumnSpan const& span : spans) {
    for (std::int64_t x = span.first; x < span.last; x += cut.columnsAtOnce) {
      ColumnSpan const columns{x, std::min<std::int64_t>(x + cut.columnsAtOnce, span.last)};
      for (std::size_t band = 0; band < cut.bands.size(); ++band) {
        bool const isLast = band + 1 == cut.bands.size();
        parts.push_back({columns, static_cast<int>(band), cut.bands[band],
                         isLast ? std::int64_t{mLook->rows} : cut.bands[band + 1]});
      }
    }
  }
  return parts;
}

bool WaveformPicture::Paint(Part const& part, PaintFunction const& paint) const {
  std::uint32_t* const pixels = ViewPixels();
  auto const surface =
      moxui::scriber::NewRasterSurfaceOver(pixels, mLook->columns, mLook->rows, Stride() * 4, 1.0f, true);
  if (!surface) {
    return false;
  }
  surface->ClipToRect({static_cast<float>(part.columns.first), static_cast<float>(part.firstRow),
                       static_cast<float>(part.columns.last - part.columns.first),
                       static_cast<float>(part.endRow - part.firstRow)});
  moxui::scriber::Scriber scriber(moxui::scriber::GetRasterSupplier(), surface.Get());
  paint({scriber, part.columns, part.band, part.firstRow, part.endRow, pixels, Stride()});
  return true;
}

bool WaveformPicture::Update(WaveformLook const& look, WaveformPlace const& place, Cut const& cut,
                             PaintFunction const& paint) {
  std::vector<ColumnSpan> changed{{0, look.columns}};
  if (CanMoveTo(look, place)) {
    changed = ChangedColumns(place);
    Move(place.leftPixel - mPlace.leftPixel);
  } else {
    mLook = look;
    mOffset = 0;
    std::size_t const size = static_cast<std::size_t>(Stride()) * static_cast<std::size_t>(look.rows) * 4;
    // An image that somebody keeps keeps its pixels.
    if (!mPixels || mPixels.use_count() > 1 || mPixels->size() != size) {
      mPixels = moxcore::utility::RecycledMemory::Create(size);
    }
  }
  mPlace = place;
  for (ColumnSpan const& span : changed) {
    mColumnsPainted += span.last - span.first;
  }
  std::vector<Part> const parts = PartsOf(changed, cut);
  std::atomic<bool> isPainted = true;
  try {
    InParallel(static_cast<int>(parts.size()), [&](int index) {
      if (!Paint(parts[static_cast<std::size_t>(index)], paint)) {
        isPainted = false;
      }
    });
  } catch (...) {
    mLook.reset();
    throw;
  }
  if (!isPainted) {
    mLook.reset();
  }
  return isPainted;
}

bool WaveformPicture::Draw(moxui::scriber::Scriber& scriber, ColumnSpan columns,
                           RectT<float> const& destination) const {
  auto const image = scriber.GetSupplier()->NewImage(mLook->columns, mLook->rows, Stride() * 4,
                                                     moxui::scriber::PixelFormat::kBGRX32, ViewPixels(),
                                                     [kept = mPixels](void*) {});
  if (!image) {
    return false;
  }
  scriber.GetSurface()->DrawImage(
      *image,
      {static_cast<float>(columns.first), 0.0f, static_cast<float>(columns.last - columns.first),
       static_cast<float>(mLook->rows)},
      destination, 1.0f);
  return true;
}

}  // namespace playground
