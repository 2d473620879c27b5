#pragma once

#include <moxmediaui/WaveformDraw.h>

#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace playground {

// Waveform drawings for threads that paint at the same time, none of which may use another's. They are kept
// for what they have worked out.
class WaveformDrawPool {
 public:
  // A drawing of one's own, until this ends.
  class Loan {
   public:
    Loan(WaveformDrawPool& pool, std::unique_ptr<moxmediaui::WaveformDraw> draw)
        : mPool(pool), mDraw(std::move(draw)) {}
    ~Loan() { mPool.TakeBack(std::move(mDraw)); }
    Loan(Loan const&) = delete;
    Loan& operator=(Loan const&) = delete;

    moxmediaui::WaveformDraw& operator*() const { return *mDraw; }
    moxmediaui::WaveformDraw* operator->() const { return mDraw.get(); }

   private:
    WaveformDrawPool& mPool;
    std::unique_ptr<moxmediaui::WaveformDraw> mDraw;
  };

  // One with the settings of `like`.
  Loan Take(moxmediaui::WaveformDraw const& like);

 private:
  void TakeBack(std::unique_ptr<moxmediaui::WaveformDraw> draw);

  std::mutex mMutex;
  std::vector<std::unique_ptr<moxmediaui::WaveformDraw>> mFree;
};

}  // namespace playground
