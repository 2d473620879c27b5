#pragma once

#include <moxui/ui/UI_Node.h>

#include <memory>

namespace playground {

class AudioSession;
class ViewDrag;

// The times or sample numbers above a waveform: a drag scrolls it, the wheel zooms as on the waveform, and a
// context click offers the units.
class TimeRulerView : public moxui::ui::UI_Node {
 public:
  explicit TimeRulerView(AudioSession& session);
  ~TimeRulerView() override;

  // Takes a drag back. False when none goes on.
  bool CancelDrag();

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  bool UI_DoMouseEvent(moxui::ui::UI_Node* node, moxui::ui::MouseEvent const& event) override;
  void UI_FocusChanged(moxui::ui::FocusChangeReason reason) override;
  bool UI_DoPointerEvent(moxui::ui::UI_Node* node, moxui::ui::PointerEvent const& event) override;
  moxui::ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;
  moxcore::Utf8String UI_GetAccessibleValue() const override;

 private:
  void OpenMenu(moxui::PointT<float> point);
  void EndDrag();

  AudioSession& mSession;
  std::unique_ptr<ViewDrag> mDrag;  // while the ruler is dragged
  float mDragX = 0.0f;
};

}  // namespace playground
