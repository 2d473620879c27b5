#include "audio/AudioSession.h"
#include "program/SteadyTime.h"

namespace playground {

AudioSession::Places const& AudioSession::CurrentPlaces() const {
  static Places const kNone;
  auto const found = mPlaces.find(mCurrent);
  return found == mPlaces.end() ? kNone : found->second;
}

void AudioSession::LeaveCurrent() {
  if (mView.Frames() > 0) {
    ViewPlace const place{mView, mSelection};
    Places& places = CurrentPlaces();
    places.history.EndAllDrags(place);
    places.left = place;
  }
}

void AudioSession::ReturnToPlace() {
  if (auto const& left = CurrentPlaces().left) {
    ViewPlace const place = Fitted(*left);
    mView = place.view;
    mSelection = place.selection;
  }
}

ViewPlace AudioSession::Fitted(ViewPlace place) const {
  if (place.view.Frames() != mView.Frames() || place.view.Finest() != mView.Finest()) {
    // The file has become another one since.
    Viewport view = mView;
    view.Show(place.view.Left(), place.view.Left() + place.view.VisibleSamples());
    SampleSelection selection = mSelection;
    selection.Select(place.selection.Anchor(), place.selection.Head());
    return {view, selection};
  }
  if (place.view.Width() != mView.Width()) {
    place.view.StretchTo(mView.Width());
  }
  return place;
}

void AudioSession::Note(ViewPlace const& before, ViewStep step) {
  Places& places = CurrentPlaces();
  if (before.view.Width() != mView.Width()) {
    places.zoom.Follow(before.view, mView);
    step = ViewStep::kFollow;
  }
  places.history.Note(before, {mView, mSelection}, step, SteadyTime());
}

void AudioSession::ChangeView(std::function<void(Viewport&)> const& change, ViewStep step) {
  ViewPlace const before{mView, mSelection};
  change(mView);
  if (!(mView == before.view)) {
    Note(before, step);
    Tell(SessionChange::kView);
  }
}

void AudioSession::ChangeSelection(std::function<void(SampleSelection&)> const& change, ViewStep step) {
  ViewPlace const before{mView, mSelection};
  change(mSelection);
  if (!(mSelection == before.selection)) {
    Note(before, step);
    Tell(SessionChange::kSelection);
  }
}

bool AudioSession::GoTo(std::optional<ViewPlace> const& target) {
  if (!target) {
    return false;
  }
  ViewPlace const place = Fitted(*target);
  SessionChanges changes = SessionChange::kHistory;
  if (!(place.selection == mSelection)) {
    changes.Set(SessionChange::kSelection);
  }
  if (!(place.view == mView)) {
    changes.Set(SessionChange::kView);
  }
  mView = place.view;
  mSelection = place.selection;
  Tell(changes);
  return true;
}

bool AudioSession::Undo() {
  return GoTo(CurrentPlaces().history.Undo({mView, mSelection}));
}

bool AudioSession::Redo() {
  return GoTo(CurrentPlaces().history.Redo({mView, mSelection}));
}

void AudioSession::BeginDrag() {
  if (mView.Frames() > 0) {
    CurrentPlaces().history.BeginDrag({mView, mSelection});
  }
  Tell(SessionChange::kHistory);
}

void AudioSession::EndDrag() {
  CurrentPlaces().history.EndDrag({mView, mSelection});
  Tell(SessionChange::kHistory);
}

void AudioSession::CancelDrag() {
  GoTo(CurrentPlaces().history.DragBegin());
  EndDrag();
}

void AudioSession::ToggleSelectionZoom() {
  if (auto const target = CurrentPlaces().zoom.Toggle(mView, mSelection)) {
    ChangeView([&target](Viewport& view) { view = *target; });
  }
}

void AudioSession::LeaveSelectionZoom() {
  if (auto const target = CurrentPlaces().zoom.Back(mView)) {
    ChangeView([&target](Viewport& view) { view = *target; });
  }
}

}  // namespace playground
