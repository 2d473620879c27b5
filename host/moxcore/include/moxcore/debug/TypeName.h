#pragma once

#include <moxcore/string/String.h>

#include <typeinfo>

namespace moxcore::debug {

// The name of a type as it is written in source, namespaces included.
Utf8String GetTypeName(std::type_info const& type);

}  // namespace moxcore::debug
