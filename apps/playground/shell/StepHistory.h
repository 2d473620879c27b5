#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>

namespace playground {

// The places that a user went through, to go back to and forth again. A drag is one step however many changes
// it makes, and so is a burst: changes of one kind, each soon after the one before. Whoever goes back and
// then somewhere else gives up what lay ahead. Of kinds of steps `Step::kSingle` stands for itself: it never
// is part of a burst.
template <class Place, class Step>
class StepHistory {
 public:
  static constexpr std::size_t kMostSteps = 256;  // the oldest leave first
  // Steps further apart than this, in nanoseconds, belong to no burst.
  static constexpr std::int64_t kBurstPause = 500'000'000;

  // The user went from `before` to `after` at `time`, as SteadyTime() tells it.
  void Note(Place const& before, Place const& after, Step step, std::int64_t time) {
    if (mDrags > 0 || before == after) {
      return;
    }
    bool const goesOn = step != Step::kSingle && step == mLastStep && time - mLastTime <= kBurstPause;
    mLastStep = step;
    mLastTime = time;
    if (!goesOn) {
      Push(before);
    }
  }
  // What is noted next begins a step of its own.
  void EndBurst() { mLastStep = Step::kSingle; }

  // All that is noted until the end is one step, or none if it ends where it began. Drags nest.
  void BeginDrag(Place const& current) {
    if (mDrags++ == 0) {
      mDragBegin = current;
    }
  }
  void EndDrag(Place const& current) {
    if (mDrags == 0 || --mDrags > 0) {
      return;
    }
    EndBurst();
    if (!(current == mDragBegin)) {
      Push(mDragBegin);
    }
  }
  // Where the drag began that goes on; nothing when none does.
  std::optional<Place> DragBegin() const {
    return mDrags > 0 ? std::optional<Place>(mDragBegin) : std::nullopt;
  }
  // Ends what is still being dragged, as when the document leaves the screen.
  void EndAllDrags(Place const& current) {
    while (mDrags > 0) {
      EndDrag(current);
    }
  }

  // False while a drag goes on.
  bool CanUndo() const { return mDrags == 0 && !mBehind.empty(); }
  bool CanRedo() const { return mDrags == 0 && !mAhead.empty(); }
  // The place to go to; nothing when there is none.
  std::optional<Place> Undo(Place const& current) {
    EndBurst();
    return CanUndo() ? Move(mBehind, mAhead, current) : std::nullopt;
  }
  std::optional<Place> Redo(Place const& current) {
    EndBurst();
    return CanRedo() ? Move(mAhead, mBehind, current) : std::nullopt;
  }

 private:
  static std::optional<Place> Move(std::deque<Place>& from, std::deque<Place>& to, Place const& current) {
    Place const place = from.back();
    from.pop_back();
    to.push_back(current);
    return place;
  }

  void Push(Place const& before) {
    mAhead.clear();
    mBehind.push_back(before);
    if (mBehind.size() > kMostSteps) {
      mBehind.pop_front();
    }
  }

  std::deque<Place> mBehind;
  std::deque<Place> mAhead;
  Step mLastStep = Step::kSingle;
  std::int64_t mLastTime = 0;
  int mDrags = 0;
  Place mDragBegin{};
};

}  // namespace playground
