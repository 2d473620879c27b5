#pragma once

#include "TimecodeTestValues.h"

#include <moxcore/messaging/Station.h>
#include <moxmediaui/HotTimecodeControl.h>
#include <moxui/skins/Look.h>
#include <moxui/skins/Theme.h>
#include <moxui/testing/Stage.h>

#include <gtest/gtest.h>

#include <vector>

namespace timecode_tests {

using moxcore::utility::IntrusivePtr;
using moxmediaui::DisplayType;
using moxmediaui::InvalidDisplay;
using moxmediaui::TextSize;
using moxmediaui::TimecodeInfo;
using moxmediaui::TimecodeOptions;
using moxmediaui::UI_HotTimecodeControl;
using moxui::PointT;
using moxui::RectT;
using moxui::testing::Stage;

inline constexpr FrameRate k25(10160640000);
inline constexpr FrameRate k2997(8475667200);
inline constexpr TimeDisplay kTimecode25(101);

/// A timecode field whose protected operations a test may call.
class OpenTimecodeControl : public UI_HotTimecodeControl {
 public:
  using UI_HotTimecodeControl::GetQuantizeFormat;
  using UI_HotTimecodeControl::GetQuantizeFrameRate;
  using UI_HotTimecodeControl::GetTextInset;
  using UI_HotTimecodeControl::GetToolTipTextSelf;
  using UI_HotTimecodeControl::SetDisplay;
  using UI_HotTimecodeControl::SetGeneralClipMediaFrameCountOffset;
  using UI_HotTimecodeControl::SetHandleRightClick;
  using UI_HotTimecodeControl::ShouldHandleRightClick;
  using UI_HotTimecodeControl::UpdateTimecodeWithString;

  moxcore::Utf16String ShownText() const { return GetTextControl()->GetValue(); }
};

/// Runs a theme and a look while it lives, and those from before afterwards.
class RunningLook {
 public:
  explicit RunningLook(bool isV7, moxui::ui::ThemeID theme = moxui::ui::ThemeID::kDark)
      : mLookBefore(moxui::skins::IsRunningV7OrBeyond()), mThemeBefore(moxui::ui::Theme::Get().GetID()) {
    moxui::skins::SetRunningV7OrBeyond(isV7);
    moxui::ui::SetCurrentTheme(theme);
  }
  ~RunningLook() {
    moxui::skins::SetRunningV7OrBeyond(mLookBefore);
    moxui::ui::SetCurrentTheme(mThemeBefore);
  }
  RunningLook(RunningLook const&) = delete;
  RunningLook& operator=(RunningLook const&) = delete;

 private:
  bool mLookBefore;
  moxui::ui::ThemeID mThemeBefore;
};

/// A stage with a field of 25 frames a second at (20, 40), 100 by 24, at one minute.
class OneField : public ::testing::Test {
 protected:
  OneField() {
    field->UI_SetLocalRectF({20, 40, 100, 24});
    stage.GetRootView().ChildPushBack(field);
    field->SetFormat(kTimecode25, k25);
    field->SetTime(kMinute, false);
    stage.PaintFrame();
  }

  /// Whether what the function does asks for a repaint.
  template <class Function>
  bool Invalidates(Function function) {
    stage.PaintFrame();
    function();
    return stage.FrameRequested();
  }

  RunningLook look{true};
  Stage stage{{400, 300}};
  IntrusivePtr<OpenTimecodeControl> field = moxcore::utility::MakeIntrusive<OpenTimecodeControl>();
};

}  // namespace timecode_tests
