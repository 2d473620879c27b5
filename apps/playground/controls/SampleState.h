#pragma once

#include "shell/Page.h"

#include <cstddef>
#include <vector>

namespace playground {

// The states in which stock controls are shown.
enum class SampleState { kNormal, kHover, kPressed, kFocused, kDisabled, kUnknown };

inline constexpr int kSampleStateCount = 6;

// The name and the title of a state.
PageState const& DescriptionOf(SampleState state);
// These states as those of a page.
std::vector<PageState> PageStatesOf(std::vector<SampleState> const& states);

}  // namespace playground
