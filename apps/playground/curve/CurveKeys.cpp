#include "curve/CurveKeys.h"

#include "curve/CurveSession.h"

#include <moxui/ui/KeyboardEvent.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace playground {
namespace {

using moxui::ui::KeyboardCode;
namespace ModKey = moxui::ui::ModKey;

// As the numbers of the dialog for a point step.
constexpr double kStep = 1.0;
constexpr double kShiftStep = 10.0;
constexpr double kCommandStep = 0.1;

std::optional<double> StepFor(moxui::ui::ModKeys modKeys) {
  if (modKeys.IsEmpty()) {
    return kStep;
  }
  if (modKeys == moxui::ui::ModKeys(ModKey::kShift)) {
    return kShiftStep;
  }
  return modKeys == moxui::ui::ModKeys(ModKey::kCommand) ? std::optional(kCommandStep) : std::nullopt;
}

// Many steps of a tenth would drift off the tenths.
double OnTenths(double level) {
  return std::round(level * 10.0) / 10.0;
}

bool HandleArrow(CurveSession& session, moxui::ui::KeyboardEvent const& event) {
  double x = 0.0;
  double y = 0.0;
  switch (event.GetCode()) {
    case KeyboardCode::kLeft:
      x = -1.0;
      break;
    case KeyboardCode::kRight:
      x = 1.0;
      break;
    case KeyboardCode::kUp:
      y = 1.0;
      break;
    case KeyboardCode::kDown:
      y = -1.0;
      break;
    default:
      return false;
  }
  auto const step = StepFor(event.GetModKey());
  if (!step) {
    return false;
  }
  CurvePoint const from = session.SelectedPoint();
  session.MoveSelected(
      {x == 0.0 ? from.x : OnTenths(from.x + x * *step), y == 0.0 ? from.y : OnTenths(from.y + y * *step)},
      CurveStep::kNudge);
  return true;
}

}  // namespace

bool HandleCurveKey(CurveSession& session, moxui::ui::KeyboardEvent const& event) {
  if (!event.IsAction(moxui::ui::KeyAction::kKeyDown)) {
    return false;
  }
  if (HandleArrow(session, event)) {
    return true;
  }
  // A plus needs shift on many keyboards.
  if (event.GetCode() == KeyboardCode::kPlus && !event.GetModKey().Has(ModKey::kCommand)) {
    session.AddPoint();
    return true;
  }
  if (!event.GetModKey().IsEmpty()) {
    return false;
  }
  std::size_t const last = session.Curve().PointCount() - 1;
  switch (event.GetCode()) {
    case KeyboardCode::kPageUp:
      session.Select(session.Selected() == 0 ? 0 : session.Selected() - 1);
      return true;
    case KeyboardCode::kPageDown:
      session.Select(std::min(session.Selected() + 1, last));
      return true;
    case KeyboardCode::kHome:
      session.Select(0);
      return true;
    case KeyboardCode::kEnd:
      session.Select(last);
      return true;
    case KeyboardCode::kInsert:
      session.AddPoint();
      return true;
    case KeyboardCode::kDelete:
    case KeyboardCode::kBackspace:
      session.RemoveSelected();
      return true;
    default:
      return false;
  }
}

}  // namespace playground
