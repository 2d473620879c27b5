// The selection of WaveformDrawBase: where it lies in pixels, and what a change of it touches.
#include "SaturatingConversion.h"

#include <moxmediaui/Module.h>
#include <moxmediaui/WaveformDrawBase.h>

#include <algorithm>

namespace moxmediaui {

void WaveformDrawBase::GetSelPixels(int width, std::int64_t left, std::int64_t sampleWidth, int& pixelLeft,
                                    int& pixelWidth) const {
  pixelLeft = 0;
  pixelWidth = 0;
  if (sampleWidth < 1 || width < 1) {
    return;
  }
  auto const leftSample = static_cast<double>(left);
  auto const endSample = static_cast<double>(SaturatingSum(left, sampleWidth));
  std::int64_t const first = GetPixelPositionFromSample(leftSample);
  if (first > width) {
    return;
  }
  std::int64_t const end = GetPixelPositionFromSample(endSample);
  if (end < 0) {
    return;
  }
  pixelLeft = static_cast<int>(std::max<std::int64_t>(first, 0));
  pixelWidth = static_cast<int>(std::min<std::int64_t>(end, width)) - pixelLeft;
  // A selection narrower than a pixel stays visible.
  bool const overlapsView =
      leftSample < GetViewLeft() + GetSamplesPerPixel() * width && endSample > GetViewLeft();
  if (pixelWidth < 1 && overlapsView) {
    pixelWidth = 1;
  }
}

void WaveformDrawBase::SetSelection(RectT<int> const& rect, std::int64_t left, std::int64_t width,
                                    RectT<int>& updateRect) {
  RectT<int> const view = rect;  // the caller may pass one rectangle for both
  updateRect = {};
  if (mSelectionWidth < 1 && width < 1) {
    return;
  }
  if (left == mSelectionLeft && width == mSelectionWidth) {
    return;
  }
  int oldPixel = 0, oldWidth = 0, newPixel = 0, newWidth = 0;
  GetSelPixels(view.width, mSelectionLeft, mSelectionWidth, oldPixel, oldWidth);
  GetSelPixels(view.width, left, width, newPixel, newWidth);
  mSelectionLeft = left;
  mSelectionWidth = width;
  if (oldWidth < 1 && newWidth < 1) {
    return;
  }
  if (oldPixel == newPixel && oldWidth == newWidth) {
    return;
  }
  if (view.width > 0 && view.height > 0) {
    int start = 0, updateWidth = 0;
    utility::GetUpdateRange(oldPixel, oldWidth, newPixel, newWidth, start, updateWidth);
    // One column more: the edge column is drawn on the far side of the span.
    updateRect = {SaturateToInt(std::int64_t{start} + view.left), view.top,
                  SaturateToInt(std::int64_t{updateWidth} + 1), view.height};
  }
}

}  // namespace moxmediaui
