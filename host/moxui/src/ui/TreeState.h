#pragma once

#include "EndlessMotion.h"

#include <moxcore/utility/RefCountedWeakPtr.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/UI_DragDropHandler.h>
#include <moxui/ui/UI_TimerManager.h>

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace moxui::ui {

class UI_SubView;

using WeakNode = moxcore::utility::RefCountedWeakPtr<UI_Node>;
using NodePtr = moxcore::utility::IntrusivePtr<UI_Node>;

/// The presses of one button, to count clicks.
struct ClickRecord {
  int count = 0;
  double time = 0;
  PointT<float> position;
  bool hasLeft = false;  ///< the pointer has left the surroundings of the press
};

struct PointerState {
  PointT<float> position;
  EndlessMotion motion;  ///< what makes the position another one than the platform's
  bool isInside = false;
  MouseButtons buttons;
  ModKeys modKeys;
  PointerSubType subType = PointerSubType::kMouse;
  moxcore::utility::IntrusivePtr<InputCapture> capture;
  /// Set while a press that somebody took is held; the node may have gone since.
  std::optional<WeakNode> pressTarget;
  MouseButton lastPressed = MouseButton::kNone;
  std::array<ClickRecord, 3> clicks;
};

struct HoverState {
  std::vector<WeakNode> chain;          ///< from the root to the node under the pointer
  std::vector<WeakNode> pendingLeaves;  ///< no longer hovered, still to be told
  bool isStale = false;                 ///< nodes have moved under the pointer
};

struct FocusState {
  WeakNode leaf;
  bool isActive = true;
  FocusChangeReason resumeReason = FocusChangeReason::kByCode;
  unsigned generation = 0;  ///< counts changes, so that one made by a handler is noticed
};

struct ToolTipState {
  WeakNode node;
  double due = -1;
  bool isShown = false;
};

struct DragState {
  WeakNode view;
  int effect = DropEffect::kNone;
};

/// All that a tree keeps; the passes work on it. Handlers may end the tree: whoever calls some holds its
/// state (DispatchScope does), which then has no nodes and a host that does nothing.
struct TreeState : std::enable_shared_from_this<TreeState> {
  TreeState(NodeTree& owner, NodeTreeHost& treeHost) : tree(&owner), host(&treeHost), timers(*this) {}

  bool Owns(UI_Node const& node) const { return tree != nullptr && node.UI_GetTree() == tree; }
  bool HasEnded() const { return tree == nullptr; }
  /// The tree is no more.
  void End();
  /// Has the host wake the tree when the next timer or tool tip is due.
  void ScheduleWakeUp();

  NodeTree* tree;      ///< null once it has ended
  NodeTreeHost* host;  ///< never null
  NodePtr root;
  ExtentT<float> size;
  float scale = 1;
  PointerState pointer;
  HoverState hover;
  FocusState focus;
  ToolTipState toolTip;
  DragState drag;
  UI_TimerManager timers;
  std::vector<RectT<float>> damage;
  std::vector<WeakNode> layoutQueue;
  int dispatchDepth = 0;
  bool releaseIsMissing = false;
  bool isFrameRequested = false;
  bool isPainting = false;
};

}  // namespace moxui::ui
