#include "audio/PlayFollow.h"

namespace playground {
namespace {

constexpr std::int64_t kRest = 1'000'000'000;  // after a change of the view

bool IsInSight(Viewport const& view, double position) {
  double const column = view.ColumnOf(position);
  return column >= 0.0 && column < view.Width();
}

}  // namespace

void PlayFollow::ViewChanged(Viewport const& view, double position, std::int64_t now) {
  mIsAway = !IsInSight(view, position);
  mChanged = now;
}

std::optional<double> PlayFollow::Follow(Viewport const& view, double position, bool forward,
                                         std::int64_t now) {
  if (IsInSight(view, position)) {
    mIsAway = false;
    return std::nullopt;
  }
  bool const rests = mChanged && now - *mChanged < kRest;
  if (mIsAway || rests) {
    return std::nullopt;
  }
  // Backward the page ends with it.
  double const left = forward ? position : position - view.VisibleSamples() + view.SamplesPerPixel();
  Viewport turned = view;
  turned.ScrollTo(left);
  return turned == view ? std::nullopt : std::optional(left);
}

}  // namespace playground
