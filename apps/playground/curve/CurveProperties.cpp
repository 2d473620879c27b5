#include "curve/CurveProperties.h"

#include "curve/CurveSession.h"
#include "curve/PointTexts.h"
#include "program/Localized.h"
#include "program/NumberText.h"

#include <utility>

namespace playground {
namespace {

// A level of the selected point.
Property LevelOf(CurveSession& session, std::string id, std::string label, double CurvePoint::*level,
                 CurveStep step) {
  NumberProperty number;
  number.low = 0.0;
  number.high = ToneCurve::kMost;
  number.step = 1.0;
  number.get = [&session, level] { return session.SelectedPoint().*level; };
  number.set = [&session, level, step](double value) {
    CurvePoint point = session.SelectedPoint();
    point.*level = value;
    session.MoveSelected(point, step);
  };
  number.format = LevelText;
  number.parse = [](std::string const& text) { return NumberFromText(text); };
  return {std::move(id), std::move(label), std::move(number)};
}

Property Action(std::string id, std::string label, std::function<void()> run,
                std::function<bool()> isEnabled = {}) {
  return {std::move(id), std::move(label), ActionProperty{std::move(run)}, std::move(isEnabled)};
}

}  // namespace

std::vector<PropertyGroup> CurveProperties(CurveSession& session, std::function<void()> type) {
  PropertyGroup point{Text("$$$/playground/curve/selectedPoint=Selected point"), {}};
  point.properties = {
      LevelOf(session, "input", Text("$$$/playground/curve/input=Input"), &CurvePoint::x, CurveStep::kInput),
      LevelOf(session, "output", Text("$$$/playground/curve/output=Output"), &CurvePoint::y,
              CurveStep::kOutput),
      Action("type", Text("$$$/playground/curve/type=Type the numbers..."), std::move(type)),
      Action(
          "remove", Text("$$$/playground/curve/remove=Remove the point"),
          [&session] { session.RemoveSelected(); }, [&session] { return session.CanRemoveSelected(); })};
  PropertyGroup curve{Text("$$$/playground/curve/group=Curve"), {}};
  curve.properties = {Action(
                          "add", Text("$$$/playground/curve/add=Add a point"),
                          [&session] { session.AddPoint(); }, [&session] { return session.CanAddPoint(); }),
                      Action(
                          "straight", Text("$$$/playground/curve/straight=Straight line"),
                          [&session] { session.Change([](CurvePlace& place) { place = {}; }); },
                          [&session] { return !(session.Curve() == ToneCurve()); }),
                      Action(
                          "undo", Text("$$$/playground/edit/undo=Undo"), [&session] { session.Undo(); },
                          [&session] { return session.CanUndo(); }),
                      Action(
                          "redo", Text("$$$/playground/edit/redo=Redo"), [&session] { session.Redo(); },
                          [&session] { return session.CanRedo(); })};
  return {std::move(point), std::move(curve)};
}

}  // namespace playground
