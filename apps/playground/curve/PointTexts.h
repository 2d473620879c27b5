#pragma once

#include <cstddef>
#include <string>

namespace playground {

struct CurvePoint;

// A level as it is read: to a tenth, whole ones without a place.
std::string LevelText(double level);
// "Point 2 of 4", counted from 1; `point` counts from 0.
std::string PointName(std::size_t point, std::size_t count);
// "Input 64, output 80.5"
std::string PointLevels(CurvePoint const& point);

}  // namespace playground
