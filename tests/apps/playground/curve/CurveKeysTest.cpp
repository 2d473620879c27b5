// The curve page by the keyboard, by its panel and by assistive software.
#include "playground/curve/WorkedCurve.h"
#include "shell/EventLog.h"

#include <moxui/controls/UI_TextEdit.h>

namespace playground {
namespace {

using moxui::ui::KeyboardCode;
using moxui::ui::ModKeys;
namespace ModKey = moxui::ui::ModKey;

class CurveKeys : public WorkedCurve {
 protected:
  CurveKeys() { FocusPoint(1); }
};

TEST_F(CurveKeys, MoveTheSelectedPointByOneTenAndATenth) {
  Key(KeyboardCode::kRight);
  Key(KeyboardCode::kUp);
  EXPECT_EQ(Point(1), (CurvePoint{65, 41}));
  Key(KeyboardCode::kLeft, ModKey::kShift);
  Key(KeyboardCode::kDown, ModKey::kShift);
  EXPECT_EQ(Point(1), (CurvePoint{55, 31}));
  for (int i = 0; i < 3; ++i) {
    Key(KeyboardCode::kRight, ModKey::kCommand);
    Key(KeyboardCode::kDown, ModKey::kCommand);
  }
  EXPECT_EQ(Point(1), (CurvePoint{55.3, 30.7})) << "without the errors of sums";
  EXPECT_FALSE(Key(KeyboardCode::kUp, ModKeys(ModKey::kCommand | ModKey::kShift)));
}

TEST_F(CurveKeys, MoveNoFurtherThanTheNeighbours) {
  for (int i = 0; i < 30; ++i) {
    Key(KeyboardCode::kLeft, ModKey::kShift);
    Key(KeyboardCode::kDown, ModKey::kShift);
  }
  EXPECT_EQ(Point(1), (CurvePoint{1, 0}));
}

TEST_F(CurveKeys, OfOneBurstAreOneStep) {
  Key(KeyboardCode::kRight);
  Key(KeyboardCode::kRight);
  Rest();
  Key(KeyboardCode::kUp);
  EXPECT_TRUE(Key(KeyboardCode::kZ, ModKey::kCommand));
  EXPECT_EQ(Point(1), (CurvePoint{66, 40}));
  Key(KeyboardCode::kZ, ModKey::kCommand);
  EXPECT_EQ(Curve(), Begun());
  Key(KeyboardCode::kY, ModKey::kCommand);
  EXPECT_EQ(Point(1).x, 66.0);
  Key(KeyboardCode::kZ, ModKeys(ModKey::kCommand | ModKey::kShift));
  EXPECT_EQ(Point(1), (CurvePoint{66, 41}));
}

TEST_F(CurveKeys, OfTwoPointsAreTwoSteps) {
  Key(KeyboardCode::kRight);
  FocusPoint(2);
  Key(KeyboardCode::kRight);
  Key(KeyboardCode::kZ, ModKey::kCommand);
  EXPECT_EQ(Point(1).x, 65.0);
  EXPECT_EQ(Point(2).x, 192.0);
}

TEST_F(CurveKeys, TabGoesFromPointToPointAndSelects) {
  program.stage.Tab();
  EXPECT_TRUE(HasFocus(2));
  EXPECT_EQ(Session().Selected(), 2u);
  program.stage.Tab(true);
  program.stage.Tab(true);
  EXPECT_EQ(Session().Selected(), 0u);
}

TEST_F(CurveKeys, PagesAndEndsSelect) {
  Key(KeyboardCode::kPageDown);
  EXPECT_TRUE(HasFocus(2));
  Key(KeyboardCode::kEnd);
  EXPECT_TRUE(HasFocus(3));
  Key(KeyboardCode::kPageDown);
  EXPECT_TRUE(HasFocus(3));
  Key(KeyboardCode::kHome);
  EXPECT_TRUE(HasFocus(0));
  Key(KeyboardCode::kPageUp);
  EXPECT_TRUE(HasFocus(0));
  EXPECT_EQ(Curve(), Begun());
}

TEST_F(CurveKeys, InsertAndPlusAddAPointBehindTheSelectedOne) {
  Key(KeyboardCode::kInsert);
  ASSERT_EQ(Curve().PointCount(), 5u);
  EXPECT_EQ(Point(2), (CurvePoint{128, Begun().At(128)}));
  EXPECT_TRUE(HasFocus(2));
  Key(KeyboardCode::kEnd);
  Key(KeyboardCode::kPlus, ModKey::kShift);
  ASSERT_EQ(Curve().PointCount(), 6u);
  EXPECT_EQ(Point(4).x, 223.5) << "before the last one, where there is nothing behind";
  EXPECT_EQ(Session().Selected(), 4u);
}

TEST_F(CurveKeys, AddNothingWithoutRoom) {
  Session().Change([](CurvePlace& place) { place = {ToneCurve({{0, 0}, {1, 1}, {255, 255}}), 0}; });
  FocusPoint(0);
  Key(KeyboardCode::kInsert);
  EXPECT_EQ(Curve().PointCount(), 3u);
  EXPECT_FALSE(Row("add").UI_IsEnabled());
}

TEST_F(CurveKeys, DeleteAndBackspaceRemoveButNoEnd) {
  Key(KeyboardCode::kDelete);
  EXPECT_EQ(Curve().PointCount(), 3u);
  EXPECT_TRUE(HasFocus(1));
  Key(KeyboardCode::kBackspace);
  EXPECT_EQ(Curve(), ToneCurve());
  EXPECT_TRUE(HasFocus(1));
  Key(KeyboardCode::kDelete);
  Key(KeyboardCode::kHome);
  Key(KeyboardCode::kDelete);
  EXPECT_EQ(Curve(), ToneCurve());
  Key(KeyboardCode::kZ, ModKey::kCommand);
  Key(KeyboardCode::kZ, ModKey::kCommand);
  EXPECT_EQ(Curve(), Begun());
}

TEST_F(CurveKeys, LeaveOtherKeysAlone) {
  EXPECT_FALSE(Key(KeyboardCode::kF5));
  EXPECT_FALSE(Key(KeyboardCode::kDelete, ModKey::kCommand));
  EXPECT_EQ(Curve(), Begun());
}

TEST_F(CurveKeys, ThePanelShowsAndMovesTheSelectedPoint) {
  auto const readOut = [this](std::string_view row) {
    return dynamic_cast<moxui::controls::UI_TextEdit&>(*Row(row).ChildGet(2)).GetValue();
  };
  EXPECT_EQ(readOut("input"), u"64");
  EXPECT_EQ(readOut("output"), u"40");
  FocusPoint(2);
  EXPECT_EQ(readOut("input"), u"192");
  program.stage.Click(program.stage.CenterOf(*Row("output").ChildGet(2)));
  Key(KeyboardCode::kA, ModKey::kCommand);
  program.stage.Type(u"12.5");
  Key(KeyboardCode::kReturn);
  EXPECT_EQ(Point(2), (CurvePoint{192, 12.5}));
  Row("input").ChildGet(1)->UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
  Key(KeyboardCode::kRight);
  EXPECT_EQ(Point(2).x, 193.0);
}

TEST_F(CurveKeys, ThePanelsButtonsWork) {
  Run("add");
  EXPECT_EQ(Curve().PointCount(), 5u);
  Run("remove");
  EXPECT_EQ(Curve(), Begun());
  Run("undo");
  EXPECT_EQ(Curve().PointCount(), 5u);
  Run("redo");
  EXPECT_EQ(Curve(), Begun());
  EXPECT_FALSE(Row("redo").UI_IsEnabled());
  Run("straight");
  EXPECT_EQ(Curve(), ToneCurve());
  EXPECT_FALSE(Row("straight").UI_IsEnabled());
  EXPECT_FALSE(Row("remove").UI_IsEnabled()) << "an end is selected";
}

TEST_F(CurveKeys, PointsTellAssistiveSoftwareWhatTheyAre) {
  moxui::ui::UI_Node& point = View().PointNode(1);
  EXPECT_EQ(point.UI_GetAccessibleRole(), moxui::ui::AccessibleRole::kSlider);
  EXPECT_EQ(point.UI_GetAccessibleName(), "Point 2 of 4");
  EXPECT_EQ(point.UI_GetAccessibleValue(), "Input 64, output 40");
  EXPECT_EQ(point.UI_GetAccessibleRange()->value, 40.0);
  EXPECT_EQ(View().UI_GetAccessibleName(), "Tone curve");
  EXPECT_TRUE(View().PointNode(2).UI_SetAccessibleValue(100.0));
  EXPECT_EQ(Point(2), (CurvePoint{192, 100}));
  EXPECT_EQ(Session().Selected(), 2u);
  // The node lies where its point is seen.
  auto const middle = program.stage.CenterOf(point);
  EXPECT_NEAR(middle.x, AtPoint(1).x, 0.01);
  EXPECT_NEAR(middle.y, AtPoint(1).y, 0.01);
}

TEST_F(CurveKeys, TheLogTellsWhereAPointHasCome) {
  Key(KeyboardCode::kRight);
  EXPECT_EQ(program.state.log.Lines().back().text, u"Point 2 of 4: Input 65, output 40");
}

TEST_F(CurveKeys, TheCurveStaysWithAnotherPageThemeAndLook) {
  Key(KeyboardCode::kRight);
  Appearance appearance;
  appearance.look = LookChoice::kClassic;
  appearance.theme = ThemeChoice::kHighContrast;
  program.shell.SetAppearance(appearance);
  program.stage.PaintFrame();
  EXPECT_EQ(Point(1).x, 65.0);
  EXPECT_EQ(Session().Selected(), 1u);
  program.shell.View().ShowPage(FindPage("slider"));
  program.shell.View().ShowPage(FindPage("curve"));
  EXPECT_EQ(Point(1).x, 65.0);
  FocusPoint(1);
  Key(KeyboardCode::kRight);
  EXPECT_EQ(Point(1).x, 66.0);
}

TEST_F(CurveKeys, StatesAreCurvesToBeginFromAndCanBeUndone) {
  program.shell.View().GetPage()->ShowState(2);
  EXPECT_EQ(Curve(), ToneCurve({{0, 255}, {255, 0}}));
  Session().Undo();
  EXPECT_EQ(Curve(), Begun());
}

}  // namespace
}  // namespace playground
