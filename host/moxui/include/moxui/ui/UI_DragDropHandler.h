#pragma once

#include <moxui/geometry/PointT.h>

#include <functional>
#include <memory>

namespace moxui::ui {

class OS_ReceiveData;

/// What a drop does with the data; a handler is given the source's proposal and may write another.
namespace DropEffect {
inline constexpr int kNone = 0;
inline constexpr int kCopy = 1;
inline constexpr int kMove = 2;
inline constexpr int kLink = 4;
}  // namespace DropEffect

/// Takes what is dragged over a view. A drag is offered to the view under the pointer and its parents, to the
/// first whose wants-function gives true (or that has none, but an enter, over or drop function). Points are
/// in the view's coordinates; false of enter or over refuses the drag for now, false of drop the data.
class UI_DragDropHandler {
 public:
  using WantsFunction = std::function<bool()>;
  using DragFunction = std::function<bool(PointT<float> point, OS_ReceiveData& data, int& effect)>;
  using LeaveFunction = std::function<void(OS_ReceiveData& data)>;

  UI_DragDropHandler();
  virtual ~UI_DragDropHandler();

  /// Asked before any other.
  void UI_InstallWantsDragDropEventsFunction(WantsFunction function);
  void UI_InstallHandleDragEnterFunction(DragFunction function);
  void UI_InstallHandleDragOverFunction(DragFunction function);
  void UI_InstallHandleDropFunction(DragFunction function);
  /// Called when the drag leaves or is given up, not after a drop.
  void UI_InstallHandleDragLeaveFunction(LeaveFunction function);

  bool WantsDragDropEvents() const;
  bool HasDragOverFunction() const;
  bool HandleDragEnter(PointT<float> point, OS_ReceiveData& data, int& effect) const;
  /// Without an over-function the effect of the enter stands.
  bool HandleDragOver(PointT<float> point, OS_ReceiveData& data, int& effect) const;
  bool HandleDrop(PointT<float> point, OS_ReceiveData& data, int& effect) const;
  void HandleDragLeave(OS_ReceiveData& data) const;

 private:
  struct Functions;
  Functions& MakeFunctions();

  std::shared_ptr<Functions> mFunctions;
};

}  // namespace moxui::ui
