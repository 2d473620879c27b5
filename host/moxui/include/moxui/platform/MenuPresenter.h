#pragma once

#include <moxui/geometry/PointT.h>
#include <moxui/ui/OS_Menu.h>

#include <vector>

namespace moxui::platform {

/// Opens menus.
class MenuPresenter {
 public:
  virtual ~MenuPresenter();
  /// Opens a menu at a point of the desktop, the item `initialID` under it (0: the first below it), and
  /// waits. The chosen id, 0 for none.
  virtual int Popup(std::vector<ui::OS_MenuItem> const& items, PointT<float> globalPoint, int initialID) = 0;
};

}  // namespace moxui::platform
