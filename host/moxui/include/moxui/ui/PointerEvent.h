#pragma once

#include <moxui/geometry/Flags.h>
#include <moxui/geometry/PointT.h>
#include <moxui/ui/OS_Event.h>

namespace moxui::ui {

/// What a pointer did. Entering a node is told as a move.
enum class PointerAction : int {
  kPress = 1,
  kRelease = 2,
  kMove = 3,
  kEnter = 3,
  kWheel = 4,
  kLeave = 5,
  kCancel = 6
};

/// Where pointer input came from.
enum class PointerSubType : int { kMouse = 1, kTouch = 2, kPen = 3 };

/// Bits of modifier keys. Command is the Control key where a keyboard has no command key.
namespace ModKey {
inline constexpr unsigned char kNone = 0;
inline constexpr unsigned char kCommand = 1;
inline constexpr unsigned char kShift = 2;
inline constexpr unsigned char kOption = 4;
inline constexpr unsigned char kControl = 8;
}  // namespace ModKey
using ModKeys = Flags<unsigned char>;

/// One event of a mouse, finger or pen. The position is in the coordinates of the node that the handler is
/// given along with it; for a capture, in those of the capture's node.
class PointerEvent {
 public:
  PointerEvent(PointerAction action, PointT<float> position, ModKeys modKeys = {},
               PointerSubType subType = PointerSubType::kMouse, OS_Event osEvent = {})
      : mAction(action), mSubType(subType), mModKeys(modKeys), mPosition(position), mOSEvent(osEvent) {}
  virtual ~PointerEvent();

  PointerAction GetAction() const { return mAction; }
  bool IsAction(PointerAction action) const { return mAction == action; }
  PointT<float> GetPosition() const { return mPosition; }
  ModKeys GetModKey() const { return mModKeys; }
  PointerSubType GetSubType() const { return mSubType; }
  OS_Event const& GetOSEvent() const { return mOSEvent; }

  /// For whoever passes an event on to a node with other coordinates.
  void SetPosition(PointT<float> position) { mPosition = position; }

 protected:
  PointerEvent(PointerEvent const&) = default;
  PointerEvent& operator=(PointerEvent const&) = default;

 private:
  PointerAction mAction;
  PointerSubType mSubType;
  ModKeys mModKeys;
  PointT<float> mPosition;
  OS_Event mOSEvent;
};

/// A turn of a wheel or a two-finger scroll. The distance is how far content should move, in logical pixels:
/// positive y shows what lies above.
class WheelEvent : public PointerEvent {
 public:
  WheelEvent(PointT<float> distance, PointT<float> position, ModKeys modKeys = {}, OS_Event osEvent = {})
      : PointerEvent(PointerAction::kWheel, position, modKeys, PointerSubType::kMouse, osEvent),
        mDistance(distance) {}

  PointT<float> GetDistance() const { return mDistance; }

  /// The wheel event that a pointer event is; null for others.
  static WheelEvent const* GetWheelEventForPointerEvent(PointerEvent const& event);

 private:
  PointT<float> mDistance;
};

}  // namespace moxui::ui
