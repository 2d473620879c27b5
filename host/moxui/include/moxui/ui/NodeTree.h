#pragma once

#include <moxcore/utility/IntrusivePtr.h>
#include <moxui/geometry/ExtentT.h>
#include <moxui/geometry/RectT.h>
#include <moxui/ui/FocusChangeReason.h>
#include <moxui/ui/InputCapture.h>
#include <moxui/ui/MouseEvent.h>
#include <moxui/ui/UI_Node.h>

#include <functional>
#include <memory>
#include <span>

namespace moxui::ui {

class NodeTreeHost;
class OS_ReceiveData;
class UI_TimerManager;
struct TreeState;

/// Pointer input as a window hears it, in the tree's coordinates. While a button of the mouse is held and the
/// pointer is hidden, its place as events tell it goes on beyond the edges of the screen.
struct PointerInput {
  PointerAction action = PointerAction::kMove;  ///< press, release, move or wheel
  PointT<float> position{};
  MouseButton button = MouseButton::kNone;  ///< the one that changed
  ModKeys modKeys{};
  PointerSubType subType = PointerSubType::kMouse;
  PointT<float> wheelDistance{};
  OS_Event osEvent{};
};

enum class DragPhase { kEnter, kOver, kLeave, kDrop };

/// A tree of nodes and all that belongs to it as a whole: pointer, capture, hover, focus, damage, timers,
/// tool tip. Its coordinates are those of the window's content, origin top left. A window or a stage owns it,
/// hands input in and has it painted. Handlers may do anything to it, end it too.
class NodeTree {
 public:
  /// The host outlives the tree.
  explicit NodeTree(NodeTreeHost& host);
  ~NodeTree();
  NodeTree(NodeTree const&) = delete;
  NodeTree& operator=(NodeTree const&) = delete;

  /// The root is placed at (0, 0) in the tree's size. Null takes it out.
  void SetRoot(moxcore::utility::IntrusivePtr<UI_Node> root);
  UI_Node* GetRoot() const;
  void SetSize(ExtentT<float> size);
  ExtentT<float> GetSize() const;
  /// Device pixels per logical pixel have become others.
  void SetScale(float scale);
  float GetScale() const;
  NodeTreeHost& GetHost() const;

  // Input. True when a node took it.
  bool HandlePointer(PointerInput const& input);
  bool HandleKey(KeyboardEvent const& event);
  /// The pointer has left the window.
  void HandlePointerLeft();
  /// The platform's drag loop has something over this tree; gives the effect, DropEffect::kNone to refuse.
  int HandleDrag(DragPhase phase, PointT<float> position, OS_ReceiveData& data, int proposedEffect);
  /// The window became the active one, or no longer is: the focus rests and the capture is lost.
  void SetActive(bool active);
  bool IsActive() const;
  /// A modal window has opened over this one: the capture is lost.
  void BlockByModal();
  /// A loop of the platform (menu, drag) has ended: if it swallowed the release of a press, that follows.
  void CheckSwallowedRelease();

  // Pointer
  /// Its place on the desktop, as events tell it.
  PointT<float> GetPointerPlace() const;
  /// Puts it to a place of the desktop; a move may follow. Does nothing where the platform can't.
  void PlacePointer(PointT<float> place);
  /// The pointer is shown after it was hidden: puts it back to where it was pressed, if the host moved it
  /// meanwhile.
  void ReturnPointer();
  /// The deepest node under a point, children that reach outside their parents included; null for none.
  UI_Node* FindNode(PointT<float> position) const;
  moxcore::utility::IntrusivePtr<UI_Node> GetHoveredNode() const;
  /// Whether the pointer is over a node (exactly) or over what is below it too.
  bool IsHovered(UI_Node const* node, bool exactly) const;
  void BeginCapture(moxcore::utility::IntrusivePtr<InputCapture> capture);
  void EndCapture(bool cancelled);
  InputCapture* GetCapture() const;

  // Focus
  UI_Node* GetFocusLeaf() const;
  /// Null gives the focus up.
  bool SetFocus(UI_Node* node, FocusChangeReason reason);
  /// To the next (or the one before) that wants it, round the ends; false if none does.
  bool MoveFocus(bool backward);

  // Time
  UI_TimerManager& GetTimers() const;
  /// Fires timers and tool tips that are due by the host's clock.
  void HandleTime();
  /// Has the host wake this tree when the next of them is due.
  void ScheduleWakeUp();

  // Frame
  void AddDamage(RectT<float> const& rect);
  /// What waits to be painted, at most a handful of rectangles.
  std::span<RectT<float> const> GetDamage() const;
  bool NeedsFrame() const;
  /// Lays out what asked for it and works hover out anew where nodes have moved under the pointer.
  void PrepareFrame();
  /// Paints all damage and forgets it: each rectangle, whole device pixels, is cleared by the host and then
  /// painted. The scriber's surface shows the tree at its origin. Call PrepareFrame before.
  void PaintDamage(scriber::Scriber& scriber, std::function<void(RectT<float> const&)> const& clear);
  /// Paints everything, damaged or not, and leaves the damage as it is.
  void PaintAll(scriber::Scriber& scriber) const;

  TreeState& State() const { return *mState; }

 private:
  std::shared_ptr<TreeState> mState;
};

/// Paints one node and what is below it at the origin of any surface, such as an offscreen one.
void PaintNode(UI_Node const& node, scriber::Scriber& scriber);

}  // namespace moxui::ui
