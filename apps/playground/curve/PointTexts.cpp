#include "curve/PointTexts.h"

#include "curve/ToneCurve.h"
#include "program/Localized.h"
#include "program/NumberText.h"

namespace playground {

std::string LevelText(double level) {
  return TextFromNumber(level, 1);
}

std::string PointName(std::size_t point, std::size_t count) {
  return Text("$$$/playground/curve/point=Point @0 of @1",
              {std::to_string(point + 1), std::to_string(count)});
}

std::string PointLevels(CurvePoint const& point) {
  return Text("$$$/playground/curve/levels=Input @0, output @1", {LevelText(point.x), LevelText(point.y)});
}

}  // namespace playground
