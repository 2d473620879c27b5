#pragma once

#include "curve/CurveView.h"
#include "playground/StagedProgram.h"
#include "properties/PropertyPanel.h"
#include "properties/PropertyRow.h"

#include <moxui/testing/ModalAnswers.h>
#include <moxui/ui/KeyboardEvent.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string_view>
#include <vector>

namespace playground {

// The curve page under the hand, with two points between the ends.
class WorkedCurve : public ::testing::Test {
 protected:
  WorkedCurve() {
    Session().Change([](CurvePlace& place) { place = {Begun(), 1}; });
    program.stage.PaintFrame();
  }

  static ToneCurve Begun() { return ToneCurve({{0, 0}, {64, 40}, {192, 216}, {255, 255}}); }
  CurveSession& Session() { return program.state.curve; }
  ToneCurve const& Curve() { return Session().Curve(); }
  CurvePoint Point(std::size_t point) { return Curve().Points()[point]; }
  CurveView& View() { return program.Curve().View(); }

  // Where levels lie, in the tree's coordinates.
  moxui::PointT<float> At(double x, double y) {
    moxui::RectT<float> const view = View().UI_ConvertRectTo(nullptr, View().UI_GetLocalRectF(false));
    return View().Plot().PlaceOf({x, y}) + moxui::PointT<float>(view.left, view.top);
  }
  moxui::PointT<float> AtPoint(std::size_t point) { return At(Point(point).x, Point(point).y); }
  void FocusPoint(std::size_t point) {
    View().PointNode(point).UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
  }
  bool HasFocus(std::size_t point) { return View().PointNode(point).UI_HasKeyboardFocus(); }
  bool Key(moxui::ui::KeyboardCode code, moxui::ui::ModKeys modKeys = {}) {
    return program.stage.Key(code, modKeys);
  }
  // The next press is no double click.
  void Rest() { program.stage.AdvanceTime(1000.0); }
  PropertyRow& Row(std::string_view property) { return *program.Curve().Panel().FindRow(property); }
  void Run(std::string_view action) {
    program.stage.Click(program.stage.CenterOf(*Row(action).ChildGet(0)));
    Rest();
  }

  StagedProgram program{"curve"};
};

}  // namespace playground
