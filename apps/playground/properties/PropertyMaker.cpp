#include "properties/PropertyMaker.h"

namespace playground {

Property ChoiceOfNumbers(std::string id, std::string label, std::function<int()> get,
                         std::function<void(int)> set, std::vector<int> values,
                         std::vector<std::string> items) {
  ChoiceProperty choice;
  choice.items = std::move(items);
  choice.get = [get = std::move(get), values] {
    auto const found = std::find(values.begin(), values.end(), get());
    return found == values.end() ? -1 : static_cast<int>(found - values.begin());
  };
  choice.set = [set = std::move(set), values = std::move(values)](int item) {
    if (item >= 0 && item < static_cast<int>(values.size())) {
      set(values[static_cast<std::size_t>(item)]);
    }
  };
  return {std::move(id), std::move(label), std::move(choice)};
}

}  // namespace playground
