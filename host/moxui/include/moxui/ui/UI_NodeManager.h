#pragma once

#include <moxcore/utility/IntrusivePtr.h>
#include <moxui/ui/InputCapture.h>

#include <vector>

namespace moxui::scriber {
class SupplierInterface;
}
namespace moxui::utility {
class ImageProvider;
}

namespace moxui::ui {

class NodeTree;

/// The process-wide door to the node trees. Capture, hover and focus belong to each tree; the calls here act
/// on the tree whose event is being handled, else on that of the active window.
class UI_NodeManager {
 public:
  /// Null before the first tree, unless one is to be created.
  static UI_NodeManager* Get(bool create);
  /// Never the same twice in a process.
  static int GetUniqueTimerID();

  /// Replaces a running capture, which is cancelled first. A capture for a node belongs to the node's tree,
  /// and is found there by the calls that follow unless the current tree has one.
  void BeginInputCapture(moxcore::utility::IntrusivePtr<InputCapture> capture);
  void EndInputCapture(bool cancelled);
  InputCapture* GetInputCapture() const;

  /// Both are lent, outlive all views, and may be null. While an application runs they are its own: the
  /// provider knows the host's icons.
  scriber::SupplierInterface const* GetDefaultDrawSupplier() const { return mSupplier; }
  void SetDefaultDrawSupplier(scriber::SupplierInterface const* supplier) { mSupplier = supplier; }
  utility::ImageProvider* GetImageProvider() const { return mImageProvider; }
  void SetImageProvider(utility::ImageProvider* provider) { mImageProvider = provider; }

  /// The tree whose event is being handled, else the active one, else the newest; null without any.
  NodeTree* GetCurrentTree() const;
  std::vector<NodeTree*> const& GetTrees() const { return mTrees; }
  /// Null while no window of the program is the active one.
  NodeTree* GetActiveTree() const { return mActive; }
  /// The tree of the topmost modal window; null while none is open.
  NodeTree* GetModalTree() const { return mModal.empty() ? nullptr : mModal.back(); }
  /// Calls UI_SkinSetUpdated on every node of every tree, and repaints all.
  void SkinSetUpdated();

 private:
  friend class NodeTree;
  friend class DispatchScope;
  friend class ModalScope;

  UI_NodeManager() = default;
  void AddTree(NodeTree& tree);
  void RemoveTree(NodeTree& tree);
  NodeTree* GetCapturingTree() const;
  void TreeBecameActive(NodeTree& tree, bool active);

  std::vector<NodeTree*> mTrees;
  std::vector<NodeTree*> mHandling;
  std::vector<NodeTree*> mModal;
  NodeTree* mActive = nullptr;
  NodeTree* mCapturing = nullptr;  ///< the one that began a capture last
  scriber::SupplierInterface const* mSupplier = nullptr;
  utility::ImageProvider* mImageProvider = nullptr;
};

}  // namespace moxui::ui
