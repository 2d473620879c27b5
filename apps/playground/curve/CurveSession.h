#pragma once

#include "curve/ToneCurve.h"
#include "shell/StepHistory.h"

#include <cstddef>
#include <functional>
#include <optional>

namespace playground {

// A curve, and the point of it that keys move.
struct CurvePlace {
  ToneCurve curve;
  std::size_t selected = 0;

  bool operator==(CurvePlace const&) const = default;
};

// Kinds of changes of a curve; those of a burst are one step to be undone.
enum class CurveStep { kSingle, kNudge, kInput, kOutput };

// The curve that the page is about, which outlives its views; they come and go with language and look.
class CurveSession {
 public:
  // Hears of every change; `isSettled` while nothing is being dragged.
  using Listener = std::function<void(bool isSettled)>;

  ToneCurve const& Curve() const { return mPlace.curve; }
  std::size_t Selected() const { return mPlace.selected; }
  CurvePoint const& SelectedPoint() const { return mPlace.curve.Points()[mPlace.selected]; }
  CurvePlace const& Place() const { return mPlace; }

  void Select(std::size_t point);
  // Calls `change` and tells the listener if anything became different.
  void Change(std::function<void(CurvePlace&)> const& change, CurveStep step = CurveStep::kSingle);
  void MoveSelected(CurvePoint to, CurveStep step);
  // A point on the curve in the middle of the selected one and its neighbour, the right one where there is
  // one. It becomes the selected one.
  void AddPoint();
  bool CanAddPoint() const;
  void RemoveSelected();
  bool CanRemoveSelected() const { return Curve().CanRemove(Selected()); }

  bool CanUndo() const { return mHistory.CanUndo(); }
  bool CanRedo() const { return mHistory.CanRedo(); }
  void Undo() { GoTo(mHistory.Undo(mPlace)); }
  void Redo() { GoTo(mHistory.Redo(mPlace)); }
  // What comes between them is one step; they nest. CurveDrag calls them.
  void BeginDrag();
  void EndDrag();

  // One listener, the page that is open. A newer owner's takes the place of an older one's.
  void SetListener(void const* owner, Listener listener);
  void RemoveListener(void const* owner);

 private:
  void Tell();
  void GoTo(std::optional<CurvePlace> const& place);
  ToneCurve WithAnother(std::size_t& added) const;

  CurvePlace mPlace;
  StepHistory<CurvePlace, CurveStep> mHistory;
  int mDrags = 0;
  void const* mListenerOwner = nullptr;
  Listener mListener;
};

// While it lives, what happens to a session's curve is one step of its history. The session outlives it.
class CurveDrag {
 public:
  explicit CurveDrag(CurveSession& session) : mSession(session), mBegin(session.Place()) {
    mSession.BeginDrag();
  }
  ~CurveDrag() { mSession.EndDrag(); }
  CurveDrag(CurveDrag const&) = delete;
  CurveDrag& operator=(CurveDrag const&) = delete;

  // All as it was when the drag began, which is no step then.
  void TakeBack() {
    mSession.Change([this](CurvePlace& place) { place = mBegin; });
  }

 private:
  CurveSession& mSession;
  CurvePlace mBegin;
};

}  // namespace playground
