#pragma once

#include <moxcore/utility/RefCountedObjectWithWeakPtr.h>
#include <moxcore/utility/RefCountedWeakPtr.h>
#include <moxui/ui/MouseEvent.h>

namespace moxui::ui {

class UI_Node;

/// Keeps the pointer for one node from a press on, wherever it moves. It is handed to
/// UI_NodeManager::BeginInputCapture, which holds it and calls Begin; it ends by End or by Cancel.
class PointerCapture : public moxcore::utility::RefCountedObjectWithWeakPtr {
 public:
  /// The node is held weakly: the capture is cancelled when it goes.
  explicit PointerCapture(UI_Node* node);
  ~PointerCapture() override;

  /// The node in whose coordinates events are delivered; null once it is gone.
  moxcore::utility::IntrusivePtr<UI_Node> GetNode() const;
  bool IsRunning() const { return mIsRunning; }
  bool HasBeenCancelled() const { return mHasBeenCancelled; }

  virtual void Begin();
  virtual void End();
  /// The capture was taken away: its window was deactivated, a modal window opened, or its node went.
  virtual void Cancel();

 private:
  moxcore::utility::RefCountedWeakPtr<UI_Node> mNode;
  bool mIsRunning = false;
  bool mHasBeenCancelled = false;
};

enum class CaptureOptions : unsigned { kNone = 0 };

/// A capture that hears every pointer event first. A handler's true consumes the event; after false it goes
/// on to its target as if there were no capture.
class InputCapture : public PointerCapture {
 public:
  InputCapture(UI_Node* node, PointerEvent const& event, CaptureOptions options = CaptureOptions::kNone);

  /// Where the capture began, in the coordinates of its node.
  PointT<float> GetBeginPosition() const { return mBeginPosition; }

  /// The base hands mouse events to HandleMouseEvent and leaves all others.
  virtual bool HandlePointerEvent(PointerEvent const& event);
  virtual bool HandleMouseEvent(MouseEvent const& event);

 private:
  PointT<float> mBeginPosition;
};

}  // namespace moxui::ui
