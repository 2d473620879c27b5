// Points of a curve under the hand: mouse and pen.
#include "playground/curve/WorkedCurve.h"

#include <moxui/platform/Application.h>
#include <moxui/platform/CursorControl.h>

namespace playground {
namespace {

using moxui::PointT;
using moxui::platform::CursorID;
using moxui::ui::KeyboardCode;

class CurveHand : public WorkedCurve {};

// Half a level of what is a little more than a pixel.
constexpr double kNear = 0.6;

TEST_F(CurveHand, AddsAPointWhereTheCurveIsPressed) {
  double const y = Curve().At(128);
  program.stage.Click(At(128, y));
  ASSERT_EQ(Curve().PointCount(), 5u);
  EXPECT_EQ(Point(2).x, 128.0);
  EXPECT_NEAR(Point(2).y, y, 0.05 + 1e-9) << "on the curve, to a tenth";
  EXPECT_EQ(Session().Selected(), 2u);
  EXPECT_TRUE(HasFocus(2));
  Session().Undo();
  EXPECT_EQ(Curve(), Begun());
}

TEST_F(CurveHand, AddsNothingBesideTheCurveButForADoubleClick) {
  program.stage.Click(At(100, 200));
  EXPECT_EQ(Curve(), Begun());
  Rest();
  program.stage.DoubleClick(At(100, 200));
  ASSERT_EQ(Curve().PointCount(), 5u);
  EXPECT_NEAR(Point(2).x, 100.0, kNear);
  EXPECT_NEAR(Point(2).y, 200.0, kNear);
  Session().Undo();
  EXPECT_EQ(Curve(), Begun());
}

TEST_F(CurveHand, AddsNothingOutsideTheSquare) {
  program.stage.DoubleClick(At(128, -20));
  EXPECT_EQ(Curve(), Begun());
}

TEST_F(CurveHand, DragsWhatItHasJustAdded) {
  PointT<float> const from = At(128, Curve().At(128));
  program.stage.Drag(from, At(140, 60));
  ASSERT_EQ(Curve().PointCount(), 5u);
  EXPECT_NEAR(Point(2).x, 140.0, kNear);
  EXPECT_NEAR(Point(2).y, 60.0, kNear);
  Session().Undo();
  EXPECT_EQ(Curve(), Begun()) << "adding and dragging are one step";
}

TEST_F(CurveHand, DragsAPointFromWhereItIsHeld) {
  PointT<float> const held = AtPoint(2) + PointT<float>(4, 3);
  PointT<float> const way = At(150, 100) - At(192, 216);
  program.stage.Drag(held, held + way);
  EXPECT_NEAR(Point(2).x, 150.0, kNear);
  EXPECT_NEAR(Point(2).y, 100.0, kNear);
  EXPECT_EQ(Session().Selected(), 2u);
  EXPECT_TRUE(HasFocus(2));
}

TEST_F(CurveHand, DragsNoFurtherThanTheNeighbours) {
  program.stage.Press(AtPoint(1));
  program.stage.Move(At(250, 260));
  EXPECT_EQ(Point(1), (CurvePoint{191, 255}));
  EXPECT_EQ(Point(2), (CurvePoint{192, 216})) << "which stays where it is";
  program.stage.Move(At(-10, 100));
  EXPECT_EQ(Point(1).x, 1.0);
  program.stage.ReleaseHere();
  Session().Undo();
  EXPECT_EQ(Curve(), Begun()) << "a drag is one step";
}

TEST_F(CurveHand, SelectsWithoutMovingWhenTheHandTrembles) {
  Session().Change([](CurvePlace& place) { place.curve.Move(2, {192.3, 216.7}); });
  program.stage.Press(AtPoint(2));
  program.stage.MoveBy({1.0f, 1.0f});
  program.stage.ReleaseHere();
  EXPECT_EQ(Point(2), (CurvePoint{192.3, 216.7}));
  EXPECT_EQ(Session().Selected(), 2u);
  Session().Undo();
  EXPECT_EQ(Curve(), Begun()) << "no step but the one before";
}

TEST_F(CurveHand, RemovesAPointThatIsDraggedOff) {
  program.stage.Press(AtPoint(1));
  program.stage.Move(At(64, -60));
  EXPECT_EQ(Curve(), ToneCurve({{0, 0}, {192, 216}, {255, 255}}));
  program.stage.Move(At(70, 30));
  ASSERT_EQ(Curve().PointCount(), 4u) << "it comes back";
  EXPECT_NEAR(Point(1).x, 70.0, kNear);
  program.stage.Move(At(64, 320));
  program.stage.ReleaseHere();
  EXPECT_EQ(Curve(), ToneCurve({{0, 0}, {192, 216}, {255, 255}}));
  EXPECT_TRUE(HasFocus(1)) << "the one that took its number";
  Session().Undo();
  EXPECT_EQ(Curve(), Begun());
  Session().Redo();
  EXPECT_EQ(Curve().PointCount(), 3u);
}

TEST_F(CurveHand, RemovesTheLastButOnePointAndKeepsTheFocus) {
  program.stage.Press(AtPoint(2));
  program.stage.Move(At(192, -60));
  EXPECT_EQ(Curve().PointCount(), 3u);
  program.stage.Move(At(190, 200));
  EXPECT_TRUE(HasFocus(2));
  program.stage.ReleaseHere();
}

TEST_F(CurveHand, NeverRemovesAnEnd) {
  program.stage.Drag(AtPoint(0), At(-60, 120));
  EXPECT_EQ(Curve().PointCount(), 4u);
  EXPECT_EQ(Point(0).x, 0.0);
  EXPECT_NEAR(Point(0).y, 120.0, kNear);
}

TEST_F(CurveHand, TakesADragBackByEscape) {
  program.stage.Press(AtPoint(1));
  program.stage.Move(At(90, 90));
  Key(KeyboardCode::kUp);
  EXPECT_NEAR(Point(1).y, 90.0, kNear) << "keys move nothing meanwhile";
  Key(KeyboardCode::kEscape);
  EXPECT_EQ(Curve(), Begun());
  program.stage.MoveBy({20, 20});
  program.stage.ReleaseHere();
  EXPECT_EQ(Curve(), Begun());
  EXPECT_FALSE(View().IsDragging());
}

TEST_F(CurveHand, EndsADragWhenItsWindowRests) {
  program.stage.Press(AtPoint(1));
  program.stage.Move(At(90, 90));
  program.stage.Deactivate();
  EXPECT_FALSE(View().IsDragging());
  program.stage.Activate();
  program.stage.MoveBy({20, 20});
  EXPECT_NEAR(Point(1).x, 90.0, kNear);
}

TEST_F(CurveHand, LeavesTheOtherButtonsToOthers) {
  program.stage.Drag(AtPoint(1), At(90, 90), 4, moxui::ui::MouseButton::kRight);
  EXPECT_EQ(Curve(), Begun());
}

TEST_F(CurveHand, IsHeldByAPenAsWell) {
  program.stage.SetPointerSubType(moxui::ui::PointerSubType::kPen);
  program.stage.Drag(AtPoint(1), At(90, 90));
  EXPECT_NEAR(Point(1).x, 90.0, kNear);
}

TEST_F(CurveHand, OutlivesItsPageInTheMiddleOfADrag) {
  program.stage.Press(AtPoint(1));
  program.stage.Move(At(90, 90));
  program.shell.View().ShowPage(FindPage("slider"));
  program.stage.MoveBy({20, 20});
  program.stage.ReleaseHere();
  EXPECT_NEAR(Point(1).x, 90.0, kNear);
  EXPECT_TRUE(Session().CanUndo()) << "the drag has ended with the view";
}

TEST_F(CurveHand, ShowsWhatAPressWouldAddAndLetsGoOfItOutside) {
  auto const before = program.Picture();
  program.stage.Move(At(128, Curve().At(128)));
  auto const over = program.Picture();
  EXPECT_NE(before, over);
  program.stage.Move(At(100, 220));
  EXPECT_EQ(program.Picture(), before);
  program.stage.Move(AtPoint(2));
  EXPECT_NE(program.Picture(), before);
  program.stage.Leave();
  EXPECT_EQ(program.Picture(), before);
}

TEST_F(CurveHand, HasACursorForEachPlace) {
  auto& cursor = moxui::platform::Application::Get()->GetCursor();
  program.stage.Move(AtPoint(1));
  EXPECT_EQ(cursor.GetCursor(), CursorID::kOpenHand);
  program.stage.Move(At(128, Curve().At(128)));
  EXPECT_EQ(cursor.GetCursor(), CursorID::kCross);
  program.stage.Move(At(100, 220));
  EXPECT_EQ(cursor.GetCursor(), CursorID::kArrow);
}

TEST_F(CurveHand, KeepsTheDirectionOfLevelsFromRightToLeft) {
  Appearance appearance;
  appearance.rightToLeft = true;
  program.shell.SetAppearance(appearance);
  program.stage.PaintFrame();
  EXPECT_LT(At(0, 0).x, At(255, 0).x);
  program.stage.Drag(AtPoint(1), At(90, 90));
  EXPECT_NEAR(Point(1).x, 90.0, kNear);
}

}  // namespace
}  // namespace playground
