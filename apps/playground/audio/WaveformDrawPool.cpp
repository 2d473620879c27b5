#include "audio/WaveformDrawPool.h"

namespace playground {

WaveformDrawPool::Loan WaveformDrawPool::Take(moxmediaui::WaveformDraw const& like) {
  std::unique_ptr<moxmediaui::WaveformDraw> draw;
  {
    std::lock_guard const lock(mMutex);
    if (!mFree.empty()) {
      draw = std::move(mFree.back());
      mFree.pop_back();
    }
  }
  if (draw) {
    *draw = like;
  } else {
    draw = std::make_unique<moxmediaui::WaveformDraw>(like);
  }
  return {*this, std::move(draw)};
}

void WaveformDrawPool::TakeBack(std::unique_ptr<moxmediaui::WaveformDraw> draw) {
  draw->ReserveCurve(0);  // who keeps what all have in common can go on with it
  std::lock_guard const lock(mMutex);
  mFree.push_back(std::move(draw));
}

}  // namespace playground
