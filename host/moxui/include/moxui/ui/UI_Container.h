#pragma once

#include <moxcore/utility/IntrusivePtr.h>
#include <moxui/geometry/RectT.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace moxui::ui {

class ChildIndex;
class UI_Node;

/// Holds the children of a node in order: the last is painted last and hit first. Taking a child out ends
/// focus, hover and capture in its subtree.
class UI_Container {
 public:
  using Children = std::vector<moxcore::utility::IntrusivePtr<UI_Node>>;
  using const_iterator = Children::const_iterator;

  virtual ~UI_Container();
  UI_Container(UI_Container const&) = delete;
  UI_Container& operator=(UI_Container const&) = delete;

  /// On top of all others. A node that has a parent moves here; null throws the null-pointer exception.
  void ChildPushBack(moxcore::utility::IntrusivePtr<UI_Node> child);
  /// At a place from 0 (at the bottom) to ChildSize().
  void ChildInsert(std::size_t index, moxcore::utility::IntrusivePtr<UI_Node> child);
  /// Nothing happens for a node that is no child.
  void ChildRemove(UI_Node* child);
  void ChildRemove(moxcore::utility::IntrusivePtr<UI_Node> const& child) { ChildRemove(child.Get()); }
  void DeleteChildren();

  /// Null past the end.
  moxcore::utility::IntrusivePtr<UI_Node> ChildGet(std::size_t index) const;
  const_iterator ChildBegin() const { return mChildren.begin(); }
  const_iterator ChildEnd() const { return mChildren.end(); }
  std::size_t ChildSize() const { return mChildren.size(); }

 protected:
  explicit UI_Container(UI_Node& owner);

 private:
  friend class NodeAccess;

  UI_Node& mOwner;
  Children mChildren;
  std::unique_ptr<ChildIndex> mIndex;
  std::uint64_t mNextOrder = 1;
  RectT<float> mChildrenBounds;
  std::uint32_t mLooseBounds = 0;
};

}  // namespace moxui::ui
