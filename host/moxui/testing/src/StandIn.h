#pragma once

#include <algorithm>
#include <iterator>
#include <vector>

namespace moxui::testing {

/// Puts an object in the place of another while it lives. Several may stand in one upon the other and end in
/// any order: the newest that lives is in the place, and at last what was there first. `T` names the place.
template <class T>
class StandIn {
 public:
  /// Puts an object there, or null, and gives what was there.
  using Exchange = T* (*)(T*);

  StandIn(Exchange exchange, T* object) : mExchange(exchange) {
    T* const previous = exchange(object);
    All().push_back({this, previous});
  }
  ~StandIn() {
    auto& all = All();
    auto const mine = std::ranges::find(all, this, &Entry::owner);
    if (auto const next = std::next(mine); next != all.end()) {
      next->previous = mine->previous;
    } else {
      mExchange(mine->previous);
    }
    all.erase(mine);
  }
  StandIn(StandIn const&) = delete;
  StandIn& operator=(StandIn const&) = delete;

 private:
  struct Entry {
    StandIn* owner;
    T* previous;  ///< what comes back when the owner ends as the newest
  };
  static std::vector<Entry>& All() {
    static std::vector<Entry> all;
    return all;
  }

  Exchange mExchange;
};

}  // namespace moxui::testing
