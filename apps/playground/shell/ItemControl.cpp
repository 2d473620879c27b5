#include "shell/ItemControl.h"

#include "program/Localized.h"

#include <moxui/ui/MouseEvent.h>

#include <utility>

namespace playground {

using moxui::RectT;
using moxui::ui::AccessibleRole;
using moxui::ui::PointerAction;

// Stands for an item; it draws nothing, and the pointer goes through it to the control.
class ItemControl::ItemNode : public moxui::ui::UI_Node {
 public:
  ItemNode(ItemControl const& control, std::size_t item) : mControl(control), mItem(item) {}

  bool UI_ContainsPoint(moxui::PointT<float>) const override { return false; }
  AccessibleRole UI_GetAccessibleRole() const override {
    return mControl.IsItem(mItem) ? mControl.ItemRole() : AccessibleRole::kStaticText;
  }
  moxcore::Utf8String UI_GetAccessibleName() const override {
    return moxcore::Utf8String(To8(mControl.ItemName(mItem)));
  }
  moxcore::Utf8String UI_GetAccessibleValue() const override {
    return moxcore::Utf8String(To8(mControl.ItemValue(mItem)));
  }

 private:
  ItemControl const& mControl;  // the parent, which takes its items out when it ends
  std::size_t mItem;
};

ItemControl::ItemControl() {
  SetWantsKeyboardFocus(true);
}

ItemControl::~ItemControl() {
  DeleteChildren();
}

bool ItemControl::IsItem(std::size_t) const {
  return true;
}

moxcore::Utf16String ItemControl::ItemValue(std::size_t) const {
  return {};
}

AccessibleRole ItemControl::ItemRole() const {
  return AccessibleRole::kListItem;
}

AccessibleRole ItemControl::UI_GetAccessibleRole() const {
  return AccessibleRole::kList;
}

std::optional<std::size_t> ItemControl::ItemAt(moxui::PointT<float> point) const {
  for (std::size_t item = 0; item < ItemCount(); ++item) {
    if (IsItem(item) && ItemRect(item).Contains(point)) {
      return item;
    }
  }
  return std::nullopt;
}

void ItemControl::ItemsChanged() {
  // A node asks for all that it tells, so that only their number matters.
  if (mNodes.size() != ItemCount()) {
    DeleteChildren();
    mNodes.clear();
    for (std::size_t item = 0; item < ItemCount(); ++item) {
      auto node = moxcore::utility::MakeIntrusive<ItemNode>(*this, item);
      ChildPushBack(node);
      mNodes.push_back(std::move(node));
    }
    SetHovered(std::nullopt);
  }
  ItemsMoved();
}

void ItemControl::ItemsMoved() {
  for (std::size_t item = 0; item < mNodes.size(); ++item) {
    RectT<float> const rect = ItemRect(item);
    mNodes[item]->UI_SetLocalRectF(rect);
    // What is scrolled out of sight is there for assistive software all the same.
    mNodes[item]->UI_Show(!rect.IsEmpty());
  }
  UI_Invalidate();
}

void ItemControl::SetHovered(std::optional<std::size_t> item) {
  if (mHovered != item) {
    mHovered = item;
    HoverChanged();
    UI_Invalidate();
  }
}

bool ItemControl::UI_DoMouseEvent(moxui::ui::UI_Node* node, moxui::ui::MouseEvent const& event) {
  UI_ControlView::UI_DoMouseEvent(node, event);
  auto const item = event.IsAction(PointerAction::kLeave) ? std::nullopt : ItemAt(event.GetPosition());
  if (event.IsAction(PointerAction::kPress) && event.IsButton(moxui::ui::MouseButton::kLeft)) {
    UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kPointer);
    if (item) {
      ItemPressed(*item);
    }
    return true;
  }
  SetHovered(item);
  return false;
}

void ItemControl::UI_SizeChanged(RectT<float> const& rect) {
  UI_ControlView::UI_SizeChanged(rect);
  ItemsMoved();
}

}  // namespace playground
