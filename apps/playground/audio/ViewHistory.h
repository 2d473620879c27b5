#pragma once

#include "audio/SampleSelection.h"
#include "audio/Viewport.h"
#include "shell/StepHistory.h"

#include <cstdint>

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

// The places of one document that its user went through.
class ViewHistory : public StepHistory<ViewPlace, ViewStep> {
 public:
  void Note(ViewPlace const& before, ViewPlace const& after, ViewStep step, std::int64_t time) {
    if (step != ViewStep::kFollow) {
      StepHistory::Note(before, after, step, time);
    }
  }
};

}  // namespace playground
