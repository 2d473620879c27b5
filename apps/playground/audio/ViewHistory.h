#pragma once

#include "audio/SampleSelection.h"
#include "audio/Viewport.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>

namespace playground {

// The part of a sound that is shown and what is selected in it: what undo brings back.
struct ViewPlace {
  Viewport view;
  SampleSelection selection;

  bool operator==(ViewPlace const&) const = default;
};

// What kind of step a change of view or selection is. Steps of a burst, as a turned wheel or a held key make
// them, are one when they are of the same kind.
enum class ViewStep {
  kSingle,  // stands for itself
  kZoom,
  kScroll,
  kSelect,
  kFollow,  // nobody's doing, such as a view that follows a playhead: no step at all
};

// The places of one document that its user went through, to go back to and forth again. A drag is one step
// however many changes it makes, and so is a burst: changes of one kind, each soon after the one before.
// Whoever goes back and then somewhere else gives up what lay ahead.
class ViewHistory {
 public:
  static constexpr std::size_t kMostSteps = 256;  // the oldest leave first
  // Steps further apart than this, in nanoseconds, belong to no burst.
  static constexpr std::int64_t kBurstPause = 500'000'000;

  // The user went from `before` to `after` at `time`, in nanoseconds of a clock that never goes back.
  void Note(ViewPlace const& before, ViewPlace const& after, ViewStep step, std::int64_t time);

  // All that is noted until the end is one step, or none if it ends where it began. Drags nest.
  void BeginDrag(ViewPlace const& current);
  void EndDrag(ViewPlace const& current);
  // Ends what is still being dragged, as when the document leaves the screen.
  void EndAllDrags(ViewPlace const& current);

  // False while a drag goes on.
  bool CanUndo() const { return mDrags == 0 && !mBehind.empty(); }
  bool CanRedo() const { return mDrags == 0 && !mAhead.empty(); }
  // The place to go to; nothing when there is none.
  std::optional<ViewPlace> Undo(ViewPlace const& current);
  std::optional<ViewPlace> Redo(ViewPlace const& current);

 private:
  void Push(ViewPlace const& before);

  std::deque<ViewPlace> mBehind;
  std::deque<ViewPlace> mAhead;
  ViewStep mLastStep = ViewStep::kSingle;
  std::int64_t mLastTime = 0;
  int mDrags = 0;
  ViewPlace mDragBegin;
};

}  // namespace playground
