#pragma once

#include "properties/Property.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace playground {

// A property over something that holds one of `values`, which go with `items`.
Property ChoiceOfNumbers(std::string id, std::string label, std::function<int()> get,
                         std::function<void(int)> set, std::vector<int> values,
                         std::vector<std::string> items);

// Makes properties over the fields of a structure of settings, those of its bases among them.
template <class Settings>
class PropertyMaker {
 public:
  using Read = std::function<Settings const&()>;
  using Change = std::function<void(std::function<void(Settings&)> const&)>;

  // `read` gives the settings of the moment; `change` calls what it is given with them, and tells whoever
  // shows them.
  PropertyMaker(Read read, Change change) : mRead(std::move(read)), mChange(std::move(change)) {}

  Property Toggle(std::string id, std::string label, bool Settings::*field) const {
    return {std::move(id), std::move(label), ToggleProperty{.get = Getter(field), .set = Setter(field)}};
  }

  // A field that holds one of `values`, which go with `items`.
  template <class T, class Owner>
  Property Choice(std::string id, std::string label, T Owner::*field, std::vector<T> const& values,
                  std::vector<std::string> items) const {
    return Choice<T>(std::move(id), std::move(label), Getter(field), Setter(field), values, std::move(items));
  }
  // The same for an enumeration, as most are: told as numbers, all of them share what goes on behind.
  template <class T, class Owner>
  requires std::is_enum_v<T> Property Choice(std::string id, std::string label, T Owner::*field,
                                             std::initializer_list<T> values, std::vector<std::string> items)
  const {
    std::vector<int> numbers;
    for (T const value : values) {
      numbers.push_back(static_cast<int>(value));
    }
    return ChoiceOfNumbers(
        std::move(id), std::move(label), [read = mRead, field] { return static_cast<int>(read().*field); },
        [change = mChange, field](int value) {
          change([field, value](Settings& settings) { settings.*field = static_cast<T>(value); });
        },
        std::move(numbers), std::move(items));
  }
  // The same over anything that can be read and set.
  template <class T>
  Property Choice(std::string id, std::string label, std::function<T()> get, std::function<void(T)> set,
                  std::vector<T> const& values, std::vector<std::string> items) const {
    ChoiceProperty choice;
    choice.items = std::move(items);
    choice.get = [get = std::move(get), values] {
      auto const found = std::find(values.begin(), values.end(), get());
      return found == values.end() ? -1 : static_cast<int>(found - values.begin());
    };
    choice.set = [set = std::move(set), values](int item) {
      if (item >= 0 && item < static_cast<int>(values.size())) {
        set(values[static_cast<std::size_t>(item)]);
      }
    };
    return {std::move(id), std::move(label), std::move(choice)};
  }

  // `number` comes with all but what reads and sets it.
  Property Number(std::string id, std::string label, double Settings::*field, NumberProperty number) const {
    number.get = Getter(field);
    number.set = Setter(field);
    return {std::move(id), std::move(label), std::move(number)};
  }

  template <class T, class Owner>
  std::function<T()> Getter(T Owner::*field) const {
    return [read = mRead, field] { return read().*field; };
  }
  template <class T, class Owner>
  std::function<void(T)> Setter(T Owner::*field) const {
    return [change = mChange, field](T value) {
      change([field, value](Settings& settings) { settings.*field = value; });
    };
  }

 private:
  Read mRead;
  Change mChange;
};

}  // namespace playground
