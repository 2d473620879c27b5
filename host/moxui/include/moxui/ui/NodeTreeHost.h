#pragma once

#include <moxui/geometry/PointT.h>
#include <moxui/geometry/RectT.h>
#include <moxui/ui/AccessibleState.h>
#include <moxui/ui/MouseEvent.h>

#include <string_view>

namespace moxui::ui {

class UI_Node;

/// When a press counts as the next click of a row, and when a pointer that moved no longer clicks.
struct ClickLimits {
  double milliseconds = 400;  ///< from press to press
  float distance = 4;         ///< logical pixels in either direction
};

/// What a tree asks of the window that shows it, or of a stage that stands in for one.
class NodeTreeHost {
 public:
  virtual ~NodeTreeHost();

  /// The tree has damage or layout waiting: have it painted soon.
  virtual void RequestFrame() = 0;
  /// Paint it at once (UI_UpdateNow).
  virtual void PaintNow() = 0;
  /// Call NodeTree::HandleTime at this time of GetTime, or later; it replaces the last wish. Below 0: not at
  /// all.
  virtual void RequestWakeUp(double time) = 0;
  /// Milliseconds, monotonic.
  virtual double GetTime() const = 0;
  /// The place of the tree's origin on the desktop.
  virtual PointT<float> GetOrigin() const = 0;
  /// The desktop's logical pixels to one of the tree's.
  virtual float GetZoom() const { return 1; }
  virtual float GetScale() const { return 1; }

  /// The pointer on the desktop.
  virtual PointT<float> GetPointerPosition() const = 0;
  /// A move may follow, at once or later. Does nothing where the platform can't.
  virtual void SetPointerPosition(PointT<float>) {}
  /// The part of the desktop that the pointer can't leave by a motion of the hand, the one it is in; empty
  /// where there is no such bound, or none is known.
  virtual RectT<float> GetPointerBounds() const { return {}; }
  virtual ModKeys GetModKeys() const = 0;
  virtual MouseButtons GetMouseButtons() const = 0;
  virtual ClickLimits GetClickLimits() const { return {}; }
  /// The pointer has no cursor of any node's: show the usual one.
  virtual void ResetCursor() {}
  /// An empty text hides the tip. The point is in the tree's coordinates.
  virtual void ShowToolTip(std::string_view, PointT<float>) {}
  /// Focus went to or left a place where text is typed.
  virtual void FocusMoved() {}
  /// What an input method had not finished has been taken as it was: it begins anew.
  virtual void ResetTextInput() {}
  /// What assistive software was told of a node is no longer so.
  virtual void AccessibleChanged(UI_Node&, AccessibleChange) {}
};

}  // namespace moxui::ui
