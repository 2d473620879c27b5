#pragma once

#include "StationLog.h"

#include <moxui/platform/Application.h>
#include <moxui/platform/CursorControl.h>
#include <moxui/ui/KeyboardCode.h>

#include <gmock/gmock.h>

namespace timecode_tests {

using moxui::ui::KeyboardCode;
using moxui::ui::ModKeys;
using moxui::ui::MouseButton;
namespace ModKey = moxui::ui::ModKey;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A field on a stage, worked by hand, whose messages are written down.
class WorkedField : public OneField {
 public:
  WorkedField() { stage.Move({5, 5}); }

  static constexpr PointT<float> kPlace{60, 52};  ///< in the field
  static constexpr TickTime kFrame{1, k25};

  static bool IsCursorShown() { return moxui::platform::Application::Get()->GetCursor().IsCursorShown(); }
  static int ShownCursor() {
    return static_cast<int>(moxui::platform::Application::Get()->GetCursor().GetCursor());
  }

  void Press() { stage.Press(kPlace); }
  void MoveBy(float x, float y) { stage.MoveBy({x, y}); }
  void Release() { stage.ReleaseHere(); }
  void Click() {
    stage.Click(kPlace);
    stage.AdvanceTime(1000);  // the next one is no double click
  }
  bool IsEditing() const { return field->GetTextControl()->UI_IsShown(); }
  /// Frames that the value lies after one minute.
  std::int64_t Frames() const { return (field->GetTime() - kMinute).GetTicks() / k25.GetTicksPerFrame(); }
  std::vector<Heard> TakeHeard() { return std::exchange(log->heard, {}); }

  IntrusivePtr<StationLog> log = StationLog::On(field->GetStationID());
};

}  // namespace timecode_tests
