#pragma once

#include <moxui/ui/MouseEvent.h>

#include <functional>

namespace moxui::ui {

/// The pointer in the desktop's logical coordinates; where events tell it to be, while it is dragged hidden.
PointT<float> GetGlobalMousePosition();
/// Puts the pointer somewhere else; a move may follow. Does nothing where the platform can't.
void SetGlobalMousePosition(int x, int y);
/// The modifier keys and mouse buttons that are down now.
ModKeys GetCurrentModKeys();
MouseButtons GetCurrentMouseButtonState();

/// A dial beside the keyboard that is turned by hand.
class RadialDevice {
 public:
  virtual ~RadialDevice();
  /// Who is told of turns, in steps; an empty function takes that back.
  virtual void SetRotationFunction(std::function<void(long long delta)> function) = 0;
};

/// The radial device in use, or null where there is none.
RadialDevice* GetRadialDevice();
/// Tells of a device that has come (or, with null, gone); it stays its owner's.
void SetRadialDevice(RadialDevice* device);

}  // namespace moxui::ui
