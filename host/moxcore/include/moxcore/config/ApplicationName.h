#pragma once

#include <moxcore/string/String.h>

#include <string_view>

namespace moxcore::config {

// The application's name as its users know it, the title of message boxes. The name of the program file until
// the application sets one. May be called on any thread.
Utf8String GetApplicationName();
void SetApplicationName(std::string_view name);

}  // namespace moxcore::config
