#pragma once

#include <moxcore/string/String.h>
#include <moxcore/utility/IntrusivePtr.h>
#include <moxcore/utility/RefCountedObject.h>
#include <moxui/geometry/PointT.h>

#include <vector>

namespace moxui::ui {

/// One line of a menu. Id 0 is a separator.
struct OS_MenuItem {
  int id = 0;
  moxcore::Utf16String text{};
  bool isChecked = false;
  bool isEnabled = true;
};

/// A menu of the platform, as a list of lines. UI_Node::UI_DoContextMenu opens it.
class OS_Menu : public moxcore::utility::RefCountedObject {
 public:
  /// Ids from 1.
  void AddItem(int id, moxcore::Utf16String text);
  void AddSeparator();
  void CheckItem(int id, bool checked);
  void EnableItem(int id, bool enabled);
  void DeleteAllItems() { mItems.clear(); }
  /// The item that opens under the point; 0, as at first: none, the menu opens below it.
  void SetInitialItem(int id) { mInitialItem = id; }
  std::vector<OS_MenuItem> const& GetItems() const { return mItems; }
  /// As wide as the box that it opens for, at least; 0 at first.
  void SetMinimumWidth(float width) { mMinimumWidth = width; }

  /// Opens at a point of the desktop and waits: its left edge is there, or its right one where the interface
  /// is laid out from right to left. The chosen id; 0 for none, and at once for an empty menu.
  int Popup(PointT<float> globalPoint);

 private:
  std::vector<OS_MenuItem> mItems;
  int mInitialItem = 0;
  float mMinimumWidth = 0.0f;
};

moxcore::utility::IntrusivePtr<OS_Menu> CreateOSMenu();

}  // namespace moxui::ui
