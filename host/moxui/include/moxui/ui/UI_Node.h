#pragma once

#include <moxcore/string/String.h>
#include <moxcore/utility/IntrusivePtr.h>
#include <moxcore/utility/RefCountedObjectWithWeakPtr.h>
#include <moxui/geometry/ExtentT.h>
#include <moxui/geometry/PaddingT.h>
#include <moxui/geometry/PointT.h>
#include <moxui/geometry/RectT.h>
#include <moxui/ui/AccessibleRole.h>
#include <moxui/ui/AccessibleState.h>
#include <moxui/ui/FocusChangeReason.h>

#include <any>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace moxui::scriber {
class Scriber;
}

namespace moxui::ui {

class AccessibleText;
class KeyboardEvent;
class MouseEvent;
class NodeAccess;
class NodeTree;
class OS_Menu;
class PointerEvent;
class UI_Container;
class UI_Node;
class UI_TimerManager;
struct NodeExtras;

/// Whether a local rectangle is meant in the parent's coordinates or in the node's own, where it begins at 0,
/// 0.
namespace RectSpace {
inline constexpr bool kParent = true;
inline constexpr bool kOwn = false;
}  // namespace RectSpace

/// What became of a node, as UI_NodeChanged tells it.
enum class NodeChange { kAttached, kDetached, kShown, kHidden, kEnabled, kDisabled };

/// How a child follows its parent's size: without bits it stays where it is. Bind right: its right edge keeps
/// its distance to the parent's, so that it stretches, or, with free left, moves at its width. The same
/// downward.
namespace LayoutBinding {
inline constexpr unsigned kBindNone = 0;
inline constexpr unsigned kFreeLeft = 1;
inline constexpr unsigned kFreeTop = 2;
inline constexpr unsigned kBindRight = 4;
inline constexpr unsigned kBindBottom = 8;
}  // namespace LayoutBinding

inline constexpr unsigned kUpdateAll = ~0U;

using CustomDrawFunction = std::function<void(UI_Node*, scriber::Scriber*)>;
using FocusChangedFunction = std::function<void(UI_Node*, FocusChangeReason)>;

/// The base of everything on screen: a rectangle in its parent, shown and enabled at first, without children
/// of its own (UI_SubView has them). All units are logical pixels, y downward. Nodes are held by
/// IntrusivePtr, by their parents above all; a node has a plain pointer to its parent. Main thread only.
class UI_Node : public moxcore::utility::RefCountedObjectWithWeakPtr {
 public:
  UI_Node();
  ~UI_Node() override;
  UI_Node(UI_Node const&) = delete;
  UI_Node& operator=(UI_Node const&) = delete;
  bool DestructOnMainThread() const noexcept override { return true; }

  // Rectangle. Negative extents are kept as given, and painted, hit and laid out as 0.
  /// Stores a rectangle in the parent's coordinates, calls UI_SizeChanged if the extent became another one,
  /// and asks for a repaint of both places. An equal one does nothing.
  void UI_SetLocalRectF(RectT<float> const& rect);
  void UI_SetLocalRect(RectT<int> const& rect);
  /// As stored, or with RectSpace::kOwn as (0, 0, width, height).
  RectT<float> UI_GetLocalRectF(bool inParent) const;
  /// The same with edges rounded to nearest.
  RectT<int> UI_GetLocalRect(bool inParent) const;
  /// Between own coordinates and those of the desktop.
  PointT<float> UI_LocalToGlobalF(PointT<float> point) const;
  PointT<float> UI_GlobalToLocalF(PointT<float> point) const;
  /// From own coordinates to those of another node of the tree.
  RectT<float> UI_ConvertRectTo(UI_Node const* node, RectT<float> const& rect) const;
  /// Device pixels per logical pixel of the window; 1 outside one.
  float GetViewScaleFactor() const { return mViewScale; }

  // Place in the tree
  UI_Node* UI_GetParentNode() const { return mParent; }
  /// The tree (of a window) that this node is in, or null.
  NodeTree* UI_GetTree() const { return mTree; }
  /// This node's children, or null for a node that can't have any.
  UI_Container* UI_GetContainer() const { return mContainer; }
  bool UI_IsSelfOrDescendantOf(UI_Node const* node) const;
  void UI_SetNodeID(moxcore::Utf8String id);
  moxcore::Utf8String const& UI_GetNodeID() const;
  void SetUserData(std::any data);
  std::any const& GetUserData() const;

  // Shown, enabled
  void UI_Show(bool show = true);
  void UI_Hide(bool hide = true) { UI_Show(!hide); }
  /// The node's own flag; its ancestors are not asked.
  bool UI_IsShown() const { return mIsShown; }
  void UI_SetEnabled(bool enabled = true) { UI_SetDisabled(!enabled); }
  void UI_SetDisabled(bool disabled = true);
  bool UI_IsEnabled() const { return !UI_IsDisabled(); }
  /// Disabled itself or by an ancestor. Disabled nodes still get events and hover: handlers ask for
  /// themselves.
  bool UI_IsDisabled() const;

  // Painting
  /// Asks for a repaint, of the whole node with its overhang or of a rectangle in own coordinates.
  void UI_Invalidate();
  void UI_Invalidate(RectT<float> const& rect, unsigned flags = 0);
  /// Lays out and paints what waits in this node's tree, now.
  void UI_UpdateNow(unsigned flags = kUpdateAll);
  /// Draws in place of UI_Draw; an empty function takes that back.
  void UI_SetCustomDrawFunction(CustomDrawFunction function);
  /// For drawing functions: clips the scriber's surface, which is restored after this node's drawing.
  void UI_ClipToSelf(scriber::Scriber* scriber) const;
  void UI_ClipToRect(scriber::Scriber* scriber, RectT<float> const& rect) const;
  /// Clips children and own drawing to the node's rectangle, and hits with them, for good.
  void UI_SetClipsChildren(bool clips);
  bool UI_ClipsChildren() const { return mClipsChildren; }
  /// A colour's id after this node's and its ancestors' mappings: the nearest first, each applied to the
  /// result of the one before.
  unsigned UI_GetColorFromChangeMap(unsigned colorID) const;
  void UI_SetColorChange(unsigned colorID, unsigned newColorID);
  void UI_ClearColorChange(unsigned colorID);

  // Tool tips
  /// Shown after the pointer has rested on the node for the delay, in milliseconds. No repaint is asked for.
  virtual void UI_SetToolTip(moxcore::Utf8String const& text, int delayMilliseconds);
  moxcore::Utf8String const& UI_GetToolTip() const;
  int UI_GetToolTipDelay() const;

  // Layout
  void UI_SetLayoutBinding(unsigned bindings);
  unsigned UI_GetLayoutBinding() const { return mLayoutBinding; }
  /// Has UI_LayoutChildren called before the next frame is painted.
  void UI_InvalidateLayout();
  /// The recommended size, measured with the default supplier; (0, 0) without one.
  ExtentT<float> UI_GetRecommendedSizeFromDefaultSupplier() const;
  /// DoMeasure in the same way.
  ExtentT<float> UI_MeasureFromDefaultSupplier(ExtentT<float> available) const;

  // Capture of the pointer for this node: its UI_DoPointerEvent hears all until released.
  void UI_SetCapture();
  void UI_ReleaseCapture();

  // Keyboard focus. One node of a tree has it, the focus leaf.
  /// Gives up with false when the node is not in a tree, hidden or disabled.
  virtual bool UI_GainKeyboardFocus(FocusChangeReason reason);
  /// Gives the focus up (reason 4) if the leaf is this node or below it.
  void UI_LoseKeyboardFocus();
  /// Whether the leaf is this node or, unless exactly it is asked for, below it.
  bool UI_HasKeyboardFocus(bool exactly = false) const;
  /// The leaf, if it is this node or below it; else null.
  UI_Node* UI_GetKeyboardFocusLeafNode() const;
  /// Hears gains and losses of this node and what is below it. Any number; they stay with the node.
  void InstallFocusChangedFunction(FocusChangedFunction function);

  // Timers: repeating, per node and id, periods of at least 10 ms; a second install starts the period anew.
  void UI_InstallTimer(float milliseconds, int id);
  void UI_RemoveTimer(int id);
  /// Removes this node's timers.
  void UI_RemoveSubViewTimers();
  /// Null outside a tree.
  UI_TimerManager* UI_GetTimerManager() const;

  /// Opens a menu at a point in `node`'s coordinates and waits. The chosen id, 0 for none.
  int UI_DoContextMenu(OS_Menu* menu, UI_Node* node, PointT<float> point);

  // Behaviour
  /// Draws in own coordinates; the base draws the children, in child order.
  virtual void UI_Draw(scriber::Scriber* scriber) const;
  /// How far drawing reaches outside the rectangle.
  virtual PaddingT<float> UI_GetDrawOverhang() const;
  /// Whether a point in own coordinates hits this node; the base asks the rectangle. Only points within the
  /// rectangle and its overhang are asked about.
  virtual bool UI_ContainsPoint(PointT<float> point) const;
  virtual ExtentT<float> UI_GetRecommendedSize(scriber::Scriber* scriber) const;
  /// Receives (0, 0, width, height), inside UI_SetLocalRectF.
  virtual void UI_SizeChanged(RectT<float> const& rect);
  virtual void UI_ScaleChanged(float scale);
  virtual void UI_SkinSetUpdated();
  virtual void UI_NodeChanged(NodeChange change);
  virtual void UI_LayoutChildren();
  /// The size wanted, as a layout of the parent asks for it (UI_LayoutView, AutoLayoutSubView), which has
  /// `available` for all its children. The base gives the recommended size.
  virtual ExtentT<float> DoMeasure(scriber::Scriber* scriber, ExtentT<float> available) const;
  /// Where a layout of the parent puts this node: those and the layout bindings. A layout may come to another
  /// place before it is done; the last one counts. The base stores the rectangle.
  virtual void DoPlace(RectT<float> const& rect);

  // Events. `node` is the event's target; true ends the event.
  virtual bool UI_DoPrePointerEvent(UI_Node* node, PointerEvent const& event);
  /// The base hands mouse events to UI_DoMouseEvent.
  virtual bool UI_DoPointerEvent(UI_Node* node, PointerEvent const& event);
  virtual bool UI_DoMouseEvent(UI_Node* node, MouseEvent const& event);
  virtual bool UI_DoPreKeyboardEvent(UI_Node* node, KeyboardEvent const& event);
  virtual bool UI_DoKeyboardEvent(UI_Node* node, KeyboardEvent const& event);
  /// What an input method has not finished yet, for the focus leaf, with the caret's place in it; empty once
  /// it is finished, which comes as a key event, or given up. True when the node shows it.
  virtual bool UI_DoComposition(moxcore::Utf16String const& text, std::size_t caret);
  /// Where text goes in, in own coordinates: an input method opens its list of choices there.
  virtual RectT<float> UI_GetTextInputRect() const;
  /// Sets the cursor (DisplayCursor) for a point in `node`'s coordinates and gives true; false asks the
  /// parent.
  virtual bool UI_DoCursor(UI_Node* node, PointT<float> point, unsigned flags);
  /// False means "not mine".
  virtual bool UI_DoTimerNotify(int id);
  /// Called on the leaf and its ancestors up to, but without, the one shared with the other end.
  virtual void UI_FocusChanged(FocusChangeReason reason);
  virtual bool UI_WantsKeyboardFocus() const;
  /// Traversal has brought the focus to a node below this one: a view that scrolls brings it into sight.
  virtual void UI_RevealDescendant(UI_Node const& node);
  /// The pointer came or went; true has the node repainted.
  virtual bool UI_InvalidateOnMouseOverChange(bool over);

  // For assistive software
  virtual AccessibleRole UI_GetAccessibleRole() const;
  virtual moxcore::Utf8String UI_GetAccessibleName() const;
  virtual moxcore::Utf8String UI_GetAccessibleValue() const;
  /// The base gives the tool tip.
  virtual moxcore::Utf8String UI_GetAccessibleDescription() const;
  /// The base takes check boxes and radio buttons whose value is "1" for checked, and text fields for
  /// editable.
  virtual AccessibleState UI_GetAccessibleState() const;
  /// The value as a number, of nodes that have one.
  virtual std::optional<AccessibleRange> UI_GetAccessibleRange() const;
  /// Changes the value as the user would, kept within the range. False when it can't be changed.
  virtual bool UI_SetAccessibleValue(double value);
  /// Does what a click means, wherever the node is. False when it doesn't know: a click is then made.
  virtual bool UI_DoAccessibleAction();
  /// The text that is edited, of nodes that edit one; it belongs to the node.
  virtual AccessibleText* UI_GetAccessibleText();
  /// Announces a change; the node's own setters do.
  void UI_TellAccessibleChange(AccessibleChange change);

 private:
  friend class NodeAccess;
  NodeExtras& Extras();

  UI_Node* mParent = nullptr;
  NodeTree* mTree = nullptr;
  UI_Container* mContainer = nullptr;
  std::unique_ptr<NodeExtras> mExtras;
  std::uint64_t mOrder = 0;
  RectT<float> mLocalRect;
  RectT<float> mBounds;
  float mViewScale = 1;
  std::uint8_t mLayoutBinding = 0;
  bool mIsShown = true;
  bool mIsDisabled = false;
  bool mClipsChildren = false;
  bool mNeedsLayout = false;
};

}  // namespace moxui::ui
