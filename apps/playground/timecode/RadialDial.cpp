#include "timecode/RadialDial.h"

#include "program/Localized.h"
#include "shell/Painting.h"

#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/MouseEvent.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <utility>

namespace playground {
namespace {

using moxui::PointT;
using moxui::RectT;
using moxui::ui::KeyboardCode;
using moxui::ui::PointerAction;
using moxui::ui::ThemeColorID;

constexpr int kStepsOfAPage = 10;
constexpr float kMarkInset = 6.0f;
constexpr float kMarkLength = 12.0f;
constexpr float kLine = 2.0f;
constexpr double kRound = 2.0 * std::numbers::pi;

}  // namespace

RadialDial::RadialDial(TurnFunction turned) : mTurned(std::move(turned)) {
  SetWantsKeyboardFocus(true);
  SetAccessibleName(moxcore::Utf8String(Text("$$$/playground/timecode/dial=Radial controller")));
}

RadialDial::~RadialDial() = default;

void RadialDial::Turn(int steps) {
  if (steps == 0) {
    return;
  }
  mStep = (mStep + steps % kStepsOfARound + kStepsOfARound) % kStepsOfARound;
  UI_Invalidate();
  UI_TellAccessibleChange(moxui::ui::AccessibleChange::kValue);
  mTurned(steps);
}

RectT<float> RadialDial::KnobRect() const {
  RectT<float> const own = UI_GetLocalRectF(false);
  float const size = std::max(std::min(own.width, own.height), 0.0f);
  return {(own.width - size) / 2.0f, (own.height - size) / 2.0f, size, size};
}

double RadialDial::StepsAt(PointT<float> point) const {
  PointT<float> const from = KnobRect().Center();
  double const angle =
      std::atan2(static_cast<double>(point.x - from.x), static_cast<double>(from.y - point.y));
  return angle / kRound * kStepsOfARound;
}

void RadialDial::DragTo(PointT<float> point) {
  // The short way round, since the top is where the count begins anew.
  double const distance = std::remainder(StepsAt(point) - mDraggedFrom, static_cast<double>(kStepsOfARound));
  auto const steps = static_cast<int>(distance);
  mDraggedFrom += steps;
  Turn(steps);
}

void RadialDial::UI_Draw(moxui::scriber::Scriber* scriber) const {
  auto& surface = *scriber->GetSurface();
  auto const& supplier = *scriber->GetSupplier();
  RectT<float> const knob = KnobRect();
  PointT<float> const middle = knob.Center();
  float const radius = knob.width / 2.0f - kLine / 2.0f;
  if (radius <= kMarkInset + kMarkLength) {
    return;
  }
  auto const rim = supplier.NewPath();
  rim->AddArc(middle, radius, 0.0f, 360.0f);
  rim->Close();
  bool const isActive = mIsDragging || GetControlState(false).Has(moxui::controls::ControlState::kRollover);
  surface.FillPath(*rim, *supplier.NewBrush(ThemeColor(ThemeColorID::kFieldFill)),
                   moxui::scriber::FillRule::kWinding);
  surface.StrokePath(*rim, *supplier.NewPen(ThemeColor(isActive ? ThemeColorID::kFieldOutlineActive
                                                                : ThemeColorID::kFieldOutline),
                                            kLine));
  auto const angle = static_cast<float>(mStep * kRound / kStepsOfARound);
  PointT<float> const direction{std::sin(angle), -std::cos(angle)};
  auto const mark = supplier.NewPath();
  float const outer = radius - kMarkInset;
  float const inner = outer - kMarkLength;
  mark->MoveTo({middle.x + direction.x * inner, middle.y + direction.y * inner});
  mark->LineTo({middle.x + direction.x * outer, middle.y + direction.y * outer});
  surface.StrokePath(*mark, *supplier.NewPen(ThemeColor(ThemeColorID::kInteractive), kLine));
  if (UI_HasKeyboardFocus()) {
    auto const ring = supplier.NewPath();
    ring->AddArc(middle, knob.width / 2.0f + kFocusReach - kLine / 2.0f, 0.0f, 360.0f);
    ring->Close();
    surface.StrokePath(*ring, *supplier.NewPen(ThemeColor(ThemeColorID::kFocus), kLine));
  }
}

moxui::PaddingT<float> RadialDial::UI_GetDrawOverhang() const {
  return {kFocusReach, kFocusReach, kFocusReach, kFocusReach};
}

bool RadialDial::UI_DoPointerEvent(moxui::ui::UI_Node* node, moxui::ui::PointerEvent const& event) {
  if (auto const* const wheel = moxui::ui::WheelEvent::GetWheelEventForPointerEvent(event)) {
    float const distance = wheel->GetDistance().y;
    Turn(distance > 0.0f ? 1 : distance < 0.0f ? -1 : 0);
    return true;
  }
  return UI_ControlView::UI_DoPointerEvent(node, event);
}

bool RadialDial::UI_DoMouseEvent(moxui::ui::UI_Node* node, moxui::ui::MouseEvent const& event) {
  UI_ControlView::UI_DoMouseEvent(node, event);
  moxcore::utility::IntrusivePtr<UI_Node> const self(this);  // a turn may have its page taken away
  bool const isLeft = event.IsButton(moxui::ui::MouseButton::kLeft);
  if (event.IsAction(PointerAction::kPress) && isLeft) {
    UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kPointer);
    mIsDragging = true;
    mDraggedFrom = StepsAt(event.GetPosition());
    UI_SetCapture();
  } else if (event.IsAction(PointerAction::kMove) && mIsDragging && isLeft) {
    DragTo(event.GetPosition());
  } else if (mIsDragging && (event.IsAction(PointerAction::kRelease) || !isLeft)) {
    mIsDragging = false;
    UI_ReleaseCapture();
  } else {
    return false;
  }
  UI_Invalidate();
  return true;
}

bool RadialDial::UI_InvalidateOnMouseOverChange(bool) {
  return true;
}

bool RadialDial::UI_DoKeyboardEvent(moxui::ui::UI_Node*, moxui::ui::KeyboardEvent const& event) {
  if (!event.IsAction(moxui::ui::KeyAction::kKeyDown) || !event.GetModKey().IsEmpty()) {
    return false;
  }
  switch (event.GetCode()) {
    case KeyboardCode::kUp:
    case KeyboardCode::kRight:
      Turn(1);
      return true;
    case KeyboardCode::kDown:
    case KeyboardCode::kLeft:
      Turn(-1);
      return true;
    case KeyboardCode::kPageUp:
      Turn(kStepsOfAPage);
      return true;
    case KeyboardCode::kPageDown:
      Turn(-kStepsOfAPage);
      return true;
    default:
      return false;
  }
}

moxui::ui::AccessibleRole RadialDial::UI_GetAccessibleRole() const {
  return moxui::ui::AccessibleRole::kDial;
}

moxcore::Utf8String RadialDial::UI_GetAccessibleValue() const {
  return moxcore::Utf8String(std::to_string(mStep));
}

}  // namespace playground
