#pragma once

#include <moxui/geometry/PointT.h>
#include <moxui/ui/OS_Menu.h>

#include <vector>

namespace moxui::platform {

/// Where a menu opens and how wide it is, in the desktop's logical pixels.
struct MenuPlace {
  PointT<float> point{};  ///< its left edge, or its right one where the interface runs from right to left
  int initialID = 0;      ///< the item that opens under the point; 0: the first below it
  float minimumWidth = 0.0f;
};

/// Opens menus.
class MenuPresenter {
 public:
  virtual ~MenuPresenter();
  /// Opens a menu, on the screen as a whole, and waits. The chosen id, 0 for none.
  virtual int Popup(std::vector<ui::OS_MenuItem> const& items, MenuPlace const& place) = 0;
};

}  // namespace moxui::platform
