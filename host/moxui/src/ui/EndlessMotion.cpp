#include "EndlessMotion.h"

#include <cmath>

namespace moxui::ui {

namespace {

float Distance(PointT<float> a, PointT<float> b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

}  // namespace

PointT<float> EndlessMotion::Follow(PointT<float> real) {
  PointT<float> const place = real + mOffset;
  if (mStaleOffset) {
    PointT<float> const stalePlace = real + *mStaleOffset;
    if (Distance(stalePlace, mLast) < Distance(place, mLast)) {
      // The pointer had come further than was known when it was put elsewhere.
      mOffset = mOffset + stalePlace - mLast;
      mLast = stalePlace;
      return mLast;
    }
    mStaleOffset.reset();
  }
  mLast = place;
  return mLast;
}

void EndlessMotion::Warp(PointT<float> from, PointT<float> to) {
  mLast = from + mOffset;
  mStaleOffset = mOffset;
  mOffset = mOffset + from - to;
  mHasWarped = true;
}

void EndlessMotion::UndoWarp() {
  mOffset = mStaleOffset.value_or(mOffset);
  mStaleOffset.reset();
  mHasWarped = mOffset != PointT<float>{};
}

}  // namespace moxui::ui
