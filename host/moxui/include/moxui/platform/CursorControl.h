#pragma once

#include <moxui/geometry/PointT.h>

#include <cstddef>
#include <span>

namespace moxui::platform {

/// Cursors of the platform and of this host, by number.
enum class CursorID : int {
  kArrow = 0,
  kIBeam = 1,
  kCross = 2,
  kOpenHand = 3,
  kClosedHand = 4,
  kPointingHand = 5,
  kResizeHorizontal = 6,
  kResizeVertical = 7,
  kForbidden = 8,
  kWait = 9,
  kHotText = 18,  ///< drag sideways to change a number
  kFirstCustom = 1000,
};

/// How long a cursor stands: until another one is asked for.
enum class CursorMode : int { kUntilNext = 3 };

/// The pointer's picture and place.
class CursorControl {
 public:
  virtual ~CursorControl();
  /// Shows a cursor until another is asked for, or the pointer reaches a node that asks for none.
  virtual void DisplayCursor(CursorID cursor, CursorMode mode) = 0;
  /// Hides or shows the pointer. Uncounted, a show after a show does no harm; counted, each hide wants its
  /// show.
  virtual void ShowPlatformCursor(bool show, bool immediately, bool counted) = 0;
  virtual bool IsCursorShown() const = 0;
  virtual CursorID GetCursor() const = 0;
  virtual PointT<float> GetPosition() const = 0;
  /// False where the platform can't move the pointer.
  virtual bool SetPosition(PointT<float>) { return false; }
  /// A new cursor from the bytes of a PNG file, `scale` pixels to the logical pixel; kArrow if unreadable.
  virtual CursorID MakeCursorFromPNG(std::span<std::byte const>, PointT<float> /*hotSpot*/, float /*scale*/) {
    return CursorID::kArrow;
  }
};

}  // namespace moxui::platform
