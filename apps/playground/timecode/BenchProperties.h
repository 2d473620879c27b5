#pragma once

#include "properties/Property.h"

#include <functional>
#include <vector>

namespace playground {

class TimecodeBench;

// What the bench can be told besides its settings.
struct BenchActions {
  std::function<void()> keepOwnRate;  // the field follows its host no more
  std::function<void()> syncToHost;   // once, whether it follows or not
  std::function<void()> renewField;   // another one takes its place
};

// Everything of the bench that is worked by hand.
std::vector<PropertyGroup> BenchProperties(TimecodeBench& bench, BenchActions const& actions);

}  // namespace playground
