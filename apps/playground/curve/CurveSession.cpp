#include "curve/CurveSession.h"

#include "program/SteadyTime.h"

#include <algorithm>
#include <utility>

namespace playground {

void CurveSession::Select(std::size_t point) {
  if (point != mPlace.selected && point < Curve().PointCount()) {
    mHistory.EndBurst();
    mPlace.selected = point;
    Tell();
  }
}

void CurveSession::Change(std::function<void(CurvePlace&)> const& change, CurveStep step) {
  CurvePlace const before = mPlace;
  change(mPlace);
  mPlace.selected = std::min(mPlace.selected, Curve().PointCount() - 1);
  if (!(mPlace.curve == before.curve)) {
    mHistory.Note(before, mPlace, step, SteadyTime());
  }
  if (!(mPlace == before)) {
    Tell();
  }
}

void CurveSession::MoveSelected(CurvePoint to, CurveStep step) {
  Change([to](CurvePlace& place) { place.curve.Move(place.selected, to); }, step);
}

ToneCurve CurveSession::WithAnother(std::size_t& added) const {
  ToneCurve curve = Curve();
  auto const& points = curve.Points();
  std::size_t const left = std::min(Selected(), points.size() - 2);
  double const middle = (points[left].x + points[left + 1].x) / 2.0;
  added = curve.Insert({middle, Curve().At(middle)}).value_or(curve.PointCount());
  return curve;
}

bool CurveSession::CanAddPoint() const {
  std::size_t added = 0;
  return WithAnother(added).PointCount() > Curve().PointCount();
}

void CurveSession::AddPoint() {
  Change([this](CurvePlace& place) {
    std::size_t added = 0;
    ToneCurve curve = WithAnother(added);
    if (added < curve.PointCount()) {
      place = {std::move(curve), added};
    }
  });
}

void CurveSession::RemoveSelected() {
  Change([](CurvePlace& place) { place.curve.Remove(place.selected); });
}

void CurveSession::GoTo(std::optional<CurvePlace> const& place) {
  if (place) {
    mPlace = *place;
    Tell();
  }
}

void CurveSession::BeginDrag() {
  ++mDrags;
  mHistory.BeginDrag(mPlace);
}

void CurveSession::EndDrag() {
  --mDrags;
  mHistory.EndDrag(mPlace);
  Tell();
}

void CurveSession::Tell() {
  if (mListener) {
    auto const listener = mListener;  // it may be replaced while it runs
    listener(mDrags == 0);
  }
}

void CurveSession::SetListener(void const* owner, Listener listener) {
  mListenerOwner = owner;
  mListener = std::move(listener);
}

void CurveSession::RemoveListener(void const* owner) {
  if (owner == mListenerOwner) {
    SetListener(nullptr, {});
  }
}

}  // namespace playground
