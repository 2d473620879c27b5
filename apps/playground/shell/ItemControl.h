#pragma once

#include <moxui/controls/UI_ControlView.h>

#include <cstddef>
#include <optional>
#include <vector>

namespace playground {

// A control of items that lie side by side in it, such as rows or tabs. It knows which one is under the
// pointer, and shows each to assistive software as a node of its own; where items lie, what they are called
// and what a press on one does is the subclass's affair. Items count from 0.
class ItemControl : public moxui::controls::UI_ControlView {
 public:
  ItemControl();
  ~ItemControl() override;

  virtual std::size_t ItemCount() const = 0;
  // In own coordinates; empty when there is no room for it.
  virtual moxui::RectT<float> ItemRect(std::size_t item) const = 0;
  virtual moxcore::Utf16String ItemName(std::size_t item) const = 0;
  virtual moxcore::Utf16String ItemValue(std::size_t item) const;
  // False for what only stands between items, as headings do.
  virtual bool IsItem(std::size_t item) const;
  std::optional<std::size_t> HoveredItem() const { return mHovered; }
  std::optional<std::size_t> ItemAt(moxui::PointT<float> point) const;

  bool UI_DoMouseEvent(moxui::ui::UI_Node* node, moxui::ui::MouseEvent const& event) override;
  void UI_SizeChanged(moxui::RectT<float> const& rect) override;
  moxui::ui::AccessibleRole UI_GetAccessibleRole() const override;

 protected:
  // The left button went down on an item.
  virtual void ItemPressed(std::size_t item) = 0;
  virtual void HoverChanged() {}
  virtual moxui::ui::AccessibleRole ItemRole() const;
  // Subclasses tell: there are others, or they lie elsewhere.
  void ItemsChanged();
  void ItemsMoved();

 private:
  class ItemNode;
  void SetHovered(std::optional<std::size_t> item);

  std::vector<moxcore::utility::IntrusivePtr<ItemNode>> mNodes;
  std::optional<std::size_t> mHovered;
};

}  // namespace playground
