#include "audio/ViewHistory.h"

namespace playground {
namespace {

std::optional<ViewPlace> Move(std::deque<ViewPlace>& from, std::deque<ViewPlace>& to,
                              ViewPlace const& current) {
  ViewPlace const place = from.back();
  from.pop_back();
  to.push_back(current);
  return place;
}

}  // namespace

void ViewHistory::Push(ViewPlace const& before) {
  mAhead.clear();
  mBehind.push_back(before);
  if (mBehind.size() > kMostSteps) {
    mBehind.pop_front();
  }
}

void ViewHistory::Note(ViewPlace const& before, ViewPlace const& after, ViewStep step, std::int64_t time) {
  if (step == ViewStep::kFollow || mDrags > 0 || before == after) {
    return;
  }
  bool const goesOn = step != ViewStep::kSingle && step == mLastStep && time - mLastTime <= kBurstPause;
  mLastStep = step;
  mLastTime = time;
  if (!goesOn) {
    Push(before);
  }
}

void ViewHistory::BeginDrag(ViewPlace const& current) {
  if (mDrags++ == 0) {
    mDragBegin = current;
  }
}

void ViewHistory::EndDrag(ViewPlace const& current) {
  if (mDrags == 0 || --mDrags > 0) {
    return;
  }
  mLastStep = ViewStep::kSingle;
  if (!(current == mDragBegin)) {
    Push(mDragBegin);
  }
}

void ViewHistory::EndAllDrags(ViewPlace const& current) {
  while (mDrags > 0) {
    EndDrag(current);
  }
}

std::optional<ViewPlace> ViewHistory::Undo(ViewPlace const& current) {
  mLastStep = ViewStep::kSingle;
  return CanUndo() ? Move(mBehind, mAhead, current) : std::nullopt;
}

std::optional<ViewPlace> ViewHistory::Redo(ViewPlace const& current) {
  mLastStep = ViewStep::kSingle;
  return CanRedo() ? Move(mAhead, mBehind, current) : std::nullopt;
}

}  // namespace playground
