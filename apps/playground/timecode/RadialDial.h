#pragma once

#include <moxui/controls/UI_ControlView.h>

#include <functional>

namespace playground {

// Stands for a radial controller: a knob that goes round and round in steps. It is turned by the pointer
// around its middle, by the wheel, by arrow keys, and by pages ten steps at once.
class RadialDial : public moxui::controls::UI_ControlView {
 public:
  // Hears how many steps the user has turned it, clockwise above 0.
  using TurnFunction = std::function<void(int steps)>;

  static constexpr int kStepsOfARound = 24;

  explicit RadialDial(TurnFunction turned);
  ~RadialDial() override;

  // Turns it for the user.
  void Turn(int steps);
  // Where it stands, 0 to kStepsOfARound - 1.
  int GetStep() const { return mStep; }

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  moxui::PaddingT<float> UI_GetDrawOverhang() const override;
  bool UI_DoPointerEvent(moxui::ui::UI_Node* node, moxui::ui::PointerEvent const& event) override;
  bool UI_DoMouseEvent(moxui::ui::UI_Node* node, moxui::ui::MouseEvent const& event) override;
  bool UI_DoKeyboardEvent(moxui::ui::UI_Node* node, moxui::ui::KeyboardEvent const& event) override;
  bool UI_InvalidateOnMouseOverChange(bool over) override;
  moxui::ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleValue() const override;

 private:
  moxui::RectT<float> KnobRect() const;
  // Steps clockwise from the top to a point around the middle.
  double StepsAt(moxui::PointT<float> point) const;
  void DragTo(moxui::PointT<float> point);

  TurnFunction mTurned;
  int mStep = 0;
  bool mIsDragging = false;
  double mDraggedFrom = 0.0;  // where the pointer was when it last made a step
};

}  // namespace playground
