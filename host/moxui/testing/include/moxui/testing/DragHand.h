#pragma once

#include <moxui/geometry/PointT.h>
#include <moxui/platform/DragSource.h>
#include <moxui/ui/DragData.h>

#include <memory>
#include <optional>

namespace moxui::testing {

class Stage;
template <class T>
class StandIn;

/// Drags in a user's place while it lives: what a node of a stage begins to drag (OS_SendData::DoDrag) is
/// taken to a place on that stage and dropped there, or given up on the way. As on a desktop the pointer's
/// buttons are up when the drag ends, and the stage's nodes have heard no release.
class DragHand : public platform::DragSource {
 public:
  explicit DragHand(Stage& stage);
  ~DragHand() override;

  /// Where what is dragged next will be dropped.
  void DropAt(PointT<float> point);
  /// What is dragged next will be taken there and given up.
  void GiveUpAt(PointT<float> point);

  /// The last that was dragged; nothing before.
  std::optional<ui::TransferData> const& GetDragged() const { return mDragged; }
  int GetOfferedEffects() const { return mOfferedEffects; }

  int Drag(ui::UI_Node* source, ui::TransferData const& data, int effects) override;

 private:
  Stage& mStage;
  std::unique_ptr<StandIn<platform::DragSource>> mStandIn;
  PointT<float> mPoint;
  bool mDrops = false;
  std::optional<ui::TransferData> mDragged;
  int mOfferedEffects = 0;
};

}  // namespace moxui::testing
