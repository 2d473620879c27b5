#pragma once

#include <string_view>
#include <vector>

namespace playground {

// A key, or some that go together, and what it does to a control; both literals.
struct KeyLine {
  std::string_view keys;
  std::string_view text;
};

// The keys that work the controls of a page, by the page's name; none for a page of things to be looked at.
std::vector<KeyLine> KeysOfPage(std::string_view page);

}  // namespace playground
