#include "audio/Viewport.h"

#include <algorithm>
#include <cmath>

namespace playground {

double Viewport::WidestSamplesPerPixel() const {
  return std::max(static_cast<double>(mFrames) / mWidth, mFinest);
}

bool Viewport::ShowsAll() const {
  return mSamplesPerPixel >= WidestSamplesPerPixel();
}

// Samples go to whole columns, counted from the sound's start: the last column may reach beyond the sound,
// and has to be within the view all the same.
double Viewport::LastLeft() const {
  double const frames = static_cast<double>(mFrames);
  double const flush = frames - VisibleSamples();
  if (flush <= 0.0) {
    return 0.0;
  }
  double const firstColumn = std::trunc(std::max(frames - 1.0, 0.0) / mSamplesPerPixel) + 1.0 - mWidth;
  double left = std::max(flush, firstColumn * mSamplesPerPixel);
  while (std::trunc(left / mSamplesPerPixel) < firstColumn) {
    left = std::nextafter(left, frames);
  }
  return left;
}

void Viewport::Set(double left, double samplesPerPixel) {
  if (!std::isfinite(left) || !std::isfinite(samplesPerPixel)) {
    return;
  }
  mSamplesPerPixel = std::clamp(samplesPerPixel, mFinest, WidestSamplesPerPixel());
  mLeft = std::clamp(left, 0.0, LastLeft());
}

void Viewport::SetFrames(std::int64_t frames, double finest) {
  mFinest = finest;
  mFrames = std::max<std::int64_t>(frames, 0);
  ShowAll();
}

void Viewport::SetWidth(int width) {
  bool const all = ShowsAll();
  mWidth = std::max(width, 1);
  if (all) {
    ShowAll();
  } else {
    Set(mLeft, mSamplesPerPixel);
  }
}

void Viewport::StretchTo(int width) {
  double const visible = VisibleSamples();
  mWidth = std::max(width, 1);
  Set(mLeft, visible / mWidth);
}

void Viewport::ShowAll() {
  Set(0.0, WidestSamplesPerPixel());
}

void Viewport::ZoomAt(double column, double factor) {
  if (!(factor > 0.0) || !std::isfinite(factor)) {
    return;
  }
  double const sample = SampleAt(column);
  double const samplesPerPixel = std::clamp(mSamplesPerPixel / factor, mFinest, WidestSamplesPerPixel());
  Set(sample - column * samplesPerPixel, samplesPerPixel);
}

void Viewport::ScrollTo(double left) {
  Set(left, mSamplesPerPixel);
}

void Viewport::Show(double begin, double end) {
  if (end > begin) {
    Set(begin, (end - begin) / mWidth);
  }
}

void Viewport::Reveal(double sample) {
  if (sample < mLeft) {
    ScrollTo(sample);
  } else if (sample > mLeft + VisibleSamples()) {
    ScrollTo(sample - VisibleSamples());
  }
}

}  // namespace playground
