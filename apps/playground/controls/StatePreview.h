#pragma once

#include "controls/SampleState.h"

#include <moxui/ui/NodeTreeHost.h>
#include <moxui/ui/UI_Node.h>

#include <functional>
#include <memory>

namespace moxui::ui {
class NodeTree;
}

namespace playground {

// What of a view is in the state that is asked for.
struct PreviewAim {
  // Where it is pointed at, by shares of its extent, across from where lines begin.
  moxui::PointT<float> pointer{0.5f, 0.5f};
  moxui::ui::UI_Node* part = nullptr;      // or a part of it, which is pointed at and has the keyboard focus
  std::function<void()> makeUnknown = {};  // for what is no control
};

// Shows a view frozen in a state, whatever the pointer and the keyboard do meanwhile. The view lives in a
// tree of its own, in which it is really hovered, really has the focus.
class StatePreview : public moxui::ui::UI_Node, private moxui::ui::NodeTreeHost {
 public:
  StatePreview();
  ~StatePreview() override;

  void SetView(moxcore::utility::IntrusivePtr<moxui::ui::UI_Node> view, SampleState state,
               PreviewAim aim = {});
  moxui::ui::UI_Node* GetView() const { return mView.Get(); }

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  void UI_SizeChanged(moxui::RectT<float> const& rect) override;
  void UI_ScaleChanged(float scale) override;
  moxui::PaddingT<float> UI_GetDrawOverhang() const override;
  bool UI_ContainsPoint(moxui::PointT<float> point) const override;

 private:
  void Freeze();
  void PointAt(moxui::PointT<float> point);
  void PressAt(moxui::PointT<float> point);
  moxui::PointT<float> AimedPoint() const;
  void FocusWhatIsMeant();
  void PressWhatIsUnderThePointer();
  void MakeUnknown();

  // moxui::ui::NodeTreeHost
  void RequestFrame() override;
  void PaintNow() override {}
  void RequestWakeUp(double) override {}
  double GetTime() const override { return 0.0; }
  moxui::PointT<float> GetOrigin() const override { return {}; }
  moxui::PointT<float> GetPointerPosition() const override { return {}; }
  moxui::ui::ModKeys GetModKeys() const override { return {}; }
  moxui::ui::MouseButtons GetMouseButtons() const override { return {}; }

  moxcore::utility::IntrusivePtr<moxui::ui::UI_Node> mView;
  PreviewAim mAim;
  SampleState mState = SampleState::kNormal;
  bool mIsFreezing = false;
  std::unique_ptr<moxui::ui::NodeTree> mTree;
};

}  // namespace playground
