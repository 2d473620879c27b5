#include "controls/SampleState.h"

#include <array>

namespace playground {

PageState const& DescriptionOf(SampleState state) {
  static std::array<PageState, kSampleStateCount> const kStates{
      {{"normal", "$$$/playground/state/normal=Normal"},
       {"hover", "$$$/playground/state/hover=Hover"},
       {"pressed", "$$$/playground/state/pressed=Pressed"},
       {"focused", "$$$/playground/state/focused=Focused"},
       {"disabled", "$$$/playground/state/disabled=Disabled"},
       {"unknown", "$$$/playground/state/unknown=Unknown"}}};
  return kStates[static_cast<std::size_t>(state)];
}

std::vector<PageState> PageStatesOf(std::vector<SampleState> const& states) {
  std::vector<PageState> descriptions;
  for (SampleState const state : states) {
    descriptions.push_back(DescriptionOf(state));
  }
  return descriptions;
}

}  // namespace playground
