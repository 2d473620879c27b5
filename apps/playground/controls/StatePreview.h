#pragma once

#include "controls/SampleState.h"

#include <moxui/controls/UI_ControlView.h>
#include <moxui/ui/NodeTreeHost.h>
#include <moxui/ui/UI_Node.h>

#include <memory>

namespace moxui::ui {
class NodeTree;
}

namespace playground {

// Shows a control frozen in a state, whatever the pointer and the keyboard do meanwhile. The control lives in
// a tree of its own, in which it is really hovered, really has the focus.
class StatePreview : public moxui::ui::UI_Node, private moxui::ui::NodeTreeHost {
 public:
  StatePreview();
  ~StatePreview() override;

  void SetControl(moxcore::utility::IntrusivePtr<moxui::controls::UI_ControlView> control, SampleState state);
  moxui::controls::UI_ControlView* GetControl() const { return mControl.Get(); }

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  void UI_SizeChanged(moxui::RectT<float> const& rect) override;
  void UI_ScaleChanged(float scale) override;
  moxui::PaddingT<float> UI_GetDrawOverhang() const override;
  bool UI_ContainsPoint(moxui::PointT<float> point) const override;

 private:
  void Freeze();
  void PointAt(moxui::PointT<float> point);

  // moxui::ui::NodeTreeHost
  void RequestFrame() override;
  void PaintNow() override {}
  void RequestWakeUp(double) override {}
  double GetTime() const override { return 0.0; }
  moxui::PointT<float> GetOrigin() const override { return {}; }
  moxui::PointT<float> GetPointerPosition() const override { return {}; }
  moxui::ui::ModKeys GetModKeys() const override { return {}; }
  moxui::ui::MouseButtons GetMouseButtons() const override { return {}; }

  moxcore::utility::IntrusivePtr<moxui::controls::UI_ControlView> mControl;
  SampleState mState = SampleState::kNormal;
  bool mIsFreezing = false;
  std::unique_ptr<moxui::ui::NodeTree> mTree;
};

}  // namespace playground
