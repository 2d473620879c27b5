#pragma once

#include <moxui/ui/InputCapture.h>

namespace moxmediaui {

class UI_HotTimecodeControl;

/// Keeps the pointer for a timecode field while the left button is held, wherever it moves.
class TimeCodeInputCapture : public moxui::ui::InputCapture {
 public:
  TimeCodeInputCapture(UI_HotTimecodeControl* control, moxui::ui::PointerEvent const& event);

  bool HandleMouseEvent(moxui::ui::MouseEvent const& event) override;

 private:
  UI_HotTimecodeControl* mControl;
};

}  // namespace moxmediaui
