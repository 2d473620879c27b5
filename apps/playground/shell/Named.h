#pragma once

#include <moxcore/string/String.h>

#include <string_view>
#include <utility>

namespace playground {

// A control with a name for assistive software, where nothing in it says what it is for.
template <class Control>
class Named : public Control {
 public:
  template <class... Arguments>
  explicit Named(std::string_view name, Arguments&&... arguments)
      : Control(std::forward<Arguments>(arguments)...), mName(name) {}

  moxcore::Utf8String UI_GetAccessibleName() const override { return mName; }

 private:
  moxcore::Utf8String mName;
};

}  // namespace playground
