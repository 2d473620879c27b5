#pragma once

#include <moxcore/utility/RefCountedImplementation.h>

namespace moxcore::utility {

// Base of objects held by IntrusivePtr that have one counted base only: smaller and quicker than
// RefCountedObject, and a pointer to it may be cast down statically.
class RefCountedObjectWithoutVirtualBase : public RefCountedImplementation {};

}  // namespace moxcore::utility
