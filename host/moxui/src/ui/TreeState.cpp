#include "TreeState.h"

#include <moxui/ui/NodeTreeHost.h>

#include <algorithm>

namespace moxui::ui {

namespace {

/// In the place of a window that has gone.
class NoHost final : public NodeTreeHost {
 public:
  void RequestFrame() override {}
  void PaintNow() override {}
  void RequestWakeUp(double) override {}
  double GetTime() const override { return 0; }
  PointT<float> GetOrigin() const override { return {}; }
  PointT<float> GetPointerPosition() const override { return {}; }
  ModKeys GetModKeys() const override { return {}; }
  MouseButtons GetMouseButtons() const override { return {}; }
};

NodeTreeHost& GetNoHost() {
  static NoHost host;
  return host;
}

}  // namespace

void TreeState::End() {
  tree = nullptr;
  host = &GetNoHost();
  root.Reset();
  pointer = {};
  hover = {};
  focus = {};
  toolTip = {};
  drag = {};
  timers.RemoveAll();
  damage.clear();
  layoutQueue.clear();
  releaseIsMissing = false;
}

void TreeState::ScheduleWakeUp() {
  double const timer = timers.GetNextDue();
  double const tip = toolTip.due;
  host->RequestWakeUp(timer < 0 ? tip : tip < 0 ? timer : std::min(timer, tip));
}

}  // namespace moxui::ui
