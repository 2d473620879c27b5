#pragma once

#include <moxui/ui/UI_Node.h>

namespace playground {

class AudioSession;

// The times above a waveform; a drag scrolls it, the wheel zooms.
class TimeRulerView : public moxui::ui::UI_Node {
 public:
  explicit TimeRulerView(AudioSession& session) : mSession(session) {}

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  bool UI_DoMouseEvent(moxui::ui::UI_Node* node, moxui::ui::MouseEvent const& event) override;

 private:
  AudioSession& mSession;
  bool mIsDragged = false;
  float mDragX = 0.0f;
};

}  // namespace playground
