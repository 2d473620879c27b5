#pragma once

#include <moxui/geometry/RectT.h>

#include <vector>

namespace moxmediaui {

/// The pieces of a view that are painted each in one way, in painting order: three lists of equal length.
struct WaveformRegions {
  std::vector<moxui::RectT<int>> rects;
  std::vector<bool> selected;
  std::vector<float> gains;

  void Add(moxui::RectT<int> const& rect, bool isSelected, float gain);
};

/// What two rectangles have in common, the empty rectangle if nothing. Their right and bottom edges may lie
/// beyond the range of an int.
moxui::RectT<int> FindCommonArea(moxui::RectT<int> const& a, moxui::RectT<int> const& b);

/// A view split by the pixel columns of its selection: left of it, right of it, the selection itself. The
/// gain applies to the selection, and outside it too if `gainWholeRange`, else 1.0 does; without a selection
/// in sight all is one region with the gain.
WaveformRegions SplitBySelection(moxui::RectT<int> const& rect, int selectionLeft, int selectionWidth,
                                 float gain, bool gainWholeRange);

}  // namespace moxmediaui
