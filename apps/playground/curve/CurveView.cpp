#include "curve/CurveView.h"

#include "curve/CurveKeys.h"
#include "curve/PointTexts.h"
#include "program/Localized.h"

#include <moxui/resources/ResourceManager.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/MouseEvent.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace playground {
namespace {

using moxcore::utility::MakeIntrusive;
using moxui::PointT;
using moxui::RectT;
using moxui::platform::CursorID;
using moxui::ui::FocusChangeReason;
using moxui::ui::KeyboardCode;
using moxui::ui::MouseButton;
using moxui::ui::PointerAction;

// A hand that only wants to select moves less than this.
constexpr float kStill = 2.0f;
// A point is removed so far beyond the square.
constexpr float kDropDistance = 24.0f;

double Tenth(double level) {
  return std::round(level * 10.0) / 10.0;
}

}  // namespace

// Stands for a point; it draws nothing, and the pointer goes through it to the view.
class CurveView::Node : public moxui::ui::UI_Node {
 public:
  Node(CurveView& view, std::size_t point) : mView(view), mPoint(point) {}

  bool UI_ContainsPoint(PointT<float>) const override { return false; }
  bool UI_WantsKeyboardFocus() const override { return true; }
  void UI_FocusChanged(FocusChangeReason reason) override {
    UI_Node::UI_FocusChanged(reason);
    if (UI_HasKeyboardFocus()) {
      mView.mSession.Select(mPoint);
    }
    mView.UI_Invalidate();
  }
  moxui::ui::AccessibleRole UI_GetAccessibleRole() const override {
    return moxui::ui::AccessibleRole::kSlider;
  }
  moxcore::Utf8String UI_GetAccessibleName() const override {
    return moxcore::Utf8String(PointName(mPoint, Curve().PointCount()));
  }
  moxcore::Utf8String UI_GetAccessibleValue() const override {
    return moxcore::Utf8String(PointLevels(Point()));
  }
  std::optional<moxui::ui::AccessibleRange> UI_GetAccessibleRange() const override {
    return moxui::ui::AccessibleRange{
        .minimum = 0.0, .maximum = ToneCurve::kMost, .value = Point().y, .step = 1.0};
  }
  bool UI_SetAccessibleValue(double value) override {
    mView.mSession.Select(mPoint);
    mView.mSession.MoveSelected({Point().x, value}, CurveStep::kOutput);
    return true;
  }
  bool UI_DoAccessibleAction() override {
    mView.mSession.Select(mPoint);
    mView.mType();
    return true;
  }

 private:
  ToneCurve const& Curve() const { return mView.mSession.Curve(); }
  CurvePoint Point() const { return mPoint < Curve().PointCount() ? Curve().Points()[mPoint] : CurvePoint(); }

  CurveView& mView;  // the parent, which takes its nodes out when it ends
  std::size_t mPoint;
};

// A point that is held.
struct CurveView::Drag {
  Drag(CurveSession& session, PointT<float> place) : step(session), from(place) {}

  CurveDrag step;
  ToneCurve base{};  // with the point where it was taken
  std::size_t point = 0;
  PointT<float> from;
  PointT<float> grab{};  // from the point's middle
  bool hasMoved = false;
};

CurveView::CurveView(CurveSession& session, std::function<void()> type)
    : mSession(session), mType(std::move(type)) {
  MatchNodes();
}

CurveView::~CurveView() {
  mDrag.reset();
  DeleteChildren();
}

moxui::ui::UI_Node& CurveView::PointNode(std::size_t point) const {
  return *mNodes[point];
}

std::optional<std::size_t> CurveView::FocusedPoint() const {
  for (std::size_t i = 0; i < mNodes.size(); ++i) {
    if (mNodes[i]->UI_HasKeyboardFocus()) {
      return i;
    }
  }
  return std::nullopt;
}

void CurveView::FocusSelected(FocusChangeReason reason) {
  auto const node = mNodes[mSession.Selected()];
  if (!node->UI_HasKeyboardFocus()) {
    node->UI_GainKeyboardFocus(reason);
  }
}

// Node by node, from the left: points may come and go in between.
void CurveView::MatchNodes() {
  std::size_t const count = mSession.Curve().PointCount();
  bool const hasFocus = FocusedPoint().has_value();
  while (mNodes.size() < count) {
    mNodes.push_back(MakeIntrusive<Node>(*this, mNodes.size()));
    ChildPushBack(mNodes.back());
  }
  if (hasFocus) {
    // Before the node that has it may go.
    FocusSelected(FocusChangeReason::kByCode);
  }
  while (mNodes.size() > count) {
    ChildRemove(mNodes.back());
    mNodes.pop_back();
  }
  CurvePlot const plot = Plot();
  float const reach = CurvePlot::kPointReach;
  for (std::size_t i = 0; i < count; ++i) {
    PointT<float> const middle = plot.PlaceOf(mSession.Curve().Points()[i]);
    mNodes[i]->UI_SetLocalRectF({middle.x - reach, middle.y - reach, 2.0f * reach, 2.0f * reach});
  }
}

void CurveView::SessionChanged() {
  MatchNodes();
  mHovered.reset();
  mGhost.reset();
  mNodes[mSession.Selected()]->UI_TellAccessibleChange(moxui::ui::AccessibleChange::kValue);
  UI_Invalidate();
}

void CurveView::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  MatchNodes();
}

void CurveView::UI_Draw(moxui::scriber::Scriber* scriber) const {
  DrawCurvePlot(
      scriber, Plot(), mSession.Curve(),
      {.selected = mSession.Selected(), .focused = FocusedPoint(), .hovered = mHovered, .ghost = mGhost});
}

bool CurveView::UI_DoMouseEvent(moxui::ui::UI_Node*, moxui::ui::MouseEvent const& event) {
  moxcore::utility::IntrusivePtr<UI_Node> const self(this);  // a change may have its page taken away
  bool const isLeft = event.IsButton(MouseButton::kLeft);
  switch (event.GetAction()) {
    case PointerAction::kPress:
      if (isLeft && !mDrag) {
        Press(event);
      }
      return isLeft;
    case PointerAction::kMove:
      if (mDrag && isLeft) {
        DragTo(event.GetPosition());
      } else if (mDrag) {
        EndDrag(false);
      } else {
        Hover(event.GetPosition());
      }
      return true;
    case PointerAction::kRelease:
      if (mDrag && isLeft) {
        EndDrag(false);
      }
      return isLeft;
    case PointerAction::kCancel:
      EndDrag(true);
      return true;
    default:
      Hover(std::nullopt);
      return false;
  }
}

void CurveView::Press(moxui::ui::MouseEvent const& event) {
  CurvePlot const plot = Plot();
  PointT<float> const place = event.GetPosition();
  ToneCurve const& curve = mSession.Curve();
  if (auto const point = plot.PointAt(curve, place)) {
    mSession.Select(*point);
    FocusSelected(FocusChangeReason::kPointer);
    if (event.IsLeftButtonDoubleClick()) {
      mType();
    } else {
      BeginDrag(place);
    }
    return;
  }
  CurvePoint const levels = plot.LevelsAt(place);
  double const x = std::clamp(std::round(levels.x), 0.0, ToneCurve::kMost);
  bool const isAdded = plot.IsOnCurve(curve, place)
                           ? AddPoint({x, Tenth(curve.At(x))})
                           : event.IsLeftButtonDoubleClick() && plot.Square().Contains(place) &&
                                 AddPoint({x, std::round(levels.y)});
  FocusSelected(FocusChangeReason::kPointer);
  if (isAdded) {
    BeginDrag(place);
  }
}

// What is added is one step with the drag that may follow.
bool CurveView::AddPoint(CurvePoint point) {
  auto drag = std::make_unique<Drag>(mSession, PointT<float>());
  bool isAdded = false;
  mSession.Change([&](CurvePlace& place) {
    if (auto const added = place.curve.Insert(point)) {
      place.selected = *added;
      isAdded = true;
    }
  });
  if (isAdded) {
    mDrag = std::move(drag);
  }
  return isAdded;
}

void CurveView::BeginDrag(PointT<float> place) {
  if (!mDrag) {
    mDrag = std::make_unique<Drag>(mSession, place);
  }
  mDrag->from = place;
  mDrag->base = mSession.Curve();
  mDrag->point = mSession.Selected();
  mDrag->grab = place - Plot().PlaceOf(mSession.SelectedPoint());
  UI_SetCapture();
  UI_Invalidate();
}

void CurveView::DragTo(PointT<float> place) {
  PointT<float> const moved = place - mDrag->from;
  mDrag->hasMoved = mDrag->hasMoved || std::hypot(moved.x, moved.y) >= kStill;
  if (!mDrag->hasMoved) {
    return;
  }
  CurvePlot const plot = Plot();
  CurvePoint const levels = plot.LevelsAt(place - mDrag->grab);
  bool const isOff = !plot.Square().Inset(-kDropDistance).Contains(place);
  mSession.Change([&](CurvePlace& now) {
    now = {mDrag->base, mDrag->point};
    if (isOff && now.curve.CanRemove(now.selected)) {
      now.curve.Remove(now.selected);
    } else {
      now.curve.Move(now.selected, {std::round(levels.x), std::round(levels.y)});
    }
  });
}

void CurveView::EndDrag(bool takesBack) {
  if (auto const drag = std::exchange(mDrag, nullptr)) {
    UI_ReleaseCapture();
    if (takesBack) {
      drag->step.TakeBack();
    }
    UI_Invalidate();
  }
}

void CurveView::Hover(std::optional<PointT<float>> place) {
  CurvePlot const plot = Plot();
  ToneCurve const& curve = mSession.Curve();
  auto const point = place ? plot.PointAt(curve, *place) : std::nullopt;
  std::optional<CurvePoint> ghost;
  if (place && !point && plot.IsOnCurve(curve, *place)) {
    double const x = std::round(plot.LevelsAt(*place).x);
    ghost = CurvePoint{x, curve.At(x)};
  }
  if (point != mHovered || ghost != mGhost) {
    mHovered = point;
    mGhost = ghost;
    UI_Invalidate();
  }
}

bool CurveView::UI_DoKeyboardEvent(moxui::ui::UI_Node* node, moxui::ui::KeyboardEvent const& event) {
  moxcore::utility::IntrusivePtr<UI_Node> const self(this);
  bool const isDown = event.IsAction(moxui::ui::KeyAction::kKeyDown);
  if (mDrag) {
    // Nothing else is done to a curve that is held.
    if (isDown && event.GetCode() == KeyboardCode::kEscape) {
      EndDrag(true);
    }
    return isDown;
  }
  bool const isEnter = event.GetCode() == KeyboardCode::kReturn || event.GetCode() == KeyboardCode::kEnter;
  if (isDown && isEnter && event.GetModKey().IsEmpty()) {
    mType();
    return true;
  }
  return HandleCurveKey(mSession, event) || UI_SubView::UI_DoKeyboardEvent(node, event);
}

bool CurveView::UI_DoCursor(moxui::ui::UI_Node*, PointT<float> point, unsigned) {
  CursorID const cursor = mDrag                                       ? CursorID::kClosedHand
                          : Plot().PointAt(mSession.Curve(), point)   ? CursorID::kOpenHand
                          : Plot().IsOnCurve(mSession.Curve(), point) ? CursorID::kCross
                                                                      : CursorID::kArrow;
  moxui::utility::OS_ResourceManager::DisplayCursor(cursor, moxui::platform::CursorMode::kUntilNext);
  return true;
}

void CurveView::UI_FocusChanged(FocusChangeReason reason) {
  UI_SubView::UI_FocusChanged(reason);
  if (reason == FocusChangeReason::kDeactivated) {
    EndDrag(false);
  }
}

moxui::ui::AccessibleRole CurveView::UI_GetAccessibleRole() const {
  return moxui::ui::AccessibleRole::kGroup;
}

moxcore::Utf8String CurveView::UI_GetAccessibleName() const {
  return moxcore::Utf8String(Text("$$$/playground/curve/name=Tone curve"));
}

}  // namespace playground
