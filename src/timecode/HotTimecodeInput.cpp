// Dragging of a timecode field, its cursor and the radial controller.
#include "RadialTurn.h"
#include "TimeCodeInputCapture.h"
#include "audio/SaturatingConversion.h"

#include <moxcore/debug/DebugDatabase.h>
#include <moxcore/threads/HighPrecisionTime.h>
#include <moxmediaui/HotTimecodeControl.h>
#include <moxui/controls/ScrubMotion.h>
#include <moxui/resources/ResourceManager.h>
#include <moxui/ui/InputState.h>
#include <moxui/ui/UI_NodeManager.h>
#include <moxworkspace/TabPanel.h>
#include <moxworkspace/TopLevelWindow.h>
#include <moxworkspace/Workspace.h>
#include <moxworkspace/WorkspaceUtils.h>

#include <algorithm>
#include <utility>

namespace moxmediaui {

namespace {

using moxui::ui::MouseButton;
using moxui::ui::MouseEvent;
using moxui::ui::PointerAction;
using moxui::ui::UI_Node;
using moxui::ui::RectSpace::kOwn;
namespace ModKey = moxui::ui::ModKey;

constexpr std::size_t kPenHistorySize = 20;
constexpr double kPenSlopMilliseconds = 100.0;
constexpr float kCursorInset = 2.0f;

double NowInMilliseconds() {
  using moxcore::threads::HighPrecisionTime;
  return static_cast<double>(HighPrecisionTime::ConvertToNanos(HighPrecisionTime::GetCurrentTimeStamp())) /
         1'000'000.0;
}

}  // namespace

// Events

bool UI_HotTimecodeControl::UI_DoPointerEvent(UI_Node* node, moxui::ui::PointerEvent const& event) {
  if (!ShouldHandleRightClick() && event.IsAction(PointerAction::kPress)) {
    auto const* const mouse = MouseEvent::GetMouseEventForPointerEvent(event);
    if (mouse != nullptr && mouse->IsButton(MouseButton::kRight)) {
      return true;
    }
  }
  return UI_SubView::UI_DoPointerEvent(node, event);
}

bool UI_HotTimecodeControl::UI_DoMouseEvent(UI_Node* node, MouseEvent const& event) {
  if (node != this) {
    return false;
  }
  mIsPenEvent = event.GetSubType() == moxui::ui::PointerSubType::kPen;
  if (UI_IsDisabled()) {
    return false;
  }
  bool const isRightRelease = event.IsAction(PointerAction::kRelease) && event.IsButton(MouseButton::kRight);
  if (event.GetModKey().Has(ModKey::kCommand)) {
    // A left press with the modifier isn't taken on purpose.
    if (isRightRelease && event.GetClickCount() >= 2) {
      LeftButtonMultiClickSelf(event);
      return true;
    }
    return false;
  }
  if (event.GetClickCount() > 1) {
    return false;
  }
  if (event.IsButton(MouseButton::kLeft)) {
    return DoLeftButtonEvent(event);
  }
  if (isRightRelease && event.GetClickCount() == 1) {
    RightButtonDownSelf(event);
    return true;
  }
  return false;
}

bool UI_HotTimecodeControl::DoLeftButtonEvent(MouseEvent const& event) {
  bool const isClick = event.GetClickCount() == 1;
  switch (event.GetAction()) {
    case PointerAction::kPress:
      if (!isClick) {
        return false;
      }
      if (auto* const manager = moxui::ui::UI_NodeManager::Get(false)) {
        manager->BeginInputCapture(moxcore::utility::MakeIntrusive<TimeCodeInputCapture>(this, event));
      }
      LeftButtonDownSelf(event);
      return true;
    case PointerAction::kMove:
      if (!isClick) {
        MouseMoveSelf(event);
      }
      return !isClick;
    case PointerAction::kRelease: {
      bool const isMine = isClick || mIsScrubbing;
      LeftButtonUpSelf(event);
      return isMine;
    }
    default:
      return false;
  }
}

// Dragging

void UI_HotTimecodeControl::LeftButtonDownSelf(MouseEvent const& event) {
  if (mIsFixed) {
    return;  // the capture stays until the release
  }
  if (event.GetModKey().Has(ModKey::kCommand) && mAllowDisplayFormatOverride) {
    CycleTimecodeDisplayFormat();
    return;
  }
  IntrusivePtr<UI_Node> const self(this);
  UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kPointer);
  mIsScrubbing = true;
  if (!mCursorHidden) {
    HideCursorIntern();
  }
  mLastPosition = event.GetPosition();
  mPressGlobalPosition = UI_LocalToGlobalF({0, 0}) + event.GetPosition();
  mPenHistory.clear();
}

void UI_HotTimecodeControl::MouseMoveSelf(MouseEvent const& event) {
  if (!mIsScrubbing) {
    return;
  }
  moxui::controls::ScrubMotion motion{mScrubStarted, mScrubAxis, mLastPosition};
  int const count = motion.MoveTo(event.GetPosition(), mIsPenEvent);
  mScrubStarted = motion.hasStarted;
  mScrubAxis = motion.axis;
  mLastPosition = motion.lastPosition;
  if (count == 0 || !mScrubStarted) {
    return;
  }
  IntrusivePtr<UI_Node> const self(this);  // a listener may let go of the field
  IncrementTimecode(count, event.GetModKey());
  UI_Invalidate();
  if (mIsPenEvent) {
    AddTabletPenMouseMoveValueToHistory(mModel.GetValue());
  }
}

void UI_HotTimecodeControl::LeftButtonUpSelf(MouseEvent const& /*event*/) {
  if (!std::exchange(mIsScrubbing, false)) {
    return;
  }
  IntrusivePtr<UI_Node> const self(this);
  moxui::ui::SetGlobalMousePosition(TruncateToInt(mPressGlobalPosition.x),
                                    TruncateToInt(mPressGlobalPosition.y));
  SetCursorSelf();
  if (mCursorHidden) {
    ShowCursorIntern();
  }
  if (mIsPenEvent) {
    SetValueToBeforeTabletPenSlopTime();
  }
  if (!mScrubStarted) {
    OpenEdit(false);
    return;
  }
  BroadcastChangedMessage();
  EndScrub();
  mTextEdit->UI_LoseKeyboardFocus();
}

void UI_HotTimecodeControl::EndScrub() {
  mScrubStarted = false;
  mScrubAxis = -1;
}

void UI_HotTimecodeControl::IncrementTimecode(int count, Flags<unsigned char> mods) {
  using StepSize = TimecodeModel::StepSize;
  if (mModel.Increment(count, mods.Has(ModKey::kShift) ? StepSize::kLarge : StepSize::kFrames)) {
    IntrusivePtr<UI_Node> const self(this);
    mTextIsBehind = true;  // a listener that ends the drag mustn't have the old text read
    BroadcastChangingMessage();
    mTextIsBehind = false;
    SetInlineTextStringFromTimecode();
  }
}

void UI_HotTimecodeControl::LeftButtonMultiClickSelf(MouseEvent const& event) {
  if (event.GetModKey().Has(ModKey::kCommand) && mAllowDisplayFormatOverride) {
    IntrusivePtr<UI_Node> const self(this);
    CycleTimecodeDisplayFormat();
    UI_UpdateNow(moxui::ui::kUpdateAll);
    mTextEdit->UI_LoseKeyboardFocus();
  }
}

// Pen

void UI_HotTimecodeControl::AddTabletPenMouseMoveValueToHistory(TickTime value) {
  mPenHistory.insert(mPenHistory.begin(), PenMove{NowInMilliseconds(), value});
  if (mPenHistory.size() > kPenHistorySize) {
    mPenHistory.resize(kPenHistorySize);
  }
}

// A pen that is lifted slides a little: what it did in its last tenth of a second is taken back. The history
// holds values with the offset, and setting adds it once more; clients know it so.
void UI_HotTimecodeControl::SetValueToBeforeTabletPenSlopTime() {
  auto const history = std::exchange(mPenHistory, {});
  double const now = NowInMilliseconds();
  auto const settled = std::ranges::find_if(
      history, [&](PenMove const& move) { return now - move.milliseconds >= kPenSlopMilliseconds; });
  if (settled == history.end() || settled == history.begin()) {
    return;
  }
  mModel.SetTime(settled->value);
  SetInlineTextStringFromTimecode();
}

// Cursor

bool UI_HotTimecodeControl::CanSetCursor() const {
  return UI_IsEnabled() && !mIsFixed && !mTextEdit->UI_TextEditControlHasFocus() &&
         moxui::ui::GetCurrentMouseButtonState().IsEmpty();
}

bool UI_HotTimecodeControl::SetCursorSelf() {
  if (!CanSetCursor()) {
    return false;
  }
  moxui::utility::GetResourceManager()->DisplayCursor(moxui::platform::CursorID::kHotText,
                                                      moxui::platform::CursorMode::kUntilNext);
  return true;
}

bool UI_HotTimecodeControl::UI_DoCursor(UI_Node* /*node*/, PointT<float> point, unsigned /*flags*/) {
  RectT<float> const rect = UI_GetLocalRectF(kOwn).Grown({0, -kCursorInset, 0, -kCursorInset});
  return rect.Contains(point) && SetCursorSelf();
}

void UI_HotTimecodeControl::HideCursorIntern() {
  mCursorHidden = true;
  moxui::utility::GetResourceManager()->ShowPlatformCursor(false, true, false);
}

void UI_HotTimecodeControl::ShowCursorIntern() {
  mCursorHidden = false;
  moxui::utility::GetResourceManager()->ShowPlatformCursor(true, true, false);
}

// Radial controller

bool UI_HotTimecodeControl::IsInActiveHover() const {
  PointT<float> const point = UI_GlobalToLocalF(moxui::ui::GetGlobalMousePosition());
  RectT<float> const rect = UI_GetLocalRectF(kOwn);
  bool const isOver =
      !rect.IsEmpty() && point.x >= 0 && point.x <= rect.width && point.y >= 0 && point.y <= rect.height;
  return isOver && IsInFocusedTabPanel(IntrusivePtr<UI_Node>(const_cast<UI_HotTimecodeControl*>(this)));
}

bool UI_HotTimecodeControl::IsInFocusedTabPanel(IntrusivePtr<UI_Node> node) const {
  auto const* const window = moxworkspace::WorkspaceUtils::FindMainTopLevelWindow();
  auto const* const workspace = window != nullptr ? window->GetWorkspace() : nullptr;
  auto const* const focused = workspace != nullptr ? workspace->GetFocusedTabPanel() : nullptr;
  return focused != nullptr && moxworkspace::TabPanel::FindPanelOf(node.Get()) == focused;
}

void UI_HotTimecodeControl::OnRadialControllerChange(long long delta) {
  if (UI_IsDisabled() || !IsInActiveHover()) {
    return;
  }
  // Looked up each time, so that it can be changed in a running program.
  auto const delay = moxcore::debug::DebugDatabase::Instance().GetEntry("Tarvos.HideCursorDelayinMs", "800");
  if (delta != 0) {
    UI_InstallTimer(static_cast<float>(ReadHideCursorDelay(delay)), mTimerID);
    if (!mCursorHidden) {
      HideCursorIntern();
    }
  }
  // A step, however far it was turned; a turn by nothing is one up.
  IncrementTimecode(delta < 0 ? -1 : 1, moxui::ui::GetCurrentModKeys());
}

bool UI_HotTimecodeControl::UI_DoTimerNotify(int id) {
  if (id != mTimerID) {
    return false;
  }
  if (mCursorHidden) {
    ShowCursorIntern();
  }
  return true;
}

}  // namespace moxmediaui
